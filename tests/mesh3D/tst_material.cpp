#include "mesh3D/Material.h"
#include "model/Primitive.h"
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
        for (const oxaIO::VColor4& c : {material.Diffuse(), material.Ambient(), material.Specular()}) {
            QCOMPARE(c.r, 1.0f);
            QCOMPARE(c.g, 1.0f);
            QCOMPARE(c.b, 1.0f);
            QCOMPARE(c.a, 0.0f);
        }
        QCOMPARE(material.transparency(), 0.0);
        QCOMPARE(material.shininess(), 0.0);
        QCOMPARE(material.texture(), 0u);
        QVERIFY(material.texture_filename().isNull());
        QCOMPARE(material.m_type(), 9u);

        material.diffuse(basic::color4{0.5f, 0.25f, 0.125f, 1.0f});
        material.transparency(0.3);
        material.texture_filename("wood.png");
        QCOMPARE(material.Diffuse().g, 0.25f);
        QCOMPARE(material.Transparency(), 0.3);
        QCOMPARE(material.TextureFileName(), std::wstring(L"wood.png"));
        QCOMPARE(material.ID(), std::wstring(L"m"));
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
        QCOMPARE(material.member_info("Name"), QString("Name of material"));
        name.set("Clinker");
        QCOMPARE(material.name(), QString("Clinker"));
        QStringList chain;
        material.superclasses(chain);
        QCOMPARE(chain, QStringList({"model::Object", "mesh3D::Element"}));
        QCOMPARE(material.info(), QString("Material"));
    }
};

QTEST_GUILESS_MAIN(tst_material)
#include "tst_material.moc"
