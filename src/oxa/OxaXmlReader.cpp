#include "oxa/OxaXmlReader.h"

#include "oxa/OxaRoot.h"

#include "basic/Exception.h"
#include "basic/MessageService.h"
#include "basic/color.h"
#include "basic/numeric.h"
#include "basic/text.h"
#include "geometry/OBB.h"
#include "geometry/OBB2D.h"
#include "mesh3D/Container.h"
#include "mesh3D/Face.h"
#include "mesh3D/GenericObject.h"
#include "mesh3D/Material.h"
#include "mesh3D/Object3D.h"
#include "mesh3D/Polygon.h"
#include "mesh3D/Solid.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"
#include "model/System.h"
#include "oxa/Camera.h"
#include "oxa/ClippingPlane.h"
#include "oxa/HRef.h"
#include "oxa/Light.h"
#include "oxa/ObjectSet.h"
#include "oxa/OxaExamineContainer.h"
#include "oxa/OxaExamineData.h"
#include "oxa/View.h"
#include "oxa/ViewContainer.h"
#include "oxaIO/ExportContext.h"
#include "oxaIO/OxaActivitySection.h"
#include "oxaIO/OxaFitSection.h"
#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaObjects.h"
#include "oxaIO/OxaPropertySection.h"
#include "oxaIO/OxaSetSection.h"
#include "oxaIO/OxaTopologySection.h"
#include "oxaIO/OxaUnitSection.h"
#include "oxaIO/OxaVisualisationSection.h"
#include "tavxmln/CXMLException.h"
#include "tavxmln/CXMLManager.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <set>

namespace oxa {

namespace {

std::atomic<int> readMode{65535};
std::atomic<int> progressCounter{0};

constexpr int PropertiesBit = 4;
constexpr int HRefsBit = 8;

bool ReadModeHas(int bit) {
    return (readMode.load(std::memory_order_relaxed) & bit) != 0;
}

QString Q(const std::wstring& text) {
    return basic::FromStdString(text);
}

oxaIO::VColor4 LightColor(int r, int g, int b) {
    const basic::color4 c = basic::convert_to_color4(r, g, b, 0.0);
    return {c.r, c.g, c.b, 0.0f};
}

} // namespace

OxaXmlReader::OxaXmlReader(model::System* system)
    : result(new oxaIO::OxaObjects()), system(system), examineContainer(OxaExamineContainer::GetInstance()) {}

OxaXmlReader::OxaXmlReader(OxaRoot* root) : OxaXmlReader(root ? root->System() : nullptr) {}

OxaXmlReader::OxaXmlReader(mesh3D::Surface* surface, basic::unit unit)
    : OxaXmlReader(surface ? surface->system() : nullptr) {
    targetSurface = surface;
    currentUnit = unit;
    currentScale = basic::unit_scale(unit);
    surfaceFragment = true;
}

OxaXmlReader::OxaXmlReader(mesh3D::Material* material)
    : OxaXmlReader(material ? material->system() : nullptr) {
    currentMaterial = material;
    materialFragment = true;
}

OxaXmlReader::~OxaXmlReader() {
    // A parse that failed inside a property leaves it unlisted.
    delete currentProperty;
    surfacesByID.clear();
    DeleteOXAResult(result);
}

void OxaXmlReader::DeleteOXAResult(oxaIO::OxaObjects* document) {
    if (!document)
        return;
    // The set sections only list their sets; the sets were made by the reader.
    std::set<oxaIO::ISet*> sets;
    for (oxaIO::OxaSection* section : {static_cast<oxaIO::OxaSection*>(&document->ObjectSection()),
                                       static_cast<oxaIO::OxaSection*>(&document->ActivitySection())})
        for (oxaIO::ISet* set : section->SetSection().SetList())
            if (set)
                sets.insert(set);
    for (oxaIO::ISet* set : sets)
        delete set;
    delete document;
}

void OxaXmlReader::SetXmlReadMode(int bits) {
    readMode.fetch_or(bits, std::memory_order_relaxed);
}

void OxaXmlReader::UnsetXmlReadMode(int bits) {
    readMode.fetch_and(~bits, std::memory_order_relaxed);
}

int OxaXmlReader::XmlReadMode() {
    return readMode.load(std::memory_order_relaxed);
}

bool OxaXmlReader::ReadOxaXmlFile(const QString& fileName, QString* errorText) {
    qDebug("OxaXmlReader::ReadOxaXmlFile [%s]", qPrintable(fileName));
    this->fileName = fileName;
    // A single file reports progress against the length of its name; a project read sets the
    // multi-file figures, which are the ones that mean something.
    totalSize = fileName.length();
    reading.store(true, std::memory_order_relaxed);
    cancel.store(false, std::memory_order_relaxed);
    surfacesToDelete.clear();
    containersToDelete.clear();

    bool ok = true;
    const std::wstring name = basic::ToStdString(fileName);
    try {
        tavxmln::CXMLManager::GetInstance()->LoadDocument(name.c_str(), this, true, false, nullptr, false,
                                                          false);
    } catch (const tavxmln::CXMLException& exception) {
        if (exception.code() == tavxmln::CXMLException::Stop) {
            qDebug("OxaXmlReader::ReadOxaXmlFile exception - user canceled");
        } else {
            const QString text = QString::fromWCharArray(exception.text());
            if (errorText)
                *errorText = text;
            qDebug("OxaXmlReader::ReadOxaXmlFile exception [%s]", qPrintable(text));
            ok = false;
        }
    }
    _resolveProperties();
    _deleteSurfaceIDList();
    _deleteContainerIDList();
    reading.store(false, std::memory_order_relaxed);
    this->fileName.clear();
    return ok;
}

bool OxaXmlReader::ReadOxaXmlFragment(const QString& xmlText, QString* errorText) {
    totalSize = xmlText.length();
    reading.store(true, std::memory_order_relaxed);
    cancel.store(false, std::memory_order_relaxed);
    QByteArray utf8 = xmlText.toUtf8();
    try {
        tavxmln::CXMLManager::GetInstance()->LoadDocument(reinterpret_cast<unsigned char*>(utf8.data()),
                                                          static_cast<unsigned int>(utf8.size()), this, true,
                                                          false, nullptr, false, false);
    } catch (const tavxmln::CXMLException& exception) {
        if (exception.code() != tavxmln::CXMLException::Stop) {
            if (errorText)
                *errorText = QString::fromWCharArray(exception.text());
            return false;
        }
    }
    return true;
}

oxaIO::OxaObjects* OxaXmlReader::GetOXAResult() {
    oxaIO::OxaObjects* taken = result;
    result = new oxaIO::OxaObjects();
    return taken;
}

void OxaXmlReader::CancelReading() {
    // Cancel first, then the channel: a report that sees the flag sends nothing more.
    cancel.store(true, std::memory_order_relaxed);
    messageService.store(nullptr, std::memory_order_relaxed);
}

bool OxaXmlReader::DebugMessage(const QString& first, const QString& second) {
    if (basic::MessageService* service = MsgService())
        service->show_progress_message(first + ' ' + second);
    return true;
}

bool OxaXmlReader::DebugMessage(const QString& first, const QString& second, const QString& third) {
    if (basic::MessageService* service = MsgService())
        service->show_progress_message(first + ' ' + second + ' ' + third);
    return true;
}

bool OxaXmlReader::_deleteContainer(mesh3D::Container* container) {
    delete container;
    return true;
}

bool OxaXmlReader::_deleteSurface(mesh3D::Surface* surface) {
    delete surface;
    return true;
}

void OxaXmlReader::_deleteSurfaceIDList() {
    for (mesh3D::Surface* surface : qAsConst(surfacesToDelete)) {
        surfacesByID.remove(surface->id());
        _deleteSurface(surface);
    }
    surfacesToDelete.clear();
}

void OxaXmlReader::_deleteContainerIDList() {
    for (const QString& id : qAsConst(containersToDelete))
        if (system)
            _deleteContainer(dynamic_cast<mesh3D::Container*>(system->object(id)));
    containersToDelete.clear();
}

bool OxaXmlReader::EmitProgress() {
    const bool cancelled = cancel.load(std::memory_order_relaxed);
    if (cancelled && reading.load(std::memory_order_relaxed)) {
        qDebug("OxaXmlReader::EmitProgress throwing exception");
        throw tavxmln::CXMLException(tavxmln::CXMLException::Stop,
                                     L"XML operation canceled by user or application.");
    }
    if (surfaceFragment || materialFragment || cancelled)
        return false;
    basic::MessageService* service = MsgService();
    if (!service)
        return false;
    if (progressCounter.fetch_add(1, std::memory_order_relaxed) + 1 != 1000)
        return false;
    progressCounter.store(0, std::memory_order_relaxed);
    if (totalSize == 0)
        return false;
    const unsigned offset = static_cast<unsigned>(GetSourceOffset());
    if (offset == lastOffset)
        return false;
    const double fraction = multiFileSize == 0
                                ? static_cast<double>(offset) / totalSize
                                : (static_cast<double>(multiFileOffset) + offset) / multiFileSize;
    service->show_progress(fraction, QString(""));
    lastOffset = offset;
    return true;
}

int OxaXmlReader::_resolveProperties() {
    oxaIO::OxaObjectSection& section = result->ObjectSection();
    if (section.IsEmpty() || section.PropertySection().IsEmpty() || !system)
        return 0;
    int count = 0;
    for (const oxaIO::VOxaPropertyType* property : section.PropertySection().GetProperties()) {
        if (property->name != L"oxaSimulationType" || property->value != L"Demolish")
            continue;
        if (auto* surface = dynamic_cast<mesh3D::Surface*>(system->object(Q(property->refID)))) {
            surface->SimulationType(1);
            ++count;
        }
    }
    return count;
}

// Document and sections

void OxaXmlReader::StartDocument() {
    OxaReader::StartDocument();
    currentSection = nullptr;
    currentSurface = nullptr;
    currentFace = nullptr;
    currentSolid = nullptr;
    currentContainer = nullptr;
    if (!materialFragment)
        currentMaterial = nullptr;
    materialsByID.clear();
    containerStack.clear();
    scaleStack.clear();
    unitStack.clear();
    points.clear();
    keptNumbers.clear();
    currentTriangle = nullptr;
    currentPolyline = nullptr;
    currentMappingCoordinates = nullptr;
    delete currentProperty;
    currentProperty = nullptr;
    currentViewContainer = nullptr;
    currentView = nullptr;
    currentLight = nullptr;
    inTessellation = false;
    currentSet = nullptr;
    skippedContainers = 0;
    skippedObjects = 0;
    skippedMaterials = 0;
    examineData = nullptr;
}

void OxaXmlReader::StartOxaDocument(wstring projectId, wstring sourceApp, wstring, wstring sourceFormat,
                                    wstring, wstring createdBy, wstring, wstring, wstring) {
    EmitProgress();
    oxaIO::ExportContext& context = result->Context();
    context.ProjectID(projectId);
    context.CreatedBy(createdBy);
    context.SourceApp(sourceApp);
    context.SourceFormat(sourceFormat);
}

void OxaXmlReader::EndOxaDocument() {}
void OxaXmlReader::StartContent() {}
void OxaXmlReader::Section(oxaIO::ESectionType) {}
void OxaXmlReader::EndContent() {}

void OxaXmlReader::StartObjectSection(wstring unit, wstring) {
    EmitProgress();
    result->ObjectSection().Unit(unit);
    currentUnit = basic::string_to_unit(Q(unit));
    currentScale = basic::unit_scale(currentUnit);
    currentSection = &result->ObjectSection();
}

void OxaXmlReader::EndObjectSection() {
    EmitProgress();
    for (oxaIO::IContainer* container : result->ObjectSection().GetContainers())
        if (auto* tree = dynamic_cast<mesh3D::Container*>(container))
            tree->update_boundingbox();
    currentSection = nullptr;
    containerStack.clear();
    scaleStack.clear();
    unitStack.clear();
    points.clear();
    keptNumbers.clear();
    materialsByID.clear();
}

void OxaXmlReader::StartObjectDataSection(wstring) {
    EmitProgress();
}

void OxaXmlReader::EndObjectDataSection() {
    EmitProgress();
}

void OxaXmlReader::StartMaterialSection(wstring) {
    EmitProgress();
}

void OxaXmlReader::EndMaterialSection() {
    EmitProgress();
}

// Materials

void OxaXmlReader::StartMaterial(wstring id, wstring name) {
    EmitProgress();
    const QString qid = Q(id);
    model::Object* present = system ? system->object(qid) : nullptr;
    auto* presentMaterial = dynamic_cast<mesh3D::Material*>(present);
    if (present && !materialFragment) {
        qDebug("OxaXmlReader::StartMaterial ID is already used [%s] -> ignore read material",
               qPrintable(qid));
        ++skippedMaterials;
        // The document's objects still name this identifier: they get the present material.
        if (presentMaterial)
            materialsByID.insert(qid, presentMaterial);
        return;
    }
    if (present) {
        qDebug(
            "OxaXmlReader::StartMaterial Fragment ID is already present [%s] -> new material changes present",
            qPrintable(qid));
        if (presentMaterial) {
            currentMaterial = presentMaterial;
            materialsByID.insert(qid, presentMaterial);
        }
    }
    if (!currentMaterial || !materialFragment) {
        currentMaterial = new mesh3D::Material(system, qid, Q(name));
        result->ObjectSection().AddMaterial(currentMaterial);
        materialsByID.insert(qid, currentMaterial);
    }
}

void OxaXmlReader::SetColor(Channel channel, int r, int g, int b, double a) {
    EmitProgress();
    if (skippedMaterials < 1 && currentMaterial) {
        const basic::color4 color = basic::convert_to_color4(r, g, b, a);
        switch (channel) {
        case Channel::Diffuse:
            currentMaterial->diffuse(color);
            break;
        case Channel::Specular:
            currentMaterial->specular(color);
            break;
        case Channel::Ambient:
            currentMaterial->ambient(color);
            break;
        }
    }
    if (currentLight) {
        const oxaIO::VColor4 color = LightColor(r, g, b);
        switch (channel) {
        case Channel::Diffuse:
            currentLight->Diffuse(color);
            break;
        case Channel::Specular:
            currentLight->Specular(color);
            break;
        case Channel::Ambient:
            currentLight->Ambient(color);
            break;
        }
    }
}

void OxaXmlReader::ColorDiff(int r, int g, int b, double a) {
    SetColor(Channel::Diffuse, r, g, b, a);
}

void OxaXmlReader::ColorSpec(int r, int g, int b, double a) {
    SetColor(Channel::Specular, r, g, b, a);
}

void OxaXmlReader::ColorAmb(int r, int g, int b, double a) {
    SetColor(Channel::Ambient, r, g, b, a);
}

void OxaXmlReader::ColorTrans(double value) {
    EmitProgress();
    if (skippedMaterials < 1 && currentMaterial)
        currentMaterial->transparency(value);
}

void OxaXmlReader::TextureFile(wstring file) {
    EmitProgress();
    if (skippedMaterials >= 1 || !currentMaterial)
        return;
    const QString texture = Q(file);
    currentMaterial->texture_filename(texture);
    // The path text keeps the backslash form that projects store; the folder cut accepts either
    // separator and the file system sees the local form, so a project moves between platforms.
    const int cut = std::max(fileName.lastIndexOf('\\'), fileName.lastIndexOf('/'));
    const QString path = (cut < 0 ? QString() : fileName.left(cut)) + '\\' + texture;
    QString local = path;
    local.replace('\\', '/');
    if (QFileInfo::exists(QDir::fromNativeSeparators(local)))
        currentMaterial->texture_path(path);
    else
        qDebug("OxaXmlReader::TextureFile [%s] does not exist.", qPrintable(path));
}

void OxaXmlReader::EndMaterial() {
    EmitProgress();
    currentMaterial = nullptr;
    if (skippedMaterials > 0)
        --skippedMaterials;
}

// Tree

void OxaXmlReader::GenericObject(wstring id, wstring name) {
    EmitProgress();
    if (currentContainer)
        currentContainer->children().append(new mesh3D::GenericObject(currentContainer, Q(id), Q(name)));
}

void OxaXmlReader::StartContainer(wstring id, wstring name, wstring unit, bool composite) {
    EmitProgress();
    containerStack.push(currentContainer);
    unitStack.push(currentUnit);
    scaleStack.push(currentScale);
    if (skippedContainers >= 1) {
        ++skippedContainers;
        return;
    }
    const QString qid = Q(id);
    const QString qname = Q(name);
    if (model::Object* present = system ? system->object(qid) : nullptr) {
        qDebug("OxaXmlReader::StartContainer ID is already used [%s] [%s]", qPrintable(qname),
               qPrintable(qid));
        auto* presentContainer = dynamic_cast<mesh3D::Container*>(present);
        if (presentContainer && !composite) {
            qDebug("  -> present object is a normal container - merge");
            currentContainer = presentContainer;
        } else if (presentContainer) {
            // The document's flag decides, not the present container's: a composite arrives
            // whole or not at all.
            qDebug("  -> present object is a composite container -> ignore the reading container");
            ++skippedContainers;
        } else if (dynamic_cast<mesh3D::Surface*>(present)) {
            qDebug("  -> present object is a surface -> ignore the reading container");
            ++skippedContainers;
        } else {
            qDebug("  -> present object is unknown - *** Attention!");
            ++skippedContainers;
        }
        return;
    }
    mesh3D::Container* container;
    if (currentContainer) {
        container = new mesh3D::Container(currentContainer, qid, qname);
        container->IsComposite(composite);
        currentContainer->children().append(container);
    } else {
        container = new mesh3D::Container(nullptr, system, qid, qname);
        container->IsComposite(composite);
        result->ObjectSection().AddContainer(container);
    }
    currentContainer = container;
    if (!unit.empty())
        currentScale = basic::unit_scale(basic::string_to_unit(Q(unit)));
}

void OxaXmlReader::EndContainer() {
    EmitProgress();
    if (!containerStack.isEmpty())
        currentContainer = containerStack.pop();
    if (!unitStack.isEmpty())
        currentUnit = unitStack.pop();
    if (!scaleStack.isEmpty())
        currentScale = scaleStack.pop();
    if (skippedContainers > 0)
        --skippedContainers;
}

void OxaXmlReader::StartRootContainer(wstring id, wstring name, std::vector<double>& rotation,
                                      std::vector<double>& translation) {
    StartContainer(id, name, wstring(), false);
    result->ObjectSection().SetContainerRotTrans(currentContainer, new std::vector<double>(rotation),
                                                 new std::vector<double>(translation));
}

void OxaXmlReader::EndRootContainer() {
    EndContainer();
}

void OxaXmlReader::StartObject2D(wstring, wstring, wstring, bool, wstring) {
    EmitProgress();
    currentSurface = nullptr;
}

void OxaXmlReader::EndObject2D() {
    EmitProgress();
    if (currentSurface)
        EndObject3D();
}

void OxaXmlReader::StartObject3D(wstring id, wstring materialId, wstring name, bool negative, wstring refId) {
    EmitProgress();
    if (skippedContainers >= 1)
        return;
    points.clear();
    keptNumbers.clear();
    this->negative = negative;
    currentSurface = nullptr;
    if (surfaceFragment && targetSurface) {
        currentSurface = targetSurface;
        return;
    }
    const QString qid = Q(id);
    if (!currentContainer) {
        Q_ASSERT_X(currentContainer, "OxaXmlReader", "m_container");
        qDebug("OxaXmlReader::StartObject3D ID [%s] error - no parent container", qPrintable(qid));
        throw basic::Exception("Object3D needs a parent object.");
    }
    if (system && system->object(qid)) {
        qDebug("OxaXmlReader::StartObject3D ID is already used -> ignore reading [%s]", qPrintable(qid));
        ++skippedObjects;
        return;
    }
    auto* object = new mesh3D::Object3D(currentContainer, qid, basic::unit_m, QString());
    object->Name(Q(name));
    object->Negative(negative);
    object->RefID(Q(refId));
    if (mesh3D::Material* material = materialsByID.value(Q(materialId), nullptr))
        object->material(material, false);
    else
        object->SetEmptyMaterial();
    currentContainer->children().append(object);
    surfacesByID.insert(qid, object);
    currentSurface = object;
}

void OxaXmlReader::EndObject3D() {
    EmitProgress();
    if (skippedObjects > 0) {
        --skippedObjects;
        return;
    }
    if (skippedContainers > 0)
        return;
    if (currentSurface) {
        currentSurface->update_boundingbox();
        currentSurface->update_normals();
        // Edges sharper than 45 degrees, as the container's own pass finds them.
        currentSurface->update_edges(basic::to_radians(45.0));
    }
    currentMappingCoordinates = nullptr;
    currentSurface = nullptr;
    points.clear();
    keptNumbers.clear();
}

// Geometry

void OxaXmlReader::StartData3D(wstring refId) {
    EmitProgress();
    points.clear();
    keptNumbers.clear();
    currentSurface = nullptr;
    if (surfaceFragment && targetSurface) {
        currentSurface = targetSurface;
        return;
    }
    // An unknown reference leaves no surface, and the geometry under it falls away unseen.
    currentSurface = surfacesByID.value(Q(refId), nullptr);
    if (currentSurface && examineContainer)
        examineData = examineContainer->GetObjectExamineData(
            Q(refId), Q(GetMappedObjectID(basic::ToStdString(currentSurface->id()))));
}

void OxaXmlReader::EndData3D() {
    EmitProgress();
    if (examineData) {
        examineData->AddPoints(points);
        examineData = nullptr;
    }
    EndObject3D();
}

void OxaXmlReader::Point(int number, double x, double y, double z) {
    EmitProgress();
    if (!currentSurface)
        return;
    auto* vertex = new mesh3D::Vertex(x * currentScale, y * currentScale, z * currentScale);
    mesh3D::Vertex* kept = currentSurface->add(vertex);
    if (kept != vertex) {
        if (examineData)
            examineData->AddDuplicatePoint(keptNumbers.value(kept, 0), number);
        delete vertex;
    } else if (examineData) {
        keptNumbers.insert(kept, number);
    }
    points.insert(number, kept);
}

void OxaXmlReader::Line(int, int) {}

void OxaXmlReader::StartTriangle(int p1, int p2, int p3) {
    EmitProgress();
    if (!currentSurface)
        return;
    mesh3D::Vertex* v1 = points.value(p1, nullptr);
    mesh3D::Vertex* v2 = points.value(p2, nullptr);
    mesh3D::Vertex* v3 = points.value(p3, nullptr);
    if (!v1 || !v2 || !v3)
        return;
    currentTriangle = new mesh3D::Triangle(v1, v2, v3);
    if (inTessellation) {
        if (currentPolyline)
            currentPolyline->AddToTessellation(currentTriangle);
        else {
            delete currentTriangle;
            currentTriangle = nullptr;
        }
        return;
    }
    currentSurface->add(currentTriangle);
    if (currentFace)
        currentFace->Add(currentTriangle);
}

void OxaXmlReader::EndTriangle() {
    currentTriangle = nullptr;
}

void OxaXmlReader::TextureCoords(const std::vector<oxaIO::VCoords2D>& coords) {
    EmitProgress();
    if (!currentTriangle || !currentSurface || coords.empty())
        return;
    if (!currentMappingCoordinates)
        currentMappingCoordinates = currentSurface->GetMaterialMappingCoordinates();
    if (!currentMappingCoordinates)
        return;
    for (const oxaIO::VCoords2D& pair : coords)
        currentMappingCoordinates->append(model::mapCoordsType{pair.x, pair.y});
}

void OxaXmlReader::OptOBB(const oxaIO::VCoords3D& reference, const oxaIO::VCoords3D& x,
                          const oxaIO::VCoords3D& y, const oxaIO::VCoords3D& z) {
    EmitProgress();
    if (!currentSurface)
        return;
    const double s = currentScale;
    geometry3D::OBB box;
    box.origin(reference.x * s, reference.y * s, reference.z * s);
    box.axis(0, x.x * s, x.y * s, x.z * s);
    box.axis(1, y.x * s, y.y * s, y.z * s);
    box.axis(2, z.x * s, z.y * s, z.z * s);
    currentSurface->OOBB(box);
}

void OxaXmlReader::OptOBBxy(const oxaIO::VCoords3D& reference, const oxaIO::VCoords3D& x,
                            const oxaIO::VCoords3D& y, double) {
    EmitProgress();
    if (!currentSurface)
        return;
    const double s = currentScale;
    geometry2D::OBB box;
    box.origin(vmp::Vector(reference.x * s, reference.y * s, reference.z * s));
    box.axis(0, vmp::Vector(x.x * s, x.y * s, 0.0));
    box.axis(1, vmp::Vector(y.x * s, y.y * s, 0.0));
    currentSurface->OOBBxy(box);
}

void OxaXmlReader::StartPolyline(const std::vector<int>& numbers, double thickness,
                                 oxaIO::EPolylineType type) {
    EmitProgress();
    // Without a surface nothing could own the polyline. Unknown point numbers are left out, as
    // a corner without a point would break every later pass over the polygon.
    if (numbers.size() < 2 || !currentSurface)
        return;
    QVector<mesh3D::Vertex*> corners;
    corners.reserve(int(numbers.size()));
    for (int number : numbers)
        if (mesh3D::Vertex* vertex = points.value(number, nullptr))
            corners.append(vertex);
    if (corners.size() < 2)
        return;
    currentPolyline = new mesh3D::Polygon();
    for (mesh3D::Vertex* vertex : qAsConst(corners))
        currentPolyline->append(vertex);
    currentPolyline->Thickness(thickness);
    currentPolyline->Type(type);
    currentSurface->add(currentPolyline);
    if (currentFace)
        currentFace->Add(currentPolyline);
}

void OxaXmlReader::EndPolyline() {
    EmitProgress();
    currentPolyline = nullptr;
}

void OxaXmlReader::StartTessellation() {
    EmitProgress();
    inTessellation = true;
}

void OxaXmlReader::EndTessellation() {
    EmitProgress();
    inTessellation = false;
}

void OxaXmlReader::StartSolid() {
    EmitProgress();
    if (!currentSurface)
        return;
    currentSolid = new mesh3D::Solid();
    currentSurface->add(currentSolid);
}

void OxaXmlReader::EndSolid() {
    EmitProgress();
    currentSolid = nullptr;
}

void OxaXmlReader::StartFace() {
    EmitProgress();
    if (!currentSurface)
        return;
    currentFace = new mesh3D::Face();
    if (currentSolid)
        currentSolid->Add(currentFace);
    else
        currentSurface->add(currentFace);
}

void OxaXmlReader::EndFace() {
    EmitProgress();
    currentFace = nullptr;
}

void OxaXmlReader::SetFaceShape(oxaIO::EFaceShape shape) {
    if (currentFace)
        currentFace->SetShape(shape);
}

// Properties

void OxaXmlReader::StartPropertySection(wstring) {
    EmitProgress();
}

void OxaXmlReader::EndPropertySection() {
    EmitProgress();
}

void OxaXmlReader::StartProperty(wstring refId, wstring name, wstring datatype, wstring unit) {
    EmitProgress();
    if (!ReadModeHas(PropertiesBit))
        return;
    delete currentProperty;
    currentProperty = new oxaIO::VOxaPropertyType{refId, name, datatype, wstring(), unit};
}

void OxaXmlReader::ReadPropertyValue(wstring value) {
    EmitProgress();
    if (!ReadModeHas(PropertiesBit) || !currentProperty)
        return;
    currentProperty->value = currentProperty->datatype == L"xs:IDREF" ? GetObjectID(value) : value;
}

void OxaXmlReader::EndProperty() {
    EmitProgress();
    if (!ReadModeHas(PropertiesBit))
        return;
    if (currentSection && currentProperty)
        currentSection->PropertySection().AddProperty(currentProperty);
    else
        delete currentProperty;
    currentProperty = nullptr;
}

void OxaXmlReader::StartVal() {
    EmitProgress();
}

void OxaXmlReader::ReadValValue(wstring value) {
    EmitProgress();
    if (!ReadModeHas(PropertiesBit) || !currentProperty)
        return;
    const wstring text = currentProperty->datatype == L"xs:IDREF" ? GetObjectID(value) : value;
    if (currentProperty->value.empty())
        currentProperty->value = text;
    else
        currentProperty->value += L" | " + text;
}

void OxaXmlReader::EndVal() {
    EmitProgress();
}

// Topology

void OxaXmlReader::StartTopologySection(wstring) {
    EmitProgress();
}

void OxaXmlReader::EndTopologySection() {
    EmitProgress();
}

void OxaXmlReader::StartContacts(double eps, wstring unit, bool symmetric) {
    EmitProgress();
    contactEpsilon = eps;
    contactUnit = unit;
    contactSymmetric = symmetric;
}

void OxaXmlReader::Contact(wstring& left, wstring& right) {
    EmitProgress();
    result->TopologySection().AddContact(oxaIO::VObjPairRelation{left, right}, contactEpsilon, contactUnit,
                                         contactSymmetric);
}

void OxaXmlReader::EndContacts() {
    contactEpsilon = 0.0;
    contactUnit.clear();
    contactSymmetric = true;
}

void OxaXmlReader::StartIntersections(double eps, wstring unit, bool symmetric) {
    StartContacts(eps, unit, symmetric);
}

void OxaXmlReader::Intersection(wstring& left, wstring& right) {
    EmitProgress();
    result->TopologySection().AddIntersection(oxaIO::VObjPairRelation{left, right}, contactEpsilon,
                                              contactUnit, contactSymmetric);
}

void OxaXmlReader::EndIntersections() {
    EndContacts();
}

void OxaXmlReader::StartHRefs(wstring unit) {
    EmitProgress();
    if (ReadModeHas(HRefsBit))
        result->TopologySection().HRefsUnit(unit);
}

void OxaXmlReader::EndHRefs() {}

void OxaXmlReader::HRef(wstring id, double z) {
    EmitProgress();
    if (!ReadModeHas(HRefsBit) || id.empty())
        return;
    auto* level = new oxa::HRef(system, Q(id));
    level->ZValue(z);
    result->TopologySection().GetHRefDefinitions().push_back(level);
}

void OxaXmlReader::HRefRel(wstring refId, wstring lower, wstring upper) {
    EmitProgress();
    if (!ReadModeHas(HRefsBit) || refId.empty())
        return;
    oxaIO::VHRefRel relation;
    relation.refID = refId;
    relation.hRefL = lower;
    relation.hRefU = upper;
    result->TopologySection().GetHRefRelations().push_back(relation);
}

// Visualisation

void OxaXmlReader::StartVisualisationSection(wstring) {
    EmitProgress();
}

void OxaXmlReader::EndVisualisationSection() {
    EmitProgress();
}

void OxaXmlReader::StartViewContainer(wstring id, wstring name) {
    EmitProgress();
    currentViewContainer = new ViewContainer(id, name);
    result->VisualisationSection().AddViewContainer(currentViewContainer);
}

void OxaXmlReader::EndViewContainer() {
    EmitProgress();
    currentViewContainer = nullptr;
}

void OxaXmlReader::StartView(wstring id, wstring name, bool current, wstring thumbnail) {
    EmitProgress();
    if (!currentViewContainer)
        return;
    currentView = new View(id, name, current, thumbnail);
    currentViewContainer->AddView(currentView);
}

void OxaXmlReader::EndView() {
    EmitProgress();
    currentView = nullptr;
}

void OxaXmlReader::ViewBackGround(int r, int g, int b) {
    EmitProgress();
    if (!currentView)
        return;
    const basic::color4 c = basic::convert_to_color4(r, g, b, 0.0);
    currentView->BackgroundColor(oxaIO::VColor4{c.r, c.g, c.b, 0.0f});
}

void OxaXmlReader::ViewClippingPlane(double distance, oxaIO::VCoords3D& normal, bool off) {
    EmitProgress();
    if (currentView)
        currentView->ClippingPlanes().push_back(new ClippingPlane(normal, distance, off));
}

void OxaXmlReader::ReadThumbnailData(unsigned char*& data, unsigned int& size) {
    EmitProgress();
    if (!currentView)
        return;
    currentView->ThumbnailData(data, size);
    data = nullptr;
}

void OxaXmlReader::ViewCamera(oxaIO::VCoords3D& eye, oxaIO::VCoords3D& lookAt, oxaIO::VCoords3D& up,
                              double nearPlane, double farPlane, double viewAngle, double aspectRatio,
                              int projectionType, double expOrthoWidth, double expOrthoHeight,
                              double orthoWidth, double orthoHeight, oxaIO::VCoords3D& savedEye,
                              oxaIO::VCoords3D& savedLookAt) {
    EmitProgress();
    if (!currentView)
        return;
    auto* camera = new Camera(eye, lookAt, up, nearPlane, farPlane, viewAngle, aspectRatio, projectionType);
    camera->ExpOrthoSize(expOrthoWidth, expOrthoHeight);
    camera->OrthoSize(orthoWidth, orthoHeight);
    camera->SavedPoints(savedEye, savedLookAt);
    currentView->Cameras().push_back(camera);
}

void OxaXmlReader::StartLight(int number, wstring name, bool off) {
    EmitProgress();
    if (!currentView)
        return;
    currentLight = new Light(number, name, {}, {}, {}, off);
    currentView->Lights().push_back(currentLight);
}

void OxaXmlReader::SpotLight(const oxaIO::VCoords3D& position, const oxaIO::VCoords3D& direction,
                             double cutoff) {
    EmitProgress();
    if (currentLight)
        currentLight->Spot(position, direction, cutoff);
}

void OxaXmlReader::PositionalLight(const oxaIO::VCoords3D& position) {
    EmitProgress();
    if (currentLight)
        currentLight->Positional(position);
}

void OxaXmlReader::DirectionalLight(const oxaIO::VCoords3D& direction) {
    EmitProgress();
    if (currentLight)
        currentLight->Directional(direction);
}

void OxaXmlReader::EndLight() {
    EmitProgress();
    currentLight = nullptr;
}

// Quantities, units, schedules and logging are not kept by the model.

void OxaXmlReader::StartFitSection(wstring) {}
void OxaXmlReader::EndFitSection() {}
void OxaXmlReader::StartItem(wstring, wstring, wstring, wstring, wstring) {}
void OxaXmlReader::EndItem() {}
void OxaXmlReader::StartItemData(wstring, wstring) {}
void OxaXmlReader::EndItemData() {}
void OxaXmlReader::StartFormula(bool, bool, wstring, wstring) {}
void OxaXmlReader::EndFormula() {}
void OxaXmlReader::StartResult(wstring, wstring, double, int, wstring) {}
void OxaXmlReader::ReadResultDetail(wstring) {}
void OxaXmlReader::EndResult() {}
void OxaXmlReader::StartUnitSection(wstring, wstring, wstring, wstring) {}
void OxaXmlReader::Unit(unsigned int, oxaIO::ERoundMode, oxaIO::Nullable<unsigned int>, oxaIO::EDigitsMode,
                        wstring, wstring, oxaIO::Nullable<double>, wstring) {}
void OxaXmlReader::ReadUnitName(wstring) {}
void OxaXmlReader::EndUnitSection() {}

// Sets

void OxaXmlReader::StartSetSection(wstring) {
    EmitProgress();
}

void OxaXmlReader::EndSetSection() {
    EmitProgress();
}

void OxaXmlReader::StartSetContainer(wstring, wstring) {
    EmitProgress();
}

void OxaXmlReader::EndSetContainer() {
    EmitProgress();
}

void OxaXmlReader::StartObjectSet(wstring id, wstring name, wstring contentType) {
    EmitProgress();
    if (!currentSection)
        return;
    auto* set = new ObjectSet(Q(id), Q(name));
    set->ContentType(contentType);
    currentSet = set;
    // The section keeps one set per identifier and the later one stands; the sets are ours.
    delete currentSection->SetSection().FindSet(id);
    currentSection->SetSection().AddSet(set);
}

void OxaXmlReader::StartSmartSet(wstring, wstring, wstring) {
    EmitProgress();
}

void OxaXmlReader::EndSet() {
    EmitProgress();
    currentSet = nullptr;
}

void OxaXmlReader::ObjectSetAddElement(wstring id) {
    EmitProgress();
    if (auto* set = dynamic_cast<oxaIO::IObjectSet*>(currentSet))
        set->AddElementID(id);
}

void OxaXmlReader::SmartSetPredicate(wstring) {
    EmitProgress();
}

// Activities

void OxaXmlReader::StartActivitySection(wstring) {
    EmitProgress();
    currentSection = &result->ActivitySection();
}

void OxaXmlReader::EndActivitySection() {
    EmitProgress();
    currentSection = nullptr;
}

void OxaXmlReader::StartSchedule(wstring, wstring, wstring, int) {
    EmitProgress();
}

void OxaXmlReader::ReadDesc(wstring) {
    EmitProgress();
}

void OxaXmlReader::EndSchedule() {
    EmitProgress();
}

void OxaXmlReader::StartActivity(wstring, wstring, wstring, int, wstring, wstring) {
    EmitProgress();
}

void OxaXmlReader::EndActivity() {
    EmitProgress();
}

void OxaXmlReader::StartStart(int, int, int, int, int, int) {
    EmitProgress();
}

void OxaXmlReader::EndStart() {
    EmitProgress();
}

void OxaXmlReader::StartEnd(int, int, int, int, int, int) {
    EmitProgress();
}

void OxaXmlReader::EndEnd() {
    EmitProgress();
}

void OxaXmlReader::StartLoggingSection(wstring) {}
void OxaXmlReader::EndLoggingSection() {}
void OxaXmlReader::StartLevelDef() {}
void OxaXmlReader::Level(wstring, wstring) {}
void OxaXmlReader::EndLevelDef() {}
void OxaXmlReader::StartMsgGrp(wstring, wstring) {}
void OxaXmlReader::EndMsgGrp() {}
void OxaXmlReader::StartMsgInfo(oxaIO::EMsgTypes, wstring, int, int, int, int, int, int, wstring) {}
void OxaXmlReader::MsgTxt(wstring) {}
void OxaXmlReader::MsgSet(wstring) {}
void OxaXmlReader::EndMsgInfo() {}

} // namespace oxa
