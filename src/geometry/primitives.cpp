#include "geometry/primitives.h"

#include "geometry/Ray.h"
#include "vmp/Vector.h"

#include <cmath>
#include <cstdio>

namespace geometry3D {

namespace {
vmp::Vector to_vector(const point& p) {
    return vmp::Vector(p.x, p.y, p.z);
}
vmp::Vector difference(const point& a, const point& b) {
    return vmp::Vector(a.x - b.x, a.y - b.y, a.z - b.z);
}
} // namespace

point center(const boundingbox& box) {
    return center(box.xmin, box.ymin, box.xmax, box.ymax, box.zmin, box.zmax);
}

point center(double xmin, double ymin, double xmax, double ymax, double zmin, double zmax) {
    return point{(xmin + xmax) / 2.0, (ymin + ymax) / 2.0, (zmin + zmax) / 2.0};
}

double volume(const boundingbox& box) {
    return (box.ymax - box.ymin) * (box.xmax - box.xmin) * (box.zmax - box.zmin);
}

double distance2(double x1, double y1, double z1, double x2, double y2, double z2) {
    const double dx = x1 - x2;
    const double dy = y1 - y2;
    const double dz = z1 - z2;
    return dx * dx + dy * dy + dz * dz;
}

double distance(const point& a, const point& b) {
    return std::sqrt(distance2(a.x, a.y, a.z, b.x, b.y, b.z));
}

void grow(boundingbox& box, const point& p) {
    if (p.x > box.xmax)
        box.xmax = p.x;
    if (p.x < box.xmin)
        box.xmin = p.x;
    if (p.y > box.ymax)
        box.ymax = p.y;
    if (p.y < box.ymin)
        box.ymin = p.y;
    if (p.z > box.zmax)
        box.zmax = p.z;
    if (p.z < box.zmin)
        box.zmin = p.z;
}

void merge(boundingbox& box, const boundingbox& other) {
    box.xmin = std::fmin(box.xmin, other.xmin);
    box.ymin = std::fmin(box.ymin, other.ymin);
    box.zmin = std::fmin(box.zmin, other.zmin);
    box.xmax = std::fmax(box.xmax, other.xmax);
    box.ymax = std::fmax(box.ymax, other.ymax);
    box.zmax = std::fmax(box.zmax, other.zmax);
}

void scale(boundingbox& box, double factor) {
    box.xmin *= factor;
    box.ymin *= factor;
    box.xmax *= factor;
    box.ymax *= factor;
    box.zmin *= factor;
    box.zmax *= factor;
}

bool inside(const point& p, const boundingbox& box) {
    return !(p.x < box.xmin || p.x > box.xmax || p.y < box.ymin || p.y > box.ymax || p.z < box.zmin ||
             p.z > box.zmax);
}

bool operator==(const boundingbox& a, const boundingbox& b) {
    return a.xmin == b.xmin && a.ymin == b.ymin && a.xmax == b.xmax && a.ymax == b.ymax && a.zmin == b.zmin &&
           a.zmax == b.zmax;
}

bool overlap(const boundingbox& a, const boundingbox& b) {
    point corner[8];
    corners(a, corner);
    for (const point& c : corner)
        if (inside(c, b))
            return true;
    if (inside(point{b.xmin, b.ymin, b.zmin}, a))
        return true;
    return a == b;
}

double distance_from_line(const point& p, const point& a, const point& b) {
    const vmp::Vector direction = difference(b, a);
    return std::fabs(vmp::cross(difference(p, a), direction).quantity() / direction.quantity());
}

void corners(const boundingbox& box, point result[8]) {
    result[0] = point{box.xmin, box.ymin, box.zmin};
    result[1] = point{box.xmax, box.ymin, box.zmin};
    result[2] = point{box.xmax, box.ymax, box.zmin};
    result[3] = point{box.xmin, box.ymax, box.zmin};
    result[4] = point{box.xmin, box.ymin, box.zmax};
    result[5] = point{box.xmax, box.ymin, box.zmax};
    result[6] = point{box.xmax, box.ymax, box.zmax};
    result[7] = point{box.xmin, box.ymax, box.zmax};
}

bool intersects(const Ray& ray, const triangle& t, double* distance) {
    const vmp::Vector& direction = ray.direction();
    const vmp::Vector e1 = difference(t.p[1], t.p[0]);
    const vmp::Vector e2 = difference(t.p[2], t.p[0]);
    const vmp::Vector h = vmp::cross(direction, e2);
    const double det = e1 * h;
    if (std::fabs(det) <= 1e-5)
        return false;
    const vmp::Vector s = ray.origin().to_Vector() - to_vector(t.p[0]);
    const double u = (s * h) / det;
    if (u < 0.0 || u > 1.0)
        return false;
    const vmp::Vector q = vmp::cross(s, e1);
    const double v = (direction * q) / det;
    if (v < 0.0 || u + v > 1.0)
        return false;
    if (distance)
        *distance = (e2 * q) / det;
    return true;
}

void print(const boundingbox& box) {
    std::printf("X (%8.2f/%8.2f) Y (%8.2f/%8.2f) Z (%8.2f/%8.2f)", box.xmin, box.xmax, box.ymin, box.ymax,
                box.zmin, box.zmax);
    std::fflush(stdout);
}

void print(const point& p) {
    std::printf("(%8.2f/%8.2f/%8.2f)", p.x, p.y, p.z);
    std::fflush(stdout);
}

} // namespace geometry3D
