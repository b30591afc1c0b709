// The commands hosts, menus and gestures call on the view: camera fitting, projections and the
// fixed views, navigation modes and the commands passed on to the painters.
#include "geometry/Plane.h"
#include "xqtgl/xQGLWidget.h"
#include "xqtgl/xQGLWidget_Handler.h"
#include "xqtgl/xQGLWidget_LookAroundHandler.h"
#include "xqtgl/xQGLWidget_OrbitHandler.h"
#include "xqtgl/xQGLWidget_Painter.h"
#include "xqtgl/xQGLWidget_PanHandler.h"
#include "xqtgl/xQGLWidget_SelectHandler.h"
#include "xqtgl/xQGLWidget_WalkHandler.h"
#include "xqtgl/xQGLWidget_ZoomHandler.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace xqtgl {

namespace {

using geometry3D::Point;

double sign(double v) { return v > 0.0 ? 1.0 : v < 0.0 ? -1.0 : 0.0; }

double largest_size(const geometry3D::boundingbox& b) {
    return std::max({b.xmax - b.xmin, b.ymax - b.ymin, b.zmax - b.zmin});
}

std::array<Point, 8> corners(const geometry3D::boundingbox& b) {
    return {Point(b.xmin, b.ymin, b.zmin), Point(b.xmax, b.ymin, b.zmin), Point(b.xmin, b.ymax, b.zmin),
            Point(b.xmax, b.ymax, b.zmin), Point(b.xmin, b.ymin, b.zmax), Point(b.xmax, b.ymin, b.zmax),
            Point(b.xmin, b.ymax, b.zmax), Point(b.xmax, b.ymax, b.zmax)};
}

/// Puts eye and look-at on a camera. Each setter refuses a point within 0.01 of the other point
/// as it stands, so the look-at is set again once the eye has moved away from the old one.
void place(xQGLCamera& c, const Point& eye, const Point& lookat) {
    c.lookat(lookat);
    c.eye(eye);
    c.lookat(lookat);
}

/// The eye that fits the box in a perspective view from the camera's present octant.
Point fitting_eye(const xQGLCamera& camera, const geometry3D::boundingbox& box) {
    const Point c(geometry3D::center(box));
    double s = ((box.xmax - box.xmin) + (box.ymax - box.ymin) + (box.zmax - box.zmin)) / 3.0;
    if (std::fabs(s) < 1e-05)
        s = 0.05;
    const Point& eye = camera.eye();
    const Point provisional(c.x() + sign(eye.x() - c.x()) * s, c.y() + sign(eye.y() - c.y()) * s,
                            c.z() + sign(eye.z() - c.z()) * s);
    vmp::Vector n = (c - provisional).to_Vector();
    n.normalize();
    const double t = std::tan(camera.view_angle() / 2.0 * M_PI / 180.0);
    // The two planes must pass through the provisional eye: a plane made from a point and a
    // normal takes its distance from the normal as given, so the normals are made unit first.
    vmp::Vector r = vmp::cross(camera.up(), n);
    r.normalize();
    vmp::Vector u = vmp::cross(n, r);
    u.normalize();
    const geometry3D::Plane side(provisional, r);
    const geometry3D::Plane upright(provisional, u);
    double best = 1e15;
    for (const Point& corner : corners(box)) {
        const double d = std::fabs(geometry3D::Plane(corner, n).distance(provisional));
        const double half_height = d * t;
        const double half_width = half_height * camera.aspect_ratio();
        const double a = std::fabs(side.distance(corner));
        const double b = std::fabs(upright.distance(corner));
        best = std::min({best, d * (1.0 - b / half_height), d * (1.0 - a / half_width)});
    }
    return provisional + Point(n[0], n[1], n[2]) * best;
}

} // namespace

void xQGLWidget::camera(const xQGLCamera& c) {
    _camera = c;
    const geometry3D::boundingbox& b = _boundingbox;
    if (!has_extent(b) || b.xmin == b.xmax || b.ymin == b.ymax)
        return;
    // The grid reaches half the box beyond it in X and Y; the far plane must reach its corners.
    const double hx = (b.xmax - b.xmin) / 2.0;
    const double hy = (b.ymax - b.ymin) / 2.0;
    const geometry3D::boundingbox grid{b.xmin - hx, b.ymin - hy, b.xmax + hx, b.ymax + hy, b.zmin, b.zmax};
    double farthest = 0.0;
    for (const Point& corner : corners(grid))
        farthest = std::max(farthest, _camera.eye().distance(corner));
    _camera.far_plane(farthest);
}

void xQGLWidget::zoom_boundingbox(const geometry3D::boundingbox& box) {
    ResetHandler();
    xQGLCamera c(_camera);
    const Point centre(geometry3D::center(box));
    if (c.projection() == perspective) {
        c.eye(fitting_eye(c, box));
    } else {
        c.eye(c.eye() + (centre - c.lookat()));
        double m = largest_size(box);
        if (std::fabs(m) < 1e-05)
            m = 0.05;
        const double v = double(width()) / double(height());
        c.SetExpectOrthoWidth(m);
        c.SetExpectOrthoHeight(m);
        c.aspect_ratio(1.0);
        if (v > 1.0) {
            c.SetOrthoWidth(v * m);
            c.SetOrthoHeight(m);
        } else if (v < 1.0) {
            c.SetOrthoWidth(m);
            c.SetOrthoHeight(m / v);
        }
    }
    c.lookat(centre);
    camera(c);
}

void xQGLWidget::zoom_to(geometry3D::boundingbox (xQGLWidget_Painter::*box)() const) {
    // Reset here too: a zoom command drops a half-taken input even when there is nothing to fit.
    ResetHandler();
    geometry3D::boundingbox all;
    for (xQGLWidget_Painter* painter : _painters)
        geometry3D::merge(all, (painter->*box)());
    // An empty union, or one without width, has nothing to fit.
    if (all.xmin >= all.xmax)
        return;
    zoom_boundingbox(all);
}

void xQGLWidget::zoom_all() { zoom_to(&xQGLWidget_Painter::boundingbox); }
void xQGLWidget::zoom_to_selected() { zoom_to(&xQGLWidget_Painter::boundingbox_selected_elements); }
void xQGLWidget::zoom_to_visible() { zoom_to(&xQGLWidget_Painter::boundingbox_visible_elements); }

void xQGLWidget::zoom_home() {
    ResetHandler();
    zoom_home_norefresh();
    repaint();
}

void xQGLWidget::zoom_home_norefresh() {
    const geometry3D::boundingbox& b = _boundingbox;
    if (!has_extent(b))
        return;
    double dx = b.xmax - b.xmin, dy = b.ymax - b.ymin, dz = b.zmax - b.zmin;
    if (std::fabs(dx) < 1e-05 && std::fabs(dy) < 1e-05 && std::fabs(dz) < 1e-05)
        dx = dy = dz = 0.1;
    xQGLCamera c(_camera);
    place(c, Point(b.xmin - dx, b.ymin - dy, b.zmax + dz), Point(geometry3D::center(b)));
    _camera = c;
}

void xQGLWidget::zoom_in() {
    ResetHandler();
    _camera.zoom(0.3);
}

void xQGLWidget::zoom_out() {
    ResetHandler();
    // Undoes one zoom_in in perspective: 0.7 * 1.42857 is 0.999999.
    _camera.zoom(-0.42857);
}

void xQGLWidget::ResetCameraPlanesAndAngle() { _camera.ResetPlanesAndAngle(); }

void xQGLWidget::as_one_frame(const std::function<void()>& steps) {
    const bool ignoring = _ignore_repaint;
    _ignore_repaint = true;
    steps();
    _ignore_repaint = ignoring;
    paintGL();
    update();
}

void xQGLWidget::set_perspective_projection() {
    as_one_frame([this] {
        _camera.Restore();
        xQGLCamera c(_camera);
        c.projection(perspective);
        c.aspect_ratio(double(width()) / double(height()));
        camera(c);
    });
}

void xQGLWidget::set_orthographic_projection() {
    as_one_frame([this] {
        _camera.Save();
        _camera.projection(orthographic);
        zoom_all();
    });
}

void xQGLWidget::orthographic_view(
    const std::function<Point(const geometry3D::boundingbox&)>& eye, bool plan) {
    as_one_frame([&] {
        _camera.Save();
        xQGLCamera c(_camera);
        place(c, eye(_boundingbox), Point(geometry3D::center(_boundingbox)));
        if (plan)
            c.rotate_z(-1.5707963267948966);
        c.projection(orthographic);
        camera(c);
        zoom_all();
    });
}

// A plan view's eye sits a millimetre off the vertical, which neither rotate_x nor gluLookAt
// can take; the diagonal views stand off by three quarters of the largest size.
void xQGLWidget::SetOrthoProjectionPlanView() {
    orthographic_view([](const auto& b) {
        const Point c(geometry3D::center(b));
        return Point(c.x() + 0.001, c.y(), b.zmax + 100.0);
    }, true);
}
void xQGLWidget::SetOrthoProjectionNorthView() {
    orthographic_view([](const auto& b) { const Point c(geometry3D::center(b)); return Point(c.x(), b.ymax + 100.0, c.z()); }, false);
}
void xQGLWidget::SetOrthoProjectionEastView() {
    orthographic_view([](const auto& b) { const Point c(geometry3D::center(b)); return Point(b.xmax + 100.0, c.y(), c.z()); }, false);
}
void xQGLWidget::SetOrthoProjectionSouthView() {
    orthographic_view([](const auto& b) { const Point c(geometry3D::center(b)); return Point(c.x(), b.ymin - 100.0, c.z()); }, false);
}
void xQGLWidget::SetOrthoProjectionWestView() {
    orthographic_view([](const auto& b) { const Point c(geometry3D::center(b)); return Point(b.xmin - 100.0, c.y(), c.z()); }, false);
}

namespace {
/// The eye of a diagonal view: (sx, sy) are the compass signs, s three quarters of the largest size.
Point diagonal_eye(const geometry3D::boundingbox& b, double sx, double sy) {
    const Point c(geometry3D::center(b));
    const double s = largest_size(b) * 1.5 * 0.5;
    return Point(c.x() + sx * s, c.y() + sy * s, c.z() + s);
}
} // namespace

void xQGLWidget::SetOrthoProjectionNorthwestView() {
    orthographic_view([](const auto& b) { return diagonal_eye(b, -1, 1); }, false);
}
void xQGLWidget::SetOrthoProjectionNortheastView() {
    orthographic_view([](const auto& b) { return diagonal_eye(b, 1, 1); }, false);
}
void xQGLWidget::SetOrthoProjectionSoutheastView() {
    orthographic_view([](const auto& b) { return diagonal_eye(b, 1, -1); }, false);
}
void xQGLWidget::SetOrthoProjectionSouthwestView() {
    orthographic_view([](const auto& b) { return diagonal_eye(b, -1, -1); }, false);
}

void xQGLWidget::axis_view(int axis, double side) {
    xQGLCamera c(_camera);
    const Point centre(geometry3D::center(_boundingbox));
    Point eye = centre;
    eye[axis] += side * c.eye().distance(c.lookat());
    place(c, eye, centre);
    camera(c);
}

void xQGLWidget::view_X() { axis_view(0, -1.0); }
void xQGLWidget::view_negX() { axis_view(0, 1.0); }
void xQGLWidget::view_Y() { axis_view(1, -1.0); }
void xQGLWidget::view_negY() { axis_view(1, 1.0); }

template <typename Handler>
void xQGLWidget::set_mode() {
    if (_handler && qobject_cast<Handler*>(_handler))
        return;
    delete _handler;
    _handler = new Handler(this);
    emit navigation_mode(_handler->name());
}

void xQGLWidget::set_mode_orbit() { set_mode<xQGLWidget_OrbitHandler>(); }
void xQGLWidget::set_mode_walk() { set_mode<xQGLWidget_WalkHandler>(); }
void xQGLWidget::set_mode_pan() { set_mode<xQGLWidget_PanHandler>(); }
void xQGLWidget::set_mode_zoom() { set_mode<xQGLWidget_ZoomHandler>(); }
void xQGLWidget::set_mode_lookaround() { set_mode<xQGLWidget_LookAroundHandler>(); }
void xQGLWidget::set_mode_select() { set_mode<xQGLWidget_SelectHandler>(); }

void xQGLWidget::set_navigation_mode(const QString& name) {
    static const QHash<QString, void (xQGLWidget::*)()> modes = {
        {"orbit", &xQGLWidget::set_mode_orbit}, {"walk", &xQGLWidget::set_mode_walk},
        {"pan", &xQGLWidget::set_mode_pan},     {"zoom", &xQGLWidget::set_mode_zoom},
        {"lookaround", &xQGLWidget::set_mode_lookaround}, {"select", &xQGLWidget::set_mode_select}};
    if (const auto mode = modes.value(name))
        (this->*mode)();
}

QString xQGLWidget::navigation_mode() const { return _handler ? _handler->name() : QString(); }

void xQGLWidget::ResetHandler() {
    if (_handler)
        _handler->reset();
}

void xQGLWidget::fan_out(void (xQGLWidget_Painter::*command)(), bool repaint_after) {
    ResetHandler();
    const QList<xQGLWidget_Painter*> painters = _painters;
    for (xQGLWidget_Painter* painter : painters)
        (painter->*command)();
    if (repaint_after)
        repaint();
}

void xQGLWidget::select_all() { fan_out(&xQGLWidget_Painter::select_all, true); }
void xQGLWidget::select_visible() { fan_out(&xQGLWidget_Painter::select_visible, true); }
void xQGLWidget::unselect_all() { fan_out(&xQGLWidget_Painter::unselect_all, true); }
void xQGLWidget::toggle_selection() { fan_out(&xQGLWidget_Painter::toggle_selection, true); }
void xQGLWidget::hide_selected() { fan_out(&xQGLWidget_Painter::hide_selected, true); }
void xQGLWidget::show_selected() { fan_out(&xQGLWidget_Painter::show_selected, true); }
void xQGLWidget::show_only_selected() { fan_out(&xQGLWidget_Painter::show_only_selected, true); }
void xQGLWidget::show_all() { fan_out(&xQGLWidget_Painter::show_all, true); }
void xQGLWidget::show_all_NoRepaint() { fan_out(&xQGLWidget_Painter::show_all, false); }
void xQGLWidget::hide_all() { fan_out(&xQGLWidget_Painter::hide_all, true); }
void xQGLWidget::hide_all_NoRepaint() { fan_out(&xQGLWidget_Painter::hide_all, false); }
void xQGLWidget::toggle_visibility() { fan_out(&xQGLWidget_Painter::toggle_visibility, true); }

void xQGLWidget::show_hide_selected() {
    static bool hide_next = false;
    fan_out(hide_next ? &xQGLWidget_Painter::hide_selected : &xQGLWidget_Painter::show_selected, true);
    hide_next = !hide_next;
}

} // namespace xqtgl
