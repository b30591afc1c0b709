// Registering and finding model objects by identifier, against a bare QHash of the same keys;
// and the memory that one fresh object costs.

#include "basic/identifier.h"
#include "model/Object.h"
#include "model/System.h"

#include <QElapsedTimer>
#include <QHash>
#include <QStringList>
#include <QVector>

#include <malloc.h>

#include <cstdio>
#include <memory>

namespace {

constexpr int object_count = 1000000;

double seconds(const QElapsedTimer& timer) { return timer.nsecsElapsed() / 1e9; }

size_t heap_in_use() { return mallinfo2().uordblks; }

/// Bytes on the heap per object made by `make`, over `count` objects kept alive.
template <typename Make> double heap_per_object(int count, Make make) {
    std::vector<std::unique_ptr<model::Object>> kept;
    kept.reserve(count);
    const size_t before = heap_in_use();
    for (int i = 0; i < count; ++i)
        kept.emplace_back(make());
    const size_t after = heap_in_use();
    return double(after - before) / count;
}

} // namespace

int main() {
    QVector<QString> ids;
    ids.reserve(object_count);
    for (int i = 0; i < object_count; ++i)
        ids.append(basic::create_ID());

    // Baseline: the bare hash of the same keys.
    QElapsedTimer timer;
    timer.start();
    QHash<QString, void*> bare;
    for (const QString& id : qAsConst(ids))
        bare.insert(id, const_cast<QString*>(&id));
    const double bare_insert = seconds(timer);
    timer.restart();
    size_t bare_found = 0;
    for (const QString& id : qAsConst(ids))
        bare_found += bare.value(id) != nullptr;
    const double bare_lookup = seconds(timer);

    // Subject: objects registered in a system at construction, then found through it.
    model::System system(false);
    std::vector<model::Object*> objects;
    objects.reserve(object_count);
    timer.restart();
    for (const QString& id : qAsConst(ids))
        objects.push_back(new model::Object(&system, id));
    const double model_insert = seconds(timer);
    timer.restart();
    size_t model_found = 0;
    for (const QString& id : qAsConst(ids))
        model_found += system.object(id) != nullptr;
    const double model_lookup = seconds(timer);
    timer.restart();
    for (model::Object* object : objects)
        delete object;
    const double model_delete = seconds(timer);
    if (bare_found != size_t(object_count) || model_found != size_t(object_count)) {
        std::printf("lookup failed: %zu and %zu of %d found\n", bare_found, model_found, object_count);
        return 1;
    }

    std::printf("register %d objects: %.3f s; bare QHash insert: %.3f s; ratio %.2f\n", object_count,
                model_insert, bare_insert, model_insert / bare_insert);
    std::printf("look up %d objects by id: %.3f s; bare QHash value: %.3f s; ratio %.2f\n", object_count,
                model_lookup, bare_lookup, model_lookup / bare_lookup);
    std::printf("delete %d objects (leaving the repository): %.3f s\n", object_count, model_delete);

    const int sample = 100000;
    const double unregistered =
        heap_per_object(sample, [] { return new model::Object(basic::create_ID(), nullptr); });
    const double registered = heap_per_object(sample, [&system] { return new model::Object(&system); });
    std::printf("fresh object: sizeof %zu bytes; heap with its id %.1f bytes; with its repository "
                "entry %.1f bytes\n",
                sizeof(model::Object), unregistered, registered);
    std::printf("register and look up: %.3f s; bare QHash: %.3f s; ratio %.2f\n", model_insert + model_lookup,
                bare_insert + bare_lookup, (model_insert + model_lookup) / (bare_insert + bare_lookup));
    return 0;
}
