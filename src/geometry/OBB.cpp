#include "geometry/OBB.h"

#include <cstdio>

namespace geometry3D {

namespace {
oxaIO::VCoords3D coords(const vmp::Vector& v) {
    return oxaIO::VCoords3D{v[0], v[1], v[2]};
}
} // namespace

const vmp::Vector OBB::_dummy(3);

OBB::OBB() : _alpha(0.0), _beta(0.0), _gamma(0.0), _origin(3), _axis0(3), _axis1(3), _axis2(3) {}

OBB::~OBB() = default;

oxaIO::VCoords3D OBB::Ref() const {
    return coords(_origin);
}
oxaIO::VCoords3D OBB::Vx() const {
    return coords(_axis0);
}
oxaIO::VCoords3D OBB::Vy() const {
    return coords(_axis1);
}
oxaIO::VCoords3D OBB::Vz() const {
    return coords(_axis2);
}

void OBB::origin(double x, double y, double z) {
    _origin = vmp::Vector(x, y, z);
}

const vmp::Vector& OBB::axis(int i) const {
    switch (i) {
    case 0:
        return _axis0;
    case 1:
        return _axis1;
    case 2:
        return _axis2;
    default:
        return _dummy;
    }
}

vmp::Vector* OBB::edge(int i) {
    switch (i) {
    case 0:
        return &_axis0;
    case 1:
        return &_axis1;
    case 2:
        return &_axis2;
    default:
        return nullptr;
    }
}

void OBB::axis(int i, const vmp::Vector& value) {
    if (vmp::Vector* e = edge(i))
        *e = value;
}

void OBB::axis(int i, double x, double y, double z) {
    axis(i, vmp::Vector(x, y, z));
}

void OBB::angles(double alpha, double beta, double gamma) {
    _alpha = alpha;
    _beta = beta;
    _gamma = gamma;
}

double OBB::CalcVolume() const {
    if (_axis0.size() != 3 || _axis1.size() != 3 || _axis2.size() != 3)
        return -1.0;
    return vmp::triple_product(_axis0, _axis1, _axis2);
}

void print(const OBB& box) {
    std::printf("origin (%.3f/%.3f/%.3f) \n", box.origin()[0], box.origin()[1], box.origin()[2]);
    std::fflush(stdout);
}

} // namespace geometry3D
