#include "xqtgl/xQGLVectorFont.h"

#include <QPixmap>
#include <QSet>
#include <QtTest>
#include <vector>

using namespace xqtgl;

// The font and the cursors are drawn data: the test guards their shape, not their looks.
class tst_vector_font : public QObject {
    Q_OBJECT

    static std::vector<int> runs_of(unsigned char c)
    {
        std::vector<int> runs;
        for (const int* p = vector_font_glyph(c); p && *p != -1; ++p)
            runs.push_back(*p);
        return runs;
    }

private slots:
    void every_printable_byte_has_well_formed_runs_inside_its_cell()
    {
        QVERIFY(vector_font_glyph(' ') && *vector_font_glyph(' ') == -1);
        QVERIFY(!vector_font_glyph('\t'));
        QSet<QVector<int>> shapes;
        for (int c = 33; c <= 126; ++c) {
            const std::vector<int> runs = runs_of(static_cast<unsigned char>(c));
            QVERIFY2(!runs.empty(), qPrintable(QString("no glyph for '%1'").arg(QChar(c))));
            for (std::size_t i = 0; i < runs.size();) {
                const int count = runs[i + 1];
                QVERIFY(runs[i] == 1 && count >= 2 && i + 2 + 2 * count <= runs.size());
                for (int k = 0; k < count; ++k) {
                    const int x = runs[i + 2 + 2 * k], y = runs[i + 3 + 2 * k];
                    QVERIFY2(x >= 0 && x <= vector_font_advance && y >= -35 && y <= 100,
                             qPrintable(QString("'%1' leaves its cell").arg(QChar(c))));
                }
                i += 2 + 2 * count;
            }
            shapes.insert(QVector<int>(runs.begin(), runs.end()));
        }
        QCOMPARE(shapes.size(), 94);
    }

    void cursors_load_with_transparency()
    {
        for (const char* name : {"orbit", "lupe", "walk"}) {
            const QPixmap cursor(QString(":/cursors/resources/cursor_%1.xpm").arg(name));
            QCOMPARE(cursor.size(), QSize(32, 32));
            QVERIFY(cursor.hasAlpha());
        }
    }
};

QTEST_MAIN(tst_vector_font)
#include "tst_vector_font.moc"
