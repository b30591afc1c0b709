#pragma once

#include <list>
#include <string>

namespace oxaIO {

/// A pair of objects in relation: the document's `L` and `R` identifiers.
struct VObjPairRelation {
    std::wstring left;
    std::wstring right;
};

/// Pairs of objects that share one tolerance, its unit and a symmetry flag. Base of the contact
/// and the intersection lists of the topology section.
class ObjPairRelationList {
public:
    ObjPairRelationList(double eps, const std::wstring& unit, bool sym) : eps(eps), unit(unit), sym(sym) {}

    double Eps() const { return eps; }
    const std::wstring& Unit() const { return unit; }
    /// True when a relation holds in both directions.
    bool Sym() const { return sym; }

protected:
    std::list<VObjPairRelation> relations;

private:
    double eps;
    std::wstring unit;
    bool sym;
};

} // namespace oxaIO
