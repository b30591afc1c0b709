#pragma once

#include "oxaIO/ObjPairRelationList.h"

namespace oxaIO {

/// Pairs of objects that touch within the list's tolerance.
class ContactList : public ObjPairRelationList {
public:
    using ObjPairRelationList::ObjPairRelationList;

    std::list<VObjPairRelation>& GetContactRelations() { return relations; }
    const std::list<VObjPairRelation>& GetContactRelations() const { return relations; }
};

} // namespace oxaIO
