#pragma once

#include "geometry/IOptimizable.h"
#include "zentra_export.h"

namespace geometry3D {

class OBB;
class Octree;

/// As `OctreeOOBBCalculator`, with some of the three angles held fixed: a negative angle is
/// searched, any other value is kept. Suits elements whose orientation is partly known, such as
/// walls standing upright.
class ZENTRA_EXPORT OctreeOOBBCalculatorAlpha : public optimization::IOptimizable {
public:
    OctreeOOBBCalculatorAlpha(double alpha, double beta, double gamma);

    /// The negative box volume with the free angles taken from x in order. Without a tree or
    /// a free angle, 1.23456 and invalid. An out-of-limit entry returns what was computed for
    /// the entries before it, so that an out-of-limit first entry gives 1.23456 and invalid.
    optimization::Fitness CalcFitness(double* x) override;
    /// The number of free angles.
    long CountParameters() const override { return _free_count; }
    double GetLowerLimit() const override;
    double GetUpperLimit() const override;

    /// The box of the best free angles found, with all three angles stored in it; the found
    /// values also replace the free ones in this calculator.
    OBB CalcOptOBB(const Octree* octree);

private:
    const Octree* _octree = nullptr;
    double _alpha;
    double _beta;
    double _gamma;
    int _free_count;
};

} // namespace geometry3D
