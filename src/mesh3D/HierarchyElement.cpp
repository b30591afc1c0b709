#include "mesh3D/HierarchyElement.h"

#include "mesh3D/Container.h"

namespace mesh3D {

void HierarchyElement::Parent(Container* parent) {
    if (accepts_parent(_parent, parent))
        _parent = parent;
}

bool HierarchyElement::accepts_parent(const Container* current, const Container* candidate) {
    if (candidate == current)
        return false;
    return !(current && candidate && current->system() != candidate->system());
}

} // namespace mesh3D
