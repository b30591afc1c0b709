// Octree insert against a hash of rounded coordinates, in random, sorted and chain order, and the
// time of the optimised oriented box of a 10 000-vertex element.

#include "basic/numeric.h"
#include "geometry/OBB.h"
#include "geometry/Octree.h"
#include "geometry/OctreeOOBBCalculator.h"
#include "geometry/Point.h"

#include <QHash>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <random>
#include <unistd.h>
#include <vector>

using namespace geometry3D;

namespace {

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Coordinates rounded to the welding distance, as a hash key.
struct RoundedKey {
    qint64 x, y, z;
    bool operator==(const RoundedKey& o) const { return x == o.x && y == o.y && z == o.z; }
};
uint qHash(const RoundedKey& k, uint seed = 0) {
    return ::qHash(k.x, seed) ^ (::qHash(k.y, seed) * 31u) ^ (::qHash(k.z, seed) * 1000003u);
}

/// Weld by a hash of rounded coordinates: the cheap alternative to the tree.
double hash_insert(const std::vector<point>& points, int& kept) {
    const auto start = Clock::now();
    QHash<RoundedKey, Point*> welded;
    welded.reserve(static_cast<int>(points.size()));
    std::vector<std::unique_ptr<Point>> store;
    store.reserve(points.size());
    for (const point& p : points) {
        const RoundedKey key{std::llround(p.x * 1e4), std::llround(p.y * 1e4), std::llround(p.z * 1e4)};
        auto it = welded.find(key);
        if (it == welded.end()) {
            store.push_back(std::make_unique<Point>(p));
            welded.insert(key, store.back().get());
        }
    }
    kept = welded.size();
    return seconds_since(start);
}

double octree_insert(const std::vector<point>& points, int& kept) {
    const auto start = Clock::now();
    std::vector<std::unique_ptr<Point>> store;
    store.reserve(points.size());
    {
        Octree tree(1e-8, 6);
        for (const point& p : points) {
            store.push_back(std::make_unique<Point>(p));
            if (tree.insert(store.back().get()) != store.back().get())
                store.pop_back();
        }
        kept = tree.count();
    }
    return seconds_since(start);
}

/// Insert into both and print one line with points per second and the ratio.
double compare(const char* name, const std::vector<point>& points) {
    int tree_kept = 0, hash_kept = 0;
    const double tree = octree_insert(points, tree_kept);
    const double hash = hash_insert(points, hash_kept);
    const double n = static_cast<double>(points.size());
    std::printf(
        "octree insert %zu points, %s: %.3f s (%.2f M points/s, %d kept); QHash of rounded coordinates: "
        "%.3f s (%.2f M points/s, %d kept); ratio %.2f\n",
        points.size(), name, tree, n / tree / 1e6, tree_kept, hash, n / hash / 1e6, hash_kept, tree / hash);
    std::fflush(stdout);
    return tree / hash;
}

/// Runs `job` with stdout sent to /dev/null: the optimisers report every generation there.
template <typename Job> double quietly(Job job) {
    std::fflush(stdout);
    const int saved = dup(1);
    const int devnull = open("/dev/null", O_WRONLY);
    dup2(devnull, 1);
    const auto start = Clock::now();
    job();
    std::fflush(stdout);
    const double elapsed = seconds_since(start);
    dup2(saved, 1);
    close(devnull);
    close(saved);
    return elapsed;
}

} // namespace

int main(int argc, char** argv) {
    const std::size_t n = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 1000000;
    std::mt19937_64 random(20261122);
    std::uniform_real_distribution<double> coordinate(0.0, 100.0);

    std::vector<point> points(n);
    for (point& p : points)
        p = point{coordinate(random), coordinate(random), coordinate(random)};
    compare("random order", points);

    std::sort(points.begin(), points.end(), [](const point& a, const point& b) {
        return a.x != b.x ? a.x < b.x : a.y != b.y ? a.y < b.y : a.z < b.z;
    });
    compare("sorted by x, y, z", points);

    // Every coordinate rising: each point lies beyond all before it, and the tree is one chain.
    std::vector<point> chain(n);
    for (std::size_t i = 0; i < n; ++i)
        chain[i] = point{i * 1e-3, i * 2e-3 + 5.0, i * 5e-4};
    const double chain_ratio = compare("rising in x, y and z (a chain)", chain);

    // A 10 000-vertex element: a turned slab of 100 x 100 points.
    Octree element(1e-8, 6);
    std::vector<std::unique_ptr<Point>> vertices;
    const double c = std::cos(0.4), s = std::sin(0.4);
    for (int i = 0; i < 100; ++i)
        for (int j = 0; j < 100; ++j) {
            const double x = i * 0.08, y = j * 0.03, z = ((i + j) % 2) * 0.25;
            vertices.push_back(std::make_unique<Point>(c * x - s * y, s * x + c * y, z));
            element.insert(vertices.back().get());
        }
    const auto walk_start = Clock::now();
    double sink = 0.0;
    const int walks = 200;
    for (int k = 0; k < walks; ++k)
        sink += element.CalcOBB(0.01 * k, 0.0, 0.0).CalcVolume();
    const double walk = seconds_since(walk_start) / walks;
    OBB grid, strategy;
    const double grid_time = quietly([&] { grid = element.CalcOptOBB(); });
    basic::random01();
    std::srand(1);
    const double strategy_time = quietly([&] { strategy = OctreeOOBBCalculator().CalcOptOBB(&element); });
    std::printf("box of %d vertices: one CalcOBB walk %.3f ms (checksum %.1f)\n", element.count(), walk * 1e3,
                sink);
    std::printf("CalcOptOBB grid search: %.3f s, volume %.4f; ratio %.0f walks\n", grid_time,
                std::fabs(grid.CalcVolume()), grid_time / walk);
    std::printf("OctreeOOBBCalculator strategy: %.3f s, volume %.4f; ratio %.0f walks\n", strategy_time,
                std::fabs(strategy.CalcVolume()), strategy_time / walk);
    std::printf("octree chain insert against QHash: ratio %.2f\n", chain_ratio);
    return 0;
}
