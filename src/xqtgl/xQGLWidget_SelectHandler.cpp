#include "xqtgl/xQGLWidget_SelectHandler.h"

#include "xqtgl/xQGLWidget.h"
#include "xqtgl/xQGLWidget_OrbitHandler.h"

#include <QCoreApplication>
#include <QMouseEvent>

namespace xqtgl {

namespace {
constexpr double two_pi = 6.283185307179586;
}

xQGLWidget_SelectHandler::xQGLWidget_SelectHandler(xQGLWidget* widget) : xQGLWidget_MoveHandler(widget) {
    take_cursor();
}

void xQGLWidget_SelectHandler::mousePress(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        if (QWidget* menu = _widget->ContextWidget()) {
            menu->move(event->globalPos());
            menu->show();
        }
        emit_context_message(event->x(), event->y());
        return;
    }
    keep_press(event);
    _last_x = _press_x;
    _last_y = _press_y;
    if (_button == Qt::LeftButton) {
        grab_frame();
    } else if (_button == Qt::MiddleButton) {
        if (_modifiers & Qt::ShiftModifier) {
            _widget->setCursor(xQGLWidget_OrbitHandler::orbit_cursor());
        } else if (_modifiers & Qt::ControlModifier) {
            _widget->setCursor(Qt::CrossCursor);
        } else {
            pan_scale_from_pick(_press_x, _press_y);
            _widget->setCursor(Qt::SizeAllCursor);
        }
    }
}

void xQGLWidget_SelectHandler::mouseMove(QMouseEvent* event) {
    const int x = event->x(), y = event->y();
    _last_x = x;
    _last_y = y;
    if (_button == Qt::LeftButton) {
        if (beyond_click(x, y)) {
            _moved = true;
            show_over_frame([&](QPainter& painter) { draw_rubber_band(painter, x, y); });
        }
        return;
    }
    if (_button != Qt::MiddleButton)
        return;
    const double fx = this->fx(x), fy = this->fy(y);
    apply([&](xQGLCamera& c) {
        if (_modifiers & Qt::ShiftModifier) {
            c.rotate_z(-two_pi * fx);
            c.rotate_x(two_pi * fy);
        } else if (_modifiers & Qt::ControlModifier) {
            look_around(c, fx, fy);
        } else {
            pan(c, fx, fy);
        }
    });
}

void xQGLWidget_SelectHandler::mouseRelease(QMouseEvent* event) {
    drop_frame();
    QCoreApplication::processEvents();
    _widget->setCursor(cursor());
    _widget->fast_paint_status(false);
    _widget->ignore_repaint(false);
    if (_button == Qt::LeftButton)
        select(event);
    if (_button == Qt::LeftButton || _button == Qt::MiddleButton)
        _widget->repaint();
    clear_press();
    _moved = false;
}

void xQGLWidget_SelectHandler::select(QMouseEvent* release) {
    const bool control = _modifiers & Qt::ControlModifier;
    const bool single = _modifiers & Qt::ShiftModifier;
    if (!_moved) {
        _widget->SelectRegion(release->x() - 5, release->y() - 5, 10, 10, control ? 1 : 0, single, 0);
        return;
    }
    const int w = release->x() - _press_x, h = release->y() - _press_y;
    // Dragged towards the upper left: select what the band touches, else what it surrounds.
    const int kind = w < 0 && h < 0 ? 2 : 1;
    const QRect band = QRect(QPoint(_press_x, _press_y), release->pos()).normalized();
    _widget->SelectRegion(band.x(), band.y(), band.width(), band.height(), control ? 2 : 0, single, kind);
}

} // namespace xqtgl
