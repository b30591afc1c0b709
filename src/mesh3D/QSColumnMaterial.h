#pragma once

#include "zentra_export.h"

#include "model/QSColumnObject.h"

namespace mesh3D {

/// The quick-search column of a system's materials, shown by a `QSModelMaterial` that it owns.
/// The surface column is linked to it, so that a filter on materials narrows the surfaces that
/// use them. `Material::QSColumnMaterial` makes it on first demand.
class ZENTRA_EXPORT QSColumnMaterial : public model::QSColumnObject {
    Q_OBJECT
public:
    QSColumnMaterial(model::System* system, const QString& name);

    /// The active places whose row shows a match of the wildcard pattern (case-sensitive,
    /// searched inside the text) in any column of the table model.
    QList<int> matches(const QString& pattern) override;
};

} // namespace mesh3D
