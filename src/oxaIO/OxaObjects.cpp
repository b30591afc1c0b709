#include "oxaIO/OxaObjects.h"

#include "oxaIO/ExportContext.h"
#include "oxaIO/IContainer.h"
#include "oxaIO/IGeometryObject.h"
#include "oxaIO/IItem.h"
#include "oxaIO/IMaterial.h"
#include "oxaIO/ISchedule.h"
#include "oxaIO/ISet.h"
#include "oxaIO/IView.h"
#include "oxaIO/OxaActivitySection.h"
#include "oxaIO/OxaFitSection.h"
#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaPropertySection.h"
#include "oxaIO/OxaSetSection.h"
#include "oxaIO/OxaTopologySection.h"
#include "oxaIO/OxaUnitSection.h"
#include "oxaIO/OxaVisualisationSection.h"

namespace oxaIO {

namespace {

using IDSet = std::set<std::wstring>;

/// The IDs of every object of a list, in list order.
template <typename Object> void InsertIDs(IDSet& ids, const std::list<Object*>& objects) {
    for (const Object* object : objects)
        if (object)
            ids.insert(object->ID());
}

void InsertContainerIDs(IDSet& ids, IContainer* container) {
    ids.insert(container->ID());
    std::list<IGenericObject*> genericObjects;
    container->GenericObjects(&genericObjects);
    InsertIDs(ids, genericObjects);
    std::list<IObject3D*> objects3D;
    container->Objects3D(&objects3D);
    InsertIDs(ids, objects3D);
    std::list<IObject2D*> objects2D;
    container->Objects2D(&objects2D);
    InsertIDs(ids, objects2D);
    std::list<IContainer*> children;
    container->Containers(&children);
    for (IContainer* child : children)
        if (child)
            InsertContainerIDs(ids, child);
}

/// The properties' element IDs and IDREF values, then the IDs of the sets and their members.
void InsertSectionIDs(IDSet& ids, const OxaSection& section) {
    for (const VOxaPropertyType* property : section.PropertySection().GetProperties()) {
        if (!property)
            continue;
        ids.insert(property->refID);
        if (property->datatype == L"xs:IDREF")
            ids.insert(property->value);
    }
    const OxaSetSection& sets = section.SetSection();
    if (sets.IsEmpty())
        return;
    for (const ISet* set : sets.SetList()) {
        if (!set)
            continue;
        ids.insert(set->ID());
        for (const std::wstring& member : set->ElementIDs())
            ids.insert(member);
    }
}

/// An item without ID stands for its sub-items and adds nothing of its own.
void InsertItemIDs(IDSet& ids, const IItem* item) {
    const std::wstring id = item->ID();
    if (!id.empty())
        ids.insert(id);
    std::list<IItem*> subItems;
    item->SubItems(&subItems);
    for (const IItem* subItem : subItems)
        if (subItem)
            InsertItemIDs(ids, subItem);
}

void InsertMeasuredIDs(IDSet& ids, const IItemData* data) {
    std::list<IFormula*> formulas;
    data->Formulas(&formulas);
    for (const IFormula* formula : formulas) {
        if (!formula)
            continue;
        std::list<IResult*> results;
        formula->Results(&results);
        for (const IResult* result : results)
            if (result)
                ids.insert(result->RefID());
    }
}

void InsertActivityIDs(IDSet& ids, const IActivity* activity) {
    ids.insert(activity->ID());
    ids.insert(activity->RefID());
    for (const IActivity* subActivity : activity->SubActivities())
        if (subActivity)
            InsertActivityIDs(ids, subActivity);
}

} // namespace

OxaObjects::OxaObjects()
    : context(new ExportContext()), objectSection(new OxaObjectSection()),
      topologySection(new OxaTopologySection()), visualisationSection(new OxaVisualisationSection()),
      fitSection(new OxaFitSection()), unitSection(new OxaUnitSection()),
      activitySection(new OxaActivitySection()) {}

OxaObjects::~OxaObjects() = default;

bool OxaObjects::IsEmpty() const {
    return objectSection->IsEmpty() && topologySection->IsEmpty() && fitSection->IsEmpty() &&
           unitSection->IsEmpty() && visualisationSection->IsEmpty() && activitySection->IsEmpty();
}

std::set<std::wstring>& OxaObjects::GetIDsToBeMapped() {
    IDSet& ids = idsToBeMapped;
    ids.clear();

    InsertIDs(ids, objectSection->GetMaterials());
    for (IContainer* container : objectSection->GetContainers())
        if (container)
            InsertContainerIDs(ids, container);
    InsertSectionIDs(ids, *objectSection);

    InsertIDs(ids, topologySection->GetHRefDefinitions());
    InsertSectionIDs(ids, *topologySection);

    for (const IViewContainer* container : visualisationSection->ViewContainers()) {
        if (!container || container->Views().empty())
            continue;
        ids.insert(container->ID());
        InsertIDs(ids, container->Views());
    }
    InsertSectionIDs(ids, *visualisationSection);

    if (const IItem* root = fitSection->RootItem())
        InsertItemIDs(ids, root);
    for (const IItemData* data : fitSection->GetItemData())
        if (data)
            InsertMeasuredIDs(ids, data);
    InsertSectionIDs(ids, *fitSection);

    for (const ISchedule* schedule : activitySection->Schedules()) {
        if (!schedule)
            continue;
        ids.insert(schedule->ID());
        for (const IActivity* activity : schedule->Activities())
            if (activity)
                InsertActivityIDs(ids, activity);
    }
    InsertSectionIDs(ids, *activitySection);

    return ids;
}

} // namespace oxaIO
