#include "common/BoxPainter.h"
#include "common/ViewFixture.h"

#include "xqtgl/xQGLView.h"
#include "xqtgl/xQGLWidget_Handler.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

using namespace xqtgl;
using geometry3D::Point;
using Moves = std::function<void(xQGLCamera&, double scale)>;
Q_DECLARE_METATYPE(Moves)

namespace {

constexpr double two_pi = 6.283185307179586;

bool same_place(const xQGLCamera& a, const xQGLCamera& b, double tolerance) {
    return a.eye().distance(b.eye()) < tolerance && a.lookat().distance(b.lookat()) < tolerance;
}

/// A view with nothing drawn, looking at the origin from (10, -10, 6).
struct EmptyView {
    xQGLWidget view;
    EmptyView() {
        ViewFixture::show(view);
        xQGLWidget_Options o(view.options());
        o.draw_origin(false);
        view.options(o);
        ViewFixture::look(view, {10, -10, 6}, {0, 0, 0});
        ViewFixture::frame(view);
    }
};

/// The smallest distance in pixels of the box's projected corners from the frame's edges;
/// negative when a corner is outside.
double corner_margin(const xQGLWidget& view, const geometry3D::boundingbox& b) {
    double margin = 1e9;
    for (double x : {b.xmin, b.xmax})
        for (double y : {b.ymin, b.ymax})
            for (double z : {b.zmin, b.zmax}) {
                const QPointF p = ViewFixture::project(view, x, y, z);
                margin = std::min({margin, p.x(), p.y(), view.width() - p.x(), view.height() - p.y()});
            }
    return margin;
}

} // namespace

class tst_view_commands : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    // A drag from the centre by (32, -24) pixels of 320 x 240, compared with the moves the
    // handler is meant to make on the camera taken at the press.
    void handlerDrags_data() {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<int>("button");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<Moves>("moves");
        const double fx = 0.1, fy = -0.1;
        const Moves orbit = [=](xQGLCamera& c, double) { c.rotate_z(-two_pi * fx), c.rotate_x(two_pi * fy); };
        const Moves look = [=](xQGLCamera& c, double) { c.yaw(-10 * fx), c.pitch(10 * fy); };
        const Moves pan = [=](xQGLCamera& c, double s) { c.pan_left_right(-s * fx), c.pan_up_down(s * fy); };
        QTest::newRow("orbit left") << "orbit" << int(Qt::LeftButton) << 0 << orbit;
        QTest::newRow("orbit ctrl left") << "orbit" << int(Qt::LeftButton) << int(Qt::ControlModifier) << look;
        QTest::newRow("orbit middle") << "orbit" << int(Qt::MiddleButton) << 0 << pan;
        QTest::newRow("pan left") << "pan" << int(Qt::LeftButton) << 0 << pan;
        QTest::newRow("pan ctrl") << "pan" << int(Qt::LeftButton) << int(Qt::ControlModifier) << look;
        QTest::newRow("lookaround left") << "lookaround" << int(Qt::LeftButton) << 0 << look;
        QTest::newRow("lookaround middle") << "lookaround" << int(Qt::MiddleButton) << 0
                                           << Moves([=](xQGLCamera& c, double) { c.pan_left_right(-100 * fx), c.pan_up_down(100 * fy); });
        QTest::newRow("zoom ctrl left") << "zoom" << int(Qt::LeftButton) << int(Qt::ControlModifier) << look;
        QTest::newRow("zoom middle") << "zoom" << int(Qt::MiddleButton) << 0 << pan;
    }
    void handlerDrags() {
        QFETCH(QString, mode);
        QFETCH(int, button);
        QFETCH(int, modifiers);
        QFETCH(Moves, moves);
        EmptyView empty;
        xQGLWidget& view = empty.view;
        view.set_navigation_mode(mode);
        QCOMPARE(view.navigation_mode(), mode);
        xQGLCamera expected(view.camera());
        // Nothing under the pointer: the pan scale is the distance to the plane through the look-at.
        moves(expected, view.camera().eye().distance(view.camera().lookat()));
        const auto b = Qt::MouseButton(button);
        const auto m = Qt::KeyboardModifiers(modifiers);
        QTest::mousePress(&view, b, m, QPoint(160, 120));
        ViewFixture::move(view, QPoint(192, 96), b, m);
        QVERIFY(same_place(view.camera(), expected, 1e-3));
        QTest::mouseRelease(&view, b, m, QPoint(192, 96));
    }

    void wheelZoomsAFifthPerStep() {
        EmptyView empty;
        xQGLCamera expected(empty.view.camera());
        expected.zoom(0.2);
        QWheelEvent wheel(QPointF(160, 120), QPointF(160, 120), QPoint(), QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&empty.view, &wheel);
        QVERIFY(same_place(empty.view.camera(), expected, 1e-12));
    }

    void walkLoopMovesEachFrame() {
        EmptyView empty;
        xQGLWidget& view = empty.view;
        view.set_mode_walk();
        const xQGLCamera start(view.camera());
        // The loop runs inside the press; the move and the release reach it through its events.
        QTimer::singleShot(20, [&] { ViewFixture::move(view, QPoint(160, 20), Qt::LeftButton); });
        QTimer::singleShot(300, [&] { QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(160, 20)); });
        QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(160, 120));
        // 100 pixels up: 0.2 forward per frame along the ground plan, heights kept.
        const double walked = view.camera().eye().distance(start.eye());
        QVERIFY(walked >= 0.2);
        QVERIFY(std::fabs(walked / 0.2 - std::round(walked / 0.2)) < 1e-6);
        QCOMPARE(view.camera().eye().z(), start.eye().z());
        QVERIFY(view.camera().lookat().distance(start.lookat()) - walked < 1e-9);
    }

    void modesByName() {
        xQGLWidget view;
        QSignalSpy mode(&view, SIGNAL(navigation_mode(QString)));
        xQGLWidget_Handler* orbit = view.handler();
        view.set_mode_orbit();
        view.set_navigation_mode("measure"); // not a moving mode: ignored like an unknown name
        view.set_navigation_mode("nonsense");
        QCOMPARE(view.handler(), orbit);
        QCOMPARE(mode.count(), 0);
        view.set_navigation_mode("zoom");
        QCOMPARE(mode.count(), 1);
        QCOMPARE(mode.at(0).at(0).toString(), QString("zoom"));
    }

    void zoomBoundingbox() {
        xQGLWidget view;
        ViewFixture::show(view);
        new BoxPainter(&view, {0, 0, 4, 2, 0, 1}, Qt::red);
        view.zoom_all();
        // Perspective: every corner in the frame, and the view no wider than needed.
        const double margin = corner_margin(view, {0, 0, 4, 2, 0, 1});
        QVERIFY2(margin > -0.5 && margin < 0.1 * view.height(), qPrintable(QString::number(margin)));
        QCOMPARE(view.camera().lookat(), Point(2, 1, 0.5));
        view.zoom_boundingbox({0, 0, 2, 2, 1, 1}); // flat
        QVERIFY(std::fabs(corner_margin(view, {0, 0, 2, 2, 1, 1})) < 0.1 * view.height());

        view.set_orthographic_projection();
        QCOMPARE(view.camera().GetExpectOrthoWidth(), 4.0);
        QCOMPARE(view.camera().GetOrthoWidth(), 4.0 * 320 / 240);
        QCOMPARE(view.camera().GetOrthoHeight(), 4.0);
    }

    void orthographicViewsComeBackToPerspective() {
        xQGLWidget view;
        ViewFixture::show(view);
        new BoxPainter(&view, {0, 0, 10, 20, 0, 5}, Qt::red);
        view.boundingbox({0, 0, 10, 20, 0, 5});
        const xQGLCamera before(view.camera());
        view.SetOrthoProjectionNorthView();
        QCOMPARE(view.camera().eye().y() > 20, true);
        QCOMPARE(view.camera().lookat(), Point(5, 10, 2.5));
        view.SetOrthoProjectionEastView();
        QVERIFY(!view.isPerspectiveProjection());
        view.set_perspective_projection();
        QVERIFY(view.isPerspectiveProjection());
        QVERIFY(same_place(view.camera(), before, 1e-12));

        view.SetOrthoProjectionPlanView(); // looking down, north up
        const QPointF north = ViewFixture::project(view, 5, 19, 0), south = ViewFixture::project(view, 5, 1, 0);
        QVERIFY(north.y() < south.y());
        QVERIFY(std::fabs(north.x() - south.x()) < 0.5);
        view.zoom_in();
        view.zoom_out();
    }

    void zoomInThenOutReturns() {
        xQGLWidget view;
        const double before = view.camera().eye().distance(view.camera().lookat());
        view.zoom_in();
        view.zoom_out();
        QCOMPARE(std::round(view.camera().eye().distance(view.camera().lookat()) / before * 1e6), 999999.0);
        const xQGLCamera c(view.camera());
        view.zoom_all(); // nothing painted: untouched
        QVERIFY(view.camera() == c);
    }

    void viewpointsRoundTrip() {
        EmptyView empty;
        xQGLWidget& view = empty.view;
        QSignalSpy created(&view, &xQGLWidget::viewpoint_created);
        QSignalSpy removed(&view, &xQGLWidget::viewpoint_removed);
        xQGLView north;
        north.name("north");
        north.camera(view.camera());
        QCOMPARE(view.add_viewpoint(3, north), 3);
        QCOMPARE(view.add_viewpoint(3, north), 4);
        ViewFixture::look(view, {1, 2, 3}, {0, 0, 1});
        view.show_viewpoint(3);
        QVERIFY(view.camera() == north.camera());
        view.show_viewpoint(99); // unknown: nothing

        ViewFixture::look(view, {5, 5, 5}, {0, 0, 0});
        view.update_viewpoint(3);
        QCOMPARE(view.viewpoint(3)->name(), QString()); // an update blanks the name
        QVERIFY(view.viewpoint(3)->camera() == view.camera());
        QCOMPARE(view.viewpoint(3)->thumbnail().width(), 100);
        QCOMPARE(view.index(view.viewpoint(4)), 4);
        view.DeleteAllViewpoints();
        QCOMPARE(created.count(), 2);
        QCOMPARE(removed.count(), 2);
        QVERIFY(view.viewpoints().isEmpty());
    }

    void screenshotWithoutExtensionIsPng() {
        EmptyView empty;
        xQGLWidget& view = empty.view;
        new BoxPainter(&view, box_of(-1, -1, 0, 2), Qt::blue);
        QTemporaryDir folder;
        const QString chosen = folder.filePath("shot");
        QString first_filter;
        QTimer answer;
        connect(&answer, &QTimer::timeout, [&] {
            for (QWidget* w : QApplication::topLevelWidgets())
                if (auto* dialog = qobject_cast<QFileDialog*>(w); dialog && dialog->isVisible()) {
                    first_filter = dialog->nameFilters().value(0);
                    dialog->findChild<QLineEdit*>("fileNameEdit")->setText(chosen);
                    QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
                    answer.stop();
                }
        });
        answer.start(50);
        view.SavePixmapChoose(folder.path());
        QCOMPARE(first_filter, QString("PNG (*.png)"));
        QImage saved(chosen + ".png");
        QCOMPARE(saved.size(), view.size());
        QCOMPARE(saved.convertToFormat(QImage::Format_RGB32), view.grabFrameBuffer().convertToFormat(QImage::Format_RGB32));
        ViewFixture::save(saved, "screenshot");
    }

    void orbitAboutAPointOfAFarBuilding() {
        // A click on a georeferenced cube makes the exact point the centre; a drag then keeps
        // the eye's distance to it.
        xQGLWidget view;
        ViewFixture::show(view);
        const geometry3D::boundingbox cube = box_of(4512345.5, 5412345.25, 10, 0.5);
        view.boundingbox(cube);
        new BoxPainter(&view, cube, Qt::red);
        const Point top(4512345.75, 5412345.5, 10.5);
        ViewFixture::look(view, top + Point(1, -1.5, 1.2), top + Point(0, 0, -0.25));
        ViewFixture::frame(view);
        QTest::mouseClick(&view, Qt::LeftButton, {}, ViewFixture::project(view, top.x(), top.y(), top.z()).toPoint());
        QVERIFY2(view.camera().lookat().distance(top) < 0.01, qPrintable(QString::number(view.camera().lookat().distance(top))));
        const double distance = view.camera().eye().distance(view.camera().lookat());
        QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(100, 100));
        ViewFixture::move(view, QPoint(180, 140), Qt::LeftButton);
        QVERIFY(std::fabs(view.camera().eye().distance(view.camera().lookat()) - distance) < 1e-6);
        ViewFixture::save(ViewFixture::frame(view), "far_orbit");
    }
};

QTEST_MAIN(tst_view_commands)
#include "tst_view_commands.moc"
