#include "vmp/sMatrix.h"

#include "vmp/aMatrix.h"

#include <cmath>
#include <cstdio>
#include <cstring>

namespace vmp {

namespace {
int packed_size(int n) {
    return n < 1 ? 0 : (n + 1) * n / 2;
}
} // namespace

sMatrixLine sMatrix::_line;

sMatrix::sMatrix(int n) : Matrix(n, n, packed_size(n)) {
    clear();
}

sMatrix::sMatrix(const sMatrix& other) : Matrix(other) {}

sMatrix& sMatrix::operator=(const sMatrix& other) {
    if (this == &other)
        return *this;
    if (_rows != other._rows)
        reallocate(other._rows, other._cols, other.stored());
    if (_data)
        std::memcpy(_data, other._data, sizeof(double) * stored());
    return *this;
}

const MatrixLine& sMatrix::operator[](int row) const {
    _line._packed = _data;
    _line._row = row;
    return _line;
}

MatrixLine& sMatrix::operator[](int row) {
    _line._packed = _data;
    _line._row = row;
    return _line;
}

void sMatrix::clear() {
    *this <<= 0.0;
}

void sMatrix::resize(int n) {
    if (n == _rows)
        return;
    reallocate(n, n, packed_size(n));
    for (int i = 0; i < n; ++i)
        _data[i] = 0.0;
}

void sMatrix::cholesky(bool& ok) {
    ok = true;
    auto a = [this](int i, int j) -> double& { return _data[i * (i + 1) / 2 + j]; };
    for (int i = 0; i < _rows; ++i) {
        for (int j = 0; j < i; ++j) {
            double sum = a(i, j);
            for (int k = 0; k < j; ++k)
                sum -= a(i, k) * a(j, k);
            a(i, j) = sum / a(j, j);
        }
        double d = a(i, i);
        for (int k = 0; k < i; ++k)
            d -= a(i, k) * a(i, k);
        if (d <= 1e-10) {
            std::printf("pivot = %d, summe = %f \n", i, d);
            std::fflush(stdout);
            ok = false;
        } else {
            a(i, i) = std::sqrt(d);
        }
    }
}

sMatrix& sMatrix::operator<<=(double value) {
    for (int i = 0; i < stored(); ++i)
        _data[i] = value;
    return *this;
}

sMatrix& sMatrix::operator*=(double factor) {
    for (int i = 0; i < stored(); ++i)
        _data[i] *= factor;
    return *this;
}

sMatrix& sMatrix::operator+=(const sMatrix& other) {
    for (int i = 0; i < stored(); ++i)
        _data[i] += other._data[i];
    return *this;
}

sMatrix sMatrix::operator+(const sMatrix& other) const {
    sMatrix r(*this);
    r += other;
    return r;
}

sMatrix sMatrix::operator-(const sMatrix& other) const {
    sMatrix r(*this);
    for (int i = 0; i < stored(); ++i)
        r._data[i] -= other._data[i];
    return r;
}

sMatrix operator*(double factor, const sMatrix& m) {
    sMatrix r(m);
    r *= factor;
    return r;
}

aMatrix operator*(const sMatrix& s, const Matrix& m) {
    if (s.cols() != m.rows()) {
        std::fprintf(stderr, "\n<vmp::operator*(const sMatrix&, const Matrix&)>");
        return aMatrix();
    }
    aMatrix r(s.rows(), m.cols());
    for (int i = 0; i < s.rows(); ++i)
        for (int j = 0; j < m.cols(); ++j) {
            double sum = 0.0;
            for (int k = 0; k < s.cols(); ++k) {
                // One subscript at a time: both may share the static line object.
                const double left = s[i][k];
                sum += left * m[k][j];
            }
            r[i][j] = sum;
        }
    return r;
}

} // namespace vmp
