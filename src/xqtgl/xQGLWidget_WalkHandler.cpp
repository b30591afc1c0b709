#include "xqtgl/xQGLWidget_WalkHandler.h"

#include "xqtgl/xQGLWidget.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointer>

#include <cmath>

namespace xqtgl {

xQGLWidget_WalkHandler::xQGLWidget_WalkHandler(xQGLWidget* widget) : xQGLWidget_MoveHandler(widget) {
    take_cursor();
}

QCursor xQGLWidget_WalkHandler::cursor() const {
    static const QCursor walk(QPixmap(":/cursors/resources/cursor_walk.xpm"));
    return walk;
}

void xQGLWidget_WalkHandler::mousePress(QMouseEvent* event) {
    keep_press(event);
    if (xQGLWidget::RemoteSession())
        _widget->fast_paint_status(true);
    _last_x = _press_x;
    _last_y = _press_y;
    if (_button == Qt::LeftButton) {
        _walking = true;
        _speed = 0.0;
        _turn = 0.0;
        walk();
    } else if (_button == Qt::MiddleButton) {
        bool hit = false;
        const geometry3D::point p = _widget->pick_point(_press_x, _press_y, &hit);
        _pan_scale = hit ? _widget->camera().eye().distance(geometry3D::Point(p)) : 0.0;
        if (hit)
            _widget->setCursor(Qt::SizeAllCursor);
    }
}

void xQGLWidget_WalkHandler::walk() {
    // Moves and the release arrive through processEvents; a mode change may even delete this
    // handler meanwhile, which ends the loop without touching it again.
    QPointer<xQGLWidget_WalkHandler> self(this);
    while (self && _walking) {
        xQGLCamera c(_widget->camera());
        c.move_horizontal(_speed);
        c.yaw(_turn);
        _widget->camera(c);
        // Standing still nothing repaints, so the loop would spin a core: wait for the pointer.
        const bool standing = _speed == 0.0 && _turn == 0.0;
        QCoreApplication::processEvents(standing ? QEventLoop::WaitForMoreEvents : QEventLoop::AllEvents);
    }
}

void xQGLWidget_WalkHandler::mouseMove(QMouseEvent* event) {
    const int x = event->x(), y = event->y();
    if (_button == Qt::LeftButton) {
        if (_modifiers & Qt::ControlModifier) {
            _widget->setCursor(Qt::CrossCursor);
            xQGLCamera c(_widget->camera());
            look_around(c, double(x - _last_x) / _widget->width(), double(y - _last_y) / _widget->height());
            _widget->camera(c);
        } else {
            const double dx = x - _press_x, dy = y - _press_y;
            _speed = -std::trunc(dy * std::fabs(dy)) / 50000.0;
            _turn = -std::trunc(dx * std::fabs(dx)) / 3000000.0;
        }
    } else if (_button == Qt::MiddleButton) {
        const double fx = this->fx(x), fy = this->fy(y);
        apply([&](xQGLCamera& c) { pan(c, fx, fy); });
    }
    _last_x = x;
    _last_y = y;
}

void xQGLWidget_WalkHandler::mouseRelease(QMouseEvent*) {
    if (xQGLWidget::RemoteSession())
        _widget->fast_paint_status(false);
    _walking = false;
    clear_press();
    _widget->repaint();
    _widget->setCursor(cursor());
}

void xQGLWidget_WalkHandler::wheel(QWheelEvent* event) {
    xQGLCamera c(_widget->camera());
    c.pitch(event->angleDelta().y() / 1680.0);
    _widget->camera(c);
}

} // namespace xqtgl
