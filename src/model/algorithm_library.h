#pragma once

#include "zentra_export.h"

#include <QString>

namespace model {

/// Loads the shared library at `path` and returns what its exported function
/// `create_algorithm` (no arguments, a pointer result) gives, or null when the library cannot be
/// loaded or lacks the function; each step is told on the standard streams. The result is
/// opaque to this library. The library is never unloaded, so a created algorithm stays valid to
/// the end of the process; each call loads anew.
ZENTRA_EXPORT void* load_algorithm_library(const QString& path);

} // namespace model
