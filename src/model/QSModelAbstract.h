#pragma once

#include "zentra_export.h"

#include <QAbstractTableModel>
#include <QFont>

namespace model {

class QSColumnAbstract;

/// The table model that shows one column to a view: one row per item, in the column's order, and
/// four columns, of which this class fills the state columns "Filter" and "Active" and the
/// colours that tell active, once-filtered and out rows apart. Derived models fill the value
/// columns. The model belongs to its column and is reset by it after every change of state.
class ZENTRA_EXPORT QSModelAbstract : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit QSModelAbstract(QSColumnAbstract* column);

    /// The number of items of the column; 0 below a valid parent, since a table has no children.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// 4; 0 below a valid parent.
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    QSColumnAbstract* column() const { return _column; }
    /// The font of every cell: the default font at 7 points.
    const QFont& font() const { return _font; }
    /// Tells the views that everything may have changed.
    void reset();

protected:
    /// Whether `index` names an existing cell, as `data` requires before it answers.
    bool is_cell(const QModelIndex& index) const;

private:
    QSColumnAbstract* _column;
    QFont _font;
};

} // namespace model
