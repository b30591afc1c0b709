#include "oxaIO/OxaPropertySection.h"

#include <QtAlgorithms>

#include <algorithm>

namespace oxaIO {

OxaPropertySection::OxaPropertySection() : OxaBaseSection(L"1.5") {}

OxaPropertySection::~OxaPropertySection() {
    qDeleteAll(properties);
}

void OxaPropertySection::AddProperty(VOxaPropertyType* property) {
    if (property)
        properties.push_back(property);
}

bool OxaPropertySection::AddPropertyIfNew(VOxaPropertyType* property) {
    if (!property)
        return false;
    const auto same =
        std::find_if(properties.begin(), properties.end(), [property](const VOxaPropertyType* p) {
            return p && p->refID == property->refID && p->name == property->name &&
                   p->datatype == property->datatype && p->unit == property->unit;
        });
    if (same != properties.end()) {
        (*same)->value = property->value;
        return false;
    }
    properties.push_back(property);
    return true;
}

} // namespace oxaIO
