#include "xqtgl/xQGLWidget_MoveHandler.h"

#include "xqtgl/xQGLWidget.h"

#include <GL/gl.h>

#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>

namespace xqtgl {

xQGLWidget_MoveHandler::xQGLWidget_MoveHandler(xQGLWidget* widget) : xQGLWidget_Handler(widget) {}

xQGLWidget_MoveHandler::~xQGLWidget_MoveHandler() = default;

void xQGLWidget_MoveHandler::grab_frame() {
    _frame.reset();
    if (_widget->width() >= 32000 || _widget->height() >= 32000)
        return;
    _widget->makeCurrent();
    glReadBuffer(GL_FRONT);
    const QImage picture = _widget->grabFrameBuffer();
    if (picture.isNull()) {
        const basic::MessageService* service = _widget->MsgService() ? _widget->MsgService() : &_widget->messages();
        service->send_error(tr("There is not enough memory available."));
        return;
    }
    _frame = std::make_unique<QPixmap>(QPixmap::fromImage(picture));
}

void xQGLWidget_MoveHandler::show_over_frame(const std::function<void(QPainter&)>& drawing) {
    if (!_frame)
        return;
    _widget->ignore_repaint(true);
    QPixmap picture(*_frame);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing(painter);
    painter.end();
    QPainter on_widget(_widget);
    on_widget.drawPixmap(0, 0, picture);
}

void xQGLWidget_MoveHandler::drop_frame() {
    if (_frame)
        _widget->ignore_repaint(false);
    _frame.reset();
}

void xQGLWidget_MoveHandler::draw_rubber_band(QPainter& painter, int x, int y) const {
    painter.setPen(QPen(QColor(0, 80, 150, 255), 1));
    painter.setBrush(Qt::NoBrush);
    // Drawn twice, the second a pixel inside: a band two pixels wide stays visible over wires.
    const QRect band = QRect(QPoint(_press_x, _press_y), QPoint(x, y)).normalized();
    painter.drawRect(band);
    painter.drawRect(band.adjusted(1, 1, -1, -1));
}

void xQGLWidget_MoveHandler::keep_press(QMouseEvent* event) {
    _button = event->button();
    _modifiers = int(event->modifiers());
    _press_x = event->x();
    _press_y = event->y();
    _press_camera = _widget->camera();
    _moved = false;
}

double xQGLWidget_MoveHandler::fx(int x) const { return double(x - _press_x) / _widget->width(); }

double xQGLWidget_MoveHandler::fy(int y) const { return double(y - _press_y) / _widget->height(); }

bool xQGLWidget_MoveHandler::beyond_click(int x, int y) const {
    const int dx = x - _press_x;
    const int dy = y - _press_y;
    return dx * dx + dy * dy > 25;
}

void xQGLWidget_MoveHandler::apply(const std::function<void(xQGLCamera&)>& moves) {
    xQGLCamera c(_press_camera);
    moves(c);
    _widget->camera(c);
}

void xQGLWidget_MoveHandler::pan_scale_from_pick(int x, int y) {
    bool hit = false;
    geometry3D::point p = _widget->pick_point(x, y, &hit);
    if (!hit)
        p = _widget->PickPointOnBoundingBoxCenterPlane(x, y);
    _pan_scale = _widget->camera().eye().distance(geometry3D::Point(p));
}

void xQGLWidget_MoveHandler::pan(xQGLCamera& c, double fx, double fy) const {
    const bool ortho = c.projection() == orthographic;
    c.pan_left_right(-(ortho ? c.GetOrthoWidth() : _pan_scale) * fx);
    c.pan_up_down((ortho ? c.GetOrthoHeight() : _pan_scale) * fy);
}

void xQGLWidget_MoveHandler::look_around(xQGLCamera& c, double fx, double fy) {
    c.yaw(-10.0 * fx);
    c.pitch(10.0 * fy);
}

void xQGLWidget_MoveHandler::recentre(bool plane_fallback) {
    const int x = _widget->width() / 2, y = _widget->height() / 2;
    bool hit = false;
    geometry3D::point centre = _widget->pick_point(x, y, &hit);
    if (!hit && !plane_fallback) {
        _widget->update();
        return;
    }
    if (!hit)
        centre = _widget->PickPointOnBoundingBoxCenterPlane(x, y);
    xQGLCamera c(_widget->camera());
    c.lookat(geometry3D::Point(centre));
    _widget->camera(c);
}

void xQGLWidget_MoveHandler::look_at(xQGLCamera& c, const geometry3D::Point& p) {
    if (c.projection() == orthographic)
        c.eye(c.eye() + (p - c.lookat()));
    c.lookat(p);
}

} // namespace xqtgl
