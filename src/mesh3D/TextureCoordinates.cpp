#include "mesh3D/TextureCoordinates.h"

#include "mesh3D/GeometricElement.h"
#include "mesh3D/Vertex.h"

namespace mesh3D {

void append_texture_coords(const Vertex* first, int index, std::vector<oxaIO::VCoords2D>* coords) {
    const GeometricElement* element = first ? first->geometricElement() : nullptr;
    const QVector<model::mapCoordsType>* table = element ? element->mapping_coordinates_if_any() : nullptr;
    if (!table || index < 0 || table->size() <= index * 3 + 2)
        return;
    for (int i = index * 3; i < index * 3 + 3; ++i)
        coords->push_back(oxaIO::VCoords2D{table->at(i).u, table->at(i).v});
}

} // namespace mesh3D
