#pragma once

#include "xqtgl/xQGLWidget_MoveHandler.h"

namespace xqtgl {

/// The view's default navigation: the left button orbits about the look-at point (with Ctrl it
/// looks around), the middle button pans, a left click makes the point under the pointer the
/// centre of rotation.
class ZENTRA_EXPORT xQGLWidget_OrbitHandler : public xQGLWidget_MoveHandler {
    Q_OBJECT
public:
    explicit xQGLWidget_OrbitHandler(xQGLWidget* widget);

    QString name() const override { return "orbit"; }
    QCursor cursor() const override;
    static QCursor orbit_cursor();
    void mousePress(QMouseEvent* event) override;
    void mouseMove(QMouseEvent* event) override;
    void mouseRelease(QMouseEvent* event) override;

private:
    int _last_x = 0;
    int _last_y = 0;
};

} // namespace xqtgl
