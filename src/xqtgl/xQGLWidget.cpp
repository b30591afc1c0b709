#include "xqtgl/xQGLWidget.h"

#include "xqtgl/xQGLView.h"
#include "xqtgl/xQGLWidget_OrbitHandler.h"
#include "xqtgl/xQGLWidget_Painter.h"

#include <GL/glu.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPainter>

#include <cmath>

namespace xqtgl {

namespace {

/// Beyond this distance from zero a float's spacing passes a tenth of a millimetre.
constexpr double render_origin_reach = 1000.0;

double rounded_to_reach(double v) {
    return std::round(v / render_origin_reach) * render_origin_reach;
}

} // namespace

xQGLWidget::xQGLWidget(QWidget* parent) : QGLWidget(QGLFormat(QGL::SampleBuffers), parent) {
    init();
}

xQGLWidget::xQGLWidget(const QGLFormat& format, QWidget* parent, const QGLWidget* share,
                       Qt::WindowFlags flags)
    : QGLWidget(format, parent, share, flags) {
    init();
}

xQGLWidget::~xQGLWidget() {
    delete _handler;
    _handler = nullptr;
    const QList<xQGLWidget_Painter*> painters = _painters;
    for (xQGLWidget_Painter* painter : painters) {
        painter->_widget = nullptr;
        delete painter;
    }
    _painters.clear();
    qDeleteAll(_viewpoints);
}

void xQGLWidget::init() {
    _fast_paint_status = false;
    _ignore_repaint = false;
    _selection_depth = 0;
    _message_service = nullptr;
    _boundingbox = geometry3D::boundingbox();
    _handler = new xQGLWidget_OrbitHandler(this);
    connect(&_camera, &xQGLCamera::changed, this, [this] { repaint(); });
    connect(&_options, &xQGLWidget_Options::changed, this, &xQGLWidget::options_changed);
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(false);
}

void xQGLWidget::add(xQGLWidget_Painter* painter) {
    _painters.append(painter);
    painter->_widget = this;
    connect(painter, &xQGLWidget_Painter::selection_started, this,
            &xQGLWidget::forward_selection_started);
    connect(painter, &xQGLWidget_Painter::selection_finished, this,
            &xQGLWidget::forward_selection_finished);
}

void xQGLWidget::remove(xQGLWidget_Painter* painter) {
    _painters.removeAll(painter);
    disconnect(painter, nullptr, this, nullptr);
}

QList<xQGLWidget_Painter*> xQGLWidget::painters(const QString& type_name) const {
    QList<xQGLWidget_Painter*> found;
    for (xQGLWidget_Painter* painter : _painters)
        if (painter->type_name() == type_name)
            found.append(painter);
    return found;
}

void xQGLWidget::boundingbox(const geometry3D::boundingbox& box) {
    _boundingbox = box;
    if (has_extent(box)) {
        const bool far_away = std::fabs(box.xmin) > render_origin_reach ||
                              std::fabs(box.xmax) > render_origin_reach ||
                              std::fabs(box.ymin) > render_origin_reach ||
                              std::fabs(box.ymax) > render_origin_reach ||
                              std::fabs(box.zmin) > render_origin_reach ||
                              std::fabs(box.zmax) > render_origin_reach;
        const geometry3D::point centre = geometry3D::center(box);
        _render_origin = far_away ? geometry3D::point{rounded_to_reach(centre.x),
                                                      rounded_to_reach(centre.y),
                                                      rounded_to_reach(centre.z)}
                                  : geometry3D::point{0.0, 0.0, 0.0};
    }
    emit boundingbox_changed(_boundingbox);
}

geometry3D::point xQGLWidget::to_render(const geometry3D::point& world) const {
    return {world.x - _render_origin.x, world.y - _render_origin.y, world.z - _render_origin.z};
}

geometry3D::point xQGLWidget::to_world(const geometry3D::point& render) const {
    return {render.x + _render_origin.x, render.y + _render_origin.y, render.z + _render_origin.z};
}

bool xQGLWidget::has_extent(const geometry3D::boundingbox& box) {
    return box.xmin <= box.xmax && box.ymin <= box.ymax && box.zmin <= box.zmax;
}

void xQGLWidget::options_changed() {
    makeCurrent();
    initializeGL();
    repaint();
}

void xQGLWidget::forward_selection_started(xQGLWidget_Painter*) {
    if (++_selection_depth == 1) {
        emit selection_started();
        QCoreApplication::processEvents();
    }
}

void xQGLWidget::forward_selection_finished(xQGLWidget_Painter*) {
    if (_selection_depth-- == 1) {
        emit selection_finished();
        QCoreApplication::processEvents();
    }
}

void xQGLWidget::EmitOptionChangedMessage(const QString& text, bool on) {
    emit OptionChangedMessage(text, on);
}

void xQGLWidget::EmitContextMessage(const QString& text) { emit ContextMessage(text); }

void xQGLWidget::initializeGL() {
    const basic::color3& bg = _options.background_color();
    glClearColor(bg.r, bg.g, bg.b, 0.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1);
    glEnable(GL_LIGHTING);
    for (int i = 0; i < xQGLWidget_Options::light_count; ++i)
        _options.light(i).gl_init();
    glEnable(GL_COLOR_MATERIAL);
    InitRGBBitValues();
    // The expected ortho sizes are zero until a first orthographic view; in perspective the
    // aspect ratio is the window's, which resizeGL keeps.
    if (_camera.projection() == orthographic)
        _camera.aspect_ratio(_camera.GetExpectOrthoWidth() / _camera.GetExpectOrthoHeight());
    _camera.gl_projection();
    _camera.gl_lookat(_render_origin);
}

void xQGLWidget::resizeGL(int w, int h) {
    glViewport(0, 0, w, h);
    if (h <= 0)
        return;
    const double v = double(w) / double(h);
    if (_camera.projection() == perspective) {
        _camera.aspect_ratio(v);
        return;
    }
    const double W = _camera.GetExpectOrthoWidth();
    const double H = _camera.GetExpectOrthoHeight();
    const double a = W / H;
    _camera.aspect_ratio(a);
    if (v > a) {
        _camera.SetOrthoWidth(v * W);
        _camera.SetOrthoHeight(H);
    } else if (v < a) {
        _camera.SetOrthoWidth(W);
        _camera.SetOrthoHeight(H / v);
    }
}

void xQGLWidget::apply_clipping_plane() {
    const geometry3D::Plane& plane = _options.clipping_plane();
    const vmp::Vector& n = plane.n();
    // The plane n.x = d moves with the render origin o to n.x' = d - n.o.
    const double d = plane.d() - (n[0] * _render_origin.x + n[1] * _render_origin.y +
                                  n[2] * _render_origin.z);
    const GLdouble equation[4] = {n[0], n[1], n[2], -d};
    glEnable(GL_CLIP_PLANE0);
    glPushMatrix();
    glClipPlane(GL_CLIP_PLANE0, equation);
    glPopMatrix();
}

void xQGLWidget::paintGL() {
    if (_ignore_repaint)
        return;
    makeCurrent();
    const basic::color3& bg = _options.background_color();
    glClearColor(bg.r, bg.g, bg.b, 0.0f);
    _camera.gl_projection();
    _camera.gl_lookat(_render_origin);
    glClear(GL_COLOR_BUFFER_BIT);
    glClear(GL_DEPTH_BUFFER_BIT);

    glEnable(GL_LIGHTING);
    for (int i = 0; i < xQGLWidget_Options::light_count; ++i) {
        _options.light(i).gl_init();
        _options.light(i).gl_paint(_render_origin);
    }
    glShadeModel(GL_SMOOTH);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    emit eye_position(_camera.eye());

    if (_options.draw_origin())
        draw_origin();
    for (int i = 0; i < xQGLWidget_Options::light_count; ++i)
        if (_options.draw_light(i))
            _options.light(i).gl_draw_light_source(_render_origin);
    if (_options.draw_boundingbox())
        draw_boundingbox();
    if (_options.draw_grid() && (!RemoteSession() || !_fast_paint_status || RemoteFastDrawGrid()))
        draw_grid();
    const bool clipping = _options.plane_clipping_enabled();
    if (clipping)
        apply_clipping_plane();

    glEnable(GL_BLEND);
    // A painter may add or remove painters while it paints; walk a copy.
    const QList<xQGLWidget_Painter*> painters = _painters;
    const bool fast = RemoteSession() ? (_fast_paint_status && !RemoteFastSolid()) : _fast_paint_status;
    for (xQGLWidget_Painter* painter : painters) {
        if (fast)
            painter->fast_paint();
        else
            painter->paint();
    }
    if (clipping)
        glDisable(GL_CLIP_PLANE0);
    glFlush();
}

void xQGLWidget::paintEvent(QPaintEvent* event) {
    const bool framerate = _options.show_framerate();
    const bool clipping = _options.plane_clipping_enabled();
    if (!framerate && !clipping) {
        QGLWidget::paintEvent(event);
        return;
    }
    QElapsedTimer timer;
    timer.start();
    setAutoBufferSwap(false);
    QGLWidget::paintEvent(event);
    const double milliseconds = double(timer.elapsed());
    auto* painter = new (std::nothrow) QPainter;
    if (!painter) {
        QMessageBox::warning(this, "Error", "Null Painter!", QMessageBox::Ok);
    } else {
        painter->begin(this);
        // A frame faster than a millisecond divides by zero; the label shows what that gives.
        if (framerate)
            ShowFramerate(painter, 1000.0 / milliseconds);
        if (clipping)
            ShowClippingEnabled(painter);
        painter->end();
        delete painter;
    }
    swapBuffers();
    setAutoBufferSwap(true);
}

void xQGLWidget::focusInEvent(QFocusEvent*) { emit GotFocusInEvent(this); }

void xQGLWidget::keyPressEvent(QKeyEvent*) {
    GLdouble modelview[16];
    glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
}

QString xQGLWidget::gl_error_name(unsigned int code) {
    switch (code) {
    case GL_INVALID_ENUM: return "GL_INVALID_ENUM";
    case GL_INVALID_VALUE: return "GL_INVALID_VALUE";
    case GL_INVALID_OPERATION: return "GL_INVALID_OPERATION";
    case GL_STACK_OVERFLOW: return "GL_STACK_OVERFLOW";
    case GL_STACK_UNDERFLOW: return "GL_STACK_UNDERFLOW";
    case GL_OUT_OF_MEMORY: return "GL_OUT_OF_MEMORY";
    default: return "unknown";
    }
}

} // namespace xqtgl
