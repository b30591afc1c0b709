#pragma once

#include "oxaIO/ObjPairRelationList.h"

namespace oxaIO {

/// Pairs of objects that intersect by more than the list's tolerance.
class IntersectionList : public ObjPairRelationList {
public:
    using ObjPairRelationList::ObjPairRelationList;

    std::list<VObjPairRelation>& GetIntersectionRelations() { return relations; }
    const std::list<VObjPairRelation>& GetIntersectionRelations() const { return relations; }
};

} // namespace oxaIO
