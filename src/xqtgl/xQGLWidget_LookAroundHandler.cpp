#include "xqtgl/xQGLWidget_LookAroundHandler.h"

#include "xqtgl/xQGLWidget.h"

#include <QMouseEvent>

namespace xqtgl {

xQGLWidget_LookAroundHandler::xQGLWidget_LookAroundHandler(xQGLWidget* widget)
    : xQGLWidget_MoveHandler(widget) {
    take_cursor();
}

void xQGLWidget_LookAroundHandler::mousePress(QMouseEvent* event) {
    if (event->button() == Qt::RightButton)
        return;
    _widget->fast_paint_status(true);
    keep_press(event);
}

void xQGLWidget_LookAroundHandler::mouseMove(QMouseEvent* event) {
    const double fx = this->fx(event->x()), fy = this->fy(event->y());
    if (_button == Qt::LeftButton) {
        apply([&](xQGLCamera& c) { look_around(c, fx, fy); });
    } else if (_button == Qt::MiddleButton) {
        _widget->setCursor(Qt::SizeAllCursor);
        apply([&](xQGLCamera& c) {
            c.pan_left_right(-100.0 * fx);
            c.pan_up_down(100.0 * fy);
        });
    }
}

void xQGLWidget_LookAroundHandler::mouseRelease(QMouseEvent*) {
    _widget->fast_paint_status(false);
    clear_press();
    _widget->repaint();
    _widget->setCursor(cursor());
}

} // namespace xqtgl
