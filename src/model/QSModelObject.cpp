#include "model/QSModelObject.h"

#include "model/Object.h"
#include "model/QSColumnObject.h"
#include "model/QSItemObject.h"

namespace model {

QSModelObject::QSModelObject(QSColumnObject* column) : QSModelAbstract(column) {}

QVariant QSModelObject::data(const QModelIndex& index, int role) const {
    if (role == Qt::DisplayRole && is_cell(index) && index.column() < 2) {
        const auto* item = static_cast<const QSItemObject*>(column()->items().at(index.row()));
        if (index.column() == 0)
            return item->object()->id();
        return item->links().size();
    }
    return QSModelAbstract::data(index, role);
}

} // namespace model
