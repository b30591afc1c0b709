#pragma once

#include "oxaIO/ContactList.h"
#include "oxaIO/IntersectionList.h"
#include "oxaIO/OxaSection.h"

namespace oxaIO {

class IHRef;

/// The height references of one object: the object, its upper and its lower level.
struct VHRefRel {
    std::wstring refID;
    std::wstring hRefU;
    std::wstring hRefL;
};

/// Contacts and intersections between objects, and height levels with the objects' relations to
/// them. It owns its contact lists, its intersection lists and its height references.
class ZENTRA_EXPORT OxaTopologySection : public OxaSection {
public:
    OxaTopologySection();
    ~OxaTopologySection() override;

    std::list<ContactList*>& GetContacts() { return contacts; }
    const std::list<ContactList*>& GetContacts() const { return contacts; }
    std::list<IntersectionList*>& GetIntersections() { return intersections; }
    const std::list<IntersectionList*>& GetIntersections() const { return intersections; }
    /// The height levels; whoever appends one hands it over to the section.
    std::list<IHRef*>& GetHRefDefinitions() { return hRefs; }
    const std::list<IHRef*>& GetHRefDefinitions() const { return hRefs; }
    std::list<VHRefRel>& GetHRefRelations() { return hRefRelations; }
    const std::list<VHRefRel>& GetHRefRelations() const { return hRefRelations; }

    /// The unit of the height levels' z values.
    const std::wstring& HRefsUnit() const { return hRefsUnit; }
    void HRefsUnit(const std::wstring& unit);

    /// Appends the pair to the contact list of its tolerance. The tolerance is first scaled to
    /// metres by its unit, and the lists are told apart by that scaled tolerance alone: a new
    /// list gets the unit "m" and this call's `sym`, and a later call with the same tolerance
    /// joins it whatever its unit and `sym`. So contacts measured in "mm" and in "cm" with the
    /// same real tolerance end up in one list.
    void AddContact(const VObjPairRelation& pair, double eps, const std::wstring& unit, bool sym);
    /// The same for intersections.
    void AddIntersection(const VObjPairRelation& pair, double eps, const std::wstring& unit, bool sym);

    /// No contacts, intersections, height levels or height relations.
    bool IsEmpty() const override;

private:
    std::list<ContactList*> contacts;
    std::list<IntersectionList*> intersections;
    std::list<IHRef*> hRefs;
    std::list<VHRefRel> hRefRelations;
    std::wstring hRefsUnit;
};

} // namespace oxaIO
