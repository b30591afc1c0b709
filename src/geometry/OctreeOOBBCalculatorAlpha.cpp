#include "geometry/OctreeOOBBCalculatorAlpha.h"

#include "basic/StdProgress.h"
#include "geometry/EvolutionStrategy.h"
#include "geometry/OBB.h"
#include "geometry/Octree.h"
#include "geometry/OctreeOOBBCalculator.h"

namespace geometry3D {

OctreeOOBBCalculatorAlpha::OctreeOOBBCalculatorAlpha(double alpha, double beta, double gamma)
    : _alpha(alpha), _beta(beta), _gamma(gamma),
      _free_count((alpha < 0 ? 1 : 0) + (beta < 0 ? 1 : 0) + (gamma < 0 ? 1 : 0)) {}

double OctreeOOBBCalculatorAlpha::GetLowerLimit() const {
    return OctreeOOBBCalculator().GetLowerLimit();
}

double OctreeOOBBCalculatorAlpha::GetUpperLimit() const {
    return OctreeOOBBCalculator().GetUpperLimit();
}

optimization::Fitness OctreeOOBBCalculatorAlpha::CalcFitness(double* x) {
    optimization::Fitness fitness{1.23456, 1};
    if (!_octree)
        return fitness;
    // The box is the same for every entry; it is computed once per free angle all the same,
    // which keeps an out-of-limit entry from discarding what the entries before it gave.
    for (long i = 0; i < CountParameters(); ++i) {
        if (x[i] < GetLowerLimit() || x[i] > GetUpperLimit())
            return fitness;
        fitness.invalid = 0;
        int next = 0;
        const double a = _alpha < 0 ? x[next++] : _alpha;
        const double b = _beta < 0 ? x[next++] : _beta;
        const double c = _gamma < 0 ? x[next++] : _gamma;
        fitness.value = -_octree->CalcOBB(a, b, c).CalcVolume();
    }
    return fitness;
}

OBB OctreeOOBBCalculatorAlpha::CalcOptOBB(const Octree* octree) {
    _octree = octree;
    basic::StdProgress console;
    double* best = optimization::EvolutionStrategy::optimise(
        this, optimization::box_search_settings(0.001, 100, 50), &console, &console);
    int next = 0;
    if (_alpha < 0)
        _alpha = best[next++];
    if (_beta < 0)
        _beta = best[next++];
    if (_gamma < 0)
        _gamma = best[next++];
    delete[] best;
    OBB result = octree->CalcOBB(_alpha, _beta, _gamma);
    result.angles(_alpha, _beta, _gamma);
    _octree = nullptr;
    return result;
}

} // namespace geometry3D
