// The helpers of the scene that the view draws itself: grid, bounding box, origin axes, legend,
// the stroke-font text and the 2D labels laid over the GL picture.
#include "xqtgl/xQGLVectorFont.h"
#include "xqtgl/xQGLWidget.h"

#include <GL/glu.h>

#include <QLinearGradient>
#include <QPainter>

#include <cmath>

namespace xqtgl {

namespace {

constexpr GLuint font_list_base = 1400;
constexpr double arrow_head_length = 0.3;
/// More grid lines than this on one axis would stall every frame; only the axis lines are drawn.
constexpr double max_grid_lines = 20000.0;

/// Draws the runs of one glyph: 1 line strip, 2 lines, anything else a polygon.
void draw_glyph(const int* runs) {
    while (runs && *runs != -1) {
        const int type = runs[0];
        const int count = runs[1];
        glBegin(type == 1 ? GL_LINE_STRIP : type == 2 ? GL_LINES : GL_POLYGON);
        for (int i = 0; i < count; ++i)
            glVertex2i(runs[2 + 2 * i], runs[3 + 2 * i]);
        glEnd();
        runs += 2 + 2 * count;
    }
}

} // namespace

void xQGLWidget::draw_grid() {
    const geometry3D::boundingbox& b = _boundingbox;
    if (!has_extent(b))
        return;
    const double hx = (b.xmax - b.xmin) / 2.0;
    const double hy = (b.ymax - b.ymin) / 2.0;
    const double g = _options.grid_distance();
    const double x0 = b.xmin - hx, x1 = b.xmax + hx;
    const double y0 = b.ymin - hy, y1 = b.ymax + hy;
    const geometry3D::point& o = _render_origin;

    glDisable(GL_LIGHTING);
    glLineWidth(2.0f);
    glColor4d(0.6, 0.6, 0.6, 1.0);
    glBegin(GL_LINES);
    glVertex3d(-o.x, y0 - o.y, -o.z);
    glVertex3d(-o.x, y1 - o.y, -o.z);
    glVertex3d(x0 - o.x, -o.y, -o.z);
    glVertex3d(x1 - o.x, -o.y, -o.z);
    glEnd();

    glColor3d(0.9, 0.9, 0.9);
    glLineWidth(1.0f);
    auto grey = [](double at) { return std::trunc(at / 10.0) * 10.0 == at ? 0.7 : 0.9; };
    if (g > 0.0 && (x1 - x0) / g < max_grid_lines && (y1 - y0) / g < max_grid_lines) {
        glBegin(GL_LINES);
        for (long i = long(std::trunc(x0 / g)); i < long(std::trunc(x1 / g)); ++i) {
            const double x = double(i) * g;
            const double c = grey(x);
            glColor3d(c, c, c);
            glVertex3d(x - o.x, y0 - o.y, -o.z);
            glVertex3d(x - o.x, y1 - o.y, -o.z);
        }
        for (long j = long(std::trunc(y0 / g)); j < long(std::trunc(y1 / g)); ++j) {
            const double y = double(j) * g;
            const double c = grey(y);
            glColor3d(c, c, c);
            glVertex3d(x0 - o.x, y - o.y, -o.z);
            glVertex3d(x1 - o.x, y - o.y, -o.z);
        }
        glEnd();
    }
    glEnable(GL_LIGHTING);
}

void xQGLWidget::draw_boundingbox() {
    const geometry3D::boundingbox& b = _boundingbox;
    if (!has_extent(b))
        return;
    glDisable(GL_LIGHTING);
    glEnable(GL_LINE_SMOOTH);
    glEnable(GL_BLEND);
    glHint(GL_LINE_SMOOTH_HINT, GL_NICEST);
    glLineWidth(2.0f);
    glColor4d(0.8, 0.8, 0.8, 0.8);
    const geometry3D::point lo = to_render({b.xmin, b.ymin, b.zmin});
    const geometry3D::point hi = to_render({b.xmax, b.ymax, b.zmax});
    const double xs[2] = {lo.x, hi.x}, ys[2] = {lo.y, hi.y}, zs[2] = {lo.z, hi.z};
    glBegin(GL_LINES);
    for (int a = 0; a < 2; ++a)
        for (int c = 0; c < 2; ++c) {
            glVertex3d(xs[0], ys[a], zs[c]);
            glVertex3d(xs[1], ys[a], zs[c]);
            glVertex3d(xs[a], ys[0], zs[c]);
            glVertex3d(xs[a], ys[1], zs[c]);
            glVertex3d(xs[a], ys[c], zs[0]);
            glVertex3d(xs[a], ys[c], zs[1]);
        }
    glEnd();
    glDisable(GL_BLEND);
    glDisable(GL_LINE_SMOOTH);
    glEnable(GL_LIGHTING);
}

void xQGLWidget::draw_axis(double length, const basic::color4& colour) {
    glLineWidth(5.0f);
    glColor4f(colour.r, colour.g, colour.b, colour.a);
    glBegin(GL_LINES);
    glVertex3d(0.0, 0.0, 0.0);
    glVertex3d(0.0, 0.0, length - arrow_head_length / 2.0);
    glEnd();
    // Where an arrow head would go; the axes are drawn without one.
    glPushMatrix();
    glTranslated(0.0, 0.0, length - arrow_head_length);
    glPopMatrix();
}

void xQGLWidget::draw_origin() {
    // Z red, X green, Y blue: the view's own colour code, which users know from its other tools.
    struct axis {
        double angle, ax, ay, az;
        basic::color4 colour;
        const char* label;
    };
    const axis axes[3] = {{0.0, 0.0, 0.0, 1.0, {1, 0, 0, 1}, "Z"},
                          {90.0, 0.0, 1.0, 0.0, {0, 1, 0, 1}, "X"},
                          {-90.0, 1.0, 0.0, 0.0, {0, 0, 1, 1}, "Y"}};
    glDisable(GL_LIGHTING);
    glPushMatrix();
    glTranslated(-_render_origin.x, -_render_origin.y, -_render_origin.z);
    for (const axis& a : axes) {
        glPushMatrix();
        if (a.angle != 0.0)
            glRotated(a.angle, a.ax, a.ay, a.az);
        draw_axis(1.0, a.colour);
        glColor4f(a.colour.r, a.colour.g, a.colour.b, a.colour.a);
        glPushMatrix();
        glLineWidth(3.0f);
        glTranslated(0.0, 0.0, 0.9);
        glScaled(0.1, -0.1, 0.1);
        draw_text(a.label, true, true);
        glPopMatrix();
        glPopMatrix();
    }
    glPopMatrix();
    glEnable(GL_LIGHTING);
}

namespace {

/// Window coordinates in pixels, origin at the bottom left, for as long as it lives.
struct WindowOverlay {
    WindowOverlay(int w, int h) {
        glMatrixMode(GL_PROJECTION);
        glPushMatrix();
        glLoadIdentity();
        gluOrtho2D(0, w, 0, h);
        glMatrixMode(GL_MODELVIEW);
        glPushMatrix();
        glLoadIdentity();
    }
    ~WindowOverlay() {
        glPopMatrix();
        glMatrixMode(GL_PROJECTION);
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
    }
    WindowOverlay(const WindowOverlay&) = delete;
    WindowOverlay& operator=(const WindowOverlay&) = delete;
};

} // namespace

void xQGLWidget::paint_legend() {
    const WindowOverlay overlay(width(), height());
    const double h = height();
    glShadeModel(GL_SMOOTH);
    // Two bands, red to green and green to blue, from a tenth to nine tenths of the height.
    static const double band_colours[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    static const double band_heights[3] = {0.1, 0.5, 0.9};
    for (int band = 0; band < 2; ++band) {
        glBegin(GL_POLYGON);
        glColor3dv(band_colours[band]);
        glVertex2d(10, band_heights[band] * h);
        glVertex2d(30, band_heights[band] * h);
        glColor3dv(band_colours[band + 1]);
        glVertex2d(30, band_heights[band + 1] * h);
        glVertex2d(10, band_heights[band + 1] * h);
        glEnd();
    }
}

void xQGLWidget::build_font_lists() {
    if (glIsList(font_list_base))
        return;
    for (GLuint c = 0; c < 256; ++c) {
        glNewList(font_list_base + c, GL_COMPILE);
        draw_glyph(vector_font_glyph(static_cast<unsigned char>(c)));
        glTranslated(vector_font_advance, 0.0, 0.0);
        glEndList();
    }
}

void xQGLWidget::draw_text(const QString& text, bool centred, bool use_lists) {
    const QByteArray bytes = text.toLatin1();
    if (centred)
        glTranslated(-0.5 * bytes.size(), -0.5, 0.0);
    glScaled(0.00875, 0.01, 1.0);
    if (!use_lists) {
        for (char c : bytes)
            draw_glyph(vector_font_glyph(static_cast<unsigned char>(c)));
        return;
    }
    build_font_lists();
    glPushAttrib(GL_LIST_BIT);
    glListBase(font_list_base);
    glCallLists(bytes.size(), GL_UNSIGNED_BYTE, bytes.constData());
    glPopAttrib();
}

void xQGLWidget::draw_vectortext(const char* text) { draw_text(QString::fromLatin1(text), false, true); }

void xQGLWidget::draw_vectorqstring(const QString& text) { draw_text(text, false, true); }

void xQGLWidget::Draw3DString(double x, double y, double z, double sx, double sy, int width,
                              const QString& text) {
    glPushMatrix();
    glColor3d(0.5, 0.5, 1.0);
    glLineWidth(GLfloat(width));
    glTranslated(x - _render_origin.x, y - _render_origin.y, z - _render_origin.z);
    glRotated(90.0, 0.0, 0.0, 1.0);
    glScaled(sx, sy, 1.0);
    draw_text(text, false, true);
    glPopMatrix();
}

void xQGLWidget::Show2DVectorText(const QString& text, bool) {
    const WindowOverlay overlay(width(), height());
    glDisable(GL_LIGHTING);
    glColor3d(0.0, 1.0, 0.0);
    glTranslated(10.0, 10.0, 0.0);
    glScaled(10.0, 10.0, 1.0);
    draw_text(text, false, true);
    glEnable(GL_LIGHTING);
}

void xQGLWidget::ShowText(QPainter* p, const QRect& rect, int point_size, const QString& text,
                          const QColor& c1, const QColor& c2) {
    if (!p)
        return;
    QFont label_font = font();
    label_font.setWeight(75);
    label_font.setPointSize(point_size);
    p->setFont(label_font);
    p->setPen(QPen(Qt::white, 1));
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft() + QPoint(0, 1));
    gradient.setColorAt(0.0, c1);
    gradient.setColorAt(1.0, c2);
    p->setBrush(gradient);
    p->setRenderHint(QPainter::Antialiasing);
    p->drawRoundRect(rect, 6, 14);
    p->drawText(rect, Qt::AlignHCenter | Qt::AlignVCenter, text);
}

void xQGLWidget::ShowFramerate(QPainter* p, double fps) {
    ShowText(p, QRect(10, height() - 40, 100, 30), 12, QString::asprintf("%.1f f/sec", fps),
             QColor(50, 50, 50, 255), QColor(0, 0, 0, 200));
}

void xQGLWidget::ShowClippingEnabled(QPainter* p) {
    ShowText(p, QRect(QPoint(10, 10), QPoint(69, 31)), 8, "clipping", QColor(150, 200, 150, 255),
             QColor(90, 190, 90, 200));
}

} // namespace xqtgl
