#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace geometry3D {

class Octree;
class Point;

/// Keeps inserts into a deep tree fast without changing what they do. A tree fed with sorted
/// points degenerates into a chain, and every insert would walk all of it. This index remembers
/// the path of the last insert with the coordinate ranges each node on it admits, so that the
/// part of a new point's path shared with it is found by bisection; and it files every stored
/// point in a grid of cells as wide as the welding distance, so that the one point an insert
/// may weld to (the shallowest on its path closer than the limit) is found without walking.
/// The tree's shape and every result are exactly those of the plain walk.
class OctreeInsertIndex {
public:
    enum Outcome {
        Inserted, ///< `result` holds what the walk would have returned
        Walk,     ///< the point cannot be located by ranges (NaN); walk, the index stays valid
        Drop      ///< the point cannot be filed exactly; walk and give up the index
    };

    /// Null if the tree holds a point or a setting that cannot be filed exactly.
    static std::unique_ptr<OctreeInsertIndex> build(Octree& root);

    Outcome insert(Point* p, Point*& result);

private:
    struct Cell {
        std::int64_t c[3];
        bool operator==(const Cell& o) const { return c[0] == o.c[0] && c[1] == o.c[1] && c[2] == o.c[2]; }
    };
    struct CellHash {
        std::size_t operator()(const Cell& k) const {
            // Linear in the cell numbers: points that arrive in order land in nearby buckets,
            // which keeps the table in cache; a full mix measured twice as slow on sorted input.
            return static_cast<std::size_t>(k.c[0] * 73856093 + k.c[1] * 19349663 + k.c[2] * 83492791);
        }
    };
    /// A node on the remembered path and the rounded coordinates r with lo < r <= hi that reach it.
    struct Entry {
        Octree* node;
        double lo[3];
        double hi[3];
    };

    explicit OctreeInsertIndex(Octree& root);
    bool cell_of(const double* coordinates, double offset, Cell& cell) const;
    bool file(Octree* node);
    static bool admits(const Entry& entry, const double* rounded);
    /// Appends `child`, reached from the last entry through child number `index`.
    void push(Octree* child, int index);
    void truncate(std::size_t length);
    /// The shallowest node on the remembered path up to `last` that `p` welds to, or null.
    Octree* weld_candidate(const Point& p, std::size_t last) const;

    Octree& _root;
    bool _welds;
    double _reach = 0.0;
    double _cell = 0.0;
    std::vector<Entry> _path;
    std::unordered_map<const Octree*, std::size_t> _position;
    std::unordered_multimap<Cell, Octree*, CellHash> _cells;
};

} // namespace geometry3D
