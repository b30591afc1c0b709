// Orbiting the reference building at 1280x800: a drag of 60 pointer steps, each drawn in the fast
// form as a user sees it, then the full frame drawn after the release. The baseline is the
// painter benchmark's: one glDrawArrays of the same triangles in the same context and view.

#include "BenchScene.h"

#include <GL/gl.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>

#include <cstdio>

namespace {

void send_mouse(QWidget& view, QEvent::Type type, QPoint at, Qt::MouseButtons held) {
    QMouseEvent event(type, at, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &event);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    bench::ReferenceScene scene;
    if (!scene.load(app.arguments()))
        return 0;
    scene.build();
    scene.fit();
    xqtgl::xQGLWidget& view = scene.view;
    view.set_mode_orbit();
    view.updateGL();

    bench::TriangleArrays arrays;
    arrays.add(*scene.root.RootContainer(), view.render_origin());
    const double baseline = bench::best_seconds(3, [&] {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        arrays.draw();
        glFinish();
    });

    const int steps = 60;
    const QPoint start(view.width() / 2, view.height() / 2);
    QElapsedTimer dragging;
    dragging.start();
    send_mouse(view, QEvent::MouseButtonPress, start, Qt::LeftButton);
    for (int i = 1; i <= steps; ++i) {
        send_mouse(view, QEvent::MouseMove, start + QPoint(4 * i, i), Qt::LeftButton);
        view.updateGL();
        glFinish();
    }
    const double drag = dragging.nsecsElapsed() / 1e9;
    send_mouse(view, QEvent::MouseButtonRelease, start + QPoint(4 * steps, steps), Qt::NoButton);
    QElapsedTimer settling;
    settling.start();
    view.updateGL();
    glFinish();
    const double full = settling.nsecsElapsed() / 1e9;

    const double per_step = drag / steps;
    std::printf("orbit drag of %d steps: %.2f s, %.1f frames per second\n", steps, drag, steps / drag);
    std::printf("fast frame during the drag: %.3f s; glDrawArrays of the same triangles: %.3f s; ratio %.2f\n",
                per_step, baseline, per_step / baseline);
    std::printf("full frame after the release: %.3f s; glDrawArrays of the same triangles: %.3f s; ratio %.2f\n",
                full, baseline, full / baseline);
    return 0;
}
