#pragma once

#include "xqtgl/xQGLWidget_MoveHandler.h"

namespace xqtgl {

/// Selects with the pointer. A left click selects what lies under it (Ctrl toggles it), a left
/// drag draws a rubber band and selects what lies wholly inside (Ctrl adds), a drag towards the
/// upper left what it touches; Shift picks single parts instead of whole composites. The middle
/// button pans (Shift orbits, Ctrl looks around); the right button asks for the context menu.
class ZENTRA_EXPORT xQGLWidget_SelectHandler : public xQGLWidget_MoveHandler {
    Q_OBJECT
public:
    explicit xQGLWidget_SelectHandler(xQGLWidget* widget);

    QString name() const override { return "select"; }
    QCursor cursor() const override { return QCursor(Qt::PointingHandCursor); }
    void mousePress(QMouseEvent* event) override;
    void mouseMove(QMouseEvent* event) override;
    void mouseRelease(QMouseEvent* event) override;

private:
    void select(QMouseEvent* release);

    int _last_x = 0;
    int _last_y = 0;
};

} // namespace xqtgl
