#include "model/LinkedColumns.h"

#include "model/Graph.h"
#include "model/QSAlgebra.h"

#include <QtTest>

using namespace model;

namespace {

/// Counts walks: a product of two adjacency graphs counts the walks of two steps between keys.
class Counting : public graph::Algebra<int> {
public:
    int zero() override { return 0; }
    int one() override { return 1; }
    int multiply(int a, int b) override { return a * b; }
    int add(int a, int b) override { return a + b; }
};

using IntGraph = graph::Graph<int, int>;

QStringList names(const ColumnPath* path) {
    QStringList out;
    if (path)
        for (const QSColumnAbstract* column : *path)
            out.append(column->name());
    return out;
}

QStringList chain_between(const System& system, const QString& from, const QString& to) {
    auto& columns = const_cast<System&>(system).qs_columns();
    return names(system.graph().get(columns.value(from), columns.value(to)).value);
}

} // namespace

class tst_column_graph : public QObject {
    Q_OBJECT
private slots:
    void entries_stand_in_one_row_and_one_column();
    void multiply_over_the_kept_keys();
    void merge_adds_where_both_have_entries();
    void algebra_keeps_the_shorter_chain_and_the_later_on_a_tie();
    void shortest_chains_data();
    void shortest_chains();
    void unlinked_columns_are_keys_without_entries();
    void removed_link_stays_until_the_next_rebuild();
};

void tst_column_graph::entries_stand_in_one_row_and_one_column() {
    IntGraph g;
    g.set(1, 2, 12);
    g.set(1, 3, 13);
    g.set(3, 2, 32);
    g.set(1, 2, 21); // replaces the value of the existing entry
    QCOMPARE(g.get(1, 2).value, 21);
    QCOMPARE(g.row(1).entries.keys(), (QList<int>{2, 3}));
    QCOMPARE(g.entries().size(), 3);
    QCOMPARE(g.key_set(), (QSet<int>{1, 2, 3}));

    g.replace(3, 2, 7);
    g.replace(2, 3, 9); // no such entry: nothing happens
    QCOMPARE(g.get(3, 2).value, 7);
    QVERIFY(g.get(2, 3).is_null());
    QCOMPARE(g.entries().size(), 3);

    // A missing entry or row is one shared null object.
    QCOMPARE(&g.get(2, 1), &g.get(7, 8));
    QVERIFY(g.row(2).isEmpty());

    g.clear();
    QVERIFY(g.key_list().isEmpty());
    QVERIFY(g.get(1, 3).is_null());
}

void tst_column_graph::multiply_over_the_kept_keys() {
    // A path 1 - 2 - 3 - 4 in both directions.
    IntGraph adjacency;
    for (int key = 1; key < 4; ++key) {
        adjacency.set(key, key + 1, 1);
        adjacency.set(key + 1, key, 1);
    }
    Counting counting;
    const IntGraph two_steps = adjacency.multiply(adjacency, {1, 2, 3, 4}, counting);
    QCOMPARE(two_steps.get(1, 3).value, 1);
    QCOMPARE(two_steps.get(2, 2).value, 2); // out to 1 and back, out to 3 and back
    QCOMPARE(two_steps.get(1, 1).value, 1);
    QVERIFY(two_steps.get(1, 2).is_null()); // no walk of two steps: zero is left out
    QCOMPARE(two_steps.entries().size(), 8);

    // Keys left out of the list, or unknown to either graph, take no part.
    IntGraph other;
    other.set(2, 3, 1);
    other.set(3, 9, 1);
    const IntGraph partial = adjacency.multiply(other, {9, 1, 3, 2}, counting);
    QCOMPARE(partial.key_set(), (QSet<int>{2, 3}));
    QCOMPARE(partial.entries().size(), 1); // 3 -> 2 -> 3
    QCOMPARE(partial.get(3, 3).value, 1);
    const IntGraph without_three = adjacency.multiply(other, {2, 1}, counting);
    QCOMPARE(without_three.key_list(), QList<int>{2});
    QVERIFY(without_three.entries().isEmpty());
}

void tst_column_graph::merge_adds_where_both_have_entries() {
    Counting counting;
    IntGraph g;
    g.set(1, 2, 3);
    IntGraph other;
    other.set(1, 2, 4);
    other.set(2, 5, 6);
    other.add_key(8);
    g.merge(other, counting);
    QCOMPARE(g.get(1, 2).value, 7);
    QCOMPARE(g.get(2, 5).value, 6);
    QVERIFY(g.key_set().contains(8));
    g.merge(g, counting); // with itself: nothing
    QCOMPARE(g.get(1, 2).value, 7);
    QCOMPARE(g.entries().size(), 2);
}

void tst_column_graph::algebra_keeps_the_shorter_chain_and_the_later_on_a_tie() {
    LinkedColumns fixture;
    QSColumnObject* a = fixture.column("a");
    QSColumnObject* b = fixture.column("b");
    QSAlgebra algebra(&fixture.system);
    ColumnPath ab{a, b};
    ColumnPath ba{b, a};
    ColumnPath aba{a, b, a};
    QCOMPARE(algebra.zero(), nullptr);
    ColumnPath* empty = algebra.one();
    QVERIFY(empty && empty->isEmpty());
    QCOMPARE(algebra.add(&ab, &ba), &ba);
    QCOMPARE(algebra.add(&aba, &ab), &ab);
    QCOMPARE(algebra.add(&ab, &aba), &ab);
    QCOMPARE(algebra.add(nullptr, &ab), &ab);
    QCOMPARE(algebra.add(&ab, nullptr), &ab);
    QCOMPARE(algebra.multiply(&ab, nullptr), nullptr);
    QCOMPARE(algebra.multiply(nullptr, &ab), nullptr);
    ColumnPath* joined = algebra.multiply(&ab, &ba);
    QCOMPARE(names(joined), (QStringList{"a", "b", "b", "a"}));
    QCOMPARE(names(&ab), (QStringList{"a", "b"})); // operands stay as they were

    // A null value merged into an entry keeps the entry's value.
    ColumnGraph g;
    g.set(a, b, &ab);
    ColumnGraph none;
    none.set(a, b, algebra.multiply(&ab, nullptr));
    g.merge(none, algebra);
    QCOMPARE(g.get(a, b).value, &ab);
}

void tst_column_graph::shortest_chains_data() {
    QTest::addColumn<QStringList>("links");
    QTest::addColumn<QStringList>("chain"); // from its first column to its last
    const QStringList chain{"a-b", "b-c", "c-d"};
    const QStringList star{"s-p", "s-q", "s-r"};
    QTest::newRow("chain, direct") << chain << QStringList{"b", "c"};
    QTest::newRow("chain, two steps back") << chain << QStringList{"c", "b", "a"};
    QTest::newRow("chain, end to end") << chain << QStringList{"a", "b", "c", "d"};
    QTest::newRow("star, leaf to leaf") << star << QStringList{"p", "s", "r"};
    QTest::newRow("star, middle to leaf") << star << QStringList{"s", "q"};
    // A linked column reaches itself out and back.
    QTest::newRow("star, leaf to itself") << star << QStringList{"p", "s", "p"};
    QTest::newRow("ring, shorter way round")
        << QStringList{"a-b", "b-c", "c-d", "d-e", "e-a"} << QStringList{"a", "e", "d"};
}

void tst_column_graph::shortest_chains() {
    QFETCH(QStringList, links);
    QFETCH(QStringList, chain);
    LinkedColumns fixture;
    QHash<QString, QSColumnObject*> by_name;
    for (const QString& link : links)
        for (const QString& name : link.split('-'))
            if (!by_name.contains(name))
                by_name.insert(name, fixture.column(name));
    for (const QString& link : links)
        by_name.value(link.section('-', 0, 0))->link_to(by_name.value(link.section('-', 1, 1)));
    QCOMPARE(fixture.system.graph_generation(), links.size());
    QCOMPARE(chain_between(fixture.system, chain.first(), chain.last()), chain);
    QCOMPARE(fixture.system.graph().key_list().size(), by_name.size());
}

void tst_column_graph::unlinked_columns_are_keys_without_entries() {
    LinkedColumns fixture;
    QSColumnObject* a = fixture.column("a");
    QSColumnObject* b = fixture.column("b");
    QSColumnObject* c = fixture.column("c");
    a->link_to(c); // rebuilds the graph over all three columns
    const ColumnGraph& graph = fixture.system.graph();
    QVERIFY(graph.key_set().contains(b));
    QVERIFY(graph.get(a, b).is_null());
    QVERIFY(graph.get(b, a).is_null());
    QVERIFY(graph.row(b).isEmpty());
    QVERIFY(!graph.get(a, c).is_null());
}

void tst_column_graph::removed_link_stays_until_the_next_rebuild() {
    LinkedColumns fixture;
    QSColumnObject* a = fixture.column("a");
    QSColumnObject* b = fixture.column("b");
    QSColumnObject* c = fixture.column("c");
    a->link_to(b);
    a->remove_link(b);
    QVERIFY(a->edges().isEmpty() && b->edges().isEmpty());
    QCOMPARE(chain_between(fixture.system, "a", "b"), (QStringList{"a", "b"}));
    // Items can still be linked across the removed link.
    QVERIFY(fixture.item(a, "a0")->link_to(fixture.item(b, "b0")));

    b->link_to(c);
    QCOMPARE(fixture.system.graph_generation(), 2);
    QVERIFY(fixture.system.graph().get(a, b).is_null());
    QVERIFY(!fixture.item(a, "a1")->link_to(fixture.item(b, "b1")));
    QCOMPARE(chain_between(fixture.system, "c", "b"), (QStringList{"c", "b"}));
}

QTEST_GUILESS_MAIN(tst_column_graph)
#include "tst_column_graph.moc"
