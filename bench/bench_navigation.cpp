// Orbiting the reference building at 1280x800: a drag of 60 pointer steps, each drawn in the fast
// form as a user sees it, then the full frame drawn after the release. A step's camera change
// repaints the view at once, so a step costs the one frame it draws; the frames are counted to
// show it. The baseline is the painter benchmark's: one glDrawArrays of the same triangles in
// the same context and view. Frames are compared by the CPU time of the process (the software
// renderer's threads included), which a busy shared machine disturbs far less than the clock;
// the drag's frame rate is the clock's, as a user would see it.

#include "BenchScene.h"

#include <GL/gl.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

namespace {

double cpu_seconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return now.tv_sec + now.tv_nsec / 1e9;
}

/// The least CPU time of `runs` runs of `work`.
double best_cpu_seconds(int runs, const std::function<void()>& work) {
    double best = 1e300;
    for (int i = 0; i < runs; ++i) {
        const double start = cpu_seconds();
        work();
        best = std::min(best, cpu_seconds() - start);
    }
    return best;
}

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
    const double baseline = best_cpu_seconds(3, [&] {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        arrays.draw();
        glFinish();
    });

    const int steps = 60;
    const QPoint start(view.width() / 2, view.height() / 2);
    int frames = 0;
    QObject::connect(&view, &xqtgl::xQGLWidget::eye_position, [&frames] { ++frames; });
    QElapsedTimer dragging;
    dragging.start();
    double best_step = 1e300;
    send_mouse(view, QEvent::MouseButtonPress, start, Qt::LeftButton);
    for (int i = 1; i <= steps; ++i)
        best_step = std::min(best_step, best_cpu_seconds(1, [&] {
                                 send_mouse(view, QEvent::MouseMove, start + QPoint(4 * i, i), Qt::LeftButton);
                                 glFinish();
                             }));
    const double drag = dragging.nsecsElapsed() / 1e9;
    const int drag_frames = frames;
    send_mouse(view, QEvent::MouseButtonRelease, start + QPoint(4 * steps, steps), Qt::NoButton);
    const double full = best_cpu_seconds(3, [&] {
        view.updateGL();
        glFinish();
    });

    std::printf("orbit drag of %d steps: %.2f s, %d frames drawn, %.2f frames per second\n", steps, drag,
                drag_frames, steps / drag);
    std::printf("fast frame of one drag step (CPU, best of %d): %.3f s; glDrawArrays of the same triangles: %.3f s; "
                "ratio %.2f\n",
                steps, best_step, baseline, best_step / baseline);
    std::printf("full frame after the release (CPU, best of 3): %.3f s; glDrawArrays of the same triangles: %.3f "
                "s; ratio %.2f\n",
                full, baseline, full / baseline);
    return 0;
}
