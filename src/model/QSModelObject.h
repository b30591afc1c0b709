#pragma once

#include "zentra_export.h"

#include "model/QSModelAbstract.h"

namespace model {

class QSColumnObject;

/// The table model of a column of model objects: the object's identifier in the first column and
/// the number of the item's links in the second.
class ZENTRA_EXPORT QSModelObject : public QSModelAbstract {
    Q_OBJECT
public:
    explicit QSModelObject(QSColumnObject* column);

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
};

} // namespace model
