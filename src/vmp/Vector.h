#pragma once

#include "zentra_export.h"

namespace vmp {

/// A dense vector of doubles whose length is chosen at run time. It owns one flat array and
/// checks nothing: indexing is unchecked, and operations between vectors of different lengths
/// follow the rules documented at each operation rather than failing.
class ZENTRA_EXPORT Vector {
public:
    /// `n` zeros; a length below 1 keeps no storage.
    explicit Vector(int n = 0);
    Vector(int n, const double* values);
    Vector(double x, double y, double z);
    Vector(const Vector& other);
    virtual ~Vector();

    /// The one shared empty vector.
    static const Vector& null();

    int size() const { return _size; }
    double* data() { return _data; }
    const double* data() const { return _data; }

    double& operator[](int i) { return _data[i]; }
    double operator[](int i) const { return _data[i]; }

    /// Reallocates when `n` differs from the current length, leaving the contents undefined;
    /// the same length keeps the contents.
    void resize(int n);

    Vector& operator=(const Vector& other);
    /// Fills every component with `value`.
    Vector& operator<<=(double value);

    /// Exact comparison of length and every component, without tolerance.
    bool operator==(const Vector& other) const;
    bool operator!=(const Vector& other) const { return !(*this == other); }

    /// Dot product; 0.0 when the lengths differ.
    double operator*(const Vector& other) const;
    Vector operator*(double factor) const;
    /// Component-wise; a division by zero is not guarded.
    Vector operator/(double divisor) const;
    /// The operators below run over this vector's length and do not look at the other's.
    Vector operator+(const Vector& other) const;
    Vector operator-(const Vector& other) const;
    Vector& operator+=(const Vector& other);
    Vector& operator-=(const Vector& other);

    /// Euclidean length.
    double quantity() const;
    /// Divides by `quantity()`; a zero vector becomes non-finite.
    void normalize();

private:
    int _size = 0;
    double* _data = nullptr;
};

ZENTRA_EXPORT Vector operator*(double factor, const Vector& v);

/// Cross product of two vectors of length 3; any other length gives a zero vector of length 3.
ZENTRA_EXPORT Vector cross(const Vector& a, const Vector& b);

/// Cross product of two vectors of length 2, as a vector of length 3 with only z set; other
/// lengths give a zero vector of length 3.
ZENTRA_EXPORT Vector cross2D(const Vector& a, const Vector& b);

/// a . (b x c); -1.0 when `a` is not of length 3.
ZENTRA_EXPORT double triple_product(const Vector& a, const Vector& b, const Vector& c);

/// dot(a, b) / (|a| |b|).
ZENTRA_EXPORT double cosine(const Vector& a, const Vector& b);

/// Writes each component with `format` (one double conversion) to stdout, then `tail`
/// through "%s".
ZENTRA_EXPORT void print(const Vector& v, const char* tail = "\n", const char* format = " %f ");

} // namespace vmp
