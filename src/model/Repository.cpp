#include "model/Repository.h"

#include "model/Object.h"

#include <QRegExp>

namespace model {

Repository::Repository(System* system) : _objects(new QHash<QString, Object*>()), _system(system) {
    _objects->reserve(1987);
}

Repository::~Repository() { delete _objects; }

Object* Repository::object(const QString& id) { return _objects->value(id, nullptr); }

bool Repository::contains(const QString& id) { return _objects->contains(id); }

int Repository::count() { return _objects->count(); }

void Repository::ids(QStringList& out) {
    for (const Object* entry : qAsConst(*_objects))
        out.append(entry->id());
}

void Repository::ids_of_class(QStringList& out, const QRegExp& pattern) {
    for (auto entry = _objects->cbegin(); entry != _objects->cend(); ++entry)
        if (entry.value()->classname().indexOf(pattern) >= 0)
            out.append(entry.key());
}

QString Repository::type() { return QStringLiteral("transient"); }

void Repository::remove(Object* object) { remove(object->id()); }

void Repository::remove(const QString& id) { _objects->remove(id); }

void Repository::insert(Object* object) { _objects->insert(object->id(), object); }

void Repository::clear() { _objects->clear(); }

} // namespace model
