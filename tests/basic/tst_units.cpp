#include "basic/unit.h"

#include <QtTest>

#include <cmath>

using namespace basic;

/// The unit table is part of the exchange format: every value, text and factor is checked.
class tst_units : public QObject {
    Q_OBJECT
private slots:
    void table_data() {
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("factor");
        const struct {
            const char* text;
            double factor;
        } rows[] = {{"unknown", 1},
                    {"mm", 0.001},
                    {"cm", 0.01},
                    {"m", 1},
                    {"km", 1000},
                    {"inch", 0.0254},
                    {"foot", 0.305},
                    {"yard", 0.914},
                    {"mile", 1609},
                    {"mm2", 1e-6},
                    {"cm2", 0.0001},
                    {"m2", 1},
                    {"km2", 1e6},
                    {"inch2", 0.00064516},
                    {"foot2", 0.093025},
                    {"yard2", 0.835396},
                    {"mile2", 2588881},
                    {"mm3", 1e-9},
                    {"cm3", 1e-6},
                    {"m3", 1},
                    {"km3", 1e9},
                    {"inch3", 1.6387064e-5},
                    {"foot3", 0.028372625},
                    {"yard3", 0.763551944},
                    {"mile3", 4165509529.0},
                    {"deg", 1},
                    {"gon", 1},
                    {"pcs", 1},
                    {"min", 1},
                    {"h", 1},
                    {"d", 1},
                    {"kg", 1},
                    {"t", 1},
                    {"EUR", 1},
                    {"USD", 1},
                    {"CNY", 1}};
        QCOMPARE(int(sizeof(rows) / sizeof(rows[0])), unit_count);
        for (int i = 0; i < unit_count; ++i)
            QTest::newRow(rows[i].text) << i << QString(rows[i].text) << rows[i].factor;
    }

    void table() {
        QFETCH(int, value);
        QFETCH(QString, text);
        QFETCH(double, factor);
        const unit u = static_cast<unit>(value);
        QCOMPARE(unit_as_string(u), text);
        QCOMPARE(string_to_unit(text), u);
        QCOMPARE(unit_scale(u), factor);
    }

    void areas_and_volumes_follow_the_lengths() {
        QCOMPARE(unit_scale(unit_foot2), 0.305 * 0.305);
        QVERIFY(std::fabs(unit_scale(unit_yard3) - 0.914 * 0.914 * 0.914) < 1e-12);
        QVERIFY(std::fabs(unit_scale(unit_inch3) - 0.0254 * 0.0254 * 0.0254) < 1e-18);
    }

    void outside_the_table() {
        QCOMPARE(string_to_unit("M"), unit_unknown);
        QCOMPARE(string_to_unit(""), unit_unknown);
        QCOMPARE(string_to_unit(" m"), unit_unknown);
        QCOMPARE(unit_as_string(static_cast<unit>(36)), QString("unknown"));
        QCOMPARE(unit_as_string(static_cast<unit>(-1)), QString("unknown"));
        QCOMPARE(unit_scale(static_cast<unit>(36)), 1.0);
        QCOMPARE(unit_scale(static_cast<unit>(-5)), 1.0);
    }
};

QTEST_GUILESS_MAIN(tst_units)
#include "tst_units.moc"
