#include "vmp/Vector.h"

#include <cmath>
#include <cstdio>
#include <cstring>

namespace vmp {

namespace {
double* allocate(int n) {
    return n < 1 ? nullptr : new double[n];
}
} // namespace

Vector::Vector(int n) : _size(n), _data(allocate(n)) {
    if (_data)
        std::memset(_data, 0, sizeof(double) * n);
}

Vector::Vector(int n, const double* values) : _size(n), _data(allocate(n)) {
    if (_data)
        std::memcpy(_data, values, sizeof(double) * n);
}

Vector::Vector(double x, double y, double z) : _size(3), _data(new double[3]{x, y, z}) {}

Vector::Vector(const Vector& other) : Vector(other._size, other._data) {}

Vector::~Vector() {
    delete[] _data;
}

const Vector& Vector::null() {
    static const Vector _null;
    return _null;
}

void Vector::resize(int n) {
    if (n == _size)
        return;
    delete[] _data;
    _size = n;
    _data = allocate(n);
}

Vector& Vector::operator=(const Vector& other) {
    if (this == &other)
        return *this;
    resize(other._size);
    if (_data)
        std::memcpy(_data, other._data, sizeof(double) * _size);
    return *this;
}

Vector& Vector::operator<<=(double value) {
    for (int i = 0; i < _size; ++i)
        _data[i] = value;
    return *this;
}

bool Vector::operator==(const Vector& other) const {
    if (_size != other._size)
        return false;
    for (int i = 0; i < _size; ++i)
        if (_data[i] != other._data[i])
            return false;
    return true;
}

double Vector::operator*(const Vector& other) const {
    if (_size != other._size)
        return 0.0;
    double sum = 0.0;
    for (int i = 0; i < _size; ++i)
        sum += _data[i] * other._data[i];
    return sum;
}

Vector Vector::operator*(double factor) const {
    Vector r(*this);
    for (int i = 0; i < _size; ++i)
        r._data[i] *= factor;
    return r;
}

Vector Vector::operator/(double divisor) const {
    Vector r(*this);
    for (int i = 0; i < _size; ++i)
        r._data[i] /= divisor;
    return r;
}

Vector Vector::operator+(const Vector& other) const {
    Vector r(*this);
    r += other;
    return r;
}

Vector Vector::operator-(const Vector& other) const {
    Vector r(*this);
    r -= other;
    return r;
}

Vector& Vector::operator+=(const Vector& other) {
    for (int i = 0; i < _size; ++i)
        _data[i] += other._data[i];
    return *this;
}

Vector& Vector::operator-=(const Vector& other) {
    for (int i = 0; i < _size; ++i)
        _data[i] -= other._data[i];
    return *this;
}

double Vector::quantity() const {
    return std::sqrt(*this * *this);
}

void Vector::normalize() {
    const double length = quantity();
    for (int i = 0; i < _size; ++i)
        _data[i] /= length;
}

Vector operator*(double factor, const Vector& v) {
    return v * factor;
}

Vector cross(const Vector& a, const Vector& b) {
    if (a.size() != 3 || b.size() != 3)
        return Vector(3);
    return Vector(a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]);
}

Vector cross2D(const Vector& a, const Vector& b) {
    if (a.size() != 2 || b.size() != 2)
        return Vector(3);
    return Vector(0.0, 0.0, a[0] * b[1] - a[1] * b[0]);
}

double triple_product(const Vector& a, const Vector& b, const Vector& c) {
    if (a.size() != 3)
        return -1.0;
    return a * cross(b, c);
}

double cosine(const Vector& a, const Vector& b) {
    return (a * b) / (a.quantity() * b.quantity());
}

void print(const Vector& v, const char* tail, const char* format) {
    for (int i = 0; i < v.size(); ++i)
        std::printf(format, v[i]);
    std::printf("%s", tail);
    std::fflush(stdout);
}

} // namespace vmp
