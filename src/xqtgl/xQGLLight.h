#pragma once

#include "basic/color.h"
#include "geometry/Point.h"
#include "xqtgl/xQGLMetaTypes.h"
#include "vmp/Vector.h"
#include "zentra_export.h"

#include <QColor>
#include <QObject>

namespace xqtgl {

/// One OpenGL light of the view. Every light is positional; its direction is kept and compared
/// but never sent. The options object of the view owns six of them.
class ZENTRA_EXPORT xQGLLight : public QObject {
    Q_OBJECT
public:
    explicit xQGLLight(unsigned int gl_id = 0);
    xQGLLight(const xQGLLight& other);
    /// Copies what differs; a new position emits `PositionChanged`, anything else `changed`.
    xQGLLight& operator=(const xQGLLight& other);
    /// Compares position, light number, enabled flag and colours, not the direction.
    bool operator==(const xQGLLight& other) const;
    bool operator!=(const xQGLLight& other) const { return !(*this == other); }

    unsigned int gl_ID() const { return _gl_ID; }
    void gl_ID(unsigned int id);
    const geometry3D::Point& position() const { return _position; }
    /// Emits `PositionChanged`, not `changed`.
    void position(const geometry3D::Point& p);
    const vmp::Vector& direction() const { return _direction; }
    void direction(const vmp::Vector& d);
    bool enabled() const { return _enabled; }
    void enabled(bool on);
    QColor diffuse() const;
    void diffuse(const QColor& c);
    QColor specular() const;
    void specular(const QColor& c);
    QColor ambient() const;
    void ambient(const QColor& c);

    /// Enables the light with its colours, or disables it.
    void gl_init() const;
    /// Sends the position, less the view's render origin, in the current modelview frame.
    void gl_paint(const geometry3D::point& render_origin = {0.0, 0.0, 0.0}) const;
    /// Sets the ambient colour at the light's place; no geometry is drawn.
    void gl_draw_light_source(const geometry3D::point& render_origin = {0.0, 0.0, 0.0}) const;

signals:
    void changed(xqtgl::xQGLLight*);
    void PositionChanged(xqtgl::xQGLLight*, const geometry3D::Point&);

private:
    void set_colour(basic::color3& field, const QColor& c);

    unsigned int _gl_ID;
    geometry3D::Point _position;
    vmp::Vector _direction{0.0, 0.0, 0.0};
    bool _enabled = false;
    basic::color3 _diffuse{0.9f, 0.9f, 0.9f};
    basic::color3 _specular{0.1f, 0.1f, 0.1f};
    basic::color3 _ambient{0.3f, 0.3f, 0.3f};
};

} // namespace xqtgl
