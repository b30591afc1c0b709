#include "basic/StdProgress.h"

#include <QString>

#include <cstdio>

namespace basic {

IProgress::~IProgress() = default;

void StdProgress::progress(double fraction) { std::printf("%.3f\n", fraction); }

void StdProgress::message(const QString& text) { std::printf("%s\n", text.toLatin1().constData()); }

} // namespace basic
