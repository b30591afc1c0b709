#pragma once

#include "xqtgl/xQGLWidget_MoveHandler.h"

namespace xqtgl {

/// Walks through the model: while the left button is held a loop moves the camera every frame,
/// forward by the pointer's travel up and turning by its travel sideways, both growing with the
/// square of the travel so that small movements give fine control. Ctrl looks around; the
/// middle button slides; the wheel tilts the view.
class ZENTRA_EXPORT xQGLWidget_WalkHandler : public xQGLWidget_MoveHandler {
    Q_OBJECT
public:
    explicit xQGLWidget_WalkHandler(xQGLWidget* widget);

    QString name() const override { return "walk"; }
    QCursor cursor() const override;
    /// With the left button this returns only when the button is released.
    void mousePress(QMouseEvent* event) override;
    void mouseMove(QMouseEvent* event) override;
    void mouseRelease(QMouseEvent* event) override;
    void wheel(QWheelEvent* event) override;

private:
    void walk();

    int _last_x = 0;
    int _last_y = 0;
    double _speed = 0.0;
    double _turn = 0.0;
    bool _walking = false;
};

} // namespace xqtgl
