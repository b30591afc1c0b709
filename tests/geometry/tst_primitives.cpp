#include "geometry/OBB2D.h"
#include "geometry/Plane.h"
#include "geometry/Point.h"
#include "geometry/Polygon.h"
#include "geometry/Ray.h"
#include "geometry/Triangle.h"
#include "geometry/primitives.h"
#include "support/OutputCapture.h"

#include <QtTest>

#include <cmath>

using namespace geometry3D;
using vmp::Vector;

Q_DECLARE_METATYPE(geometry3D::boundingbox)
Q_DECLARE_METATYPE(geometry3D::Point)

namespace {
bool same(const point& a, const point& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}
bool close(const Vector& a, const Vector& b) {
    return (a - b).quantity() < 1e-12;
}
} // namespace

class tst_primitives : public QObject {
    Q_OBJECT

private slots:
    void box_corners_in_fixed_order() {
        const boundingbox box{1, 2, 10, 20, 3, 30};
        point c[8];
        corners(box, c);
        const point expected[8] = {{1, 2, 3},  {10, 2, 3},  {10, 20, 3},  {1, 20, 3},
                                   {1, 2, 30}, {10, 2, 30}, {10, 20, 30}, {1, 20, 30}};
        for (int i = 0; i < 8; ++i)
            QVERIFY2(same(c[i], expected[i]), qPrintable(QString("corner %1").arg(i)));
    }

    void growing_and_merging_boxes() {
        boundingbox box;
        grow(box, point{1, 2, 3});
        QVERIFY((box == boundingbox{1, 2, 1, 2, 3, 3}));
        grow(box, point{-1, 5, 3});
        QVERIFY((box == boundingbox{-1, 2, 1, 5, 3, 3}));
        const boundingbox before = box;
        merge(box, boundingbox());
        QVERIFY(box == before);
        merge(box, boundingbox{0, 0, 0, 0, -4, 9});
        QVERIFY((box == boundingbox{-1, 0, 1, 5, -4, 9}));
        scale(box, 2.0);
        QVERIFY((box == boundingbox{-2, 0, 2, 10, -8, 18}));
        QCOMPARE(volume(boundingbox{0, 0, 2, 3, 0, 4}), 24.0);
        QVERIFY(same(center(boundingbox{0, 0, 2, 3, 0, 4}), point{1, 1.5, 2}));
        QCOMPARE(distance2(0, 0, 0, 1, 2, 2), 9.0);
        QCOMPARE(distance(point{0, 0, 0}, point{1, 2, 2}), 3.0);
        QCOMPARE(distance_from_line(point{0, 3, 0}, point{-1, 0, 0}, point{5, 0, 0}), 3.0);
    }

    void overlap_data() {
        QTest::addColumn<boundingbox>("a");
        QTest::addColumn<boundingbox>("b");
        QTest::addColumn<bool>("expected");
        const boundingbox unit{0, 0, 1, 1, 0, 1};
        QTest::newRow("a inside b") << boundingbox{0.2, 0.2, 0.8, 0.8, 0.2, 0.8} << unit << true;
        QTest::newRow("b inside a") << unit << boundingbox{0.2, 0.2, 0.8, 0.8, 0.2, 0.8} << true;
        QTest::newRow("one corner in") << boundingbox{0.5, 0.5, 2, 2, 0.5, 2} << unit << true;
        QTest::newRow("touching face") << boundingbox{1, 0, 2, 1, 0, 1} << unit << true;
        QTest::newRow("equal") << unit << unit << true;
        QTest::newRow("apart") << boundingbox{2, 2, 3, 3, 2, 3} << unit << false;
        // Crossing like a plus sign: no corner of either lies in the other.
        QTest::newRow("crossing bars")
            << boundingbox{-1, 0.4, 2, 0.6, 0.4, 0.6} << boundingbox{0.4, -1, 0.6, 2, 0, 1} << false;
    }

    void overlap() {
        QFETCH(boundingbox, a);
        QFETCH(boundingbox, b);
        QFETCH(bool, expected);
        QCOMPARE(geometry3D::overlap(a, b), expected);
    }

    void ray_triangle_data() {
        QTest::addColumn<Point>("origin");
        QTest::addColumn<Point>("direction");
        QTest::addColumn<bool>("hit");
        QTest::addColumn<double>("distance");
        QTest::newRow("straight down through the inside")
            << Point(0.25, 0.25, 5) << Point(0, 0, -1) << true << 5.0;
        QTest::newRow("long direction scales the distance")
            << Point(0.25, 0.25, 5) << Point(0, 0, -2) << true << 2.5;
        QTest::newRow("at a corner") << Point(0, 0, 1) << Point(0, 0, -1) << true << 1.0;
        QTest::newRow("on the hypotenuse") << Point(0.5, 0.5, 1) << Point(0, 0, -1) << true << 1.0;
        QTest::newRow("behind the origin counts") << Point(0.25, 0.25, -3) << Point(0, 0, -1) << true << -3.0;
        QTest::newRow("miss, u below 0") << Point(-0.1, 0.5, 1) << Point(0, 0, -1) << false << 0.0;
        QTest::newRow("miss, v below 0") << Point(0.5, -0.1, 1) << Point(0, 0, -1) << false << 0.0;
        QTest::newRow("miss, u + v above 1") << Point(0.6, 0.6, 1) << Point(0, 0, -1) << false << 0.0;
        QTest::newRow("parallel to the plane") << Point(0.25, 0.25, 1) << Point(1, 0, 0) << false << 0.0;
        QTest::newRow("grazing, det below 1e-5")
            << Point(0.25, 0.25, 1) << Point(1, 0, -1e-6) << false << 0.0;
        QTest::newRow("oblique") << Point(-1, 0.25, 1) << Point(1.25, 0, -1) << true << 1.0;
    }

    void ray_triangle() {
        QFETCH(Point, origin);
        QFETCH(Point, direction);
        QFETCH(bool, hit);
        QFETCH(double, distance);
        const triangle t{{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}};
        const Ray ray(origin, direction.to_Vector());
        double found = -999.0;
        QCOMPARE(intersects(ray, t, &found), hit);
        if (hit)
            QVERIFY(std::fabs(found - distance) < 1e-12);
        else
            QCOMPARE(found, -999.0);
        QCOMPARE(intersects(ray, t), hit);
    }

    void triangle_contains_edge_data() {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<int>("expected");
        QTest::newRow("a b") << 0 << 1 << 1;
        QTest::newRow("b c") << 1 << 2 << 2;
        QTest::newRow("c a") << 2 << 0 << 3;
        QTest::newRow("b a") << 1 << 0 << -1;
        QTest::newRow("c b") << 2 << 1 << -2;
        QTest::newRow("a c") << 0 << 2 << -3;
        QTest::newRow("a foreign") << 0 << 3 << 0;
        QTest::newRow("foreign a") << 3 << 0 << 0;
    }

    void triangle_contains_edge() {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(int, expected);
        Point p[4] = {Point(0, 0, 0), Point(1, 0, 0), Point(0, 1, 0), Point(5, 5, 5)};
        const Triangle t(&p[0], &p[1], &p[2]);
        QCOMPARE(t.contains_edge(&p[from], &p[to]), expected);
        // A polygon of the same three points numbers its edges the same way.
        Polygon polygon;
        for (int i = 0; i < 3; ++i)
            polygon.append(&p[i]);
        QCOMPARE(polygon.contains_edge(&p[from], &p[to]), expected);
    }

    void triangle_measures() {
        Point a(0, 0, 0), b(4, 0, 0), c(0, 3, 0);
        Triangle t(&a, &b, &c);
        QCOMPARE(t.area2(), 12.0);
        QCOMPARE(t.area(), 6.0);
        QVERIFY(close(t.calc_normal(), Vector(0, 0, 1)));
        QCOMPARE(t.longest_edge(), 2);  // b -> c, length 5
        QCOMPARE(t.shortest_edge(), 3); // c -> a, length 3
        QCOMPARE(t.aspect_ratio(), 0.2);
        QCOMPARE(t.point_index(&c), 2);
        QCOMPARE(t.point_index(nullptr), -1);
        QCOMPARE(t.height(0), -1.0);
        QCOMPARE(t.included_angle_rad(1), -1.0);
        t.swap_points(1, 2);
        QVERIFY(close(t.calc_normal(), Vector(0, 0, -1)));
        const Triangle copy(t);
        QVERIFY(copy.point(1) == &c);
        QVERIFY(same(copy.to_primitive().p[2], point{4, 0, 0}));

        // Equal edges: the first wins.
        Point l0(-3, 0, 0), l1(3, 0, 0), l2(0, 8, 0);
        QCOMPARE(Triangle(&l0, &l1, &l2).longest_edge(), 2);
        Point s0(0, 0, 0), s1(3, 4, 0), s2(6, 0, 0);
        QCOMPARE(Triangle(&s0, &s1, &s2).shortest_edge(), 1);
    }

    void newell_normal_ignores_a_repeated_closing_point() {
        Point p[4] = {Point(0, 0, 2), Point(3, 0, 2), Point(3, 2, 2), Point(0, 2, 2)};
        Polygon open;
        Polygon closed;
        for (Point& q : p) {
            open.append(&q);
            closed.append(&q);
        }
        closed.append(&p[0]);
        QVERIFY(close(open.calc_normal(), Vector(0, 0, 1)));
        QCOMPARE(closed.calc_normal(), open.calc_normal());
        QCOMPARE(closed.calc_normal(0.5), open.calc_normal());
        QCOMPARE(closed.count_points(), 5);
        // The repeated entry at index 4 is the one whose predecessor is p3.
        QCOMPARE(closed.contains_edge(&p[0], &p[3]), -4);
        const Polygon copy(closed);
        QCOMPARE(copy.count_points(), 0);
    }

    void plane_construction_and_classification() {
        const Plane plane(Vector(0, 0, 2), 3.0);
        QCOMPARE(plane.n(), Vector(0, 0, 1));
        QCOMPARE(plane.d(), 3.0);
        QCOMPARE(plane.classify(Point(5, 5, 3 + 0.5e-5)), OnPlane);
        QCOMPARE(plane.classify(Point(5, 5, 3 + 2e-5)), InFront);
        QCOMPARE(plane.classify(Point(5, 5, 3 - 2e-5)), Behind);
        QCOMPARE(plane.distance(Point(0, 0, 1)), -2.0);

        // d is taken with the normal as passed, before it is normalised.
        const Plane through(Point(1, 1, 1), Vector(0, 0, 2));
        QCOMPARE(through.d(), 2.0);
        QCOMPARE(through.n(), Vector(0, 0, 1));

        const Plane three(Point(0, 0, 4), Point(1, 0, 4), Point(0, 1, 4));
        QVERIFY(close(three.n(), Vector(0, 0, 1)));
        QCOMPARE(three.d(), 4.0);

        Plane set;
        QCOMPARE(set.n(), Vector(3));
        set.set(3, 0, 4, 7);
        QVERIFY(close(set.n(), Vector(0.6, 0, 0.8)));
        QCOMPARE(set.d(), 7.0);
    }

    void plane_equality() {
        QVERIFY(Plane(Vector(0, 0, 1), 2.0) == Plane(Vector(0, 0, 5), 2.0));
        QVERIFY(Plane(Vector(0, 0, 1), 2.0) == Plane(Vector(0, 0, -1), 2.0));
        QVERIFY(Plane(Vector(0, 0, 1), 2.0) != Plane(Vector(0, 0, 1), 2.1));
        QVERIFY(Plane(Vector(0, 0, 1), 2.0) != Plane(Vector(0, 1, 0), 2.0));
        QVERIFY(Plane() != Plane());
    }

    void points_compare_exactly() {
        QVERIFY(Point(1, 2, 3) != Point(1, 2, 3 + 1e-12));
        QVERIFY(Point(4, 2, 3) + Point(1, 1, 1) == Point(5, 3, 4));
        QVERIFY((Point(5, 2, 3) - Point(4, 2, 3)) * 2.0 == Point(2, 0, 0));
        QCOMPARE(Point(0, 3, 0).distance(Point(4, 0, 0)), 5.0);
    }

    void planar_box_area() {
        geometry2D::OBB obb;
        QCOMPARE(obb.CalcArea(), 1.0);
        const double a0[2] = {2, 0}, a1[2] = {1, -3};
        obb.axis(0, Vector(2, a0));
        obb.axis(1, Vector(2, a1));
        QCOMPARE(obb.CalcArea(), 6.0);
        obb.axis(2, Vector(2, a0)); // a plane box has two axes: a third is ignored
        QCOMPARE(obb.CalcArea(), 6.0);
    }

    void debug_prints() {
        // For reading only: each axis's range, then the point, in order; not the layout.
        OutputCapture capture(stdout);
        print(boundingbox{1, 2, 3, 4, 5, 6});
        print(point{1.5, -2, 3});
        QList<double> values;
        QRegularExpressionMatchIterator numbers =
            QRegularExpression("-?[0-9.]+").globalMatch(QString::fromUtf8(capture.text()));
        while (numbers.hasNext())
            values << numbers.next().captured().toDouble();
        QCOMPARE(values, (QList<double>{1, 3, 2, 4, 5, 6, 1.5, -2, 3}));
    }
};

QTEST_GUILESS_MAIN(tst_primitives)
#include "tst_primitives.moc"
