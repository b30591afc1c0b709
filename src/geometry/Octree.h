#pragma once

#include "geometry/primitives.h"
#include "zentra_export.h"

#include <QList>

#include <memory>
#include <vector>

namespace geometry3D {

class OBB;
class OctreeInsertIndex;
class Point;

/// The vertex store of a mesh element: a point-split tree in which every node holds one point
/// whose coordinates are the split planes of its eight children (bit 2 greater x, bit 1 greater
/// y, bit 0 greater z; equal goes to the lower side). Inserting welds: a point closer than the
/// distance limit to a stored one is refused and the stored one is returned, so that triangles
/// with repeated coordinates come to share their vertices.
///
/// The tree owns its nodes, not its points: whoever stored the points frees them, by iterating,
/// before the tree goes. The shape follows the order of insertion and is never rebalanced; sorted
/// input makes it a long chain, so every walk here runs on an explicit stack, and once a walk
/// gets deep an index takes over inserts (see `OctreeInsertIndex`). `find` walks.
class ZENTRA_EXPORT Octree {
public:
    /// `eps` is the squared welding distance; `precision` the digits to which a query coordinate
    /// is rounded before it is compared with a split plane.
    Octree(double eps, int precision);
    /// Copies the settings and the node structure; the points are shared, as they are not owned.
    Octree(const Octree& other);
    Octree& operator=(const Octree& other);
    ~Octree();

    /// Stores `p` and returns it, or returns the stored point that lies strictly closer than
    /// sqrt(eps) on the way down, in which case `p` stays the caller's.
    Point* insert(Point* p);
    /// The first stored point on the search path closer than sqrt(eps), or null.
    Point* find(double x, double y, double z) const;
    /// Does nothing: a stored point cannot be taken out.
    void remove(Point* p);
    /// Clears the point of every node and keeps the nodes; frees nothing. An insert afterwards
    /// reuses the nodes from the root down.
    void remove_all();

    /// Number of nodes holding a point.
    int count() const;
    Point* root_node() const { return _point; }
    double eps() const { return _eps; }
    int precision() const { return _precision; }

    /// The child number for a query: each coordinate is rounded to `precision` digits and
    /// compared with this node's point as stored.
    int calc_index(double x, double y, double z) const;
    int calc_index(const Point* p) const;

    /// Extreme coordinates, visiting only the four children on the relevant side at each node.
    /// An empty tree answers 1e8 for a minimum and -1e8 for a maximum.
    double min_x() const;
    double max_x() const;
    double min_y() const;
    double max_y() const;
    double min_z() const;
    double max_z() const;
    /// All six extremes, or an all-zero box for an empty tree.
    boundingbox calc_boundingbox() const;

    /// The points in iteration order (see `OctreeIterator`).
    QList<Point*> GetListOfPoints() const;

    /// The box of the points in the frame turned by the angles a, b, c (radians) about x, y and
    /// z: M = Rx(a) * Ry(b) * Rz(c); each point p gives p * M^T, and the extremes of those are
    /// turned back with M into a corner and three edges. The angles of the result stay zero.
    OBB CalcOBB(double a, double b, double c) const;
    /// The box of smallest volume found by the deterministic grid search.
    OBB CalcOptOBB() const;

private:
    friend class OctreeIterator;
    friend class OctreeInsertIndex;

    /// Visits `root` and every node below it in pre-order, children 0 to 7, without recursion.
    template <typename Node, typename Visit> static void walk(Node* root, Visit visit) {
        std::vector<Node*> pending{root};
        while (!pending.empty()) {
            Node* node = pending.back();
            pending.pop_back();
            visit(*node);
            for (int i = 7; i >= 0; --i)
                if (node->_children[i])
                    pending.push_back(node->_children[i]);
        }
    }
    /// The insert as the tree defines it: down from the root, welding on the way.
    Point* walk_insert(Point* p);
    double extreme(int axis, bool greatest) const;

    Point* _point = nullptr;
    Octree* _children[8] = {};
    double _eps;
    int _precision;
    // Kept by the root only: nodes without a point (the root of a new tree, all nodes after
    // remove_all), and the index that takes over inserts once the tree has grown deep.
    int _empty_nodes = 1;
    bool _index_refused = false;
    std::unique_ptr<OctreeInsertIndex> _index;
};

} // namespace geometry3D
