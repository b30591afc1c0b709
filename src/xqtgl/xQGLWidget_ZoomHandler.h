#pragma once

#include "xqtgl/xQGLWidget_MoveHandler.h"

namespace xqtgl {

/// Zooms to where the user points: a left click steps in (Shift: out) towards the point under
/// the pointer; a left drag shows a lens (in a remote session a rubber rectangle) and zooms so
/// that a small drag goes far in. Ctrl looks around; the middle button pans.
class ZENTRA_EXPORT xQGLWidget_ZoomHandler : public xQGLWidget_MoveHandler {
    Q_OBJECT
public:
    explicit xQGLWidget_ZoomHandler(xQGLWidget* widget);

    QString name() const override { return "zoom"; }
    QCursor cursor() const override;
    void mousePress(QMouseEvent* event) override;
    void mouseMove(QMouseEvent* event) override;
    void mouseRelease(QMouseEvent* event) override;

private:
    void draw_lens(int x, int y);
    /// Zooms towards the point picked at the press.
    void zoom_to(int release_x, int release_y, bool shift);
    /// Forgets the press and puts the cursor back; the moves have repainted already.
    void finish();

    geometry3D::Point _press_point;
    bool _press_hit = false;
};

} // namespace xqtgl
