#pragma once

#include "geometry/primitives.h"
#include "mesh3D/IncidenceMap.h"
#include "vmp/Vector.h"

#include <vector>

namespace mesh3D {

/// Of `points`, the one farthest from the centre of their bounding box (the first met among
/// equally far ones), and in `direction` the unit vector from the centre to it. False, and
/// nothing set, for no points.
template <typename Points>
bool outermost_vertex(const Points& points, vmp::Vector& direction, geometry3D::Point*& outermost) {
    geometry3D::boundingbox box;
    for (geometry3D::Point* p : points)
        geometry3D::grow(box, p->to_primitive());
    const geometry3D::point centre = geometry3D::center(box);
    double greatest = -1.0;
    for (geometry3D::Point* p : points) {
        const double d = geometry3D::distance2(p->x(), p->y(), p->z(), centre.x, centre.y, centre.z);
        if (d > greatest) {
            greatest = d;
            outermost = p;
        }
    }
    if (greatest < 0.0)
        return false;
    direction = vmp::Vector(outermost->x() - centre.x, outermost->y() - centre.y, outermost->z() - centre.z);
    direction.normalize();
    return true;
}

/// Makes every connected shell of a set of triangles or polygons consistently oriented and
/// pointing outward. Each shell starts at its outermost vertex, where the outward direction is
/// certain: the first primitive there is turned to face that direction, and the orientation
/// spreads to the neighbours over shared edges, depth first.
///
/// The spreading keeps the order of a recursive walk (a primitive orients all its remaining
/// neighbours, then each of them continues in turn) on an explicit stack, so that a shell of
/// any size runs in memory proportional to its primitives, not on the call stack.
///
/// `Reverse(p, i, j)` turns primitive `p` around; a triangle does so by exchanging its corners
/// `i` and `j`.
template <typename Primitive, typename Reverse> class ShellOrientation {
public:
    ShellOrientation(IncidenceMap<Primitive>& map, Reverse reverse) : _map(map), _reverse(reverse) {}

    /// Orients every shell, the first from `point` and `direction`; each further one from the
    /// outermost of the vertices not yet reached.
    void run(vmp::Vector direction, geometry3D::Point* point) {
        while (_map.filled() > 0) {
            const int v = _map.vertex_id(point);
            if (_map.list_size(v) > 0) {
                const int start = _map.list(v)[0];
                if (direction * _map.primitive(start)->calc_normal() < 0.0)
                    turn(start, 0, 1);
                seed(start);
            }
            std::vector<geometry3D::Point*> remaining;
            for (int w = 0; w < _map.vertex_count(); ++w)
                if (_map.list_size(w) > 0)
                    remaining.push_back(_map.vertex(w));
            if (!outermost_vertex(remaining, direction, point))
                return;
        }
    }

private:
    struct Frame {
        std::size_t begin;
        std::size_t next;
        std::size_t end;
    };

    void turn(int p, int i, int j) {
        _reverse(p, i, j);
        _map.refresh(p);
    }

    void seed(int start) {
        enter(start);
        while (!_frames.empty()) {
            Frame& top = _frames.back();
            if (top.next < top.end) {
                const int next = _pending[top.next++];
                enter(next);
            } else {
                _pending.resize(top.begin);
                _frames.pop_back();
            }
        }
    }

    /// Takes `p` out of its vertices' lists and opens a frame with its neighbours, oriented.
    void enter(int p) {
        const int n = _map.corners(p);
        for (int c = 0; c < n; ++c) {
            const int v = _map.corner_id(p, c);
            if (v >= 0)
                _map.remove(v, p);
        }
        const std::size_t begin = _pending.size();
        Primitive* primitive = _map.primitive(p);
        for (int e = 0; e < n; ++e) {
            geometry3D::Point* a = primitive->point(e);
            geometry3D::Point* b = primitive->point((e + 1) % n);
            const int v = _map.corner_id(p, e);
            const int* listed = _map.list(v);
            for (int i = 0, count = _map.list_size(v); i < count; ++i) {
                const int u = listed[i];
                if (u == p)
                    continue;
                Primitive* other = _map.primitive(u);
                const int k = other->contains_edge(a, b);
                if (k > 0)
                    turn(u, other->point_index(b), other->point_index(a));
                if (k != 0)
                    _pending.push_back(u);
            }
        }
        _frames.push_back(Frame{begin, begin, _pending.size()});
    }

    IncidenceMap<Primitive>& _map;
    Reverse _reverse;
    std::vector<int> _pending;
    std::vector<Frame> _frames;
};

} // namespace mesh3D
