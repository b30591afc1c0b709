// Named viewpoints of the view and screenshots of its frame.
#include "xqtgl/xQGLView.h"
#include "xqtgl/xQGLWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QImageWriter>
#include <QInputDialog>

namespace xqtgl {

namespace {
/// The running key of saved viewpoints, kept for the whole process. It is only ever raised past
/// keys in use, never lowered: a deleted view's key comes back only while it is still the
/// running number (the newest save's), and `add_viewpoint` may take any free key.
int next_viewpoint_key = 0;
} // namespace

QPixmap xQGLWidget::thumbnail_of_frame() {
    return QPixmap::fromImage(grabFrameBuffer(false).scaled(100, 100, Qt::KeepAspectRatio));
}

void xQGLWidget::save_viewpoint() {
    bool accepted = false;
    const QString name = QInputDialog::getText(this, "Save viewpoint", "Enter name of viewpoint",
                                               QLineEdit::Normal, QString(), &accepted);
    if (!accepted)
        return;
    auto* view = new xQGLView;
    while (_viewpoints.contains(next_viewpoint_key))
        ++next_viewpoint_key;
    const int key = next_viewpoint_key;
    repaint();
    view->camera(_camera);
    view->name(name.isEmpty() ? QString::asprintf("View-%d", key) : name);
    view->clipping_plane(_options.clipping_plane());
    view->clipping_plane_enabled(_options.plane_clipping_enabled());
    QCoreApplication::processEvents();
    view->thumbnail(thumbnail_of_frame());
    _viewpoints.insert(key, view);
    repaint();
    emit viewpoint_created(view);
}

void xQGLWidget::show_viewpoint(int key) {
    const xQGLView* view = _viewpoints.value(key);
    if (!view)
        return;
    _camera = view->camera();
    if (_camera.projection() == orthographic) {
        // The view was kept at another window shape: fit its ortho box to this one.
        const double W = _camera.GetExpectOrthoWidth(), H = _camera.GetExpectOrthoHeight();
        const double v = double(width()) / double(height()), a = W / H;
        // At the same shape the view's own sizes and aspect ratio stand as they were kept.
        if (a < v) {
            _camera.SetOrthoWidth(W * v);
            _camera.SetOrthoHeight(H);
            _camera.aspect_ratio(a);
        } else if (a > v) {
            _camera.SetOrthoWidth(W);
            _camera.SetOrthoHeight(H / v);
            _camera.aspect_ratio(a);
        }
    }
    _options.clipping_plane(view->clipping_plane());
    _options.plane_clipping_enabled(view->clipping_plane_enabled());
    repaint();
}

int xQGLWidget::add_viewpoint(int key, const xQGLView& view) {
    while (_viewpoints.contains(key))
        ++key;
    auto* copy = new xQGLView(view);
    _viewpoints.insert(key, copy);
    emit viewpoint_created(copy);
    return key;
}

void xQGLWidget::update_viewpoint(int key) {
    xQGLView* view = _viewpoints.value(key);
    if (!view)
        return;
    // The fresh view has no name, and assignment copies that: hosts that keep the name set it
    // again after an update.
    xQGLView fresh;
    fresh.camera(_camera);
    fresh.thumbnail(thumbnail_of_frame());
    fresh.clipping_plane(_options.clipping_plane());
    fresh.clipping_plane_enabled(_options.plane_clipping_enabled());
    *view = fresh;
}

void xQGLWidget::delete_viewpoint(int key) {
    xQGLView* view = _viewpoints.value(key);
    if (!view)
        return;
    emit viewpoint_removed(view);
    _viewpoints.remove(key);
    delete view;
}

void xQGLWidget::DeleteAllViewpoints() {
    for (int key : _viewpoints.keys())
        delete_viewpoint(key);
}

int xQGLWidget::index(xQGLView* view) const { return _viewpoints.key(view, -1); }

void xQGLWidget::copy_to_clippboard() {
    repaint();
    QApplication::clipboard()->setImage(grabFrameBuffer(false));
}

void xQGLWidget::SavePixmap() { SavePixmapChoose(QString()); }

void xQGLWidget::SavePixmap(const QString& name) {
    repaint();
    grabFrameBuffer(false).save(name);
}

void xQGLWidget::SavePixmapChoose(const QString& start) {
    repaint();
    QList<QByteArray> formats = QImageWriter::supportedImageFormats();
    if (formats.contains("jpeg") && !formats.contains("jpg"))
        formats.append("jpg");
    QStringList filters{"PNG (*.png)"};
    for (const QByteArray& format : formats)
        if (format.toLower() != "png")
            filters << QString("%1 (*.%2)").arg(QString(format).toUpper(), QString(format).toLower());
    const QString name = QFileDialog::getSaveFileName(this, "Choose a filename to save screenshot",
                                                      start, filters.join(";;"));
    if (name.isEmpty())
        return;
    QCoreApplication::processEvents();
    const QImage frame = grabFrameBuffer(false);
    const int dot = name.lastIndexOf('.');
    if (dot >= 0)
        frame.save(name, name.mid(dot + 1).toLatin1().constData());
    else
        frame.save(name + ".png", "PNG");
}

} // namespace xqtgl
