#pragma once

#include "zentra_export.h"

#include "geometry/Triangle.h"
#include "oxaIO/IGeometry.h"

#include <QHash>

class QTextStream;

namespace mesh3D {

class Surface;
class Vertex;

/// A triangle of a surface over three shared vertices, with its stored unit normal. The
/// surface owns it, or the polygon whose tessellation it belongs to.
class ZENTRA_EXPORT Triangle : public geometry3D::Triangle, public oxaIO::ITriangle {
public:
    Triangle(mesh3D::Vertex* v0, mesh3D::Vertex* v1, mesh3D::Vertex* v2);
    /// Shares the vertices and copies the normal; a copy of a surface's triangle is added to
    /// that surface as well.
    Triangle(const Triangle& other);
    Triangle& operator=(const Triangle&) = delete;
    ~Triangle() override;

    mesh3D::Vertex* vertex(int i) const;
    const geometry3D::point& normal() const { return _normal; }
    /// Stores the computed unit normal.
    void update_normal();
    /// Negates the stored normal, for a triangle whose winding was just reversed.
    void reverse_normal();
    Surface* surface() const { return _surface; }
    void surface(Surface* owner) { _surface = owner; }

    /// False once the triangle belongs to a face.
    bool IsRootGeometry() const override { return _root_geometry; }
    void IsRootGeometry(bool root) { _root_geometry = root; }
    oxaIO::IVertex* Vertex(int index) const override;
    /// Appends the three texture coordinates at `index` * 3 of the element's coordinates, if
    /// the element of the first vertex has that many.
    void TextureCoords(int index, std::vector<oxaIO::VCoords2D>* coords) const override;

    /// `<tri p1=".." p2=".." p3=".."/>` with the vertex numbers from `numbers`; a vertex not
    /// yet numbered is entered with 0.
    void write_XML(QTextStream& stream, const QString& indent, QHash<mesh3D::Vertex*, int>& numbers) const;

private:
    geometry3D::point _normal{0.0, 0.0, 0.0};
    Surface* _surface = nullptr;
    bool _root_geometry = true;
};

} // namespace mesh3D
