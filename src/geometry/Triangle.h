#pragma once

#include "geometry/primitives.h"
#include "zentra_export.h"

namespace vmp {
class Vector;
}

namespace geometry3D {

class Point;

/// A triangle over three shared points: it owns its array of three pointers, not the points,
/// so that the triangles of a mesh share their vertices. Copies share the points too.
class ZENTRA_EXPORT Triangle {
public:
    Triangle(Point* p0, Point* p1, Point* p2);
    Triangle(const Triangle& other);
    Triangle& operator=(const Triangle& other);
    virtual ~Triangle();

    virtual void point(int i, Point* p);
    virtual Point* point(int i) const;

    /// 0 to 2, or -1 if `p` is not a corner.
    int point_index(const Point* p) const;
    void swap_points(int i, int j);

    /// The edges are numbered 1 to 3, edge k running from point k-1 to point k mod 3; the first
    /// of equally long edges wins.
    int longest_edge() const;
    int shortest_edge() const;

    /// Twice the area: the length of (p1 - p0) x (p2 - p0).
    double area2() const;
    double area() const;
    /// 1.0 divided by the length of the longest edge.
    double aspect_ratio() const;
    /// Unit normal of (p1 - p0) x (p2 - p0); non-finite for a degenerate triangle.
    vmp::Vector calc_normal();

    /// Where the directed edge p -> q lies: 1 to 3 for an edge running forward from corner
    /// k-1, -1 to -3 for one running backward (naming the forward edge that starts at q), and 0
    /// if the triangle has no such edge. Neighbour search uses the sign to tell whether two
    /// triangles agree in orientation.
    int contains_edge(const Point* p, const Point* q) const;

    triangle to_primitive() const;

    /// Not computed; always -1.0.
    double height(int i) const;
    /// Not computed; always -1.0.
    double included_angle_rad(int i) const;

private:
    double edge_length(int i) const;

    /// Held in place: a triangle is created once per mesh triangle, and a separate array would
    /// cost an allocation of its own each time.
    Point* _points[3];
};

} // namespace geometry3D
