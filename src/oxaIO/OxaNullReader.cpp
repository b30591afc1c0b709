#include "oxaIO/OxaNullReader.h"

namespace oxaIO {

OxaNullReader::OxaNullReader() = default;
OxaNullReader::~OxaNullReader() = default;

} // namespace oxaIO
