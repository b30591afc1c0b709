#pragma once

#include "geometry/primitives.h"
#include "mesh3D/IncidenceMap.h"
#include "vmp/Vector.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace mesh3D {

/// Makes every connected shell of a set of triangles or polygons consistently oriented and
/// pointing outward. Each shell starts at its outermost vertex, where the outward direction is
/// certain: the first primitive there is turned to face that direction, and the orientation
/// spreads to the neighbours over shared edges, depth first.
///
/// Whether the first primitive faces outward is judged from all primitives around the vertex,
/// oriented alike and weighted by their angles there, not from the first one alone: at a
/// corner seen obliquely a correctly wound face can point away from the direction while the
/// corner as a whole does not, and a closed shell is then always turned the right way.
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

    /// Orients every shell. The first starts at `point`; each further one at the vertex not yet
    /// reached that lies farthest from `centre`, in the direction from `centre`. All vertices
    /// lie within that distance of `centre`, so the vertex is a corner of the shell's hull and
    /// the direction points out of the shell there. Ordering the vertices once by distance makes
    /// a surface of many shells as cheap per shell as one of a single shell.
    void run(vmp::Vector direction, geometry3D::Point* point, const geometry3D::point& centre) {
        std::vector<std::pair<double, int>> by_distance(_map.vertex_count());
        for (int v = 0; v < _map.vertex_count(); ++v) {
            const geometry3D::Point* p = _map.vertex(v);
            by_distance[v] = {-geometry3D::distance2(p->x(), p->y(), p->z(), centre.x, centre.y, centre.z),
                              v};
        }
        std::sort(by_distance.begin(), by_distance.end());
        std::size_t next = 0;
        while (_map.filled() > 0) {
            const int v = _map.vertex_id(point);
            if (_map.list_size(v) > 0) {
                const int start = _map.list(v)[0];
                if (faces_against(start, v, direction))
                    turn(start, 0, 1);
                seed(start);
            }
            while (next < by_distance.size() && _map.list_size(by_distance[next].second) == 0)
                ++next;
            if (next == by_distance.size())
                return;
            point = _map.vertex(by_distance[next].second);
            direction = vmp::Vector(point->x() - centre.x, point->y() - centre.y, point->z() - centre.z);
            direction.normalize();
        }
    }

private:
    struct Frame {
        std::size_t begin;
        std::size_t next;
        std::size_t end;
    };

    /// Whether the corner at vertex `v`, with its primitives oriented like `start`, points
    /// against `direction`: the sum of their unit normals, each weighted by its angle at the
    /// vertex, is taken.
    bool faces_against(int start, int v, const vmp::Vector& direction) const {
        const int* fan = _map.list(v);
        const int size = _map.list_size(v);
        geometry3D::Point* corner = _map.vertex(v);
        // Orientation of each primitive of the fan relative to `start`: +1 alike, -1 opposite,
        // 0 not reached over an edge through the corner.
        std::vector<int> sign(size, 0);
        std::vector<int> queue;
        for (int i = 0; i < size; ++i)
            if (fan[i] == start) {
                sign[i] = 1;
                queue.push_back(i);
                break;
            }
        for (std::size_t next = 0; next < queue.size(); ++next) {
            const int x = queue[next];
            geometry3D::Point* before = nullptr;
            geometry3D::Point* after = nullptr;
            neighbours_at(*_map.primitive(fan[x]), corner, before, after);
            for (int y = 0; y < size; ++y) {
                if (sign[y] != 0)
                    continue;
                const Primitive& other = *_map.primitive(fan[y]);
                int k = after ? other.contains_edge(corner, after) : 0;
                if (k == 0 && before)
                    k = other.contains_edge(before, corner);
                if (k == 0)
                    continue;
                sign[y] = k > 0 ? -sign[x] : sign[x];
                queue.push_back(y);
            }
        }
        double against = 0.0;
        for (int i = 0; i < size; ++i) {
            if (sign[i] == 0)
                continue;
            Primitive& primitive = *_map.primitive(fan[i]);
            geometry3D::Point* before = nullptr;
            geometry3D::Point* after = nullptr;
            neighbours_at(primitive, corner, before, after);
            if (!before || !after)
                continue;
            const double angle = angle_at(*corner, *before, *after);
            const double along = direction * primitive.calc_normal();
            if (std::isfinite(angle) && std::isfinite(along))
                against += sign[i] * angle * along;
        }
        return against < 0.0;
    }

    /// The points before and after `corner` in the primitive's order, passing over repeats of
    /// the corner itself (a polygon may close on its first point).
    static void neighbours_at(const Primitive& primitive, const geometry3D::Point* corner,
                              geometry3D::Point*& before, geometry3D::Point*& after) {
        const int n = corner_count(primitive);
        const int c = primitive.point_index(corner);
        if (c < 0)
            return;
        for (int step = 1; step < n && !after; ++step)
            if (primitive.point((c + step) % n) != corner)
                after = primitive.point((c + step) % n);
        for (int step = 1; step < n && !before; ++step)
            if (primitive.point((c + n - step) % n) != corner)
                before = primitive.point((c + n - step) % n);
    }

    static double angle_at(const geometry3D::Point& corner, const geometry3D::Point& a,
                           const geometry3D::Point& b) {
        const geometry3D::Point u = a - corner;
        const geometry3D::Point w = b - corner;
        const double dot = u.x() * w.x() + u.y() * w.y() + u.z() * w.z();
        const double cross_x = u.y() * w.z() - u.z() * w.y();
        const double cross_y = u.z() * w.x() - u.x() * w.z();
        const double cross_z = u.x() * w.y() - u.y() * w.x();
        return std::atan2(std::sqrt(cross_x * cross_x + cross_y * cross_y + cross_z * cross_z), dot);
    }

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
            // A polygon that repeats its first point at the end has an edge of no length there;
            // it joins nothing.
            if (a == b)
                continue;
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
