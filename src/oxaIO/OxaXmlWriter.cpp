#include "oxaIO/OxaXmlWriter.h"

#include "basic/text.h"
#include "basic/unit.h"
#include "oxaIO/ExportContext.h"
#include "oxaIO/IContainer.h"
#include "oxaIO/IDateTimeGroup.h"
#include "oxaIO/IGeometryObject.h"
#include "oxaIO/IItem.h"
#include "oxaIO/IMaterial.h"
#include "oxaIO/IOBB.h"
#include "oxaIO/ISchedule.h"
#include "oxaIO/ISet.h"
#include "oxaIO/IUnit.h"
#include "oxaIO/IView.h"
#include "oxaIO/OxaActivitySection.h"
#include "oxaIO/OxaFitSection.h"
#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaObjects.h"
#include "oxaIO/OxaPropertySection.h"
#include "oxaIO/OxaSetSection.h"
#include "oxaIO/OxaTopologySection.h"
#include "oxaIO/OxaUnitSection.h"
#include "oxaIO/OxaVisualisationSection.h"
#include "oxaIO/OxaWriter.h"
#include "tavxmln/CXMLException.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <set>
#include <vector>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace oxaIO {

namespace {

/// A colour channel 0 to 1 as the integer 0 to 255 of the document: scaled, rounded half up by
/// truncation. What no integer can hold becomes 256, which the emitter refuses.
int ScaleChannel(float channel) {
    const double scaled = double(channel) * 255.0 + 0.5;
    return scaled > -1.0e6 && scaled < 1.0e6 ? int(scaled) : 256;
}

struct Channels {
    explicit Channels(const VColor4& color)
        : r(ScaleChannel(color.r)), g(ScaleChannel(color.g)), b(ScaleChannel(color.b)), a(double(color.a)) {}
    int r, g, b;
    VOptional<double> a;
};

/// Moves the finished file over the target in one step, so that readers see either the old or
/// the new document. Gives an empty text on success, else the system's reason.
std::wstring ReplaceFile(const std::wstring& source, const std::wstring& target) {
#ifdef Q_OS_WIN
    if (MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return {};
    return L"the system refused to replace the file (error " + std::to_wstring(GetLastError()) + L")";
#else
    const QByteArray from = QFile::encodeName(basic::FromStdString(source));
    const QByteArray to = QFile::encodeName(basic::FromStdString(target));
    if (std::rename(from.constData(), to.constData()) == 0)
        return {};
    return basic::ToStdString(QString::fromLocal8Bit(std::strerror(errno)));
#endif
}

} // namespace

OxaXmlWriter::OxaXmlWriter(OxaObjects* document) : document(document), writer(new OxaWriter()) {}

OxaXmlWriter::~OxaXmlWriter() {
    delete writer;
}

bool OxaXmlWriter::Write(const std::wstring& fileName, std::wstring& errorText) {
    if (!document || !writer)
        return false;
    const std::wstring partName = fileName + L".part";
    std::wstring failure;
    try {
        _WriteDocument(partName);
    } catch (const tavxmln::CXMLException& exception) {
        failure = exception.text();
    } catch (const std::exception& exception) {
        failure = basic::ToStdString(QString::fromLocal8Bit(exception.what()));
    }
    if (failure.empty()) {
        const std::wstring reason = ReplaceFile(partName, fileName);
        if (reason.empty())
            return true;
        failure = L"cannot replace \"" + fileName + L"\" by \"" + partName + L"\": " + reason;
    } else {
        writer->Abandon();
    }
    const bool partExists = QFileInfo::exists(basic::FromStdString(partName));
    errorText =
        failure + L" (\"" + fileName + L"\" is unchanged" +
        (partExists ? L"; the partial document stands in \"" + partName + L"\")" : std::wstring(L")"));
    return false;
}

void OxaXmlWriter::_WriteDocument(const std::wstring& fileName) {
    OxaObjectSection& objects = document->ObjectSection();
    lengthScale = basic::unit_scale(basic::string_to_unit(basic::FromStdString(objects.Unit())));

    writer->StartDocument(fileName.c_str(), true);
    const ExportContext& context = document->Context();
    const DateTime& created = context.CreatedTime();
    writer->StartOxaDocument(context.ProjectID(), context.CreatedBy(), context.SourceApp(),
                             context.SourceFormat(), created.year, created.month, created.day, created.hour,
                             created.minute, created.second);
    _WriteContent();
    writer->IDMapping(document->GetIDsToBeMapped());
    if (!document->GetFitSection().IsEmpty())
        _WriteFitSection();
    if (!objects.IsEmpty())
        _WriteObjectSection();
    if (!document->TopologySection().IsEmpty())
        _WriteTopologySection();
    if (!document->VisualisationSection().IsEmpty())
        _WriteVisualisationSection();
    if (!document->GetUnitSection().IsEmpty())
        _WriteUnitSection();
    if (!document->ActivitySection().IsEmpty())
        _WriteActivitySection();
    if (!objects.IsEmpty()) {
        writer->StartObjectDataSection();
        for (IContainer* container : objects.GetContainers())
            if (container)
                _WriteObjectData(container);
        writer->EndObjectDataSection();
    }
    writer->EndOxaDocument();
    writer->EndDocument();
}

/// The unit section is written but, by design of the format, never listed in the contents.
void OxaXmlWriter::_WriteContent() {
    writer->StartContent();
    if (!document->ObjectSection().IsEmpty())
        writer->Section(stObjectSection);
    if (!document->TopologySection().IsEmpty())
        writer->Section(stTopologySection);
    if (!document->GetFitSection().IsEmpty())
        writer->Section(stFitSection);
    if (!document->VisualisationSection().IsEmpty())
        writer->Section(stVisualisationSection);
    if (!document->ActivitySection().IsEmpty())
        writer->Section(stActivitySection);
    writer->EndContent();
}

// ----------------------------------------------------------------------------------------------
// Quantities

void OxaXmlWriter::_WriteFitSection() {
    const OxaFitSection& section = document->GetFitSection();
    writer->StartFitSection();
    writer->StartItems();
    if (const IItem* root = section.RootItem())
        _WriteItem(root);
    writer->EndItems();
    writer->StartQto();
    for (const IItemData* data : section.GetItemData())
        if (data)
            _WriteItemData(data);
    writer->EndQto();
    writer->EndFitSection();
}

/// An item without an identifier is no element of its own: its sub-items take its place.
void OxaXmlWriter::_WriteItem(const IItem* item) {
    const std::wstring id = item->ID();
    if (!id.empty())
        writer->StartItem(id, item->Key(), item->MatchKey(), item->Name(), std::wstring());
    std::list<IItem*> subItems;
    item->SubItems(&subItems);
    for (const IItem* subItem : subItems)
        if (subItem)
            _WriteItem(subItem);
    if (!id.empty())
        writer->EndItem();
}

void OxaXmlWriter::_WriteItemData(const IItemData* data) {
    writer->StartItemData(data->RefID(), data->Description());
    std::list<IFormula*> formulas;
    data->Formulas(&formulas);
    for (const IFormula* formula : formulas) {
        if (!formula)
            continue;
        writer->StartFormula(formula->IsOriginal(), formula->IsQuantity(), formula->Text(),
                             formula->Variable());
        std::list<IResult*> results;
        formula->Results(&results);
        for (const IResult* result : results)
            if (result)
                writer->Result(result->RefID(), result->Value(), result->Text(), result->Quality(),
                               std::wstring());
        writer->EndFormula();
    }
    writer->EndItemData();
}

// ----------------------------------------------------------------------------------------------
// Object section

void OxaXmlWriter::_WriteObjectSection() {
    const OxaObjectSection& section = document->ObjectSection();
    writer->StartObjectSection(section.Unit());
    if (!section.GetMaterials().empty()) {
        writer->StartMaterialSection();
        for (const IMaterial* material : section.GetMaterials())
            if (material)
                _WriteMaterial(material);
        writer->EndMaterialSection();
    }
    for (IContainer* container : section.GetContainers())
        if (container)
            _WriteRootContainer(container);
    _WritePropertySection(section);
    writer->EndObjectSection();
}

void OxaXmlWriter::_WriteMaterial(const IMaterial* material) {
    writer->StartMaterial(material->ID(), material->Name());
    const Channels diffuse(material->Diffuse());
    writer->MaterialDiff(diffuse.r, diffuse.g, diffuse.b, diffuse.a);
    const Channels specular(material->Specular());
    writer->MaterialSpec(specular.r, specular.g, specular.b, specular.a);
    const Channels ambient(material->Ambient());
    writer->MaterialAmb(ambient.r, ambient.g, ambient.b, ambient.a);
    writer->MaterialTrans(material->Transparency());
    writer->MaterialTexture(material->TextureFileName());
    writer->EndMaterial();
}

/// The objects of a root container are not listed here: only their geometry is written, in the
/// object-data section.
void OxaXmlWriter::_WriteRootContainer(IContainer* container) {
    writer->StartRootContainer(container->ID(), container->Name());
    std::list<IContainer*> children;
    container->Containers(&children);
    for (IContainer* child : children)
        if (child)
            _WriteContainer(child);
    writer->EndRootContainer();
}

void OxaXmlWriter::_WriteContainer(IContainer* container) {
    writer->StartContainer(container->ID(), container->Name(), std::wstring(), container->IsComposite());
    std::list<IObject2D*> objects2D;
    container->Objects2D(&objects2D);
    for (const IObject2D* object : objects2D)
        if (object)
            _WriteObject2D(object);
    std::list<IObject3D*> objects3D;
    container->Objects3D(&objects3D);
    for (const IObject3D* object : objects3D)
        if (object)
            _WriteObject3D(object);
    std::list<IGenericObject*> genericObjects;
    container->GenericObjects(&genericObjects);
    for (const IGenericObject* object : genericObjects) {
        if (object) {
            writer->StartGenericObject(object->ID(), object->Name());
            writer->EndGenericObject();
        }
    }
    std::list<IContainer*> children;
    container->Containers(&children);
    for (IContainer* child : children)
        if (child)
            _WriteContainer(child);
    writer->EndContainer();
}

/// An object without vertices is left out altogether.
void OxaXmlWriter::_WriteObject3D(const IObject3D* object) {
    std::list<IVertex*> vertices;
    object->Vertices(&vertices);
    if (vertices.empty())
        return;
    const IMaterial* material = object->Material();
    writer->StartObject3D(object->ID(), object->Name(), material ? material->ID() : std::wstring(),
                          object->Negative(), object->RefID());
    writer->EndObject3D();
}

/// A 2D object keeps its vertices in place; its other geometry is not written.
void OxaXmlWriter::_WriteObject2D(const IObject2D* object) {
    std::list<IVertex*> vertices;
    object->Vertices(&vertices);
    if (vertices.empty())
        return;
    writer->StartObject2D(object->ID(), object->Name(), std::wstring(), object->Negative(), object->RefID());
    int number = 0;
    for (const IVertex* vertex : vertices) {
        if (!vertex)
            continue;
        const VCoords3D p = _DocumentCoords({vertex->X(), vertex->Y(), vertex->Z()});
        writer->Point(number++, p.x, p.y, p.z);
    }
    writer->EndObject2D();
}

void OxaXmlWriter::_WritePropertySection(const OxaSection& section) {
    const OxaPropertySection& properties = section.PropertySection();
    if (properties.IsEmpty())
        return;
    writer->StartPropertySection();
    for (const VOxaPropertyType* property : properties.GetProperties())
        if (property)
            writer->Property(property->refID, property->name, property->datatype, property->value,
                             property->unit);
    writer->EndPropertySection();
}

// ----------------------------------------------------------------------------------------------
// Topology, views, units and activities

void OxaXmlWriter::_WriteTopologySection() {
    const OxaTopologySection& section = document->TopologySection();
    writer->StartTopologySection();
    for (const ContactList* list : section.GetContacts()) {
        if (!list)
            continue;
        writer->StartContacts(list->Eps(), list->Unit(), list->Sym());
        for (const VObjPairRelation& pair : list->GetContactRelations())
            writer->Contact(pair.left, pair.right);
        writer->EndContacts();
    }
    for (const IntersectionList* list : section.GetIntersections()) {
        if (!list)
            continue;
        writer->StartIntersections(list->Eps(), list->Unit(), list->Sym());
        for (const VObjPairRelation& pair : list->GetIntersectionRelations())
            writer->Intersection(pair.left, pair.right);
        writer->EndIntersections();
    }
    if (!section.GetHRefDefinitions().empty() || !section.GetHRefRelations().empty()) {
        writer->StartHRefs(section.HRefsUnit());
        for (const IHRef* hRef : section.GetHRefDefinitions())
            if (hRef)
                writer->HRef(hRef->ID(), hRef->ZValue());
        for (const VHRefRel& relation : section.GetHRefRelations())
            writer->HRefRel(relation.refID, relation.hRefL, relation.hRefU);
        writer->EndHRefs();
    }
    writer->EndTopologySection();
}

void OxaXmlWriter::_WriteVisualisationSection() {
    writer->StartVisualisationSection();
    for (const IViewContainer* container : document->VisualisationSection().ViewContainers()) {
        if (!container || container->IsEmpty())
            continue;
        writer->StartViewContainer(container->ID(), container->Name());
        for (IView* view : container->Views()) {
            if (!view)
                continue;
            writer->StartView(view->ID(), view->Name(), view->IsCurrent(), view->ThumbnailFile(),
                              view->ThumbnailData(), view->ThumbnailSize());
            for (const ICamera* camera : view->Cameras())
                if (camera)
                    writer->Camera(camera->Eye(), camera->LookAt(), camera->Up(), camera->NearPlane(),
                                   camera->FarPlane(), camera->ViewAngle(), camera->AspectRatio(),
                                   camera->ProjectionType(), camera->ExpOrthoWidth(),
                                   camera->ExpOrthoHeight(), camera->OrthoWidth(), camera->OrthoHeight(),
                                   camera->SavedEye(), camera->SavedLookAt());
            for (const ILight* light : view->Lights())
                if (light)
                    _WriteLight(light);
            for (const IClippingPlane* plane : view->ClippingPlanes())
                if (plane)
                    writer->ClpPlane(plane->Normal(), plane->Distance(), plane->IsOff());
            if (view->HasBackground()) {
                const Channels background(view->BackgroundColor());
                writer->BgColor(background.r, background.g, background.b, background.a);
            }
            writer->EndView();
        }
        writer->EndViewContainer();
    }
    writer->EndVisualisationSection();
}

void OxaXmlWriter::_WriteLight(const ILight* light) {
    writer->StartLight(light->Number(), light->Name(), light->IsOff());
    const Channels ambient(light->Ambient());
    writer->Amb(ambient.r, ambient.g, ambient.b, ambient.a);
    const Channels diffuse(light->Diffuse());
    writer->Diff(diffuse.r, diffuse.g, diffuse.b, diffuse.a);
    const Channels specular(light->Specular());
    writer->Spec(specular.r, specular.g, specular.b, specular.a);
    switch (light->Type()) {
    case esSpot:
        writer->Spot(light->Position(), light->Direction(), light->Cutoff());
        break;
    case esPositional:
        writer->Positional(light->Position());
        break;
    case esDirectional:
        writer->Directional(light->Direction());
        break;
    default:
        break;
    }
    writer->EndLight();
}

/// Round mode and linear base unit are not part of the model's units, and the section's default
/// units are not kept: all of them are written as absent.
void OxaXmlWriter::_WriteUnitSection() {
    writer->StartUnitSection(std::wstring(), std::wstring(), std::wstring());
    for (const IUnit* unit : document->GetUnitSection().Units()) {
        if (!unit)
            continue;
        const VOptional<long> digits = unit->Digits();
        writer->Unit(unit->Name(), unit->Dimension(), rmNone, digits, digits.IsAbsent() ? dmNone : dmDecimal,
                     unit->BaseUnit(), std::wstring(), unit->ConversionFactor(), unit->Description());
    }
    writer->EndUnitSection();
}

void OxaXmlWriter::_WriteActivitySection() {
    const OxaActivitySection& section = document->ActivitySection();
    writer->StartActivitySection();
    for (const ISchedule* schedule : section.Schedules()) {
        if (!schedule)
            continue;
        // The schedule's reference serves as its description too: hosts read either.
        const std::wstring reference = schedule->Reference();
        writer->StartSchedule(schedule->ID(), schedule->Name(), reference, schedule->Duration(), reference);
        if (const IDateTimeGroup* start = schedule->Start())
            writer->Start(start->Year(), start->Month(), start->Day(), start->Hour(), start->Minute(),
                          start->Second());
        if (const IDateTimeGroup* end = schedule->End())
            writer->End(end->Year(), end->Month(), end->Day(), end->Hour(), end->Minute(), end->Second());
        for (const IActivity* activity : schedule->Activities())
            if (activity)
                _WriteActivity(activity);
        writer->EndSchedule();
    }
    _WritePropertySection(section);
    _WriteSetSection(section);
    writer->EndActivitySection();
}

void OxaXmlWriter::_WriteActivity(const IActivity* activity) {
    writer->StartActivity(activity->ID(), activity->Name(), activity->WBS(), activity->Duration(),
                          activity->RefID());
    if (const IDateTimeGroup* start = activity->Start())
        writer->Start(start->Year(), start->Month(), start->Day(), start->Hour(), start->Minute(),
                      start->Second());
    if (const IDateTimeGroup* end = activity->End())
        writer->End(end->Year(), end->Month(), end->Day(), end->Hour(), end->Minute(), end->Second());
    for (const IActivity* subActivity : activity->SubActivities())
        if (subActivity)
            _WriteActivity(subActivity);
    writer->EndActivity();
}

void OxaXmlWriter::_WriteSetSection(const OxaSection& section) {
    const OxaSetSection& sets = section.SetSection();
    if (sets.IsEmpty())
        return;
    writer->StartSetSection();
    for (const ISet* set : sets.SetList())
        if (set)
            _WriteSet(set);
    writer->EndSetSection();
}

/// Only object sets with members are written, flat; other kinds of set are dropped.
void OxaXmlWriter::_WriteSet(const ISet* set) {
    const std::list<std::wstring> members = set->ElementIDs();
    const std::set<std::wstring> ids(members.begin(), members.end());
    if (ids.empty() || !dynamic_cast<const IObjectSet*>(set))
        return;
    writer->ObjectSet(set->ID(), set->Name(), set->ContentType(), ids);
}

// ----------------------------------------------------------------------------------------------
// Object-data section

/// Objects of a root container are written here as well, although their container lists none.
void OxaXmlWriter::_WriteObjectData(IContainer* container) {
    std::list<IObject3D*> objects;
    container->Objects3D(&objects);
    for (const IObject3D* object : objects)
        if (object)
            _WriteData3D(object);
    std::list<IContainer*> children;
    container->Containers(&children);
    for (IContainer* child : children)
        if (child)
            _WriteObjectData(child);
}

VCoords3D OxaXmlWriter::_DocumentCoords(const VCoords3D& coords) const {
    // Division, not multiplication by the inverse: it undoes the reader's multiplication so
    // that a second rewrite gives the same digits as the first.
    return {coords.x / lengthScale, coords.y / lengthScale, coords.z / lengthScale};
}

void OxaXmlWriter::_WriteData3D(const IObject3D* object) {
    std::list<IVertex*> vertices;
    object->Vertices(&vertices);
    if (vertices.empty())
        return;
    writer->StartData3D(object->ID());
    std::list<ITriangle*> triangles;
    object->Triangles(&triangles);
    std::list<IPolygon*> polygons;
    object->Polygons(&polygons);
    // The large table comes after the lists and goes before them: taking or giving back a
    // large block makes the allocator tidy up every small block given back until then, and
    // this way the list entries are not among them.
    VertexNumbers numbers(vertices.size());
    int number = 0;
    for (const IVertex* vertex : vertices) {
        if (!vertex)
            continue;
        numbers.Add(vertex, number);
        const VCoords3D p = _DocumentCoords({vertex->X(), vertex->Y(), vertex->Z()});
        writer->Point(number++, p.x, p.y, p.z);
    }
    _WriteGeometry(triangles, polygons, false, numbers);
    std::list<IFace*> faces;
    object->Faces(&faces);
    for (const IFace* face : faces)
        if (face)
            _WriteFace(face, numbers);
    std::list<ISolid*> solids;
    object->Solids(&solids);
    for (const ISolid* solid : solids) {
        if (!solid)
            continue;
        writer->StartSolid();
        std::list<IFace*> solidFaces;
        solid->Faces(&solidFaces);
        for (const IFace* face : solidFaces)
            if (face)
                _WriteFace(face, numbers);
        writer->EndSolid();
    }
    if (const IOBB* box = object->OOBB()) {
        // The edge vectors are lengths as well and scale like the corner.
        writer->OptOBB(_DocumentCoords(box->Ref()), _DocumentCoords(box->Vx()), _DocumentCoords(box->Vy()),
                       _DocumentCoords(box->Vz()));
    }
    writer->EndData3D();
}

/// Triangles ask for their texture coordinates from the start of the run. Polygons ask at a
/// running index that advances by each polygon's length, or by 3 per triangle of its
/// tessellation, also over polygons that are skipped, so that the ones written still find their
/// coordinates.
void OxaXmlWriter::_WriteGeometry(const std::list<ITriangle*>& triangles,
                                  const std::list<IPolygon*>& polygons, bool all,
                                  const VertexNumbers& numbers) {
    for (const ITriangle* triangle : triangles)
        if (triangle && (all || triangle->IsRootGeometry()))
            _WriteTriangle(triangle, 0, numbers);
    int textureIndex = 0;
    for (const IPolygon* polygon : polygons) {
        if (!polygon)
            continue;
        std::list<ITriangle*> tessellation;
        polygon->Tessellation(&tessellation);
        if (all || polygon->IsRootGeometry())
            _WritePolygon(polygon, tessellation, textureIndex, numbers);
        textureIndex += tessellation.empty() ? polygon->Length() : 3 * int(tessellation.size());
    }
}

OxaXmlWriter::VertexNumbers::VertexNumbers(std::size_t capacity) {
    std::size_t size = 16;
    shift = 60;
    while (size < 2 * capacity) {
        size *= 2;
        --shift;
    }
    table.assign(size, {nullptr, 0});
}

std::size_t OxaXmlWriter::VertexNumbers::_Slot(const IVertex* vertex) const {
    const std::size_t mask = table.size() - 1;
    // Each 256-byte block of memory owns a group of 16 neighbouring slots, chosen by Fibonacci
    // hashing of the block's address; the address inside the block picks the slot in the group.
    // Vertices stored side by side, as hosts keep them, so fill neighbouring slots, and a walk
    // over neighbouring triangles finds their numbers in the cache.
    const std::uint64_t address = std::uintptr_t(vertex);
    std::size_t slot =
        std::size_t(((address >> 8) * 0x9E3779B97F4A7C15ull) >> shift) ^ std::size_t((address >> 4) & 15);
    while (table[slot].first && table[slot].first != vertex)
        slot = (slot + 1) & mask;
    return slot;
}

void OxaXmlWriter::VertexNumbers::Add(const IVertex* vertex, int number) {
    auto& slot = table[_Slot(vertex)];
    if (!slot.first)
        slot = {vertex, number};
}

int OxaXmlWriter::VertexNumbers::operator[](const IVertex* vertex) const {
    return vertex ? table[_Slot(vertex)].second : 0;
}

/// A vertex that is not one of the object's own is numbered 0.
void OxaXmlWriter::_WriteTriangle(const ITriangle* triangle, int textureIndex, const VertexNumbers& numbers) {
    const int p1 = numbers[triangle->Vertex(0)];
    const int p2 = numbers[triangle->Vertex(1)];
    const int p3 = numbers[triangle->Vertex(2)];
    std::vector<VCoords2D> coords;
    triangle->TextureCoords(textureIndex, &coords);
    if (coords.size() != 3)
        coords.clear();
    writer->Triangle(p1, p2, p3, coords);
}

/// A polygon is written closed: its first vertex is repeated at the end unless it is there
/// already. A tessellated polygon carries its coordinates in its triangles only.
void OxaXmlWriter::_WritePolygon(const IPolygon* polygon, const std::list<ITriangle*>& tessellation,
                                 int textureIndex, const VertexNumbers& numbers) {
    const int length = polygon->Length();
    std::vector<int> points;
    points.reserve(std::size_t(std::max(length, 0)) + 1);
    for (int i = 0; i < length; ++i)
        points.push_back(numbers[polygon->Vertex(i)]);
    if (!points.empty() && points.back() != points.front())
        points.push_back(points.front());
    std::vector<VCoords2D> coords;
    if (tessellation.empty())
        polygon->TextureCoords(textureIndex, &coords);
    writer->StartPolyline(points, coords, polygon->Type());
    if (!tessellation.empty()) {
        writer->StartTesselation();
        for (const ITriangle* triangle : tessellation)
            if (triangle)
                _WriteTriangle(triangle, textureIndex, numbers);
        writer->EndTesselation();
    }
    writer->EndPolyline();
}

/// Inside a face every triangle and polygon is written, root geometry or not.
void OxaXmlWriter::_WriteFace(const IFace* face, const VertexNumbers& numbers) {
    writer->StartFace();
    std::list<ITriangle*> triangles;
    face->Triangles(&triangles);
    std::list<IPolygon*> polygons;
    face->Polygons(&polygons);
    _WriteGeometry(triangles, polygons, true, numbers);
    writer->EndFace();
}

} // namespace oxaIO
