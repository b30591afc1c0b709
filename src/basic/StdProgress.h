#pragma once

#include "basic/IProgress.h"

namespace basic {

/// Progress on the console: each fraction as "%.3f" and each message as a Latin-1 line on stdout.
class ZENTRA_EXPORT StdProgress : public IProgress {
public:
    void progress(double fraction) override;
    void message(const QString& text) override;
};

} // namespace basic
