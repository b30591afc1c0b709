#pragma once

#include "oxaIO/OxaBaseSection.h"

#include <list>
#include <map>

namespace oxaIO {

class ISet;

/// The sets of a section, keyed and sorted by their identifiers. Unlike every other section it
/// does not own what it holds: the sets stay their creator's.
class ZENTRA_EXPORT OxaSetSection : public OxaBaseSection {
public:
    OxaSetSection();
    ~OxaSetSection() override;

    /// Enters the set under its `ID()`; a set under the same ID is replaced (not deleted).
    /// A null set is ignored.
    void AddSet(ISet* set);

    /// The set with this ID, or null. An unknown ID is entered with a null set, so that the
    /// section is no longer empty and `SetList` holds a null entry: a reader that probes for
    /// IDs relies on finding its probe again, and writers skip null entries.
    ISet* FindSet(const std::wstring& id);

    /// Removes every entry that holds this set; a null set is ignored.
    void RemoveSet(ISet* set);

    /// A new list of all entries, null entries included, in ID order.
    std::list<ISet*> SetList() const;

    bool IsEmpty() const override { return sets.empty(); }

private:
    std::map<std::wstring, ISet*> sets;
};

} // namespace oxaIO
