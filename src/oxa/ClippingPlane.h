#pragma once

#include "zentra_export.h"

#include "oxaIO/IView.h"

namespace oxa {

/// A clipping plane of a stored view: its normal, its distance from the origin and whether it
/// is switched off.
class ZENTRA_EXPORT ClippingPlane : public oxaIO::IClippingPlane {
public:
    ClippingPlane(const oxaIO::VCoords3D& normal, double distance, bool off);

    oxaIO::VCoords3D Normal() const override { return normal; }
    double Distance() const override { return distance; }
    bool IsOff() const override { return off; }

private:
    oxaIO::VCoords3D normal;
    double distance;
    bool off;
};

} // namespace oxa
