#pragma once

#include "oxaIO/OxaTypes.h"
#include "zentra_export.h"

namespace oxaIO {

/// An oriented bounding box as the document layer sees it: a reference corner and the three
/// edges leaving it, each with its length.
class ZENTRA_EXPORT IOBB {
public:
    virtual ~IOBB() = default;
    virtual VCoords3D Ref() const = 0;
    virtual VCoords3D Vx() const = 0;
    virtual VCoords3D Vy() const = 0;
    virtual VCoords3D Vz() const = 0;
};

} // namespace oxaIO
