#pragma once

#include "zentra_export.h"

#include <QStringList>

namespace oxa {

/// Base of the importers of side formats. Its one job is to name the file patterns an importer
/// reads, so that a host can build its file dialogs from the importers it has.
class ZENTRA_EXPORT DataIO {
public:
    virtual ~DataIO();
    /// The file patterns ("*.ext") of the format; none here.
    virtual QStringList supported_formats() const;
};

} // namespace oxa
