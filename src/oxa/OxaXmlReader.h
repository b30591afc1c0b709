#pragma once

#include "zentra_export.h"

#include "basic/unit.h"
#include "oxaIO/OxaReader.h"

#include <QHash>
#include <QList>
#include <QStack>
#include <QString>
#include <QVector>

#include <atomic>

namespace basic {
class MessageService;
}
namespace model {
class System;
struct mapCoordsType;
} // namespace model
namespace mesh3D {
class Container;
class Face;
class Material;
class Polygon;
class Solid;
class Surface;
class Triangle;
class Vertex;
} // namespace mesh3D
namespace oxaIO {
class ISet;
class OxaObjects;
class OxaSection;
struct VOxaPropertyType;
} // namespace oxaIO

namespace oxa {

class OxaRoot;

class Light;
class OxaExamineContainer;
class OxaExamineData;
class View;
class ViewContainer;

/// Builds a model while an exchange document streams past: containers, 3D objects with their
/// geometry scaled to metres, materials, properties, relations, height levels, stored views and
/// sets. Model objects are made in the reader's `model::System`; the document model that lists
/// them (`GetOXAResult`) owns the root containers and the materials, and through the containers
/// the whole tree, so that the model can be written back.
///
/// Identifiers are unique in a system, so a document may name something that exists already:
/// a plain container merges into the present one, a composite container is skipped with all it
/// holds, and an object or a material is refused (a refused material's identifier still names
/// the present material). Only debug output tells about such clashes.
///
/// A read runs on one thread; `CancelReading` may be called from any other, and the read then
/// stops at the next element, keeping everything complete that was built before.
///
/// One reader can read the documents of a project in turn: objects of an earlier document stay
/// known to a `data3D` of a later one.
class ZENTRA_EXPORT OxaXmlReader : public oxaIO::OxaReader {
public:
    /// Reads whole documents into the root's system, as the root's own loads do.
    explicit OxaXmlReader(OxaRoot* root);
    /// Reads whole documents into `system`; root containers are made for the system and listed
    /// in the result's object section. For a system without a project root.
    explicit OxaXmlReader(model::System* system);
    /// Reads a geometry fragment into `surface`, whose coordinates are given in `unit`.
    OxaXmlReader(mesh3D::Surface* surface, basic::unit unit);
    /// Reads a material fragment into `material`: its colours and texture are overwritten.
    explicit OxaXmlReader(mesh3D::Material* material);
    OxaXmlReader(const OxaXmlReader&) = delete;
    OxaXmlReader& operator=(const OxaXmlReader&) = delete;
    /// Deletes the result it holds, with the sets it lists; a result taken before is the
    /// caller's and left alone.
    ~OxaXmlReader() override;

    /// Reads the file. False only when it cannot be parsed, with the parser's text in
    /// `errorText`; a cancelled read gives true and keeps what was read. After the parse the
    /// demolition properties are applied to their surfaces.
    ///
    /// An `object3D` outside any container throws `basic::Exception` ("Object3D needs a parent
    /// object."): that is a broken exporter, not a broken file, and the host decides what to do.
    /// The read then leaves without its closing passes and `IsReading` stays true.
    bool ReadOxaXmlFile(const QString& fileName, QString* errorText);
    /// Reads a document given as text. Runs no closing pass and leaves `IsReading` true, as a
    /// fragment read is a step inside a larger edit whose owner ends it.
    bool ReadOxaXmlFragment(const QString& xmlText, QString* errorText);
    /// Hands the result over to the caller and puts a new empty one in its place. The sets that
    /// the result's set sections list are the caller's too (the sections do not own them).
    oxaIO::OxaObjects* GetOXAResult();
    /// Deletes a taken result with the sets that its set sections list.
    static void DeleteOXAResult(oxaIO::OxaObjects* document);

    /// Asks a running read to stop; callable from any thread. The message service is dropped
    /// at once, so no progress report follows, and stays dropped for later reads.
    void CancelReading();
    bool IsReading() const { return reading.load(std::memory_order_relaxed); }
    model::System* System() const { return system; }
    basic::MessageService* MsgService() const { return messageService.load(std::memory_order_relaxed); }
    void MsgService(basic::MessageService* service) {
        messageService.store(service, std::memory_order_relaxed);
    }
    /// For a project read as one job over several files: the total size of all files and the
    /// offset of the present one, so that progress runs once from 0 to 1.
    void SetMultiFileSize(int size) { multiFileSize = size; }
    void SetMultiFileOffset(int offset) { multiFileOffset = offset; }
    void SetExamineContainer(OxaExamineContainer* container) { examineContainer = container; }
    OxaExamineContainer* GetExamineContainer() const { return examineContainer; }
    /// Kept for hosts that set it; negative objects are always read.
    void ReadNegativeObjects(bool read) { readNegativeObjects = read; }

    /// Sends the texts joined by blanks as a progress message, if a message service is set.
    /// Always true.
    bool DebugMessage(const QString& first, const QString& second);
    bool DebugMessage(const QString& first, const QString& second, const QString& third);
    /// Delete the object if there is one; always true.
    bool _deleteContainer(mesh3D::Container* container);
    bool _deleteSurface(mesh3D::Surface* surface);

    /// Process-wide switches of what a read keeps: 4 properties, 8 height references; all bits
    /// are set at start.
    static void SetXmlReadMode(int bits);
    static void UnsetXmlReadMode(int bits);
    static int XmlReadMode();

    using wstring = std::wstring;

    /// Forgets where a previous parse stood: one that failed half way leaves open containers,
    /// objects and views behind, and the next document must not build into them.
    void StartDocument() override;
    void StartOxaDocument(wstring projectId, wstring sourceApp, wstring sourceFileName, wstring sourceFormat,
                          wstring created, wstring createdBy, wstring changedBy, wstring changed,
                          wstring version) override;
    void EndOxaDocument() override;
    void StartContent() override;
    void Section(oxaIO::ESectionType type) override;
    void EndContent() override;
    void StartObjectSection(wstring unit, wstring version) override;
    void EndObjectSection() override;
    void StartObjectDataSection(wstring version) override;
    void EndObjectDataSection() override;
    void StartMaterialSection(wstring version) override;
    void EndMaterialSection() override;
    void StartMaterial(wstring id, wstring name) override;
    void ColorDiff(int r, int g, int b, double a) override;
    void ColorSpec(int r, int g, int b, double a) override;
    void ColorAmb(int r, int g, int b, double a) override;
    void ColorTrans(double value) override;
    void TextureFile(wstring fileName) override;
    void EndMaterial() override;
    void GenericObject(wstring id, wstring name) override;
    void StartContainer(wstring id, wstring name, wstring unit, bool composite) override;
    void EndContainer() override;
    void StartRootContainer(wstring id, wstring name, std::vector<double>& rotation,
                            std::vector<double>& translation) override;
    void EndRootContainer() override;
    void StartObject2D(wstring id, wstring materialId, wstring name, bool negative, wstring refId) override;
    void EndObject2D() override;
    void StartObject3D(wstring id, wstring materialId, wstring name, bool negative, wstring refId) override;
    void EndObject3D() override;
    void StartData3D(wstring refId) override;
    void EndData3D() override;
    void Point(int number, double x, double y, double z) override;
    void Line(int p1, int p2) override;
    void StartTriangle(int p1, int p2, int p3) override;
    void EndTriangle() override;
    void TextureCoords(const std::vector<oxaIO::VCoords2D>& coords) override;
    void OptOBB(const oxaIO::VCoords3D& reference, const oxaIO::VCoords3D& x, const oxaIO::VCoords3D& y,
                const oxaIO::VCoords3D& z) override;
    /// The height is not kept: the plan box carries none.
    void OptOBBxy(const oxaIO::VCoords3D& reference, const oxaIO::VCoords3D& x, const oxaIO::VCoords3D& y,
                  double height) override;
    void StartPolyline(const std::vector<int>& points, double thickness, oxaIO::EPolylineType type) override;
    void EndPolyline() override;
    void StartTessellation() override;
    void EndTessellation() override;
    void StartSolid() override;
    void EndSolid() override;
    void StartFace() override;
    void EndFace() override;
    void SetFaceShape(oxaIO::EFaceShape shape) override;
    void StartPropertySection(wstring version) override;
    void EndPropertySection() override;
    void StartProperty(wstring refId, wstring name, wstring datatype, wstring unit) override;
    void ReadPropertyValue(wstring value) override;
    void EndProperty() override;
    void StartVal() override;
    void ReadValValue(wstring value) override;
    void EndVal() override;
    void StartTopologySection(wstring version) override;
    void EndTopologySection() override;
    void StartVisualisationSection(wstring version) override;
    void EndVisualisationSection() override;
    void StartViewContainer(wstring id, wstring name) override;
    void EndViewContainer() override;
    void StartView(wstring id, wstring name, bool current, wstring thumbnail) override;
    void EndView() override;
    void ViewBackGround(int r, int g, int b) override;
    void ViewClippingPlane(double distance, oxaIO::VCoords3D& normal, bool off) override;
    void ReadThumbnailData(unsigned char*& data, unsigned int& size) override;
    void ViewCamera(oxaIO::VCoords3D& eye, oxaIO::VCoords3D& lookAt, oxaIO::VCoords3D& up, double nearPlane,
                    double farPlane, double viewAngle, double aspectRatio, int projectionType,
                    double expOrthoWidth, double expOrthoHeight, double orthoWidth, double orthoHeight,
                    oxaIO::VCoords3D& savedEye, oxaIO::VCoords3D& savedLookAt) override;
    void StartLight(int number, wstring name, bool off) override;
    void SpotLight(const oxaIO::VCoords3D& position, const oxaIO::VCoords3D& direction,
                   double cutoff) override;
    void PositionalLight(const oxaIO::VCoords3D& position) override;
    void DirectionalLight(const oxaIO::VCoords3D& direction) override;
    void EndLight() override;
    void StartContacts(double eps, wstring unit, bool symmetric) override;
    void Contact(wstring& left, wstring& right) override;
    void EndContacts() override;
    void StartIntersections(double eps, wstring unit, bool symmetric) override;
    void Intersection(wstring& left, wstring& right) override;
    void EndIntersections() override;
    void StartHRefs(wstring unit) override;
    void EndHRefs() override;
    void HRef(wstring id, double z) override;
    void HRefRel(wstring refId, wstring lower, wstring upper) override;
    void StartFitSection(wstring version) override;
    void EndFitSection() override;
    void StartItem(wstring id, wstring key, wstring matchKey, wstring name, wstring description) override;
    void EndItem() override;
    void StartItemData(wstring refId, wstring description) override;
    void EndItemData() override;
    void StartFormula(bool original, bool quantity, wstring text, wstring variable) override;
    void EndFormula() override;
    void StartResult(wstring refId, wstring datatype, double value, int quality, wstring geometry) override;
    void ReadResultDetail(wstring text) override;
    void EndResult() override;
    void StartUnitSection(wstring version, wstring defaultUnitLength, wstring defaultUnitWeight,
                          wstring defaultUnitTime) override;
    void Unit(unsigned int dimension, oxaIO::ERoundMode roundMode, oxaIO::Nullable<unsigned int> digits,
              oxaIO::EDigitsMode digitsMode, wstring baseUnit, wstring linearBaseUnit,
              oxaIO::Nullable<double> convFactor, wstring description) override;
    void ReadUnitName(wstring name) override;
    void EndUnitSection() override;
    void StartSetSection(wstring version) override;
    void EndSetSection() override;
    void StartSetContainer(wstring id, wstring name) override;
    void EndSetContainer() override;
    void StartObjectSet(wstring id, wstring name, wstring contentType) override;
    void StartSmartSet(wstring id, wstring name, wstring contentType) override;
    void EndSet() override;
    void ObjectSetAddElement(wstring id) override;
    void SmartSetPredicate(wstring predicate) override;
    void StartActivitySection(wstring version) override;
    void EndActivitySection() override;
    void StartSchedule(wstring id, wstring name, wstring reference, int duration) override;
    void ReadDesc(wstring description) override;
    void EndSchedule() override;
    void StartActivity(wstring id, wstring name, wstring wbs, int duration, wstring visType,
                       wstring refId) override;
    void EndActivity() override;
    void StartStart(int year, int month, int day, int hour, int minute, int second) override;
    void EndStart() override;
    void StartEnd(int year, int month, int day, int hour, int minute, int second) override;
    void EndEnd() override;
    void StartLoggingSection(wstring version) override;
    void EndLoggingSection() override;
    void StartLevelDef() override;
    void Level(wstring id, wstring name) override;
    void EndLevelDef() override;
    void StartMsgGrp(wstring id, wstring description) override;
    void EndMsgGrp() override;
    void StartMsgInfo(oxaIO::EMsgTypes type, wstring module, int year, int month, int day, int hour,
                      int minute, int second, wstring levelRefId) override;
    void MsgTxt(wstring text) override;
    void MsgSet(wstring refId) override;
    void EndMsgInfo() override;

private:
    /// Opens nearly every callback: throws the cancel exception once a running read is asked to
    /// stop, and otherwise reports progress once per thousand calls (process-wide) if the source
    /// moved on. True when it reported.
    bool EmitProgress();
    enum class Channel { Diffuse, Specular, Ambient };
    /// Sets one colour channel of the current material and of the current light.
    void SetColor(Channel channel, int r, int g, int b, double a);
    /// The demolition properties: each surface named by an "oxaSimulationType" of "Demolish"
    /// gets simulation type 1. Gives the number of such surfaces.
    int _resolveProperties();
    void _deleteSurfaceIDList();
    void _deleteContainerIDList();

    oxaIO::OxaSection* currentSection = nullptr;
    oxaIO::OxaObjects* result;
    /// Objects to drop once a file is read, by the passes that close every read; no callback
    /// fills them so far.
    QList<mesh3D::Surface*> surfacesToDelete;
    QList<QString> containersToDelete;
    unsigned lastOffset = 0;
    QString fileName;
    int totalSize = 0;
    mesh3D::Surface* targetSurface = nullptr;
    mesh3D::Surface* currentSurface = nullptr;
    mesh3D::Face* currentFace = nullptr;
    mesh3D::Solid* currentSolid = nullptr;
    mesh3D::Container* currentContainer = nullptr;
    mesh3D::Material* currentMaterial = nullptr;
    QHash<QString, mesh3D::Material*> materialsByID;
    QStack<mesh3D::Container*> containerStack;
    QStack<double> scaleStack;
    QStack<basic::unit> unitStack;
    basic::unit currentUnit = basic::unit_m;
    double currentScale = 1.0;
    QHash<int, mesh3D::Vertex*> points;
    /// The number under which each kept vertex first came, while examination data is recorded.
    QHash<mesh3D::Vertex*, int> keptNumbers;
    QHash<QString, mesh3D::Surface*> surfacesByID;
    mesh3D::Triangle* currentTriangle = nullptr;
    mesh3D::Polygon* currentPolyline = nullptr;
    QVector<model::mapCoordsType>* currentMappingCoordinates = nullptr;
    oxaIO::VOxaPropertyType* currentProperty = nullptr;
    ViewContainer* currentViewContainer = nullptr;
    View* currentView = nullptr;
    Light* currentLight = nullptr;
    bool negative = false;
    bool surfaceFragment = false;
    bool materialFragment = false;
    bool inTessellation = false;
    double contactEpsilon = 0.0;
    std::wstring contactUnit;
    bool contactSymmetric = true;
    oxaIO::ISet* currentSet = nullptr;
    bool readNegativeObjects = true;
    std::atomic<bool> reading{false};
    std::atomic<bool> cancel{false};
    int skippedContainers = 0;
    int skippedObjects = 0;
    int skippedMaterials = 0;
    model::System* system;
    OxaExamineContainer* examineContainer;
    OxaExamineData* examineData = nullptr;
    std::atomic<basic::MessageService*> messageService{nullptr};
    int multiFileSize = 0;
    int multiFileOffset = 0;
};

} // namespace oxa
