#include "tavxmln/Base64.h"
#include "tavxmln/XMLConvert.h"

#include <QtTest>

#include <charconv>
#include <cmath>

#include <cfloat>
#include <clocale>
#include <cstring>
#include <random>

using namespace tavxmln;

class tst_XMLConvert : public QObject {
    Q_OBJECT

private slots:
    void decimalTextsReadCorrectlyRounded() {
        // Plain decimals as a document holds them (site coordinates, short fractions) against the
        // C library's reader in the C locale, which rounds correctly.
        std::mt19937_64 random(7);
        for (int i = 0; i < 200000; ++i) {
            const int digits = 1 + int(random() % 19);
            std::string text;
            if (random() % 2)
                text += '-';
            for (int d = 0; d < digits; ++d)
                text += char('0' + random() % 10);
            const int point = int(random() % std::uint64_t(digits + 1));
            if (point < digits)
                text.insert(text.size() - std::size_t(point), 1, '.');
            if (text.back() == '.' || text.front() == '.' || (text.size() > 1 && text.rfind("-.", 0) == 0))
                text.insert(text.find_first_of("0123456789."), "0");
            const double expected = std::strtod(text.c_str(), nullptr);
            double read = 1.0;
            const std::wstring wide(text.begin(), text.end());
            QVERIFY2(XMLConvertText2Double(wide.c_str(), read), text.c_str());
            QVERIFY2(std::memcmp(&read, &expected, sizeof read) == 0, text.c_str());
        }
    }

    /// Short decimals take a quicker way than other numbers; either way the text must be the one of
    /// the general shortest form, with the same choice between plain and exponent notation, and it
    /// must read back to the same bits.
    void doubleTextIsTheShortestForm_data() {
        QTest::addColumn<int>("family");
        QTest::newRow("zeros, subnormals and the limits") << -1;
        QTest::newRow("up to nine decimals") << 0;
        QTest::newRow("millimetres through metres") << 1;
        QTest::newRow("round numbers, tiny to huge") << 2;
        QTest::newRow("any bits") << 3;
        QTest::newRow("near the limits of the quick way") << 4;
    }

    void doubleTextIsTheShortestForm() {
        QFETCH(int, family);
        const double limits[] = {0.0, -0.0, 1.0 / 3.0, 4.9e-324, DBL_MAX, DBL_MIN};
        std::mt19937_64 random(std::uint64_t(family) + 11);
        for (int i = 0; i < (family < 0 ? 6 : 300000); ++i) {
            const std::uint64_t bits = random();
            const double sign = bits & 1 ? -1.0 : 1.0;
            double value = 0.0;
            switch (family) {
            case -1:
                value = limits[i];
                break;
            case 0:
                value = sign * double(bits >> 24) / std::pow(10.0, double(random() % 12));
                break;
            case 1:
                value = sign * double((bits >> 8) % 100000000) * 0.1 * 0.001 / 0.001;
                break;
            case 2:
                value =
                    sign * double(1 + (bits >> 8) % 999) * std::pow(10.0, double(int(random() % 60) - 30));
                break;
            case 3:
                std::memcpy(&value, &bits, sizeof value);
                break;
            default:
                value = sign * std::ldexp(double((bits >> 11) | 1), int(random() % 24) - 40);
                break;
            }
            if (!std::isfinite(value))
                continue;
            char expected[40];
            const std::string expectedText(expected,
                                           std::to_chars(expected, expected + sizeof expected, value).ptr);
            const std::wstring wide = XMLConvertDouble2Text(value);
            const std::string writtenText(wide.begin(), wide.end());
            QVERIFY2(writtenText == expectedText, (expectedText + " gave " + writtenText).c_str());
            double back = 1.0;
            QVERIFY2(XMLConvertText2Double(wide.c_str(), back) &&
                         std::memcmp(&value, &back, sizeof value) == 0,
                     writtenText.c_str());
        }
    }

    void doubleTexts_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<double>("value");
        QTest::newRow("shortest form") << QString::fromWCharArray(XMLConvertDouble2Text(0.1)) << true << 0.1;
        QTest::newRow("integral") << QString::fromWCharArray(XMLConvertDouble2Text(14.75)) << true << 14.75;
        QTest::newRow("exponent") << "1.5e3" << true << 1500.0;
        QTest::newRow("plus sign and blanks") << " +2.5\n" << true << 2.5;
        QTest::newRow("comma") << "2,5" << false << 0.0;
        QTest::newRow("word") << "bad" << false << 0.0;
        QTest::newRow("empty") << "" << false << 0.0;
        QTest::newRow("two numbers") << "1 2" << false << 0.0;
        QTest::newRow("non-ascii digit") << QString::fromUtf8("１") << false << 0.0;
    }

    void doubleTexts() {
        QFETCH(QString, text);
        QFETCH(bool, ok);
        QFETCH(double, value);
        double read = 0.0;
        QCOMPARE(XMLConvertText2Double(text.toStdWString().c_str(), read), ok);
        if (ok)
            QCOMPARE(read, value);
    }

    void independentOfTheLocale() {
        const char* names[] = {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8"};
        const char* set = nullptr;
        for (const char* name : names)
            if ((set = std::setlocale(LC_ALL, name)))
                break;
        if (!set)
            QSKIP("no locale with a decimal comma is installed");
        const QString written = QString::fromWCharArray(XMLConvertDouble2Text(1234.5));
        double read = 0.0;
        const bool ok = XMLConvertText2Double(L"1234.5", read);
        std::setlocale(LC_ALL, "C");
        QCOMPARE(written, QString("1234.5"));
        QVERIFY(ok);
        QCOMPARE(read, 1234.5);
    }

    void longs_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<int>("value");
        QTest::newRow("zero") << "0" << true << 0;
        QTest::newRow("negative") << "-17" << true << -17;
        QTest::newRow("largest") << "2147483647" << true << 2147483647;
        QTest::newRow("smallest") << "-2147483648" << true << int(-2147483648LL);
        QTest::newRow("too large") << "2147483648" << false << 0;
        QTest::newRow("fraction") << "1.5" << false << 0;
        QTest::newRow("hex") << "0x10" << false << 0;
    }

    void longs() {
        QFETCH(QString, text);
        QFETCH(bool, ok);
        QFETCH(int, value);
        long read = 0;
        QCOMPARE(XMLConvertText2Long(text.toStdWString().c_str(), read), ok);
        if (ok) {
            QCOMPARE(int(read), value);
            QCOMPARE(QString::fromWCharArray(XMLConvertLong2Text(read)), text);
        }
    }

    void bools_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<bool>("value");
        QTest::newRow("true") << "true" << true << true;
        QTest::newRow("false") << "false" << true << false;
        QTest::newRow("1") << "1" << true << true;
        QTest::newRow("0") << "0" << true << false;
        QTest::newRow("True") << "True" << false << false;
        QTest::newRow("yes") << "yes" << false << false;
    }

    void bools() {
        QFETCH(QString, text);
        QFETCH(bool, ok);
        QFETCH(bool, value);
        bool read = !value;
        QCOMPARE(XMLConvertText2Bool(text.toStdWString().c_str(), read), ok);
        if (ok) {
            QCOMPARE(read, value);
            QCOMPARE(QString::fromWCharArray(XMLConvertBool2Text(value, false)),
                     QString(value ? "true" : "false"));
        }
    }

    void dateTimes_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QList<int>>("fields");
        QTest::addColumn<QString>("written");
        QTest::newRow("written form")
            << "2024-06-01T12:00:05" << QList<int>{2024, 6, 1, 12, 0, 5} << "2024-06-01T12:00:05";
        QTest::newRow("blank separator")
            << "2024-06-01 08:30:00" << QList<int>{2024, 6, 1, 8, 30, 0} << "2024-06-01T08:30:00";
        // Padded to fixed widths, so that the texts sort in time order.
        QTest::newRow("short year") << "0999-12-31T23:59:59" << QList<int>{999, 12, 31, 23, 59, 59}
                                    << "0999-12-31T23:59:59";
        QTest::newRow("month 13") << "2024-13-01T00:00:00" << QList<int>{} << "";
        QTest::newRow("no time") << "2024-06-01" << QList<int>{} << "";
        QTest::newRow("garbage") << "yesterday" << QList<int>{} << "";
    }

    void dateTimes() {
        QFETCH(QString, text);
        QFETCH(QList<int>, fields);
        QFETCH(QString, written);
        int f[6] = {-1, -1, -1, -1, -1, -1};
        const bool ok =
            XMLConvertText2DateTime(text.toStdWString().c_str(), f[0], f[1], f[2], f[3], f[4], f[5]);
        QCOMPARE(ok, !fields.isEmpty());
        if (!ok) {
            QCOMPARE(f[0], -1);
            return;
        }
        QCOMPARE((QList<int>{f[0], f[1], f[2], f[3], f[4], f[5]}), fields);
        QCOMPARE(QString::fromWCharArray(XMLConvertDateTime2Text(f[0], f[1], f[2], f[3], f[4], f[5])),
                 written);
        int y = 0, m = 0, d = 0, h = 0, mi = 0, s = 0;
        QVERIFY(XMLConvertText2Date(XMLConvertDate2Text(f[0], f[1], f[2]), y, m, d));
        QVERIFY(XMLConvertText2Time(XMLConvertTime2Text(f[3], f[4], f[5]), h, mi, s));
        QCOMPARE((QList<int>{y, m, d, h, mi, s}), fields);
    }

    void base64RoundTrip() {
        for (int length = 0; length < 40; ++length) {
            std::vector<unsigned char> bytes(static_cast<std::size_t>(length));
            for (int i = 0; i < length; ++i)
                bytes[std::size_t(i)] = static_cast<unsigned char>(i * 97 + 13);
            const std::wstring text = EncodeBase64(bytes.data(), bytes.size());
            QCOMPARE(int(text.size()), (length + 2) / 3 * 4);
            std::vector<unsigned char> back;
            QVERIFY(DecodeBase64(text.c_str(), back));
            QVERIFY(back == bytes);
        }
    }
};

QTEST_GUILESS_MAIN(tst_XMLConvert)
#include "tst_XMLConvert.moc"
