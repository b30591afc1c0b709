#pragma once

#include "zentra_export.h"

#include "oxaIO/IGeometry.h"

#include <QList>

namespace mesh3D {

class Polygon;
class Triangle;

/// A face of a surface: it groups triangles and polygons that the surface owns. Destroying a
/// face leaves its primitives alone.
class ZENTRA_EXPORT Face : public oxaIO::IFace {
public:
    Face() = default;
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;
    ~Face() override;

    /// Appends; the primitive is no longer root geometry of its surface.
    void Add(Triangle* triangle);
    void Add(Polygon* polygon);
    void Remove(Triangle* triangle);
    void Remove(Polygon* polygon);

    const QList<Triangle*>& triangles() const { return _triangles; }
    const QList<Polygon*>& polygons() const { return _polygons; }
    oxaIO::EFaceShape Shape() const override { return _shape; }
    void SetShape(oxaIO::EFaceShape shape) { _shape = shape; }
    void Triangles(std::list<oxaIO::ITriangle*>* triangles) const override;
    void Polygons(std::list<oxaIO::IPolygon*>* polygons) const override;

private:
    QList<Triangle*> _triangles;
    QList<Polygon*> _polygons;
    oxaIO::EFaceShape _shape = oxaIO::fsNone;
};

} // namespace mesh3D
