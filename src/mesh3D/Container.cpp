#include "mesh3D/Container.h"

#include "basic/numeric.h"
#include "basic/text.h"
#include "mesh3D/GenericObject.h"
#include "mesh3D/GeometricElement.h"
#include "mesh3D/Object3D.h"
#include "model/object_xml.h"

#include <cstdio>

namespace mesh3D {

Container::Container(Container* parent, model::System* system) : Element(system), HierarchyElement(parent) {}

Container::Container(Container* parent, const QString& id, const QString& name)
    : Container(parent, parent ? parent->system() : nullptr, id, name) {}

Container::Container(Container* parent, model::System* system, const QString& id, const QString& name)
    : Element(system, id), HierarchyElement(parent) {
    Element::name(name);
}

Container::Container(const QString& id, model::RepositoryP* repository) : Element(id, repository) {}

Container::Container(const Container& other)
    : oxaIO::IContainer(), Element(other), HierarchyElement(other.Parent()), Placement(other),
      _children(other._children), _bbox(other._bbox), _composite(other._composite) {}

Container::~Container() {
    delete_children(false);
    if (Parent())
        Parent()->take_child(this);
}

void Container::delete_children(bool depth_first) {
    // A child leaves the list itself when it knows this container as its parent; it is then
    // found at the front, so emptying a large container stays linear.
    while (!_children.isEmpty()) {
        Element* child = _children.first();
        if (depth_first && child->is_type(TYPE_CONTAINER))
            static_cast<Container*>(child)->delete_content();
        delete child;
        if (!_children.isEmpty() && _children.first() == child)
            _children.removeFirst();
    }
}

void Container::init() {
    _composite = false;
    reset_placement();
}

void Container::take_child(Element* child) {
    _children.removeOne(child);
}

void Container::update_boundingbox() {
    _bbox = geometry3D::boundingbox();
    for (Element* child : qAsConst(_children)) {
        if (child->is_type(TYPE_CONTAINER)) {
            auto* container = static_cast<Container*>(child);
            container->update_boundingbox();
            geometry3D::merge(_bbox, container->boundingbox());
        } else if (child->is_type(TYPE_GEOMETRIC_ELEMENT)) {
            auto* geometry = static_cast<GeometricElement*>(child);
            geometry->update_boundingbox();
            geometry3D::merge(_bbox, geometry->getBoundingbox());
        }
    }
}

void Container::update_normals() {
    for (Element* child : qAsConst(_children)) {
        if (child->is_type(TYPE_GEOMETRIC_ELEMENT))
            static_cast<GeometricElement*>(child)->update_normals();
        else if (child->is_type(TYPE_CONTAINER))
            static_cast<Container*>(child)->update_normals();
    }
}

void Container::correct_normals() {
    std::printf("<Container::correct_normals()>\n");
    std::fflush(stdout);
    for (Element* child : qAsConst(_children)) {
        if (child->is_type(TYPE_GEOMETRIC_ELEMENT)) {
            auto* geometry = static_cast<GeometricElement*>(child);
            std::printf("  correct normals of [%s]\n", qPrintable(geometry->id()));
            std::fflush(stdout);
            geometry->update_normals();
            geometry->correct_normals();
            geometry->update_edges(basic::to_radians(45.0));
        } else if (child->is_type(TYPE_CONTAINER)) {
            static_cast<Container*>(child)->correct_normals();
        }
    }
}

int Container::count_children() const {
    int count = 0;
    for (const Element* child : _children) {
        ++count;
        if (child->is_type(TYPE_CONTAINER))
            count += static_cast<const Container*>(child)->count_children();
    }
    return count;
}

int Container::CountObjects() const {
    int count = 0;
    for (const Element* child : _children)
        count += child->is_type(TYPE_CONTAINER) ? static_cast<const Container*>(child)->CountObjects() : 1;
    return count;
}

void Container::delete_content() {
    delete_children(true);
}

void Container::Thickness(double thickness) {
    for (Element* child : qAsConst(_children))
        child->Thickness(thickness);
}

void Container::Containers(std::list<oxaIO::IContainer*>* containers) {
    for (Element* child : qAsConst(_children))
        if (child->is_type(TYPE_CONTAINER))
            containers->push_back(static_cast<Container*>(child));
}

void Container::Objects3D(std::list<oxaIO::IObject3D*>* objects) {
    for (Element* child : qAsConst(_children))
        if (child->is_type(TYPE_OBJECT3D))
            objects->push_back(static_cast<Object3D*>(child));
}

void Container::Objects2D(std::list<oxaIO::IObject2D*>* objects) {
    for (Element* child : qAsConst(_children))
        if (child->is_type(TYPE_OBJECT2D))
            if (auto* object = dynamic_cast<oxaIO::IObject2D*>(child))
                objects->push_back(object);
}

void Container::GenericObjects(std::list<oxaIO::IGenericObject*>* objects) {
    for (Element* child : qAsConst(_children))
        if (child->is_type(TYPE_GENERIC_OBJECT))
            objects->push_back(static_cast<GenericObject*>(child));
}

std::wstring Container::ID() const {
    return basic::ToStdString(id());
}

std::wstring Container::Name() const {
    return basic::ToStdString(name());
}

ObjectType Container::m_type() const {
    const ObjectType own = TYPE_HIERARCHY | TYPE_CONTAINER | TYPE_ELEMENT;
    return _composite ? own | TYPE_COMPOSITE : own;
}

Container* Container::xml_to_object(model::RepositoryP* repository, const QString& xml) {
    return filled_from_xml(new Container(model::xml_object_id(xml), repository), xml);
}

long Container::hashcode() {
    static const long hash = basic::hash_text(QStringLiteral("mesh3D::Container"));
    return hash;
}

long Container::class_hashcode() const {
    return hashcode();
}

QString Container::classname() const {
    return QStringLiteral("mesh3D::Container");
}

QString Container::info() const {
    return QStringLiteral("Set of objects");
}

void Container::superclasses(QStringList& out) const {
    Element::superclasses(out);
    out.append(Element::classname());
}

} // namespace mesh3D
