#include "geometry/Plane.h"

#include "geometry/Point.h"

#include <cmath>

namespace geometry3D {

Plane::Plane() : _n(3), _d(0.0) {}

Plane::Plane(const vmp::Vector& n, double d) : _n(n), _d(d) {
    _n.normalize();
}

Plane::Plane(const Point& p, const vmp::Vector& n) : _n(n), _d(p.to_Vector() * n) {
    _n.normalize();
}

Plane::Plane(const Point& a, const Point& b, const Point& c)
    : _n(vmp::cross((b - a).to_Vector(), (c - a).to_Vector())) {
    _n.normalize();
    _d = a.to_Vector() * _n;
}

void Plane::set(double a, double b, double c, double d) {
    _n = vmp::Vector(a, b, c);
    _n.normalize();
    _d = d;
}

double Plane::distance(const Point& p) const {
    return p.to_Vector() * _n - _d;
}

Classification Plane::classify(const Point& p) const {
    const double e = distance(p);
    if (e > 1e-5)
        return InFront;
    if (e < -1e-5)
        return Behind;
    return OnPlane;
}

bool Plane::operator==(const Plane& other) const {
    if (_n.quantity() < 1e-5 || other._n.quantity() < 1e-5)
        return false;
    const double c = vmp::cross(_n, other._n).quantity();
    return std::fabs(c + _d - other._d) < 1e-5;
}

} // namespace geometry3D
