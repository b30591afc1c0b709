#include "model/QSItemObject.h"

#include "model/Object.h"

namespace model {

int QSItemObject::kind() const { return 1; }

QVariant QSItemObject::value() const { return _object->id(); }

} // namespace model
