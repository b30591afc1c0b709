#include "mesh3D/Vertex.h"

#include <QTextStream>

namespace mesh3D {

Vertex::~Vertex() = default;

void Vertex::write_XML(QTextStream& stream, const QString& indent, const QString& number) const {
    stream << indent << "<p nr=\"" << number << "\" x=\"" << QString::number(x(), 'g', 10) << "\" y=\""
           << QString::number(y(), 'g', 10) << "\" z=\"" << QString::number(z(), 'g', 10) << "\"/>\n";
}

} // namespace mesh3D
