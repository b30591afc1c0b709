#pragma once

#include "oxaIO/OxaBaseSection.h"

namespace oxaIO {

class OxaPropertySection;
class OxaSetSection;

/// A section that can carry properties and sets of its own. It owns its property section and
/// its set section, which exist from construction on.
class ZENTRA_EXPORT OxaSection : public OxaBaseSection {
public:
    ~OxaSection() override;

    OxaPropertySection& PropertySection() const { return *propertySection; }
    OxaSetSection& SetSection() const { return *setSection; }

    /// Free text kept with the section; nothing in the library reads it.
    std::wstring tag;

protected:
    explicit OxaSection(const std::wstring& version);

    /// Creates the property and the set section; every derived constructor calls it.
    void InitPropertySection();

private:
    OxaPropertySection* propertySection = nullptr;
    OxaSetSection* setSection = nullptr;
};

} // namespace oxaIO
