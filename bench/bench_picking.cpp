// Picking on the reference building at 1280x800: one click by colour id and by ray, and a
// region selection over a quarter of the frame (colour ids, and frustum in both styles), each
// against the time of one normal frame of the same view; the ray and a frustum again with a
// clipping plane through the middle of the building.

#include "BenchScene.h"


#include <GL/gl.h>

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    bench::ReferenceScene scene;
    if (!scene.load(app.arguments()))
        return 0;
    scene.build();
    scene.fit();
    xqtgl::xQGLWidget& view = scene.view;
    mesh3D_gl::Painter* painter = scene.painter;

    const double frame = bench::best_seconds(3, [&] {
        view.updateGL();
        glFinish();
    });
    const int cx = view.width() / 2, cy = view.height() / 2;
    xqtgl::xQGLWidget::SelectSingleGeometric(false);
    const double colour_click = bench::best_seconds(3, [&] { view.SelectRegion(cx - 5, cy - 5, 10, 10, 0, true, 0); });
    const int clicked = painter->count_selected_elements();
    xqtgl::xQGLWidget::SelectSingleGeometric(true);
    const double ray_click = bench::best_seconds(3, [&] { view.SelectRegion(cx - 5, cy - 5, 10, 10, 0, true, 0); });
    const int region_w = view.width() / 2, region_h = view.height() / 2;
    const auto region = [&](bool geometric, int kind) {
        xqtgl::xQGLWidget::SelectRegionGeometric(geometric);
        const double seconds = bench::best_seconds(
            3, [&] { view.SelectRegion(cx - region_w / 2, cy - region_h / 2, region_w, region_h, 0, true, kind); });
        return std::make_pair(seconds, painter->count_selected_elements());
    };
    const auto colour_region = region(false, 1);
    const auto surround_region = region(true, 1);
    const auto touch_region = region(true, 2);

    xqtgl::xQGLWidget_Options cut(view.options());
    const geometry3D::point middle = geometry3D::center(view.boundingbox());
    cut.clipping_plane(geometry3D::Plane(vmp::Vector(-1.0, 0.0, 0.0), -middle.x));
    cut.plane_clipping_enabled(true);
    view.options(cut);
    const double cut_ray_click = bench::best_seconds(3, [&] { view.SelectRegion(cx - 5, cy - 5, 10, 10, 0, true, 0); });
    const auto cut_touch_region = region(true, 2);

    std::printf("frame 1280x800: %.1f ms (%d objects picked by the click, %d, %d and %d by the regions, %d by the "
                "touching region with the cut)\n",
                frame * 1e3, clicked, colour_region.second, surround_region.second, touch_region.second,
                cut_touch_region.second);
    const auto line = [&](const char* what, double seconds) {
        std::printf("%s: %.1f ms; one frame: %.1f ms; ratio %.2f\n", what, seconds * 1e3, frame * 1e3, seconds / frame);
    };
    line("click pick by colour id", colour_click);
    line("click pick by ray", ray_click);
    line("quarter-frame region by colour ids", colour_region.first);
    line("quarter-frame region by frustum, surround", surround_region.first);
    line("quarter-frame region by frustum, touch", touch_region.first);
    line("click pick by ray, cut through the middle", cut_ray_click);
    line("quarter-frame region by frustum, touch, cut through the middle", cut_touch_region.first);
    return 0;
}
