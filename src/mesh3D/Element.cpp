#include "mesh3D/Element.h"

#include "basic/numeric.h"

namespace mesh3D {

Element::Element(model::System* system) : model::Object(system), _name(id()) {}

Element::Element(model::System* system, const QString& id) : model::Object(system, id), _name(id) {}

Element::Element(const QString& id, model::RepositoryP* repository)
    : model::Object(id, repository), _name(id) {}

Element::Element(const Element& other) : model::Object(other), _name(other._name) {}

void Element::Thickness(double) {}

ObjectType Element::m_type() const {
    return TYPE_ELEMENT;
}

void Element::init() {
    _name = id();
}

long Element::hashcode() {
    static const long hash = basic::hash_text(QStringLiteral("mesh3D::Element"));
    return hash;
}

long Element::class_hashcode() const {
    return hashcode();
}

QString Element::classname() const {
    return QStringLiteral("mesh3D::Element");
}

QString Element::info() const {
    return QStringLiteral("Abstract base class");
}

void Element::superclasses(QStringList& out) const {
    model::Object::superclasses(out);
    out.append(model::Object::classname());
}

} // namespace mesh3D
