#pragma once

#include "geometry/primitives.h"
#include "zentra_export.h"

namespace basic {
class IProgress;
}

namespace geometry3D {

class OBB;
class Octree;

/// Deterministic search for the oriented box of least volume: a nested grid over the three
/// rotation angles, where each cell is judged by its box volume integrated over the cell, and the
/// best cell is refined until it is smaller than a limit. Reports its steps to `progress`, which
/// may be null and is not owned.
class ZENTRA_EXPORT OOBBCalculator {
public:
    explicit OOBBCalculator(basic::IProgress* progress);

    /// Searches all three angles over 0 to pi, refining down to a cell volume of `eps`.
    OBB CalcOptOBB(const Octree* octree, double eps);
    /// The box of the best cell of `box` (angles as coordinates) on a grid of `divisions` per
    /// axis, refined with 4 divisions per level until a cell's volume drops below `eps`; the
    /// first of equally good cells wins. The result carries the angles of the final cell centre.
    OBB GetOptimum(const Octree* octree, boundingbox box, double eps, int divisions);
    /// The volume of the cell `box` in angle space times the sum of the box volumes at the
    /// eight two-point Gauss-Legendre nodes of the cell (unweighted), so that cells of equal
    /// size compare directly. Smaller is better.
    double CalcIntegral(boundingbox box, const Octree* octree);

private:
    basic::IProgress* _progress;
};

} // namespace geometry3D
