#pragma once

#include "zentra_export.h"

class QString;

namespace basic {

/// Where a long algorithm reports how far it is and what it is doing. Copies carry nothing.
class ZENTRA_EXPORT IProgress {
public:
    IProgress() = default;
    IProgress(const IProgress&) {}
    IProgress& operator=(const IProgress&) { return *this; }
    virtual ~IProgress();

    virtual void progress(double fraction) = 0;
    virtual void message(const QString& text) = 0;
};

} // namespace basic
