#include "model/LinkedColumns.h"

#include "model/QSModelPivotTable.h"

#include <QColor>
#include <QSignalSpy>
#include <QtTest>

using namespace model;

/// Columns a - b - c in a chain: a0 has b0 and b1, b0 has c0 and c1, b1 has c2; a1 has b2,
/// which has nothing in c; a2 has nothing at all. A pivot table over a, b and c, checked by a
/// model tester from the start.
struct Pivot : LinkedColumns {
    QSColumnObject* a = column("a");
    QSColumnObject* b = column("b");
    QSColumnObject* c = column("c");
    QSModelPivotTable table{&system};
    bool linked = false;
    Pivot() {
        for (const char* id : {"a0", "a1", "a2"})
            item(a, id);
        for (const char* id : {"b0", "b1", "b2"})
            item(b, id);
        for (const char* id : {"c0", "c1", "c2"})
            item(c, id);
        a->link_to(b);
        b->link_to(c);
        linked = link(a, b, {"a0-b0", "a0-b1", "a1-b2"}) && link(b, c, {"b0-c0", "b0-c1", "b1-c2"});
        for (QSColumnObject* column : {a, b, c})
            table.add_column(column);
        watch(&table);
        table.setup();
        table.model_reset();
    }
    void choose(QSColumnObject* in, const QStringList& ids) {
        QList<int> places;
        for (const QString& id : ids)
            places.append(in->index(at(in, id)));
        in->filter(places);
    }
    /// Every row of a table (by default the one over a, b and c) as its cells joined by "/".
    QStringList rows(const QSModelPivotTable* of = nullptr) const {
        of = of ? of : &table;
        QStringList out;
        for (int row = 0; row < of->rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < of->columnCount(); ++column)
                cells.append(cell(of, row, column));
            out.append(cells.join('/'));
        }
        return out;
    }
    /// The rows whose background marks the first row of a root.
    QList<int> marked_rows() const {
        QList<int> out;
        for (int row = 0; row < table.rowCount(); ++row) {
            const QVariant background = table.data(table.index(row, 0), Qt::BackgroundRole);
            if (background.isValid()) {
                if (background != QVariant(QColor(200, 200, 230, 255)))
                    return {-1};
                out.append(row);
            }
        }
        return out;
    }
};

class tst_pivot_table : public QObject {
    Q_OBJECT
private slots:
    void rows_follow_the_links_column_by_column();
    void rows_after_a_filter_data();
    void rows_after_a_filter();
    void nodes_whose_children_are_all_inactive_vanish();
    void chain_through_a_column_not_shown();
    void one_column_shows_one_row_per_active_item();
    void registry_renumbers_the_tables_of_one_system();
    void foreign_and_unconnected_columns_add_no_rows();
};

void tst_pivot_table::rows_follow_the_links_column_by_column() {
    Pivot pivot;
    QVERIFY(pivot.linked);
    QCOMPARE(pivot.rows(), (QStringList{"a0/b0/c0", "a0/b0/c1", "a0/b1/c2", "a1/b2/", "a2//"}));
    QCOMPARE(pivot.marked_rows(), (QList<int>{0, 3, 4}));

    const QList<PivotNode*>& roots = pivot.table.roots();
    QCOMPARE(roots.size(), 3);
    QCOMPARE(roots.at(0)->start, 0);
    QCOMPARE(roots.at(0)->end, 2);
    QCOMPARE(roots.at(0)->children.at(1)->start, 2);
    QCOMPARE(roots.at(1)->start, 3);
    QCOMPARE(roots.at(1)->end, 3);
    QCOMPARE(roots.at(2)->children.size(), 0);

    QStringList headers;
    for (int section = 0; section < pivot.table.columnCount(); ++section)
        headers.append(pivot.table.headerData(section, Qt::Horizontal).toString());
    QCOMPARE(headers, (QStringList{"a", "b", "c"}));
    QCOMPARE(pivot.table.headerData(4, Qt::Vertical).toInt(), 4);
}

void tst_pivot_table::rows_after_a_filter_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QStringList>("chosen");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QList<int>>("marked");
    QTest::addColumn<QList<int>>("root_starts");
    QTest::newRow("one leaf") << "c" << QStringList{"c1"} << QStringList{"a0/b0/c1"} << QList<int>{0}
                              << QList<int>{0, -1, -1};
    QTest::newRow("two roots") << "b" << QStringList{"b1", "b2"} << QStringList{"a0/b1/c2", "a1/b2/"}
                               << QList<int>{0, 1} << QList<int>{0, 1, -1};
    QTest::newRow("childless root") << "a" << QStringList{"a2"} << QStringList{"a2//"} << QList<int>{0}
                                    << QList<int>{-1, -1, 0};
}

void tst_pivot_table::rows_after_a_filter() {
    QFETCH(QString, start);
    QFETCH(QStringList, chosen);
    Pivot pivot;
    QSignalSpy renumbered(&pivot.table, &QAbstractItemModel::modelReset);
    pivot.choose(qobject_cast<QSColumnObject*>(pivot.system.qs_columns().value(start)), chosen);
    // Renumbered on the columns' resets, without a new setup.
    QVERIFY(renumbered.count() >= 1);
    QTEST(pivot.rows(), "rows");
    QTEST(pivot.marked_rows(), "marked");
    QList<int> starts;
    for (const PivotNode* root : pivot.table.roots())
        starts.append(root->start);
    QTEST(starts, "root_starts");
}

void tst_pivot_table::nodes_whose_children_are_all_inactive_vanish() {
    Pivot pivot;
    pivot.b->activate_none();
    // a0 and a1 are active, but lead to no active b: only the childless a2 is left.
    QCOMPARE(pivot.rows(), QStringList{"a2//"});
    QCOMPARE(pivot.table.roots().at(0)->end, pivot.table.roots().at(0)->start - 1);
    pivot.a->activate_none();
    QCOMPARE(pivot.table.rowCount(), 0);
    QVERIFY(!pivot.table.data(pivot.table.index(0, 0)).isValid());
}

void tst_pivot_table::chain_through_a_column_not_shown() {
    Pivot pivot;
    QSModelPivotTable skipping(&pivot.system);
    skipping.add_column(pivot.a);
    skipping.add_column(pivot.c);
    pivot.watch(&skipping);
    skipping.setup();
    skipping.model_reset();
    QCOMPARE(pivot.rows(&skipping), (QStringList{"a0/c0", "a0/c1", "a0/c2", "a1/", "a2/"}));
}

void tst_pivot_table::one_column_shows_one_row_per_active_item() {
    Pivot pivot;
    QSModelPivotTable single(&pivot.system);
    single.add_column(pivot.b);
    pivot.watch(&single);
    single.setup();
    single.model_reset();
    QCOMPARE(single.rowCount(), 3);
    pivot.choose(pivot.a, {"a0"});
    QCOMPARE(pivot.rows(&single), (QStringList{"b0", "b1"}));
    QVERIFY(!single.data(single.index(1, 0), Qt::BackgroundRole).isNull());
}

void tst_pivot_table::registry_renumbers_the_tables_of_one_system() {
    Pivot pivot;
    Pivot elsewhere;
    auto second = std::make_unique<QSModelPivotTable>(&pivot.system);
    second->add_column(pivot.c);
    second->setup();
    pivot.a->activate_none();
    elsewhere.a->activate_none();
    QSignalSpy first_spy(&pivot.table, &QAbstractItemModel::modelReset);
    QSignalSpy second_spy(second.get(), &QAbstractItemModel::modelReset);
    QSignalSpy other_spy(&elsewhere.table, &QAbstractItemModel::modelReset);

    QSModelPivotTable::update_models(&pivot.system);
    QCOMPARE(first_spy.count(), 1);
    QCOMPARE(second_spy.count(), 1);
    QCOMPARE(other_spy.count(), 0);
    QCOMPARE(pivot.table.rowCount(), 0);
    QCOMPARE(second->rowCount(), 3);

    // A table that is gone is no longer renumbered; the system keeps its other table.
    second.reset();
    QSModelPivotTable::update_models(&pivot.system);
    QCOMPARE(first_spy.count(), 2);
    QSModelPivotTable::update_models(nullptr); // a system without tables: nothing happens
}

void tst_pivot_table::foreign_and_unconnected_columns_add_no_rows() {
    Pivot pivot;
    Pivot other;
    QSModelPivotTable table(&pivot.system);
    table.add_column(other.a);
    table.add_column(nullptr);
    QCOMPARE(table.columnCount(), 0);
    table.setup();
    table.model_reset();
    QCOMPARE(table.rowCount(), 0);

    // Columns that the graph does not connect: every root stands alone.
    QSColumnObject* lone = pivot.column("lone");
    pivot.item(lone, "x0");
    table.add_column(lone);
    table.add_column(pivot.a);
    table.setup();
    table.model_reset();
    QCOMPARE(table.rowCount(), 1);
    QCOMPARE(cell(&table, 0, 0), QString("x0"));
    QVERIFY(!table.data(table.index(0, 1)).isValid());
}

QTEST_GUILESS_MAIN(tst_pivot_table)
#include "tst_pivot_table.moc"
