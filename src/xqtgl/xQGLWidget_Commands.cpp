// The commands hosts, menus and gestures call on the view.
#include "xqtgl/xQGLWidget.h"

#include <algorithm>

namespace xqtgl {

void xQGLWidget::camera(const xQGLCamera& c) {
    _camera = c;
    const geometry3D::boundingbox& b = _boundingbox;
    if (!has_extent(b) || b.xmin == b.xmax || b.ymin == b.ymax)
        return;
    // The grid reaches half the box beyond it in X and Y; the far plane must reach its corners.
    const double hx = (b.xmax - b.xmin) / 2.0;
    const double hy = (b.ymax - b.ymin) / 2.0;
    double farthest = 0.0;
    for (double x : {b.xmin - hx, b.xmax + hx})
        for (double y : {b.ymin - hy, b.ymax + hy})
            for (double z : {b.zmin, b.zmax})
                farthest = std::max(farthest, _camera.eye().distance(geometry3D::Point(x, y, z)));
    _camera.far_plane(farthest);
}

} // namespace xqtgl
