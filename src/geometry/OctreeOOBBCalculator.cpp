#include "geometry/OctreeOOBBCalculator.h"

#include "basic/StdProgress.h"
#include "geometry/EvolutionStrategy.h"
#include "geometry/OBB.h"
#include "geometry/Octree.h"

namespace geometry3D {

optimization::Fitness OctreeOOBBCalculator::CalcFitness(double* x) {
    const optimization::Fitness refused{1.23456, 1};
    if (!_octree)
        return refused;
    for (int i = 0; i < 3; ++i)
        if (x[i] < GetLowerLimit() || x[i] > GetUpperLimit())
            return refused;
    return optimization::Fitness{-_octree->CalcOBB(x[0], x[1], x[2]).CalcVolume(), 0};
}

double OctreeOOBBCalculator::GetLowerLimit() const {
    return -0.1;
}

double OctreeOOBBCalculator::GetUpperLimit() const {
    return 1.6707963267948966;
}

OBB OctreeOOBBCalculator::CalcOptOBB(const Octree* octree) {
    _octree = octree;
    basic::StdProgress console;
    double* best = optimization::EvolutionStrategy::optimise(
        this, optimization::box_search_settings(0.0001, 550, 100), &console, &console);
    const OBB result = octree->CalcOBB(best[0], best[1], best[2]);
    delete[] best;
    _octree = nullptr;
    return result;
}

} // namespace geometry3D
