// Colour-id picking: the picking pass draws every pickable item off screen in a colour that
// encodes its id, and the colours read back name what lies under a pixel or a rectangle.
#include "mesh3D/Element.h"
#include "mesh3D/Surface.h"
#include "xqtgl/xQGLWidget.h"
#include "xqtgl/xQGLWidget_Painter.h"

#include <QCoreApplication>
#include <QGLPixelBuffer>
#include <GL/glu.h>

#include <cmath>
#include <vector>

namespace xqtgl {

namespace {

// Size of the off-screen picking target; a larger rectangle is drawn scaled into it.
const int target_width = 1600;
const int target_height = 1200;
// The colour of the background in the picking pass; no item has it.
const unsigned int no_id = 0xFFFFFF;

/// The stand-in picking target where pixel buffers are missing: a hidden single-buffered
/// widget that draws the picking pass of the view it serves.
class pixmapQGLWidget : public QGLWidget {
public:
    pixmapQGLWidget() : QGLWidget(QGLFormat(QGL::SingleBuffer | QGL::DepthBuffer)) {}

    /// Shows the target and draws one empty frame: the window's buffers take their size at the
    /// first drawing, and a picking pass drawn before that is lost.
    void show_ready() {
        show();
        glDraw();
    }

    void render(xQGLWidget* view, int x, int y, int w, int h) {
        _view = view;
        _rectangle = QRect(x, y, w, h);
        glDraw();
        // Later paints from the window system draw nothing, not a pass with a stale rectangle.
        _view = nullptr;
    }

protected:
    void paintGL() override {
        if (_view)
            _view->renderSelectionScene(_rectangle.x(), _rectangle.y(), _rectangle.width(), _rectangle.height());
        else
            glClear(GL_COLOR_BUFFER_BIT);
    }

private:
    xQGLWidget* _view = nullptr;
    QRect _rectangle;
};

QGLPixelBuffer* pixel_buffer(bool* first_use) {
    static QGLPixelBuffer* buffer = nullptr;
    *first_use = !buffer;
    if (!buffer)
        buffer = new QGLPixelBuffer(target_width, target_height, QGLFormat(QGL::SingleBuffer | QGL::DepthBuffer));
    return buffer;
}

pixmapQGLWidget* widget_target(bool* first_use) {
    static pixmapQGLWidget* target = nullptr;
    *first_use = !target;
    if (!target)
        target = new pixmapQGLWidget;
    return target;
}

unsigned int channel_shift(int bits) { return bits < 8 ? 8u - unsigned(bits) : 0u; }

/// Scans a read-back rectangle for ids. An id counts only where five pixels agree (this one, the
/// next two in the row, and the ones one and two rows on), so blended or antialiased edges make
/// no false ids; runs of one colour are passed over cheaply.
template <typename IdAt>
void scan_ids(QSet<unsigned int>& ids, int w, int h, bool first, IdAt id_at) {
    unsigned int previous = no_id;
    for (int row = 0; row < h; ++row) {
        for (int column = 0; column < w; ++column) {
            const unsigned int id = id_at(column, row);
            if (id == previous)
                continue;
            previous = id;
            if (id == no_id || ids.contains(id) || column + 2 >= w || row + 2 >= h)
                continue;
            if (id_at(column + 1, row) != id || id_at(column + 2, row) != id || id_at(column, row + 1) != id ||
                id_at(column, row + 2) != id)
                continue;
            ids.insert(id);
            if (first)
                return;
        }
    }
}

} // namespace

void xQGLWidget::SelectID2RGB(unsigned int id, GLubyte& r, GLubyte& g, GLubyte& b) {
    const int rb = RedBits(), gb = GreenBits();
    b = GLubyte((id >> (gb + rb)) << channel_shift(BlueBits()));
    g = GLubyte(((id >> rb) & ((1u << gb) - 1u)) << channel_shift(gb));
    r = GLubyte((id & ((1u << rb) - 1u)) << channel_shift(rb));
}

unsigned int xQGLWidget::SelectRGB2ID(unsigned int r, unsigned int g, unsigned int b) {
    const int rb = RedBits(), gb = GreenBits();
    return (((b >> channel_shift(BlueBits())) << gb) + (g >> channel_shift(gb))) * (1u << rb) +
           (r >> channel_shift(rb));
}

unsigned int xQGLWidget::SelectRGB2IDTrue(unsigned int r, unsigned int g, unsigned int b) {
    return ((b << 8) + g) * 256u + r;
}

void xQGLWidget::set_pickmatrix(int x, int y, int w, int h) {
    GLint viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    GLdouble projection[16];
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    gluPickMatrix(std::round(x + w / 2.0), std::round(viewport[3] - y - h / 2.0), w, h, viewport);
    glMultMatrixd(projection);
    glMatrixMode(GL_MODELVIEW);
}

void xQGLWidget::renderSelectionScene(int x, int y, int w, int h) {
    glClearColor(1.0f, 1.0f, 1.0f, 0.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glViewport(0, 0, width(), height());
    if (_camera.projection() == orthographic)
        _camera.aspect_ratio(_camera.GetExpectOrthoWidth() / _camera.GetExpectOrthoHeight());
    _camera.gl_projection();
    _camera.gl_lookat(_render_origin);
    set_pickmatrix(x, y, w, h);
    // The rectangle fills the part of the target that is read back, one pixel per window pixel.
    glViewport(0, 0, std::min(w, target_width), std::min(h, target_height));
    glEnable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    glDisable(GL_LIGHTING);
    glShadeModel(GL_FLAT);
    if (_options.plane_clipping_enabled())
        apply_clipping_plane();
    for (xQGLWidget_Painter* painter : _painters)
        painter->select_paint();
    glDisable(GL_CLIP_PLANE0);
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glFlush();
}

void xQGLWidget::CollectIdsGraphical(QSet<unsigned int>& ids, int x, int y, int w, int h, bool first) {
    if (w <= 0 || h <= 0)
        return;
    doneCurrent();
    if (QGLPixelBuffer::hasOpenGLPbuffers())
        CollectIdsGraphicalWithPixelBuffer(ids, x, y, w, h, first);
    else
        CollectIdsGraphicalWithWidget(ids, x, y, w, h, first);
}

void xQGLWidget::CollectIdsGraphicalWithPixelBuffer(QSet<unsigned int>& ids, int x, int y, int w, int h,
                                                    bool first) {
    bool first_use = false;
    QGLPixelBuffer* buffer = pixel_buffer(&first_use);
    buffer->makeCurrent();
    // Its context shares nothing with ours: it needs the view's own set-up once.
    if (first_use)
        initializeGL();
    renderSelectionScene(x, y, w, h);
    const int rw = std::min(w, target_width), rh = std::min(h, target_height);
    std::vector<GLfloat> pixels(std::size_t(rw) * std::size_t(rh) * 3u);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, rw, rh, GL_RGB, GL_FLOAT, pixels.data());
    const auto channel = [](GLfloat v) { return static_cast<unsigned int>(v * 255.0f + 0.5f); };
    scan_ids(ids, rw, rh, first, [&](int column, int row) {
        const GLfloat* p = &pixels[(std::size_t(row) * std::size_t(rw) + std::size_t(column)) * 3u];
        return SelectRGB2ID(channel(p[0]), channel(p[1]), channel(p[2]));
    });
    buffer->doneCurrent();
    makeCurrent();
}

void xQGLWidget::CollectIdsGraphicalWithWidget(QSet<unsigned int>& ids, int x, int y, int w, int h, bool first) {
    bool first_use = false;
    pixmapQGLWidget* target = widget_target(&first_use);
    target->resize(size());
    if (!target->isVisible()) {
        target->move(-2 * width(), -2 * height());
        target->show_ready();
    }
    target->makeCurrent();
    // Its context shares nothing with ours: it needs the view's own set-up once.
    if (first_use)
        initializeGL();
    target->render(this, x, y, w, h);
    glReadBuffer(GL_FRONT);
    const QImage picture = target->grabFrameBuffer(false);
    const int rw = std::min(w, picture.width()), rh = std::min(h, picture.height());
    // The picture is top-down; the scan walks rows from the bottom, as the pixel buffer's does.
    scan_ids(ids, rw, rh, first, [&](int column, int row) {
        const QRgb c = picture.pixel(column, picture.height() - 1 - row);
        return SelectRGB2IDTrue(unsigned(qRed(c)), unsigned(qGreen(c)), unsigned(qBlue(c)));
    });
    target->hide();
    makeCurrent();
}

void xQGLWidget::SelectCollectedIds(const QSet<unsigned int>& ids, int mode, bool single) {
    std::vector<unsigned int> hits(ids.begin(), ids.end());
    // One bracket around the whole run, however many painters and items it touches.
    forward_selection_started(nullptr);
    for (xQGLWidget_Painter* painter : _painters) {
        if (mode == 0)
            painter->unselect_all();
        painter->process_hits(int(hits.size()), hits.data(), mode, single);
    }
    forward_selection_finished(nullptr);
}

void xQGLWidget::SelectRegionGraphical(int x, int y, int w, int h, int mode, bool single, bool first) {
    QSet<unsigned int> ids;
    CollectIdsGraphical(ids, x, y, w, h, first);
    SelectCollectedIds(ids, mode, single);
    makeCurrent();
    QCoreApplication::processEvents();
}

mesh3D::Surface* xQGLWidget::PickObjectGraphical(int x, int y, geometry3D::point* point,
                                                 xQGLWidget_Painter** painter) {
    bool hit = false;
    const geometry3D::point picked = pick_point(x, y, &hit);
    if (!hit)
        return nullptr;
    QSet<unsigned int> ids;
    CollectIdsGraphical(ids, x - 5, y - 5, 10, 10, true);
    if (ids.isEmpty())
        return nullptr;
    if (point)
        *point = picked;
    for (xQGLWidget_Painter* owner : _painters)
        if (mesh3D::Element* element = owner->GetElementFromId(*ids.begin())) {
            if (painter)
                *painter = owner;
            return dynamic_cast<mesh3D::Surface*>(element);
        }
    return nullptr;
}

} // namespace xqtgl
