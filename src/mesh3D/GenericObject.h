#pragma once

#include "zentra_export.h"

#include "mesh3D/Element.h"
#include "oxaIO/IObject.h"

namespace mesh3D {

class Container;

/// A leaf of the model tree with an identifier and a name and no geometry. Its container owns
/// it; destroying it takes it out of the container's list.
class ZENTRA_EXPORT GenericObject : public Element, public oxaIO::IGenericObject {
public:
    /// The system is the parent's.
    GenericObject(Container* parent, const QString& id, const QString& name);
    GenericObject(const GenericObject&) = delete;
    GenericObject& operator=(const GenericObject&) = delete;
    ~GenericObject() override;

    Container* Parent() const { return _parent; }
    /// Relinks with the rule of every tree node: not to the same parent, not across systems.
    void Parent(Container* parent);
    void Name(const QString& name) { Element::name(name); }
    std::wstring ID() const override;
    std::wstring Name() const override;

    ObjectType m_type() const override;
    static long hashcode();
    long class_hashcode() const override;
    QString classname() const override;
    void superclasses(QStringList& out) const override;

private:
    Container* _parent;
};

} // namespace mesh3D
