#pragma once

#include "zentra_export.h"

#include "model/QSItemAbstract.h"

namespace model {

class Object;

/// An item that stands for a model object, which it does not own; it shows the object's
/// identifier.
class ZENTRA_EXPORT QSItemObject : public QSItemAbstract {
public:
    explicit QSItemObject(Object* object) : _object(object) {}

    /// 1: the item stands for a model object.
    int kind() const override;
    /// The object's identifier.
    QVariant value() const override;

    Object* object() const { return _object; }

private:
    Object* _object;
};

} // namespace model
