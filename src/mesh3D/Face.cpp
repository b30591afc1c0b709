#include "mesh3D/Face.h"

#include "mesh3D/Polygon.h"
#include "mesh3D/Triangle.h"

namespace mesh3D {

Face::~Face() = default;

void Face::Add(Triangle* triangle) {
    triangle->IsRootGeometry(false);
    _triangles.append(triangle);
}

void Face::Add(Polygon* polygon) {
    polygon->IsRootGeometry(false);
    _polygons.append(polygon);
}

void Face::Remove(Triangle* triangle) {
    _triangles.removeAll(triangle);
}

void Face::Remove(Polygon* polygon) {
    _polygons.removeAll(polygon);
}

void Face::Triangles(std::list<oxaIO::ITriangle*>* triangles) const {
    for (Triangle* triangle : _triangles)
        triangles->push_back(triangle);
}

void Face::Polygons(std::list<oxaIO::IPolygon*>* polygons) const {
    for (Polygon* polygon : _polygons)
        polygons->push_back(polygon);
}

} // namespace mesh3D
