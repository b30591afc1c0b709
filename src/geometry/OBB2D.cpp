#include "geometry/OBB2D.h"

#include <cmath>

namespace geometry2D {

vmp::Vector OBB::_dummy(2);

OBB::OBB() : _origin(2), _axis0(2), _axis1(2) {
    _axis0[0] = 1.0;
    _axis1[1] = 1.0;
}

OBB::~OBB() = default;

const vmp::Vector& OBB::axis(int i) const {
    if (i == 0)
        return _axis0;
    if (i == 1)
        return _axis1;
    return _dummy;
}

vmp::Vector& OBB::axis(int i) {
    if (i == 0)
        return _axis0;
    if (i == 1)
        return _axis1;
    return _dummy;
}

void OBB::axis(int i, const vmp::Vector& value) {
    if (i == 0)
        _axis0 = value;
    else if (i == 1)
        _axis1 = value;
}

double OBB::CalcArea() const {
    return std::fabs(vmp::cross2D(_axis0, _axis1)[2]);
}

} // namespace geometry2D
