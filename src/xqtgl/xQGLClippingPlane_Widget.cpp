#include "xqtgl/xQGLClippingPlane_Widget.h"

#include "geometry/Plane.h"
#include "ui_xQGLClippingPlane_Widget.h"
#include "xqtgl/xQGLWidget.h"

#include <QPushButton>

#include <cmath>
#include <cstdio>

namespace xqtgl {

namespace {
QString three_decimals(double v) { return QString::asprintf("%.3f", v); }
} // namespace

xQGLClippingPlane_Widget::xQGLClippingPlane_Widget(QWidget* parent)
    : QWidget(parent), _ui(std::make_unique<Ui::xQGLClippingPlane_Widget>()) {
    _ui->setupUi(this);
    connect(_ui->pushButton_onoff, &QPushButton::clicked, this, &xQGLClippingPlane_Widget::enable_clipping);
    connect(_ui->pushButton_x, &QPushButton::clicked, this, &xQGLClippingPlane_Widget::clipping_x);
    connect(_ui->pushButton_y, &QPushButton::clicked, this, &xQGLClippingPlane_Widget::clipping_y);
    connect(_ui->pushButton_z, &QPushButton::clicked, this, &xQGLClippingPlane_Widget::clipping_z);
    connect(_ui->pushButton_negx, &QPushButton::clicked, this, &xQGLClippingPlane_Widget::clipping_negx);
    connect(_ui->pushButton_negy, &QPushButton::clicked, this, &xQGLClippingPlane_Widget::clipping_negy);
    connect(_ui->pushButton_negz, &QPushButton::clicked, this, &xQGLClippingPlane_Widget::clipping_negz);
    connect(_ui->slider_position, &QSlider::valueChanged, this, &xQGLClippingPlane_Widget::slider_changed);
    connect(_ui->lineEdit_position, &QLineEdit::returnPressed, this, &xQGLClippingPlane_Widget::update_position);
    connect(_ui->lineEdit_min, &QLineEdit::returnPressed, this, &xQGLClippingPlane_Widget::update_minmax);
    connect(_ui->lineEdit_max, &QLineEdit::returnPressed, this, &xQGLClippingPlane_Widget::update_minmax);
    connect(_ui->pushButton_reset_to_boundingbox, &QPushButton::clicked, this,
            &xQGLClippingPlane_Widget::reset_minmax);
}

xQGLClippingPlane_Widget::~xQGLClippingPlane_Widget() = default;

void xQGLClippingPlane_Widget::widget(xQGLWidget* w) {
    if (_widget) {
        disconnect(&_widget->options(), nullptr, this, nullptr);
        disconnect(_widget, &xQGLWidget::boundingbox_changed, this, nullptr);
    }
    _widget = w;
    if (!w)
        return;
    connect(&w->options(), &xQGLWidget_Options::changed, this, &xQGLClippingPlane_Widget::options_changed);
    connect(w, &xQGLWidget::boundingbox_changed, this, &xQGLClippingPlane_Widget::boundingbox_changed);
    boundingbox_changed(w->boundingbox());
}

void xQGLClippingPlane_Widget::options_changed(xQGLWidget_Options*) {
    if (!_updating)
        update_gui();
}

void xQGLClippingPlane_Widget::boundingbox_changed(geometry3D::boundingbox box) {
    _limits = box;
    update_gui();
}

double& xQGLClippingPlane_Widget::min_of(int axis) {
    return axis == 0 ? _limits.xmin : axis == 1 ? _limits.ymin : _limits.zmin;
}

double& xQGLClippingPlane_Widget::max_of(int axis) {
    return axis == 0 ? _limits.xmax : axis == 1 ? _limits.ymax : _limits.zmax;
}

int xQGLClippingPlane_Widget::checked_axis(bool* negative) const {
    const QPushButton* buttons[3][2] = {{_ui->pushButton_x, _ui->pushButton_negx},
                                        {_ui->pushButton_y, _ui->pushButton_negy},
                                        {_ui->pushButton_z, _ui->pushButton_negz}};
    for (int axis = 0; axis < 3; ++axis)
        for (int side = 0; side < 2; ++side)
            if (buttons[axis][side]->isChecked()) {
                *negative = side == 1;
                return axis;
            }
    return -1;
}

double xQGLClippingPlane_Widget::position(int axis) const {
    const double s = _ui->slider_position->value() / 100.0;
    auto& self = const_cast<xQGLClippingPlane_Widget&>(*this);
    return (1.0 - s) * self.min_of(axis) + s * self.max_of(axis);
}

void xQGLClippingPlane_Widget::show_limits(int axis) {
    _ui->lineEdit_min->setText(three_decimals(min_of(axis)));
    _ui->lineEdit_max->setText(three_decimals(max_of(axis)));
}

void xQGLClippingPlane_Widget::edit_options(const std::function<void(xQGLWidget_Options&)>& edit) {
    xQGLWidget_Options copy(_widget->options());
    edit(copy);
    _updating = true;
    _widget->options(copy);
    _updating = false;
}

void xQGLClippingPlane_Widget::enable_clipping(bool on) {
    if (!_widget) {
        update_options();
        return;
    }
    edit_options([on](xQGLWidget_Options& o) { o.plane_clipping_enabled(on); });
    _widget->update();
}

void xQGLClippingPlane_Widget::clip_along(int axis, bool negative, bool checked) {
    if (_updating || !_widget || !checked)
        return;
    const double v = position(axis);
    show_limits(axis);
    _ui->lineEdit_position->setText(three_decimals(v));
    vmp::Vector normal(0.0, 0.0, 0.0);
    normal[axis] = negative ? -1.0 : 1.0;
    edit_options([&](xQGLWidget_Options& o) { o.clipping_plane(geometry3D::Plane(normal, negative ? -v : v)); });
    _widget->update();
}

void xQGLClippingPlane_Widget::clipping_x(bool checked) { clip_along(0, false, checked); }
void xQGLClippingPlane_Widget::clipping_y(bool checked) { clip_along(1, false, checked); }
void xQGLClippingPlane_Widget::clipping_z(bool checked) { clip_along(2, false, checked); }
void xQGLClippingPlane_Widget::clipping_negx(bool checked) { clip_along(0, true, checked); }
void xQGLClippingPlane_Widget::clipping_negy(bool checked) { clip_along(1, true, checked); }
void xQGLClippingPlane_Widget::clipping_negz(bool checked) { clip_along(2, true, checked); }

void xQGLClippingPlane_Widget::slider_changed(int) {
    bool negative = false;
    const int axis = checked_axis(&negative);
    if (_updating || !_widget || axis < 0)
        return;
    const double v = position(axis);
    _ui->lineEdit_position->setText(three_decimals(v));
    edit_options([&](xQGLWidget_Options& o) {
        geometry3D::Plane plane(o.clipping_plane());
        plane.set(plane.n()[0], plane.n()[1], plane.n()[2], negative ? -v : v);
        o.clipping_plane(plane);
    });
    _widget->update();
}

void xQGLClippingPlane_Widget::change_slider(int value) { _ui->slider_position->setValue(value); }

void xQGLClippingPlane_Widget::update_options() {
    if (!_widget) {
        std::printf("xQGLClippingPlane_Widget::update_options(): no gl widget set!!\n");
        return;
    }
    bool negative = false;
    const int axis = checked_axis(&negative);
    const bool on = _ui->pushButton_onoff->isChecked();
    edit_options([&](xQGLWidget_Options& o) {
        o.plane_clipping_enabled(on);
        if (axis >= 0) {
            vmp::Vector normal(0.0, 0.0, 0.0);
            normal[axis] = negative ? -1.0 : 1.0;
            const double v = position(axis);
            o.clipping_plane(geometry3D::Plane(normal, negative ? -v : v));
        }
    });
}

void xQGLClippingPlane_Widget::update_position() {
    bool negative = false;
    const int axis = checked_axis(&negative);
    if (axis < 0 || max_of(axis) == min_of(axis))
        return;
    const double value = _ui->lineEdit_position->text().toDouble();
    _ui->slider_position->setValue(int(std::lround((value - min_of(axis)) / (max_of(axis) - min_of(axis)) * 100.0)));
}

void xQGLClippingPlane_Widget::reset_minmax() {
    if (_widget)
        _limits = _widget->boundingbox();
    update_gui();
}

void xQGLClippingPlane_Widget::update_minmax() {
    bool negative = false;
    const int axis = checked_axis(&negative);
    if (_updating || axis < 0)
        return;
    // The plane stays where it is; the slider moves to its place within the new limits.
    const double v = position(axis);
    min_of(axis) = _ui->lineEdit_min->text().toDouble();
    max_of(axis) = _ui->lineEdit_max->text().toDouble();
    if (max_of(axis) == min_of(axis))
        return;
    _updating = true;
    _ui->slider_position->setValue(int(std::lround((v - min_of(axis)) / (max_of(axis) - min_of(axis)) * 100.0)));
    _updating = false;
}

void xQGLClippingPlane_Widget::update_gui() {
    if (!_widget) {
        _updating = false;
        return;
    }
    _updating = true;
    const xQGLWidget_Options options(_widget->options());
    _ui->pushButton_onoff->setChecked(options.plane_clipping_enabled());
    const geometry3D::Plane& plane = options.clipping_plane();
    QPushButton* buttons[3][2] = {{_ui->pushButton_x, _ui->pushButton_negx},
                                  {_ui->pushButton_y, _ui->pushButton_negy},
                                  {_ui->pushButton_z, _ui->pushButton_negz}};
    // X, then Y, then Z: of an oblique normal the last axis with a share names the plane.
    int axis = -1;
    for (int a = 0; a < 3; ++a)
        if (plane.n()[a] != 0.0)
            axis = a;
    if (axis >= 0) {
        const bool negative = plane.n()[axis] < 0.0;
        buttons[axis][negative ? 1 : 0]->setChecked(true);
        show_limits(axis);
        const double v = negative ? -plane.d() : plane.d();
        const double span = max_of(axis) - min_of(axis);
        if (span != 0.0)
            _ui->slider_position->setValue(int(std::lround((v - min_of(axis)) / span * 100.0)));
        _ui->lineEdit_position->setText(three_decimals(v));
    }
    _updating = false;
}

} // namespace xqtgl
