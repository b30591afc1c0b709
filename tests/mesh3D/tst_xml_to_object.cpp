#include "mesh3D/Container.h"
#include "mesh3D/Material.h"
#include "mesh3D/Surface.h"
#include "model/Property.h"
#include "model/RepositoryP.h"
#include "model/System.h"
#include "model/exceptions.h"

#include <QtTest>

#include <memory>

/// The mesh classes come back from their XML text as their own class, registered in the store
/// given, with their published properties restored.
class tst_xml_to_object : public QObject {
    Q_OBJECT

private slots:
    void init() {
        source = std::make_unique<model::System>(false);
        target = std::make_unique<model::System>(false);
        store = new model::RepositoryP(target.get());
        QVERIFY(target->add_repository(store, "store"));
    }

    void cleanup() {
        target->remove_repository("store");
        delete store;
        target.reset();
        source.reset();
    }

    void material_comes_back_with_its_name_and_defaults() {
        mesh3D::Material original(source.get(), "mat-7", "Brick red");
        original.diffuse(basic::color4{0.5f, 0.1f, 0.1f, 0.0f});
        original.increase_property_version("Name");
        const QString xml = original.object_to_xml();

        std::unique_ptr<mesh3D::Material> made(mesh3D::Material::xml_to_object(store, xml));
        QCOMPARE(made->classname(), QString("mesh3D::Material"));
        QCOMPARE(made->id(), QString("mat-7"));
        QCOMPARE(made->name(), QString("Brick red"));
        QCOMPARE(made->version(), 1L);
        QCOMPARE(made->property("Name").version(), 0L);
        QCOMPARE(store->object("mat-7"), made.get());
        // Only published properties travel; the colours are the defaults of a new material.
        QCOMPARE(made->diffuse().r, 1.0f);
        QCOMPARE(made->transparency(), 0.0);
    }

    void surface_and_container_come_back_as_their_class() {
        mesh3D::Container parent(nullptr, source.get(), "box", "Box");
        parent.version(3);
        mesh3D::Surface surface(&parent, source.get(), "wall", basic::unit_m);
        surface.version(5);

        std::unique_ptr<mesh3D::Container> container(
            mesh3D::Container::xml_to_object(store, parent.object_to_xml()));
        QCOMPARE(container->classname(), QString("mesh3D::Container"));
        QCOMPARE(container->id(), QString("box"));
        QCOMPARE(container->version(), 3L);
        QVERIFY(container->children().isEmpty());
        QCOMPARE(store->object("box"), container.get());

        std::unique_ptr<mesh3D::Surface> made(mesh3D::Surface::xml_to_object(store, surface.object_to_xml()));
        QCOMPARE(made->classname(), QString("mesh3D::Surface"));
        QCOMPARE(made->id(), QString("wall"));
        QCOMPARE(made->version(), 5L);
        QVERIFY(made->triangles().isEmpty());
        QVERIFY(!made->Parent());
        QCOMPARE(store->object("wall"), made.get());
    }

    void a_text_naming_foreign_properties_leaves_nothing_behind() {
        mesh3D::Material material(source.get(), "mat-1", "Glass");
        // A container publishes no "Name", so a material's text does not fit it.
        QVERIFY_EXCEPTION_THROWN(mesh3D::Container::xml_to_object(store, material.object_to_xml()),
                                 model::NoSuchProperty_Exception);
        QVERIFY(!store->contains("mat-1"));
    }

private:
    std::unique_ptr<model::System> source;
    std::unique_ptr<model::System> target;
    model::RepositoryP* store = nullptr;
};

QTEST_GUILESS_MAIN(tst_xml_to_object)
#include "tst_xml_to_object.moc"
