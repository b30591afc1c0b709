#include "vmp/aMatrix.h"

#include <cstdio>
#include <cstring>

namespace vmp {

aMatrixLine aMatrix::_line;

aMatrix::aMatrix() : Matrix(0, 0, 0) {}

aMatrix::aMatrix(int rows, int cols) : Matrix(rows, cols, rows * cols) {
    clear();
}

aMatrix::aMatrix(int rows, int cols, const double* values) : Matrix(rows, cols, rows * cols) {
    if (_data)
        std::memcpy(_data, values, sizeof(double) * stored());
}

aMatrix::aMatrix(const aMatrix& other) : Matrix(other) {}

aMatrix& aMatrix::operator=(const aMatrix& other) {
    if (this == &other)
        return *this;
    if (_rows != other._rows || _cols != other._cols)
        reallocate(other._rows, other._cols, other.stored());
    if (_data)
        std::memcpy(_data, other._data, sizeof(double) * stored());
    return *this;
}

const MatrixLine& aMatrix::operator[](int row) const {
    _line._values = _data + static_cast<long>(row) * _cols;
    _line._row = row;
    return _line;
}

MatrixLine& aMatrix::operator[](int row) {
    _line._values = _data + static_cast<long>(row) * _cols;
    _line._row = row;
    return _line;
}

void aMatrix::clear() {
    *this <<= 0.0;
}

aMatrix& aMatrix::operator<<=(double value) {
    for (int i = 0; i < stored(); ++i)
        _data[i] = value;
    return *this;
}

aMatrix& aMatrix::operator*=(double factor) {
    for (int i = 0; i < stored(); ++i)
        _data[i] *= factor;
    return *this;
}

aMatrix& aMatrix::operator+=(const aMatrix& other) {
    for (int i = 0; i < stored(); ++i)
        _data[i] += other._data[i];
    return *this;
}

aMatrix aMatrix::operator+(const aMatrix& other) const {
    aMatrix r(*this);
    r += other;
    return r;
}

aMatrix aMatrix::operator-(const aMatrix& other) const {
    aMatrix r(*this);
    for (int i = 0; i < stored(); ++i)
        r._data[i] -= other._data[i];
    return r;
}

aMatrix aMatrix::operator*(const aMatrix& m) const {
    if (_cols != m._rows) {
        std::fprintf(stderr, "\n<aMatrix::operator*(aMatrix& m)> ERROR - this.cols != m.rows !!\n");
        return aMatrix();
    }
    aMatrix r(_rows, m._cols);
    for (int i = 0; i < _rows; ++i)
        for (int j = 0; j < m._cols; ++j) {
            double sum = 0.0;
            for (int k = 0; k < _cols; ++k)
                sum += _data[i * _cols + k] * m._data[k * m._cols + j];
            r._data[i * m._cols + j] = sum;
        }
    return r;
}

aMatrix aMatrix::transpose() const {
    aMatrix r(_cols, _rows);
    for (int i = 0; i < _cols; ++i)
        for (int j = 0; j < _rows; ++j)
            r._data[i * _rows + j] = _data[j * _cols + i];
    return r;
}

void aMatrix::decompose() {
    auto a = [this](int i, int j) -> double& { return _data[i * _cols + j]; };
    for (int i = 0; i < _rows; ++i) {
        for (int j = 0; j < i; ++j) {
            double sum = a(i, j);
            for (int k = 0; k < j; ++k)
                sum -= a(i, k) * a(k, j);
            a(i, j) = sum / a(j, j);
        }
        for (int j = i; j < _cols; ++j) {
            double sum = a(i, j);
            for (int k = 0; k < i; ++k)
                sum -= a(i, k) * a(k, j);
            a(i, j) = sum;
        }
    }
}

aMatrix operator*(double factor, const aMatrix& m) {
    aMatrix r(m);
    r *= factor;
    return r;
}

} // namespace vmp
