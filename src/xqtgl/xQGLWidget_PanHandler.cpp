#include "xqtgl/xQGLWidget_PanHandler.h"

#include "xqtgl/xQGLWidget.h"

#include <QMouseEvent>

namespace xqtgl {

xQGLWidget_PanHandler::xQGLWidget_PanHandler(xQGLWidget* widget) : xQGLWidget_MoveHandler(widget) {
    take_cursor();
}

void xQGLWidget_PanHandler::mousePress(QMouseEvent* event) {
    if (event->button() == Qt::RightButton)
        return;
    _widget->fast_paint_status(true);
    keep_press(event);
    pan_scale_from_pick(_press_x, _press_y);
}

void xQGLWidget_PanHandler::mouseMove(QMouseEvent* event) {
    if (_button != Qt::LeftButton && _button != Qt::MiddleButton)
        return;
    const double fx = this->fx(event->x()), fy = this->fy(event->y());
    const bool look = _modifiers & Qt::ControlModifier;
    apply([&](xQGLCamera& c) { look ? look_around(c, fx, fy) : pan(c, fx, fy); });
}

void xQGLWidget_PanHandler::mouseRelease(QMouseEvent*) {
    _widget->fast_paint_status(false);
    const bool pressed = _button != 0;
    clear_press();
    if (!pressed)
        return;
    recentre(true);
    _widget->repaint();
    _widget->setCursor(cursor());
}

} // namespace xqtgl
