#include "model/QSModelPivotTable.h"

#include "model/QSColumnAbstract.h"
#include "model/QSItemAbstract.h"
#include "model/System.h"

#include <QColor>

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

namespace model {

namespace {

/// Every pivot table by its system; one thread, so unguarded.
QHash<System*, QSet<QSModelPivotTable*>>& registry() {
    static QHash<System*, QSet<QSModelPivotTable*>> tables;
    return tables;
}

/// Gives the node and its subtree their rows from the node's `start` on, and returns how many
/// rows the node spans. An inactive node spans none; so does an active node whose children are
/// all inactive, which drops it from the table although it is active itself: a row shows a full
/// chain or nothing.
int number_span(PivotNode* node) {
    if (!node->item->is_active()) {
        node->end = node->start;
        return 0;
    }
    if (node->children.isEmpty()) {
        node->end = node->start;
        return 1;
    }
    int span = 0;
    for (PivotNode* child : qAsConst(node->children)) {
        child->start = node->start + span;
        span += number_span(child);
    }
    node->end = node->start + span - 1;
    return span;
}

/// Whether the node holds `row`; an inactive node holds none, whatever its numbers say.
bool holds_row(const PivotNode* node, int row) {
    const int end = node->item->is_active() ? node->end : -1;
    return node->start <= row && row <= end;
}

} // namespace

QSModelPivotTable::QSModelPivotTable(System* system) : _system(system) { registry()[_system].insert(this); }

QSModelPivotTable::~QSModelPivotTable() {
    qDeleteAll(_roots);
    auto found = registry().find(_system);
    if (found != registry().end()) {
        found->remove(this);
        if (found->isEmpty())
            registry().erase(found);
    }
}

void QSModelPivotTable::add_column(QSColumnAbstract* column) {
    if (!column || column->system() != _system)
        return;
    _columns.append(column);
    if (QAbstractItemModel* shown = column->model())
        connect(shown, &QAbstractItemModel::modelReset, this, &QSModelPivotTable::model_reset);
}

void QSModelPivotTable::setup() {
    qDeleteAll(_roots);
    _roots.clear();
    if (_columns.isEmpty())
        return;
    for (QSItemAbstract* item : _columns.first()->items())
        _roots.append(new PivotNode(item));
    QList<PivotNode*> level = _roots;
    for (int next = 1; next < _columns.size(); ++next) {
        QList<PivotNode*> children;
        for (PivotNode* node : qAsConst(level)) {
            expand(node, _columns.at(next));
            children.append(node->children);
        }
        level = children;
    }
}

/// The children are the items of `target` reached from the node's item by following links
/// column by column along the graph's chain, in their order in `target`; an item can stand under
/// several nodes. Columns that the graph does not connect give no children.
void QSModelPivotTable::expand(PivotNode* node, QSColumnAbstract* target) {
    const ColumnPath* chain = _system->graph().get(node->item->column(), target).value;
    if (!chain || chain->size() < 2)
        return;
    QList<QSItemAbstract*> current{node->item};
    for (int step = 1; step < chain->size(); ++step) {
        const QSColumnAbstract* column = chain->at(step);
        QSet<QSItemAbstract*> reached;
        for (const QSItemAbstract* item : qAsConst(current))
            for (QSItemAbstract* partner : item->links())
                if (partner->column() == column)
                    reached.insert(partner);
        // Ordered by place, each place looked up once.
        std::vector<std::pair<int, QSItemAbstract*>> placed;
        placed.reserve(reached.size());
        for (QSItemAbstract* item : qAsConst(reached))
            placed.emplace_back(column->index(item), item);
        std::sort(placed.begin(), placed.end());
        current.clear();
        current.reserve(int(placed.size()));
        for (const auto& entry : placed)
            current.append(entry.second);
    }
    for (QSItemAbstract* item : qAsConst(current))
        node->children.append(new PivotNode(item));
}

void QSModelPivotTable::model_reset() {
    std::fputs("QSModelPivotTable::model_reset()\n", stdout);
    std::fflush(stdout);
    number_rows();
}

void QSModelPivotTable::update_models(System* system) {
    const QSet<QSModelPivotTable*> tables = registry().value(system);
    for (QSModelPivotTable* table : tables)
        table->number_rows();
}

void QSModelPivotTable::number_rows() {
    beginResetModel();
    int row = 0;
    for (PivotNode* root : qAsConst(_roots)) {
        if (!root->item->is_active()) {
            root->start = -1;
            continue;
        }
        root->start = row;
        row += number_span(root);
    }
    endResetModel();
}

int QSModelPivotTable::rowCount(const QModelIndex& parent) const {
    if (parent.isValid())
        return 0;
    for (auto it = _roots.crbegin(); it != _roots.crend(); ++it)
        if ((*it)->item->is_active())
            return (*it)->end + 1;
    return 0;
}

int QSModelPivotTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : _columns.size();
}

QVariant QSModelPivotTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole)
        return QVariant();
    if (orientation == Qt::Vertical)
        return section;
    if (section < 0 || section >= _columns.size())
        return QVariant();
    return _columns.at(section)->name();
}

/// The display text walks down the tree one column at a time, taking the first node of each
/// level that holds the row. A level where no node holds the row is passed over and the next
/// column is looked up among the same nodes; tables that hosts already show depend on that
/// layout, so it is kept.
QVariant QSModelPivotTable::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() < 0 || index.column() < 0)
        return QVariant();
    const int row = index.row();
    if (role == Qt::BackgroundRole) {
        for (const PivotNode* root : _roots)
            if (root->start == row)
                return QColor(200, 200, 230, 255);
        return QVariant();
    }
    if (role != Qt::DisplayRole)
        return QVariant();
    const QList<PivotNode*>* level = &_roots;
    for (int depth = 0; depth <= index.column(); ++depth) {
        const auto found = std::find_if(level->cbegin(), level->cend(),
                                        [row](const PivotNode* node) { return holds_row(node, row); });
        if (found == level->cend())
            continue;
        if (depth == index.column())
            return (*found)->item->value();
        level = &(*found)->children;
    }
    return QVariant();
}

} // namespace model
