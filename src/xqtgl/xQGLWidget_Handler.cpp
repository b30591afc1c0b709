#include "xqtgl/xQGLWidget_Handler.h"

#include "xqtgl/xQGLWidget.h"

#include <QMouseEvent>

namespace xqtgl {

xQGLWidget_Handler::xQGLWidget_Handler(xQGLWidget* widget) : _widget(widget) {
    _widget->installEventFilter(this);
}

xQGLWidget_Handler::~xQGLWidget_Handler() {
    _widget->removeEventFilter(this);
    _widget->setCursor(_old_cursor);
}

void xQGLWidget_Handler::take_cursor() {
    _old_cursor = _widget->cursor();
    _widget->setCursor(cursor());
}

void xQGLWidget_Handler::clear_press() {
    _button = 0;
    _modifiers = 0;
}

void xQGLWidget_Handler::emit_context_message(int x, int y) {
    const QString id = _widget->PickObjectID(x, y);
    if (!id.isEmpty())
        _widget->EmitContextMessage(id);
}

bool xQGLWidget_Handler::reset() { return false; }
QCursor xQGLWidget_Handler::cursor() const { return QCursor(Qt::ArrowCursor); }
void xQGLWidget_Handler::mousePress(QMouseEvent*) {}
void xQGLWidget_Handler::mouseRelease(QMouseEvent*) {}
void xQGLWidget_Handler::mouseMove(QMouseEvent*) {}
void xQGLWidget_Handler::keyPress(QKeyEvent*) {}
void xQGLWidget_Handler::keyRelease(QKeyEvent*) {}
void xQGLWidget_Handler::resizeEvent(QResizeEvent*) {}

void xQGLWidget_Handler::wheel(QWheelEvent* event) {
    if (_button != 0)
        return;
    xQGLCamera c(_widget->camera());
    c.zoom(event->angleDelta().y() / 600.0);
    _widget->camera(c);
}

bool xQGLWidget_Handler::eventFilter(QObject* object, QEvent* event) {
    if (object != _widget)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress: mousePress(static_cast<QMouseEvent*>(event)); break;
    case QEvent::MouseButtonRelease: mouseRelease(static_cast<QMouseEvent*>(event)); break;
    case QEvent::MouseMove: mouseMove(static_cast<QMouseEvent*>(event)); break;
    case QEvent::KeyPress: keyPress(static_cast<QKeyEvent*>(event)); break;
    case QEvent::KeyRelease: keyRelease(static_cast<QKeyEvent*>(event)); break;
    case QEvent::Resize: resizeEvent(static_cast<QResizeEvent*>(event)); break;
    case QEvent::Wheel: wheel(static_cast<QWheelEvent*>(event)); break;
    default: break;
    }
    return false;
}

} // namespace xqtgl
