#pragma once

#include "zentra_export.h"

namespace geometry3D {

class Ray;

/// Three coordinates, without behaviour.
struct point {
    double x;
    double y;
    double z;
};

/// An axis-parallel box, stored in the order xmin, ymin, xmax, ymax, zmin, zmax, which the
/// stored formats of the model share. The empty box has inverted extreme values, so that the
/// first grown point sets both ends of each range.
struct boundingbox {
    double xmin = 1.7976931348623157e308;
    double ymin = 1.7976931348623157e308;
    double xmax = -1.7976931348623157e308;
    double ymax = -1.7976931348623157e308;
    double zmin = 1.7976931348623157e308;
    double zmax = -1.7976931348623157e308;
};

/// Three corner coordinates.
struct triangle {
    point p[3];
};

ZENTRA_EXPORT point center(const boundingbox& box);
ZENTRA_EXPORT point center(double xmin, double ymin, double xmax, double ymax, double zmin, double zmax);
ZENTRA_EXPORT double volume(const boundingbox& box);

/// Squared distance, without the root.
ZENTRA_EXPORT double distance2(double x1, double y1, double z1, double x2, double y2, double z2);
ZENTRA_EXPORT double distance(const point& a, const point& b);

/// Widens each range that `p` lies outside of; the tests for minimum and maximum are
/// independent, so that the first point of an empty box sets both.
ZENTRA_EXPORT void grow(boundingbox& box, const point& p);
/// Grows `box` over the extremes of `other`; merging with the empty box changes nothing.
ZENTRA_EXPORT void merge(boundingbox& box, const boundingbox& other);
/// Multiplies all six values by `factor`.
ZENTRA_EXPORT void scale(boundingbox& box, double factor);

/// True if a corner of `a` lies in `b`, if the first corner of `b` lies in `a`, or if both
/// boxes have equal ranges. Boxes that only cross each other (no corner of either inside) are
/// not detected; callers use it as a cheap pre-test on nested model parts.
ZENTRA_EXPORT bool overlap(const boundingbox& a, const boundingbox& b);
ZENTRA_EXPORT bool operator==(const boundingbox& a, const boundingbox& b);
ZENTRA_EXPORT bool inside(const point& p, const boundingbox& box);

/// Distance of `p` from the infinite line through `a` and `b`.
ZENTRA_EXPORT double distance_from_line(const point& p, const point& a, const point& b);

/// The corners, lower face first, each face counter-clockwise from its minimum corner:
/// (xmin,ymin,zmin) (xmax,ymin,zmin) (xmax,ymax,zmin) (xmin,ymax,zmin), then the same at zmax.
/// Edge and face tables elsewhere index into this order.
ZENTRA_EXPORT void corners(const boundingbox& box, point result[8]);

/// Moller-Trumbore: whether `ray` hits `t`, and if so, with `distance` set to the parameter
/// along the ray's direction. A triangle seen edge-on (|det| <= 1e-5) is a miss. The sign of
/// the distance is not tested, so that hits behind the origin count too.
ZENTRA_EXPORT bool intersects(const Ray& ray, const triangle& t, double* distance = nullptr);

/// Debug lines on stdout.
ZENTRA_EXPORT void print(const boundingbox& box);
ZENTRA_EXPORT void print(const point& p);

} // namespace geometry3D
