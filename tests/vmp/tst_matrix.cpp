#include "support/OutputCapture.h"
#include "vmp/Vector.h"
#include "vmp/aMatrix.h"
#include "vmp/sMatrix.h"

#include <QtTest>

#include <cmath>

using vmp::aMatrix;
using vmp::sMatrix;

Q_DECLARE_METATYPE(std::vector<double>)

namespace {

aMatrix square(int n, const std::vector<double>& values) {
    return aMatrix(n, n, values.data());
}

/// The largest absolute element difference of two matrices of equal shape.
double max_difference(const vmp::Matrix& a, const vmp::Matrix& b) {
    double worst = 0.0;
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < a.cols(); ++j) {
            const double x = a[i][j];
            worst = std::max(worst, std::fabs(x - b[i][j]));
        }
    return worst;
}

} // namespace

class tst_matrix : public QObject {
    Q_OBJECT

private slots:
    void determinant_data() {
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("cols");
        QTest::addColumn<std::vector<double>>("values");
        QTest::addColumn<double>("expected");
        QTest::addColumn<QByteArray>("message");
        QTest::newRow("1x1") << 1 << 1 << std::vector<double>{-4} << -4.0 << QByteArray();
        QTest::newRow("2x2") << 2 << 2 << std::vector<double>{3, 8, 4, 6} << -14.0 << QByteArray();
        QTest::newRow("3x3") << 3 << 3 << std::vector<double>{6, 1, 1, 4, -2, 5, 2, 8, 7} << -306.0
                             << QByteArray();
        QTest::newRow("3x3 singular")
            << 3 << 3 << std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 9} << 0.0 << QByteArray();
        QTest::newRow("4x4 refused") << 4 << 4 << std::vector<double>(16, 0.0) << 0.0
                                     << QByteArray(
                                            "Sorry determinat of matrix with dim>3 not implemented!\n");
        std::vector<double> identity5(25, 0.0);
        for (int i = 0; i < 5; ++i)
            identity5[i * 6] = 1.0;
        QTest::newRow("5x5 identity refused")
            << 5 << 5 << identity5 << 0.0
            << QByteArray("Sorry determinat of matrix with dim>3 not implemented!\n");
        QTest::newRow("not square") << 2 << 3 << std::vector<double>{1, 2, 3, 4, 5, 6} << 0.0
                                    << QByteArray("Error : for quadratic matrices only !\n");
    }

    void determinant() {
        QFETCH(int, rows);
        QFETCH(int, cols);
        QFETCH(std::vector<double>, values);
        QFETCH(double, expected);
        QFETCH(QByteArray, message);
        const aMatrix m(rows, cols, values.data());
        OutputCapture capture(stderr);
        const double d = vmp::determinant(m);
        QCOMPARE(capture.text(), message);
        QVERIFY(std::fabs(d - expected) < 1e-9);
    }

    void rotation_has_determinant_one() {
        const double c = std::cos(0.7), s = std::sin(0.7);
        const aMatrix r = square(3, {c, s, 0, -s, c, 0, 0, 0, 1});
        QVERIFY(std::fabs(vmp::determinant(r) - 1.0) < 1e-12);
        QVERIFY(max_difference(r * r.transpose(), square(3, {1, 0, 0, 0, 1, 0, 0, 0, 1})) < 1e-12);
    }

    void lines_are_one_shared_object() {
        aMatrix m = square(2, {1, 2, 3, 4});
        vmp::MatrixLine& first = m[0];
        vmp::MatrixLine& second = m[1];
        QVERIFY(&first == &second);
        QCOMPARE(first[0], 3.0);
        QCOMPARE(first.row(), 1);
        m[0][1] = 9.0;
        QCOMPARE(vmp::row_vector(m, 0), vmp::Vector(2, std::vector<double>{1, 9}.data()));
        QCOMPARE(vmp::column_vector(m, 1), vmp::Vector(2, std::vector<double>{9, 4}.data()));
    }

    void element_operators() {
        aMatrix a = square(2, {1, 2, 3, 4});
        const aMatrix b = square(2, {4, 3, 2, 1});
        QVERIFY(max_difference(a + b, square(2, {5, 5, 5, 5})) == 0.0);
        QVERIFY(max_difference(a - b, square(2, {-3, -1, 1, 3})) == 0.0);
        QVERIFY(max_difference(2.0 * a, square(2, {2, 4, 6, 8})) == 0.0);
        QVERIFY(max_difference(a * b, square(2, {8, 5, 20, 13})) == 0.0);
        a <<= 1.5;
        QVERIFY(max_difference(a, square(2, {1.5, 1.5, 1.5, 1.5})) == 0.0);
        a.clear();
        QVERIFY(max_difference(a, aMatrix(2, 2)) == 0.0);
        const double values[6] = {1, 2, 3, 4, 5, 6};
        const aMatrix wide(2, 3, values);
        const aMatrix t = wide.transpose();
        QCOMPARE(t.rows(), 3);
        QCOMPARE(t[2][1], 6.0);
    }

    void product_of_mismatched_shapes_is_empty() {
        const aMatrix a(2, 3);
        const aMatrix b(2, 3);
        OutputCapture capture(stderr);
        const aMatrix p = a * b;
        QCOMPARE(capture.text(),
                 QByteArray("\n<aMatrix::operator*(aMatrix& m)> ERROR - this.cols != m.rows !!\n"));
        QCOMPARE(p.rows(), 0);
        QCOMPARE(p.cols(), 0);
    }

    void decomposition_data() {
        QTest::addColumn<int>("n");
        QTest::addColumn<std::vector<double>>("values");
        QTest::newRow("2x2") << 2 << std::vector<double>{4, 3, 6, 3};
        QTest::newRow("3x3") << 3 << std::vector<double>{2, -1, 0, -1, 2, -1, 0, -1, 2};
        QTest::newRow("4x4 unsymmetric")
            << 4 << std::vector<double>{10, 1, 2, 3, 1, 12, 0, 4, 2, 5, 9, 1, 0, 1, 3, 8};
    }

    void decomposition() {
        // In place: the unit lower factor below the diagonal, the upper factor on and above it.
        QFETCH(int, n);
        QFETCH(std::vector<double>, values);
        const aMatrix a = square(n, values);
        aMatrix lu(a);
        lu.decompose();
        aMatrix l(n, n), u(n, n);
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) {
                const double v = lu[i][j];
                if (j < i)
                    l[i][j] = v;
                else
                    u[i][j] = v;
            }
        for (int i = 0; i < n; ++i)
            l[i][i] = 1.0;
        QVERIFY(max_difference(l * u, a) < 1e-12);
    }

    void symmetric_storage_is_shared() {
        sMatrix s(3);
        s[1][2] = 5.0;
        QCOMPARE(s[2][1], 5.0);
        s[0][2] = -1.0;
        QCOMPARE(s[2][0], -1.0);
        s[2][2] = 7.0;
        s[0][0] = 2.0;
        QCOMPARE(s.rows(), 3);
        QCOMPARE(s.cols(), 3);
        const aMatrix product = s * aMatrix(3, 3, std::vector<double>{1, 0, 0, 0, 1, 0, 0, 0, 1}.data());
        QVERIFY(max_difference(product, square(3, {2, 0, -1, 0, 0, 5, -1, 5, 7})) == 0.0);
        QCOMPARE(vmp::determinant(s), -50.0);
    }

    void resize_fills_only_the_first_n_values() {
        sMatrix s(2);
        s <<= 3.0;
        s.resize(2);
        QCOMPARE(s[1][1], 3.0);
        s.resize(4);
        QCOMPARE(s.rows(), 4);
        // The first four packed values, (0,0) (1,0) (1,1) (2,0), are zero; the rest is not set.
        QCOMPARE(s[0][0], 0.0);
        QCOMPARE(s[1][0], 0.0);
        QCOMPARE(s[1][1], 0.0);
        QCOMPARE(s[2][0], 0.0);
    }

    void mismatched_symmetric_product_is_empty() {
        const sMatrix s(3);
        OutputCapture capture(stderr);
        const aMatrix p = s * aMatrix(2, 2);
        QCOMPARE(capture.text(), QByteArray("\n<vmp::operator*(const sMatrix&, const Matrix&)>"));
        QCOMPARE(p.rows(), 0);
    }

    void cholesky_data() {
        QTest::addColumn<int>("n");
        QTest::addColumn<std::vector<double>>("lower");
        QTest::newRow("2x2") << 2 << std::vector<double>{4, 2, 3};
        QTest::newRow("3x3") << 3 << std::vector<double>{4, 12, 37, -16, -43, 98};
        QTest::newRow("4x4 diagonally dominant") << 4 << std::vector<double>{10, 1, 12, 2, 0, 9, 3, 4, 1, 8};
    }

    void cholesky() {
        QFETCH(int, n);
        QFETCH(std::vector<double>, lower);
        sMatrix a(n);
        int k = 0;
        for (int i = 0; i < n; ++i)
            for (int j = 0; j <= i; ++j)
                a[i][j] = lower[k++];
        sMatrix l(a);
        bool ok = false;
        l.cholesky(ok);
        QVERIFY(ok);
        aMatrix factor(n, n);
        for (int i = 0; i < n; ++i)
            for (int j = 0; j <= i; ++j)
                factor[i][j] = l[i][j];
        QVERIFY(max_difference(factor * factor.transpose(), a) < 1e-10);
    }

    void cholesky_reports_a_bad_pivot() {
        sMatrix a(2);
        a[0][0] = 1.0;
        a[1][0] = 2.0;
        a[1][1] = 1.0; // not positive definite: 1 - 4 < 0
        bool ok = true;
        OutputCapture capture(stdout);
        a.cholesky(ok);
        QCOMPARE(capture.text(), QByteArray("pivot = 1, summe = -3.000000 \n"));
        QVERIFY(!ok);
        QCOMPARE(a[1][1], 1.0);
    }
};

QTEST_GUILESS_MAIN(tst_matrix)
#include "tst_matrix.moc"
