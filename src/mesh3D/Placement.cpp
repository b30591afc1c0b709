#include "mesh3D/Placement.h"

namespace mesh3D {

void Placement::translate(double x, double y, double z) {
    _translate[0] = x;
    _translate[1] = y;
    _translate[2] = z;
}

void Placement::scale(double x, double y, double z) {
    _scale[0] = x;
    _scale[1] = y;
    _scale[2] = z;
}

void Placement::reset_placement() {
    translate(0.0, 0.0, 0.0);
    scale(1.0, 1.0, 1.0);
}

} // namespace mesh3D
