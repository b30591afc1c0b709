#include "model/ElementType.h"

namespace model {

QString element_type_text(int type) {
    switch (type) {
    case MAP_ELEMENT:
        return QStringLiteral("map");
    case LIST_ELEMENT:
        return QStringLiteral("list");
    case SET_ELEMENT:
        return QStringLiteral("set");
    case PRIMITIVE_ELEMENT:
        return QStringLiteral("primitive");
    case REFERENCE_ELEMENT:
        return QStringLiteral("reference");
    case OBJECT_ELEMENT:
        return QStringLiteral("object");
    case METHOD_ELEMENT:
        return QStringLiteral("method");
    default:
        return QStringLiteral("elementtype_unknown");
    }
}

} // namespace model
