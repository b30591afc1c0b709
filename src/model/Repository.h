#pragma once

#include "zentra_export.h"

#include <QHash>
#include <QString>
#include <QStringList>

class QRegExp;

namespace model {

class Object;
class System;

/// The in-memory store of a system's objects by identifier. It finds objects but does not own
/// them: an object enters at construction and leaves in its destructor.
class ZENTRA_EXPORT Repository {
public:
    /// The table is sized ahead for 1987 objects, so that a normal model loads without rehashing
    /// in its first phase.
    explicit Repository(System* system);
    Repository(const Repository&) = delete;
    Repository& operator=(const Repository&) = delete;
    /// Frees the table, not the objects.
    virtual ~Repository();

    /// The object, or null.
    virtual Object* object(const QString& id);
    virtual bool contains(const QString& id);
    virtual int count();
    /// Appends the identifier of each object, as the object itself holds it.
    virtual void ids(QStringList& out);
    /// Appends the identifier of each object whose class name `pattern` is found in.
    virtual void ids_of_class(QStringList& out, const QRegExp& pattern);
    /// "transient".
    virtual QString type();
    /// Removes the entry under the object's identifier, whichever object it holds.
    virtual void remove(Object* object);
    /// Removes the entry; the object stays alive.
    virtual void remove(const QString& id);

    /// Enters the object under its identifier, replacing an entry with that key.
    void insert(Object* object);
    void clear();
    System* system() const { return _system; }

private:
    QHash<QString, Object*>* _objects;
    System* _system;
};

} // namespace model
