#pragma once

#include "xqtgl/xQGLWidget.h"
#include "xqtgl/xQGLWidget_Painter.h"

#include <GL/gl.h>

#include <QColor>

/// Draws one axis-aligned box in flat colours (one colour per face pair), in world coordinates
/// sent through the view's render origin, as every painter does.
class BoxPainter : public xqtgl::xQGLWidget_Painter {
public:
    BoxPainter(xqtgl::xQGLWidget* view, geometry3D::boundingbox box, QColor colour)
        : xqtgl::xQGLWidget_Painter(view), _box(box), _colour(colour) {}

    void paint() override {
        glDisable(GL_LIGHTING);
        const geometry3D::point lo = widget()->to_render({_box.xmin, _box.ymin, _box.zmin});
        const geometry3D::point hi = widget()->to_render({_box.xmax, _box.ymax, _box.zmax});
        const double x[2] = {lo.x, hi.x}, y[2] = {lo.y, hi.y}, z[2] = {lo.z, hi.z};
        glBegin(GL_QUADS);
        for (int side = 0; side < 2; ++side) {
            glColor3d(_colour.redF(), _colour.greenF(), _colour.blueF());
            glVertex3d(x[0], y[0], z[side]), glVertex3d(x[1], y[0], z[side]);
            glVertex3d(x[1], y[1], z[side]), glVertex3d(x[0], y[1], z[side]);
            glColor3d(_colour.redF() * 0.7, _colour.greenF() * 0.7, _colour.blueF() * 0.7);
            glVertex3d(x[side], y[0], z[0]), glVertex3d(x[side], y[1], z[0]);
            glVertex3d(x[side], y[1], z[1]), glVertex3d(x[side], y[0], z[1]);
            glColor3d(_colour.redF() * 0.4, _colour.greenF() * 0.4, _colour.blueF() * 0.4);
            glVertex3d(x[0], y[side], z[0]), glVertex3d(x[1], y[side], z[0]);
            glVertex3d(x[1], y[side], z[1]), glVertex3d(x[0], y[side], z[1]);
        }
        glEnd();
        glEnable(GL_LIGHTING);
    }
    void fast_paint() override { paint(); }
    void select_paint() override {}
    void process_hits(int, unsigned int* const, int, bool) override {}
    void ProcessElementHit(mesh3D::Element*, int, bool) override {}
    bool HighlightNearestElementAndPoint(geometry3D::point*) override { return false; }
    geometry3D::boundingbox boundingbox() const override { return _box; }
    QString type_name() const override { return "BoxPainter"; }
    geometry3D::point GetNextVisibleObjectPointFromId(const geometry3D::point& p, unsigned int,
                                                      bool*) override { return p; }
    geometry3D::point GetNextVisibleObjectPoint(const geometry3D::point& p, mesh3D::Element*,
                                                bool*) override { return p; }
    mesh3D::Element* GetElementFromId(unsigned int) override { return nullptr; }
    void select_all() override {}
    void select_visible() override {}
    void unselect_all() override {}

private:
    geometry3D::boundingbox _box;
    QColor _colour;
};

/// The box from the corner (x, y, z) with sides of `size`.
inline geometry3D::boundingbox box_of(double x, double y, double z, double size) {
    return {x, y, x + size, y + size, z, z + size};
}

