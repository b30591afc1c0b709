#pragma once

#include "oxaIO/OxaBaseSection.h"

#include <list>

namespace oxaIO {

/// One property of a document: the element it belongs to (`refID`), its name, its XML Schema
/// data type, its value as text and its unit.
struct VOxaPropertyType {
    std::wstring refID;
    std::wstring name;
    std::wstring datatype = L"xs:string";
    std::wstring value;
    std::wstring unit;
};

/// The properties of a section. It owns every property it holds.
class ZENTRA_EXPORT OxaPropertySection : public OxaBaseSection {
public:
    OxaPropertySection();
    ~OxaPropertySection() override;

    std::list<VOxaPropertyType*>& GetProperties() { return properties; }
    const std::list<VOxaPropertyType*>& GetProperties() const { return properties; }

    /// Appends the property and takes it over; a null property is ignored.
    void AddProperty(VOxaPropertyType* property);

    /// Adds the property only if none with the same refID, name, datatype and unit exists.
    /// If one exists, its value becomes the new property's value, false is returned, and the
    /// new property stays the caller's. True means it was added and taken over; a null
    /// property gives false.
    bool AddPropertyIfNew(VOxaPropertyType* property);

    bool IsEmpty() const override { return properties.empty(); }

private:
    std::list<VOxaPropertyType*> properties;
};

} // namespace oxaIO
