#pragma once

#include "vmp/Vector.h"
#include "zentra_export.h"

namespace geometry2D {

/// An oriented rectangle in the plane: a corner `origin` and the two edges `axis(0)` and
/// `axis(1)` leaving it, with their lengths. By default the unit square at the origin.
class ZENTRA_EXPORT OBB {
public:
    OBB();
    OBB(const OBB& other) = default;
    OBB& operator=(const OBB& other) = default;
    virtual ~OBB();

    const vmp::Vector& origin() const { return _origin; }
    vmp::Vector& origin() { return _origin; }
    void origin(const vmp::Vector& value) { _origin = value; }

    /// Edge 0 or 1; any other index gives a shared dummy vector.
    const vmp::Vector& axis(int i) const;
    vmp::Vector& axis(int i);
    /// Ignores an index other than 0 and 1.
    void axis(int i, const vmp::Vector& value);

    /// |axis0 x axis1|: the area, whatever the orientation of the edges.
    double CalcArea() const;

private:
    static vmp::Vector _dummy;
    vmp::Vector _origin;
    vmp::Vector _axis0;
    vmp::Vector _axis1;
};

} // namespace geometry2D
