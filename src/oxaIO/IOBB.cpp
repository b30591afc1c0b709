#include "oxaIO/IOBB.h"

namespace oxaIO {

IOBB::~IOBB() = default;

} // namespace oxaIO
