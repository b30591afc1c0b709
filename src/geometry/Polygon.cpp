#include "geometry/Polygon.h"

#include "geometry/Point.h"
#include "vmp/Vector.h"

namespace geometry3D {

Polygon::Polygon(const Polygon&) {}

Polygon::~Polygon() = default;

void Polygon::point(int i, Point* p) {
    _points[i] = p;
}

Point* Polygon::point(int i) const {
    return _points[i];
}

void Polygon::append(Point* p) {
    _points.append(p);
}

int Polygon::count_points() const {
    return _points.size();
}

int Polygon::point_index(const Point* p) const {
    return _points.indexOf(const_cast<Point*>(p));
}

void Polygon::swap_points(int i, int j) {
    _points.swapItemsAt(i, j);
}

vmp::Vector Polygon::calc_normal(double) {
    const int n = _points.size();
    const int walked = (n > 1 && _points.first() == _points.last()) ? n - 1 : n;
    vmp::Vector normal(3);
    for (int i = 0; i < walked; ++i) {
        const Point& a = *_points[i];
        const Point& b = *_points[(i + 1) % n];
        normal[0] += (a.z() + b.z()) * (a.y() - b.y());
        normal[1] += (a.x() + b.x()) * (a.z() - b.z());
        normal[2] += (a.y() + b.y()) * (a.x() - b.x());
    }
    normal.normalize();
    return normal;
}

vmp::Vector Polygon::calc_normal() {
    return calc_normal(1e-5);
}

int Polygon::contains_edge(const Point* p, const Point* q) const {
    const int n = _points.size();
    for (int i = 0; i < n; ++i) {
        if (_points[i] != p)
            continue;
        if (_points[(i + 1) % n] == q)
            return i + 1;
        const int before = (i + n - 1) % n;
        if (_points[before] == q)
            return -(before + 1);
    }
    return 0;
}

} // namespace geometry3D
