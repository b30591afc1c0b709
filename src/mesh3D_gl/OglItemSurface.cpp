#include "mesh3D_gl/OglItemSurface.h"

#include "geometry/OctreeIterator.h"
#include "geometry/Octree.h"
#include "mesh3D/Material.h"
#include "mesh3D/Object3D.h"
#include "mesh3D/Polygon.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"
#include "oxa/HRef.h"
#include "oxa/OxaExamineContainer.h"
#include "xqtgl/xQGLWidget.h"

#include <GL/gl.h>

namespace mesh3D_gl {

namespace {

void material_colour(GLenum which, const basic::color4& c) {
    const GLfloat values[4] = {c.r, c.g, c.b, c.a};
    glMaterialfv(GL_FRONT_AND_BACK, which, values);
}

/// Colours the edges by emission alone, with lighting left on: switching the lighting off and on
/// for every item costs a pipeline change per item on a software renderer (a quarter of a frame
/// of the reference building), while the colour that reaches the frame is the same, since no
/// light adds anything to a surface without ambient, diffuse or specular reflection.
void edge_colour(double r, double g, double b) {
    const GLfloat emission[4] = {GLfloat(r), GLfloat(g), GLfloat(b), 1.0f};
    static const GLfloat none[4] = {0.0f, 0.0f, 0.0f, 1.0f};
    glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, emission);
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, none);
    glColor4d(0.0, 0.0, 0.0, 1.0); // ambient and diffuse, through the colour material
}

void end_edges() {
    static const GLfloat none[4] = {0.0f, 0.0f, 0.0f, 1.0f};
    glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, none);
}

void send(const mesh3D::Vertex* v) { OglItemBase::vertex(v->x(), v->y(), v->z()); }

} // namespace

OglItemSurface::OglItemSurface(int id, mesh3D::Object3D* element) : OglItemAbstract(id), _element(element) {}

mesh3D::Element* OglItemSurface::element() const { return _element; }

bool OglItemSurface::is_point_object() const { return _element->vertices().count() == 1; }

bool OglItemSurface::hidden_as_negative() const { return !options.DrawNegative() && _element->Negative(); }

void OglItemSurface::push_transform() const {
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    // The element's placement is about the world origin: seen from the render origin o it is a
    // translation by t + (s - 1)·o, then the scale.
    const geometry3D::point& o = render_origin;
    const mesh3D::Object3D& e = *_element;
    glTranslated(e.translate_x() + (e.scale_x() - 1.0) * o.x, e.translate_y() + (e.scale_y() - 1.0) * o.y,
                 e.translate_z() + (e.scale_z() - 1.0) * o.z);
    glScaled(e.scale_x(), e.scale_y(), e.scale_z());
}

void OglItemSurface::paint() {
    push_transform();
    PaintLocalOrigin();
    if (selected())
        appearance_as_selected();
    else
        appearance();
    paint_element();
    glPopMatrix();
}

void OglItemSurface::fast_paint() {
    push_transform();
    glColor4d(0.0, 0.0, 0.0, 1.0);
    glLineWidth(1.25f);
    const bool remote = xqtgl::xQGLWidget::RemoteSession();
    const int step = options.WiredLinesStep();
    if (remote) {
        options.WiredLinesStep(xqtgl::xQGLWidget::RemoteFastLineStep());
        if (selected() && xqtgl::xQGLWidget::RemoteFastSelectedSolid()) {
            appearance_as_selected();
            paint_solid();
        }
    }
    paint_wired();
    if (remote)
        options.WiredLinesStep(step);
    glPopMatrix();
}

void OglItemSurface::paint_element() {
    if (hidden_as_negative())
        return;
    if (draws_solid())
        paint_solid();
    if (draws_wired()) {
        glColor4d(0.0, 0.0, 0.0, 1.0);
        glLineWidth(1.25f);
        paint_wired();
    }
    if (options.draw_normal_vectors()) {
        glColor3d(0.0, 0.0, 0.0);
        draw_normal_vectors();
    }
    if (options.drawOBBs())
        PaintOOBB();
    if (options.drawOOBBxy())
        PaintOOBBxy();
}

void OglItemSurface::appearance() {
    const mesh3D::Material* material = TempMaterial() ? TempMaterial() : _element->material();
    if (!material)
        return;
    material_colour(GL_AMBIENT, material->ambient());
    material_colour(GL_DIFFUSE, material->diffuse());
    material_colour(GL_SPECULAR, material->specular());
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, GLfloat(material->shininess() * 128.0));
    const basic::color4& d = material->diffuse();
    glColor4d(d.r, d.g, d.b, (1.0 - material->transparency()) * transparency());
}

void OglItemSurface::appearance_as_selected() {
    if (options.DrawTessellationOfSelectedElements())
        paint_tessellation();
    oxa::OxaExamineContainer* examine = oxa::OxaExamineContainer::GetInstance();
    if (examine->IsDrawPointNumbers()) {
        if (oxa::OxaExamineData* data = examine->FindObjectExamineDataFromRealID(_element->id())) {
            glDisable(GL_LIGHTING);
            glColor3d(0.0, 1.0, 0.0);
            PaintExamineText(data, _element->triangles(), _element->polygons());
        }
    }
    glEnable(GL_LIGHTING);
    const mesh3D::Material* material = _element->material();
    const double alpha = material ? (1.0 - material->transparency()) * transparency() : transparency();
    glColor4d(_selectionColorR, _selectionColorG, _selectionColorB, alpha);
}

void OglItemSurface::paint_triangle(mesh3D::Triangle* triangle) {
    const geometry3D::point& n = triangle->normal();
    glNormal3d(n.x, n.y, n.z);
    for (int i = 0; i < 3; ++i)
        send(triangle->vertex(i));
}

void OglItemSurface::paint_triangle_textured(mesh3D::Triangle* triangle, int first,
                                             QVector<model::mapCoordsType>& coordinates) {
    const geometry3D::point& n = triangle->normal();
    glNormal3d(n.x, n.y, n.z);
    for (int i = 0; i < 3; ++i) {
        glTexCoord2d(coordinates[first + i].u, coordinates[first + i].v);
        send(triangle->vertex(i));
    }
}

void OglItemSurface::paint_solid() {
    if (is_point_object()) {
        PaintPointSolid();
        return;
    }
    const mesh3D::Material* material = _element->material();
    auto* coordinates = const_cast<QVector<model::mapCoordsType>*>(_element->mapping_coordinates_if_any());
    if (material && material->texture() > 0 && coordinates) {
        glEnable(GL_TEXTURE_2D);
        glBindTexture(GL_TEXTURE_2D, material->texture());
        glBegin(GL_TRIANGLES);
        const int available = coordinates->size();
        int next = 0;
        // Too few coordinates for the loose triangles skips them all; a polygon is skipped where
        // the array runs out, and the running index goes on either way.
        if (available >= 3 * _element->triangles().size())
            for (mesh3D::Triangle* triangle : _element->triangles())
                paint_triangle_textured(triangle, 3 * next++, *coordinates);
        else
            next += _element->triangles().size();
        for (const mesh3D::Polygon* polygon : _element->polygons()) {
            const QList<mesh3D::Triangle*>& triangles = polygon->Tessellation();
            if (3 * (next + triangles.size()) <= available)
                for (mesh3D::Triangle* triangle : triangles)
                    paint_triangle_textured(triangle, 3 * next++, *coordinates);
            else
                next += triangles.size();
        }
        glEnd();
        glDisable(GL_TEXTURE_2D);
        return;
    }
    glBegin(GL_TRIANGLES);
    each_triangle([this](mesh3D::Triangle* triangle) { paint_triangle(triangle); });
    glEnd();
}

void OglItemSurface::paint_wired() {
    if (is_point_object()) {
        PaintPointWired();
        return;
    }
    edge_colour(_wiredColorR, _wiredColorG, _wiredColorB);
    const int step = std::max(1, options.WiredLinesStep());
    glBegin(GL_LINES);
    mesh3D::triangle_edges** edges = _element->edges();
    const int count = edges ? _element->count_triangle_edge_objects() : 0;
    for (int i = 0; i < count; i += step) {
        const mesh3D::triangle_edges& record = *edges[i];
        static const int ends[3][2] = {{0, 1}, {1, 2}, {2, 0}};
        for (int edge = 0; edge < 3; ++edge) {
            if (record.flags & (1 << edge)) {
                send(record.triangle->vertex(ends[edge][0]));
                send(record.triangle->vertex(ends[edge][1]));
            }
        }
    }
    glEnd();
    const QList<mesh3D::Polygon*>& polygons = _element->polygons();
    for (int i = 0; i < polygons.size(); i += step)
        PaintWiredPolygon(polygons[i]);
    end_edges();
}

void OglItemSurface::PaintWiredPolygon(mesh3D::Polygon* polygon) {
    edge_colour(_wiredColorR, _wiredColorG, _wiredColorB);
    const bool line_object = polygon->Tessellation().isEmpty();
    if (selected()) {
        glLineWidth(GLfloat(polygon->Thickness() * 2.5));
        if (line_object)
            edge_colour(1.0, 1.0, 0.0);
    } else {
        glLineWidth(GLfloat(polygon->Thickness() * 1.25));
        if (line_object && _element->material()) {
            const basic::color4& d = _element->material()->diffuse();
            edge_colour(d.r, d.g, d.b);
        }
    }
    glBegin(GL_LINE_STRIP);
    for (int i = 0; i < polygon->count_points(); ++i)
        send(polygon->vertex(i));
    glEnd();
}

void OglItemSurface::select_paint(int base) {
    if (hidden_as_negative())
        return;
    GLubyte r = 0, g = 0, b = 0;
    xqtgl::xQGLWidget::SelectID2RGB(unsigned(id_number() + base), r, g, b);
    glColor3d(r / 255.0, g / 255.0, b / 255.0);
    glMatrixMode(GL_MODELVIEW);
    if (is_point_object()) {
        glPushMatrix();
        PaintPointSolid();
        glPopMatrix();
        return;
    }
    push_transform();
    glBegin(GL_TRIANGLES);
    each_triangle([this](mesh3D::Triangle* triangle) { paint_triangle(triangle); });
    glEnd();
    glPopMatrix();
}

OglItemBase::Path OglItemSurface::recommended_path() const {
    const mesh3D::Material* material = _element->material();
    if ((material && material->transparency() > 0.1) || transparency() < 0.99)
        return TransparentPath;
    return SolidPath;
}

void OglItemSurface::scale(double x, double y, double z) { _element->scale(x, y, z); }
void OglItemSurface::scale_x(double v) { _element->scale_x(v); }
double OglItemSurface::scale_x() const { return _element->scale_x(); }
void OglItemSurface::scale_y(double v) { _element->scale_y(v); }
double OglItemSurface::scale_y() const { return _element->scale_y(); }
void OglItemSurface::scale_z(double v) { _element->scale_z(v); }
double OglItemSurface::scale_z() const { return _element->scale_z(); }
void OglItemSurface::translate(double x, double y, double z) { _element->translate(x, y, z); }
void OglItemSurface::translate_x(double v) { _element->translate_x(v); }
double OglItemSurface::translate_x() const { return _element->translate_x(); }
void OglItemSurface::translate_y(double v) { _element->translate_y(v); }
double OglItemSurface::translate_y() const { return _element->translate_y(); }
void OglItemSurface::translate_z(double v) { _element->translate_z(v); }
double OglItemSurface::translate_z() const { return _element->translate_z(); }

geometry3D::boundingbox OglItemSurface::boundingbox() const {
    _element->update_boundingbox();
    return _element->getBoundingbox();
}

// ---- height reference ----

OglItemHRef::OglItemHRef(int id, oxa::HRef* reference, const geometry3D::boundingbox& box)
    : OglItemAbstract(id), _reference(reference), _box(box) {}

mesh3D::Element* OglItemHRef::element() const { return _reference; }

void OglItemHRef::paint_box() const {
    const double x[2] = {_box.xmin, _box.xmax}, y[2] = {_box.ymin, _box.ymax}, z[2] = {_box.zmin, _box.zmax};
    glBegin(GL_QUADS);
    for (int side = 0; side < 2; ++side) {
        vertex(x[0], y[0], z[side]), vertex(x[1], y[0], z[side]), vertex(x[1], y[1], z[side]), vertex(x[0], y[1], z[side]);
        vertex(x[side], y[0], z[0]), vertex(x[side], y[1], z[0]), vertex(x[side], y[1], z[1]), vertex(x[side], y[0], z[1]);
        vertex(x[0], y[side], z[0]), vertex(x[1], y[side], z[0]), vertex(x[1], y[side], z[1]), vertex(x[0], y[side], z[1]);
    }
    glEnd();
}

void OglItemHRef::paint() {
    if (!options.drawHRefs())
        return;
    if (selected())
        glColor4d(1.0, 1.0, 0.0, 1.0);
    else
        glColor4d(1.0, 0.0, 0.0, 0.1);
    if (options.draw_solid())
        paint_box();
    if (options.draw_wired()) {
        glColor4d(0.0, 0.0, 0.0, 1.0);
        glLineWidth(1.25f);
        glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
        paint_box();
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    }
}

void OglItemHRef::select_paint(int base) {
    const unsigned int id = unsigned(id_number() + base);
    glColor3f((id & 0xFF) / 255.0f, ((id >> 8) & 0xFF) / 255.0f, ((id >> 8 >> 15) & 0xFF) / 255.0f);
    paint_box();
}

} // namespace mesh3D_gl
