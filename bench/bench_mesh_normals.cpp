// Making a closed mesh consistent and outward (correct_normals) and finding its edges
// (update_edges at 45 degrees) on meshes of 100 000 and 400 000 triangles with a third of the
// windings flipped at random: one torus, and a surface of scattered tetrahedra (one shell per
// four triangles). The time per triangle of both sizes shows how the work grows; the plain
// normal pass (update_normals) over the same mesh is the linear baseline.

#include "../tests/mesh3D/MeshFixtures.h"

#include "basic/numeric.h"
#include "model/System.h"

#include <QElapsedTimer>

#include <cstdio>
#include <random>

namespace {

struct Figures {
    double baseline;
    double prepared;
};

/// `count` tetrahedra at random places in a cube of 1000 units.
fixtures::Mesh scattered_tetrahedra(int count) {
    fixtures::Mesh mesh;
    std::mt19937 random(17);
    std::uniform_real_distribution<double> place(0, 1000);
    for (int i = 0; i < count; ++i) {
        const fixtures::Mesh one = fixtures::tetrahedron();
        const double shift[3] = {place(random), place(random), place(random)};
        const int first = mesh.points.size();
        for (auto p : one.points) {
            for (int k = 0; k < 3; ++k)
                p[k] += shift[k];
            mesh.points.append(p);
        }
        for (const auto& t : one.triangles)
            mesh.triangles.append({first + t[0], first + t[1], first + t[2]});
    }
    return mesh;
}

Figures measure(const char* what, const fixtures::Mesh& mesh, bool torus) {
    model::System system(false);
    mesh3D::Surface surface(nullptr, &system, "mesh", basic::unit_m);
    fixtures::build(surface, mesh, 0.33, 5);
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
    for (int t = 0; t < count; ++t) {
        const mesh3D::Triangle* triangle = surface.triangles()[t];
        if (torus) {
            outward += fixtures::faces_out_of_torus(*triangle);
        } else {
            const auto& corner = mesh.points[mesh.triangles[t][0] / 4 * 4];
            outward +=
                fixtures::faces_away(*triangle, {corner[0] + 0.25, corner[1] + 0.25, corner[2] + 0.25});
        }
    }
    std::printf("%s, %d triangles: correct_normals %.3f s, update_edges %.3f s, %.3f us per triangle "
                "(update_normals %.3f us per triangle); %d outward, %ld edges\n",
                what, count, corrected, edged, (corrected + edged) * 1e6 / count, baseline * 1e6 / count,
                outward, surface.count_edges());
    std::fflush(stdout);
    return Figures{baseline / count, (corrected + edged) / count};
}

} // namespace

int main() {
    const Figures small = measure("torus", fixtures::torus(250, 200), true);
    const Figures large = measure("torus", fixtures::torus(500, 400), true);
    const Figures few = measure("25 000 tetrahedra", scattered_tetrahedra(25000), false);
    const Figures many = measure("100 000 tetrahedra", scattered_tetrahedra(100000), false);
    std::printf("per triangle, 400 000 against 100 000: torus %.2f, tetrahedra %.2f; "
                "against update_normals at 400 000: torus %.1f, tetrahedra %.1f\n",
                large.prepared / small.prepared, many.prepared / few.prepared,
                large.prepared / large.baseline, many.prepared / many.baseline);
    std::printf("ratio %.2f (one shell), %.2f (a shell per 4 triangles)\n", large.prepared / small.prepared,
                many.prepared / few.prepared);
    return 0;
}
