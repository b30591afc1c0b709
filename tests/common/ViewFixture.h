#pragma once

#include "xqtgl/xQGLWidget.h"

#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QMouseEvent>
#include <QPoint>
#include <QtTest>

#include <cmath>

/// Shows a view of a fixed size, paints it and reads the frame back; projects world points to
/// pixels with the view's camera in plain double arithmetic, independent of GL and of the view's
/// render origin, so that a frame can be checked where the camera puts things.
struct ViewFixture {
    static constexpr int width = 320;
    static constexpr int height = 240;

    static void show(xqtgl::xQGLWidget& view) {
        view.resize(width, height);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        view.autoSwap(false);
    }

    /// Paints one frame into the back buffer and reads it.
    static QImage frame(xqtgl::xQGLWidget& view) {
        view.updateGL();
        return view.grabFrameBuffer(false);
    }

    /// Keeps a frame under the build tree for a person to look at.
    static void save(const QImage& image, const QString& name) {
        const QString folder = QCoreApplication::applicationDirPath() + "/frames";
        QDir().mkpath(folder);
        image.save(folder + "/" + name + ".png");
    }

    /// The pixel (x right, y down) where the camera puts a world point.
    static QPointF project(const xqtgl::xQGLWidget& view, double x, double y, double z) {
        const xqtgl::xQGLCamera& c = view.camera();
        const double ex = c.eye().x(), ey = c.eye().y(), ez = c.eye().z();
        double f[3] = {c.lookat().x() - ex, c.lookat().y() - ey, c.lookat().z() - ez};
        normalise(f);
        double s[3] = {f[1] * c.up()[2] - f[2] * c.up()[1], f[2] * c.up()[0] - f[0] * c.up()[2],
                       f[0] * c.up()[1] - f[1] * c.up()[0]};
        normalise(s);
        const double u[3] = {s[1] * f[2] - s[2] * f[1], s[2] * f[0] - s[0] * f[2],
                             s[0] * f[1] - s[1] * f[0]};
        const double v[3] = {x - ex, y - ey, z - ez};
        const double xe = dot(v, s), ye = dot(v, u), depth = dot(v, f);
        double nx, ny;
        if (c.projection() == xqtgl::perspective) {
            const double focal = 1.0 / std::tan(c.view_angle() * M_PI / 360.0);
            nx = focal / c.aspect_ratio() * xe / depth;
            ny = focal * ye / depth;
        } else {
            nx = xe / (c.GetOrthoWidth() / 2.0);
            ny = ye / (c.GetOrthoHeight() / 2.0);
        }
        return {(nx + 1.0) / 2.0 * view.width(), (1.0 - ny) / 2.0 * view.height()};
    }

    /// Points the view's camera from `eye` at `at`.
    static void look(xqtgl::xQGLWidget& view, geometry3D::Point eye, geometry3D::Point at) {
        xqtgl::xQGLCamera c(view.camera());
        c.lookat(at);
        c.eye(eye);
        view.camera(c);
    }

    /// A pointer move with buttons held; QTest's own move carries no buttons.
    static void move(QWidget& widget, QPoint to, Qt::MouseButtons held,
                     Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QMouseEvent event(QEvent::MouseMove, to, Qt::NoButton, held, modifiers);
        QCoreApplication::sendEvent(&widget, &event);
    }

    static QRgb pixel(const QImage& image, const QPointF& at) {
        return image.pixel(int(std::floor(at.x())), int(std::floor(at.y())));
    }

    /// The darkest grey among the pixel at `at` and its eight neighbours: where a thin line lands
    /// on one side or the other of the projected point.
    static int darkest(const QImage& image, const QPointF& at) {
        int grey = 255;
        for (int dx = -1; dx <= 1; ++dx)
            for (int dy = -1; dy <= 1; ++dy)
                grey = std::min(grey, qGray(pixel(image, at + QPointF(dx, dy))));
        return grey;
    }

    /// True when each channel is within `tolerance` of the expected colour.
    static bool near(QRgb actual, QColor expected, int tolerance = 8) {
        return std::abs(qRed(actual) - expected.red()) <= tolerance &&
               std::abs(qGreen(actual) - expected.green()) <= tolerance &&
               std::abs(qBlue(actual) - expected.blue()) <= tolerance;
    }

private:
    static double dot(const double* a, const double* b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
    static void normalise(double* a) {
        const double l = std::sqrt(dot(a, a));
        a[0] /= l, a[1] /= l, a[2] /= l;
    }
};
