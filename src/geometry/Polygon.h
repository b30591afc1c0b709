#pragma once

#include "zentra_export.h"

#include <QList>

namespace vmp {
class Vector;
}

namespace geometry3D {

class Point;

/// A closed polygon over shared points, which it does not own. A copy starts empty: the
/// points of a polygon belong to its mesh, and a copy is expected to be filled by its new owner.
class ZENTRA_EXPORT Polygon {
public:
    Polygon() = default;
    Polygon(const Polygon& other);
    Polygon& operator=(const Polygon& other) = delete;
    virtual ~Polygon();

    virtual void point(int i, Point* p);
    virtual Point* point(int i) const;

    void append(Point* p);
    int count_points() const;
    /// The first index of `p`, or -1.
    int point_index(const Point* p) const;
    void swap_points(int i, int j);

    /// Newell's normal, normalised. A closing entry that repeats the first pointer is left out,
    /// so open and closed lists give the same normal. `eps` is accepted and not used.
    vmp::Vector calc_normal(double eps);
    /// `calc_normal(1e-5)`.
    vmp::Vector calc_normal();

    /// As for a triangle: k + 1 when q follows p at index k, -(index of q + 1) when q precedes
    /// it, 0 if neither, with neighbours taken cyclically.
    int contains_edge(const Point* p, const Point* q) const;

private:
    QList<Point*> _points;
};

} // namespace geometry3D
