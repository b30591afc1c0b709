#pragma once

#include "zentra_export.h"

#include <QStringList>

namespace model {

/// Removes repeated texts in place, keeping the first occurrence of each in its order. A plain
/// pairwise comparison: meant for the short lists of names it is used on.
ZENTRA_EXPORT void remove_duplicates(QStringList& list);

} // namespace model
