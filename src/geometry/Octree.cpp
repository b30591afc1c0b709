#include "geometry/Octree.h"

#include "basic/numeric.h"
#include "geometry/OBB.h"
#include "geometry/OOBBCalculator.h"
#include "geometry/OctreeInsertIndex.h"
#include "geometry/OctreeIterator.h"
#include "geometry/Point.h"
#include "vmp/aMatrix.h"

#include <cmath>
#include <utility>
#include <vector>

namespace geometry3D {

namespace {
/// A walk this deep means sorted input; from here on the index pays for itself.
const int deep_walk = 256;
} // namespace

Octree::Octree(double eps, int precision) : _eps(eps), _precision(precision) {}

Octree::Octree(const Octree& other)
    : _eps(other._eps), _precision(other._precision), _empty_nodes(other._empty_nodes) {
    std::vector<std::pair<const Octree*, Octree*>> pending{{&other, this}};
    while (!pending.empty()) {
        const auto [source, target] = pending.back();
        pending.pop_back();
        target->_point = source->_point;
        for (int i = 0; i < 8; ++i)
            if (source->_children[i]) {
                target->_children[i] = new Octree(_eps, _precision);
                pending.emplace_back(source->_children[i], target->_children[i]);
            }
    }
}

Octree& Octree::operator=(const Octree& other) {
    if (this == &other)
        return *this;
    Octree copy(other);
    std::swap(_point, copy._point);
    std::swap(_children, copy._children);
    _eps = other._eps;
    _precision = other._precision;
    _empty_nodes = other._empty_nodes;
    _index_refused = false;
    _index.reset();
    return *this;
}

Octree::~Octree() {
    // Children are taken off before they are deleted, so no destructor recurses.
    std::vector<Octree*> pending;
    for (Octree*& child : _children)
        if (child) {
            pending.push_back(child);
            child = nullptr;
        }
    while (!pending.empty()) {
        Octree* node = pending.back();
        pending.pop_back();
        for (Octree*& child : node->_children)
            if (child) {
                pending.push_back(child);
                child = nullptr;
            }
        delete node;
    }
}

Point* Octree::insert(Point* p) {
    if (_index) {
        Point* result = nullptr;
        switch (_index->insert(p, result)) {
        case OctreeInsertIndex::Inserted:
            return result;
        case OctreeInsertIndex::Drop:
            _index.reset();
            _index_refused = true;
            break;
        case OctreeInsertIndex::Walk:
            break;
        }
    }
    return walk_insert(p);
}

Point* Octree::walk_insert(Point* p) {
    Octree* node = this;
    for (int depth = 0;; ++depth) {
        if (!node->_point) {
            node->_point = p;
            --_empty_nodes;
            if (depth > deep_walk && _empty_nodes == 0 && !_index && !_index_refused) {
                _index = OctreeInsertIndex::build(*this);
                _index_refused = !_index;
            }
            return p;
        }
        const Point& stored = *node->_point;
        if (distance2(p->x(), p->y(), p->z(), stored.x(), stored.y(), stored.z()) < _eps)
            return node->_point;
        Octree*& child = node->_children[node->calc_index(p)];
        if (!child) {
            child = new Octree(_eps, _precision);
            ++_empty_nodes;
        }
        node = child;
    }
}

Point* Octree::find(double x, double y, double z) const {
    const Octree* node = this;
    while (node && node->_point) {
        const Point& stored = *node->_point;
        if (distance2(x, y, z, stored.x(), stored.y(), stored.z()) < _eps)
            return node->_point;
        node = node->_children[node->calc_index(x, y, z)];
    }
    return nullptr;
}

void Octree::remove(Point*) {}

void Octree::remove_all() {
    _empty_nodes = 0;
    walk(this, [this](Octree& node) {
        node._point = nullptr;
        ++_empty_nodes;
    });
    _index.reset();
    _index_refused = false;
}

int Octree::count() const {
    int n = 0;
    walk(this, [&n](const Octree& node) { n += node._point ? 1 : 0; });
    return n;
}

int Octree::calc_index(double x, double y, double z) const {
    int index = 0;
    if (basic::round_to_digits(x, _precision) > _point->x())
        index += 4;
    if (basic::round_to_digits(y, _precision) > _point->y())
        index += 2;
    if (basic::round_to_digits(z, _precision) > _point->z())
        index += 1;
    return index;
}

int Octree::calc_index(const Point* p) const {
    return calc_index(p->x(), p->y(), p->z());
}

double Octree::extreme(int axis, bool greatest) const {
    // The children on the side of the sought extreme; the split planes are the stored points,
    // so the other four cannot hold it.
    static const int sides[3][2][4] = {
        {{3, 1, 2, 0}, {7, 5, 6, 4}}, {{5, 1, 0, 4}, {7, 3, 2, 6}}, {{6, 2, 0, 4}, {7, 3, 1, 5}}};
    const double none = greatest ? -1e8 : 1e8;
    const int* side = sides[axis][greatest ? 1 : 0];
    double result = _point ? (*_point)[axis] : none;
    std::vector<const Octree*> pending;
    auto push_children = [&pending, side](const Octree& node) {
        for (int k = 3; k >= 0; --k)
            if (node._children[side[k]])
                pending.push_back(node._children[side[k]]);
    };
    if (_point)
        push_children(*this);
    while (!pending.empty()) {
        const Octree& node = *pending.back();
        pending.pop_back();
        const double value = node._point ? (*node._point)[axis] : none;
        if (greatest ? value > result : value < result)
            result = value;
        if (node._point)
            push_children(node);
    }
    return result;
}

double Octree::min_x() const {
    return extreme(0, false);
}
double Octree::max_x() const {
    return extreme(0, true);
}
double Octree::min_y() const {
    return extreme(1, false);
}
double Octree::max_y() const {
    return extreme(1, true);
}
double Octree::min_z() const {
    return extreme(2, false);
}
double Octree::max_z() const {
    return extreme(2, true);
}

boundingbox Octree::calc_boundingbox() const {
    if (!_point)
        return boundingbox{0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    return boundingbox{min_x(), min_y(), max_x(), max_y(), min_z(), max_z()};
}

QList<Point*> Octree::GetListOfPoints() const {
    QList<Point*> points;
    OctreeIterator it(this);
    while (Point* p = it.next())
        points.append(p);
    return points;
}

OBB Octree::CalcOBB(double a, double b, double c) const {
    const double rx[9] = {1, 0, 0, 0, std::cos(a), std::sin(a), 0, -std::sin(a), std::cos(a)};
    const double ry[9] = {std::cos(b), 0, std::sin(b), 0, 1, 0, -std::sin(b), 0, std::cos(b)};
    const double rz[9] = {std::cos(c), std::sin(c), 0, -std::sin(c), std::cos(c), 0, 0, 0, 1};
    const vmp::aMatrix m = vmp::aMatrix(3, 3, rx) * vmp::aMatrix(3, 3, ry) * vmp::aMatrix(3, 3, rz);

    // q = p * M^T, that is q[i] = M[i] . p, with the rows copied out of the hot loop.
    double rows[3][3];
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            rows[i][j] = m[i][j];
    boundingbox box;
    walk(this, [&box, &rows](const Octree& node) {
        if (!node._point)
            return;
        const Point& p = *node._point;
        grow(box, point{rows[0][0] * p.x() + rows[0][1] * p.y() + rows[0][2] * p.z(),
                        rows[1][0] * p.x() + rows[1][1] * p.y() + rows[1][2] * p.z(),
                        rows[2][0] * p.x() + rows[2][1] * p.y() + rows[2][2] * p.z()});
    });

    OBB result;
    result.origin(vmp::Vector(box.xmin, box.ymin, box.zmin) * m);
    result.axis(0, vmp::Vector(box.xmax - box.xmin, 0.0, 0.0) * m);
    result.axis(1, vmp::Vector(0.0, box.ymax - box.ymin, 0.0) * m);
    result.axis(2, vmp::Vector(0.0, 0.0, box.zmax - box.zmin) * m);
    return result;
}

OBB Octree::CalcOptOBB() const {
    return OOBBCalculator(nullptr).CalcOptOBB(this, 1e-10);
}

} // namespace geometry3D
