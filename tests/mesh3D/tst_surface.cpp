#include "MeshFixtures.h"

#include "basic/numeric.h"
#include "mesh3D/Container.h"
#include "mesh3D/Material.h"
#include "mesh3D/Polygon.h"
#include "mesh3D/Surface.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"
#include "model/System.h"
#include "vmp/Vector.h"

#include <QtTest>

using namespace mesh3D;

namespace {

/// Two triangles over the edge (0,0,0)-(1,0,0): the second lies in the plane of the first or
/// is folded up by 90 degrees, and runs the shared edge the opposite way or the same way.
void two_triangles(Surface& surface, bool folded, bool consistent) {
    Vertex* a = surface.add(new Vertex(0, 0, 0));
    Vertex* b = surface.add(new Vertex(1, 0, 0));
    Vertex* c = surface.add(new Vertex(0.5, 1, 0));
    Vertex* d = surface.add(folded ? new Vertex(0.5, 0, 1) : new Vertex(0.5, -1, 0));
    surface.add(new Triangle(a, b, c));
    surface.add(consistent ? new Triangle(b, a, d) : new Triangle(a, b, d));
}

} // namespace

class tst_surface : public QObject {
    Q_OBJECT

private slots:
    void edges_data() {
        QTest::addColumn<int>("triangles");
        QTest::addColumn<bool>("folded");
        QTest::addColumn<bool>("consistent");
        QTest::addColumn<int>("records");
        QTest::addColumn<int>("edges");
        QTest::newRow("lone triangle") << 1 << false << true << 1 << 3;
        QTest::newRow("coplanar pair") << 2 << false << true << 2 << 4;
        QTest::newRow("folded pair") << 2 << true << true << 2 << 5;
        QTest::newRow("inconsistent flat pair") << 2 << false << false << 2 << 4;
        QTest::newRow("inconsistent folded pair") << 2 << true << false << 2 << 4;
    }
    void edges() {
        QFETCH(int, triangles);
        QFETCH(bool, folded);
        QFETCH(bool, consistent);
        QFETCH(int, records);
        QFETCH(int, edges);
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        if (triangles == 1) {
            surface.add(new Triangle(surface.add(new Vertex(0, 0, 0)), surface.add(new Vertex(1, 0, 0)),
                                     surface.add(new Vertex(0, 1, 0))));
        } else {
            two_triangles(surface, folded, consistent);
        }
        surface.update_normals();
        surface.update_edges(basic::to_radians(45.0));
        QCOMPARE(surface.count_triangle_edge_objects(), records);
        QCOMPARE(surface.count_edges(), long(edges));
        if (triangles == 1)
            QCOMPARE(int(surface.edges()[0]->flags), 7);
        // A second pass replaces the records with equal ones.
        surface.update_edges(basic::to_radians(45.0));
        QCOMPARE(surface.count_triangle_edge_objects(), records);
        QCOMPARE(surface.count_edges(), long(edges));
        for (int i = 0; i < records; ++i)
            QVERIFY(surface.triangles().contains(surface.edges()[i]->triangle));
    }

    void empty_geometry_frees_the_edges() {
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        two_triangles(surface, true, true);
        surface.update_normals();
        surface.update_edges(basic::to_radians(45.0));
        QVERIFY(surface.edges());
        surface.EmptyGeometry();
        QVERIFY(surface.triangles().isEmpty());
        QVERIFY(!surface.edges());
        QCOMPARE(surface.count_edges(), 0L);
    }

    void closed_meshes_come_out_outward_data() {
        QTest::addColumn<int>("shells");
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 4; ++seed) {
            QTest::newRow(qPrintable(QString("cube %1").arg(seed))) << 1 << seed;
            QTest::newRow(qPrintable(QString("cube and tetrahedron %1").arg(seed))) << 2 << seed;
            QTest::newRow(qPrintable(QString("two cubes and a tetrahedron %1").arg(seed))) << 3 << seed;
        }
        QTest::newRow("400 shells") << 400 << 9u;
    }
    void closed_meshes_come_out_outward() {
        // Cubes and tetrahedra in turn, the first at the origin, the others scattered.
        QFETCH(int, shells);
        QFETCH(unsigned, seed);
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> offset(-100, 100);
        QVector<std::array<double, 3>> centres; // of each triangle's shell
        int flips = 0;
        for (int i = 0; i < shells; ++i) {
            fixtures::Mesh shell = i % 2 ? fixtures::tetrahedron() : fixtures::cube();
            std::array<double, 3> shift{0, 0, 0};
            if (i > 0)
                shift = {offset(random), offset(random), offset(random)};
            for (auto& p : shell.points)
                for (int k = 0; k < 3; ++k)
                    p[k] += shift[k];
            flips += fixtures::build(surface, shell, 0.5, seed + i);
            const double middle = i % 2 ? 0.25 : 0.5;
            for (int t = 0; t < shell.triangles.size(); ++t)
                centres.append({shift[0] + middle, shift[1] + middle, shift[2] + middle});
        }
        QVERIFY(surface.is_closed_mesh());

        surface.update_normals();
        surface.correct_normals();

        QVERIFY(surface.is_closed_mesh());
        for (int t = 0; t < surface.triangles().size(); ++t)
            QVERIFY2(fixtures::faces_away(*surface.triangles()[t], centres[t]),
                     qPrintable(QString("triangle %1 of %2 flips").arg(t).arg(flips)));
        // Consistent and outward, the edges of a box are its twelve sides, no diagonals.
        surface.update_normals();
        surface.update_edges(basic::to_radians(45.0));
        if (shells == 1)
            QCOMPARE(surface.count_edges(), 12L);
    }

    void an_inner_shell_turns_away_from_its_own_centre() {
        // A cavity: each shell is oriented from its own outermost corner, so the inner box, like
        // the outer one, ends up facing away from its own centre.
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        fixtures::Mesh outer = fixtures::cube();
        fixtures::Mesh inner = fixtures::cube();
        for (auto& p : outer.points)
            for (double& c : p)
                c = c * 10 - 5;
        fixtures::build(surface, outer, 0.5, 1);
        fixtures::build(surface, inner, 0.5, 2);
        surface.correct_normals();
        for (const Triangle* t : surface.triangles().mid(0, 12))
            QVERIFY(fixtures::faces_away(*t, {0, 0, 0}));
        for (const Triangle* t : surface.triangles().mid(12))
            QVERIFY(fixtures::faces_away(*t, {0.5, 0.5, 0.5}));
    }

    void an_open_mesh_is_not_closed() {
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        fixtures::build(surface, fixtures::tetrahedron(), 0.0);
        QVERIFY(surface.is_closed_mesh());
        surface.remove(surface.triangles().last());
        QVERIFY(!surface.is_closed_mesh());
    }

    void a_large_shell_is_oriented_without_recursion() {
        // 480 000 triangles in one shell, far deeper than a call stack would allow.
        model::System system(false);
        Surface surface(nullptr, &system, "torus", basic::unit_m);
        fixtures::build(surface, fixtures::torus(600, 400), 0.3, 11);
        QCOMPARE(surface.triangles().size(), 480000);
        surface.correct_normals();
        int outward = 0;
        for (const Triangle* t : surface.triangles())
            outward += fixtures::faces_out_of_torus(*t);
        QCOMPARE(outward, 480000);
    }

    void polygons_and_their_tessellations_turn_outward_data() {
        QTest::addColumn<bool>("closing_point");
        QTest::newRow("open lists") << false;
        QTest::newRow("lists closed on their first point") << true;
    }
    void polygons_and_their_tessellations_turn_outward() {
        // Boxes of six quadrilaterals at scattered places, about half of them wound inward, each
        // tessellated in two triangles that follow the polygon's winding.
        QFETCH(bool, closing_point);
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        std::mt19937 random(4);
        std::uniform_real_distribution<double> offset(-20, 20);
        std::bernoulli_distribution flip(0.5);
        const int quads[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4},
                                 {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
        QHash<Polygon*, std::array<double, 3>> centre_of;
        for (int b = 0; b < 30; ++b) {
            const std::array<double, 3> shift{offset(random), offset(random), offset(random)};
            QVector<Vertex*> v;
            for (const auto& p : fixtures::cube().points)
                v << surface.add(new Vertex(p[0] + shift[0], p[1] + shift[1], p[2] + shift[2]));
            for (const auto& quad : quads) {
                const bool inward = flip(random);
                int corner[4];
                for (int k = 0; k < 4; ++k)
                    corner[k] = quad[inward ? 3 - k : k];
                auto* polygon = new Polygon;
                for (int k : corner)
                    polygon->append(v[k]);
                if (closing_point)
                    polygon->append(v[corner[0]]);
                surface.add(polygon);
                polygon->AddToTessellation(new Triangle(v[corner[0]], v[corner[1]], v[corner[2]]));
                polygon->AddToTessellation(new Triangle(v[corner[0]], v[corner[2]], v[corner[3]]));
                centre_of.insert(polygon, {shift[0] + 0.5, shift[1] + 0.5, shift[2] + 0.5});
            }
        }
        surface.correct_normals();
        for (Polygon* polygon : surface.polygons()) {
            const std::array<double, 3> centre = centre_of.value(polygon);
            const vmp::Vector n = polygon->calc_normal();
            double dot = 0;
            for (int k = 0; k < 3; ++k)
                dot += n[k] * ((*polygon->point(0))[k] + (*polygon->point(2))[k] - 2 * centre[k]);
            QVERIFY(dot > 0);
            for (Triangle* t : polygon->Tessellation())
                QVERIFY(fixtures::faces_away(*t, centre));
        }
    }

    void flip_normal_keeps_the_first_point() {
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        auto* polygon = new Polygon;
        QVector<Vertex*> v;
        for (int i = 0; i < 5; ++i)
            v << surface.add(new Vertex(std::cos(i * 1.2566), std::sin(i * 1.2566), 0));
        for (Vertex* p : v)
            polygon->append(p);
        surface.add(polygon);
        surface.flip_normal(polygon);
        const QVector<Vertex*> expected{v[0], v[4], v[3], v[2], v[1]};
        for (int i = 0; i < 5; ++i)
            QCOMPARE(polygon->vertex(i), expected[i]);
    }

    void swapping_corners_moves_their_texture_coordinates() {
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        fixtures::build(surface, fixtures::tetrahedron(), 0.0);
        QVector<model::mapCoordsType>& uv = *surface.GetMaterialMappingCoordinates();
        for (int i = 0; i < 12; ++i)
            uv.append(model::mapCoordsType{double(i), -double(i)});
        Triangle* second = surface.triangles()[1];
        Vertex* corner0 = second->vertex(0);
        surface.swap_vertices(second, 0, 2);
        QCOMPARE(second->vertex(2), corner0);
        QCOMPARE(uv[3].u, 5.0);
        QCOMPARE(uv[5].u, 3.0);
        QCOMPARE(uv[4].u, 4.0);
    }

    void sorting_keeps_texture_coordinates_with_their_triangles() {
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        // Three triangles of areas 4, 1 and 9 (times a half), each with its own coordinates.
        const double sizes[3] = {2, 1, 3};
        QHash<Triangle*, double> tag;
        for (int i = 0; i < 3; ++i) {
            const double s = sizes[i];
            auto* t =
                new Triangle(surface.add(new Vertex(10 * i, 0, 0)), surface.add(new Vertex(10 * i + s, 0, 0)),
                             surface.add(new Vertex(10 * i, s, 0)));
            surface.add(t);
            tag.insert(t, s);
            for (int c = 0; c < 3; ++c)
                surface.GetMaterialMappingCoordinates()->append(model::mapCoordsType{s, double(c)});
        }
        surface.sort_triangles();
        const QVector<model::mapCoordsType>& uv = *surface.GetMaterialMappingCoordinates();
        QCOMPARE(uv.size(), 9);
        double previous = 0;
        for (int t = 0; t < 3; ++t) {
            Triangle* triangle = surface.triangles()[t];
            QVERIFY(triangle->area2() >= previous);
            previous = triangle->area2();
            for (int c = 0; c < 3; ++c) {
                QCOMPARE(uv[3 * t + c].u, tag[triangle]);
                QCOMPARE(uv[3 * t + c].v, double(c));
            }
        }
    }

    void swapped_axes() {
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        Vertex* v = surface.add(new Vertex(1, 2, 3));
        surface.swap_coordinates(2, 0, 1);
        QCOMPARE(v->x(), 2.0);
        QCOMPARE(v->y(), 3.0);
        QCOMPARE(v->z(), 1.0);
        surface.swap_coordinates(0, 0, 1);
        QCOMPARE(v->x(), 2.0);
    }

    void material_override_and_reset() {
        // Overriding keeps the first source through later overrides; resetting all the system's
        // surfaces restores each source, and a further reset keeps it.
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        Surface other(nullptr, &system, "t", basic::unit_m);
        Material* m1 = Material::GetGlobalMaterial(&system, "m1", "one");
        Material* m2 = Material::GetGlobalMaterial(&system, "m2", "two");
        Material* m3 = Material::GetGlobalMaterial(&system, "m3", "three");
        surface.material(m1, true);
        surface.material(m2, false);
        surface.material(m3, false);
        QCOMPARE(surface.source_material(), m1);
        other.material(m2, true);
        other.SetEmptyMaterial();
        QCOMPARE(other.material(), Material::Dummy(&system));

        Surface::reset_materials(&system);
        QCOMPARE(other.material(), m2);
        QCOMPARE(surface.material(), m1);
        QVERIFY(!surface.source_material());
        QVERIFY(Surface::source_materials(&system).isEmpty());
        surface.reset_material();
        QCOMPARE(surface.material(), m1);
        Material::DeleteGlobalMaterials(&system);
    }

    void an_empty_surface_is_left_alone() {
        model::System system(false);
        Surface surface(nullptr, &system, "s", basic::unit_m);
        surface.correct_normals();
        surface.update_edges(1.0);
        QVERIFY(!surface.edges());
        QVERIFY(surface.material_ID().isEmpty());
        QVERIFY(!surface.material_ID().isNull());
    }
};

QTEST_GUILESS_MAIN(tst_surface)
#include "tst_surface.moc"
