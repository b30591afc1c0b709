#pragma once

#include "xqtgl/xQGLWidget_MoveHandler.h"

namespace xqtgl {

/// Turns and tilts the view on the spot with the left button; the middle button slides it.
/// The wheel does nothing here, so a look around never changes the eye's distance.
class ZENTRA_EXPORT xQGLWidget_LookAroundHandler : public xQGLWidget_MoveHandler {
    Q_OBJECT
public:
    explicit xQGLWidget_LookAroundHandler(xQGLWidget* widget);

    QString name() const override { return "lookaround"; }
    QCursor cursor() const override { return QCursor(Qt::CrossCursor); }
    void mousePress(QMouseEvent* event) override;
    void mouseMove(QMouseEvent* event) override;
    void mouseRelease(QMouseEvent* event) override;
    void wheel(QWheelEvent*) override {}
};

} // namespace xqtgl
