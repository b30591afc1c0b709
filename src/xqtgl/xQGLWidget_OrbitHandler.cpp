#include "xqtgl/xQGLWidget_OrbitHandler.h"

#include "xqtgl/xQGLWidget.h"

#include <QMouseEvent>

namespace xqtgl {

namespace {
constexpr double two_pi = 6.283185307179586;
}

xQGLWidget_OrbitHandler::xQGLWidget_OrbitHandler(xQGLWidget* widget)
    : xQGLWidget_MoveHandler(widget) {
    take_cursor();
}

QCursor xQGLWidget_OrbitHandler::cursor() const { return orbit_cursor(); }

QCursor xQGLWidget_OrbitHandler::orbit_cursor() {
    static const QCursor orbit(QPixmap(":/cursors/resources/cursor_orbit.xpm"));
    return orbit;
}

void xQGLWidget_OrbitHandler::mousePress(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        emit_context_message(event->x(), event->y());
        return;
    }
    _widget->fast_paint_status(true);
    keep_press(event);
    _last_x = _press_x;
    _last_y = _press_y;
    if (_button == Qt::MiddleButton) {
        _widget->setCursor(Qt::SizeAllCursor);
        pan_scale_from_pick(_press_x, _press_y);
    }
}

void xQGLWidget_OrbitHandler::mouseMove(QMouseEvent* event) {
    const int x = event->x();
    const int y = event->y();
    if (xQGLWidget::RemoteSession()) {
        // Over a remote desktop every frame costs; repaint only after a real distance.
        const int dx = x - _last_x, dy = y - _last_y;
        if (dx * dx + dy * dy < xQGLWidget::RemoteFastDistance())
            return;
        _last_x = x;
        _last_y = y;
    }
    if (beyond_click(x, y))
        _moved = true;
    const double fx = this->fx(x), fy = this->fy(y);
    if (_button == Qt::LeftButton) {
        const bool look = _modifiers & Qt::ControlModifier;
        if (look)
            _widget->setCursor(Qt::CrossCursor);
        apply([&](xQGLCamera& c) {
            if (look) {
                look_around(c, fx, fy);
            } else {
                c.rotate_z(-two_pi * fx);
                c.rotate_x(two_pi * fy);
            }
        });
    } else if (_button == Qt::MiddleButton) {
        apply([&](xQGLCamera& c) { pan(c, fx, fy); });
    }
}

void xQGLWidget_OrbitHandler::mouseRelease(QMouseEvent* event) {
    _widget->fast_paint_status(false);
    const int button = _button;
    clear_press();
    if (button == 0)
        return;
    if (button == Qt::LeftButton && !_moved) {
        // A click: the point under the pointer becomes the centre of rotation.
        bool hit = false;
        geometry3D::point p = _widget->PickPointInsideBoundingBox(event->x(), event->y(), &hit);
        if (!hit)
            p = _widget->PickPointOnBoundingBoxCenterPlane(event->x(), event->y());
        xQGLCamera c(_widget->camera());
        look_at(c, geometry3D::Point(p));
        _widget->camera(c);
        return;
    }
    _moved = false;
    _widget->setCursor(cursor());
    if (button != Qt::RightButton)
        recentre(false);
}

} // namespace xqtgl
