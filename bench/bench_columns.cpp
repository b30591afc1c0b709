// The quick-search walk and the pivot table at two sizes each, so that a step that grows faster
// than the input shows in the ratio of the two times (2.0 for a linear step):
// - a top-level filter on a column of 200 materials linked to a column of surfaces, against a
//   bare partition of the same surfaces by the same choice;
// - a pivot table's setup and row numbering over one row per surface (50 000 and 100 000 rows),
//   against a bare walk over the same links.

#include "model/Object.h"
#include "model/QSColumnObject.h"
#include "model/QSItemObject.h"
#include "model/QSModelPivotTable.h"
#include "model/System.h"

#include <QSet>
#include <QVector>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>
#include <numeric>
#include <vector>

namespace {

constexpr int material_count = 200;
constexpr int chosen_count = 20;
constexpr int repeats = 7;

/// Processor time of this thread, so that other work on a shared machine does not count.
class CpuTimer {
public:
    CpuTimer() { _start = now(); }
    double seconds() const { return now() - _start; }

private:
    static double now() {
        timespec clock_value{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &clock_value);
        return clock_value.tv_sec + clock_value.tv_nsec / 1e9;
    }
    double _start;
};

/// The shortest of several runs, which is the least disturbed by the other work on the machine.
template <typename Run> double best_of(Run run) {
    double best = 1e30;
    for (int round = 0; round < repeats; ++round)
        best = std::min(best, run());
    return best;
}

/// Materials and surfaces in two linked columns; surface i uses material i % 200.
struct Project {
    model::System system{true};
    std::vector<std::unique_ptr<model::Object>> objects;
    std::unique_ptr<model::QSColumnObject> materials;
    std::unique_ptr<model::QSColumnObject> surfaces;
    QVector<int> material_of_surface;

    explicit Project(int surface_count) {
        materials.reset(new model::QSColumnObject(&system, "materials"));
        surfaces.reset(new model::QSColumnObject(&system, "surfaces"));
        materials->link_to(surfaces.get());
        objects.reserve(material_count + surface_count);
        for (int m = 0; m < material_count; ++m)
            materials->item(make("m" + QString::number(m)));
        material_of_surface.reserve(surface_count);
        for (int s = 0; s < surface_count; ++s) {
            model::QSItemObject* surface = surfaces->item(make("s" + QString::number(s)));
            surface->link_to(materials->items().at(s % material_count));
            material_of_surface.append(s % material_count);
        }
    }
    model::Object* make(const QString& id) {
        objects.emplace_back(new model::Object(&system, id));
        return objects.back().get();
    }
};

/// A top-level filter on every tenth material; the surfaces that use them stay active.
double time_filter(Project& project) {
    return best_of([&project] {
        project.system.clearAllFilters();
        QList<int> chosen;
        for (int m = 0; m < material_count; m += material_count / chosen_count)
            chosen.append(m);
        const CpuTimer timer;
        project.materials->filter(chosen);
        const double elapsed = timer.seconds();
        const int expected = project.material_of_surface.size() / (material_count / chosen_count);
        if (project.surfaces->active() != expected)
            std::printf("filter left %d surfaces active instead of %d\n", project.surfaces->active(),
                        expected);
        return elapsed;
    });
}

/// The same choice done with bare containers: the places of the surfaces that use a chosen
/// material, moved to the front of a list of places.
double time_bare_partition(const Project& project) {
    return best_of([&project] {
        QSet<int> chosen;
        for (int m = 0; m < material_count; m += material_count / chosen_count)
            chosen.insert(m);
        const CpuTimer timer;
        QVector<int> order(project.material_of_surface.size());
        std::iota(order.begin(), order.end(), 0);
        std::stable_partition(order.begin(), order.end(),
                              [&](int s) { return chosen.contains(project.material_of_surface.at(s)); });
        return timer.seconds();
    });
}

/// A pivot table of materials and their surfaces: setup and numbering, one row per surface.
double time_pivot(Project& project) {
    project.system.clearAllFilters();
    return best_of([&project] {
        model::QSModelPivotTable pivot(&project.system);
        pivot.add_column(project.materials.get());
        pivot.add_column(project.surfaces.get());
        const CpuTimer timer;
        pivot.setup();
        model::QSModelPivotTable::update_models(&project.system);
        const double elapsed = timer.seconds();
        if (pivot.rowCount() != project.material_of_surface.size())
            std::printf("pivot has %d rows instead of %d\n", pivot.rowCount(),
                        project.material_of_surface.size());
        return elapsed;
    });
}

/// The same links walked with bare containers: the surfaces of each material, in surface order.
double time_bare_walk(const Project& project) {
    return best_of([&project] {
        const CpuTimer timer;
        QVector<QVector<int>> rows(material_count);
        for (int s = 0; s < project.material_of_surface.size(); ++s)
            rows[project.material_of_surface.at(s)].append(s);
        int total = 0;
        for (const QVector<int>& row : qAsConst(rows))
            total += row.size();
        const double elapsed = timer.seconds();
        if (total != project.material_of_surface.size())
            std::printf("bare walk lost rows\n");
        return elapsed;
    });
}

} // namespace

int main() {
    // The filter and the pivot trace their steps on standard output; the figures follow at the end.
    struct Figures {
        int surfaces;
        double filter, partition, pivot, walk;
    };
    std::vector<Figures> figures;
    for (const int surface_count : {100000, 200000}) {
        Project project(surface_count);
        Figures measured{surface_count, time_filter(project), time_bare_partition(project), 0, 0};
        Project rows(surface_count / 2);
        measured.pivot = time_pivot(rows);
        measured.walk = time_bare_walk(rows);
        figures.push_back(measured);
    }
    std::printf("\n");
    for (const Figures& f : figures) {
        std::printf(
            "filter %d of %d materials over %d surfaces: %.4f s; bare partition: %.4f s; ratio %.1f\n",
            chosen_count, material_count, f.surfaces, f.filter, f.partition, f.filter / f.partition);
        std::printf(
            "pivot setup and numbering, %d rows: %.4f s; bare walk of the links: %.4f s; ratio %.1f\n",
            f.surfaces / 2, f.pivot, f.walk, f.pivot / f.walk);
    }
    // The baselines' own ratios show what the larger working set alone costs.
    std::printf("filter, 200 000 vs 100 000 surfaces: ratio %.2f (bare partition %.2f)\n",
                figures[1].filter / figures[0].filter, figures[1].partition / figures[0].partition);
    std::printf("pivot, 100 000 vs 50 000 rows: ratio %.2f (bare walk %.2f)\n",
                figures[1].pivot / figures[0].pivot, figures[1].walk / figures[0].walk);
    return 0;
}
