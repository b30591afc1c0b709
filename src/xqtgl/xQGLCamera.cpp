#include "xqtgl/xQGLCamera.h"

#include <GL/glu.h>

#include <algorithm>
#include <cmath>

namespace xqtgl {

namespace {

constexpr double half_pi = 1.5707963267948966;
constexpr double pi = 3.141592653589793;
constexpr double refused_distance = 0.01;

vmp::Vector normalised(vmp::Vector v) {
    v.normalize();
    return v;
}

geometry3D::Point as_point(const vmp::Vector& v) {
    return geometry3D::Point(v[0], v[1], v[2]);
}

/// The two horizontal components of look-at minus eye.
struct horizontal {
    double x, y, length;
};

horizontal horizontal_sight(const geometry3D::Point& eye, const geometry3D::Point& lookat) {
    const double hx = lookat.x() - eye.x();
    const double hy = lookat.y() - eye.y();
    return {hx, hy, std::sqrt(hx * hx + hy * hy)};
}

} // namespace

xQGLCamera::xQGLCamera() = default;

xQGLCamera::xQGLCamera(const xQGLCamera& other)
    : QObject(),
      _view_angle(other._view_angle),
      _aspect_ratio(other._aspect_ratio),
      _near_plane(other._near_plane),
      _far_plane(other._far_plane),
      _ortho_width(other._ortho_width),
      _ortho_height(other._ortho_height),
      _expected_ortho_width(other._expected_ortho_width),
      _expected_ortho_height(other._expected_ortho_height),
      _eye(other._eye),
      _lookat(other._lookat),
      _up(other._up),
      _projection(other._projection) {}

xQGLCamera& xQGLCamera::operator=(const xQGLCamera& other) {
    if (this == &other || *this == other)
        return *this;
    _view_angle = other._view_angle;
    _aspect_ratio = other._aspect_ratio;
    _near_plane = other._near_plane;
    _far_plane = other._far_plane;
    _eye = other._eye;
    _lookat = other._lookat;
    _up = other._up;
    _projection = other._projection;
    _expected_ortho_width = other._expected_ortho_width;
    _expected_ortho_height = other._expected_ortho_height;
    _ortho_width = other._ortho_width;
    _ortho_height = other._ortho_height;
    emit changed(this);
    return *this;
}

bool xQGLCamera::operator==(const xQGLCamera& other) const {
    return _view_angle == other._view_angle && _aspect_ratio == other._aspect_ratio &&
           _near_plane == other._near_plane && _far_plane == other._far_plane && _eye == other._eye &&
           _lookat == other._lookat && _up == other._up && _projection == other._projection &&
           _expected_ortho_width == other._expected_ortho_width &&
           _expected_ortho_height == other._expected_ortho_height &&
           _ortho_width == other._ortho_width && _ortho_height == other._ortho_height;
}

void xQGLCamera::view_angle(double degrees) {
    if (degrees == _view_angle)
        return;
    _view_angle = degrees;
    emit changed(this);
}

void xQGLCamera::aspect_ratio(double ratio) {
    if (ratio == _aspect_ratio)
        return;
    _aspect_ratio = ratio;
    emit changed(this);
}

void xQGLCamera::near_plane(double value) {
    if (value == _near_plane)
        return;
    _near_plane = value;
    emit changed(this);
}

void xQGLCamera::far_plane(double value) {
    if (value == _far_plane || value <= 10000.0)
        return;
    _far_plane = value;
    emit changed(this);
}

void xQGLCamera::projection(projection_type p) {
    if (p == _projection)
        return;
    _projection = p;
    emit changed(this);
}

void xQGLCamera::ResetPlanesAndAngle() {
    _view_angle = 50.0;
    _near_plane = 0.01;
    _far_plane = 10000.0;
    emit changed(this);
}

void xQGLCamera::eye(const geometry3D::Point& p) {
    if (p == _eye || p.distance(_lookat) < refused_distance)
        return;
    _eye = p;
    emit changed(this);
}

void xQGLCamera::lookat(const geometry3D::Point& p) {
    if (p == _lookat || p.distance(_eye) < refused_distance)
        return;
    _lookat = p;
    emit changed(this);
}

vmp::Vector xQGLCamera::direction() const {
    return (_lookat - _eye).to_Vector();
}

void xQGLCamera::emit_if_large(double value, double limit) {
    if (std::fabs(value) > limit)
        emit changed(this);
}

void xQGLCamera::rotate_x(double a) {
    const double argument = a;
    const vmp::Vector h(_eye.x() - _lookat.x(), _eye.y() - _lookat.y(), 0.0);
    vmp::Vector d = (_eye - _lookat).to_Vector();
    const double r = d.quantity();
    d = d / r;
    const double e = std::acos(d * h / (d.quantity() * h.quantity()));
    if (d[2] > 0.0) {
        if (e + a > half_pi)
            a = half_pi - e - 0.0001;
        if (e + a < -half_pi)
            a = -half_pi - e + 0.0001;
    } else {
        if (e - a > half_pi)
            a = e - half_pi + 0.0001;
        if (e - a < -half_pi)
            a = e + half_pi - 0.0001;
    }
    const vmp::Vector n = normalised(vmp::cross(_up, d));
    const vmp::Vector m = normalised(vmp::cross(d, n));
    const vmp::Vector w = (m * std::sin(a) + d * std::cos(a)) * r;
    _eye = _lookat + as_point(w);
    emit_if_large(argument, 100000.0);
}

void xQGLCamera::rotate_z(double a) {
    const double dx = _eye.x() - _lookat.x();
    const double dy = _eye.y() - _lookat.y();
    _eye.x(_lookat.x() + dx * std::cos(a) - dy * std::sin(a));
    _eye.y(_lookat.y() + dx * std::sin(a) + dy * std::cos(a));
    emit_if_large(a, 100000.0);
}

void xQGLCamera::yaw(double a) {
    const horizontal h = horizontal_sight(_eye, _lookat);
    _lookat.x(_eye.x() + h.x * std::cos(a) - h.y * std::sin(a));
    _lookat.y(_eye.y() + h.x * std::sin(a) + h.y * std::cos(a));
    emit_if_large(a, 10000000000.0);
}

void xQGLCamera::pitch(double a) {
    const double argument = a;
    vmp::Vector d = direction();
    const double g = std::acos(vmp::cosine(_up, d));
    if (g + a > pi)
        a = pi - g - 0.01;
    if (g + a < 0.0)
        a = 0.01 - g;
    const double length = d.quantity();
    if (length < 1e-08)
        return;
    d = d / length;
    const vmp::Vector r = normalised(vmp::cross(d, _up));
    const vmp::Vector u = normalised(vmp::cross(r, d));
    _lookat = _eye + as_point((d * std::cos(a) - u * std::sin(a)) * length);
    emit_if_large(argument, 100000.0);
}

void xQGLCamera::move_horizontal(double s) {
    const horizontal h = horizontal_sight(_eye, _lookat);
    if (h.length < 0.001)
        return;
    const geometry3D::Point step(h.x * s / h.length, h.y * s / h.length, 0.0);
    _eye += step;
    _lookat += step;
    emit_if_large(s, 100000.0);
}

void xQGLCamera::pan_left_right(double s) {
    const horizontal h = horizontal_sight(_eye, _lookat);
    if (h.length < 1e-08)
        return;
    const geometry3D::Point step(h.y * s / h.length, -h.x * s / h.length, 0.0);
    _eye += step;
    _lookat += step;
    emit_if_large(s, 100000.0);
}

void xQGLCamera::pan_up_down(double s) {
    vmp::Vector d = direction();
    const double length = d.quantity();
    if (length < 1e-08)
        return;
    d = d / length;
    const vmp::Vector r = normalised(vmp::cross(d, _up));
    const geometry3D::Point step = as_point(normalised(vmp::cross(r, d)) * s);
    _lookat += step;
    _eye += step;
    emit_if_large(s, 100000.0);
}

void xQGLCamera::zoom(double f) {
    if (_projection == perspective) {
        f = std::clamp(f, -0.8, 0.8);
        const geometry3D::Point p = _eye + (_lookat - _eye) * f;
        if (_lookat.distance(p) < refused_distance)
            return;
        _eye = p;
        return;
    }
    _projection = orthographic;
    _expected_ortho_height -= f * _expected_ortho_height;
    _expected_ortho_width -= f * _expected_ortho_width;
    _ortho_width -= f * _ortho_width;
    _ortho_height -= f * _ortho_height;
}

void xQGLCamera::Save() {
    if (_saved)
        return;
    _saved_eye = _eye;
    _saved_lookat = _lookat;
    _saved = true;
}

void xQGLCamera::Restore() {
    if (!_saved)
        return;
    _eye = _saved_eye;
    _lookat = _saved_lookat;
    _saved = false;
}

void xQGLCamera::SetSavedEye(const geometry3D::Point& p) {
    _saved_eye = p;
    _saved = true;
}

void xQGLCamera::SetSavedLookat(const geometry3D::Point& p) {
    _saved_lookat = p;
    _saved = true;
}

void xQGLCamera::SetExpectOrthoWidth(double w) {
    _expected_ortho_width = w;
    _ortho_width = w;
}

void xQGLCamera::SetExpectOrthoHeight(double h) {
    _expected_ortho_height = h;
    _ortho_height = h;
}

void xQGLCamera::gl_projection() const {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    if (_projection == perspective)
        gluPerspective(_view_angle, _aspect_ratio, _near_plane, _far_plane);
    else if (_projection == orthographic)
        glOrtho(-_ortho_width / 2.0, _ortho_width / 2.0, -_ortho_height / 2.0, _ortho_height / 2.0,
                _near_plane, _far_plane);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void xQGLCamera::gl_lookat(const geometry3D::point& o) const {
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    gluLookAt(_eye.x() - o.x, _eye.y() - o.y, _eye.z() - o.z, _lookat.x() - o.x, _lookat.y() - o.y,
              _lookat.z() - o.z, _up[0], _up[1], _up[2]);
}

} // namespace xqtgl
