// Making a closed mesh consistent and outward (correct_normals) and finding its edges
// (update_edges at 45 degrees) on tori of 100 000 and 400 000 triangles with a third of the
// windings flipped at random. The time per triangle of both sizes shows how the work grows;
// the plain normal pass (update_normals) over the same mesh is the linear baseline.

#include "../tests/mesh3D/MeshFixtures.h"

#include "basic/numeric.h"
#include "model/System.h"

#include <QElapsedTimer>

#include <cstdio>

namespace {

struct Figures {
    double baseline;
    double prepared;
};

Figures measure(int rings, int sides) {
    model::System system(false);
    mesh3D::Surface surface(nullptr, &system, "torus", basic::unit_m);
    fixtures::build(surface, fixtures::torus(rings, sides), 0.33, 5);
    const int count = surface.triangles().size();

    QElapsedTimer timer;
    timer.start();
    surface.update_normals();
    const double baseline = timer.nsecsElapsed() / 1e9;

    timer.restart();
    surface.correct_normals();
    const double corrected = timer.nsecsElapsed() / 1e9;
    surface.update_normals();
    timer.restart();
    surface.update_edges(basic::to_radians(45.0));
    const double edged = timer.nsecsElapsed() / 1e9;

    int outward = 0;
    for (const mesh3D::Triangle* t : surface.triangles())
        outward += fixtures::faces_out_of_torus(*t);
    std::printf("%d triangles: correct_normals %.3f s, update_edges %.3f s, %.3f us per triangle "
                "(update_normals %.3f us per triangle); %d outward, %ld edges\n",
                count, corrected, edged, (corrected + edged) * 1e6 / count, baseline * 1e6 / count, outward,
                surface.count_edges());
    std::fflush(stdout);
    return Figures{baseline / count, (corrected + edged) / count};
}

} // namespace

int main() {
    const Figures small = measure(250, 200);
    const Figures large = measure(500, 400);
    std::printf("per triangle, 400 000 against 100 000: %.2f; against update_normals at 400 000: %.1f\n",
                large.prepared / small.prepared, large.prepared / large.baseline);
    std::printf("ratio %.2f\n", large.prepared / small.prepared);
    return 0;
}
