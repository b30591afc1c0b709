#include "geometry/Ray.h"

namespace geometry3D {

Ray::~Ray() = default;

} // namespace geometry3D
