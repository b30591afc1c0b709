#pragma once

#include "zentra_export.h"

namespace vmp {

class MatrixLine;
class Vector;

/// Abstract dense matrix of doubles, read and written through a row proxy: `m[row][column]`.
/// Dimensions are checked little; a mismatch gives an empty or zero result and at most a line
/// on stderr. Subscripts share one line object per class and are therefore not re-entrant.
class ZENTRA_EXPORT Matrix {
public:
    virtual ~Matrix();
    virtual const MatrixLine& operator[](int row) const = 0;
    virtual MatrixLine& operator[](int row) = 0;
    /// Sets every element to zero.
    virtual void clear() = 0;

    int rows() const { return _rows; }
    int cols() const { return _cols; }

protected:
    Matrix(int rows, int cols, int stored);
    Matrix(const Matrix& other);
    Matrix& operator=(const Matrix&) = delete;
    /// Gives up the storage and takes a new, uninitialised one.
    void reallocate(int rows, int cols, int stored);
    int stored() const { return _stored; }

    int _rows;
    int _cols;
    double* _data;

private:
    int _stored;
};

/// Row vector times matrix: r[i] = sum over j of v[j] * m[j][i], of length `m.cols()`.
ZENTRA_EXPORT Vector operator*(const Vector& v, const Matrix& m);
/// Matrix times column vector, of length `m.rows()`.
ZENTRA_EXPORT Vector operator*(const Matrix& m, const Vector& v);

/// Determinant of a square matrix up to dimension 3. Larger matrices are refused with 0.0 and a
/// line on stderr: callers only ever need rotations and small frames, and a silent general
/// algorithm would hide a misuse.
ZENTRA_EXPORT double determinant(const Matrix& m);

/// Row `row` as a vector of length `cols()`.
ZENTRA_EXPORT Vector row_vector(const Matrix& m, int row);
/// Column `column` as a vector of length `rows()`.
ZENTRA_EXPORT Vector column_vector(const Matrix& m, int column);

/// Each row with `format` per element and a line break, then `tail` through "%s", on stdout.
ZENTRA_EXPORT void print(const Matrix& m, const char* tail = "\n", const char* format = " %f ");

} // namespace vmp
