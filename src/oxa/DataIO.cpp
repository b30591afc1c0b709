#include "oxa/DataIO.h"

namespace oxa {

DataIO::~DataIO() = default;

QStringList DataIO::supported_formats() const {
    return QStringList();
}

} // namespace oxa
