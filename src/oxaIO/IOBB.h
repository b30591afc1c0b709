#pragma once

#include "zentra_export.h"

#include "oxaIO/OxaTypes.h"

namespace oxaIO {

/// An oriented bounding box of a 3D object: a corner and the three edge vectors that leave it.
class ZENTRA_EXPORT IOBB {
public:
    virtual ~IOBB() = default;
    virtual VCoords3D Ref() const = 0;
    virtual VCoords3D Vx() const = 0;
    virtual VCoords3D Vy() const = 0;
    virtual VCoords3D Vz() const = 0;
};

} // namespace oxaIO
