#include "oxaIO/OxaSetSection.h"

#include "oxaIO/ISet.h"

namespace oxaIO {

OxaSetSection::OxaSetSection() : OxaBaseSection(L"1.4") {}

OxaSetSection::~OxaSetSection() = default;

void OxaSetSection::AddSet(ISet* set) {
    if (set)
        sets[set->ID()] = set;
}

ISet* OxaSetSection::FindSet(const std::wstring& id) {
    return sets[id];
}

void OxaSetSection::RemoveSet(ISet* set) {
    if (!set)
        return;
    for (auto entry = sets.begin(); entry != sets.end();)
        entry = entry->second == set ? sets.erase(entry) : std::next(entry);
}

std::list<ISet*> OxaSetSection::SetList() const {
    std::list<ISet*> list;
    for (const auto& entry : sets)
        list.push_back(entry.second);
    return list;
}

} // namespace oxaIO
