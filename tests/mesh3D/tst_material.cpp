#include "mesh3D/Material.h"
#include "mesh3D/QSColumnMaterial.h"
#include "mesh3D/Surface.h"
#include "model/Primitive.h"
#include "model/QSColumnObject.h"
#include "model/QSItemObject.h"
#include "model/System.h"

#include <QtTest>

using namespace mesh3D;

class tst_material : public QObject {
    Q_OBJECT

private slots:
    void the_table_finds_or_makes() {
        model::System system(false);
        Material* first = Material::GetGlobalMaterial(&system, "m1", "Concrete");
        QCOMPARE(Material::GetGlobalMaterial(&system, "m1", "Steel"), first);
        QCOMPARE(first->name(), QString("Concrete"));
        QCOMPARE(system.object("m1"), static_cast<model::Object*>(first));
        QCOMPARE(Material::Dummy(&system), Material::Dummy(&system));
        QCOMPARE(Material::Dummy(&system)->id(), QString("mesh3D::Material"));

        // A material made outside the table is found by identifier, not taken over.
        auto* outside = new Material(&system, "m2", "Glass");
        QCOMPARE(Material::GetGlobalMaterial(&system, "m2", "Other"), outside);

        // An identifier that another kind of object holds gives no material.
        model::Object stranger(&system, "taken");
        QVERIFY(!Material::GetGlobalMaterial(&system, "taken", "Brick"));

        model::System other(false);
        QVERIFY(Material::GetGlobalMaterial(&other, "m1", "Concrete") != first);

        Material::DeleteGlobalMaterials(&system);
        QVERIFY(!system.object("m1"));
        QVERIFY(!system.object("mesh3D::Material"));
        QCOMPARE(system.object("m2"), static_cast<model::Object*>(outside));
        delete outside;
        Material::DeleteGlobalMaterials(&other);
        Material::DeleteGlobalMaterials(&other);
    }

    void a_new_material_is_opaque_white() {
        model::System system(false);
        Material material(&system, "m", "Plain");
        for (const oxaIO::VColor4& c : {material.Diffuse(), material.Ambient(), material.Specular()})
            QCOMPARE((QList<float>{c.r, c.g, c.b, c.a}), (QList<float>{1, 1, 1, 0}));
        QCOMPARE(material.transparency(), 0.0);
        QCOMPARE(material.shininess(), 0.0);
        QVERIFY(material.texture_filename().isNull());

        material.diffuse(basic::color4{0.5f, 0.25f, 0.125f, 1.0f});
        Material copy(material);
        QVERIFY(copy.id() != material.id());
        QCOMPARE(copy.Diffuse().b, 0.125f);
        QCOMPARE(copy.name(), QString("Plain"));
    }

    void the_name_property() {
        model::System system(false);
        Material material(&system, "m", "Brick");
        QStringList names;
        material.property_list(names);
        QCOMPARE(names, QStringList({"Name", "ID"}));
        auto& name = static_cast<model::Primitive&>(material.property("Name"));
        QCOMPARE(name.get(), QString("Brick"));
        QCOMPARE(&material.property("Name"), static_cast<model::Property*>(&name));
        name.set("Clinker");
        QCOMPARE(material.name(), QString("Clinker"));
    }

    void without_quick_search_there_are_no_columns() {
        model::System system(false);
        Material material(&system, "m", "Plain");
        Surface surface(nullptr, &system, "s", basic::unit_m);
        surface.material(&material, true);
        QVERIFY(!Material::QSColumnMaterial(&system));
        QVERIFY(!material.qs_column());
        QVERIFY(!Surface::QSColumnObject(&system));
        QVERIFY(system.qs_columns().isEmpty());
    }

    void the_column_follows_overrides_and_resets() {
        model::System system(true);
        {
            Material* m1 = Material::GetGlobalMaterial(&system, "m1", "Brick");
            Material* m2 = Material::GetGlobalMaterial(&system, "m2", "Glass");
            m2->diffuse(basic::color4{0.5f, 0.25f, 1.0f, 0.0f});
            m2->transparency(0.75);
            Surface a(nullptr, &system, "a", basic::unit_m);
            Surface b(nullptr, &system, "b", basic::unit_m);
            Surface c(nullptr, &system, "c", basic::unit_m);
            a.material(m1, true);
            b.material(m1, true);
            c.material(m2, true);

            QSColumnMaterial* materials = Material::QSColumnMaterial(&system);
            QVERIFY(materials);
            QCOMPARE(system.qs_columns().value("Material"), static_cast<model::QSColumnAbstract*>(materials));
            model::QSColumnObject* surfaces = Surface::QSColumnObject(&system);
            QVERIFY(materials->edges().contains(surfaces));
            QCOMPARE(surfaces->items().size(), 3);

            QAbstractItemModel* table = materials->model();
            QCOMPARE(table->columnCount(), 8);
            QCOMPARE(table->headerData(7, Qt::Horizontal).toString(), QString("Ref."));
            QCOMPARE(table->headerData(3, Qt::Horizontal).toString(), QString("Color: diffuse"));
            const int row1 = materials->index(materials->value(m1));
            const int row2 = materials->index(materials->value(m2));
            auto refs = [&](int row) { return table->index(row, 7).data().toString(); };
            QCOMPARE(refs(row1), QString("# 2"));
            QCOMPARE(refs(row2), QString("# 1"));
            QCOMPARE(table->index(row2, 0).data().toString(), QString("Glass"));
            QCOMPARE(table->index(row2, 1).data().toString(), QString("0.75"));
            QCOMPARE(table->index(row2, 3).data().toString(), QString("[0.50/0.25/1.00]"));
            QCOMPARE(table->index(row2, 3).data(Qt::BackgroundRole).value<QColor>(),
                     QColor(127, 63, 255, 255));
            QVERIFY(!table->index(row2, 0).data(Qt::BackgroundRole).isValid());
            QVERIFY(!table->index(row2, 0).data(Qt::FontRole).isValid());

            a.material(m2, false);
            QCOMPARE(refs(row1), QString("# 1"));
            QCOMPARE(refs(row2), QString("# 2"));
            a.SetEmptyMaterial();
            QCOMPARE(refs(row2), QString("# 1"));
            QCOMPARE(a.source_material(), m1);
            a.reset_material();
            QCOMPARE(refs(row1), QString("# 2"));
            QCOMPARE(refs(row2), QString("# 1"));

            // Choosing the glass in the material table leaves only its surface active.
            QList<int> chosen{row2};
            materials->filter(chosen);
            QCOMPARE(surfaces->active(), 1);
            QCOMPARE(static_cast<model::QSItemObject*>(surfaces->items().first())->object(),
                     static_cast<model::Object*>(&c));
            QVERIFY(
                !table->index(materials->index(materials->value(m1)), 3).data(Qt::BackgroundRole).isNull());
            materials->clear_selection();
            QCOMPARE(materials->matches("Gl*"), QList<int>{materials->index(materials->value(m2))});
            QCOMPARE(materials->matches("0.75").size(), 1);

            Surface::DeleteGlobalQSColumnObject(&system);
            QVERIFY(materials->edges().isEmpty());
            QCOMPARE(refs(materials->index(materials->value(m1))), QString("# 0"));
            Material::DeleteGlobalMaterials(&system);
            QVERIFY(materials->items().isEmpty());
            Material::DeleteGlobalQSColumnMaterial(&system);
            QVERIFY(system.qs_columns().isEmpty());
        }
    }
};

QTEST_GUILESS_MAIN(tst_material)
#include "tst_material.moc"
