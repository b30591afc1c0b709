#include "mesh3D/GenericObject.h"

#include "basic/numeric.h"
#include "basic/text.h"
#include "mesh3D/Container.h"

namespace mesh3D {

GenericObject::GenericObject(Container* parent, const QString& id, const QString& name)
    : Element(parent ? parent->system() : nullptr, id), _parent(parent) {
    Element::name(name);
}

GenericObject::~GenericObject() {
    if (_parent)
        _parent->take_child(this);
}

void GenericObject::Parent(Container* parent) {
    if (HierarchyElement::accepts_parent(_parent, parent))
        _parent = parent;
}

std::wstring GenericObject::ID() const {
    return basic::ToStdString(id());
}

std::wstring GenericObject::Name() const {
    return basic::ToStdString(name());
}

ObjectType GenericObject::m_type() const {
    return TYPE_GENERIC_OBJECT | TYPE_ELEMENT;
}

long GenericObject::hashcode() {
    static const long hash = basic::hash_text(QStringLiteral("mesh3D::GenericObject"));
    return hash;
}

long GenericObject::class_hashcode() const {
    return hashcode();
}

QString GenericObject::classname() const {
    return QStringLiteral("mesh3D::GenericObject");
}

void GenericObject::superclasses(QStringList& out) const {
    Element::superclasses(out);
    out.append(Element::classname());
}

} // namespace mesh3D
