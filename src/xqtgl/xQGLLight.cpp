#include "xqtgl/xQGLLight.h"

#include <GL/gl.h>

namespace xqtgl {

namespace {

bool same(const basic::color3& a, const basic::color3& b) {
    return a.r == b.r && a.g == b.g && a.b == b.b;
}

void send_colour(GLenum light, GLenum name, const basic::color3& c) {
    const GLfloat rgba[4] = {c.r, c.g, c.b, 1.0f};
    glLightfv(light, name, rgba);
}

} // namespace

xQGLLight::xQGLLight(unsigned int gl_id) : _gl_ID(gl_id) {}

xQGLLight::xQGLLight(const xQGLLight& other)
    : QObject(),
      _gl_ID(other._gl_ID),
      _position(other._position),
      _direction(other._direction),
      _enabled(other._enabled),
      _diffuse(other._diffuse),
      _specular(other._specular),
      _ambient(other._ambient) {}

xQGLLight& xQGLLight::operator=(const xQGLLight& other) {
    if (this == &other || *this == other)
        return *this;
    const bool moved = _position != other._position;
    _position = other._position;
    _direction = other._direction;
    const bool rest_differs = _gl_ID != other._gl_ID || _enabled != other._enabled ||
                              !same(_diffuse, other._diffuse) || !same(_specular, other._specular) ||
                              !same(_ambient, other._ambient);
    _gl_ID = other._gl_ID;
    _enabled = other._enabled;
    _diffuse = other._diffuse;
    _specular = other._specular;
    _ambient = other._ambient;
    if (moved)
        emit PositionChanged(this, _position);
    if (rest_differs)
        emit changed(this);
    return *this;
}

bool xQGLLight::operator==(const xQGLLight& other) const {
    return _position == other._position && _gl_ID == other._gl_ID && _enabled == other._enabled &&
           same(_diffuse, other._diffuse) && same(_specular, other._specular) &&
           same(_ambient, other._ambient);
}

void xQGLLight::gl_ID(unsigned int id) {
    if (id == _gl_ID)
        return;
    _gl_ID = id;
    emit changed(this);
}

void xQGLLight::position(const geometry3D::Point& p) {
    if (p == _position)
        return;
    _position = p;
    emit PositionChanged(this, _position);
}

void xQGLLight::direction(const vmp::Vector& d) {
    if (d == _direction)
        return;
    _direction = d;
    emit changed(this);
}

void xQGLLight::enabled(bool on) {
    if (on == _enabled)
        return;
    _enabled = on;
    emit changed(this);
}

QColor xQGLLight::diffuse() const { return basic::convert_to_qcolor(_diffuse); }
QColor xQGLLight::specular() const { return basic::convert_to_qcolor(_specular); }
QColor xQGLLight::ambient() const { return basic::convert_to_qcolor(_ambient); }
void xQGLLight::diffuse(const QColor& c) { set_colour(_diffuse, c); }
void xQGLLight::specular(const QColor& c) { set_colour(_specular, c); }
void xQGLLight::ambient(const QColor& c) { set_colour(_ambient, c); }

void xQGLLight::set_colour(basic::color3& field, const QColor& c) {
    const basic::color3 value = basic::convert_to_color3(c);
    if (same(value, field))
        return;
    field = value;
    emit changed(this);
}

void xQGLLight::gl_init() const {
    if (!_enabled) {
        glDisable(_gl_ID);
        return;
    }
    glEnable(_gl_ID);
    send_colour(_gl_ID, GL_DIFFUSE, _diffuse);
    send_colour(_gl_ID, GL_SPECULAR, _specular);
    send_colour(_gl_ID, GL_AMBIENT, _ambient);
}

void xQGLLight::gl_paint(const geometry3D::point& o) const {
    const GLfloat position[4] = {GLfloat(_position.x() - o.x), GLfloat(_position.y() - o.y),
                                 GLfloat(_position.z() - o.z), 1.0f};
    glLightfv(_gl_ID, GL_POSITION, position);
}

void xQGLLight::gl_draw_light_source(const geometry3D::point& o) const {
    if (!_enabled)
        return;
    glColor3f(_ambient.r, _ambient.g, _ambient.b);
    glPushMatrix();
    glTranslated(_position.x() - o.x, _position.y() - o.y, _position.z() - o.z);
    glPopMatrix();
}

} // namespace xqtgl
