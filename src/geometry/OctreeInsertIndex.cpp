#include "geometry/OctreeInsertIndex.h"

#include "basic/numeric.h"
#include "geometry/Octree.h"
#include "geometry/Point.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace geometry3D {

namespace {
/// Beyond this many cells from the origin a cell number would lose the precision that keeps
/// neighbours apart; such points are not filed.
const double cell_limit = 68719476736.0; // 2^36
const double infinity = std::numeric_limits<double>::infinity();

bool finite(const Point& p) {
    return std::isfinite(p.x()) && std::isfinite(p.y()) && std::isfinite(p.z());
}
} // namespace

OctreeInsertIndex::OctreeInsertIndex(Octree& root) : _root(root), _welds(root._eps > 0.0) {
    if (_welds) {
        // A little wider than the limit, so that rounding in the cell arithmetic never hides a
        // neighbour; cells twice as wide, so that a neighbourhood spans at most 2 per axis.
        _reach = std::sqrt(root._eps) * 1.001;
        _cell = 2.0 * _reach;
    }
    Entry top{&root, {-infinity, -infinity, -infinity}, {infinity, infinity, infinity}};
    _path.push_back(top);
    _position.emplace(&root, 0);
}

std::unique_ptr<OctreeInsertIndex> OctreeInsertIndex::build(Octree& root) {
    if (root._empty_nodes != 0 || !std::isfinite(root._eps))
        return nullptr;
    std::unique_ptr<OctreeInsertIndex> index(new OctreeInsertIndex(root));
    bool complete = true;
    Octree::walk(&root, [&](Octree& node) { complete = complete && index->file(&node); });
    return complete ? std::move(index) : nullptr;
}

bool OctreeInsertIndex::cell_of(const double* coordinates, double offset, Cell& cell) const {
    for (int a = 0; a < 3; ++a) {
        const double v = (coordinates[a] + offset) / _cell;
        if (!(std::fabs(v) < cell_limit))
            return false;
        cell.c[a] = static_cast<std::int64_t>(std::floor(v));
    }
    return true;
}

bool OctreeInsertIndex::file(Octree* node) {
    // A point that is not finite is never closer than the limit to anything, so it needs no cell.
    if (!_welds || !finite(*node->_point))
        return true;
    Cell cell;
    if (!cell_of(*node->_point, 0.0, cell))
        return false;
    _cells.emplace(cell, node);
    return true;
}

// Strict at the lower end, as the split is: a query at -inf is then admitted by no entry past the
// first, and its walk starts higher up than it could, which costs time and never changes a result.
bool OctreeInsertIndex::admits(const Entry& entry, const double* rounded) {
    for (int a = 0; a < 3; ++a)
        if (!(entry.lo[a] < rounded[a] && rounded[a] <= entry.hi[a]))
            return false;
    return true;
}

void OctreeInsertIndex::push(Octree* child, int index) {
    Entry entry = _path.back();
    const Point& split = *entry.node->_point;
    for (int a = 0; a < 3; ++a) {
        // Bit 2 of the child number is x, bit 1 y, bit 0 z: set means rounded > split.
        if (index & (4 >> a))
            entry.lo[a] = std::max(entry.lo[a], split[a]);
        else
            entry.hi[a] = std::min(entry.hi[a], split[a]);
    }
    entry.node = child;
    _position.emplace(child, _path.size());
    _path.push_back(entry);
}

void OctreeInsertIndex::truncate(std::size_t length) {
    while (_path.size() > length) {
        _position.erase(_path.back().node);
        _path.pop_back();
    }
}

Octree* OctreeInsertIndex::weld_candidate(const Point& p, std::size_t last) const {
    if (!_welds || !finite(p))
        return nullptr;
    Cell low, high;
    cell_of(p, -_reach, low);
    cell_of(p, _reach, high);
    std::size_t best = last + 1;
    Cell k;
    for (k.c[0] = low.c[0]; k.c[0] <= high.c[0]; ++k.c[0])
        for (k.c[1] = low.c[1]; k.c[1] <= high.c[1]; ++k.c[1])
            for (k.c[2] = low.c[2]; k.c[2] <= high.c[2]; ++k.c[2]) {
                const auto range = _cells.equal_range(k);
                for (auto it = range.first; it != range.second; ++it) {
                    const Point& q = *it->second->_point;
                    if (!(distance2(p.x(), p.y(), p.z(), q.x(), q.y(), q.z()) < _root._eps))
                        continue;
                    const auto on_path = _position.find(it->second);
                    if (on_path != _position.end() && on_path->second < best)
                        best = on_path->second;
                }
            }
    return best <= last ? _path[best].node : nullptr;
}

OctreeInsertIndex::Outcome OctreeInsertIndex::insert(Point* p, Point*& result) {
    double rounded[3];
    for (int a = 0; a < 3; ++a) {
        rounded[a] = basic::round_to_digits((*p)[a], _root._precision);
        if (std::isnan(rounded[a]))
            return Walk;
    }
    Cell unused;
    if (_welds && finite(*p) && !(cell_of(*p, -_reach, unused) && cell_of(*p, _reach, unused)))
        return Drop;

    // The ranges shrink along the path, so the entries that admit the point form a prefix.
    std::size_t first = 0, last = _path.size() - 1;
    while (first < last) {
        const std::size_t middle = (first + last + 1) / 2;
        if (admits(_path[middle], rounded))
            first = middle;
        else
            last = middle - 1;
    }
    if (Octree* stored = weld_candidate(*p, first)) {
        result = stored->_point;
        return Inserted;
    }
    truncate(first + 1);
    Octree* node = _path.back().node;
    for (;;) {
        const int index = node->calc_index(p);
        Octree*& child = node->_children[index];
        if (!child) {
            child = new Octree(_root._eps, _root._precision);
            child->_point = p;
            push(child, index);
            file(child);
            result = p;
            return Inserted;
        }
        push(child, index);
        const Point& stored = *child->_point;
        if (distance2(p->x(), p->y(), p->z(), stored.x(), stored.y(), stored.z()) < _root._eps) {
            result = child->_point;
            return Inserted;
        }
        node = child;
    }
}

} // namespace geometry3D
