#include "basic/Exception.h"

namespace basic {

const QString exception_kind_text = QStringLiteral("Exception");
const QString out_of_memory_exception_kind_text = QStringLiteral("OutOfMemoryException");

Exception::~Exception() = default;

} // namespace basic
