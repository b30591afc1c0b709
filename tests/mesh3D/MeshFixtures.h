#pragma once

// Closed meshes for the mesh tests and the benchmark: a tetrahedron, a cube and a torus, built
// into a surface through its welding octree, with each triangle's winding flipped at random so
// that the orientation code has work to do.

#include "mesh3D/Surface.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"

#include <QVector>

#include <array>
#include <cmath>
#include <random>

namespace fixtures {

struct Mesh {
    QVector<std::array<double, 3>> points;
    QVector<std::array<int, 3>> triangles;
};

inline Mesh tetrahedron(double dx = 0.0) {
    return Mesh{{{dx + 0, 0, 0}, {dx + 1, 0, 0}, {dx + 0, 1, 0}, {dx + 0, 0, 1}},
                {{0, 2, 1}, {0, 1, 3}, {0, 3, 2}, {1, 2, 3}}};
}

/// A unit cube at (dx, 0, 0), two triangles per side, wound outward.
inline Mesh cube(double dx = 0.0) {
    Mesh mesh;
    for (int i = 0; i < 8; ++i)
        mesh.points.append({dx + (i & 1), double((i >> 1) & 1), double((i >> 2) & 1)});
    const int quads[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4},
                             {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
    for (const auto& q : quads) {
        mesh.triangles.append({q[0], q[1], q[2]});
        mesh.triangles.append({q[0], q[2], q[3]});
    }
    return mesh;
}

/// A torus around the z axis (tube centre radius 3, tube radius 1) of 2 * rings * sides
/// triangles, wound outward.
inline Mesh torus(int rings, int sides) {
    Mesh mesh;
    const double pi = 3.14159265358979323846;
    for (int i = 0; i < rings; ++i) {
        const double u = 2 * pi * i / rings;
        for (int j = 0; j < sides; ++j) {
            const double v = 2 * pi * j / sides;
            const double r = 3.0 + std::cos(v);
            mesh.points.append({r * std::cos(u), r * std::sin(u), std::sin(v)});
        }
    }
    auto at = [&](int i, int j) { return (i % rings) * sides + (j % sides); };
    for (int i = 0; i < rings; ++i)
        for (int j = 0; j < sides; ++j) {
            mesh.triangles.append({at(i, j), at(i + 1, j), at(i + 1, j + 1)});
            mesh.triangles.append({at(i, j), at(i + 1, j + 1), at(i, j + 1)});
        }
    return mesh;
}

/// Adds the mesh to `surface`; each triangle's winding is reversed with probability
/// `flip_share` (a fixed seed keeps runs repeatable). Returns the number of flips.
inline int build(mesh3D::Surface& surface, const Mesh& mesh, double flip_share = 0.5, unsigned seed = 7) {
    QVector<mesh3D::Vertex*> kept;
    kept.reserve(mesh.points.size());
    for (const auto& p : mesh.points) {
        auto* made = new mesh3D::Vertex(p[0], p[1], p[2]);
        mesh3D::Vertex* holder = surface.add(made);
        if (holder != made)
            delete made;
        kept.append(holder);
    }
    std::mt19937 random(seed);
    std::bernoulli_distribution flip(flip_share);
    int flips = 0;
    for (const auto& t : mesh.triangles) {
        const bool flipped = flip(random);
        flips += flipped;
        surface.add(flipped ? new mesh3D::Triangle(kept[t[0]], kept[t[2]], kept[t[1]])
                            : new mesh3D::Triangle(kept[t[0]], kept[t[1]], kept[t[2]]));
    }
    return flips;
}

/// Whether the triangle's winding, (p1 - p0) x (p2 - p0), points away from `centre`, judged at
/// its centroid.
inline bool faces_away(const mesh3D::Triangle& t, const std::array<double, 3>& centre) {
    const auto& a = *t.point(0);
    const auto& b = *t.point(1);
    const auto& c = *t.point(2);
    const double u[3] = {b.x() - a.x(), b.y() - a.y(), b.z() - a.z()};
    const double v[3] = {c.x() - a.x(), c.y() - a.y(), c.z() - a.z()};
    const double n[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
    double dot = 0;
    for (int k = 0; k < 3; ++k)
        dot += n[k] * ((a[k] + b[k] + c[k]) / 3 - centre[k]);
    return dot > 0;
}

/// Whether the triangle of the torus of `torus()` points away from the tube's centre circle.
inline bool faces_out_of_torus(const mesh3D::Triangle& t) {
    double c[3] = {0, 0, 0};
    for (int i = 0; i < 3; ++i)
        for (int k = 0; k < 3; ++k)
            c[k] += t.point(i)->operator[](k) / 3;
    const double r = std::sqrt(c[0] * c[0] + c[1] * c[1]);
    return faces_away(t, {3.0 * c[0] / r, 3.0 * c[1] / r, 0.0});
}

} // namespace fixtures
