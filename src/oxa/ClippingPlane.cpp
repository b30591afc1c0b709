#include "oxa/ClippingPlane.h"

namespace oxa {

ClippingPlane::ClippingPlane(const oxaIO::VCoords3D& normal, double distance, bool off)
    : normal(normal), distance(distance), off(off) {}

} // namespace oxa
