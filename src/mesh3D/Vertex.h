#pragma once

#include "zentra_export.h"

#include "geometry/Point.h"
#include "oxaIO/IGeometry.h"

#include <QString>

class QTextStream;

namespace mesh3D {

class GeometricElement;

/// A shared corner of a mesh: a point that knows the element whose octree holds it. The
/// element owns it; triangles and polygons only refer to it.
class ZENTRA_EXPORT Vertex : public geometry3D::Point, public oxaIO::IVertex {
public:
    Vertex(double x, double y, double z) : geometry3D::Point(x, y, z) {}
    /// Copies the coordinates and the element.
    Vertex(const Vertex& other) = default;
    Vertex& operator=(const Vertex&) = default;
    ~Vertex() override;

    double X() const override { return x(); }
    double Y() const override { return y(); }
    double Z() const override { return z(); }

    GeometricElement* geometricElement() const { return _element; }
    void geometricElement(GeometricElement* element) { _element = element; }

    /// One line `<p nr=".." x=".." y=".." z=".."/>` after `indent`, with the given number.
    void write_XML(QTextStream& stream, const QString& indent, const QString& number) const;

private:
    GeometricElement* _element = nullptr;
};

} // namespace mesh3D
