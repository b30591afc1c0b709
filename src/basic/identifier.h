#pragma once

#include "zentra_export.h"

#include <QString>

namespace basic {

/// A new object identifier "{process-uuid}-<hex counter>": unique across processes through the
/// prefix, which is made once per process, and cheap within one. Not thread-safe.
ZENTRA_EXPORT QString create_ID();

} // namespace basic
