#include "xqtgl/xQGLView.h"

#include <QBuffer>

namespace xqtgl {

xQGLView::xQGLView() {
    // The options' initial plane: a plane without a normal would never compare equal.
    _clipping_plane.set(1.0, 0.0, 0.0, 0.0);
}

xQGLView::xQGLView(const xQGLView& other)
    : QObject(),
      _name(other._name),
      _camera(other._camera),
      _clipping_plane(other._clipping_plane),
      _clipping_plane_enabled(other._clipping_plane_enabled),
      _thumbnail(other._thumbnail) {}

xQGLView& xQGLView::operator=(const xQGLView& other) {
    if (this == &other)
        return *this;
    const bool differs = *this != other;
    _name = other._name;
    _camera = other._camera;
    _clipping_plane = other._clipping_plane;
    _clipping_plane_enabled = other._clipping_plane_enabled;
    _thumbnail = other._thumbnail;
    if (differs)
        emit changed(this);
    return *this;
}

bool xQGLView::operator==(const xQGLView& other) const {
    return _name == other._name && _camera == other._camera &&
           _clipping_plane == other._clipping_plane &&
           _clipping_plane_enabled == other._clipping_plane_enabled;
}

void xQGLView::name(const QString& text) {
    if (text == _name)
        return;
    _name = text;
    emit changed(this);
}

void xQGLView::camera(const xQGLCamera& c) {
    if (c == _camera)
        return;
    _camera = c;
    emit changed(this);
}

void xQGLView::clipping_plane(const geometry3D::Plane& p) {
    if (p == _clipping_plane)
        return;
    _clipping_plane = p;
    emit changed(this);
}

void xQGLView::clipping_plane_enabled(bool on) {
    if (on == _clipping_plane_enabled)
        return;
    _clipping_plane_enabled = on;
    emit changed(this);
}

QByteArray* xQGLView::thumbnailData() const {
    auto* bytes = new QByteArray;
    QBuffer buffer(bytes);
    buffer.open(QIODevice::WriteOnly);
    _thumbnail.save(&buffer, "PNG");
    return bytes;
}

bool xQGLView::thumbnailData(const QByteArray& png) {
    return _thumbnail.loadFromData(png, "png");
}

} // namespace xqtgl
