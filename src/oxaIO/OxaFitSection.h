#pragma once

#include "oxaIO/OxaSection.h"

#include <list>

namespace oxaIO {

class IItem;
class IItemData;

/// The quantity take-off of a document: a tree of items and the quantities (`qto` entries)
/// measured for them. It owns the `qto` entries; the root item stays the caller's, since the
/// item tree belongs to the host's model.
class ZENTRA_EXPORT OxaFitSection : public OxaSection {
public:
    OxaFitSection();
    ~OxaFitSection() override;

    /// The root of the item tree, or null.
    IItem* RootItem() const { return rootItem; }
    void RootItem(IItem* item);

    std::list<IItemData*>& GetItemData() { return itemData; }
    const std::list<IItemData*>& GetItemData() const { return itemData; }
    /// Appends a `qto` entry and takes it over; null is ignored.
    void AddItemData(IItemData* data);

    /// No properties and no `qto` entries. Items alone do not count: without quantities the
    /// item tree is not worth writing.
    bool IsEmpty() const override;

    /// Free text kept with the section, "unknown" until set; nothing in the library reads it.
    std::wstring unit = L"unknown";

private:
    IItem* rootItem = nullptr;
    std::list<IItemData*> itemData;
};

} // namespace oxaIO
