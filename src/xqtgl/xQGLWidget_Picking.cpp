// Window pixels to world points: by the depth under the pixel, or on a plane through a point.
// Unprojection gives render coordinates; every result goes back to world coordinates here.
#include "xqtgl/xQGLWidget.h"

#include <GL/glu.h>

namespace xqtgl {

namespace {

/// The matrices and viewport of the current frame, as gluProject and gluUnProject take them.
struct frame_transform {
    GLdouble modelview[16];
    GLdouble projection[16];
    GLint viewport[4];

    frame_transform() {
        glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
        glGetDoublev(GL_PROJECTION_MATRIX, projection);
        glGetIntegerv(GL_VIEWPORT, viewport);
    }

    geometry3D::point unproject(double x, double y, double depth) const {
        geometry3D::point p{0.0, 0.0, 0.0};
        gluUnProject(x, y, depth, modelview, projection, viewport, &p.x, &p.y, &p.z);
        return p;
    }
};

} // namespace

geometry3D::point xQGLWidget::pick_point(int x, int y, bool* hit) {
    makeCurrent();
    GLfloat depth = 1.0f;
    glReadPixels(x, height() - y, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
    if (hit) {
        *hit = depth < 1.0f && depth >= 1e-10f;
        if (!*hit)
            return {0.0, 0.0, 0.0};
    }
    _camera.gl_projection();
    _camera.gl_lookat(_render_origin);
    const frame_transform frame;
    return to_world(frame.unproject(x, height() - y, depth));
}

geometry3D::point xQGLWidget::PickPointInsideBoundingBox(int x, int y, bool* hit) {
    bool found = false;
    const geometry3D::point p = pick_point(x, y, &found);
    if (hit)
        *hit = found && geometry3D::inside(p, _boundingbox);
    return p;
}

geometry3D::point xQGLWidget::PickPointOnBoundingBoxCenterPlane(int x, int y) {
    const geometry3D::boundingbox& b = _boundingbox;
    const geometry3D::point centre =
        has_extent(b) ? geometry3D::center(b)
                      : _camera.lookat().to_primitive();
    const geometry3D::point screen{double(x), double(y), 0.0};
    geometry3D::point world;
    TransformPointsScreenToWorld(1, &screen, &world, centre);
    return world;
}

void xQGLWidget::TransformPointsScreenToWorld(int n, const geometry3D::point* screen,
                                              geometry3D::point* world,
                                              const geometry3D::point& plane_point) {
    makeCurrent();
    _camera.gl_projection();
    _camera.gl_lookat(_render_origin);
    const frame_transform frame;
    const geometry3D::point on_plane = to_render(plane_point);
    GLdouble wx, wy, depth;
    gluProject(on_plane.x, on_plane.y, on_plane.z, frame.modelview, frame.projection,
               frame.viewport, &wx, &wy, &depth);
    for (int i = 0; i < n; ++i)
        world[i] = to_world(frame.unproject(screen[i].x, frame.viewport[3] - screen[i].y, depth));
}

} // namespace xqtgl
