#include "xqtgl/xQGLCamera.h"
#include "xqtgl/xQGLMetaTypes.h"

#include <QSignalSpy>
#include <QtTest>

#include <cmath>
#include <functional>

using namespace xqtgl;
using geometry3D::Point;

Q_DECLARE_METATYPE(std::function<void(xQGLCamera&)>)
using Move = std::function<void(xQGLCamera&)>;

namespace {

xQGLCamera camera_at(Point eye, Point lookat) {
    xQGLCamera c;
    c.lookat(lookat);
    c.eye(eye);
    return c;
}

const double s45 = std::sqrt(0.5);

} // namespace

class tst_camera : public QObject {
    Q_OBJECT
private slots:
    void defaults() {
        const xQGLCamera c;
        QCOMPARE(c.eye(), Point(15, 10, 5));
        QCOMPARE(c.lookat(), Point(0, 0, 0));
        QCOMPARE(c.up(), vmp::Vector(0, 0, 1));
        QCOMPARE(c.view_angle(), 50.0);
        QCOMPARE(c.far_plane(), 10000.0);
        QCOMPARE(c.projection(), perspective);
    }

    void moves_data() {
        QTest::addColumn<Point>("eye");
        QTest::addColumn<Point>("lookat");
        QTest::addColumn<Move>("move");
        QTest::addColumn<Point>("expected_eye");
        QTest::addColumn<Point>("expected_lookat");
        const Point e(10, 0, 0), o(0, 0, 0);
        QTest::newRow("rotate_z quarter") << e << o << Move([](xQGLCamera& c) { c.rotate_z(M_PI / 2); })
                                          << Point(0, 10, 0) << o;
        QTest::newRow("rotate_z keeps height") << Point(11, 1, 3) << Point(1, 1, 0)
                                               << Move([](xQGLCamera& c) { c.rotate_z(M_PI); })
                                               << Point(-9, 1, 3) << Point(1, 1, 0);
        QTest::newRow("rotate_x raises") << e << o << Move([](xQGLCamera& c) { c.rotate_x(M_PI / 4); })
                                         << Point(10 * s45, 0, 10 * s45) << o;
        // Clamped 0.0001 short of straight above the look-at point.
        QTest::newRow("rotate_x clamp") << Point(10 * s45, 0, 10 * s45) << o
                                        << Move([](xQGLCamera& c) { c.rotate_x(3); })
                                        << Point(10 * std::sin(0.0001), 0, 10 * std::cos(0.0001)) << o;
        QTest::newRow("yaw") << o << e << Move([](xQGLCamera& c) { c.yaw(M_PI / 2); }) << o << Point(0, 10, 0);
        // Positive pitch lowers the line of sight.
        QTest::newRow("pitch") << o << e << Move([](xQGLCamera& c) { c.pitch(M_PI / 4); }) << o
                               << Point(10 * s45, 0, -10 * s45);
        QTest::newRow("pitch clamp") << o << e << Move([](xQGLCamera& c) { c.pitch(5); }) << o
                                     << Point(10 * std::sin(0.01), 0, -10 * std::cos(0.01));
        QTest::newRow("move_horizontal") << Point(0, 0, 5) << Point(3, 4, 0)
                                         << Move([](xQGLCamera& c) { c.move_horizontal(10); })
                                         << Point(6, 8, 5) << Point(9, 12, 0);
        QTest::newRow("move_horizontal from above") << Point(0, 0, 5) << Point(0.0005, 0, 0)
                                                    << Move([](xQGLCamera& c) { c.move_horizontal(1); })
                                                    << Point(0, 0, 5) << Point(0.0005, 0, 0);
        QTest::newRow("pan_left_right from above") << Point(0, 0, 5) << Point(0.0005, 0, 0)
                                                   << Move([](xQGLCamera& c) { c.pan_left_right(1); })
                                                   << Point(0, -1, 5) << Point(0.0005, -1, 0);
        QTest::newRow("pan_up_down") << e << o << Move([](xQGLCamera& c) { c.pan_up_down(2); })
                                     << Point(10, 0, 2) << Point(0, 0, 2);
        QTest::newRow("zoom clamps to 0.8") << e << o << Move([](xQGLCamera& c) { c.zoom(5); })
                                            << Point(2, 0, 0) << o;
        QTest::newRow("zoom never passes") << Point(0.02, 0, 0) << o
                                           << Move([](xQGLCamera& c) { c.zoom(0.8); })
                                           << Point(0.02, 0, 0) << o;
    }
    void moves() {
        QFETCH(Point, eye);
        QFETCH(Point, lookat);
        QFETCH(Move, move);
        QFETCH(Point, expected_eye);
        QFETCH(Point, expected_lookat);
        xQGLCamera c = camera_at(eye, lookat);
        QSignalSpy changed(&c, &xQGLCamera::changed);
        move(c);
        QVERIFY2(c.eye().distance(expected_eye) < 1e-9,
                 qPrintable(QString("eye %1 %2 %3").arg(c.eye().x(), 0, 'g', 17).arg(c.eye().y(), 0, 'g', 17).arg(c.eye().z(), 0, 'g', 17)));
        QVERIFY(c.lookat().distance(expected_lookat) < 1e-9);
        QCOMPARE(changed.count(), 0); // interactive moves are silent
    }

    void signalRule() {
        xQGLCamera c = camera_at({10, 0, 0}, {0, 0, 0});
        QSignalSpy changed(&c, &xQGLCamera::changed);
        c.rotate_z(200000.0);
        c.pan_up_down(-200000.0);
        QCOMPARE(changed.count(), 2);
        c.yaw(200000.0);
        c.zoom(-200000.0);
        QCOMPARE(changed.count(), 2);
        c.eye(Point(c.lookat()) + Point(0.005, 0, 0)); // too close: refused
        c.view_angle(50.0);                            // equal: ignored
        QCOMPARE(changed.count(), 2);
        c.view_angle(40.0);
        QCOMPARE(changed.count(), 3);
    }

    void farPlaneOnlyRises() {
        xQGLCamera c;
        c.far_plane(5000.0);
        QCOMPARE(c.far_plane(), 10000.0);
        c.far_plane(20000.0);
        c.far_plane(15000.0);
        QCOMPARE(c.far_plane(), 15000.0);
        c.ResetPlanesAndAngle();
        QCOMPARE(c.far_plane(), 10000.0);
    }

    void orthographicZoomIsUnclamped() {
        xQGLCamera c;
        c.projection(orthographic);
        c.SetExpectOrthoWidth(10);
        c.SetExpectOrthoHeight(8);
        c.zoom(0.5);
        QCOMPARE(c.GetOrthoWidth(), 5.0);
        QCOMPARE(c.GetExpectOrthoHeight(), 4.0);
        c.zoom(1.5);
        QCOMPARE(c.GetOrthoWidth(), -2.5);
        QCOMPARE(c.eye(), Point(15, 10, 5));
    }

    void secondSaveKeepsTheFirstPair() {
        xQGLCamera c;
        c.Save();
        c.eye(Point(1, 2, 3));
        c.Save();
        c.eye(Point(4, 5, 6));
        c.Restore();
        QCOMPARE(c.eye(), Point(15, 10, 5));
        c.eye(Point(7, 8, 9));
        c.Restore(); // nothing pending
        QCOMPARE(c.eye(), Point(7, 8, 9));
    }

    void assignmentCopiesAndSignalsOnce() {
        xQGLCamera a, b = camera_at({1, 2, 3}, {0, 0, 1});
        b.view_angle(30);
        b.SetSavedEye(Point(9, 9, 9));
        QSignalSpy changed(&a, &xQGLCamera::changed);
        a = b;
        QCOMPARE(changed.count(), 1);
        QVERIFY(a == b);
        QCOMPARE(a.GetSavedEye(), Point(15, 10, 5)); // the saved pair is not copied
        a = b;
        QCOMPARE(changed.count(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_camera)
#include "tst_camera.moc"
