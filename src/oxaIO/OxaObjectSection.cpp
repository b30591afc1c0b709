#include "oxaIO/OxaObjectSection.h"

#include "oxaIO/IContainer.h"
#include "oxaIO/IGeometryObject.h"
#include "oxaIO/IMaterial.h"
#include "oxaIO/OxaPropertySection.h"

#include <QtAlgorithms>

namespace oxaIO {

namespace {

int CountInContainer(IContainer* container) {
    int count = 0;
    std::list<IObject3D*> objects;
    container->Objects3D(&objects);
    for (const IObject3D* object : objects) {
        if (!object)
            continue;
        std::list<IPolygon*> polygons;
        object->Polygons(&polygons);
        for (const IPolygon* polygon : polygons) {
            if (!polygon)
                continue;
            std::list<ITriangle*> tessellation;
            polygon->Tessellation(&tessellation);
            if (tessellation.empty())
                ++count;
        }
    }
    std::list<IContainer*> children;
    container->Containers(&children);
    for (IContainer* child : children)
        if (child)
            count += CountInContainer(child);
    return count;
}

} // namespace

OxaObjectSection::OxaObjectSection() : OxaSection(L"1.5") {
    InitPropertySection();
}

OxaObjectSection::~OxaObjectSection() {
    qDeleteAll(containers);
    qDeleteAll(materials);
    for (const auto& entry : rotations)
        delete entry.second;
    for (const auto& entry : translations)
        delete entry.second;
}

void OxaObjectSection::AddContainer(IContainer* container) {
    if (container)
        containers.push_back(container);
}

void OxaObjectSection::AddMaterial(IMaterial* material) {
    if (material)
        materials.push_back(material);
}

void OxaObjectSection::Unit(const std::wstring& unit) {
    this->unit = unit;
}

void OxaObjectSection::SetContainerRotTrans(IContainer* container, std::vector<double>* rotation,
                                            std::vector<double>* translation) {
    _Keep(rotations, container, rotation);
    _Keep(translations, container, translation);
}

const std::vector<double>* OxaObjectSection::ContainerRotation(IContainer* container) const {
    return _Find(rotations, container);
}

const std::vector<double>* OxaObjectSection::ContainerTranslation(IContainer* container) const {
    return _Find(translations, container);
}

int OxaObjectSection::CountPolygonsWithoutTesselation() const {
    int count = 0;
    for (IContainer* container : containers)
        if (container)
            count += CountInContainer(container);
    return count;
}

bool OxaObjectSection::IsEmpty() const {
    return PropertySection().IsEmpty() && containers.empty() && materials.empty();
}

void OxaObjectSection::_Keep(VectorMap& map, IContainer* container, std::vector<double>* vector) {
    std::vector<double>*& slot = map[container];
    if (slot != vector)
        delete slot;
    slot = vector;
}

const std::vector<double>* OxaObjectSection::_Find(const VectorMap& map, IContainer* container) {
    const auto entry = map.find(container);
    return entry == map.end() ? nullptr : entry->second;
}

} // namespace oxaIO
