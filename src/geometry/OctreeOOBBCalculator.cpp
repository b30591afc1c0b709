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
    optimization::EvolutionSettings settings;
    settings.recombine_x = 1;
    settings.recombine_sigma = 1;
    settings.init_mode = 0;
    settings.sigma0 = 5.0;
    settings.precision = 0.0001;
    settings.generations = 150;
    settings.population = 550;
    settings.offspring = 100;
    basic::StdProgress console;
    double* best = optimization::EvolutionStrategy::optimise(this, settings, &console, &console);
    const OBB result = octree->CalcOBB(best[0], best[1], best[2]);
    delete[] best;
    _octree = nullptr;
    return result;
}

} // namespace geometry3D
