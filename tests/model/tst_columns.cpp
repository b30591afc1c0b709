#include "model/LinkedColumns.h"

#include "model/QSModelAbstract.h"
#include "model/QSModelPivotTable.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QSignalSpy>
#include <QtTest>

using namespace model;

/// Columns a - b - c - d linked in a chain, three or two items each:
/// a0-b0, a1-b1, a2-b2; b0-c0, b1-c1, b2-c1; c0-d0, c1-d1, c2-d1.
struct Chain : LinkedColumns {
    QSColumnObject* a = column("a");
    QSColumnObject* b = column("b");
    QSColumnObject* c = column("c");
    QSColumnObject* d = column("d");
    bool linked = false;
    Chain() {
        for (const char* id : {"a0", "a1", "a2"})
            item(a, id);
        for (const char* id : {"b0", "b1", "b2"})
            item(b, id);
        for (const char* id : {"c0", "c1", "c2"})
            item(c, id);
        for (const char* id : {"d0", "d1"})
            item(d, id);
        a->link_to(b);
        b->link_to(c);
        c->link_to(d);
        linked = link(a, b, {"a0-b0", "a1-b1", "a2-b2"}) && link(b, c, {"b0-c0", "b1-c1", "b2-c1"}) &&
                 link(c, d, {"c0-d0", "c1-d1", "c2-d1"});
    }
    /// Filters from the top with the places of the named items.
    void choose(QSColumnObject* in, const QStringList& ids) {
        QList<int> places;
        for (const QString& id : ids)
            places.append(in->index(at(in, id)));
        in->filter(places);
    }
};

/// A star: s in the middle, p, q, r around it; s0-p0, s0-q0, s1-p1, s1-r0, s2-p2 (s2 reaches only p).
struct Star : LinkedColumns {
    QSColumnObject* s = column("s");
    QSColumnObject* p = column("p");
    QSColumnObject* q = column("q");
    QSColumnObject* r = column("r");
    bool linked = false;
    Star() {
        s->link_to(p);
        s->link_to(q);
        s->link_to(r);
        linked = link(s, p, {"s0-p0", "s1-p1", "s2-p2"}) && link(s, q, {"s0-q0"}) && link(s, r, {"s1-r0"});
    }
};

/// A column's active and filtered counts and its rows in order.
static QString state_of(const QSColumnAbstract* column) {
    QStringList order;
    for (int row = 0; row < column->model()->rowCount(); ++row)
        order.append(cell(column->model(), row, 0));
    return QString("%1 %2 %3").arg(column->active()).arg(column->filtered()).arg(order.join(' '));
}

class tst_columns : public QObject {
    Q_OBJECT
private slots:
    void columns_register_by_name_and_items_by_object();
    void top_level_filter_reaches_every_linked_column_data();
    void top_level_filter_reaches_every_linked_column();
    void star_filter_deactivates_unreached_columns();
    void reached_column_with_no_active_choice_is_left_unchanged();
    void filter_that_changes_nothing_data();
    void filter_that_changes_nothing();
    void indices_are_taken_while_they_lie_in_the_active_rows_data();
    void indices_are_taken_while_they_lie_in_the_active_rows();
    void adding_reactivates_but_keeps_the_high_water_mark();
    void clear_selection_restores_every_column_and_renumbers_pivots();
    void matches_wildcards_in_active_rows_data();
    void matches_wildcards_in_active_rows();
    void removing_an_object_unlinks_its_item();
    void sort_orders_by_identifier();
    void table_model_headers();
    void table_model_shows_the_three_states_data();
    void table_model_shows_the_three_states();
    void table_model_refuses_cells_outside_the_table();
};

void tst_columns::columns_register_by_name_and_items_by_object() {
    LinkedColumns fixture;
    QSColumnObject* tiles = fixture.column("tiles");
    QCOMPARE(fixture.system.qs_columns().value("tiles"), tiles);

    QSItemObject* first = fixture.item(tiles, "t0");
    QCOMPARE(tiles->item(first->object()), first); // made once per object
    QCOMPARE(tiles->size(), 1);
    QCOMPARE(first->value().toString(), QString("t0"));
    QVERIFY(first->is_active());

    // Items of columns that the graph does not connect cannot be linked.
    QSColumnObject* walls = fixture.column("walls");
    QSItemObject* wall = fixture.item(walls, "w0");
    QVERIFY(!first->link_to(wall));
    QVERIFY(first->links().isEmpty() && wall->links().isEmpty());
    tiles->link_to(walls);
    QVERIFY(first->link_to(wall));
    QCOMPARE(cell(walls->model(), 0, 1), QString("1"));
    QVERIFY(wall->unlink(first));
    QVERIFY(!first->unlink(wall));
    QVERIFY(first->links().isEmpty());

    fixture.columns.pop_back();
    QVERIFY(!fixture.system.qs_columns().contains("walls"));
    QVERIFY(fixture.system.qs_columns().contains("tiles"));
}

void tst_columns::top_level_filter_reaches_every_linked_column_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QStringList>("chosen");
    QTest::addColumn<QString>("active"); // the active items of a, b, c and d
    QTest::newRow("from one end") << "a" << QStringList{"a1"} << "a1 | b1 | c1 | d1";
    QTest::newRow("from the other end") << "d" << QStringList{"d1"} << "a1 a2 | b1 b2 | c1 c2 | d1";
    QTest::newRow("from the middle, both ways")
        << "b" << QStringList{"b0", "b2"} << "a0 a2 | b0 b2 | c0 c1 | d0 d1";
    QTest::newRow("item without a partner further on") << "d" << QStringList{"d0"} << "a0 | b0 | c0 | d0";
}

void tst_columns::top_level_filter_reaches_every_linked_column() {
    QFETCH(QString, start);
    QFETCH(QStringList, chosen);
    Chain chain;
    QVERIFY(chain.linked);
    QSColumnObject* first = qobject_cast<QSColumnObject*>(chain.system.qs_columns().value(start));
    QSignalSpy resets(chain.d->model(), &QAbstractItemModel::modelReset);
    chain.choose(first, chosen);

    QStringList active;
    for (QSColumnObject* column : {chain.a, chain.b, chain.c, chain.d})
        active << active_set(column).join(' ');
    QTEST(active.join(" | "), "active");
    // The active rows stand in front, and each column remembers how far it was narrowed.
    for (QSColumnObject* column : {chain.a, chain.b, chain.c, chain.d}) {
        QCOMPARE(active_ids(column).size(), column->active());
        QCOMPARE(cell(column->model(), column->active() - 1, 3), QString("active"));
        QCOMPARE(column->filtered(), column->active());
        for (QSItemAbstract* item : column->items())
            QCOMPARE(item->is_active(), column->index(item) < column->active());
    }
    QCOMPARE(resets.count(), 1);
    QVERIFY(chain.system.handled_columns().isEmpty());
}

void tst_columns::star_filter_deactivates_unreached_columns() {
    Star star;
    QVERIFY(star.linked);
    QSColumnObject* unlinked = star.column("lone");
    star.item(unlinked, "x0");

    // From a leaf through the middle to the other leaves.
    QList<int> places{star.p->index(star.at(star.p, "p1"))};
    star.p->filter(places);
    QCOMPARE(active_set(star.s), QStringList{"s1"});
    QCOMPARE(active_set(star.r), QStringList{"r0"});
    QCOMPARE(star.q->active(), 0); // the walk never reached q
    QCOMPARE(unlinked->active(), 0);

    // From the middle: s2 reaches only p, so q and r go dark.
    star.system.clearAllFilters();
    QCOMPARE(star.q->active(), 1);
    QCOMPARE(unlinked->active(), 1);
    places = {star.s->index(star.at(star.s, "s2"))};
    star.s->filter(places);
    QCOMPARE(active_set(star.p), QStringList{"p2"});
    QCOMPARE(star.q->active(), 0);
    QCOMPARE(star.r->active(), 0);
    QCOMPARE(cell(star.r->model(), 0, 3), QString());
}

void tst_columns::reached_column_with_no_active_choice_is_left_unchanged() {
    Chain chain;
    QVERIFY(chain.linked);
    chain.choose(chain.a, {"a1"});
    chain.a->clear_filter();
    QCOMPARE(chain.a->active(), 3);
    const QString b_before = state_of(chain.b);

    // a0 leads to b0, which b no longer shows as active: b returns early, keeps its state and
    // still counts as reached; c behind it is not reached and goes dark.
    chain.choose(chain.a, {"a0"});
    QCOMPARE(active_ids(chain.a), QStringList{"a0"});
    QCOMPARE(state_of(chain.b), b_before);
    QCOMPARE(active_ids(chain.b), QStringList{"b1"});
    QCOMPARE(chain.c->active(), 0);
    QCOMPARE(chain.d->active(), 0);
}

void tst_columns::filter_that_changes_nothing_data() {
    QTest::addColumn<QList<int>>("places");
    QTest::newRow("no places") << QList<int>{};
    QTest::newRow("all past the active rows") << QList<int>{2, 1};
}

void tst_columns::filter_that_changes_nothing() {
    QFETCH(QList<int>, places);
    Chain chain;
    chain.choose(chain.b, {"b0"});
    QStringList before;
    QList<QSharedPointer<QSignalSpy>> resets;
    for (QSColumnObject* column : {chain.a, chain.b, chain.c, chain.d}) {
        before.append(state_of(column));
        resets.append(QSharedPointer<QSignalSpy>::create(column->model(), &QAbstractItemModel::modelReset));
    }
    chain.b->filter(places);
    const QList<QSColumnObject*> columns{chain.a, chain.b, chain.c, chain.d};
    for (int i = 0; i < columns.size(); ++i) {
        QCOMPARE(state_of(columns.at(i)), before.at(i));
        QCOMPARE(resets.at(i)->count(), 0);
    }
}

void tst_columns::indices_are_taken_while_they_lie_in_the_active_rows_data() {
    QTest::addColumn<QList<int>>("places");
    QTest::addColumn<QStringList>("active");
    QTest::newRow("in order") << QList<int>{0, 2} << QStringList{"x0", "x2"};
    QTest::newRow("sorted first") << QList<int>{2, 0} << QStringList{"x0", "x2"};
    QTest::newRow("cut off at the first past the active rows") << QList<int>{5, 1, 3} << QStringList{"x1"};
    // A repeated place is not screened out: the second take pulls a neighbour in.
    QTest::newRow("repeated") << QList<int>{0, 0} << QStringList{"x1", "x0"};
    QTest::newRow("negative ones passed over") << QList<int>{-3, 2, -1} << QStringList{"x2"};
}

void tst_columns::indices_are_taken_while_they_lie_in_the_active_rows() {
    QFETCH(QList<int>, places);
    LinkedColumns fixture;
    QSColumnObject* names = fixture.column("names");
    for (const char* id : {"x0", "x1", "x2", "x3"})
        fixture.item(names, id);
    QList<int> first_three{0, 1, 2};
    names->filter(first_three);
    names->filter(places);
    QTEST(active_ids(names), "active");
    QCOMPARE(names->filtered(), 3);
}

void tst_columns::adding_reactivates_but_keeps_the_high_water_mark() {
    Chain chain;
    chain.choose(chain.c, {"c0", "c1"});
    chain.choose(chain.c, {"c1"});
    QCOMPARE(chain.c->active(), 1);
    QCOMPARE(chain.c->filtered(), 2);
    chain.item(chain.c, "c3");
    QCOMPARE(chain.c->active(), 4);
    QCOMPARE(chain.c->filtered(), 2);
    QCOMPARE(chain.c->index(chain.at(chain.c, "c3")), 3);
}

void tst_columns::clear_selection_restores_every_column_and_renumbers_pivots() {
    Chain chain;
    QSModelPivotTable pivot(&chain.system);
    pivot.add_column(chain.a);
    pivot.setup();
    chain.choose(chain.d, {"d0"});
    QCOMPARE(pivot.rowCount(), 1);

    QSignalSpy renumbered(&pivot, &QAbstractItemModel::modelReset);
    chain.d->clear_selection();
    for (QSColumnObject* column : {chain.a, chain.b, chain.c, chain.d}) {
        QCOMPARE(column->active(), column->items().size());
        QCOMPARE(column->filtered(), 0);
        QCOMPARE(cell(column->model(), 0, 2), QString());
    }
    QVERIFY(renumbered.count() >= 1);
    QCOMPARE(pivot.rowCount(), 3);
}

void tst_columns::matches_wildcards_in_active_rows_data() {
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QStringList>("found");
    QTest::newRow("searched inside the text") << "a*" << QStringList{"xab", "ab"};
    QTest::newRow("case-sensitive") << "A" << QStringList{"Ab"};
    QTest::newRow("one character") << "?b" << QStringList{"xab", "ab", "Ab"};
    QTest::newRow("character class") << "[xA]" << QStringList{"xab", "Ab"};
    QTest::newRow("nothing") << "z" << QStringList{};
}

void tst_columns::matches_wildcards_in_active_rows() {
    QFETCH(QString, pattern);
    LinkedColumns fixture;
    QSColumnObject* names = fixture.column("names");
    for (const char* id : {"xab", "ab", "b", "Ab", "xabc"})
        fixture.item(names, id);
    QList<int> first_four{0, 1, 2, 3};
    names->filter(first_four); // "xabc" drops out of the active rows
    QStringList found;
    for (const int place : names->matches(pattern))
        found.append(cell(names->model(), place, 0));
    QTEST(found, "found");
}

void tst_columns::removing_an_object_unlinks_its_item() {
    Chain chain;
    QSItemObject* b1 = chain.at(chain.b, "b1");
    QCOMPARE(b1->links().size(), 2);
    chain.c->remove(chain.system.object("c1"));
    QVERIFY(!chain.c->contains(chain.system.object("c1")));
    QCOMPARE(chain.c->model()->rowCount(), 2);
    QCOMPARE(b1->links().size(), 1);
    QCOMPARE(chain.at(chain.d, "d1")->links().size(), 1);
    chain.c->remove(chain.system.object("a0")); // not in this column: nothing happens
    QCOMPARE(chain.c->items().size(), 2);

    // The column still counts three active places; a place past its items is passed over.
    QCOMPARE(chain.c->active(), 3);
    QList<int> past_the_items{2};
    chain.c->filter(past_the_items);
    QCOMPARE(chain.c->active(), 3);
    // Null objects and columns are refused quietly.
    QVERIFY(!chain.c->item(nullptr));
    chain.c->link_to(nullptr);
    chain.c->remove_link(nullptr);
    QCOMPARE(chain.c->edges().size(), 2);
}

void tst_columns::sort_orders_by_identifier() {
    LinkedColumns fixture;
    QSColumnObject* names = fixture.column("names");
    for (const char* id : {"b", "a", "C", "aa"})
        fixture.item(names, id);
    names->sort();
    QCOMPARE(active_ids(names), (QStringList{"C", "a", "aa", "b"}));
}

void tst_columns::table_model_headers() {
    LinkedColumns fixture;
    const QAbstractItemModel* shown = fixture.column("names")->model();
    QStringList headers;
    for (int section = 0; section < shown->columnCount(); ++section)
        headers.append(shown->headerData(section, Qt::Horizontal).toString());
    QCOMPARE(headers, (QStringList{"Value", "Nr.Refs.", "Filter", "Active"}));
    QCOMPARE(shown->headerData(17, Qt::Vertical).toInt(), 17);
}

void tst_columns::table_model_shows_the_three_states_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("filter_text");
    QTest::addColumn<QString>("active_text");
    QTest::addColumn<QVariant>("background");
    QTest::addColumn<QVariant>("foreground");
    QTest::newRow("active") << 0 << "filtered" << QString("active") << QVariant() << QVariant();
    QTest::newRow("passed over") << 2 << "filtered" << QString("") << QVariant(QColor(30, 70, 120, 255))
                                 << QVariant(QColor(80, 80, 120, 255));
    QTest::newRow("out") << 3 << "" << QString("") << QVariant(QColor(50, 100, 180, 255))
                         << QVariant(QColor(80, 80, 120, 255));
}

void tst_columns::table_model_shows_the_three_states() {
    QFETCH(int, row);
    QFETCH(QVariant, background);
    QFETCH(QVariant, foreground);
    Chain chain;
    chain.choose(chain.a, {"a1", "a2", "a0"});
    chain.choose(chain.a, {"a2"});
    chain.item(chain.a, "a3");
    chain.choose(chain.a, {"a2"});
    const QAbstractItemModel* shown = chain.a->model();
    QCOMPARE(shown->rowCount(), 4);
    QCOMPARE(cell(shown, 0, 0), QString("a2"));
    QCOMPARE(cell(shown, 0, 1), QString("1"));

    const QModelIndex index = shown->index(row, 2);
    QTEST(shown->data(index).toString(), "filter_text");
    QTEST(cell(shown, row, 3), "active_text");
    for (int column = 0; column < 4; ++column) {
        const QModelIndex at = shown->index(row, column);
        QCOMPARE(shown->data(at, Qt::BackgroundRole), background);
        QCOMPARE(shown->data(at, Qt::ForegroundRole), foreground);
        QCOMPARE(qvariant_cast<QFont>(shown->data(at, Qt::FontRole)).pointSize(), 7);
        QVERIFY(!shown->data(at, Qt::ToolTipRole).isValid());
    }
}

void tst_columns::table_model_refuses_cells_outside_the_table() {
    Chain chain;
    QAbstractItemModel* shown = chain.d->model();
    // Removing an object does not reset the model: an index made while its row existed now
    // points past the end and gets nothing.
    const QPersistentModelIndex gone = shown->index(1, 0);
    chain.d->remove(chain.system.object("d1"));
    QVERIFY(gone.isValid());
    QVERIFY(!shown->data(gone).isValid());
}

QTEST_GUILESS_MAIN(tst_columns)
#include "tst_columns.moc"
