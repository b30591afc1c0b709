#include "model/algorithm_library.h"

#include <QLibrary>
#include <QList>

#include <cstdio>

namespace model {

namespace {

/// Every library object made, never deleted: unloading would invalidate the algorithms handed
/// out. Held here so that they stay reachable to the end of the process.
QList<QLibrary*>& loaded_libraries() {
    // On the heap, so that the list outlives the static destructors as the libraries do.
    static auto* libraries = new QList<QLibrary*>;
    return *libraries;
}

} // namespace

void* load_algorithm_library(const QString& path) {
    auto* library = new QLibrary(path);
    loaded_libraries().append(library);
    if (!library->load()) {
        std::fputs("error while loading algorithm library \n", stderr);
        return nullptr;
    }
    std::fputs("algorithm library loaded.\n", stderr);
    using create_function = void* (*)();
    auto create = reinterpret_cast<create_function>(library->resolve("create_algorithm"));
    if (!create) {
        std::fputs("createAlgorithm error \n", stderr);
        return nullptr;
    }
    void* algorithm = create();
    std::fputs("algorithm created.\n", stdout);
    std::fflush(stdout);
    return algorithm;
}

} // namespace model
