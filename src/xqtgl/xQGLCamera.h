#pragma once

#include "geometry/Point.h"
#include "vmp/Vector.h"
#include "zentra_export.h"

#include <QObject>

namespace xqtgl {

enum projection_type { perspective = 0, orthographic = 1 };

/// The viewing geometry of the 3D view: eye, look-at point, up vector and lens, with every
/// movement navigation asks of it. Z is up; angles are radians.
///
/// Moves are silent on purpose (`changed` only fires for absurdly large arguments), so that a
/// drag can move a copy many times; whoever moves the camera asks for the repaint. Setters of
/// lens and position values emit `changed`. Coordinates are world coordinates; `gl_lookat`
/// takes the view's render origin so that far-away models reach GL as small numbers.
class ZENTRA_EXPORT xQGLCamera : public QObject {
    Q_OBJECT
public:
    xQGLCamera();
    xQGLCamera(const xQGLCamera& other);
    /// Copies what differs (not the saved pair) and emits `changed` once if anything did.
    xQGLCamera& operator=(const xQGLCamera& other);
    /// Exact comparison of lens, position and ortho sizes; the saved pair takes no part.
    bool operator==(const xQGLCamera& other) const;
    bool operator!=(const xQGLCamera& other) const { return !(*this == other); }

    double view_angle() const { return _view_angle; }
    void view_angle(double degrees);
    double aspect_ratio() const { return _aspect_ratio; }
    void aspect_ratio(double ratio);
    double near_plane() const { return _near_plane; }
    void near_plane(double value);
    double far_plane() const { return _far_plane; }
    /// Only raises the far plane: values of 10000.0 or less are ignored, so a view that once
    /// raised it keeps it until `ResetPlanesAndAngle`.
    void far_plane(double value);
    projection_type projection() const { return _projection; }
    void projection(projection_type p);
    void ResetPlanesAndAngle();

    const geometry3D::Point& eye() const { return _eye; }
    /// Refused silently when closer than 0.01 to the look-at point.
    void eye(const geometry3D::Point& p);
    const geometry3D::Point& lookat() const { return _lookat; }
    /// Refused silently when closer than 0.01 to the eye.
    void lookat(const geometry3D::Point& p);
    const vmp::Vector& up() const { return _up; }
    /// Look-at minus eye, not normalised.
    vmp::Vector direction() const;

    /// Orbits the eye about the look-at point: elevation, never crossing the vertical.
    void rotate_x(double a);
    /// Orbits the eye about the vertical line through the look-at point.
    void rotate_z(double a);
    /// Turns the view on the spot about the eye.
    void yaw(double a);
    /// Tilts the view on the spot; a positive angle lowers the line of sight.
    void pitch(double a);
    /// Walks along the ground plan by `s` in the viewing direction.
    void move_horizontal(double s);
    /// Slides sideways; positive `s` moves to the right of the line of sight.
    void pan_left_right(double s);
    /// Slides along the screen's vertical.
    void pan_up_down(double s);
    /// Perspective: moves the eye the fraction f (clamped to ±0.8) towards the look-at point,
    /// never past it. Orthographic: shrinks the ortho sizes by f, unclamped.
    void zoom(double f);

    /// Keeps eye and look-at unless a saved pair is already pending.
    void Save();
    void Restore();
    void SetSavedEye(const geometry3D::Point& p);
    void SetSavedLookat(const geometry3D::Point& p);
    const geometry3D::Point& GetSavedEye() const { return _saved_eye; }
    const geometry3D::Point& GetSavedLookat() const { return _saved_lookat; }

    void SetOrthoWidth(double w) { _ortho_width = w; }
    double GetOrthoWidth() const { return _ortho_width; }
    void SetOrthoHeight(double h) { _ortho_height = h; }
    double GetOrthoHeight() const { return _ortho_height; }
    /// Sets the expected and the current width.
    void SetExpectOrthoWidth(double w);
    double GetExpectOrthoWidth() const { return _expected_ortho_width; }
    /// Sets the expected and the current height.
    void SetExpectOrthoHeight(double h);
    double GetExpectOrthoHeight() const { return _expected_ortho_height; }

    /// Loads the projection matrix of the lens, then leaves the identity on the modelview matrix.
    void gl_projection() const;
    /// Loads the modelview matrix of eye, look-at and up, each less `render_origin`.
    void gl_lookat(const geometry3D::point& render_origin = {0.0, 0.0, 0.0}) const;

signals:
    void changed(xqtgl::xQGLCamera*);

private:
    void emit_if_large(double value, double limit);

    double _view_angle = 50.0;
    double _aspect_ratio = 1.5;
    double _near_plane = 0.01;
    double _far_plane = 10000.0;
    double _ortho_width = 0.0;
    double _ortho_height = 0.0;
    double _expected_ortho_width = 0.0;
    double _expected_ortho_height = 0.0;
    geometry3D::Point _eye{15.0, 10.0, 5.0};
    geometry3D::Point _lookat{0.0, 0.0, 0.0};
    geometry3D::Point _saved_eye{15.0, 10.0, 5.0};
    geometry3D::Point _saved_lookat{0.0, 0.0, 0.0};
    vmp::Vector _up{0.0, 0.0, 1.0};
    projection_type _projection = perspective;
    bool _saved = false;
};

} // namespace xqtgl
