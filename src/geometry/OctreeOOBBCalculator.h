#pragma once

#include "geometry/IOptimizable.h"
#include "zentra_export.h"

namespace geometry3D {

class OBB;
class Octree;

/// The oriented box of least volume found by the evolution strategy over all three rotation
/// angles, each searched in -0.1 to pi/2 + 0.1. Holds the tree only during `CalcOptOBB`.
class ZENTRA_EXPORT OctreeOOBBCalculator : public optimization::IOptimizable {
public:
    OctreeOOBBCalculator() = default;

    /// The negative box volume of the angles x[0..2]; 1.23456 and invalid without a tree or
    /// with an angle outside the limits (the limits themselves are valid).
    optimization::Fitness CalcFitness(double* x) override;
    long CountParameters() const override { return 3; }
    double GetLowerLimit() const override;
    double GetUpperLimit() const override;

    /// The box of the best angles found; its angles stay zero.
    OBB CalcOptOBB(const Octree* octree);

private:
    const Octree* _octree = nullptr;
};

} // namespace geometry3D
