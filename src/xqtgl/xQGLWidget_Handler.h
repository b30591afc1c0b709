#pragma once

#include "zentra_export.h"

#include <QCursor>
#include <QObject>
#include <QString>

class QKeyEvent;
class QMouseEvent;
class QResizeEvent;
class QWheelEvent;

namespace basic {
class MessageService;
}

namespace xqtgl {

class xQGLWidget;

/// Base of the navigation handlers. Exactly one handler at a time receives the view's mouse,
/// key and wheel events: it installs itself as an event filter on the widget and observes the
/// events without swallowing them. It takes the widget's cursor on creation and gives the old
/// one back when deleted.
class ZENTRA_EXPORT xQGLWidget_Handler : public QObject {
    Q_OBJECT
public:
    explicit xQGLWidget_Handler(xQGLWidget* widget);
    ~xQGLWidget_Handler() override;

    /// The navigation mode this handler stands for ("orbit", "pan", ...).
    virtual QString name() const = 0;
    /// Drops a half-taken input; false when there was nothing to drop.
    virtual bool reset();
    virtual QCursor cursor() const;
    virtual void mousePress(QMouseEvent* event);
    virtual void mouseRelease(QMouseEvent* event);
    virtual void mouseMove(QMouseEvent* event);
    virtual void keyPress(QKeyEvent* event);
    virtual void keyRelease(QKeyEvent* event);
    virtual void resizeEvent(QResizeEvent* event);
    /// With no button held, zooms the camera by delta / 600: one wheel step of 120 is 0.2.
    virtual void wheel(QWheelEvent* event);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    /// Keeps the widget's cursor and shows this handler's; subclasses call it once constructed.
    void take_cursor();
    /// Clears button and modifiers of the press.
    void clear_press();
    /// Tells the host which object lies under (x, y), for its context menu.
    void emit_context_message(int x, int y);

    xQGLWidget* _widget;
    int _press_x = 0;
    int _press_y = 0;
    int _button = 0;
    int _modifiers = 0;
    double _pan_scale = 0.0;
    QCursor _old_cursor;
    basic::MessageService* _message_service = nullptr;
    bool _moved = false;
    bool _pressed = false;
};

} // namespace xqtgl
