#pragma once

#include "zentra_export.h"

#include "mesh3D/Element.h"
#include "oxaIO/IObject.h"

namespace oxa {

/// A named height level of a document's topology section: an element of the model, so that its
/// identifier is known to the system, with the z value of the level.
class ZENTRA_EXPORT HRef : public oxaIO::IHRef, public mesh3D::Element {
public:
    HRef(model::System* system, const QString& id);

    double ZValue() const override { return zValue; }
    void ZValue(double z) { zValue = z; }
    std::wstring ID() const override;
    /// Always empty: a level is known by its identifier only.
    std::wstring Name() const override;

private:
    double zValue = 0.0;
};

} // namespace oxa
