#include "model/exceptions.h"

namespace model {

// Out-of-line destructors anchor each class's type information in the library, so that a host
// catches the same type that the library throws.
NoSuchProperty_Exception::~NoSuchProperty_Exception() = default;
NoSuchMethod_Exception::~NoSuchMethod_Exception() = default;
NoSuchRepository_Exception::~NoSuchRepository_Exception() = default;

} // namespace model
