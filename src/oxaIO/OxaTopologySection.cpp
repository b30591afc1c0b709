#include "oxaIO/OxaTopologySection.h"

#include "basic/text.h"
#include "basic/unit.h"
#include "oxaIO/IObject.h"

#include <QtAlgorithms>

#include <algorithm>

namespace oxaIO {

namespace {

/// The list of `lists` whose tolerance equals the given tolerance in metres exactly; a new list
/// in metres is appended when there is none.
template <typename List>
List* ListFor(std::list<List*>& lists, double eps, const std::wstring& unit, bool sym) {
    const double metres = eps * basic::unit_scale(basic::string_to_unit(basic::FromStdString(unit)));
    auto found = std::find_if(lists.begin(), lists.end(),
                              [metres](const List* list) { return list && list->Eps() == metres; });
    if (found == lists.end())
        found = lists.insert(lists.end(), new List(metres, L"m", sym));
    return *found;
}

} // namespace

OxaTopologySection::OxaTopologySection() : OxaSection(L"1.3") {
    InitPropertySection();
}

OxaTopologySection::~OxaTopologySection() {
    qDeleteAll(contacts);
    qDeleteAll(intersections);
    qDeleteAll(hRefs);
}

void OxaTopologySection::HRefsUnit(const std::wstring& unit) {
    hRefsUnit = unit;
}

void OxaTopologySection::AddContact(const VObjPairRelation& pair, double eps, const std::wstring& unit,
                                    bool sym) {
    ListFor(contacts, eps, unit, sym)->GetContactRelations().push_back(pair);
}

void OxaTopologySection::AddIntersection(const VObjPairRelation& pair, double eps, const std::wstring& unit,
                                         bool sym) {
    ListFor(intersections, eps, unit, sym)->GetIntersectionRelations().push_back(pair);
}

bool OxaTopologySection::IsEmpty() const {
    return contacts.empty() && intersections.empty() && hRefs.empty() && hRefRelations.empty();
}

} // namespace oxaIO
