#pragma once

#include "geometry/primitives.h"
#include "zentra_export.h"

namespace vmp {
class Vector;
}

namespace geometry3D {

/// A point in space. The setters are virtual so that a derived mesh vertex can observe every
/// change of its coordinates. Equality is exact; merging by distance is the octree's job.
class ZENTRA_EXPORT Point {
public:
    Point(double x = 0.0, double y = 0.0, double z = 0.0) : _c{x, y, z} {}
    Point(const Point& other) = default;
    explicit Point(const point& p) : _c{p.x, p.y, p.z} {}
    Point& operator=(const Point& other) = default;
    virtual ~Point();

    virtual void xyz(double x, double y, double z);
    virtual void x(double value);
    virtual void y(double value);
    virtual void z(double value);

    double x() const { return _c[0]; }
    double y() const { return _c[1]; }
    double z() const { return _c[2]; }

    Point operator+(const Point& other) const;
    Point operator-(const Point& other) const;
    Point& operator+=(const Point& other);
    Point& operator-=(const Point& other);
    Point operator*(double factor) const;
    Point operator/(double divisor) const;
    Point& operator*=(double factor);
    Point& operator/=(double divisor);
    bool operator==(const Point& other) const;
    bool operator!=(const Point& other) const { return !(*this == other); }

    /// The coordinates as an array x, y, z.
    double& operator[](long i) { return _c[i]; }
    double operator[](long i) const { return _c[i]; }
    operator const double*() const { return _c; }

    double distance(const Point& other) const;
    point to_primitive() const { return point{_c[0], _c[1], _c[2]}; }
    vmp::Vector to_Vector() const;

    /// The origin, shared.
    static const Point& null();

private:
    double _c[3];
};

} // namespace geometry3D
