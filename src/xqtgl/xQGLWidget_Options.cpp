#include "xqtgl/xQGLWidget_Options.h"

#include <GL/gl.h>

namespace xqtgl {

namespace {

bool operator==(const basic::color3& a, const basic::color3& b) {
    return a.r == b.r && a.g == b.g && a.b == b.b;
}

} // namespace

xQGLWidget_Options::xQGLWidget_Options() {
    _clipping_plane.set(1.0, 0.0, 0.0, 0.0);
    _lights.reserve(light_count);
    for (int i = 0; i < light_count; ++i) {
        xQGLLight light(GL_LIGHT0 + i);
        light.position(geometry3D::Point(1.0, 3.0, 5.0));
        light.enabled(i == 0);
        _lights.append(light);
    }
}

xQGLWidget_Options::xQGLWidget_Options(const xQGLWidget_Options& other)
    : QObject(),
      _grid_boundingbox(other._grid_boundingbox),
      _plane_clipping_enabled(other._plane_clipping_enabled),
      _clipping_plane(other._clipping_plane),
      _draw_boundingbox(other._draw_boundingbox),
      _origin_lighting(other._origin_lighting),
      _draw_grid(other._draw_grid),
      _draw_origin(other._draw_origin),
      _grid_distance(other._grid_distance),
      _background_color(other._background_color),
      _lights(other._lights),
      _show_framerate(other._show_framerate),
      _measure_unit(other._measure_unit),
      _measure_decimals(other._measure_decimals),
      _measure_options_set(other._measure_options_set) {
    std::copy(other._draw_light, other._draw_light + light_count, _draw_light);
}

xQGLWidget_Options& xQGLWidget_Options::operator=(const xQGLWidget_Options& other) {
    if (this == &other)
        return *this;
    _grid_boundingbox = other._grid_boundingbox;
    _plane_clipping_enabled = other._plane_clipping_enabled;
    _clipping_plane = other._clipping_plane;
    _draw_boundingbox = other._draw_boundingbox;
    _origin_lighting = other._origin_lighting;
    _draw_grid = other._draw_grid;
    _draw_origin = other._draw_origin;
    _grid_distance = other._grid_distance;
    _background_color = other._background_color;
    for (int i = 0; i < light_count; ++i)
        _lights[i] = other._lights[i];
    std::copy(other._draw_light, other._draw_light + light_count, _draw_light);
    _show_framerate = other._show_framerate;
    _measure_unit = other._measure_unit;
    _measure_decimals = other._measure_decimals;
    emit changed(this);
    if (_measure_options_set != other._measure_options_set) {
        _measure_options_set = other._measure_options_set;
        emit changed(this);
    }
    return *this;
}

template <typename T>
void xQGLWidget_Options::set(T& field, const T& value) {
    if (field == value)
        return;
    field = value;
    emit changed(this);
}

void xQGLWidget_Options::grid_boundingbox(const geometry3D::boundingbox& box) {
    set(_grid_boundingbox, box);
}
void xQGLWidget_Options::plane_clipping_enabled(bool on) { set(_plane_clipping_enabled, on); }
void xQGLWidget_Options::draw_boundingbox(bool on) { set(_draw_boundingbox, on); }
void xQGLWidget_Options::origin_lighting(bool on) { set(_origin_lighting, on); }
void xQGLWidget_Options::draw_grid(bool on) { set(_draw_grid, on); }
void xQGLWidget_Options::draw_origin(bool on) { set(_draw_origin, on); }
void xQGLWidget_Options::grid_distance(double d) { set(_grid_distance, d); }
void xQGLWidget_Options::background_color(const basic::color3& c) { set(_background_color, c); }
void xQGLWidget_Options::show_framerate(bool on) { set(_show_framerate, on); }

void xQGLWidget_Options::clipping_plane(const geometry3D::Plane& p) {
    if (equal(_clipping_plane, p))
        return;
    _clipping_plane = p;
    emit changed(this);
}

void xQGLWidget_Options::light(int i, const xQGLLight& l) {
    if (i < 0 || i >= light_count || _lights[i] == l)
        return;
    _lights[i] = l;
    emit changed(this);
}

void xQGLWidget_Options::draw_light(int i, bool on) {
    if (i < 0 || i >= light_count)
        return;
    // Unlike the other setters this one always announces itself: the light markers are few and
    // a panel toggling them expects a redraw each time.
    _draw_light[i] = on;
    emit changed(this);
}

void xQGLWidget_Options::SetMeasureOptions(basic::unit u, int decimals) {
    _measure_unit = u;
    _measure_decimals = decimals;
    _measure_options_set = true;
}

void xQGLWidget_Options::GetMeasureOptions(basic::unit& u, int& decimals) const {
    u = _measure_unit;
    decimals = _measure_decimals;
}

bool xQGLWidget_Options::equal(const geometry3D::Plane& a, const geometry3D::Plane& b) {
    if (a != b)
        return false;
    vmp::Vector na = a.n();
    vmp::Vector nb = b.n();
    na.normalize();
    nb.normalize();
    return (na - nb).quantity() <= 1e-05;
}

} // namespace xqtgl
