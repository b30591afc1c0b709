#include "basic/color.h"

#include <QtTest>

#include <cstring>

using namespace basic;

/// Colour conversions with their deliberate asymmetries: the QColor is always opaque, and a
/// colour4 made from a QColor always has alpha 0.
class tst_colors : public QObject {
    Q_OBJECT
private slots:
    void to_qcolor_truncates_and_is_opaque_data() {
        QTest::addColumn<float>("r");
        QTest::addColumn<float>("g");
        QTest::addColumn<float>("b");
        QTest::addColumn<float>("a");
        QTest::addColumn<QColor>("expected");
        QTest::newRow("white with alpha 0") << 1.f << 1.f << 1.f << 0.f << QColor(255, 255, 255, 255);
        QTest::newRow("black half transparent") << 0.f << 0.f << 0.f << 0.5f << QColor(0, 0, 0, 255);
        QTest::newRow("truncation, not rounding")
            << 0.999f << 0.5f << 0.0039f << 1.f << QColor(254, 127, 0, 255);
    }

    void to_qcolor_truncates_and_is_opaque() {
        QFETCH(float, r);
        QFETCH(float, g);
        QFETCH(float, b);
        QFETCH(float, a);
        QFETCH(QColor, expected);
        QCOMPARE(convert_to_qcolor(color4{r, g, b, a}), expected);
        QCOMPARE(convert_to_qcolor(color3{r, g, b}), expected);
    }

    void from_qcolor_ignores_alpha() {
        const auto channels = [](const color4& c) { return QList<float>{c.r, c.g, c.b, c.a}; };
        QCOMPARE(channels(convert_to_color4(QColor(255, 0, 51, 255))), (QList<float>{1.f, 0.f, 0.2f, 0.f}));
        const color3 grey = convert_to_color3(QColor(51, 102, 204, 10));
        QCOMPARE((QList<float>{grey.r, grey.g, grey.b}),
                 (QList<float>{float(51 / 255.0), float(102 / 255.0), float(204 / 255.0)}));
        // From integers the alpha given is kept.
        QCOMPARE(channels(convert_to_color4(255, 0, 51, 0.25)), (QList<float>{1.f, 0.f, 0.2f, 0.25f}));
    }

    void equality_is_exact() {
        color4 a{0.1f, 0.2f, 0.3f, 0.4f};
        color4 b = a;
        QVERIFY(equals(a, a));
        QVERIFY(equals(a, b));
        quint32 bits;
        std::memcpy(&bits, &b.a, sizeof bits);
        ++bits;
        std::memcpy(&b.a, &bits, sizeof bits);
        QVERIFY(!equals(a, b));
        QVERIFY(equals(color3{1, 0, 0}, color3{1, 0, 0}));
        QVERIFY(!equals(color3{1, 0, 0}, color3{1, 0, 1e-7f}));
    }
};

QTEST_GUILESS_MAIN(tst_colors)
#include "tst_colors.moc"
