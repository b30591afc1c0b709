#pragma once

#include "zentra_export.h"

#include "model/System.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QString>

class QAbstractItemModel;

namespace model {

class QSItemAbstract;

/// One quick-search table: an ordered list of items whose leading run is active. Columns are
/// linked to each other (`link_to`), their items one by one; a filter on one column narrows it
/// and carries the narrowing through the item links to every column it can reach.
///
/// Each item is in one of three states, told by its place: active (below `active()`), passed
/// over but active since the last clearing (below `filtered()`), or out. The column enters itself
/// in its system's `qs_columns` under its name and lives until its creator deletes it. It shows
/// itself through `model()`, and every change of its state resets that model.
class ZENTRA_EXPORT QSColumnAbstract : public QObject {
    Q_OBJECT
public:
    QSColumnAbstract(System* system, const QString& name);
    /// Leaves `qs_columns`. The other columns' `edges` and the column graph keep their entries
    /// for this column until the next link rebuilds the graph.
    ~QSColumnAbstract() override;

    /// A tag for what the items stand for: 1 for model objects. The library itself never reads
    /// it; hosts may tell kinds of columns apart by it.
    virtual int kind() const = 0;
    /// The table model that shows this column; null while a derived column has none yet.
    virtual QAbstractItemModel* model() const = 0;
    /// Puts the items in their natural order; only valid before any filter.
    virtual void sort() = 0;
    /// The active places whose items match a search text; none here.
    virtual QList<int> matches(const QString& pattern);

    const QList<QSItemAbstract*>& items() const { return _items; }
    const QString& name() const { return _name; }
    System* system() const { return _system; }
    const QSet<QSColumnAbstract*>& edges() const { return _edges; }
    const ColumnGraph& graph() const { return _system->graph(); }
    /// The first `active()` items are active.
    int active() const { return _active; }
    /// The largest `active()` that a filter left since the last clearing; 0 after clearing.
    int filtered() const { return _filtered; }

    /// The item's present place, or -1.
    int index(const QSItemAbstract* item) const;
    /// Links both columns to each other and rebuilds the system's column graph.
    void link_to(QSColumnAbstract* other);
    /// Unlinks both columns. The column graph is deliberately not rebuilt: the removed link stays
    /// in force for item links and pivot tables until the next `link_to`, which saves a rebuild
    /// per removal when a host rewires several columns.
    void remove_link(QSColumnAbstract* other);

    /// Makes active only the items at `indices` (places in `items()`; the list is sorted in
    /// place) and carries that through the item links to every column it reaches; called with
    /// null `from` by a host, while the recursion passes the column it comes from. After a
    /// top-level filter every column that the walk did not reach has no active item.
    ///
    /// Indices are taken in ascending order only while they lie below `active()`: if the first
    /// of them does not, the column is left unchanged, though it still counts as reached.
    /// Repeated indices are not screened out (a second take pulls the neighbour in); negative
    /// ones are passed over.
    ///
    /// The walk skips only the column it came from and has no guard against cycles: the columns
    /// of a system must form a tree, or the links between their items must die out. The columns
    /// a project builds (materials and their surfaces) form a tree, and the walk stays a plain
    /// recursion without per-step bookkeeping.
    void filter(QList<int>& indices, QSColumnAbstract* from = nullptr);
    /// All items active again; `filtered()` back to 0.
    void clear_filter();
    /// No item active.
    void activate_none();

public slots:
    /// Clears the filters of every column of the system, then renumbers the system's pivot
    /// tables.
    void clear_selection();

protected:
    /// Appends the item and makes every item active again; `filtered()` keeps its value.
    void add(QSItemAbstract* item);
    /// Takes the item out of `items()` and the places; the other items keep their recorded
    /// places and `active()` its value.
    void forget(QSItemAbstract* item);
    /// Resets `model()`, if there is one, so that views and pivot tables see the new state.
    void reset_model();

    QList<QSItemAbstract*> _items;

private:
    /// An unnamed column that stays out of `qs_columns`.
    explicit QSColumnAbstract(System* system);

    int _filtered = 0;
    int _active = 0;
    QSet<QSColumnAbstract*> _edges;
    QHash<QSItemAbstract*, int> _positions;
    QString _name;
    System* _system;
};

} // namespace model
