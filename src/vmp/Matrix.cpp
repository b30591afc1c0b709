#include "vmp/Matrix.h"

#include "vmp/MatrixLine.h"
#include "vmp/Vector.h"

#include <cstdio>
#include <cstring>

namespace vmp {

MatrixLine::~MatrixLine() = default;

Matrix::Matrix(int rows, int cols, int stored)
    : _rows(rows), _cols(cols), _data(stored > 0 ? new double[stored] : nullptr), _stored(stored) {}

Matrix::Matrix(const Matrix& other) : Matrix(other._rows, other._cols, other._stored) {
    if (_data)
        std::memcpy(_data, other._data, sizeof(double) * _stored);
}

Matrix::~Matrix() {
    delete[] _data;
}

void Matrix::reallocate(int rows, int cols, int stored) {
    delete[] _data;
    _rows = rows;
    _cols = cols;
    _stored = stored;
    _data = stored > 0 ? new double[stored] : nullptr;
}

Vector operator*(const Vector& v, const Matrix& m) {
    Vector r(m.cols());
    for (int i = 0; i < m.cols(); ++i) {
        double sum = 0.0;
        for (int j = 0; j < m.rows(); ++j)
            sum += v[j] * m[j][i];
        r[i] = sum;
    }
    return r;
}

Vector operator*(const Matrix& m, const Vector& v) {
    Vector r(m.rows());
    for (int i = 0; i < m.rows(); ++i) {
        const MatrixLine& line = m[i];
        double sum = 0.0;
        for (int j = 0; j < m.cols(); ++j)
            sum += line[j] * v[j];
        r[i] = sum;
    }
    return r;
}

double determinant(const Matrix& m) {
    if (m.rows() != m.cols()) {
        std::fprintf(stderr, "Error : for quadratic matrices only !\n");
        return 0.0;
    }
    const int n = m.rows();
    if (n > 3) {
        std::fprintf(stderr, "Sorry determinat of matrix with dim>3 not implemented!\n");
        return 0.0;
    }
    // Copied out first: two subscripts in one expression would share the static line object.
    double a[3][3] = {};
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            a[i][j] = m[i][j];
    switch (n) {
    case 1:
        return a[0][0];
    case 2:
        return a[0][0] * a[1][1] - a[0][1] * a[1][0];
    case 3:
        return a[0][0] * a[1][1] * a[2][2] + a[0][1] * a[1][2] * a[2][0] + a[0][2] * a[1][0] * a[2][1] -
               a[0][2] * a[1][1] * a[2][0] - a[0][0] * a[1][2] * a[2][1] - a[0][1] * a[1][0] * a[2][2];
    default:
        return 0.0;
    }
}

Vector row_vector(const Matrix& m, int row) {
    Vector r(m.cols());
    const MatrixLine& line = m[row];
    for (int j = 0; j < m.cols(); ++j)
        r[j] = line[j];
    return r;
}

Vector column_vector(const Matrix& m, int column) {
    Vector r(m.rows());
    for (int i = 0; i < m.rows(); ++i)
        r[i] = m[i][column];
    return r;
}

void print(const Matrix& m, const char* tail, const char* format) {
    for (int i = 0; i < m.rows(); ++i) {
        const MatrixLine& line = m[i];
        for (int j = 0; j < m.cols(); ++j)
            std::printf(format, line[j]);
        std::printf("\n");
    }
    std::printf("%s", tail);
    std::fflush(stdout);
}

} // namespace vmp
