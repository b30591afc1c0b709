#pragma once

#include "zentra_export.h"

#include "model/QSModelObject.h"

namespace mesh3D {

class QSColumnMaterial;

/// The table model of the material column: name, transparency, shininess, the three colours
/// (each cell also painted in its colour while the row is active), the texture file and the
/// number of surfaces linked to the material ("Ref.").
class ZENTRA_EXPORT QSModelMaterial : public model::QSModelObject {
    Q_OBJECT
public:
    explicit QSModelMaterial(QSColumnMaterial* column);

    /// 8.
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
};

} // namespace mesh3D
