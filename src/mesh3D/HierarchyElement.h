#pragma once

#include "zentra_export.h"

namespace mesh3D {

class Container;

/// The upward link of a tree node. The parent owns its child through its `children` list; this
/// link only points back and is not owned.
class ZENTRA_EXPORT HierarchyElement {
public:
    explicit HierarchyElement(Container* parent = nullptr) : _parent(parent) {}

    Container* Parent() const { return _parent; }
    /// Relinks unless `accepts_parent` refuses. Neither parent's `children` is touched: whoever
    /// moves an element edits the lists.
    void Parent(Container* parent);

    /// False when the link must stay as it is: the parent is the same, or both parents exist
    /// and belong to different systems, since a tree never spans two object spaces.
    static bool accepts_parent(const Container* current, const Container* candidate);

protected:
    ~HierarchyElement() = default;

private:
    Container* _parent;
};

} // namespace mesh3D
