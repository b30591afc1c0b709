#pragma once

// Object columns of one system for the table-model tests: plain model objects named by their
// identifiers, one column per letter, and helpers that read a column the way a view does,
// through its QAbstractItemModel.

#include "model/Object.h"
#include "model/QSColumnObject.h"
#include "model/QSItemObject.h"
#include "model/System.h"

#include <QAbstractItemModel>
#include <QAbstractItemModelTester>
#include <QStringList>

#include <memory>
#include <vector>

struct LinkedColumns {
    model::System system{true};
    std::vector<std::unique_ptr<model::Object>> objects;
    std::vector<std::unique_ptr<model::QSColumnObject>> columns;
    std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;

    /// A new column; every model made here is watched by a model tester for its whole life.
    model::QSColumnObject* column(const QString& name) {
        columns.emplace_back(new model::QSColumnObject(&system, name));
        watch(columns.back()->model());
        return columns.back().get();
    }
    void watch(QAbstractItemModel* model) {
        testers.emplace_back(
            new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::QtTest));
    }
    /// The item of a new object of that identifier in the column.
    model::QSItemObject* item(model::QSColumnObject* in, const QString& id) {
        objects.emplace_back(new model::Object(&system, id));
        return in->item(objects.back().get());
    }
    /// The column's items by identifier, made on first use.
    model::QSItemObject* at(model::QSColumnObject* in, const QString& id) {
        if (model::Object* existing = system.object(id))
            return in->item(existing);
        return item(in, id);
    }
    /// Links items named "x-y" pairs, e.g. link(a, b, {"a0-b0", "a1-b1"}); false if any link failed.
    bool link(model::QSColumnObject* from, model::QSColumnObject* to, const QStringList& pairs) {
        bool all = true;
        for (const QString& pair : pairs) {
            const QStringList ends = pair.split('-');
            all = at(from, ends.at(0))->link_to(at(to, ends.at(1))) && all;
        }
        return all;
    }
};

/// The display text of a cell, as a view reads it.
inline QString cell(const QAbstractItemModel* model, int row, int column) {
    return model->data(model->index(row, column)).toString();
}

/// The identifiers of the rows that a column's table shows as active, in row order.
inline QStringList active_ids(const model::QSColumnAbstract* column) {
    const QAbstractItemModel* shown = column->model();
    QStringList ids;
    for (int row = 0; row < shown->rowCount(); ++row)
        if (cell(shown, row, 3) == QLatin1String("active"))
            ids.append(cell(shown, row, 0));
    return ids;
}

/// The same, sorted, for comparisons that don't depend on the order a filter leaves behind.
inline QStringList active_set(const model::QSColumnAbstract* column) {
    QStringList ids = active_ids(column);
    ids.sort();
    return ids;
}
