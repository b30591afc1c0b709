#pragma once

#include "xqtgl/xQGLWidget_MoveHandler.h"

namespace xqtgl {

/// Slides the view with the left or middle button; with Ctrl it looks around.
class ZENTRA_EXPORT xQGLWidget_PanHandler : public xQGLWidget_MoveHandler {
    Q_OBJECT
public:
    explicit xQGLWidget_PanHandler(xQGLWidget* widget);

    QString name() const override { return "pan"; }
    QCursor cursor() const override { return QCursor(Qt::SizeAllCursor); }
    void mousePress(QMouseEvent* event) override;
    void mouseMove(QMouseEvent* event) override;
    void mouseRelease(QMouseEvent* event) override;
};

} // namespace xqtgl
