// The model painter on the reference building (40 storeys, 80 rooms each, round things in 32
// segments: about a million triangles in some 38 600 objects): building its lists, one normal
// and one fast frame at 1280x800, and the memory of its items. The baseline, in the same context
// and with the same camera, is one glDrawArrays of the same triangles with normals from
// client-side float arrays: the least any drawing of that geometry costs here.

#include "BenchScene.h"

#include <GL/gl.h>

#include <QApplication>

#include <cstdio>
#include <fstream>

namespace {

double resident_mib() {
    std::ifstream statm("/proc/self/statm");
    long pages = 0, resident = 0;
    statm >> pages >> resident;
    return resident * 4096.0 / (1 << 20);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    bench::ReferenceScene scene;
    if (!scene.load(app.arguments()))
        return 0;
    mesh3D_gl::Painter* painter = scene.painter;
    const double before = resident_mib();
    const double building = bench::best_seconds(3, [&] { scene.build(); });
    const int items = painter->count_elements();
    const double per_item = (resident_mib() - before) * (1 << 20) / items;
    scene.fit();
    scene.view.updateGL(); // camera, lights and state of a normal frame

    bench::TriangleArrays arrays;
    arrays.add(*scene.root.RootContainer(), scene.view.render_origin());
    const auto frame_seconds = [](const std::function<void()>& draw) {
        return bench::best_seconds(3, [&] {
            glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
            draw();
            glFinish();
        });
    };
    const double baseline = frame_seconds([&] { arrays.draw(); });
    const double paint = frame_seconds([&] { painter->paint(); });
    const double fast = frame_seconds([&] { painter->fast_paint(); });
    mesh3D_gl::PainterOptions faces_only(painter->options());
    faces_only.draw_wired(false);
    painter->options(faces_only);
    const double faces = frame_seconds([&] { painter->paint(); });

    std::printf("%zu triangles in %d items\n", arrays.corners.size() / 9, items);
    std::printf("set_elements: %.3f s; memory per item %.0f bytes\n", building, per_item);
    std::printf("paint: %.3f s; glDrawArrays of the same triangles: %.3f s; ratio %.2f\n", paint, baseline,
                paint / baseline);
    std::printf("paint of the faces alone (no wire edges): %.3f s; glDrawArrays: %.3f s; ratio %.2f\n", faces,
                baseline, faces / baseline);
    std::printf("fast_paint: %.3f s; paint: %.3f s; ratio %.2f\n", fast, paint, fast / paint);
    std::printf("paint/arrays ratio: %.2f\n", paint / baseline);
    std::printf("fast_paint/paint ratio: %.2f\n", fast / paint);
    return 0;
}
