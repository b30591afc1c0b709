#pragma once

#include "zentra_export.h"

#include <vector>

namespace geometry3D {

class Octree;
class Point;

/// Walks a tree in pre-order: a node's own point first, then its children 0 to 7.
///
/// `next()` returns null at the end. `current()` is the last point that came from a child
/// subtree: it stays null while the root's own point is returned and is cleared when a child
/// subtree is exhausted. A node left without a point by `remove_all` answers null where it is
/// met, so a loop that stops at the first null ends there; callers that store points after
/// `remove_all` depend on that stop staying where it is.
///
/// Descending into a child pushes one frame, so a tree that degenerated into a long chain is
/// walked in constant time per point and without recursion.
class ZENTRA_EXPORT OctreeIterator {
public:
    explicit OctreeIterator(const Octree* tree);

    Point* next();
    Point* current() const { return _current; }

private:
    /// A node on the path being walked, with the child it went into last (-2 before its own
    /// point, -1 at its own point, 8 when done). The first frame is the iterator's own tree.
    struct Frame {
        const Octree* tree;
        int index;
    };
    /// One step of the deepest frame: its own point, or the point of its next child (pushing a
    /// frame for that child), or null when it has no further child.
    Point* step(std::size_t level);

    std::vector<Frame> _frames;
    Point* _current = nullptr;
};

} // namespace geometry3D
