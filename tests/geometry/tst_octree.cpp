#include "basic/numeric.h"
#include "geometry/Octree.h"
#include "geometry/OctreeIterator.h"
#include "geometry/Point.h"

#include <QThread>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

using namespace geometry3D;

Q_DECLARE_METATYPE(std::vector<geometry3D::point>)

namespace {

/// Points that a tree refers to but does not own.
using Points = std::vector<std::unique_ptr<Point>>;

Point* add(Points& store, double x, double y, double z) {
    store.push_back(std::make_unique<Point>(x, y, z));
    return store.back().get();
}

/// An independent, plainly recursive-by-walk model of the tree, to check the real one against.
struct ReferenceNode {
    Point* point = nullptr;
    std::unique_ptr<ReferenceNode> children[8];
};

Point* reference_insert(ReferenceNode& root, Point* p, double eps, int precision) {
    ReferenceNode* node = &root;
    for (;;) {
        if (!node->point) {
            node->point = p;
            return p;
        }
        const Point& q = *node->point;
        if (distance2(p->x(), p->y(), p->z(), q.x(), q.y(), q.z()) < eps)
            return node->point;
        const int i = (basic::round_to_digits(p->x(), precision) > q.x() ? 4 : 0) +
                      (basic::round_to_digits(p->y(), precision) > q.y() ? 2 : 0) +
                      (basic::round_to_digits(p->z(), precision) > q.z() ? 1 : 0);
        if (!node->children[i])
            node->children[i] = std::make_unique<ReferenceNode>();
        node = node->children[i].get();
    }
}

QList<Point*> reference_order(const ReferenceNode& root) {
    QList<Point*> order;
    std::vector<const ReferenceNode*> pending{&root};
    while (!pending.empty()) {
        const ReferenceNode* node = pending.back();
        pending.pop_back();
        if (node->point)
            order.append(node->point);
        for (int i = 7; i >= 0; --i)
            if (node->children[i])
                pending.push_back(node->children[i].get());
    }
    return order;
}

} // namespace

class tst_octree : public QObject {
    Q_OBJECT

private slots:
    void welding_data() {
        QTest::addColumn<double>("offset");
        QTest::addColumn<bool>("welded");
        // eps 0.25 is the squared limit, so the distance limit is exactly 0.5.
        QTest::newRow("exactly at the limit is a new point") << 0.5 << false;
        QTest::newRow("just inside is welded") << std::nextafter(0.5, 0.0) << true;
        QTest::newRow("well inside") << 0.1 << true;
        QTest::newRow("same coordinates") << 0.0 << true;
        QTest::newRow("outside") << 0.75 << false;
    }

    void welding() {
        QFETCH(double, offset);
        QFETCH(bool, welded);
        Points store;
        Octree tree(0.25, 6);
        Point* first = add(store, 0.0, 0.0, 0.0);
        QCOMPARE(tree.insert(first), first);
        Point* second = add(store, 0.0, offset, 0.0);
        Point* kept = tree.insert(second);
        QCOMPARE(kept, welded ? first : second);
        QCOMPARE(tree.count(), welded ? 1 : 2);
        QCOMPARE(tree.find(0.0, offset, 0.0), welded ? first : second);
    }

    void find_misses() {
        Points store;
        Octree tree(1e-8, 6);
        tree.insert(add(store, 0, 0, 0));
        tree.insert(add(store, 1, 1, 1));
        QVERIFY(tree.find(1, 1, 1.001) == nullptr);
        QVERIFY(tree.find(-1, 0, 0) == nullptr);
        QVERIFY(Octree(1e-8, 6).find(0, 0, 0) == nullptr);
        tree.remove(store[1].get());
        QCOMPARE(tree.count(), 2);
    }

    void child_index_data() {
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<double>("z");
        QTest::addColumn<int>("precision");
        QTest::addColumn<int>("index");
        QTest::newRow("all lower") << 0.0 << 0.0 << 0.0 << 6 << 0;
        QTest::newRow("equal x and y, greater z") << 1.0 << 2.0 << 3.5 << 6 << 1;
        QTest::newRow("greater y") << 1.0 << 2.5 << 3.0 << 6 << 2;
        QTest::newRow("greater x") << 1.5 << 2.0 << 3.0 << 6 << 4;
        QTest::newRow("all greater") << 1.5 << 2.5 << 3.5 << 6 << 7;
        QTest::newRow("equal goes lower") << 1.0 << 2.0 << 3.0 << 6 << 0;
        QTest::newRow("rounded onto the plane") << 1.004 << 2.0 << 3.0 << 2 << 0;
        QTest::newRow("rounded over the plane") << 1.006 << 2.0 << 3.0 << 2 << 4;
    }

    void child_index() {
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(double, z);
        QFETCH(int, precision);
        QFETCH(int, index);
        Point root(1.0, 2.0, 3.0);
        Octree tree(1e-12, precision);
        tree.insert(&root);
        QCOMPARE(tree.calc_index(x, y, z), index);
        Point query(x, y, z);
        QCOMPARE(tree.calc_index(&query), index);
    }

    void empty_tree() {
        const Octree tree(1e-8, 6);
        QCOMPARE(tree.count(), 0);
        QVERIFY(tree.root_node() == nullptr);
        OctreeIterator it(&tree);
        QVERIFY(it.next() == nullptr);
        QCOMPARE(tree.min_x(), 1e8);
        QCOMPARE(tree.max_x(), -1e8);
        const boundingbox box = tree.calc_boundingbox();
        QVERIFY((box == boundingbox{0, 0, 0, 0, 0, 0}));
        QVERIFY(tree.GetListOfPoints().isEmpty());
        OctreeIterator none(nullptr);
        QVERIFY(none.next() == nullptr);
    }

    void iteration_order_and_current() {
        Points store;
        Octree tree(1e-8, 6);
        // Root, then child 7 with its own child 0, then child 0, then child 1 of the root.
        Point* root = add(store, 0, 0, 0);
        Point* c7 = add(store, 2, 2, 2);
        Point* c7c0 = add(store, 1, 1, 1);
        Point* c0 = add(store, -1, -1, -1);
        Point* c1 = add(store, 0, 0, 5);
        Point* c7c7 = add(store, 3, 3, 3);
        for (Point* p : {root, c7, c7c0, c0, c1, c7c7})
            tree.insert(p);
        const QList<Point*> expected{root, c0, c1, c7, c7c0, c7c7};

        OctreeIterator it(&tree);
        QVERIFY(it.current() == nullptr);
        QCOMPARE(it.next(), root);
        QVERIFY(it.current() == nullptr);
        for (int i = 1; i < expected.size(); ++i) {
            QCOMPARE(it.next(), expected[i]);
            QCOMPARE(it.current(), expected[i]);
        }
        QVERIFY(it.next() == nullptr);
        QVERIFY(it.current() == nullptr);
        QVERIFY(it.next() == nullptr);
        QCOMPARE(tree.GetListOfPoints(), expected);

        OctreeIterator copy(&tree);
        copy.next();
        copy.next();
        OctreeIterator resumed = copy;
        QCOMPARE(resumed.next(), c1);
        QCOMPARE(copy.next(), c1);
    }

    void remove_all_keeps_nodes() {
        Points store;
        Octree tree(1e-8, 6);
        for (double v : {0.0, 1.0, -1.0, 2.0})
            tree.insert(add(store, v, v, v));
        tree.remove_all();
        QCOMPARE(tree.count(), 0);
        QVERIFY(tree.root_node() == nullptr);
        Point* again = add(store, 5, 5, 5);
        QCOMPARE(tree.insert(again), again);
        QCOMPARE(tree.root_node(), again);
        QCOMPARE(tree.count(), 1);
        // The old child 0 is still there without a point, and a walk stops on it.
        OctreeIterator it(&tree);
        QCOMPARE(it.next(), again);
        QVERIFY(it.next() == nullptr);
        QCOMPARE(tree.GetListOfPoints(), QList<Point*>{again});
        // A later point lands in the kept node below.
        Point* low = add(store, -3, -3, -3);
        tree.insert(low);
        QCOMPARE(tree.GetListOfPoints(), (QList<Point*>{again, low}));
    }

    void extreme_values_match_a_scan_data() {
        QTest::addColumn<int>("seed");
        QTest::addColumn<int>("count");
        QTest::newRow("one point") << 1 << 1;
        QTest::newRow("large") << 4 << 5000;
    }

    void extreme_values_match_a_scan() {
        QFETCH(int, seed);
        QFETCH(int, count);
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
        Points store;
        Octree tree(1e-8, 6);
        double lo[3] = {1e300, 1e300, 1e300};
        double hi[3] = {-1e300, -1e300, -1e300};
        for (int i = 0; i < count; ++i) {
            Point* p = add(store, coordinate(random), coordinate(random), coordinate(random));
            tree.insert(p);
            for (int a = 0; a < 3; ++a) {
                lo[a] = std::min(lo[a], (*p)[a]);
                hi[a] = std::max(hi[a], (*p)[a]);
            }
        }
        QCOMPARE(tree.count(), count);
        QCOMPARE((QList<double>{tree.min_x(), tree.min_y(), tree.min_z(), tree.max_x(), tree.max_y(),
                                tree.max_z()}),
                 (QList<double>{lo[0], lo[1], lo[2], hi[0], hi[1], hi[2]}));
        QVERIFY((tree.calc_boundingbox() == boundingbox{lo[0], lo[1], hi[0], hi[1], lo[2], hi[2]}));
        QCOMPARE(tree.GetListOfPoints().size(), count);
        for (const auto& p : store)
            QCOMPARE(tree.find(p->x(), p->y(), p->z()), p.get());
    }

    void copies_share_points_and_own_nodes() {
        Points store;
        auto tree = std::make_unique<Octree>(0.01, 3);
        for (int i = 0; i < 20; ++i)
            tree->insert(add(store, i % 5, i / 5, (i * 7) % 3));
        const QList<Point*> order = tree->GetListOfPoints();
        Octree copy(*tree);
        Octree assigned(1.0, 1);
        assigned = *tree;
        tree.reset();
        QCOMPARE(copy.GetListOfPoints(), order);
        QCOMPARE(assigned.GetListOfPoints(), order);
        QCOMPARE(assigned.eps(), 0.01);
        QCOMPARE(assigned.precision(), 3);
    }

    /// Deep trees are where inserts take a faster road; they must give what the walk gives.
    void deep_trees_insert_like_the_walk_data() {
        QTest::addColumn<std::vector<point>>("points");
        QTest::addColumn<double>("eps");
        QTest::addColumn<int>("precision");
        const double nan = std::nan("");
        const double inf = HUGE_VAL;
        std::mt19937 random(7);
        std::uniform_real_distribution<double> jitter(-0.02, 0.02);

        std::vector<point> chain_with_repeats;
        for (int i = 0; i < 3000; ++i) {
            chain_with_repeats.push_back(point{i * 0.5, i * 0.5, i * 0.5});
            if (i > 400 && i % 7 == 0) // an exact repeat of a point deep in the chain
                chain_with_repeats.push_back(point{(i - 300) * 0.5, (i - 300) * 0.5, (i - 300) * 0.5});
        }
        QTest::newRow("chain with repeats of deep points") << chain_with_repeats << 1e-8 << 6;

        std::vector<point> near_misses;
        for (int i = 0; i < 3000; ++i) {
            const double v = i * 0.1;
            near_misses.push_back(point{v, v, v});
            if (i > 300) // close to earlier points: some within the limit, some just outside
                near_misses.push_back(point{v - 2.0 + jitter(random), v - 2.0 + jitter(random), v - 2.0});
        }
        QTest::newRow("near misses around the chain") << near_misses << 0.0004 << 6;

        std::vector<point> lexicographic;
        for (int x = 0; x < 30; ++x)
            for (int y = 0; y < 10; ++y)
                for (int z = 0; z < 10; ++z)
                    lexicographic.push_back(point{x * 1.0, y * 1.0, z * 1.0});
        QTest::newRow("grid sorted by x, y, z") << lexicographic << 1e-8 << 6;

        std::vector<point> rounding;
        for (int i = 0; i < 2000; ++i) {
            const double v = i * 0.005 + (i % 3 == 0 ? 1e-9 : 0.0);
            rounding.push_back(point{v, 0.3 * v, v});
            rounding.push_back(point{v + 0.004, 0.3 * v - 0.004, v}); // decided by rounding
        }
        QTest::newRow("split decisions made by rounding") << rounding << 1e-10 << 2;

        std::vector<point> odd;
        for (int i = 0; i < 2000; ++i) {
            odd.push_back(point{i * 1.0, i * 1.0, i * 1.0});
            if (i % 97 == 0)
                odd.push_back(point{nan, i * 1.0, 0.0});
            if (i % 89 == 0)
                odd.push_back(point{inf, -inf, i * 1.0});
            if (i > 1500 && i % 101 == 0)
                odd.push_back(point{1e12 + i, 0.0, 0.0}); // too far out for the cells
        }
        QTest::newRow("NaN, infinite and far points") << odd << 1e-8 << 6;

        std::vector<point> no_welding;
        for (int i = 0; i < 2000; ++i)
            no_welding.push_back(point{i * 1.0, i % 2 * 1.0, 0.0});
        for (int i = 0; i < 500; ++i)
            no_welding.push_back(point{i * 4.0, 0.0, 0.0});
        QTest::newRow("no welding limit") << no_welding << 0.0 << 6;
    }

    void deep_trees_insert_like_the_walk() {
        QFETCH(std::vector<point>, points);
        QFETCH(double, eps);
        QFETCH(int, precision);
        Points store;
        Octree tree(eps, precision);
        ReferenceNode reference;
        for (std::size_t i = 0; i < points.size(); ++i) {
            Point* p = add(store, points[i].x, points[i].y, points[i].z);
            Point* expected = reference_insert(reference, p, eps, precision);
            QVERIFY2(tree.insert(p) == expected, qPrintable(QString("insert %1").arg(i)));
        }
        QCOMPARE(tree.GetListOfPoints(), reference_order(reference));

        // After remove_all the nodes are reused and the fast road must wait until all are filled.
        tree.remove_all();
        ReferenceNode again;
        for (std::size_t i = 0; i < points.size(); ++i) {
            Point* p = store[i].get();
            Point* expected = reference_insert(again, p, eps, precision);
            QVERIFY2(tree.insert(p) == expected, qPrintable(QString("insert %1 after remove_all").arg(i)));
        }
    }

    /// Sorted input turns the tree into a chain as deep as the point count. Everything runs on a
    /// thread with a small stack, so that any recursion over the depth would overflow it.
    void sorted_input_runs_without_recursion_data() {
        QTest::addColumn<int>("direction");
        QTest::newRow("ascending, a chain of child 7") << 1;
        QTest::newRow("descending, a chain of child 0") << -1;
    }

    void sorted_input_runs_without_recursion() {
        QFETCH(int, direction);
        const int n = 200000;
        bool ok = false;
        QString failure;
        std::unique_ptr<QThread> thread(QThread::create([&] {
            Points store;
            store.reserve(n);
            {
                Octree tree(1e-8, 6);
                for (int i = 0; i < n; ++i) {
                    const double v = direction * i * 0.01;
                    tree.insert(add(store, v, v, v));
                }
                Point probe(store[n / 2]->x(), store[n / 2]->y(), store[n / 2]->z());
                if (tree.insert(&probe) != store[n / 2].get())
                    failure = "the middle point was not welded";
                if (tree.count() != n)
                    failure = "count";
                const double last = direction * (n - 1) * 0.01;
                if (tree.max_x() != std::max(0.0, last) || tree.min_z() != std::min(0.0, last))
                    failure = "extreme values";
                OctreeIterator it(&tree);
                for (int i = 0; i < n && failure.isEmpty(); ++i)
                    if (it.next() != store[i].get())
                        failure = QString("iteration at %1").arg(i);
                if (failure.isEmpty() && it.next() != nullptr)
                    failure = "iteration end";
                Octree copy(tree);
                if (copy.count() != n)
                    failure = "copy";
                tree.remove_all();
                if (tree.count() != 0)
                    failure = "remove_all";
            }
            ok = failure.isEmpty();
        }));
        thread->setStackSize(128 * 1024);
        thread->start();
        QVERIFY(thread->wait(120000));
        QVERIFY2(ok, qPrintable(failure));
    }
};

QTEST_GUILESS_MAIN(tst_octree)
#include "tst_octree.moc"
