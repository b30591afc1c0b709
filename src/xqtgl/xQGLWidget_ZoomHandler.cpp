#include "xqtgl/xQGLWidget_ZoomHandler.h"

#include "xqtgl/xQGLWidget.h"

#include <QMouseEvent>
#include <QPainter>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace xqtgl {

xQGLWidget_ZoomHandler::xQGLWidget_ZoomHandler(xQGLWidget* widget) : xQGLWidget_MoveHandler(widget) {
    take_cursor();
}

QCursor xQGLWidget_ZoomHandler::cursor() const {
    static const QCursor lupe(QPixmap(":/cursors/resources/cursor_lupe.xpm"), 7, 7);
    return lupe;
}

void xQGLWidget_ZoomHandler::mousePress(QMouseEvent* event) {
    if (event->button() == Qt::RightButton)
        return;
    keep_press(event);
    _pressed = true;
    if (_button == Qt::LeftButton) {
        grab_frame();
        // The target is what lay under the pointer at the press, read from this frame's depths
        // before the lens is painted over the frame.
        _press_point = geometry3D::Point(_widget->pick_point(_press_x, _press_y, &_press_hit));
    } else if (_button == Qt::MiddleButton) {
        pan_scale_from_pick(_press_x, _press_y);
        _widget->setCursor(Qt::SizeAllCursor);
    }
}

void xQGLWidget_ZoomHandler::mouseMove(QMouseEvent* event) {
    if (!_pressed)
        return;
    const int x = event->x(), y = event->y();
    const double fx = this->fx(x), fy = this->fy(y);
    if (_button == Qt::LeftButton && (_modifiers & Qt::ControlModifier)) {
        apply([&](xQGLCamera& c) { look_around(c, fx, fy); });
    } else if (_button == Qt::LeftButton) {
        if (beyond_click(x, y)) {
            _moved = true;
            draw_lens(x, y);
        }
    } else if (_button == Qt::MiddleButton) {
        apply([&](xQGLCamera& c) { pan(c, fx, fy); });
    }
}

void xQGLWidget_ZoomHandler::draw_lens(int x, int y) {
    show_over_frame([&](QPainter& painter) {
        if (xQGLWidget::RemoteSession() && xQGLWidget::RemoteZoomRect()) {
            draw_rubber_band(painter, x, y);
            return;
        }
        const double radius = std::hypot(x - _press_x, y - _press_y);
        QRadialGradient lens(QPointF(_press_x, _press_y), radius);
        lens.setColorAt(0.0, QColor(255, 255, 255, 191));
        lens.setColorAt(0.2, QColor(255, 255, 127, 191));
        lens.setColorAt(0.9, QColor(150, 150, 200, 63));
        lens.setColorAt(0.95, QColor(0, 0, 0, 127));
        lens.setColorAt(1.0, QColor(0, 0, 0, 0));
        painter.setPen(Qt::NoPen);
        painter.setBrush(lens);
        painter.drawEllipse(QPointF(_press_x, _press_y), radius, radius);
    });
}

void xQGLWidget_ZoomHandler::mouseRelease(QMouseEvent* event) {
    drop_frame();
    if (_modifiers & Qt::ControlModifier) {
        finish();
        return;
    }
    if (_button == Qt::LeftButton && !_press_hit) {
        // Nothing to zoom to: no move and no repaint. The button is up, so the press is
        // forgotten too, or the next wheel step would count as one during a drag.
        clear_press();
        _pressed = false;
        _widget->setCursor(cursor());
        return;
    }
    if (_button == Qt::LeftButton)
        zoom_to(event->x(), event->y(), event->modifiers() & Qt::ShiftModifier);
    finish();
}

void xQGLWidget_ZoomHandler::zoom_to(int release_x, int release_y, bool shift) {
    const geometry3D::Point& p = _press_point;
    if (_moved) {
        // A small drag zooms far in, a drag over the whole view not at all.
        const double f = std::max(std::fabs(fx(release_x)), std::fabs(fy(release_y)));
        apply([&](xQGLCamera& c) {
            look_at(c, p);
            c.zoom(1.0 - f);
        });
        return;
    }
    const double z = shift ? -0.06 : 0.06;
    xQGLCamera c(_widget->camera());
    if (c.projection() == orthographic) {
        look_at(c, p);
        c.zoom(z);
        _widget->camera(c);
        return;
    }
    // Perspective: an animated step, the look-at gliding to the point while the eye closes in.
    const geometry3D::Point from = c.lookat();
    for (int step = 0; step <= 10; ++step) {
        const double t = step / 10.0;
        c.lookat(from * (1.0 - t) + p * t);
        c.zoom(z);
        _widget->camera(c);
    }
}

void xQGLWidget_ZoomHandler::finish() {
    clear_press();
    _pressed = false;
    _moved = false;
    _widget->ignore_repaint(false);
    _widget->setCursor(cursor());
}

} // namespace xqtgl
