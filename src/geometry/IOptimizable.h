#pragma once

#include "zentra_export.h"

namespace optimization {

/// The result of one evaluation: greater `value` is better; a non-zero `invalid` keeps the
/// candidate out of the population.
struct Fitness {
    double value;
    int invalid;
};

/// A problem the evolution strategy can maximise: a number of real parameters that all share
/// one pair of limits, and a fitness for each candidate.
class ZENTRA_EXPORT IOptimizable {
public:
    virtual ~IOptimizable();
    virtual Fitness CalcFitness(double* x) = 0;
    virtual long CountParameters() const = 0;
    virtual double GetLowerLimit() const = 0;
    virtual double GetUpperLimit() const = 0;
};

} // namespace optimization
