// Frame time of the 3D view with nothing in it and with the grid of a 1 km site, against a bare
// clear and finish in the same GL context. Needs a display (run.sh gives it a virtual one).

#include "xqtgl/xQGLWidget.h"

#include <GL/gl.h>

#include <QApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

constexpr int frames = 200;

/// Best of three runs of `frames` frames, in milliseconds per frame.
double ms_per_frame(const std::function<void()>& frame) {
    double best = 1e300;
    for (int run = 0; run < 3; ++run) {
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < frames; ++i) {
            frame();
            glFinish();
        }
        best = std::min(best, timer.nsecsElapsed() / 1e6 / frames);
    }
    return best;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    xqtgl::xQGLWidget view;
    view.resize(1280, 800);
    view.show();
    app.processEvents();
    view.autoSwap(false);
    view.makeCurrent();

    const double bare = ms_per_frame([] { glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT); });
    const double empty = ms_per_frame([&] { view.updateGL(); });
    view.boundingbox({0, 0, 1000, 1000, 0, 10});
    xqtgl::xQGLCamera c(view.camera());
    c.lookat(geometry3D::Point(500, 500, 0));
    c.eye(geometry3D::Point(500, -700, 1200));
    view.camera(c);
    const double grid = ms_per_frame([&] { view.updateGL(); });

    std::printf("empty frame 1280x800: %.3f ms; bare glClear + glFinish: %.3f ms; ratio %.2f\n", empty,
                bare, empty / bare);
    std::printf("frame with the grid of a 1 km box (4000 lines): %.3f ms; bare glClear + glFinish: "
                "%.3f ms; ratio %.2f\n", grid, bare, grid / bare);
    return 0;
}
