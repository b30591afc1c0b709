#pragma once

#include "vmp/Matrix.h"
#include "vmp/MatrixLine.h"

namespace vmp {

/// A row of an `aMatrix`: a view on `cols` consecutive doubles.
class ZENTRA_EXPORT aMatrixLine : public MatrixLine {
public:
    double operator[](int column) const override { return _values[column]; }
    double& operator[](int column) override { return _values[column]; }
    int row() const override { return _row; }

private:
    friend class aMatrix;
    double* _values = nullptr;
    int _row = 0;
};

/// A full `rows` x `cols` matrix stored row by row.
class ZENTRA_EXPORT aMatrix : public Matrix {
public:
    aMatrix();
    /// Zeros.
    aMatrix(int rows, int cols);
    /// Copies rows * cols values, row by row.
    aMatrix(int rows, int cols, const double* values);
    aMatrix(const aMatrix& other);
    /// Reallocates only when the shape differs.
    aMatrix& operator=(const aMatrix& other);

    const MatrixLine& operator[](int row) const override;
    MatrixLine& operator[](int row) override;
    void clear() override;

    /// Fills every element with `value`.
    aMatrix& operator<<=(double value);
    aMatrix& operator*=(double factor);
    /// Runs over this matrix's shape.
    aMatrix& operator+=(const aMatrix& other);
    aMatrix operator+(const aMatrix& other) const;
    aMatrix operator-(const aMatrix& other) const;
    /// Matrix product; an empty matrix and a line on stderr when `cols()` differs from `m.rows()`.
    aMatrix operator*(const aMatrix& m) const;
    /// result[i][j] = this[j][i].
    aMatrix transpose() const;

    /// Triangular decomposition in place, without pivoting: afterwards the strict lower part
    /// holds L (with an implied unit diagonal) and the upper part with the diagonal holds U, so
    /// that L * U is the original matrix. A zero pivot is not guarded.
    void decompose();

private:
    static aMatrixLine _line;
};

ZENTRA_EXPORT aMatrix operator*(double factor, const aMatrix& m);

} // namespace vmp
