#pragma once

#include "zentra_export.h"

#include "oxaIO/OxaTypes.h"

#include <list>
#include <vector>

namespace oxaIO {

// The geometric primitives of a `data3D`: vertices, triangles, polygons, faces and solids.
// The list operations append to the list they are given; the geometry keeps its ownership.

/// A point of an object's vertex list.
class ZENTRA_EXPORT IVertex {
public:
    virtual ~IVertex() = default;
    virtual double X() const = 0;
    virtual double Y() const = 0;
    virtual double Z() const = 0;
};

/// A triangle over three vertices of its object.
class ZENTRA_EXPORT ITriangle {
public:
    virtual ~ITriangle() = default;
    virtual IVertex* Vertex(int index) const = 0;
    /// Appends the texture coordinates that start at `index` of the object's coordinate run.
    virtual void TextureCoords(int index, std::vector<VCoords2D>* coords) const = 0;
    /// True when the triangle stands directly in its object rather than in a face or solid.
    virtual bool IsRootGeometry() const = 0;
};

/// A closed or open polyline, optionally with a tessellation into triangles.
class ZENTRA_EXPORT IPolygon {
public:
    virtual ~IPolygon() = default;
    virtual int Length() const = 0;
    virtual const IVertex* Vertex(int index) const = 0;
    /// Appends the triangles of the tessellation; none when the polygon has none.
    virtual void Tessellation(std::list<ITriangle*>* triangles) const = 0;
    virtual void TextureCoords(int index, std::vector<VCoords2D>* coords) const = 0;
    virtual bool IsRootGeometry() const = 0;
    virtual EPolylineType Type() const = 0;
};

/// A face of triangles and polygons.
class ZENTRA_EXPORT IFace {
public:
    virtual ~IFace() = default;
    virtual void Triangles(std::list<ITriangle*>* triangles) const = 0;
    virtual void Polygons(std::list<IPolygon*>* polygons) const = 0;
    virtual EFaceShape Shape() const = 0;
};

/// A solid bounded by faces.
class ZENTRA_EXPORT ISolid {
public:
    virtual ~ISolid() = default;
    virtual void Faces(std::list<IFace*>* faces) const = 0;
};

} // namespace oxaIO
