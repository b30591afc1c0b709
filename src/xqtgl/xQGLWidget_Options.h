#pragma once

#include "basic/color.h"
#include "basic/unit.h"
#include "geometry/Plane.h"
#include "geometry/primitives.h"
#include "xqtgl/xQGLLight.h"
#include "zentra_export.h"

#include <QObject>
#include <QVector>

namespace xqtgl {

/// What the view draws of its own: grid, origin, bounding box, background, the six lights, the
/// clipping plane and the measuring defaults. Setters ignore an equal value and emit `changed`
/// only on a real change; panels edit a copy and assign it back, which gives one signal.
class ZENTRA_EXPORT xQGLWidget_Options : public QObject {
    Q_OBJECT
public:
    static constexpr int light_count = 6;

    xQGLWidget_Options();
    xQGLWidget_Options(const xQGLWidget_Options& other);
    /// Copies every field and emits `changed`; a change of the measure flag emits once more.
    xQGLWidget_Options& operator=(const xQGLWidget_Options& other);

    const geometry3D::boundingbox& grid_boundingbox() const { return _grid_boundingbox; }
    void grid_boundingbox(const geometry3D::boundingbox& box);
    bool plane_clipping_enabled() const { return _plane_clipping_enabled; }
    void plane_clipping_enabled(bool on);
    const geometry3D::Plane& clipping_plane() const { return _clipping_plane; }
    /// Ignored when `equal` to the stored plane.
    void clipping_plane(const geometry3D::Plane& p);
    bool draw_boundingbox() const { return _draw_boundingbox; }
    void draw_boundingbox(bool on);
    bool origin_lighting() const { return _origin_lighting; }
    void origin_lighting(bool on);
    bool draw_grid() const { return _draw_grid; }
    void draw_grid(bool on);
    bool draw_origin() const { return _draw_origin; }
    void draw_origin(bool on);
    double grid_distance() const { return _grid_distance; }
    void grid_distance(double d);
    const basic::color3& background_color() const { return _background_color; }
    void background_color(const basic::color3& c);
    const xQGLLight& light(int i) const { return _lights[i]; }
    /// Ignored for an index of 6 or more and for an equal light.
    void light(int i, const xQGLLight& l);
    bool draw_light(int i) const { return _draw_light[i]; }
    void draw_light(int i, bool on);
    bool show_framerate() const { return _show_framerate; }
    void show_framerate(bool on);

    /// Stores unit and decimals and marks them as set, without a signal.
    void SetMeasureOptions(basic::unit u, int decimals);
    void GetMeasureOptions(basic::unit& u, int& decimals) const;
    bool GetMeasureOptionsAreSet() const { return _measure_options_set; }

    /// True when `Plane::operator==` holds and the normalised normals differ by at most 1e-05.
    static bool equal(const geometry3D::Plane& a, const geometry3D::Plane& b);

signals:
    void changed(xqtgl::xQGLWidget_Options*);

private:
    template <typename T>
    void set(T& field, const T& value);

    geometry3D::boundingbox _grid_boundingbox;
    bool _plane_clipping_enabled = false;
    geometry3D::Plane _clipping_plane;
    bool _draw_boundingbox = false;
    bool _origin_lighting = true;
    bool _draw_grid = true;
    bool _draw_origin = true;
    double _grid_distance = 1.0;
    basic::color3 _background_color{1.0f, 1.0f, 1.0f};
    QVector<xQGLLight> _lights;
    bool _draw_light[light_count] = {false, false, false, false, false, false};
    bool _show_framerate = false;
    basic::unit _measure_unit = basic::unit_m;
    int _measure_decimals = 2;
    bool _measure_options_set = false;
};

} // namespace xqtgl
