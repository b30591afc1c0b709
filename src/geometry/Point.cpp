#include "geometry/Point.h"

#include "vmp/Vector.h"

#include <cmath>

namespace geometry3D {

Point::~Point() = default;

void Point::xyz(double x, double y, double z) {
    _c[0] = x;
    _c[1] = y;
    _c[2] = z;
}

void Point::x(double value) {
    _c[0] = value;
}
void Point::y(double value) {
    _c[1] = value;
}
void Point::z(double value) {
    _c[2] = value;
}

Point Point::operator+(const Point& other) const {
    return Point(_c[0] + other._c[0], _c[1] + other._c[1], _c[2] + other._c[2]);
}
Point Point::operator-(const Point& other) const {
    return Point(_c[0] - other._c[0], _c[1] - other._c[1], _c[2] - other._c[2]);
}

Point& Point::operator+=(const Point& other) {
    _c[0] += other._c[0];
    _c[1] += other._c[1];
    _c[2] += other._c[2];
    return *this;
}

Point& Point::operator-=(const Point& other) {
    _c[0] -= other._c[0];
    _c[1] -= other._c[1];
    _c[2] -= other._c[2];
    return *this;
}

Point Point::operator*(double factor) const {
    return Point(_c[0] * factor, _c[1] * factor, _c[2] * factor);
}
Point Point::operator/(double divisor) const {
    return Point(_c[0] / divisor, _c[1] / divisor, _c[2] / divisor);
}

Point& Point::operator*=(double factor) {
    _c[0] *= factor;
    _c[1] *= factor;
    _c[2] *= factor;
    return *this;
}

Point& Point::operator/=(double divisor) {
    _c[0] /= divisor;
    _c[1] /= divisor;
    _c[2] /= divisor;
    return *this;
}

bool Point::operator==(const Point& other) const {
    return _c[0] == other._c[0] && _c[1] == other._c[1] && _c[2] == other._c[2];
}

double Point::distance(const Point& other) const {
    return std::sqrt(distance2(_c[0], _c[1], _c[2], other._c[0], other._c[1], other._c[2]));
}

vmp::Vector Point::to_Vector() const {
    return vmp::Vector(_c[0], _c[1], _c[2]);
}

const Point& Point::null() {
    static const Point origin;
    return origin;
}

} // namespace geometry3D
