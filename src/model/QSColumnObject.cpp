#include "model/QSColumnObject.h"

#include "model/Object.h"
#include "model/QSItemObject.h"
#include "model/QSModelObject.h"

#include <QRegExp>

#include <algorithm>

namespace model {

QSColumnObject::QSColumnObject(System* system, const QString& name)
    : QSColumnAbstract(system, name), table_model(new QSModelObject(this)), owns_model(true) {}

QSColumnObject::QSColumnObject(System* system, const QString& name, bool owns_model)
    : QSColumnAbstract(system, name), owns_model(owns_model) {}

QSColumnObject::~QSColumnObject() {
    qDeleteAll(static_cast<QHash<Object*, QSItemObject*>&>(*this));
    if (owns_model)
        delete table_model;
}

int QSColumnObject::kind() const { return 1; }

QAbstractItemModel* QSColumnObject::model() const { return table_model; }

void QSColumnObject::sort() {
    std::sort(_items.begin(), _items.end(), [](const QSItemAbstract* a, const QSItemAbstract* b) {
        return static_cast<const QSItemObject*>(a)->object()->id() <
               static_cast<const QSItemObject*>(b)->object()->id();
    });
}

QList<int> QSColumnObject::matches(const QString& pattern) {
    const QRegExp expression(pattern, Qt::CaseSensitive, QRegExp::Wildcard);
    QList<int> found;
    for (int place = 0; place < active(); ++place)
        if (static_cast<const QSItemObject*>(_items.at(place))->object()->id().contains(expression))
            found.append(place);
    return found;
}

QSItemObject* QSColumnObject::item(Object* object) {
    if (!object)
        return nullptr;
    QSItemObject*& found = (*this)[object];
    if (!found) {
        found = new QSItemObject(object);
        add(found);
    }
    return found;
}

void QSColumnObject::remove(Object* object) {
    QSItemObject* found = take(object);
    if (!found)
        return;
    forget(found);
    delete found;
}

} // namespace model
