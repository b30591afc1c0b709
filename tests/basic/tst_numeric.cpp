#include "basic/numeric.h"

#include <QString>
#include <QtTest>

#include <cmath>
#include <limits>

using namespace basic;

class tst_numeric : public QObject {
    Q_OBJECT
private slots:
    void sign() {
        QCOMPARE(sgn(3.5), 1);
        QCOMPARE(sgn(-1e-300), -1);
        QCOMPARE(sgn(0.0), 0);
        QCOMPARE(sgn(-0.0), 0);
        QCOMPARE(sgn(std::numeric_limits<double>::quiet_NaN()), 0);
    }

    void round_to_digits_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("digits");
        QTest::addColumn<double>("expected");
        QTest::newRow("half away from zero, negative") << -2.5 << 0 << -3.0;
        QTest::newRow("half away from zero, positive") << 2.5 << 0 << 3.0;
        QTest::newRow("three decimals") << 1.23456 << 3 << 1.235;
        QTest::newRow("tens") << 1234.0 << -1 << 1230.0;
        QTest::newRow("hundreds, half") << -250.0 << -2 << -300.0;
        QTest::newRow("many digits by squaring") << 0.123456789012 << 9 << 0.123456789;
    }

    void round_to_digits() {
        QFETCH(double, value);
        QFETCH(int, digits);
        QFETCH(double, expected);
        QCOMPARE(basic::round_to_digits(value, digits), expected);
    }

    void nearly_equal_is_strict() {
        QVERIFY(nearly_equal(1.0, 1.0 + 1e-10, 1e-9));
        QVERIFY(!nearly_equal(1.0, 1.5, 0.5));
        QVERIFY(nearly_equal(1.0, 1.25, 0.5));
    }

    void degrees() {
        QCOMPARE(to_degrees(M_PI), 180.0);
        QCOMPARE(to_radians(90.0), M_PI / 2);
    }

    void random01_stays_in_range() {
        double lowest = 1, highest = 0;
        for (int i = 0; i < 100000; ++i) {
            const double r = random01();
            QVERIFY(r >= 0.0 && r < 1.0);
            QCOMPARE(std::fmod(r * 32768.0, 1.0), 0.0);
            lowest = std::min(lowest, r);
            highest = std::max(highest, r);
        }
        QVERIFY(lowest < 0.01);
        QVERIFY(highest > 0.99);
    }

    void hash_text_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<uint>("expected");
        QTest::newRow("empty") << QString() << 0u;
        QTest::newRow("one unit") << QString("A") << 65u;
        // ((65 << 16) + 66) mod 1339484197
        QTest::newRow("two units") << QString("AB") << 4259906u;
        // (4259906 << 16) wraps at 32 bits: 0x00410042 << 16 = 0x00420000, + 67, mod 1339484197
        QTest::newRow("wraps at 32 bits") << QString("ABC") << uint((0x00420000u + 67u) % 1339484197u);
        QTest::newRow("non-ASCII unit") << QString::fromUtf8("ä") << 0xE4u;
    }

    void hash_text() {
        QFETCH(QString, text);
        QFETCH(uint, expected);
        QCOMPARE(basic::hash_text(text), expected);
    }
};

QTEST_GUILESS_MAIN(tst_numeric)
#include "tst_numeric.moc"
