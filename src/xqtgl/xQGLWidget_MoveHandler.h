#pragma once

#include "xqtgl/xQGLCamera.h"
#include "xqtgl/xQGLWidget_Handler.h"

#include <functional>
#include <memory>

class QPainter;
class QPixmap;

namespace xqtgl {

/// What the handlers that move the camera share: the camera copied at the press, from which
/// every step of a drag starts so that rounding does not build up, and the moves they have in
/// common (pan, look around) measured as fractions of the widget's size.
class ZENTRA_EXPORT xQGLWidget_MoveHandler : public xQGLWidget_Handler {
    Q_OBJECT
public:
    explicit xQGLWidget_MoveHandler(xQGLWidget* widget);
    ~xQGLWidget_MoveHandler() override;

protected:
    /// Keeps press position, button, modifiers and a copy of the camera; clears `moved`.
    void keep_press(QMouseEvent* event);
    /// Travel from the press as fractions of the widget's width and height.
    double fx(int x) const;
    double fy(int y) const;
    /// True once the pointer has travelled more than 5 pixels from the press.
    bool beyond_click(int x, int y) const;
    /// Makes the moves on a copy of the press camera and gives it to the widget.
    void apply(const std::function<void(xQGLCamera&)>& moves);
    /// The pan scale: the distance from the eye to the point under the pointer, or to the plane
    /// through the scene's centre when nothing is there.
    void pan_scale_from_pick(int x, int y);
    /// Slides the camera with the pointer: by the pan scale in perspective, by the ortho size in
    /// an orthographic view.
    void pan(xQGLCamera& c, double fx, double fy) const;
    static void look_around(xQGLCamera& c, double fx, double fy);
    /// After a drag, the point under the widget's centre becomes the look-at point; where nothing
    /// is drawn there, the plane through the scene's centre gives it, or with no fallback the
    /// frame is only refreshed.
    void recentre(bool plane_fallback);
    /// Moves a copy of `c` to look at `p`: an orthographic eye moves along, a perspective one stays.
    static void look_at(xQGLCamera& c, const geometry3D::Point& p);

    /// Keeps a picture of the present frame to draw rubber bands and lenses on. A widget of
    /// 32000 pixels or more a side gets none; a picture that cannot be made is reported as an
    /// error and the drag goes on without one.
    void grab_frame();
    /// Puts the kept frame with `drawing` over it on the widget; the GL frame is held back from
    /// repainting over it until `drop_frame`.
    void show_over_frame(const std::function<void(QPainter&)>& drawing);
    /// Deletes the picture and lets the GL frame repaint again; repaints nothing itself.
    void drop_frame();
    /// The rectangle from the press to (x, y), two pixels wide.
    void draw_rubber_band(QPainter& painter, int x, int y) const;

    xQGLCamera _press_camera;

private:
    std::unique_ptr<QPixmap> _frame;
};

} // namespace xqtgl
