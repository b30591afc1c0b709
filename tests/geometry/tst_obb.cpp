#include "basic/IProgress.h"
#include "basic/numeric.h"
#include "geometry/EvolutionStrategy.h"
#include "geometry/OBB.h"
#include "geometry/OOBBCalculator.h"
#include "geometry/Octree.h"
#include "geometry/OctreeOOBBCalculator.h"
#include "geometry/OctreeOOBBCalculatorAlpha.h"
#include "geometry/Point.h"
#include "support/OutputCapture.h"

#include <QtTest>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <vector>

using namespace geometry3D;
using vmp::Vector;

namespace {

/// The eight corners of a box of edges a x b x c at the origin, turned about x, y and z in turn.
class TurnedBox {
public:
    TurnedBox(double a, double b, double c, double about_x, double about_y, double about_z) : tree(1e-8, 6) {
        for (int i = 0; i < 8; ++i) {
            double p[3] = {i & 1 ? a : 0.0, i & 2 ? b : 0.0, i & 4 ? c : 0.0};
            turn(p, 1, 2, about_x);
            turn(p, 2, 0, about_y);
            turn(p, 0, 1, about_z);
            points.push_back(std::make_unique<Point>(p[0] + 10.0, p[1] - 3.0, p[2] + 1.0));
            tree.insert(points.back().get());
        }
    }

    /// The volume of the axis-parallel box around the points.
    double axis_volume() const { return volume(tree.calc_boundingbox()); }

    std::vector<std::unique_ptr<Point>> points;
    Octree tree;

private:
    static void turn(double* p, int u, int v, double angle) {
        const double pu = p[u] * std::cos(angle) - p[v] * std::sin(angle);
        const double pv = p[u] * std::sin(angle) + p[v] * std::cos(angle);
        p[u] = pu;
        p[v] = pv;
    }
};

/// Records what an algorithm reports.
class RecordingProgress : public basic::IProgress {
public:
    void progress(double fraction) override { fractions.append(fraction); }
    void message(const QString& text) override { messages.append(text); }
    QList<double> fractions;
    QStringList messages;
};

/// f(x) = -(x0 - 0.3)^2 - (x1 + 0.2)^2 inside [-1, 1]: a single peak the strategy must climb.
class Paraboloid : public optimization::IOptimizable {
public:
    optimization::Fitness CalcFitness(double* x) override {
        ++evaluations;
        return optimization::Fitness{-(x[0] - 0.3) * (x[0] - 0.3) - (x[1] + 0.2) * (x[1] + 0.2), 0};
    }
    long CountParameters() const override { return 2; }
    double GetLowerLimit() const override { return -1.0; }
    double GetUpperLimit() const override { return 1.0; }
    int evaluations = 0;
};

/// A calculator that, at its first evaluation inside a search (while it holds the tree), also
/// answers a list of chosen candidates.
template <typename Calculator> class Probing : public Calculator {
public:
    template <typename... Angles>
    explicit Probing(std::vector<std::vector<double>> candidates, Angles... angles)
        : Calculator(angles...), _candidates(std::move(candidates)) {}

    optimization::Fitness CalcFitness(double* x) override {
        if (answers.isEmpty())
            for (auto& candidate : _candidates)
                answers.append(Calculator::CalcFitness(candidate.data()));
        return Calculator::CalcFitness(x);
    }

    QList<optimization::Fitness> answers;

private:
    std::vector<std::vector<double>> _candidates;
};

void seed(unsigned int value) {
    basic::random01(); // the generator seeds itself from the clock on first use
    std::srand(value);
}

bool close(const Vector& a, const Vector& b, double tolerance) {
    return (a - b).quantity() < tolerance;
}

} // namespace

class tst_obb : public QObject {
    Q_OBJECT

private slots:
    void box_at_the_turning_angle_is_tight() {
        const TurnedBox box(4, 2, 1, 0, 0, M_PI / 6);
        QVERIFY(std::fabs(box.axis_volume() -
                          (4 * std::cos(M_PI / 6) + 2 * 0.5) * (2 + 2 * std::cos(M_PI / 6))) < 1e-9);
        const OBB obb = box.tree.CalcOBB(0, 0, M_PI / 6);
        QVERIFY(std::fabs(obb.CalcVolume() - 8.0) < 1e-9);
        // The corner and edges lie on the points: the far corner is one of them.
        const Vector far = obb.origin() + obb.axis(0) + obb.axis(1) + obb.axis(2);
        bool found = false;
        for (const auto& p : box.points)
            found = found || close(p->to_Vector(), far, 1e-9);
        QVERIFY(found);
    }

    void volume_sign() {
        OBB obb;
        QCOMPARE(obb.CalcVolume(), 0.0);
        obb.axis(0, 1, 0, 0);
        obb.axis(1, 0, 0, 1);
        obb.axis(2, 0, -3, 0);
        QCOMPARE(obb.CalcVolume(), 3.0);
        obb.axis(2, 0, 1, 0);
        QCOMPARE(obb.CalcVolume(), -1.0); // left-handed
    }

    void fitness_limits_data() {
        QTest::addColumn<double>("angle");
        QTest::addColumn<bool>("valid");
        QTest::newRow("lower limit") << -0.1 << true;
        QTest::newRow("just below") << std::nextafter(-0.1, -1.0) << false;
        QTest::newRow("upper limit") << 1.6707963267948966 << true;
        QTest::newRow("just above") << std::nextafter(1.6707963267948966, 2.0) << false;
        QTest::newRow("inside") << 0.5 << true;
    }

    void fitness_limits() {
        QFETCH(double, angle);
        QFETCH(bool, valid);
        const TurnedBox box(4, 2, 1, 0, 0, 0.2);
        const double expected = valid ? -box.tree.CalcOBB(0.25, angle, 0.25).CalcVolume() : 1.23456;

        Probing<OctreeOOBBCalculator> all_free({{0.25, angle, 0.25}});
        seed(1);
        {
            OutputCapture console(stdout);
            all_free.CalcOptOBB(&box.tree);
        }
        QCOMPARE(all_free.answers.size(), 1);
        QCOMPARE(all_free.answers[0].value, expected);
        QCOMPARE(all_free.answers[0].invalid != 0, !valid);
        double x[3] = {0.25, angle, 0.25};
        QCOMPARE(all_free.CalcFitness(x).value, 1.23456); // no tree outside a search

        Probing<OctreeOOBBCalculatorAlpha> only_beta({{angle, 0, 0}}, 0.25, -1, 0.25);
        seed(1);
        {
            OutputCapture console(stdout);
            only_beta.CalcOptOBB(&box.tree);
        }
        QCOMPARE(only_beta.answers[0].value, expected);
        QCOMPARE(only_beta.answers[0].invalid != 0, !valid);
    }

    void fixed_angles() {
        QCOMPARE(OctreeOOBBCalculatorAlpha(0, 0, -1).CountParameters(), 1L);
        QCOMPARE(OctreeOOBBCalculatorAlpha(-1, 0.5, -2).CountParameters(), 2L);
        const TurnedBox box(4, 2, 1, 0, 0, 0.2);
        // Two free angles: the first entry in range and the second out of range keeps the value
        // of the first, with invalid cleared.
        Probing<OctreeOOBBCalculatorAlpha> two({{0.3, 5.0, 0}, {5.0, 0.3, 0}}, -1, 0.1, -1);
        seed(2);
        {
            OutputCapture console(stdout);
            two.CalcOptOBB(&box.tree);
        }
        QCOMPARE(two.answers[0].value, -box.tree.CalcOBB(0.3, 0.1, 5.0).CalcVolume());
        QCOMPARE(two.answers[0].invalid, 0);
        QCOMPARE(two.answers[1].value, 1.23456);
        QVERIFY(two.answers[1].invalid != 0);
        // No free angle: nothing to search, every candidate refused, the angles kept.
        Probing<OctreeOOBBCalculatorAlpha> none({{0, 0, 0}}, 0.1, 0.2, 0.3);
        QCOMPARE(none.CountParameters(), 0L);
        OBB obb;
        {
            OutputCapture console(stdout);
            obb = none.CalcOptOBB(&box.tree);
        }
        QCOMPARE(none.answers[0].value, 1.23456);
        QVERIFY(none.answers[0].invalid != 0);
        QCOMPARE(obb.beta(), 0.2);
        QCOMPARE(obb.CalcVolume(), box.tree.CalcOBB(0.1, 0.2, 0.3).CalcVolume());
    }

    void strategy_climbs_a_peak_data() {
        QTest::addColumn<int>("recombination");
        QTest::addColumn<int>("init_mode");
        QTest::newRow("intermediate, uniform start") << 1 << 0;
        QTest::newRow("discrete, uniform start") << 0 << 0;
        QTest::newRow("intermediate, normal start") << 1 << 1;
    }

    void strategy_climbs_a_peak() {
        QFETCH(int, recombination);
        QFETCH(int, init_mode);
        seed(11);
        Paraboloid problem;
        optimization::EvolutionSettings settings;
        settings.recombine_x = recombination;
        settings.recombine_sigma = recombination;
        settings.init_mode = init_mode;
        settings.precision = 1e-9;
        settings.generations = 60;
        settings.population = 30;
        settings.offspring = 20;
        RecordingProgress progress, log;
        std::unique_ptr<double[]> best(
            optimization::EvolutionStrategy::optimise(&problem, settings, &progress, &log));
        QVERIFY2(std::fabs(best[0] - 0.3) < 0.01 && std::fabs(best[1] + 0.2) < 0.01,
                 qPrintable(QString("%1 %2").arg(best[0]).arg(best[1])));
        QVERIFY(!log.messages.isEmpty());
        QVERIFY(!progress.fractions.isEmpty());
        QCOMPARE(progress.fractions.first(), 0.0);
    }

    void strategy_stops_when_the_mean_settles() {
        seed(3);
        Paraboloid problem;
        optimization::EvolutionSettings settings;
        settings.precision = 1.0; // the mean moves by less than this at once
        RecordingProgress progress;
        std::unique_ptr<double[]> best(
            optimization::EvolutionStrategy::optimise(&problem, settings, &progress, nullptr));
        // Generation 0 compares with the start value 1e15; generation 1 settles and repeats its fraction.
        QCOMPARE(progress.fractions, (QList<double>{0.0, 0.01, 0.01}));
    }

    void grid_search_stops_below_eps() {
        const TurnedBox box(4, 2, 1, 0, 0, 0.3);
        RecordingProgress progress;
        OOBBCalculator calculator(&progress);
        const OBB obb =
            calculator.GetOptimum(&box.tree, boundingbox{0.1, 0.2, 0.1001, 0.2001, 0.3, 0.3001}, 1e-6, 6);
        QCOMPARE(progress.messages, (QStringList{"<GetOptimum>", "</GetOptimum>"}));
        QVERIFY(std::fabs(obb.gamma() - 0.30005) < 1e-12);
        QVERIFY(std::fabs(obb.alpha() - 0.10005) < 1e-12);
        QVERIFY(std::fabs(obb.CalcVolume() - box.tree.CalcOBB(0.10005, 0.20005, 0.30005).CalcVolume()) <
                1e-12);
    }

    void grid_search_reports_each_level() {
        const TurnedBox box(4, 2, 1, 0, 0, 0.3);
        RecordingProgress progress;
        OOBBCalculator calculator(&progress);
        // One level of 2 x 2 x 2 cells of volume 1e-3 each, then the cell is below eps.
        const OBB obb = calculator.GetOptimum(&box.tree, boundingbox{0, 0, 0.2, 0.2, 0.2, 0.4}, 2e-3, 2);
        double best = 1e15;
        boundingbox best_cell;
        for (int i = 0; i < 2; ++i)
            for (int j = 0; j < 2; ++j)
                for (int k = 0; k < 2; ++k) {
                    const boundingbox cell{i * 0.1,       j * 0.1,       (i + 1) * 0.1,
                                           (j + 1) * 0.1, 0.2 + k * 0.1, 0.3 + k * 0.1};
                    const double integral = calculator.CalcIntegral(cell, &box.tree);
                    if (integral < best) {
                        best = integral;
                        best_cell = cell;
                    }
                }
        const point c = center(best_cell);
        QCOMPARE(obb.alpha(), c.x);
        QCOMPARE(obb.gamma(), c.z);
    }

    void integral_weighs_by_cell_volume() {
        const TurnedBox box(4, 2, 1, 0, 0, 0);
        OOBBCalculator calculator(nullptr);
        // Any angles of a 4 x 2 x 1 box give at least its volume 8.
        const boundingbox cell{0, 0, 0.1, 0.1, 0, 0.1};
        const double integral = calculator.CalcIntegral(cell, &box.tree);
        QVERIFY(integral >= 8 * 8 * 1e-3 - 1e-12);
        // The nodes sit at 0.1 * (1 -+ 1/sqrt(3)) / 2 on each axis.
        const double near = 0.05 * (1 - 1 / std::sqrt(3.0)), far = 0.05 * (1 + 1 / std::sqrt(3.0));
        double sum = 0.0;
        for (double a : {near, far})
            for (double b : {near, far})
                for (double c : {near, far})
                    sum += box.tree.CalcOBB(a, b, c).CalcVolume();
        QVERIFY(std::fabs(integral - sum * 1e-3) < 1e-9);
    }

    /// A 4 x 2 x 1 box turned by 30 degrees about z has an axis-parallel box of 16.7 and a best
    /// box of 8. Near the best angle the volume grows by about 2 * (4 + 2) * 1 = 12 per radian of
    /// error, so 1 % of the volume (0.08) stands for an angle within 0.4 degrees. The grid search
    /// ends on cells of 1e-4 rad and reaches 8.002; the strategy, over ten seeds, stays within
    /// 0.6 % for a turn about z alone. With a second turn about x the strategy settles in local
    /// minima up to 14 % above the best (the grid search still finds it), so that case only
    /// checks a clear gain over the axis-parallel box.
    void optimisers_find_the_turned_box_data() {
        QTest::addColumn<QString>("method");
        QTest::addColumn<double>("about_x");
        QTest::addColumn<double>("about_z");
        QTest::addColumn<double>("tolerance");
        QTest::newRow("grid search, about z") << "grid" << 0.0 << M_PI / 6 << 0.01;
        QTest::newRow("grid search, about x and z") << "grid" << 0.4 << M_PI / 6 << 0.01;
        QTest::newRow("strategy, about z") << "strategy" << 0.0 << M_PI / 6 << 0.01;
        QTest::newRow("strategy, about x and z") << "strategy" << 0.4 << M_PI / 6 << 0.15;
        QTest::newRow("strategy with gamma free") << "gamma" << 0.0 << M_PI / 6 << 0.01;
    }

    void optimisers_find_the_turned_box() {
        QFETCH(QString, method);
        QFETCH(double, about_x);
        QFETCH(double, about_z);
        QFETCH(double, tolerance);
        const TurnedBox box(4, 2, 1, about_x, 0, about_z);
        seed(5);
        OBB obb;
        OutputCapture console(stdout);
        if (method == "grid") {
            obb = box.tree.CalcOptOBB();
        } else if (method == "strategy") {
            obb = OctreeOOBBCalculator().CalcOptOBB(&box.tree);
        } else {
            OctreeOOBBCalculatorAlpha calculator(0, 0, -1);
            obb = calculator.CalcOptOBB(&box.tree);
            QCOMPARE(obb.alpha(), 0.0);
            QCOMPARE(obb.beta(), 0.0);
            QVERIFY2(std::fabs(obb.gamma() - M_PI / 6) < 0.007, qPrintable(QString::number(obb.gamma())));
        }
        const double v = std::fabs(obb.CalcVolume());
        QVERIFY2(v <= box.axis_volume() + 1e-9, qPrintable(QString::number(v)));
        QVERIFY2(v < 8.0 * (1 + tolerance) && v > 8.0 - 1e-9, qPrintable(QString::number(v)));
        // Every point lies in the box found.
        for (const auto& p : box.points) {
            const Vector d = p->to_Vector() - obb.origin();
            for (int a = 0; a < 3; ++a) {
                const Vector& e = obb.axis(a);
                const double t = (d * e) / (e * e);
                QVERIFY2(t > -1e-9 && t < 1 + 1e-9, qPrintable(QString::number(t)));
            }
        }
    }

    void same_seed_same_box() {
        const TurnedBox box(4, 2, 1, 0.2, 0.1, 0.7);
        OutputCapture console(stdout);
        seed(42);
        const OBB first = OctreeOOBBCalculator().CalcOptOBB(&box.tree);
        seed(42);
        const OBB second = OctreeOOBBCalculator().CalcOptOBB(&box.tree);
        console.text();
        QCOMPARE(first.origin(), second.origin());
        for (int a = 0; a < 3; ++a)
            QCOMPARE(first.axis(a), second.axis(a));
    }
};

QTEST_GUILESS_MAIN(tst_obb)
#include "tst_obb.moc"
