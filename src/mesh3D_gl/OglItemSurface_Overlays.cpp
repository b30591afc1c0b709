// What a surface item draws beside its faces and edges: normals, the cube of a point object,
// the local origin, the oriented boxes, the tessellation and the point numbers of an
// examination. Debugging aids for the most part.
#include "geometry/OBB.h"
#include "geometry/OBB2D.h"
#include "geometry/Octree.h"
#include "geometry/OctreeIterator.h"
#include "mesh3D/Object3D.h"
#include "mesh3D/Polygon.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"
#include "mesh3D_gl/OglItemSurface.h"
#include "oxa/OxaExamineContainer.h"
#include "oxa/OxaExamineData.h"
#include "xqtgl/xQGLWidget.h"

#include <GL/gl.h>

namespace mesh3D_gl {

namespace {

void axis_lines(const double from[3], const double axes[][3], int count, const double colours[][3]) {
    glBegin(GL_LINES);
    for (int a = 0; a < count; ++a) {
        glColor4d(colours[a][0], colours[a][1], colours[a][2], 1.0);
        OglItemBase::vertex(from[0], from[1], from[2]);
        OglItemBase::vertex(from[0] + axes[a][0], from[1] + axes[a][1], from[2] + axes[a][2]);
    }
    glEnd();
}

const double green_blue_red[3][3] = {{0, 1, 0}, {0, 0, 1}, {1, 0, 0}};

} // namespace

void OglItemSurface::draw_normal_vectors() {
    glBegin(GL_LINES);
    each_triangle([](mesh3D::Triangle* t) {
        const geometry3D::point& n = t->normal();
        double c[3] = {0, 0, 0};
        for (int i = 0; i < 3; ++i)
            c[0] += t->vertex(i)->x() / 3.0, c[1] += t->vertex(i)->y() / 3.0, c[2] += t->vertex(i)->z() / 3.0;
        vertex(c[0], c[1], c[2]);
        vertex(c[0] + n.x, c[1] + n.y, c[2] + n.z);
    });
    glEnd();
}

void OglItemSurface::PaintPointSolid() {
    geometry3D::OctreeIterator points(&_element->vertices());
    const geometry3D::Point* p = points.next();
    if (!p)
        return;
    const double s = options.PointSize();
    glBegin(GL_QUADS);
    for (int axis = 0; axis < 3; ++axis) {
        for (double side : {-1.0, 1.0}) {
            double n[3] = {0, 0, 0};
            n[axis] = side;
            glNormal3d(n[0], n[1], n[2]);
            const int u = (axis + 1) % 3, v = (axis + 2) % 3;
            static const double corners[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
            for (const auto& corner : corners) {
                double q[3] = {p->x(), p->y(), p->z()};
                q[axis] += side * s;
                // Outward winding on both sides of each axis.
                q[u] += corner[0] * s * side;
                q[v] += corner[1] * s;
                vertex(q[0], q[1], q[2]);
            }
        }
    }
    glEnd();
}

void OglItemSurface::PaintPointWired() {
    geometry3D::OctreeIterator points(&_element->vertices());
    const geometry3D::Point* p = points.next();
    if (!p)
        return;
    const double s = options.PointSize();
    const double corner[3] = {p->x() - s, p->y() - s, p->z() - s};
    const double axes[3][3] = {{2 * s, 0, 0}, {0, 2 * s, 0}, {0, 0, 2 * s}};
    glDisable(GL_LIGHTING);
    glColor4d(_wiredColorR, _wiredColorG, _wiredColorB, 1.0);
    glBegin(GL_LINES);
    box_edges(corner, axes);
    glEnd();
    glEnable(GL_LIGHTING);
}

void OglItemSurface::PaintLocalOrigin() {
    const geometry3D::OBB* frame = _element->LocalOrigin();
    if (!options.DrawLocalOrigin() || !frame)
        return;
    double axes[3][3], centre[3];
    for (int i = 0; i < 3; ++i) {
        centre[i] = frame->origin()[i];
        for (int a = 0; a < 3; ++a)
            axes[a][i] = frame->axis(a)[i];
    }
    for (int i = 0; i < 3; ++i)
        centre[i] += 0.5 * (axes[0][i] + axes[1][i] + axes[2][i]);
    glLineWidth(2.0f);
    axis_lines(centre, axes, 3, green_blue_red);
}

void OglItemSurface::PaintOOBB() {
    const geometry3D::OBB* box = _element->OptOBB();
    if (!box)
        return;
    double corner[3], axes[3][3];
    for (int i = 0; i < 3; ++i) {
        corner[i] = box->origin()[i];
        for (int a = 0; a < 3; ++a)
            axes[a][i] = box->axis(a)[i];
    }
    glLineWidth(4.0f);
    axis_lines(corner, axes, 3, green_blue_red);
    glLineWidth(2.0f);
    glColor4d(0.5, 0.5, 0.5, 0.5);
    glBegin(GL_LINES);
    box_edges(corner, axes);
    glEnd();
}

void OglItemSurface::PaintOOBBxy() {
    const geometry2D::OBB* box = _element->OOBBxy();
    if (!box)
        return;
    const geometry3D::boundingbox b = boundingbox();
    const double corner[3] = {box->origin()[0], box->origin()[1], b.zmin};
    const double axes[3][3] = {{box->axis(0)[0], box->axis(0)[1], 0.0},
                               {box->axis(1)[0], box->axis(1)[1], 0.0},
                               {0.0, 0.0, b.zmax - b.zmin}};
    glLineWidth(4.0f);
    axis_lines(corner, axes, 2, green_blue_red);
    glLineWidth(2.0f);
    glColor4d(0.5, 0.5, 0.5, 0.5);
    glBegin(GL_LINES);
    box_edges(corner, axes);
    glEnd();
}

void OglItemSurface::paint_tessellation() {
    glLineWidth(2.0f);
    glDisable(GL_LIGHTING);
    glBegin(GL_LINES);
    const auto edges = [](const mesh3D::Triangle* t) {
        for (int i = 0; i < 3; ++i) {
            const mesh3D::Vertex* a = t->vertex(i);
            const mesh3D::Vertex* b = t->vertex((i + 1) % 3);
            vertex(a->x(), a->y(), a->z());
            vertex(b->x(), b->y(), b->z());
        }
    };
    glColor3d(0.0, 0.0, 0.0);
    for (const mesh3D::Triangle* t : _element->triangles())
        edges(t);
    glColor3d(0.0, 0.0, 1.0);
    for (const mesh3D::Polygon* polygon : _element->polygons())
        for (const mesh3D::Triangle* t : polygon->Tessellation())
            edges(t);
    glEnd();
}

void OglItemSurface::PaintExamineText(oxa::OxaExamineData* data, const QList<mesh3D::Triangle*>& triangles,
                                      const QList<mesh3D::Polygon*>& polygons) {
    double sx = 1.0, sy = 1.0, sz = 1.0;
    oxa::OxaExamineContainer::GetInstance()->GetTextScale(sx, sy, sz);
    const auto numbers = [&](const mesh3D::Triangle* t) {
        for (int i = 0; i < 3; ++i) {
            mesh3D::Vertex* v = t->vertex(i);
            glColor3d(0.5, 0.0, 1.0);
            glPushMatrix();
            glTranslated(v->x() - render_origin.x, v->y() - render_origin.y, v->z() - render_origin.z);
            glRotated(90.0, 1.0, 0.0, 0.0);
            glScaled(sx, sy, sz);
            xqtgl::xQGLWidget::draw_vectorqstring(QString::number(data->FindPoint(v)));
            glPopMatrix();
        }
    };
    for (const mesh3D::Triangle* t : triangles)
        numbers(t);
    for (const mesh3D::Polygon* polygon : polygons)
        for (const mesh3D::Triangle* t : polygon->Tessellation())
            numbers(t);
}

} // namespace mesh3D_gl
