#pragma once

#include "oxaIO/OxaTypes.h"

#include <vector>

namespace mesh3D {

class Vertex;

/// Appends the three texture coordinates from `index` * 3 of the coordinates that the element
/// of `first` holds; nothing when there is no element or it holds too few. Shared by the
/// triangle and polygon views of the document layer.
void append_texture_coords(const Vertex* first, int index, std::vector<oxaIO::VCoords2D>* coords);

} // namespace mesh3D
