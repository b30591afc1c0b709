#pragma once

#include "vmp/Matrix.h"
#include "vmp/MatrixLine.h"

namespace vmp {

class aMatrix;

/// A row of an `sMatrix`. Indices above the diagonal are swapped into the packed lower
/// triangle, so that (i, j) and (j, i) are the same storage.
class ZENTRA_EXPORT sMatrixLine : public MatrixLine {
public:
    double operator[](int column) const override { return _packed[offset(column)]; }
    double& operator[](int column) override { return _packed[offset(column)]; }
    int row() const override { return _row; }

private:
    friend class sMatrix;
    long offset(int column) const {
        return _row >= column ? static_cast<long>(_row) * (_row + 1) / 2 + column
                              : static_cast<long>(column) * (column + 1) / 2 + _row;
    }
    double* _packed = nullptr;
    int _row = 0;
};

/// A symmetric n x n matrix that stores only its lower triangle, (n + 1) * n / 2 doubles, with
/// element (i, j), i >= j, at i * (i + 1) / 2 + j.
class ZENTRA_EXPORT sMatrix : public Matrix {
public:
    /// Zeros.
    explicit sMatrix(int n = 0);
    sMatrix(const sMatrix& other);
    sMatrix& operator=(const sMatrix& other);

    const MatrixLine& operator[](int row) const override;
    MatrixLine& operator[](int row) override;
    void clear() override;

    /// Reallocates for a new `n` and zeros only the first n of the packed values; the rest of a
    /// grown matrix is left as allocated. Callers write every element after a resize, and the
    /// short fill keeps large resizes cheap.
    void resize(int n);

    /// Cholesky decomposition in place: afterwards the lower triangle holds L with A = L * L^T.
    /// A pivot at or below 1e-10 is reported on stdout, clears `ok` and stays unchanged.
    void cholesky(bool& ok);

    sMatrix& operator<<=(double value);
    sMatrix& operator*=(double factor);
    sMatrix& operator+=(const sMatrix& other);
    sMatrix operator+(const sMatrix& other) const;
    sMatrix operator-(const sMatrix& other) const;

private:
    static sMatrixLine _line;
};

ZENTRA_EXPORT sMatrix operator*(double factor, const sMatrix& m);

/// Product with any matrix; an empty matrix and a line on stderr when `m.rows()` is not n.
ZENTRA_EXPORT aMatrix operator*(const sMatrix& s, const Matrix& m);

} // namespace vmp
