#include "basic/identifier.h"
#include "basic/text.h"

#include <QRegularExpression>
#include <QtTest>

using namespace basic;

/// Identifiers and the text border between the document layer and the model layer.
class tst_text : public QObject {
    Q_OBJECT
private slots:
    void identifiers_share_the_process_prefix() {
        const QString first = create_ID();
        const QString second = create_ID();
        const QRegularExpression shape(
            "^\\{[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}\\}-([0-9a-f]+)$");
        const auto a = shape.match(first);
        const auto b = shape.match(second);
        QVERIFY2(a.hasMatch(), qPrintable(first));
        QVERIFY2(b.hasMatch(), qPrintable(second));
        QCOMPARE(first.left(first.lastIndexOf('-')), second.left(second.lastIndexOf('-')));
        QCOMPARE(b.captured(1).toULongLong(nullptr, 16), a.captured(1).toULongLong(nullptr, 16) + 1);
    }

    void round_trip_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("ascii") << QString("Wall 1");
        QTest::newRow("umlaut, dash, superscript") << QString::fromUtf8("Wände – 3 m²");
        QTest::newRow("outside the basic plane") << QString::fromUtf8("Ziegel \xF0\x9F\xA7\xB1 Süd");
        QTest::newRow("cjk") << QString::fromUtf8("混凝土墙");
    }

    void round_trip() {
        QFETCH(QString, text);
        const std::wstring wide = ToStdString(text);
        QCOMPARE(FromStdString(wide), text);
        QCOMPARE(QString::fromStdWString(wide), text);
    }

    void empty_and_invalid() {
        QVERIFY(FromStdString(std::wstring()).isNull());
        QVERIFY(ToStdString(QString()).empty());
        QVERIFY(ToStdString(QString("")).empty());
        // A lone surrogate has no UTF-8 form: the text does not decode and gives the empty string.
        const QString lone_surrogate = QString("ab") + QChar(0xD800) + QString("cd");
        QVERIFY(ToStdString(lone_surrogate).empty());
        if (sizeof(wchar_t) == 4) {
            const std::wstring invalid{L'a', wchar_t(0x110000), L'b'};
            QCOMPARE(FromStdString(invalid), QString("a") + QChar(0xFFFD) + QString("b"));
        }
    }

    void language_folder_data() {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<QString>("expected");
        QTest::newRow("language and country") << QByteArray("de_AT") << QString("de");
        QTest::newRow("any Chinese") << QByteArray("zh_TW") << QString("zh-CN");
        QTest::newRow("short") << QByteArray("f") << QString("f");
        QTest::newRow("set but empty") << QByteArray("") << QString("");
    }

    void language_folder() {
        QFETCH(QByteArray, value);
        QFETCH(QString, expected);
        qputenv("TAV_LANGUAGE", value);
        QCOMPARE(GetLanguageFolder(), expected);
        qunsetenv("TAV_LANGUAGE");
        QCOMPARE(GetLanguageFolder(), QLocale::system().name().left(2) == "zh"
                                          ? QString("zh-CN")
                                          : QLocale::system().name().left(2));
    }
};

QTEST_GUILESS_MAIN(tst_text)
#include "tst_text.moc"
