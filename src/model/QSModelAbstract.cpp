#include "model/QSModelAbstract.h"

#include "model/QSColumnAbstract.h"

#include <QColor>

namespace model {

QSModelAbstract::QSModelAbstract(QSColumnAbstract* column) : _column(column) { _font.setPointSize(7); }

int QSModelAbstract::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : _column->items().size();
}

int QSModelAbstract::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 4; }

QVariant QSModelAbstract::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole)
        return QVariant();
    if (orientation == Qt::Vertical)
        return section;
    switch (section) {
    case 0:
        return QStringLiteral("Value");
    case 1:
        return QStringLiteral("Nr.Refs.");
    case 2:
        return QStringLiteral("Filter");
    case 3:
        return QStringLiteral("Active");
    default:
        return QVariant();
    }
}

bool QSModelAbstract::is_cell(const QModelIndex& index) const {
    return index.isValid() && index.row() >= 0 && index.column() >= 0 && index.row() < _column->items().size();
}

QVariant QSModelAbstract::data(const QModelIndex& index, int role) const {
    if (!is_cell(index))
        return QVariant();
    const int row = index.row();
    const int active = _column->active();
    const int filtered = _column->filtered();
    switch (role) {
    case Qt::DisplayRole:
        if (index.column() == 2)
            return row < filtered ? QStringLiteral("filtered") : QString();
        if (index.column() == 3)
            return row < active ? QStringLiteral("active") : QString();
        return QVariant();
    case Qt::BackgroundRole:
        if (row >= active)
            return row >= filtered ? QColor(50, 100, 180, 255) : QColor(30, 70, 120, 255);
        return QVariant();
    case Qt::ForegroundRole:
        if (row >= active)
            return QColor(80, 80, 120, 255);
        return QVariant();
    case Qt::FontRole:
        return _font;
    default:
        return QVariant();
    }
}

void QSModelAbstract::reset() {
    beginResetModel();
    endResetModel();
}

} // namespace model
