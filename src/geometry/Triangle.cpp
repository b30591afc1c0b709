#include "geometry/Triangle.h"

#include "geometry/Point.h"
#include "vmp/Vector.h"

namespace geometry3D {

namespace {
vmp::Vector edge_cross(const Point* p0, const Point* p1, const Point* p2) {
    return vmp::cross((*p1 - *p0).to_Vector(), (*p2 - *p0).to_Vector());
}
} // namespace

Triangle::Triangle(Point* p0, Point* p1, Point* p2) : _points{p0, p1, p2} {}

Triangle::Triangle(const Triangle& other) : _points{other._points[0], other._points[1], other._points[2]} {}

Triangle& Triangle::operator=(const Triangle& other) {
    for (int i = 0; i < 3; ++i)
        _points[i] = other._points[i];
    return *this;
}

Triangle::~Triangle() = default;

void Triangle::point(int i, Point* p) {
    _points[i] = p;
}

Point* Triangle::point(int i) const {
    return _points[i];
}

int Triangle::point_index(const Point* p) const {
    for (int i = 0; i < 3; ++i)
        if (_points[i] == p)
            return i;
    return -1;
}

void Triangle::swap_points(int i, int j) {
    Point* t = _points[i];
    _points[i] = _points[j];
    _points[j] = t;
}

double Triangle::edge_length(int i) const {
    return _points[i]->distance(*_points[(i + 1) % 3]);
}

int Triangle::longest_edge() const {
    double best = 0.0;
    int edge = 0;
    for (int i = 0; i < 3; ++i) {
        const double length = edge_length(i);
        if (length > best) {
            best = length;
            edge = i + 1;
        }
    }
    return edge;
}

int Triangle::shortest_edge() const {
    double best = 1e15;
    int edge = 0;
    for (int i = 0; i < 3; ++i) {
        const double length = edge_length(i);
        if (length < best) {
            best = length;
            edge = i + 1;
        }
    }
    return edge;
}

double Triangle::area2() const {
    return edge_cross(_points[0], _points[1], _points[2]).quantity();
}

double Triangle::area() const {
    return area2() / 2.0;
}

double Triangle::aspect_ratio() const {
    const int edge = longest_edge();
    return 1.0 / (edge == 0 ? 0.0 : edge_length(edge - 1));
}

vmp::Vector Triangle::calc_normal() {
    vmp::Vector n = edge_cross(_points[0], _points[1], _points[2]);
    n.normalize();
    return n;
}

int Triangle::contains_edge(const Point* p, const Point* q) const {
    for (int i = 0; i < 3; ++i) {
        if (_points[i] != p)
            continue;
        if (_points[(i + 1) % 3] == q)
            return i + 1;
        if (_points[(i + 2) % 3] == q)
            return -(((i + 2) % 3) + 1);
    }
    return 0;
}

triangle Triangle::to_primitive() const {
    return triangle{{_points[0]->to_primitive(), _points[1]->to_primitive(), _points[2]->to_primitive()}};
}

double Triangle::height(int) const {
    return -1.0;
}

double Triangle::included_angle_rad(int) const {
    return -1.0;
}

} // namespace geometry3D
