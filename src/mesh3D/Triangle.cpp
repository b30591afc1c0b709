#include "mesh3D/Triangle.h"

#include "mesh3D/Surface.h"
#include "mesh3D/TextureCoordinates.h"
#include "mesh3D/Vertex.h"
#include "vmp/Vector.h"

#include <QTextStream>

namespace mesh3D {

Triangle::Triangle(mesh3D::Vertex* v0, mesh3D::Vertex* v1, mesh3D::Vertex* v2)
    : geometry3D::Triangle(v0, v1, v2) {}

Triangle::Triangle(const Triangle& other)
    : geometry3D::Triangle(other), oxaIO::ITriangle(), _normal(other._normal) {
    if (other._surface)
        other._surface->add(this);
}

Triangle::~Triangle() = default;

mesh3D::Vertex* Triangle::vertex(int i) const {
    return static_cast<mesh3D::Vertex*>(point(i));
}

void Triangle::update_normal() {
    const vmp::Vector n = calc_normal();
    _normal = geometry3D::point{n[0], n[1], n[2]};
}

void Triangle::reverse_normal() {
    _normal = geometry3D::point{-_normal.x, -_normal.y, -_normal.z};
}

oxaIO::IVertex* Triangle::Vertex(int index) const {
    return vertex(index);
}

void Triangle::TextureCoords(int index, std::vector<oxaIO::VCoords2D>* coords) const {
    append_texture_coords(vertex(0), index, coords);
}

void Triangle::write_XML(QTextStream& stream, const QString& indent,
                         QHash<mesh3D::Vertex*, int>& numbers) const {
    stream << indent << "<tri";
    for (int i = 1; i <= 3; ++i)
        stream << " p" << i << "=\"" << numbers[vertex(i - 1)] << "\"";
    stream << "/>\n";
}

} // namespace mesh3D
