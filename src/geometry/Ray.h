#pragma once

#include "geometry/Point.h"
#include "vmp/Vector.h"
#include "zentra_export.h"

namespace geometry3D {

/// A half-line from `origin` along `direction`; the direction need not be of unit length, and
/// distances along the ray are measured in multiples of it.
class ZENTRA_EXPORT Ray {
public:
    Ray() : _direction(3) {}
    Ray(const Point& origin, const vmp::Vector& direction) : _direction(direction), _origin(origin) {}
    virtual ~Ray();

    const vmp::Vector& direction() const { return _direction; }
    void direction(const vmp::Vector& value) { _direction = value; }
    const Point& origin() const { return _origin; }
    void origin(const Point& value) { _origin = value; }

private:
    vmp::Vector _direction;
    Point _origin;
};

} // namespace geometry3D
