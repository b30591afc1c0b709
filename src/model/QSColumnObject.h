#pragma once

#include "zentra_export.h"

#include "model/QSColumnAbstract.h"

#include <QHash>

namespace model {

class Object;
class QSItemObject;
class QSModelAbstract;

/// A column of model objects, with the map from object to item. Items are made on first demand
/// by `item` and owned by the column; the objects are not. By default the column makes and owns
/// its own table model; a derived column that shows more of its objects sets its own instead.
class ZENTRA_EXPORT QSColumnObject : public QSColumnAbstract, public QHash<Object*, QSItemObject*> {
    Q_OBJECT
public:
    /// With its own `QSModelObject`.
    QSColumnObject(System* system, const QString& name);
    /// Without a model: the derived class sets `table_model`, and owns it if `owns_model` is false.
    QSColumnObject(System* system, const QString& name, bool owns_model);
    /// Deletes every item, then the model if the column owns it.
    ~QSColumnObject() override;

    /// 1: the items stand for model objects.
    int kind() const override;
    QAbstractItemModel* model() const override;
    /// Sorts all items by identifier text, ascending. The recorded places and `active()` are left
    /// as they were, which makes this a step for a column that is being filled: sort before the
    /// first filter, and don't ask `index` until the column is filled anew. Hosts sort right
    /// after loading, when there is nothing to keep in step.
    void sort() override;
    /// The active places, in order, whose item's identifier contains a match of the wildcard
    /// pattern (case-sensitive; "a*" finds "xab", since the pattern is searched inside the text).
    QList<int> matches(const QString& pattern) override;

    /// The object's item, made and appended on first use; null for a null object.
    QSItemObject* item(Object* object);
    /// Deletes the object's item, if it has one. The places recorded for the items behind it and
    /// `active()` are not adjusted: hosts remove objects only while tearing a column down or
    /// before the next `clear_filter`, which puts both right.
    void remove(Object* object);

protected:
    QSModelAbstract* table_model = nullptr;
    bool owns_model;
};

} // namespace model
