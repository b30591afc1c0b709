#include "model/algorithm_library.h"

#include <QLibrary>

#include <cstdio>

namespace model {

void* load_algorithm_library(const QString& path) {
    // Deliberately never deleted: unloading would invalidate the algorithm handed out.
    auto* library = new QLibrary(path);
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
