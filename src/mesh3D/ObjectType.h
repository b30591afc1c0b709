#pragma once

#include "zentra_export.h"

#include <QString>

namespace mesh3D {

/// What an element of the mesh tree is, as a union of bits: a class answers the bits of every
/// kind it belongs to, so that one mask test tells whether an element is, say, a container or
/// carries geometry. The numbers are shared with painters and stored views.
using ObjectType = unsigned int;

enum : ObjectType {
    TYPE_ELEMENT = 0x1,
    TYPE_CONTAINER = 0x2,
    TYPE_GEOMETRIC_ELEMENT = 0x4,
    TYPE_MATERIAL = 0x8,
    TYPE_MODEL = 0x10,
    TYPE_BLOCK = 0x20,
    TYPE_SURFACE = 0x40,
    TYPE_VERTEX = 0x80,
    TYPE_TRIANGLE = 0x100,
    TYPE_LIGHT = 0x200,
    TYPE_POLYGON = 0x400,
    TYPE_OBJECT2D = 0x800,
    TYPE_OBJECT3D = 0x1000,
    TYPE_GENERIC_OBJECT = 0x2000,
    TYPE_HREF = 0x4000,
    TYPE_COMPOSITE = 0x8000,
    /// Marks a class with a parent link; it has no display text.
    TYPE_HIERARCHY = 0x10000
};

/// The display text of a mask: the names of the set bits among the first sixteen, in bit
/// order, joined by "::" ("Element::Container::Composite"); "unknown" when none of them is set.
ZENTRA_EXPORT QString object_type_text(ObjectType mask);

} // namespace mesh3D
