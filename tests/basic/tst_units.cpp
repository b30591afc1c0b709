#include "basic/unit.h"

#include <QtTest>

#include <cmath>

using namespace basic;

/// The unit table is part of the exchange format: its texts are what files hold, its factors
/// scale every coordinate read.
class tst_units : public QObject {
    Q_OBJECT
private slots:
    void texts_read_back() {
        QStringList texts;
        for (int i = 0; i < unit_count; ++i) {
            texts << unit_as_string(static_cast<unit>(i));
            QCOMPARE(string_to_unit(texts.last()), static_cast<unit>(i));
        }
        QCOMPARE(texts,
                 QStringList({"unknown", "mm",  "cm",  "m",     "km",    "inch",  "foot",  "yard",  "mile",
                              "mm2",     "cm2", "m2",  "km2",   "inch2", "foot2", "yard2", "mile2", "mm3",
                              "cm3",     "m3",  "km3", "inch3", "foot3", "yard3", "mile3", "deg",   "gon",
                              "pcs",     "min", "h",   "d",     "kg",    "t",     "EUR",   "USD",   "CNY"}));
    }

    void factors() {
        // Lengths as the format fixes them (a foot is 0.305 m); areas and volumes are their
        // squares and cubes; every other unit scales by 1.
        const double lengths[] = {0.001, 0.01, 1, 1000, 0.0254, 0.305, 0.914, 1609};
        for (int i = 0; i < 8; ++i) {
            const double l = lengths[i];
            QCOMPARE(unit_scale(static_cast<unit>(unit_mm + i)), l);
            QVERIFY(std::fabs(unit_scale(static_cast<unit>(unit_mm2 + i)) / (l * l) - 1) < 1e-12);
            QVERIFY(std::fabs(unit_scale(static_cast<unit>(unit_mm3 + i)) / (l * l * l) - 1) < 1e-12);
        }
        for (int i = unit_mile3 + 1; i < unit_count; ++i)
            QCOMPARE(unit_scale(static_cast<unit>(i)), 1.0);
        QCOMPARE(unit_scale(unit_unknown), 1.0);
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
