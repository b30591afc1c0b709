#include "mesh3D/ObjectType.h"

#include <QStringList>

namespace mesh3D {

QString object_type_text(ObjectType mask) {
    static const char* const names[16] = {
        "Element",  "Container", "GeometricElement", "Material",      "Model",
        "Block",    "Surface",   "Vertex",           "Triangle",      "Light",
        "Polygon",  "Object2D",  "Object3D",         "GenericObject", "HRef",
        "Composite"};
    QStringList set;
    for (int bit = 0; bit < 16; ++bit)
        if (mask & (ObjectType(1) << bit))
            set.append(QLatin1String(names[bit]));
    return set.isEmpty() ? QStringLiteral("unknown") : set.join(QStringLiteral("::"));
}

} // namespace mesh3D
