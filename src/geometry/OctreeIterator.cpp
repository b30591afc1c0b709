#include "geometry/OctreeIterator.h"

#include "geometry/Octree.h"

namespace geometry3D {

OctreeIterator::OctreeIterator(const Octree* tree) {
    if (tree)
        _frames.push_back(Frame{tree, -2});
}

Point* OctreeIterator::step(std::size_t level) {
    Frame& frame = _frames[level];
    if (frame.index < 8)
        ++frame.index;
    if (frame.index == -1)
        return frame.tree->_point;
    while (frame.index < 8 && !frame.tree->_children[frame.index])
        ++frame.index;
    if (frame.index == 8)
        return nullptr;
    const Octree* child = frame.tree->_children[frame.index];
    _frames.push_back(Frame{child, -1});
    return child->_point;
}

Point* OctreeIterator::next() {
    if (_frames.empty())
        return nullptr;
    // The deepest frame moves on; a frame that answers null is finished for its parent, which
    // drops it (with whatever it had just entered) and moves on itself.
    std::size_t level = _frames.size() - 1;
    Point* answer = step(level);
    while (!answer && level > 0) {
        _frames.resize(level);
        --level;
        answer = step(level);
    }
    const bool own_point = _frames.size() == 1 && _frames.front().index == -1;
    if (!own_point)
        _current = answer;
    return answer;
}

} // namespace geometry3D
