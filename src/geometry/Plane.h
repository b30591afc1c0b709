#pragma once

#include "vmp/Vector.h"
#include "zentra_export.h"

namespace geometry3D {

class Point;

/// Where a point lies with respect to a plane, within 1e-5.
enum Classification { InFront = 0, OnPlane = 1, Behind = 2 };

/// The plane of points p with n . p = d, n a unit normal. A default plane has a zero normal.
class ZENTRA_EXPORT Plane {
public:
    Plane();
    /// Normalises `n` and keeps `d` as given.
    Plane(const vmp::Vector& n, double d);
    /// Normalises `n`; `d` is p . n taken with `n` as passed, before normalising, which is what
    /// hosts that pass unit normals expect and keeps the two-argument forms consistent.
    Plane(const Point& p, const vmp::Vector& n);
    /// Through three points, the normal along (b - a) x (c - a).
    Plane(const Point& a, const Point& b, const Point& c);
    Plane(const Plane& other) = default;
    Plane& operator=(const Plane& other) = default;

    /// Stores (a, b, c) normalised as the normal and `d` unchanged.
    void set(double a, double b, double c, double d);

    const vmp::Vector& n() const { return _n; }
    /// Stores `normal` as given.
    void n(const vmp::Vector& normal) { _n = normal; }
    double d() const { return _d; }

    /// n . p - d, with its sign.
    double distance(const Point& p) const;
    Classification classify(const Point& p) const;

    /// False if either normal is shorter than 1e-5; otherwise true when |(|n1 x n2|) + d1 - d2|
    /// is below 1e-5. Opposite normals with equal `d` therefore count as the same plane, which
    /// lets a clipping plane and its flipped copy be recognised as one.
    bool operator==(const Plane& other) const;
    bool operator!=(const Plane& other) const { return !(*this == other); }

private:
    vmp::Vector _n;
    double _d;
};

} // namespace geometry3D
