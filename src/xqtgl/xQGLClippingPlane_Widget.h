#pragma once

#include "geometry/primitives.h"
#include "zentra_export.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class xQGLClippingPlane_Widget;
}

namespace xqtgl {

class xQGLWidget;
class xQGLWidget_Options;

/// The panel that cuts the view with an axis-aligned plane: on/off, six axis buttons (each axis
/// and its negative, which keeps the other half), a slider between a minimum and a maximum that
/// start as the scene box, and the position as a number. Every change reaches the view as one
/// assignment of edited options, so the view sees one change signal.
class ZENTRA_EXPORT xQGLClippingPlane_Widget : public QWidget {
    Q_OBJECT
public:
    explicit xQGLClippingPlane_Widget(QWidget* parent = nullptr);
    ~xQGLClippingPlane_Widget() override;

    xQGLWidget* widget() const { return _widget; }

public slots:
    /// Follows another view; null leaves the panel usable without effect.
    void widget(xqtgl::xQGLWidget* w);
    void options_changed(xqtgl::xQGLWidget_Options* options);
    /// The limits of the three axes become the box's.
    void boundingbox_changed(geometry3D::boundingbox box);
    void enable_clipping(bool on);
    /// Shows the view's plane: its axis, side, limits and position.
    void update_gui();
    /// Moves the plane of the checked axis to the slider's place.
    void slider_changed(int value);
    void change_slider(int value);
    void clipping_x(bool checked);
    void clipping_y(bool checked);
    void clipping_z(bool checked);
    void clipping_negx(bool checked);
    void clipping_negy(bool checked);
    void clipping_negz(bool checked);
    /// Writes the panel's state to the view: clipping on or off, the checked axis's plane.
    void update_options();
    void update_position();
    void reset_minmax();
    void update_minmax();

private:
    void clip_along(int axis, bool negative, bool checked);
    /// The checked axis (0, 1, 2) and whether its negative button is the one; -1 when none.
    int checked_axis(bool* negative) const;
    double position(int axis) const;
    double& min_of(int axis);
    double& max_of(int axis);
    void show_limits(int axis);
    /// Edits a copy of the view's options and assigns it back, without echo into the panel.
    void edit_options(const std::function<void(xQGLWidget_Options&)>& edit);

    std::unique_ptr<Ui::xQGLClippingPlane_Widget> _ui;
    QPointer<xQGLWidget> _widget;
    /// The slider's range per axis, in the order of a box: x min, y min, x max, y max, z min, z max.
    geometry3D::boundingbox _limits{0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    bool _updating = false;
};

} // namespace xqtgl
