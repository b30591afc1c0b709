#pragma once

#include "zentra_export.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QList>
#include <QSet>

namespace model {

class QSColumnAbstract;
class QSItemAbstract;
class System;

/// One cell of a pivot table's tree: an item, the table rows it spans (`start` to `end`), and
/// the items of the next column that are linked to it. Owns its children.
struct ZENTRA_EXPORT PivotNode {
    explicit PivotNode(QSItemAbstract* item) : item(item) {}
    PivotNode(const PivotNode&) = delete;
    PivotNode& operator=(const PivotNode&) = delete;
    ~PivotNode() { qDeleteAll(children); }

    QSItemAbstract* item;
    int start = 0;
    QList<PivotNode*> children;
    int end = 0;
};

/// A table model that shows several columns of one system side by side: each row is a chain of
/// linked items, one per column, following the system's chains of columns. Rows whose first
/// item is inactive, and rows that lead to no active item of a later column, are left out.
///
/// A host adds the columns (`add_column`), each connected to the previous one through the column
/// graph, calls `setup` once, and from then on the rows are renumbered whenever one of the
/// columns' models is reset, or through `update_models` after a selection was cleared. Every
/// table is registered under its system for the life of the table.
class ZENTRA_EXPORT QSModelPivotTable : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit QSModelPivotTable(System* system);
    ~QSModelPivotTable() override;

    /// Appends a column of this table's system, and renumbers the rows whenever the column's
    /// model is reset; a column of another system is ignored.
    void add_column(QSColumnAbstract* column);
    /// Renumbers the rows of every pivot table of `system`, as `model_reset` does.
    static void update_models(System* system);

    /// Rows up to the last row of the last root whose item is active; 0 below a valid parent.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// One per column; 0 below a valid parent.
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// The display text of an item; the background marks the first row of each root.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    const QList<PivotNode*>& roots() const { return _roots; }
    const QList<QSColumnAbstract*>& columns() const { return _columns; }
    System* system() const { return _system; }

public slots:
    /// Builds the tree: one root per item of the first column, and under each node the items of
    /// the next column that the column graph's chain links to it. Does not number the rows.
    void setup();
    /// Renumbers the rows.
    void model_reset();

private:
    /// Gives the node a child for every item of `target` that is linked to the node's item
    /// through the chain of columns in between.
    void expand(PivotNode* node, QSColumnAbstract* target);
    /// Numbers the rows of the active roots and resets the model.
    void number_rows();

    QList<PivotNode*> _roots;
    QList<QSColumnAbstract*> _columns;
    System* _system;
};

} // namespace model
