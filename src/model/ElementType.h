#pragma once

#include "zentra_export.h"

#include <QString>

namespace model {

/// The kind of an element of the object model. The numbers are stored and compared by hosts.
enum ElementType {
    MAP_ELEMENT = 1,
    LIST_ELEMENT = 2,
    SET_ELEMENT = 3,
    PRIMITIVE_ELEMENT = 4,
    REFERENCE_ELEMENT = 5,
    OBJECT_ELEMENT = 6,
    METHOD_ELEMENT = 7
};

/// The printed name of a kind: "map", "list", ... and "elementtype_unknown" for any other number.
ZENTRA_EXPORT QString element_type_text(int type);

} // namespace model
