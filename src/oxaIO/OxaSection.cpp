#include "oxaIO/OxaSection.h"

#include "oxaIO/OxaPropertySection.h"
#include "oxaIO/OxaSetSection.h"

namespace oxaIO {

OxaSection::OxaSection(const std::wstring& version) : OxaBaseSection(version) {}

OxaSection::~OxaSection() {
    delete propertySection;
    delete setSection;
}

void OxaSection::InitPropertySection() {
    delete propertySection;
    delete setSection;
    propertySection = new OxaPropertySection();
    setSection = new OxaSetSection();
}

} // namespace oxaIO
