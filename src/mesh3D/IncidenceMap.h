#pragma once

#include "geometry/Point.h"
#include "mesh3D/Polygon.h"
#include "mesh3D/Triangle.h"

#include <QHash>
#include <QList>
#include <QVector>

namespace mesh3D {

inline int corner_count(const Triangle&) {
    return 3;
}
inline int corner_count(const Polygon& polygon) {
    return polygon.count_points();
}

/// For one call of a mesh algorithm: which primitives use each vertex, in the order of the
/// primitive list. Vertices and primitives are numbered so that the lists are flat arrays;
/// a list shrinks when a primitive is taken out of it, keeping the order of the rest.
template <typename Primitive> class IncidenceMap {
public:
    explicit IncidenceMap(const QList<Primitive*>& primitives) : _primitives(primitives) {
        const int count = primitives.size();
        _corner_start.reserve(count + 1);
        _corner_ids.reserve(count * 3);
        _ids.reserve(count);
        _corner_start.append(0);
        for (Primitive* primitive : primitives) {
            for (int c = 0, n = corner_count(*primitive); c < n; ++c)
                _corner_ids.append(number(primitive->point(c)));
            _corner_start.append(_corner_ids.size());
        }
        const int vertex_count = _vertices.size();
        _list_start.fill(0, vertex_count + 1);
        _list_size.fill(0, vertex_count);
        for (int id : qAsConst(_corner_ids))
            if (id >= 0)
                ++_list_start[id + 1];
        for (int v = 0; v < vertex_count; ++v)
            _list_start[v + 1] += _list_start[v];
        _entries.resize(_list_start[vertex_count]);
        for (int p = 0; p < count; ++p)
            for (int k = _corner_start[p]; k < _corner_start[p + 1]; ++k)
                if (_corner_ids[k] >= 0) {
                    const int id = _corner_ids[k];
                    _entries[_list_start[id] + _list_size[id]++] = p;
                }
        for (int v = 0; v < vertex_count; ++v)
            if (_list_size[v] > 0)
                ++_filled;
    }

    int primitive_count() const { return _primitives.size(); }
    Primitive* primitive(int p) const { return _primitives[p]; }
    int vertex_count() const { return _vertices.size(); }
    geometry3D::Point* vertex(int v) const { return _vertices[v]; }
    /// The number of a vertex, or -1 if no primitive uses it.
    int vertex_id(const geometry3D::Point* point) const { return _ids.value(point, -1); }

    int corners(int p) const { return _corner_start[p + 1] - _corner_start[p]; }
    int corner_id(int p, int c) const { return _corner_ids[_corner_start[p] + c]; }
    /// Reads the corners of a primitive again after its points were reordered.
    void refresh(int p) {
        for (int c = 0, n = corners(p); c < n; ++c)
            _corner_ids[_corner_start[p] + c] = vertex_id(_primitives[p]->point(c));
    }

    /// The primitives still listed for vertex `v`; a vertex of -1 has none.
    const int* list(int v) const { return v < 0 ? nullptr : _entries.constData() + _list_start[v]; }
    int list_size(int v) const { return v < 0 ? 0 : _list_size[v]; }
    bool listed(int v, int p) const {
        const int* entries = list(v);
        for (int i = 0, n = list_size(v); i < n; ++i)
            if (entries[i] == p)
                return true;
        return false;
    }
    /// Takes the first occurrence of `p` out of the list of `v`.
    void remove(int v, int p) {
        int* entries = _entries.data() + _list_start[v];
        int& size = _list_size[v];
        for (int i = 0; i < size; ++i) {
            if (entries[i] != p)
                continue;
            for (int j = i + 1; j < size; ++j)
                entries[j - 1] = entries[j];
            if (--size == 0)
                --_filled;
            return;
        }
    }
    /// The number of vertices whose list is not empty.
    int filled() const { return _filled; }

private:
    int number(geometry3D::Point* point) {
        if (!point)
            return -1;
        auto found = _ids.constFind(point);
        if (found != _ids.constEnd())
            return found.value();
        _ids.insert(point, _vertices.size());
        _vertices.append(point);
        return _vertices.size() - 1;
    }

    QList<Primitive*> _primitives;
    QHash<const geometry3D::Point*, int> _ids;
    QVector<geometry3D::Point*> _vertices;
    QVector<int> _corner_start;
    QVector<int> _corner_ids;
    QVector<int> _list_start;
    QVector<int> _list_size;
    QVector<int> _entries;
    int _filled = 0;
};

} // namespace mesh3D
