#include "model/QSColumnAbstract.h"

#include "model/QSItemAbstract.h"
#include "model/QSModelAbstract.h"
#include "model/QSModelPivotTable.h"

#include <QAbstractItemModel>

#include <algorithm>
#include <cstdio>

namespace model {

namespace {
/// The column's trace lines are part of what hosts log; each is flushed at once.
void trace(const char* line) {
    std::fputs(line, stdout);
    std::fflush(stdout);
}
} // namespace

QSColumnAbstract::QSColumnAbstract(System* system, const QString& name) : _name(name), _system(system) {
    _system->qs_columns().insert(_name, this);
}

QSColumnAbstract::QSColumnAbstract(System* system) : _system(system) {}

QSColumnAbstract::~QSColumnAbstract() {
    if (!_name.isNull())
        _system->qs_columns().remove(_name);
}

QList<int> QSColumnAbstract::matches(const QString&) { return QList<int>(); }

int QSColumnAbstract::index(const QSItemAbstract* item) const {
    return _positions.value(const_cast<QSItemAbstract*>(item), -1);
}

void QSColumnAbstract::link_to(QSColumnAbstract* other) {
    if (!other)
        return;
    _edges.insert(other);
    other->_edges.insert(this);
    _system->update_shortestpaths();
}

void QSColumnAbstract::remove_link(QSColumnAbstract* other) {
    if (!other)
        return;
    _edges.remove(other);
    other->_edges.remove(this);
}

void QSColumnAbstract::filter(QList<int>& indices, QSColumnAbstract* from) {
    trace("QSColumnAbstract::filter()\n");
    if (indices.isEmpty()) {
        trace("QSColumnAbstract::filter(): indices are empty!\n");
        return;
    }
    QSet<QSColumnAbstract*>& handled = _system->handled_columns();
    if (!from)
        handled.clear();
    handled.insert(this);

    std::sort(indices.begin(), indices.end());
    // Negative places name no item and are passed over; a column whose items were removed may
    // count more active places than it has items, and those are passed over too.
    const auto first = std::lower_bound(indices.cbegin(), indices.cend(), 0);
    const int limit = std::min(_active, int(_items.size()));
    if (first == indices.cend() || *first >= limit)
        return;
    int chosen = 0;
    for (auto it = first; it != indices.cend(); ++it) {
        const int place = *it;
        if (place >= limit)
            break;
        _items.swapItemsAt(chosen, place);
        _positions.insert(_items.at(chosen), chosen);
        _positions.insert(_items.at(place), place);
        ++chosen;
    }
    _filtered = std::max(_filtered, chosen);
    _active = chosen;
    reset_model();

    QHash<QSColumnAbstract*, QSet<QSItemAbstract*>> reached;
    for (int place = 0; place < _active; ++place)
        for (QSItemAbstract* partner : _items.at(place)->links())
            if (partner->column() != from)
                reached[partner->column()].insert(partner);
    for (auto it = reached.cbegin(); it != reached.cend(); ++it) {
        QSColumnAbstract* next = it.key();
        QList<int> places;
        for (int place = 0; place < next->_items.size(); ++place)
            if (it.value().contains(next->_items.at(place)))
                places.append(place);
        next->filter(places, this);
    }

    if (!from) {
        for (QSColumnAbstract* column : qAsConst(_system->qs_columns()))
            if (!handled.contains(column)) {
                column->_active = 0;
                column->reset_model();
            }
        handled.clear();
    }
}

void QSColumnAbstract::clear_filter() {
    _filtered = 0;
    _active = _items.size();
    reset_model();
}

void QSColumnAbstract::activate_none() {
    _active = 0;
    reset_model();
}

void QSColumnAbstract::clear_selection() {
    trace("clear_selection() ... \n");
    for (QSColumnAbstract* column : qAsConst(_system->qs_columns()))
        column->clear_filter();
    trace("update pivot tables  ... \n");
    QSModelPivotTable::update_models(_system);
}

void QSColumnAbstract::add(QSItemAbstract* item) {
    item->_column = this;
    _positions.insert(item, _items.size());
    _items.append(item);
    _active = _items.size();
}

void QSColumnAbstract::forget(QSItemAbstract* item) {
    _items.removeOne(item);
    _positions.remove(item);
}

void QSColumnAbstract::reset_model() {
    if (auto* table = qobject_cast<QSModelAbstract*>(model()))
        table->reset();
}

} // namespace model
