#pragma once

#include "zentra_export.h"

#include "geometry/Polygon.h"
#include "geometry/primitives.h"
#include "oxaIO/IGeometry.h"

#include <QList>

namespace mesh3D {

class Surface;
class Triangle;
class Vertex;

/// A polyline or polygon of a surface over shared vertices, with a thickness, its kind, and
/// the triangles that fill it, which it owns.
class ZENTRA_EXPORT Polygon : public geometry3D::Polygon, public oxaIO::IPolygon {
public:
    /// For `CalculatePolylineType`: judge planarity even if the point list is not closed.
    static const long NoClosedPolygonCheck = 1;

    Polygon() = default;
    Polygon(const Polygon&) = delete;
    Polygon& operator=(const Polygon&) = delete;
    /// Deletes the tessellation.
    ~Polygon() override;

    mesh3D::Vertex* vertex(int i) const;
    const oxaIO::IVertex* Vertex(int index) const override;
    int Length() const override { return count_points(); }

    const geometry3D::point& normal() const { return _normal; }
    void update_normal();
    /// Negates the stored normal, for a polygon whose winding was just reversed.
    void reverse_normal();
    Surface* surface() const { return _surface; }
    void surface(Surface* owner) { _surface = owner; }
    double Thickness() const { return _thickness; }
    void Thickness(double thickness) { _thickness = thickness; }
    oxaIO::EPolylineType Type() const override { return _type; }
    void Type(oxaIO::EPolylineType type) { _type = type; }
    bool IsRootGeometry() const override { return _root_geometry; }
    void IsRootGeometry(bool root) { _root_geometry = root; }

    /// True with fewer than four points. Otherwise false when a point lies more than `eps` on
    /// the positive side of the plane through point 0: the test is one-sided by design, as
    /// stored polygons were judged that way and their kinds must come out the same.
    bool IsPlanar(double eps);
    /// First and last point closer than sqrt(1e-5); false without points.
    bool IsClosed() const;
    /// 0 below two points; 1 (chain) for two points, for an open list unless `flags` has
    /// `NoClosedPolygonCheck`, and for a non-planar one; else 2 (polygon).
    oxaIO::EPolylineType CalculatePolylineType(long flags);

    /// Appends the triangle, which now belongs to this polygon and points to its surface.
    void AddToTessellation(Triangle* triangle);
    void DeleteTessellation();
    /// Drops the triangles; whoever asked for the update makes them again.
    void UpdateTessellation();
    const QList<Triangle*>& Tessellation() const { return _tessellation; }
    void Tessellation(std::list<oxaIO::ITriangle*>* triangles) const override;
    void TextureCoords(int index, std::vector<oxaIO::VCoords2D>* coords) const override;

private:
    geometry3D::point _normal{0.0, 0.0, 0.0};
    Surface* _surface = nullptr;
    QList<Triangle*> _tessellation;
    double _thickness = 1.0;
    oxaIO::EPolylineType _type = oxaIO::plNone;
    bool _root_geometry = true;
};

} // namespace mesh3D
