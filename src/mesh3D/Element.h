#pragma once

#include "zentra_export.h"

#include "mesh3D/ObjectType.h"
#include "model/Object.h"

namespace mesh3D {

/// Common base of everything in the mesh tree: a model object, found by identifier in its
/// system, with a display name and a type mask. A fresh element is named after its identifier;
/// classes with a name of their own overwrite it afterwards.
class ZENTRA_EXPORT Element : public model::Object {
public:
    explicit Element(model::System* system);
    Element(model::System* system, const QString& id);
    Element(const QString& id, model::RepositoryP* repository);
    /// A new identifier, as every object copy gets; the name is copied.
    Element(const Element& other);

    /// Does nothing here; containers pass it down, surfaces give it to their polygons.
    virtual void Thickness(double thickness);
    virtual ObjectType m_type() const;

    /// True when every bit of `mask` is among the element's own.
    bool is_type(ObjectType mask) const { return (m_type() & mask) == mask; }

    /// Names the element after its identifier again.
    void init();
    const QString& name() const { return _name; }
    void name(const QString& value) { _name = value; }

    static long hashcode();
    long class_hashcode() const override;
    QString classname() const override;
    QString info() const override;
    void superclasses(QStringList& out) const override;

private:
    QString _name;
};

} // namespace mesh3D
