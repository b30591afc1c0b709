#include "oxa/HRef.h"

#include "basic/text.h"

namespace oxa {

HRef::HRef(model::System* system, const QString& id) : mesh3D::Element(system, id) {}

std::wstring HRef::ID() const {
    return basic::ToStdString(id());
}

std::wstring HRef::Name() const {
    return {};
}

} // namespace oxa
