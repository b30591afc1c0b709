#include "mesh3D/Polygon.h"

#include "mesh3D/TextureCoordinates.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"
#include "vmp/Vector.h"

namespace mesh3D {

Polygon::~Polygon() {
    DeleteTessellation();
}

mesh3D::Vertex* Polygon::vertex(int i) const {
    return static_cast<mesh3D::Vertex*>(point(i));
}

const oxaIO::IVertex* Polygon::Vertex(int index) const {
    return vertex(index);
}

void Polygon::update_normal() {
    const vmp::Vector n = calc_normal();
    _normal = geometry3D::point{n[0], n[1], n[2]};
}

void Polygon::reverse_normal() {
    _normal = geometry3D::point{-_normal.x, -_normal.y, -_normal.z};
}

bool Polygon::IsPlanar(double eps) {
    const int n = count_points();
    if (n < 4)
        return true;
    const vmp::Vector normal = calc_normal(eps);
    const geometry3D::Point& origin = *point(0);
    for (int i = 0; i < n; ++i) {
        const geometry3D::Point d = *point(i) - origin;
        if (d.x() * normal[0] + d.y() * normal[1] + d.z() * normal[2] > eps)
            return false;
    }
    return true;
}

bool Polygon::IsClosed() const {
    const int n = count_points();
    if (n == 0)
        return false;
    const geometry3D::Point& a = *point(0);
    const geometry3D::Point& b = *point(n - 1);
    return geometry3D::distance2(a.x(), a.y(), a.z(), b.x(), b.y(), b.z()) < 1e-5;
}

oxaIO::EPolylineType Polygon::CalculatePolylineType(long flags) {
    const int n = count_points();
    if (n < 2)
        return oxaIO::plNone;
    if (n == 2)
        return oxaIO::plChain;
    if (!(flags & NoClosedPolygonCheck) && !IsClosed())
        return oxaIO::plChain;
    return IsPlanar(1e-5) ? oxaIO::plPolygon : oxaIO::plChain;
}

void Polygon::AddToTessellation(Triangle* triangle) {
    triangle->surface(_surface);
    _tessellation.append(triangle);
}

void Polygon::DeleteTessellation() {
    qDeleteAll(_tessellation);
    _tessellation.clear();
}

void Polygon::UpdateTessellation() {
    DeleteTessellation();
}

void Polygon::Tessellation(std::list<oxaIO::ITriangle*>* triangles) const {
    for (Triangle* triangle : _tessellation)
        triangles->push_back(triangle);
}

void Polygon::TextureCoords(int index, std::vector<oxaIO::VCoords2D>* coords) const {
    append_texture_coords(count_points() > 0 ? vertex(0) : nullptr, index, coords);
}

} // namespace mesh3D
