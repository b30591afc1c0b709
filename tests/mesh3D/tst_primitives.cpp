#include "MeshFixtures.h"

#include "mesh3D/Face.h"
#include "mesh3D/Material.h"
#include "mesh3D/Object3D.h"
#include "mesh3D/Polygon.h"
#include "mesh3D/Solid.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"
#include "model/System.h"

#include <QTextStream>
#include <QtTest>

#include <memory>

using namespace mesh3D;

Q_DECLARE_METATYPE(QVector<QVector3D>)

class tst_primitives : public QObject {
    Q_OBJECT

private slots:
    void polyline_types_data() {
        QTest::addColumn<QVector<QVector3D>>("points");
        QTest::addColumn<int>("flags");
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("closed");
        const QVector3D a(0, 0, 0), b(1, 0, 0), c(1, 1, 0), d(0, 1, 0), up(0, 1, 1);
        QTest::newRow("one point") << QVector<QVector3D>{a} << 0 << 0 << true;
        QTest::newRow("two points") << QVector<QVector3D>{a, b} << 1 << 1 << false;
        QTest::newRow("open three") << QVector<QVector3D>{a, b, c} << 0 << 1 << false;
        QTest::newRow("open three, unchecked") << QVector<QVector3D>{a, b, c} << 1 << 2 << false;
        QTest::newRow("closed square") << QVector<QVector3D>{a, b, c, d, a} << 0 << 2 << true;
        QTest::newRow("closed, bent") << QVector<QVector3D>{a, b, c, up, a} << 0 << 1 << true;
        QTest::newRow("nearly closed")
            << QVector<QVector3D>{a, b, c, d, QVector3D(0.001f, 0, 0)} << 0 << 2 << true;
    }
    void polyline_types() {
        QFETCH(QVector<QVector3D>, points);
        QFETCH(int, flags);
        QFETCH(int, type);
        QFETCH(bool, closed);
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        auto* polygon = new Polygon;
        for (const QVector3D& p : points) {
            // A point that welds onto an older one stays the caller's.
            auto* vertex = new Vertex(p.x(), p.y(), p.z());
            Vertex* held = surface.add(vertex);
            if (held != vertex)
                delete vertex;
            polygon->append(held);
        }
        surface.add(polygon);
        QCOMPARE(polygon->surface(), &surface);
        QCOMPARE(int(polygon->CalculatePolylineType(flags)), type);
        QCOMPARE(polygon->IsClosed(), closed);
    }

    void planarity_is_one_sided_data() {
        QTest::addColumn<QVector<QVector3D>>("points");
        QTest::addColumn<double>("tolerance");
        QTest::addColumn<bool>("planar");
        const QVector3D a(0, 0, 0), b(1, 0, 0), d(0, 1, 0);
        QTest::newRow("three points, no tolerance")
            << QVector<QVector3D>{a, QVector3D(0, 0, 5), QVector3D(9, 1, 0)} << 0.0 << true;
        QTest::newRow("flat") << QVector<QVector3D>{a, b, QVector3D(1, 1, 0), d} << 1e-9 << true;
        // Raising the corner opposite point 0 leaves the other corners below the plane through
        // point 0, lowering it leaves them above; only the positive deviation counts.
        QTest::newRow("raised") << QVector<QVector3D>{a, b, QVector3D(1, 1, 0.5), d} << 1e-5 << true;
        QTest::newRow("lowered") << QVector<QVector3D>{a, b, QVector3D(1, 1, -0.5), d} << 1e-5 << false;
        QTest::newRow("lowered, coarse") << QVector<QVector3D>{a, b, QVector3D(1, 1, -0.5), d} << 0.3 << true;
    }
    void planarity_is_one_sided() {
        QFETCH(QVector<QVector3D>, points);
        QFETCH(double, tolerance);
        QFETCH(bool, planar);
        Polygon polygon;
        std::vector<std::unique_ptr<Vertex>> vertices; // go before the polygon
        for (const QVector3D& p : points) {
            vertices.push_back(std::make_unique<Vertex>(p.x(), p.y(), p.z()));
            polygon.append(vertices.back().get());
        }
        QCOMPARE(polygon.IsPlanar(tolerance), planar);
    }

    void faces_and_solids_refer_to_primitives() {
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        fixtures::build(surface, fixtures::tetrahedron(), 0.0);
        Triangle* t = surface.triangles()[0];
        QVERIFY(t->IsRootGeometry());
        auto* face = new Face;
        face->Add(t);
        QVERIFY(!t->IsRootGeometry());
        auto* polygon = new Polygon;
        surface.add(polygon);
        face->Add(polygon);
        QVERIFY(!polygon->IsRootGeometry());
        face->SetShape(oxaIO::fsCurved);
        auto* solid = new Solid;
        solid->Add(face);
        surface.add(solid);

        std::list<oxaIO::IFace*> faces;
        solid->Faces(&faces);
        QCOMPARE(faces.size(), size_t(1));
        QCOMPARE(faces.front()->Shape(), oxaIO::fsCurved);
        std::list<oxaIO::ITriangle*> triangles;
        face->Triangles(&triangles);
        QCOMPARE(triangles.front(), static_cast<oxaIO::ITriangle*>(t));

        surface.remove(solid);
        QVERIFY(surface.solids().isEmpty());
        QCOMPARE(surface.triangles().size(), 4);
        QCOMPARE(surface.triangles()[0], t);
        QCOMPARE(surface.polygons().size(), 1);
    }

    void texture_coordinates_of_a_triangle() {
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        auto* lonely = new Vertex(0, 0, 0);
        Triangle loose(lonely, lonely, lonely);
        std::vector<oxaIO::VCoords2D> coords;
        loose.TextureCoords(0, &coords);
        QVERIFY(coords.empty());
        delete lonely;

        fixtures::build(surface, fixtures::tetrahedron(), 0.0);
        Triangle* second = surface.triangles()[1];
        second->TextureCoords(1, &coords);
        QVERIFY(coords.empty());
        QVERIFY(!system.mapping_coordinates().contains(&surface));
        for (int i = 0; i < 6; ++i)
            surface.GetMaterialMappingCoordinates()->append(model::mapCoordsType{0.5 * i, 1.0});
        second->TextureCoords(1, &coords);
        QCOMPARE(coords.size(), size_t(3));
        QCOMPARE(coords[0].x, 1.5);
        QCOMPARE(coords[2].x, 2.5);
        second->TextureCoords(2, &coords);
        QCOMPARE(coords.size(), size_t(3));
    }

    void copies_and_the_document_view() {
        model::System system(false);
        Object3D object(nullptr, &system, "o", basic::unit_m, "Slab");
        fixtures::build(object, fixtures::cube(), 0.0);
        Triangle* first = object.triangles()[0];
        first->update_normal();
        auto* copy = new Triangle(*first);
        QCOMPARE(object.triangles().size(), 13);
        QCOMPARE(object.triangles().last(), copy);
        QCOMPARE(copy->vertex(1), first->vertex(1));
        QCOMPARE(copy->normal().z, first->normal().z);
        QCOMPARE(copy->normal().z, -1.0);
        QCOMPARE(object.CountTriangles(), 13);

        std::list<oxaIO::IVertex*> vertices;
        object.Vertices(&vertices);
        QCOMPARE(vertices.size(), size_t(8));
        std::list<oxaIO::ITriangle*> triangles;
        object.Triangles(&triangles);
        QCOMPARE(triangles.size(), size_t(13));
        QCOMPARE(triangles.front()->Vertex(2)->Y(), 1.0);

        QVERIFY(!object.Material());
        QVERIFY(!object.OOBB());

        // A copy takes neither the reference nor the sign nor the geometry.
        object.RefID("ref");
        object.Negative(true);
        Object3D from_surface(object);
        QVERIFY(from_surface.qRefID().isNull());
        QVERIFY(!from_surface.Negative());
        QCOMPARE(from_surface.CountTriangles(), 0);
    }

    void tessellation_belongs_to_the_polygon() {
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        fixtures::build(surface, fixtures::tetrahedron(), 0.0);
        auto* polygon = new Polygon;
        surface.add(polygon);
        Triangle* t = surface.triangles()[0];
        polygon->AddToTessellation(new Triangle(t->vertex(0), t->vertex(1), t->vertex(2)));
        QCOMPARE(polygon->Tessellation().first()->surface(), &surface);
        QList<Triangle*> all;
        surface.allTriangles(all);
        QCOMPARE(all.size(), 5);
        QCOMPARE(all.last(), polygon->Tessellation().first());
        polygon->UpdateTessellation();
        QVERIFY(polygon->Tessellation().isEmpty());
        surface.Thickness(0.25);
        QCOMPARE(polygon->Thickness(), 0.25);
    }

    void written_triangles() {
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        fixtures::build(surface, fixtures::tetrahedron(), 0.0);
        Triangle* t = surface.triangles()[1];
        QHash<Vertex*, int> numbers{{t->vertex(0), 4}, {t->vertex(1), 7}};
        QString text;
        QTextStream stream(&text);
        t->write_XML(stream, "  ", numbers);
        stream.flush();
        QCOMPARE(text, QString("  <tri p1=\"4\" p2=\"7\" p3=\"0\"/>\n"));
        QCOMPARE(numbers.value(t->vertex(2), -1), 0);
    }
};

QTEST_GUILESS_MAIN(tst_primitives)
#include "tst_primitives.moc"
