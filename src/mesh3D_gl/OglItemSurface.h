#pragma once

#include "mesh3D_gl/OglItemBase.h"
#include "mesh3D/Object3D.h"
#include "mesh3D/Polygon.h"
#include "model/mapCoordsType.h"

#include <QList>
#include <QVector>

namespace oxa {
class HRef;
class OxaExamineData;
} // namespace oxa

namespace mesh3D_gl {

/// Draws one model object in immediate mode, straight from its triangle and polygon lists, every
/// frame. A surface with exactly one point is a point object and shows as a small cube.
class ZENTRA_EXPORT OglItemSurface : public OglItemAbstract {
public:
    OglItemSurface(int id, mesh3D::Object3D* element);

    void paint() override;
    void fast_paint() override;
    void select_paint(int base) override;
    mesh3D::Element* element() const override;
    Path recommended_path() const override;
    void scale(double x, double y, double z) override;
    void scale_x(double v) override;
    double scale_x() const override;
    void scale_y(double v) override;
    double scale_y() const override;
    void scale_z(double v) override;
    double scale_z() const override;
    void translate(double x, double y, double z) override;
    void translate_x(double v) override;
    double translate_x() const override;
    void translate_y(double v) override;
    double translate_y() const override;
    void translate_z(double v) override;
    double translate_z() const override;
    geometry3D::boundingbox boundingbox() const override;
    QString ClassName() const override { return "mesh3D_gl::OGLPainter_Surface"; }

    virtual void appearance_as_selected();
    virtual void appearance();
    virtual void paint_element();
    virtual void paint_solid();
    virtual void paint_wired();
    virtual void draw_normal_vectors();
    virtual void PaintPointSolid();
    virtual void PaintPointWired();
    virtual void PaintLocalOrigin();

    void paint_triangle(mesh3D::Triangle* triangle);
    void paint_triangle_textured(mesh3D::Triangle* triangle, int first, QVector<model::mapCoordsType>& coordinates);
    void PaintWiredPolygon(mesh3D::Polygon* polygon);
    void PaintExamineText(oxa::OxaExamineData* data, const QList<mesh3D::Triangle*>& triangles,
                          const QList<mesh3D::Polygon*>& polygons);
    void PaintOOBB();
    void PaintOOBBxy();

private:
    bool is_point_object() const;
    bool hidden_as_negative() const;
    /// Pushes the modelview matrix and applies the element's translation and scale, exact for
    /// any render origin.
    void push_transform() const;
    void paint_tessellation();
    template <typename Each>
    void each_triangle(Each each) const;

    mesh3D::Object3D* _element;
};

/// A height reference: a level drawn as a flat box over the scene's extent at its height.
class ZENTRA_EXPORT OglItemHRef : public OglItemAbstract {
public:
    OglItemHRef(int id, oxa::HRef* reference, const geometry3D::boundingbox& box);

    void paint() override;
    void fast_paint() override { paint(); }
    void select_paint(int base) override;
    mesh3D::Element* element() const override;
    Path recommended_path() const override { return SolidPath; }
    geometry3D::boundingbox boundingbox() const override { return _box; }
    QString ClassName() const override { return "mesh3D_gl::OGLPainter_HRef"; }

private:
    void paint_box() const;

    oxa::HRef* _reference;
    geometry3D::boundingbox _box;
};

template <typename Each>
void OglItemSurface::each_triangle(Each each) const {
    for (mesh3D::Triangle* triangle : _element->triangles())
        each(triangle);
    for (const mesh3D::Polygon* polygon : _element->polygons())
        for (mesh3D::Triangle* triangle : polygon->Tessellation())
            each(triangle);
}

} // namespace mesh3D_gl
