#include "geometry/OOBBCalculator.h"

#include "basic/IProgress.h"
#include "geometry/OBB.h"
#include "geometry/Octree.h"

#include <QString>

#include <cmath>

namespace geometry3D {

OOBBCalculator::OOBBCalculator(basic::IProgress* progress) : _progress(progress) {}

OBB OOBBCalculator::CalcOptOBB(const Octree* octree, double eps) {
    return GetOptimum(octree, boundingbox{0.0, 0.0, M_PI, M_PI, 0.0, M_PI}, eps, 6);
}

OBB OOBBCalculator::GetOptimum(const Octree* octree, boundingbox box, double eps, int divisions) {
    // Each level narrows the cell by its division count, so a level is a loop turn.
    for (;;) {
        if (_progress)
            _progress->message("<GetOptimum>");
        if (volume(box) < eps) {
            const point c = center(box);
            OBB result = octree->CalcOBB(c.x, c.y, c.z);
            result.angles(c.x, c.y, c.z);
            if (_progress)
                _progress->message("</GetOptimum>");
            return result;
        }
        double best = 1e15;
        const double dx = (box.xmax - box.xmin) / divisions;
        const double dy = (box.ymax - box.ymin) / divisions;
        const double dz = (box.zmax - box.zmin) / divisions;
        if (_progress)
            _progress->message(QString::asprintf("dx = %.3f, dy = %.3f, dz = %.3f", dx, dy, dz));
        boundingbox best_cell = box;
        bool found = false;
        for (int i = 0; i < divisions; ++i)
            for (int j = 0; j < divisions; ++j)
                for (int k = 0; k < divisions; ++k) {
                    const boundingbox cell{box.xmin + i * dx,       box.ymin + j * dy,
                                           box.xmin + (i + 1) * dx, box.ymin + (j + 1) * dy,
                                           box.zmin + k * dz,       box.zmin + (k + 1) * dz};
                    const double integral = CalcIntegral(cell, octree);
                    // Cells of large models in small units can integrate to more than the start
                    // value; the first cell then still counts, so that the search always narrows.
                    if (integral < best || !found) {
                        found = true;
                        best = integral;
                        best_cell = cell;
                    }
                }
        if (_progress) {
            _progress->message(QString::asprintf("opt: (%.3f/%.3f) (%.3f/%.3f) (%.3f/%.3f) = %.3f",
                                                 best_cell.xmin, best_cell.xmax, best_cell.ymin,
                                                 best_cell.ymax, best_cell.zmin, best_cell.zmax, best));
            _progress->message("</GetOptimum>");
        }
        box = best_cell;
        divisions = 4;
    }
}

double OOBBCalculator::CalcIntegral(boundingbox box, const Octree* octree) {
    static const double gauss[2] = {-0.577350269189626, 0.577350269189626};
    auto node = [](double min, double max, double g) { return ((1.0 - g) * min + (1.0 + g) * max) * 0.5; };
    double sum = 0.0;
    for (double gx : gauss)
        for (double gy : gauss)
            for (double gz : gauss)
                sum += octree
                           ->CalcOBB(node(box.xmin, box.xmax, gx), node(box.ymin, box.ymax, gy),
                                     node(box.zmin, box.zmax, gz))
                           .CalcVolume();
    return sum * volume(box);
}

} // namespace geometry3D
