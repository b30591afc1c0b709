#include "oxa/ObjectSet.h"

#include "basic/text.h"
#include "mesh3D/Container.h"
#include "mesh3D/Object3D.h"
#include "model/System.h"

namespace oxa {

ObjectSet::ObjectSet(const QString& id, const QString& name) : id(id), name(name) {}

ObjectSet::~ObjectSet() = default;

std::wstring ObjectSet::ID() const {
    return basic::ToStdString(id);
}

std::wstring ObjectSet::Name() const {
    return basic::ToStdString(name);
}

void ObjectSet::ContentType(std::wstring contentType) {
    this->contentType = basic::FromStdString(contentType);
}

std::wstring ObjectSet::ContentType() const {
    return basic::ToStdString(contentType);
}

std::list<std::wstring> ObjectSet::ElementIDs() const {
    std::list<std::wstring> ids;
    for (const QString& unresolved : unresolvedIDs)
        ids.push_back(basic::ToStdString(unresolved));
    for (auto it = elements.cbegin(); it != elements.cend(); ++it)
        ids.push_back(basic::ToStdString(it.key()));
    return ids;
}

std::list<oxaIO::IObject*> ObjectSet::ElementList() const {
    std::list<oxaIO::IObject*> list;
    for (oxaIO::IObject* element : elements)
        list.push_back(element);
    return list;
}

void ObjectSet::AddElementID(std::wstring id) {
    unresolvedIDs.insert(basic::FromStdString(id));
}

void ObjectSet::AddElement(oxaIO::IObject* element) {
    if (element)
        elements.insert(basic::FromStdString(element->ID()), element);
}

bool ObjectSet::ResolveIDs(model::System* system) {
    if (!system)
        return false;
    for (auto it = unresolvedIDs.begin(); it != unresolvedIDs.end();) {
        model::Object* object = system->object(*it);
        oxaIO::IObject* member = nullptr;
        if (auto* object3D = dynamic_cast<mesh3D::Object3D*>(object))
            member = object3D;
        else if (auto* container = dynamic_cast<mesh3D::Container*>(object))
            member = container;
        if (member)
            elements.insert(*it, member);
        if (object)
            it = unresolvedIDs.erase(it);
        else
            ++it;
    }
    return unresolvedIDs.isEmpty();
}

} // namespace oxa
