#include "support/OutputCapture.h"
#include "vmp/Vector.h"
#include "vmp/aMatrix.h"

#include <QtTest>

#include <cmath>

using vmp::Vector;

namespace {
Vector vec(std::initializer_list<double> values) {
    return Vector(static_cast<int>(values.size()), values.begin());
}
} // namespace

class tst_vector : public QObject {
    Q_OBJECT

private slots:
    void empty_and_resized() {
        const Vector empty(0);
        QVERIFY(empty.data() == nullptr);
        QCOMPARE(empty.quantity(), 0.0);
        QCOMPARE(Vector::null().size(), 0);
        // Resizing keeps the contents only for the same length.
        Vector v(1.0, 2.0, 3.0);
        v.resize(3);
        QCOMPARE(v, Vector(1.0, 2.0, 3.0));
        v.resize(5);
        QCOMPARE(v.size(), 5);
        v.resize(0);
        QVERIFY(v.data() == nullptr);
    }

    void assignment_and_fill() {
        Vector v(2);
        v = Vector(4.0, 5.0, 6.0);
        QCOMPARE(v.size(), 3);
        QCOMPARE(v[2], 6.0);
        // Through a reference, as self-assignment happens in practice.
        const Vector& same = v;
        v = same;
        QCOMPARE(v[0], 4.0);
        v <<= 7.5;
        QCOMPARE(v, Vector(7.5, 7.5, 7.5));
    }

    void equality_is_exact() {
        QVERIFY(Vector(0.1 + 0.2, 0.0, 0.0) != Vector(0.3, 0.0, 0.0));
        QVERIFY(Vector(3) != Vector(2));
        QVERIFY(Vector(3) == Vector(0.0, 0.0, 0.0));
    }

    void products_data() {
        QTest::addColumn<QVector<double>>("a");
        QTest::addColumn<QVector<double>>("b");
        QTest::addColumn<double>("dot");
        QTest::addColumn<QVector<double>>("cross");
        QTest::newRow("orthogonal basis")
            << QVector<double>{1, 0, 0} << QVector<double>{0, 1, 0} << 0.0 << QVector<double>{0, 0, 1};
        QTest::newRow("general") << QVector<double>{1, 2, 3} << QVector<double>{4, 5, 6} << 32.0
                                 << QVector<double>{-3, 6, -3};
        QTest::newRow("sizes 2 and 3: dot 0, cross zero")
            << QVector<double>{1, 2} << QVector<double>{1, 2, 3} << 0.0 << QVector<double>{0, 0, 0};
        QTest::newRow("size 2: cross zero of size 3")
            << QVector<double>{1, 2} << QVector<double>{3, 4} << 11.0 << QVector<double>{0, 0, 0};
    }

    void products() {
        QFETCH(QVector<double>, a);
        QFETCH(QVector<double>, b);
        QFETCH(double, dot);
        QFETCH(QVector<double>, cross);
        const Vector va(a.size(), a.constData());
        const Vector vb(b.size(), b.constData());
        QCOMPARE(va * vb, dot);
        QCOMPARE(vmp::cross(va, vb), Vector(3, cross.constData()));
    }

    void planar_cross_and_triple_product() {
        QCOMPARE(vmp::cross2D(vec({1, 2}), vec({3, 4})), Vector(0.0, 0.0, -2.0));
        QCOMPARE(vmp::triple_product(Vector(1, 0, 0), Vector(0, 1, 0), Vector(0, 0, 1)), 1.0);
        QCOMPARE(vmp::triple_product(Vector(0, 1, 0), Vector(1, 0, 0), Vector(0, 0, 2)), -2.0);
        QCOMPARE(vmp::triple_product(Vector(2), Vector(0, 1, 0), Vector(0, 0, 1)), -1.0);
    }

    void arithmetic_and_length() {
        Vector v(3.0, 4.0, 0.0);
        QCOMPARE(v.quantity(), 5.0);
        QCOMPARE(2.0 * v, Vector(6.0, 8.0, 0.0));
        QCOMPARE(v / 2.0, Vector(1.5, 2.0, 0.0));
        QCOMPARE(v + Vector(1, 1, 1), Vector(4, 5, 1));
        QCOMPARE(v - Vector(1, 1, 1), Vector(2, 3, -1));
        // Runs over the left operand's length only.
        Vector shorter(2);
        shorter += Vector(1.0, 2.0, 3.0);
        QCOMPARE(shorter[1], 2.0);
        v.normalize();
        QCOMPARE(v, Vector(0.6, 0.8, 0.0));
        Vector zero(3);
        zero.normalize();
        QVERIFY(!std::isfinite(zero[0]));
        QCOMPARE(vmp::cosine(Vector(1, 0, 0), Vector(1, 1, 0)), std::sqrt(0.5));
    }

    void products_with_matrices() {
        const double values[6] = {1, 2, 3, 4, 5, 6};
        const vmp::aMatrix m(2, 3, values);
        QCOMPARE(Vector(1.0, 1.0, 1.0) * m.transpose(), vec({6, 15}));
        QCOMPARE(m * Vector(1.0, 0.0, 2.0), vec({7, 16}));
        QCOMPARE(vec({1, 2}) * m, Vector(9.0, 12.0, 15.0));
    }

    void printing() {
        // The default layout is for reading only: the values in order and the ending count. A
        // format the caller gives is used as given.
        OutputCapture capture(stdout);
        vmp::print(Vector(1.0, 2.5, -3.0), "|end|\n");
        vmp::print(Vector(1.0, 2.0, 3.0), "\n", "%.1f;");
        const QList<QByteArray> printed = capture.text().split('|');
        QCOMPARE(printed.size(), 3);
        QList<double> values;
        for (const QByteArray& number : printed[0].simplified().split(' '))
            values << number.toDouble();
        QCOMPARE(values, (QList<double>{1, 2.5, -3}));
        QCOMPARE(printed[2], QByteArray("\n1.0;2.0;3.0;\n"));
    }
};

QTEST_GUILESS_MAIN(tst_vector)
#include "tst_vector.moc"
