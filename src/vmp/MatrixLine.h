#pragma once

#include "zentra_export.h"

namespace vmp {

/// One row of a matrix as handed out by `Matrix::operator[]`. Each matrix class keeps a single
/// line object that every subscript refills, so `m[i][j]` allocates nothing, and a line
/// reference is only valid until the next subscript of a matrix of the same class.
class ZENTRA_EXPORT MatrixLine {
public:
    virtual ~MatrixLine();
    virtual double operator[](int column) const = 0;
    virtual double& operator[](int column) = 0;
    /// The row this line currently stands for.
    virtual int row() const = 0;
};

} // namespace vmp
