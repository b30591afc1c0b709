#pragma once

#include "geometry/Plane.h"
#include "xqtgl/xQGLCamera.h"
#include "zentra_export.h"

#include <QByteArray>
#include <QObject>
#include <QPixmap>
#include <QString>

namespace xqtgl {

/// A named viewpoint: a camera, a clipping plane with its switch, and a thumbnail picture.
class ZENTRA_EXPORT xQGLView : public QObject {
    Q_OBJECT
public:
    xQGLView();
    xQGLView(const xQGLView& other);
    /// Copies all five fields, the thumbnail always; emits `changed` once if any other differed.
    xQGLView& operator=(const xQGLView& other);
    /// The thumbnail takes no part.
    bool operator==(const xQGLView& other) const;
    bool operator!=(const xQGLView& other) const { return !(*this == other); }

    const QString& name() const { return _name; }
    void name(const QString& text);
    const xQGLCamera& camera() const { return _camera; }
    void camera(const xQGLCamera& c);
    const geometry3D::Plane& clipping_plane() const { return _clipping_plane; }
    void clipping_plane(const geometry3D::Plane& p);
    bool clipping_plane_enabled() const { return _clipping_plane_enabled; }
    void clipping_plane_enabled(bool on);
    const QPixmap& thumbnail() const { return _thumbnail; }
    /// Stores the picture without a signal.
    void thumbnail(const QPixmap& picture) { _thumbnail = picture; }

    /// The thumbnail as PNG bytes in a new array that the caller owns and deletes.
    QByteArray* thumbnailData() const;
    /// Loads the thumbnail from PNG bytes; false when they do not decode.
    bool thumbnailData(const QByteArray& png);

signals:
    void changed(xqtgl::xQGLView*);

private:
    QString _name;
    xQGLCamera _camera;
    geometry3D::Plane _clipping_plane;
    bool _clipping_plane_enabled = false;
    QPixmap _thumbnail;
};

} // namespace xqtgl
