#pragma once

#include "oxaIO/OxaSection.h"

#include <list>

namespace oxaIO {

class IUnit;

/// The unit definitions of a document. It owns its units.
class ZENTRA_EXPORT OxaUnitSection : public OxaSection {
public:
    OxaUnitSection();
    ~OxaUnitSection() override;

    std::list<IUnit*>& Units() { return units; }
    const std::list<IUnit*>& Units() const { return units; }
    /// Appends a unit and takes it over; null is ignored.
    void AddUnit(IUnit* unit);

    /// No properties and no units.
    bool IsEmpty() const override;

private:
    std::list<IUnit*> units;
};

} // namespace oxaIO
