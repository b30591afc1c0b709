#include "oxaIO/OxaFitSection.h"

#include "oxaIO/IItem.h"
#include "oxaIO/OxaPropertySection.h"

#include <QtAlgorithms>

namespace oxaIO {

OxaFitSection::OxaFitSection() : OxaSection(L"1.4") {
    InitPropertySection();
}

OxaFitSection::~OxaFitSection() {
    qDeleteAll(itemData);
}

void OxaFitSection::RootItem(IItem* item) {
    rootItem = item;
}

void OxaFitSection::AddItemData(IItemData* data) {
    if (data)
        itemData.push_back(data);
}

bool OxaFitSection::IsEmpty() const {
    return PropertySection().IsEmpty() && itemData.empty();
}

} // namespace oxaIO
