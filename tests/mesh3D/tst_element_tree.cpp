#include "MeshFixtures.h"
#include "support/OutputCapture.h"

#include "geometry/OBB.h"
#include "geometry/Octree.h"
#include "mesh3D/Container.h"
#include "mesh3D/GenericObject.h"
#include "mesh3D/Material.h"
#include "mesh3D/Object3D.h"
#include "mesh3D/Surface.h"
#include "mesh3D/Vertex.h"
#include "model/System.h"

#include <QtTest>

using namespace mesh3D;

class tst_element_tree : public QObject {
    Q_OBJECT

private slots:
    void mask_texts_data() {
        QTest::addColumn<uint>("mask");
        QTest::addColumn<QString>("text");
        QTest::newRow("element") << 0x1u << "Element";
        QTest::newRow("material") << 0x9u << "Element::Material";
        QTest::newRow("composite container") << 0x18003u << "Element::Container::Composite";
        QTest::newRow("object") << 0x11045u << "Element::GeometricElement::Surface::Object3D";
        QTest::newRow("parent link only") << 0x10000u << "unknown";
        QTest::newRow("nothing") << 0x0u << "unknown";
    }
    void mask_texts() {
        QFETCH(uint, mask);
        QFETCH(QString, text);
        QCOMPARE(object_type_text(mask), text);
    }

    void types_of_the_classes() {
        model::System system(false);
        Container root(nullptr, &system, "root", "Root");
        auto* surface = new Surface(&root, "s", basic::unit_m);
        auto* object = new Object3D(&root, "o", basic::unit_m, "Wall");
        auto* generic = new GenericObject(&root, "g", "Thing");
        root.children() << surface << object << generic;
        Material material(&system, "m", "Concrete");
        root.IsComposite(true);
        QVERIFY(object_type_text(root.m_type()).endsWith("Composite"));
        QVERIFY(root.is_type(TYPE_CONTAINER));
        QVERIFY(!surface->is_type(TYPE_CONTAINER));
        QVERIFY(generic->is_type(TYPE_GENERIC_OBJECT) && material.is_type(TYPE_MATERIAL));
        QVERIFY(object->is_type(TYPE_SURFACE | TYPE_GEOMETRIC_ELEMENT));

        QStringList chain;
        object->superclasses(chain);
        QCOMPARE(chain, QStringList({"model::Object", "mesh3D::Element", "mesh3D::GeometricElement",
                                     "mesh3D::Surface"}));
        QCOMPARE(surface->name(), QString("s")); // a surface without a name shows its identifier
    }

    void a_parent_of_another_system_is_refused() {
        model::System first(false);
        model::System second(false);
        Container a(nullptr, &first, "a", "A");
        Container b(nullptr, &first, "b", "B");
        Container foreign(nullptr, &second, "c", "C");
        Surface surface(nullptr, &first, "s", basic::unit_m);
        surface.Parent(&a);
        QCOMPARE(surface.Parent(), &a);
        surface.Parent(&foreign);
        QCOMPARE(surface.Parent(), &a);
        surface.Parent(&b);
        QCOMPARE(surface.Parent(), &b);
        surface.Parent(nullptr);
        QVERIFY(!surface.Parent());
        surface.Parent(&foreign);
        QCOMPARE(surface.Parent(), &foreign);
        surface.Parent(nullptr);

        GenericObject generic(&a, "g", "G");
        generic.Parent(&foreign);
        QCOMPARE(generic.Parent(), &a);
        generic.Parent(nullptr);
    }

    void counting_and_listing_children() {
        model::System system(false);
        Container root(nullptr, &system, "root", "Root");
        auto* sub = new Container(&root, "sub", "Sub");
        root.children().append(sub);
        sub->children().append(new Object3D(sub, "o1", basic::unit_m, "One"));
        sub->children().append(new GenericObject(sub, "g1", "G"));
        QCOMPARE(root.count_children(), 3);
        QCOMPARE(root.CountObjects(), 2);
        QVERIFY(!root.IsEmpty());

        std::list<oxaIO::IContainer*> containers;
        std::list<oxaIO::IObject3D*> objects;
        std::list<oxaIO::IGenericObject*> generics;
        std::list<oxaIO::IObject2D*> flat;
        root.Containers(&containers);
        sub->Objects3D(&objects);
        sub->GenericObjects(&generics);
        sub->Objects2D(&flat);
        QCOMPARE(containers.size(), size_t(1));
        QCOMPARE(containers.front()->ID(), std::wstring(L"sub"));
        QCOMPARE(objects.size(), size_t(1));
        QCOMPARE(objects.front()->Name(), std::wstring(L"One"));
        QCOMPARE(generics.size(), size_t(1));
        QVERIFY(flat.empty());
    }

    void deleting_a_child_takes_it_out() {
        model::System system(false);
        Container root(nullptr, &system, "root", "Root");
        auto* surface = new Surface(&root, "s", basic::unit_m);
        auto* generic = new GenericObject(&root, "g", "G");
        auto* sub = new Container(&root, "sub", "Sub");
        root.children() << surface << generic << sub;
        surface->GetMaterialMappingCoordinates()->append(model::mapCoordsType{1, 2});
        QVERIFY(system.mapping_coordinates().contains(surface));

        delete surface;
        QVERIFY(!system.mapping_coordinates().contains(surface));
        QCOMPARE(root.children(), (QList<Element*>{generic, sub}));
        QVERIFY(!system.object("s"));
        delete generic;
        delete sub;
        QVERIFY(root.IsEmpty());
    }

    void destroying_a_container_destroys_the_tree() {
        model::System system(false);
        auto* root = new Container(nullptr, &system, "root", "Root");
        auto* sub = new Container(root, "sub", "Sub");
        root->children() << sub;
        for (int i = 0; i < 1000; ++i) {
            auto* object = new Object3D(sub, QString("o%1").arg(i), basic::unit_m, "O");
            fixtures::build(*object, fixtures::tetrahedron(i), 0.0);
            sub->children() << object;
        }
        sub->children() << new GenericObject(sub, "g", "G");
        QCOMPARE(root->CountObjects(), 1001);
        root->delete_content();
        QVERIFY(root->IsEmpty());
        QVERIFY(!system.object("sub"));
        QVERIFY(!system.object("o999"));
        QVERIFY(system.object("root"));

        auto* again = new Container(root, "again", "Again");
        root->children() << again;
        again->children() << new Surface(again, "s", basic::unit_m);
        delete root;
        QVERIFY(!system.object("again"));
        QVERIFY(!system.object("s"));
        QVERIFY(!system.object("root"));
    }

    void bounding_boxes() {
        model::System system(false);
        Container root(nullptr, &system, "root", "Root");
        root.update_boundingbox();
        QVERIFY(root.boundingbox().xmin > root.boundingbox().xmax);
        auto* sub = new Container(&root, "sub", "Sub");
        auto* a = new Surface(sub, "a", basic::unit_m);
        auto* b = new Surface(&root, "b", basic::unit_m);
        root.children() << sub << b;
        sub->children() << a;
        fixtures::build(*a, fixtures::cube(), 0.0);
        fixtures::build(*b, fixtures::tetrahedron(-3), 0.0);
        root.update_boundingbox();
        QCOMPARE(root.boundingbox().xmin, -3.0);
        QCOMPARE(root.boundingbox().xmax, 1.0);
        QCOMPARE(root.boundingbox().zmax, 1.0);
        QCOMPARE(sub->boundingbox().xmin, 0.0);
        QCOMPARE(a->getBoundingbox().ymax, 1.0);
    }

    void vertices_weld_within_the_limit() {
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        auto* first = new Vertex(1, 1, 1);
        QCOMPARE(surface.add(first), first);
        QCOMPARE(first->geometricElement(), static_cast<GeometricElement*>(&surface));
        auto* close = new Vertex(1 + 5e-5, 1, 1);
        QCOMPARE(surface.add(close), first);
        delete close;
        auto* apart = new Vertex(1 + 5e-4, 1, 1);
        QCOMPARE(surface.add(apart), apart);
        QCOMPARE(surface.vertices().count(), 2);
        surface.remove(first);
        QCOMPARE(surface.vertices().count(), 1);
        QCOMPARE(surface.vertices().root_node(), static_cast<geometry3D::Point*>(apart));

        GeometricElement::SetEps(1e-2);
        Surface coarse(nullptr, &system, "coarse", basic::unit_m);
        GeometricElement::SetEps(1e-4);
        QCOMPARE(coarse.vertices().eps(), 1e-4);
        QCOMPARE(surface.vertices().eps(), 1e-8);
        Surface fine(nullptr, &system, "fine", basic::unit_m);
        QCOMPARE(fine.vertices().eps(), 1e-8);
    }

    void oriented_boxes() {
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        fixtures::Mesh box = fixtures::cube();
        for (auto& p : box.points) {
            p[0] *= 4;
            p[1] *= 2;
        }
        fixtures::build(surface, box, 0.0);
        QVERIFY(!surface.OptOBB());
        const geometry3D::OBB* best = surface.CalcOptOBB();
        QCOMPARE(surface.OptOBB(), best);
        // The search ends in a cell of angles around the best, not on it.
        QVERIFY(qAbs(std::abs(best->CalcVolume()) - 8.0) < 0.01);
        const geometry3D::OBB plain = surface.CalcOBB(0, 0, 0);
        QVERIFY(qAbs(std::abs(plain.CalcVolume()) - 8.0) < 1e-9);
    }

    void placement_and_copies() {
        model::System system(false);
        Container root(nullptr, &system, "root", "Root");
        Surface surface(&root, "s", basic::unit_mm);
        surface.translate(1, 2, 3);
        fixtures::build(surface, fixtures::tetrahedron(), 0.0);
        Surface copy(surface);
        QVERIFY(copy.id() != surface.id());
        QCOMPARE(copy.Parent(), &root);
        QCOMPARE(copy.unit(), basic::unit_mm);
        QCOMPARE(copy.translate_x(), 0.0); // the placement stays with the original
        QVERIFY(copy.triangles().isEmpty());
        QCOMPARE(copy.vertices().count(), 0);
    }

    void preparing_a_tree_for_drawing() {
        model::System system(false);
        Container root(nullptr, &system, "root", "Root");
        auto* sub = new Container(&root, "sub", "Sub");
        auto* box = new Object3D(sub, "box", basic::unit_m, "Box");
        root.children() << sub;
        sub->children() << box;
        fixtures::build(*box, fixtures::cube(), 0.5, 3);
        OutputCapture out(stdout);
        root.correct_normals();
        const QByteArray printed = out.text();
        QCOMPARE(printed.count("<Container::correct_normals()>\n"), 2);
        for (const Triangle* t : box->triangles())
            QVERIFY(fixtures::faces_away(*t, {0.5, 0.5, 0.5}));
        QCOMPARE(box->count_edges(), 12L);
    }
};

QTEST_GUILESS_MAIN(tst_element_tree)
#include "tst_element_tree.moc"
