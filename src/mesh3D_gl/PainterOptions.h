#pragma once

#include "zentra_export.h"

#include <QObject>

#include <tuple>

namespace mesh3D_gl {

/// The switches of the model painter's drawing. Setters ignore an equal value and emit `changed`
/// only on a real change; assigning a whole copy emits once if anything differed.
class ZENTRA_EXPORT PainterOptions : public QObject {
    Q_OBJECT
public:
    PainterOptions() = default;
    PainterOptions(const PainterOptions& other);
    PainterOptions& operator=(const PainterOptions& other);

    bool draw_normal_vectors() const { return _v.normal_vectors; }
    void draw_normal_vectors(bool on) { set(_v.normal_vectors, on); }
    bool draw_solid() const { return _v.solid; }
    void draw_solid(bool on) { set(_v.solid, on); }
    bool draw_wired() const { return _v.wired; }
    void draw_wired(bool on) { set(_v.wired, on); }
    /// Stored and offered; the drawing does not read it.
    bool drawContainers() const { return _v.containers; }
    void drawContainers(bool on) { set(_v.containers, on); }
    bool drawOBBs() const { return _v.obbs; }
    void drawOBBs(bool on) { set(_v.obbs, on); }
    bool drawHRefs() const { return _v.hrefs; }
    void drawHRefs(bool on) { set(_v.hrefs, on); }
    /// Draw negative objects (openings).
    bool DrawNegative() const { return _v.negative; }
    void DrawNegative(bool on) { set(_v.negative, on); }
    bool drawOOBBxy() const { return _v.oobb_xy; }
    void drawOOBBxy(bool on) { set(_v.oobb_xy, on); }
    bool DrawTessellationOfSelectedElements() const { return _v.tessellation_selected; }
    void DrawTessellationOfSelectedElements(bool on) { set(_v.tessellation_selected, on); }
    bool DrawTessellationOfAllElements() const { return _v.tessellation_all; }
    void DrawTessellationOfAllElements(bool on) { set(_v.tessellation_all, on); }
    bool DrawLocalOrigin() const { return _v.local_origin; }
    void DrawLocalOrigin(bool on) { set(_v.local_origin, on); }
    /// Every n-th triangle and polygon shows its wire edges.
    int WiredLinesStep() const { return _v.wired_lines_step; }
    void WiredLinesStep(int step) { set(_v.wired_lines_step, step); }
    /// Half the edge of the cube that shows a point object.
    double PointSize() const { return _v.point_size; }
    void PointSize(double size) { set(_v.point_size, size); }
    /// The largest texture edge in pixels; larger pictures are scaled down.
    int TextureSize() const { return _v.texture_size; }
    void TextureSize(int pixels) { set(_v.texture_size, pixels); }

signals:
    void changed(mesh3D_gl::PainterOptions*);

private:
    struct Values {
        bool normal_vectors = false;
        bool solid = true;
        bool wired = true;
        bool containers = false;
        bool obbs = false;
        bool hrefs = false;
        bool negative = false;
        bool oobb_xy = false;
        bool tessellation_selected = false;
        bool tessellation_all = false;
        bool local_origin = false;
        int wired_lines_step = 1;
        double point_size = 0.05;
        int texture_size = 1000;

        auto tied() const {
            return std::tie(normal_vectors, solid, wired, containers, obbs, hrefs, negative, oobb_xy,
                            tessellation_selected, tessellation_all, local_origin, wired_lines_step, point_size,
                            texture_size);
        }
    };

    template <typename T>
    void set(T& field, T value) {
        if (field == value)
            return;
        field = value;
        emit changed(this);
    }

    Values _v;
};

} // namespace mesh3D_gl
