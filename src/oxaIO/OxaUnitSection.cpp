#include "oxaIO/OxaUnitSection.h"

#include "oxaIO/IUnit.h"
#include "oxaIO/OxaPropertySection.h"

#include <QtAlgorithms>

namespace oxaIO {

OxaUnitSection::OxaUnitSection() : OxaSection(L"1.4") {
    InitPropertySection();
}

OxaUnitSection::~OxaUnitSection() {
    qDeleteAll(units);
}

void OxaUnitSection::AddUnit(IUnit* unit) {
    if (unit)
        units.push_back(unit);
}

bool OxaUnitSection::IsEmpty() const {
    return PropertySection().IsEmpty() && units.empty();
}

} // namespace oxaIO
