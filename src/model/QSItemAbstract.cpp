#include "model/QSItemAbstract.h"

#include "model/QSColumnAbstract.h"
#include "model/System.h"

namespace model {

QSItemAbstract::~QSItemAbstract() {
    for (QSItemAbstract* partner : qAsConst(_links))
        partner->_links.remove(this);
}

bool QSItemAbstract::is_active() const { return _column && _column->index(this) < _column->active(); }

bool QSItemAbstract::link_to(QSItemAbstract* other) {
    if (!_column || !other || !other->_column)
        return false;
    if (_column->graph().get(_column, other->_column).is_null())
        return false;
    _links.insert(other);
    other->_links.insert(this);
    return true;
}

bool QSItemAbstract::unlink(QSItemAbstract* other) {
    const bool held = _links.remove(other);
    if (other)
        other->_links.remove(this);
    return held;
}

} // namespace model
