#include "common/BoxPainter.h"
#include "common/ViewFixture.h"

#include "xqtgl/xQGLMetaTypes.h"
#include "xqtgl/xQGLView.h"
#include "xqtgl/xQGLWidget_Handler.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

using namespace xqtgl;
using geometry3D::Point;
using Path = QList<QPoint>;
/// The moves a gesture makes on a camera: s is the pan scale, (fx, fy) the travel as fractions
/// of the widget's size.
using Moves = std::function<void(xQGLCamera&, double s, double fx, double fy)>;
Q_DECLARE_METATYPE(Moves)

namespace {

constexpr double two_pi = 6.283185307179586;
const QPoint centre(160, 120);

bool same_place(const xQGLCamera& a, const xQGLCamera& b, double tolerance) {
    return a.eye().distance(b.eye()) < tolerance && a.lookat().distance(b.lookat()) < tolerance;
}

/// A red box of 6 around the origin, seen from (10, -10, 6): the centre pixel hits it, the
/// corners of the frame are background. No grid or origin to pick.
struct BoxView {
    xQGLWidget view;
    BoxView() {
        ViewFixture::show(view);
        xQGLWidget_Options o(view.options());
        o.draw_origin(false);
        o.draw_grid(false);
        view.options(o);
        view.boundingbox({-3, -3, 3, 3, -3, 3});
        new BoxPainter(&view, {-3, -3, 3, 3, -3, 3}, Qt::red);
        ViewFixture::look(view, {10, -10, 6}, {0, 0, 0});
        ViewFixture::frame(view);
    }
    /// The distance from the eye to the point under `at`, which must be on the box.
    double pan_scale(QPoint at) {
        bool hit = false;
        const Point p(view.pick_point(at.x(), at.y(), &hit));
        return hit ? view.camera().eye().distance(p) : -1.0;
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

void wheel(QWidget& view, int delta, Qt::MouseButtons held = Qt::NoButton) {
    QWheelEvent event(centre, centre, QPoint(), QPoint(0, delta), held, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&view, &event);
}

/// Counts the events that reach the widget after the handler has seen them.
struct EventCounter : QObject {
    QHash<int, int> seen;
    bool eventFilter(QObject*, QEvent* event) override {
        ++seen[event->type()];
        return false;
    }
};

/// Answers the next dialog of type D shown by `run` with `answer`.
template <typename D>
void answer_dialog(const std::function<void(D*)>& answer, const std::function<void()>& run) {
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* dialog = qobject_cast<D*>(w); dialog && dialog->isVisible()) {
                timer.stop();
                answer(dialog);
            }
    });
    timer.start(20);
    run();
}

} // namespace

class tst_view_commands : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        qRegisterMetaType<xQGLView*>();
        qRegisterMetaType<Point>();
    }

    // A drag from the centre of 320 x 240 along a path, compared with the moves the handler is
    // meant to make on the camera taken at the press, for the travel to the path's end.
    void handlerDrags_data() {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<int>("button");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<Path>("path");
        QTest::addColumn<Moves>("moves");
        const Moves orbit = [](xQGLCamera& c, double, double fx, double fy) { c.rotate_z(-two_pi * fx), c.rotate_x(two_pi * fy); };
        const Moves look = [](xQGLCamera& c, double, double fx, double fy) { c.yaw(-10 * fx), c.pitch(10 * fy); };
        const Moves pan = [](xQGLCamera& c, double s, double fx, double fy) { c.pan_left_right(-s * fx), c.pan_up_down(s * fy); };
        const Moves slide = [](xQGLCamera& c, double, double fx, double fy) { c.pan_left_right(-100 * fx), c.pan_up_down(100 * fy); };
        const int left = Qt::LeftButton, middle = Qt::MiddleButton, ctrl = Qt::ControlModifier;
        const struct { const char* name; const char* mode; int button, modifiers; Moves moves; } gestures[] = {
            {"orbit left", "orbit", left, 0, orbit},        {"orbit ctrl left", "orbit", left, ctrl, look},
            {"orbit middle", "orbit", middle, 0, pan},      {"pan left", "pan", left, 0, pan},
            {"pan middle", "pan", middle, 0, pan},          {"pan ctrl left", "pan", left, ctrl, look},
            {"lookaround left", "lookaround", left, 0, look}, {"lookaround middle", "lookaround", middle, 0, slide},
            {"zoom ctrl left", "zoom", left, ctrl, look},   {"zoom middle", "zoom", middle, 0, pan},
            {"walk middle", "walk", middle, 0, pan}};
        const QList<Path> paths{{{192, 96}}, {{130, 150}, {40, 200}, {70, 230}}};
        for (const auto& g : gestures)
            for (int i = 0; i < paths.size(); ++i)
                QTest::addRow("%s, path %d", g.name, i) << g.mode << g.button << g.modifiers << paths[i] << g.moves;
    }
    void handlerDrags() {
        QFETCH(QString, mode);
        QFETCH(int, button);
        QFETCH(int, modifiers);
        QFETCH(Path, path);
        QFETCH(Moves, moves);
        BoxView scene;
        xQGLWidget& view = scene.view;
        view.set_navigation_mode(mode);
        QCOMPARE(view.navigation_mode(), mode);
        xQGLCamera expected(view.camera());
        const QPoint end = path.last() - centre;
        moves(expected, scene.pan_scale(centre), end.x() / 320.0, end.y() / 240.0);
        const auto b = Qt::MouseButton(button);
        const auto m = Qt::KeyboardModifiers(modifiers);
        QTest::mousePress(&view, b, m, centre);
        for (const QPoint& at : path)
            ViewFixture::move(view, at, b, m);
        QVERIFY(same_place(view.camera(), expected, 1e-9));
        QTest::mouseRelease(&view, b, m, path.last());
    }

    // Wheel steps, then key clicks, which every moving handler lets pass without a move.
    void wheelAndKeys_data() {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<int>("held");
        QTest::addColumn<int>("delta");
        QTest::addColumn<Moves>("moves");
        const auto zoom = [](double f) { return Moves([f](xQGLCamera& c, double, double, double) { c.zoom(f); }); };
        const Moves none = [](xQGLCamera&, double, double, double) {};
        QTest::newRow("orbit: a step of 120 zooms 0.2") << "orbit" << 0 << 120 << zoom(0.2);
        QTest::newRow("pan: two steps back") << "pan" << 0 << -240 << zoom(-0.4);
        QTest::newRow("zoom") << "zoom" << 0 << 120 << zoom(0.2);
        QTest::newRow("walk pitches") << "walk" << 0 << 120
                                      << Moves([](xQGLCamera& c, double, double, double) { c.pitch(120 / 1680.0); });
        QTest::newRow("lookaround ignores it") << "lookaround" << 0 << 120 << none;
        QTest::newRow("orbit, during a drag") << "orbit" << int(Qt::MiddleButton) << 120 << none;
        QTest::newRow("pan, during a drag") << "pan" << int(Qt::LeftButton) << 120 << none;
    }
    void wheelAndKeys() {
        QFETCH(QString, mode);
        QFETCH(int, held);
        QFETCH(int, delta);
        QFETCH(Moves, moves);
        BoxView scene;
        xQGLWidget& view = scene.view;
        EventCounter counter;
        view.installEventFilter(&counter);
        view.set_mode_select(); // the handler of the row comes after the counter, so sees first
        view.set_navigation_mode(mode);
        if (held)
            QTest::mousePress(&view, Qt::MouseButton(held), {}, centre);
        xQGLCamera expected(view.camera());
        moves(expected, 0, 0, 0);
        wheel(view, delta, Qt::MouseButtons(held));
        QVERIFY(same_place(view.camera(), expected, 1e-12));
        const xQGLCamera wheeled(view.camera());
        for (int key : {Qt::Key_Up, Qt::Key_Plus, Qt::Key_Escape, Qt::Key_W})
            QTest::keyClick(&view, Qt::Key(key));
        QVERIFY(view.camera() == wheeled);
        QCOMPARE(counter.seen[QEvent::Wheel], 1);
        QCOMPARE(counter.seen[QEvent::KeyPress], 4);
        QCOMPARE(counter.seen[QEvent::KeyRelease], 4);
    }

    // The zoom handler zooms towards the point picked at the press: a click by 0.06 (Shift:
    // out), animated in perspective; a drag, shown by a lens, by 1 - the larger travel fraction.
    void zoomHandler_data() {
        QTest::addColumn<bool>("orthographic");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QPoint>("press");
        QTest::addColumn<Path>("path");
        QTest::newRow("drag") << false << 0 << centre << Path{{200, 150}};
        QTest::newRow("drag back and beyond") << false << 0 << centre << Path{{120, 100}, {100, 180}};
        QTest::newRow("click") << false << 0 << centre << Path{};
        QTest::newRow("a wobble of 3, 2 is a click") << false << 0 << centre << Path{{163, 122}};
        QTest::newRow("shift click") << false << int(Qt::ShiftModifier) << centre << Path{};
        QTest::newRow("orthographic click") << true << 0 << QPoint(150, 130) << Path{};
        QTest::newRow("orthographic drag") << true << 0 << centre << Path{{100, 60}};
        QTest::newRow("click on nothing") << false << 0 << QPoint(5, 5) << Path{};
        QTest::newRow("drag from nothing") << false << 0 << QPoint(5, 5) << Path{{60, 60}};
    }
    void zoomHandler() {
        QFETCH(bool, orthographic);
        QFETCH(int, modifiers);
        QFETCH(QPoint, press);
        QFETCH(Path, path);
        BoxView scene;
        xQGLWidget& view = scene.view;
        if (orthographic)
            view.set_orthographic_projection();
        view.set_mode_zoom();
        ViewFixture::frame(view);
        bool hit = false;
        const Point p(view.pick_point(press.x(), press.y(), &hit));
        QCOMPARE(hit, press == centre || press == QPoint(150, 130));
        const QPoint release = path.isEmpty() ? press : path.last();
        const QPoint travel = release - press;
        const bool drag = QPoint::dotProduct(travel, travel) > 25;
        xQGLCamera expected(view.camera());
        const auto look_at = [&](xQGLCamera& c) {
            if (orthographic)
                c.eye(c.eye() + (p - c.lookat()));
            c.lookat(p);
        };
        const double z = modifiers & Qt::ShiftModifier ? -0.06 : 0.06;
        if (hit && drag) {
            look_at(expected);
            expected.zoom(1.0 - std::max(std::abs(travel.x()) / 320.0, std::abs(travel.y()) / 240.0));
        } else if (hit && orthographic) {
            look_at(expected);
            expected.zoom(z);
        } else if (hit) {
            const Point from = expected.lookat();
            for (int step = 0; step <= 10; ++step)
                expected.lookat(from * (1.0 - step / 10.0) + p * (step / 10.0)), expected.zoom(z);
        }

        const auto m = Qt::KeyboardModifiers(modifiers);
        QTest::mousePress(&view, Qt::LeftButton, m, press);
        for (const QPoint& at : path)
            ViewFixture::move(view, at, Qt::LeftButton, m);
        if (hit && drag) { // the lens, whitish at its centre, over the red box
            view.makeCurrent();
            glReadBuffer(GL_BACK);
            QVERIFY(qGreen(view.grabFrameBuffer().pixel(press)) > 150);
        }
        QSignalSpy frames(&view, &xQGLWidget::eye_position);
        QTest::mouseRelease(&view, Qt::LeftButton, m, release);
        QCOMPARE(frames.count(), hit ? (drag || orthographic ? 1 : 11) : 0); // a miss repaints nothing
        QVERIFY(same_place(view.camera(), expected, 1e-9));
        QVERIFY(!view.ignore_repaint());
        // The press is over, hit or not: the wheel zooms again.
        expected.zoom(0.2);
        wheel(view, 120);
        QVERIFY(same_place(view.camera(), expected, 1e-9));
    }

    // The walking loop runs inside the press; moves and the release reach it through its
    // events. Each frame: forward by -trunc(dy|dy|)/50000, turn by -trunc(dx|dx|)/3000000.
    void walkHandler_data() {
        QTest::addColumn<Path>("path");
        QTest::addColumn<double>("speed");
        QTest::addColumn<double>("turn");
        QTest::newRow("100 up: 0.2 forward") << Path{{160, 20}} << 0.2 << 0.0;
        QTest::newRow("100 right: turn -0.00333") << Path{{210, 120}, {260, 120}} << 0.0 << -0.01 / 3;
        QTest::newRow("60 down, 60 left") << Path{{100, 180}} << -0.072 << 0.0012;
    }
    void walkHandler() {
        QFETCH(Path, path);
        QFETCH(double, speed);
        QFETCH(double, turn);
        BoxView scene;
        xQGLWidget& view = scene.view;
        view.set_mode_walk();
        const xQGLCamera start(view.camera());
        // The loop draws at least one frame between the moves and the release, however late.
        QTimer::singleShot(20, [&] {
            for (const QPoint& at : path)
                ViewFixture::move(view, at, Qt::LeftButton);
            QTimer::singleShot(150, [&] { QTest::mouseRelease(&view, Qt::LeftButton, {}, path.last()); });
        });
        QTest::mousePress(&view, Qt::LeftButton, {}, centre);
        // Some whole number of frames at the speed and turn of the path's end.
        xQGLCamera walked(start);
        int frames = 0;
        while (frames < 100000 && !same_place(walked, view.camera(), 1e-9))
            walked.move_horizontal(speed), walked.yaw(turn), ++frames;
        QVERIFY2(frames > 0 && frames < 100000, qPrintable(QString::number(frames)));
    }

    // With Ctrl the walk looks around, each move measured from the one before.
    void walkLooksAroundStepByStep() {
        BoxView scene;
        xQGLWidget& view = scene.view;
        view.set_mode_walk();
        const Path path{{180, 110}, {200, 90}, {150, 150}};
        xQGLCamera expected(view.camera());
        QPoint last = centre;
        for (const QPoint& at : path)
            expected.yaw(-10.0 * (at.x() - last.x()) / 320), expected.pitch(10.0 * (at.y() - last.y()) / 240), last = at;
        QTimer::singleShot(20, [&] {
            for (const QPoint& at : path)
                ViewFixture::move(view, at, Qt::LeftButton, Qt::ControlModifier);
            QTest::mouseRelease(&view, Qt::LeftButton, Qt::ControlModifier, last);
        });
        QTest::mousePress(&view, Qt::LeftButton, Qt::ControlModifier, centre);
        QVERIFY(same_place(view.camera(), expected, 1e-9));
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

    // Perspective: the eye on the diagonal of its octant through the centre, as close as lets
    // the first corner touch the frame's edge. Orthographic: the eye follows the look-at to the
    // centre; expected sizes square of the largest size, widened to the window.
    void zoomBoundingbox_data() {
        QTest::addColumn<geometry3D::boundingbox>("box");
        QTest::addColumn<Point>("eye");
        QTest::addColumn<bool>("orthographic");
        QTest::addColumn<QSize>("window");
        QTest::addColumn<QSizeF>("ortho");
        const geometry3D::boundingbox brick{0, 0, 4, 2, 0, 1};
        QTest::newRow("brick from south-east, above") << brick << Point(10, -10, 6) << false << QSize(320, 240) << QSizeF();
        QTest::newRow("long box from north-east") << geometry3D::boundingbox{0, 0, 10, 2, 0, 1} << Point(20, 20, 20) << false << QSize(320, 240) << QSizeF();
        QTest::newRow("flat box from below, tall window") << geometry3D::boundingbox{-5, -5, 5, 5, 0, 0} << Point(-10, -10, -10) << false << QSize(240, 320) << QSizeF();
        QTest::newRow("eye level with the centre") << brick << Point(-10, 10, 0.5) << false << QSize(320, 240) << QSizeF();
        QTest::newRow("far from the origin") << geometry3D::boundingbox{4512345.5, 5412345.25, 4512355.5, 5412349.25, 0, 3}
                                             << Point(4512330, 5412320, 20) << false << QSize(320, 240) << QSizeF();
        QTest::newRow("orthographic, wide window") << brick << Point(10, -10, 6) << true << QSize(320, 240) << QSizeF(4 * 320 / 240.0, 4);
        QTest::newRow("orthographic, tall window") << brick << Point(10, -10, 6) << true << QSize(240, 320) << QSizeF(4, 4 * 320 / 240.0);
        QTest::newRow("orthographic, square window") << brick << Point(10, -10, 6) << true << QSize(240, 240) << QSizeF(4, 4);
        QTest::newRow("orthographic, a point") << geometry3D::boundingbox{1, 1, 1, 1, 1, 1} << Point(10, -10, 6) << true << QSize(240, 240) << QSizeF(0.05, 0.05);
    }
    void zoomBoundingbox() {
        QFETCH(geometry3D::boundingbox, box);
        QFETCH(Point, eye);
        QFETCH(bool, orthographic);
        QFETCH(QSize, window);
        QFETCH(QSizeF, ortho);
        xQGLWidget view;
        view.resize(window);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        const Point centre(geometry3D::center(box));
        xQGLCamera start(view.camera());
        start.lookat(centre + Point(1, 1, 0));
        start.eye(eye);
        start.projection(orthographic ? xqtgl::orthographic : xqtgl::perspective);
        view.camera(start);
        view.zoom_boundingbox(box);
        const xQGLCamera& c = view.camera();
        QCOMPARE(c.lookat(), centre);
        if (orthographic) {
            const double largest = std::min(ortho.width(), ortho.height());
            QVERIFY((c.eye() - c.lookat()).distance(start.eye() - start.lookat()) < 1e-9);
            QCOMPARE(c.GetExpectOrthoWidth(), largest);
            QCOMPARE(c.GetExpectOrthoHeight(), largest);
            QCOMPARE(QSizeF(c.GetOrthoWidth(), c.GetOrthoHeight()), ortho);
            QCOMPARE(c.aspect_ratio(), 1.0);
            return;
        }
        vmp::Vector diagonal((eye.x() > centre.x()) - (eye.x() < centre.x()), (eye.y() > centre.y()) - (eye.y() < centre.y()),
                             (eye.z() > centre.z()) - (eye.z() < centre.z()));
        diagonal.normalize();
        vmp::Vector sight = (c.eye() - centre).to_Vector();
        sight.normalize();
        QVERIFY((sight - diagonal).quantity() < 1e-9);
        const double margin = corner_margin(view, box);
        QVERIFY2(std::fabs(margin) < 1e-6, qPrintable(QString::number(margin)));
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
        // Orthographic zooms scale the frame: in and out again comes back to 0.999999 of it.
        const double width = view.camera().GetOrthoWidth();
        view.zoom_in();
        QCOMPARE(view.camera().GetOrthoWidth(), 0.7 * width);
        view.zoom_out();
        QVERIFY(std::fabs(view.camera().GetOrthoWidth() / width - 0.999999) < 1e-9);
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

    // Save through the name dialog, move, show: the same camera; an update blanks the name.
    void viewpointRoundTrip_data() {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("named") << "north" << true;
        QTest::newRow("no name") << "" << true;
        QTest::newRow("cancelled") << "east" << false;
    }
    void viewpointRoundTrip() {
        QFETCH(QString, answer);
        QFETCH(bool, accepted);
        BoxView scene;
        xQGLWidget& view = scene.view;
        QSignalSpy created(&view, &xQGLWidget::viewpoint_created);
        QSignalSpy removed(&view, &xQGLWidget::viewpoint_removed);
        const xQGLCamera saved(view.camera());
        answer_dialog<QInputDialog>([&](QInputDialog* dialog) {
            QCOMPARE(dialog->windowTitle(), QString("Save viewpoint"));
            dialog->setTextValue(answer);
            accepted ? dialog->accept() : dialog->reject();
        }, [&] { view.save_viewpoint(); });
        QCOMPARE(created.count(), int(accepted));
        if (!accepted)
            return;
        QCOMPARE(view.viewpoints().size(), 1);
        const int key = view.viewpoints().keys().first();
        xQGLView* stored = view.viewpoint(key);
        QCOMPARE(created.at(0).at(0).value<xQGLView*>(), stored);
        QCOMPARE(stored->name(), answer.isEmpty() ? QString("View-%1").arg(key) : answer);
        QCOMPARE(stored->thumbnail().size(), QSize(100, 75));

        ViewFixture::look(view, {1, 2, 3}, {0, 0, 1});
        view.show_viewpoint(key);
        QVERIFY(view.camera() == saved);
        ViewFixture::look(view, {5, 5, 5}, {0, 0, 0});
        view.update_viewpoint(key);
        QCOMPARE(stored->name(), QString());
        QVERIFY(stored->camera() == view.camera());
        QCOMPARE(view.add_viewpoint(key, *stored), key + 1); // the first free key upward
        view.DeleteAllViewpoints();
        QCOMPARE(removed.count(), 2);
        QVERIFY(view.viewpoints().isEmpty());
    }

    // An orthographic viewpoint kept at another window shape is fitted to this one (4:3).
    void orthographicViewpointFitsTheWindow_data() {
        QTest::addColumn<QSizeF>("expected");
        QTest::addColumn<QSizeF>("fitted");
        QTest::addColumn<double>("aspect");
        QTest::newRow("kept square: wider") << QSizeF(4, 4) << QSizeF(16 / 3.0, 4) << 1.0;
        QTest::newRow("kept wide: taller") << QSizeF(8, 3) << QSizeF(8, 2.25) << 8 / 3.0;
        QTest::newRow("kept at 4:3: as kept") << QSizeF(4, 3) << QSizeF(5, 2) << 1.5;
    }
    void orthographicViewpointFitsTheWindow() {
        QFETCH(QSizeF, expected);
        QFETCH(QSizeF, fitted);
        QFETCH(double, aspect);
        BoxView scene;
        xQGLCamera c(scene.view.camera());
        c.projection(orthographic);
        c.SetExpectOrthoWidth(expected.width());
        c.SetExpectOrthoHeight(expected.height());
        c.SetOrthoWidth(5);
        c.SetOrthoHeight(2);
        c.aspect_ratio(1.5);
        xQGLView kept;
        kept.camera(c);
        scene.view.show_viewpoint(scene.view.add_viewpoint(0, kept));
        QCOMPARE(QSizeF(scene.view.camera().GetOrthoWidth(), scene.view.camera().GetOrthoHeight()), fitted);
        QCOMPARE(scene.view.camera().aspect_ratio(), aspect);
    }

    void screenshotWithoutExtensionIsPng() {
        BoxView scene;
        xQGLWidget& view = scene.view;
        QTemporaryDir folder;
        const QString chosen = folder.filePath("shot");
        QString first_filter;
        answer_dialog<QFileDialog>([&](QFileDialog* dialog) {
            first_filter = dialog->nameFilters().value(0);
            dialog->findChild<QLineEdit*>("fileNameEdit")->setText(chosen);
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        }, [&] { view.SavePixmapChoose(folder.path()); });
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
