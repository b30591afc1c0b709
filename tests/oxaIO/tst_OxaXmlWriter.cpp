#include "WriterModel.h"

#include "oxaIO/ExportContext.h"
#include "oxaIO/OxaActivitySection.h"
#include "oxaIO/OxaFitSection.h"
#include "oxaIO/OxaNullReader.h"
#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaObjects.h"
#include "oxaIO/OxaPropertySection.h"
#include "oxaIO/OxaSetSection.h"
#include "oxaIO/OxaTopologySection.h"
#include "oxaIO/OxaUnitSection.h"
#include "oxaIO/OxaVisualisationSection.h"
#include "oxaIO/OxaXmlWriter.h"
#include "tavxmln/CXMLManager.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using namespace oxaIO;
namespace wm = writermodel;
namespace tmod = testmodel;

namespace {

QString Text(const std::wstring& text) {
    return QString::fromStdWString(text);
}
/// Fifteen significant digits: a coordinate that went through a unit and back compares equal.
QString Text(double value) {
    return std::isnan(value) ? "none" : QString::number(value, 'g', 15);
}
QString Text(bool flag) {
    return flag ? "true" : "false";
}
QString Text(int value) {
    return QString::number(value);
}
QString Text(const VCoords3D& c) {
    return QString("(%1 %2 %3)").arg(Text(c.x), Text(c.y), Text(c.z));
}
template <typename T> QString Text(const std::vector<T>& values) {
    QStringList items;
    for (const T& value : values)
        items << Text(value);
    return "[" + items.join(" ") + "]";
}
QString Text(const std::vector<VCoords2D>& coords) {
    QStringList items;
    for (const VCoords2D& c : coords)
        items << Text(c.x) + "," + Text(c.y);
    return "[" + items.join(" ") + "]";
}

/// Records what a reader of the written document gets, one line per callback, with every
/// identifier in its model form.
class RecordingReader : public OxaNullReader {
public:
    QStringList lines;
    QString created;

    void Read(const QString& path) {
        tavxmln::CXMLManager::GetInstance()->LoadDocument(path.toStdWString().c_str(), this, true, false,
                                                          nullptr, false, false);
    }

    template <typename... Args> void Log(const char* name, const Args&... args) {
        lines << QString(name) + "(" + QStringList{Text(args)...}.join(", ") + ")";
    }

    void StartOxaDocument(wstring projectId, wstring sourceApp, wstring sourceFileName, wstring sourceFormat,
                          wstring createdText, wstring createdBy, wstring changedBy, wstring changed,
                          wstring version) override {
        created = Text(createdText);
        Log("Document", projectId, sourceApp, sourceFileName, sourceFormat, createdBy, changedBy, changed,
            version);
    }
    void Section(ESectionType type) override { Log("Section", int(type)); }
    void StartObjectSection(wstring unit, wstring version) override { Log("ObjectSection", unit, version); }
    void StartMaterial(wstring id, wstring name) override { Log("Material", id, name); }
    void ColorDiff(int r, int g, int b, double a) override { Log("Diff", r, g, b, a); }
    void ColorSpec(int r, int g, int b, double a) override { Log("Spec", r, g, b, a); }
    void ColorAmb(int r, int g, int b, double a) override { Log("Amb", r, g, b, a); }
    void ColorTrans(double value) override { Log("Trans", value); }
    void TextureFile(wstring fileName) override { Log("TextureFile", fileName); }
    void GenericObject(wstring id, wstring name) override { Log("GenericObject", id, name); }
    void StartContainer(wstring id, wstring name, wstring unit, bool composite) override {
        Log("Container", id, name, unit, composite);
    }
    void EndContainer() override { Log("EndContainer"); }
    void StartRootContainer(wstring id, wstring name, std::vector<double>& rotation,
                            std::vector<double>& translation) override {
        Log("RootContainer", id, name, rotation, translation);
    }
    void StartObject2D(wstring id, wstring materialId, wstring name, bool negative, wstring refId) override {
        Log("Object2D", id, materialId, name, negative, refId);
    }
    void StartObject3D(wstring id, wstring materialId, wstring name, bool negative, wstring refId) override {
        Log("Object3D", id, materialId, name, negative, refId);
    }
    void StartData3D(wstring refId) override { Log("Data3D", refId); }
    void Point(int number, double x, double y, double z) override { Log("P", number, x, y, z); }
    void Line(int p1, int p2) override { Log("L", p1, p2); }
    void StartTriangle(int p1, int p2, int p3) override { Log("T", p1, p2, p3); }
    void TextureCoords(const std::vector<VCoords2D>& coords) override { Log("Tex", coords); }
    void OptOBB(const VCoords3D& reference, const VCoords3D& x, const VCoords3D& y,
                const VCoords3D& z) override {
        Log("OBB", reference, x, y, z);
    }
    void StartPolyline(const std::vector<int>& points, double thickness, EPolylineType type) override {
        Log("Pl", points, thickness, int(type));
    }
    void StartTessellation() override { Log("Tess"); }
    void EndTessellation() override { Log("EndTess"); }
    void StartSolid() override { Log("Solid"); }
    void EndSolid() override { Log("EndSolid"); }
    void StartFace() override { Log("Face"); }
    void EndFace() override { Log("EndFace"); }
    void SetFaceShape(EFaceShape shape) override { Log("FaceShape", int(shape)); }
    void StartPropertySection(wstring version) override { Log("PropertySection", version); }
    void StartProperty(wstring refId, wstring name, wstring datatype, wstring unit) override {
        propertyIsReference = datatype == L"xs:IDREF";
        Log("Property", refId, name, datatype, unit);
    }
    void ReadPropertyValue(wstring value) override {
        Log("Value", propertyIsReference ? GetObjectID(value) : value);
    }
    void StartContacts(double eps, wstring unit, bool symmetric) override {
        Log("Contacts", eps, unit, symmetric);
    }
    void Contact(wstring& left, wstring& right) override { Log("Contact", left, right); }
    void StartIntersections(double eps, wstring unit, bool symmetric) override {
        Log("Intersections", eps, unit, symmetric);
    }
    void Intersection(wstring& left, wstring& right) override { Log("Intersection", left, right); }
    void StartHRefs(wstring unit) override { Log("HRefs", unit); }
    // The reader hands the height levels' own numbers and the related object's number on as
    // they stand; they are mapped here to compare with the model.
    void HRef(wstring id, double z) override { Log("HRef", GetObjectID(id), z); }
    void HRefRel(wstring refId, wstring lower, wstring upper) override {
        Log("HRefRel", GetObjectID(refId), lower, upper);
    }
    void StartItem(wstring id, wstring key, wstring matchKey, wstring name, wstring description) override {
        Log("Item", id, key, matchKey, name, description);
    }
    void EndItem() override { Log("EndItem"); }
    void StartItemData(wstring refId, wstring description) override { Log("ItemData", refId, description); }
    void StartFormula(bool original, bool quantity, wstring text, wstring variable) override {
        Log("Formula", original, quantity, text, variable);
    }
    void StartResult(wstring refId, wstring datatype, double value, int quality, wstring geometry) override {
        Log("Result", refId, datatype, value, quality, geometry);
    }
    void ReadResultDetail(wstring text) override { Log("ResultText", text); }
    void StartViewContainer(wstring id, wstring name) override { Log("ViewContainer", id, name); }
    void StartView(wstring id, wstring name, bool current, wstring thumbnail) override {
        Log("View", id, name, current, thumbnail);
    }
    void ReadThumbnailData(unsigned char*& data, unsigned int& size) override {
        lines << "Thumbnail(" + QByteArray(reinterpret_cast<const char*>(data), int(size)).toHex() + ")";
    }
    void ViewCamera(VCoords3D& eye, VCoords3D& lookAt, VCoords3D& up, double nearPlane, double farPlane,
                    double viewAngle, double aspectRatio, int projectionType, double expOrthoWidth,
                    double expOrthoHeight, double orthoWidth, double orthoHeight, VCoords3D& savedEye,
                    VCoords3D& savedLookAt) override {
        Log("Camera", eye, lookAt, up, nearPlane, farPlane, viewAngle, aspectRatio, projectionType,
            expOrthoWidth, expOrthoHeight, orthoWidth, orthoHeight, savedEye, savedLookAt);
    }
    void ViewBackGround(int r, int g, int b) override { Log("Background", r, g, b); }
    void ViewClippingPlane(double distance, VCoords3D& normal, bool off) override {
        Log("ClippingPlane", distance, normal, off);
    }
    void StartLight(int number, wstring name, bool off) override { Log("Light", number, name, off); }
    void SpotLight(const VCoords3D& position, const VCoords3D& direction, double cutoff) override {
        Log("Spot", position, direction, cutoff);
    }
    void PositionalLight(const VCoords3D& position) override { Log("Positional", position); }
    void DirectionalLight(const VCoords3D& direction) override { Log("Directional", direction); }
    void StartUnitSection(wstring version, wstring length, wstring weight, wstring time) override {
        Log("UnitSection", version, length, weight, time);
    }
    void Unit(unsigned int dimension, ERoundMode roundMode, Nullable<unsigned int> digits,
              EDigitsMode digitsMode, wstring baseUnit, wstring linearBaseUnit, Nullable<double> convFactor,
              wstring description) override {
        Log("Unit", int(dimension), int(roundMode), digits.HasValue() ? int(digits.Value()) : -1,
            int(digitsMode), baseUnit, linearBaseUnit,
            convFactor.HasValue() ? convFactor.Value() : std::nan(""), description);
    }
    void ReadUnitName(wstring name) override { Log("UnitName", name); }
    void StartSetSection(wstring version) override { Log("SetSection", version); }
    void StartSetContainer(wstring id, wstring name) override { Log("SetContainer", id, name); }
    void StartObjectSet(wstring id, wstring name, wstring contentType) override {
        Log("ObjectSet", id, name, contentType);
    }
    void StartSmartSet(wstring id, wstring name, wstring contentType) override {
        Log("SmartSet", id, name, contentType);
    }
    void ObjectSetAddElement(wstring id) override { Log("Member", id); }
    void StartSchedule(wstring id, wstring name, wstring reference, int duration) override {
        Log("Schedule", id, name, reference, duration);
    }
    void ReadDesc(wstring description) override { Log("Desc", description); }
    void StartActivity(wstring id, wstring name, wstring wbs, int duration, wstring visType,
                       wstring refId) override {
        Log("Activity", id, name, wbs, duration, visType, refId);
    }
    void EndActivity() override { Log("EndActivity"); }
    void StartStart(int year, int month, int day, int hour, int minute, int second) override {
        Log("Start", year, month, day, hour, minute, second);
    }
    void StartEnd(int year, int month, int day, int hour, int minute, int second) override {
        Log("End", year, month, day, hour, minute, second);
    }

private:
    bool propertyIsReference = false;
};

QByteArray ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool Write(OxaObjects& document, const QString& path, std::wstring* error = nullptr) {
    OxaXmlWriter writer(&document);
    std::wstring text;
    const bool written = writer.Write(path.toStdWString(), text);
    if (error)
        *error = text;
    else if (!written)
        qWarning() << Text(text);
    return written;
}

/// A wall of four vertices (in metres) with every kind of geometry the walk knows.
wm::Object3D* MakeWall(const IMaterial* material) {
    auto* wall = new wm::Object3D(L"wall", L"Wall");
    wall->material = material;
    wall->refID = L"ref-wall";
    auto* a = wall->AddVertex(0, 0, 0);
    auto* b = wall->AddVertex(1.25, 0, 0);
    auto* c = wall->AddVertex(1.25, 0, 2.5);
    auto* d = wall->AddVertex(0, 0.001, 2.5);
    wall->Add(new wm::Triangle(a, b, c))->texture.coords = {{0, 0}, {1, 0}, {1, 1}};
    wall->Add(new wm::Triangle(a, c, d))->texture.coords = {{0, 0}, {1, 1}}; // two coordinates: none
    wall->Add(new wm::Triangle(b, c, d, false)); // inside a face only: not written at the root
    wall->Add(new wm::Polygon({a, b, c, d}))->texture.coords = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    wall->Add(new wm::Polygon({a, b, c, a}, plChain));
    wall->Add(new wm::Polygon({a, c, d}, plPolygon, false)); // skipped, its 3 coordinates still count
    auto* tessellated = wall->Add(new wm::Polygon({a, b, c, d}, plNone));
    tessellated->texture.coords = {{9, 9}};
    tessellated->Tessellate(a, b, c)->texture.coords = {{0, 0}, {1, 0}, {1, 1}};
    auto* face = wall->Add(new wm::Face(fsCurved));
    face->Add(new wm::Triangle(a, b, d, false));
    face->Add(new wm::Polygon({b, c, d}, plPolygon, false));
    auto* solid = wall->Add(new wm::Solid());
    solid->Add(new wm::Face())->Add(new wm::Triangle(a, d, c, false));
    wall->box.reset(new wm::Box({0, 0, 0}, {1.25, 0, 0}, {0, 0.25, 0}, {0, 0, 2.5}));
    return wall;
}

/// A document with every section the walk writes, and with what a rewrite drops.
void BuildDocument(OxaObjects& document, const std::wstring& unit) {
    ExportContext& context = document.Context();
    context.ProjectID(L"P-1");
    context.CreatedBy(L"tester");
    context.SourceApp(L"zentra tests");
    context.SourceFormat(L"hand made");

    OxaObjectSection& objects = document.ObjectSection();
    objects.Unit(unit);
    auto* brick = new wm::Material(L"brick", L"Brick", {0.8f, 0.4f, 0.2f, 1.0f}, 0.25, L"brick.png");
    objects.AddMaterial(brick);
    objects.AddMaterial(new wm::Material(L"glass", L"", {0.0f, 0.0f, 1.0f, 0.5f}));

    auto* site = new wm::Container(L"site", L"Site");
    objects.AddContainer(site);
    objects.SetContainerRotTrans(site, new std::vector<double>{0, 1, 0, -1, 0, 0, 0, 0, 1},
                                 new std::vector<double>{5, 6, 7});
    auto* loose = site->Add(new wm::Object3D(L"loose"));
    auto* l0 = loose->AddVertex(0, 0, 0);
    auto* l1 = loose->AddVertex(1, 0, 0);
    auto* l2 = loose->AddVertex(0, 1, 0);
    loose->Add(new wm::Triangle(l0, l1, l2));

    auto* building = site->Add(new wm::Container(L"building", L"Building", true));
    auto* plan = building->Add(new wm::Object2D(L"plan", L"Plan"));
    plan->AddVertex(0, 0, 0);
    plan->AddVertex(2, 0.5, 0);
    building->Add(MakeWall(brick));
    auto* hole = building->Add(new wm::Object3D(L"void"));
    hole->negative = true;
    auto* h0 = hole->AddVertex(0.5, 0, 1);
    auto* h1 = hole->AddVertex(1, 0, 1);
    auto* h2 = hole->AddVertex(1, 0, 2);
    hole->Add(new wm::Triangle(h0, h1, h2));
    building->Add(new wm::Object3D(L"empty", L"No geometry"));
    building->Add(new tmod::GenericObject(L"door", L"Door"));
    auto* floor = building->Add(new wm::Container(L"floor"));
    auto* slab = floor->Add(new wm::Object3D(L"slab", L"Slab"));
    slab->AddVertex(-1, -1, 0);

    objects.PropertySection().AddProperty(
        new VOxaPropertyType{L"wall", L"Fire rating", L"xs:string", L"F90", L""});
    objects.PropertySection().AddProperty(
        new VOxaPropertyType{L"wall", L"Host", L"xs:IDREF", L"building", L""});
    objects.PropertySection().AddProperty(
        new VOxaPropertyType{L"slab", L"Area", L"xs:double", L"12.5", L"m2"});
    static tmod::ObjectSet objectSectionSet(L"objset");
    objectSectionSet.AddElementID(L"wall");
    objects.SetSection().AddSet(&objectSectionSet);

    OxaTopologySection& topology = document.TopologySection();
    topology.AddContact({L"wall", L"slab"}, 5, L"mm", true);
    topology.AddIntersection({L"wall", L"void"}, 0.01, L"m", false);
    topology.HRefsUnit(L"m");
    topology.GetHRefDefinitions().push_back(new tmod::HRef(L"level0", L"Ground"));
    topology.GetHRefRelations().push_back({L"wall", L"level1", L"level0"});

    OxaFitSection& fit = document.GetFitSection();
    static tmod::Item root(L"");
    static bool rootBuilt = false;
    if (!rootBuilt) {
        root.Add(new tmod::Item(L"i1"))->Add(new tmod::Item(L"i11"));
        root.Add(new tmod::Item(L"i2"));
        rootBuilt = true;
    }
    fit.RootItem(&root);
    auto* data = new tmod::ItemData(L"i1");
    data->Add(new tmod::Formula())->Add(new tmod::Result(L"wall"));
    fit.AddItemData(data);

    OxaVisualisationSection& views = document.VisualisationSection();
    auto* viewContainer = new tmod::ViewContainer(L"views", L"Views");
    auto* view = new wm::View(L"v1", L"Front", QByteArray("PNG\0\x01\xff", 6));
    view->Cameras().push_back(new wm::Camera(1));
    view->Cameras().push_back(new wm::Camera(0));
    view->Lights().push_back(new wm::Light(0, esSpot));
    view->Lights().push_back(new wm::Light(1, esPositional));
    view->Lights().push_back(new wm::Light(2, esDirectional));
    view->Lights().push_back(new wm::Light(3, 0));
    view->ClippingPlanes().push_back(new wm::ClippingPlane());
    viewContainer->AddView(view);
    viewContainer->AddView(new wm::View(L"v2", L""));
    views.AddViewContainer(viewContainer);
    views.AddViewContainer(new tmod::ViewContainer(L"none"));

    document.GetUnitSection().AddUnit(new wm::Unit());
    document.GetUnitSection().AddUnit(new tmod::Unit());

    OxaActivitySection& activities = document.ActivitySection();
    auto* schedule = new wm::Schedule(L"s1", L"Construction");
    schedule->Add(new tmod::Activity(L"a1", L"wall"))->Add(new tmod::Activity(L"a2", L"slab"));
    activities.AddSchedule(schedule);
    activities.PropertySection().AddProperty(
        new VOxaPropertyType{L"a1", L"Cost", L"xs:double", L"100", L"EUR"});
    static tmod::ObjectSet walls(L"set1", L"Walls");
    static tmod::ObjectSet none(L"set0");
    static wm::SmartSet smart(L"smart");
    if (walls.ElementIDs().empty()) {
        walls.ContentType(L"Object3D");
        walls.AddElementID(L"wall");
        walls.AddElementID(L"void");
        walls.AddElementID(L"wall");
    }
    activities.SetSection().AddSet(&walls);
    activities.SetSection().AddSet(&none);
    activities.SetSection().AddSet(&smart);
}

/// What a reader gets from the document of `BuildDocument`: `scale` is the length in metres of
/// the document's unit.
QStringList ExpectedRead(const QString& unit, double scale) {
    const auto p = [scale](int nr, double x, double y, double z) {
        return QString("P(%1, %2, %3, %4)").arg(nr).arg(Text(x / scale), Text(y / scale), Text(z / scale));
    };
    const auto v = [scale](double x, double y, double z) {
        return Text(VCoords3D{x / scale, y / scale, z / scale});
    };
    return QStringList{
        "Document(P-1, zentra tests, , hand made, tester, , , 1.5)",
        "Section(1)",
        "Section(4)",
        "Section(5)",
        "Section(8)",
        "Section(12)",
        // fit section
        "Item(i1, , , , )",
        "Item(i11, , , , )",
        "EndItem()",
        "EndItem()",
        "Item(i2, , , , )",
        "EndItem()",
        "ItemData(i1, )",
        "Formula(false, true, , )",
        "Result(wall, , none, 0, )",
        // object section
        "ObjectSection(" + unit + ", 1.5)",
        "Material(brick, Brick)",
        "Diff(204, 102, 51, 1)",
        "Spec(128, 128, 128, 1)",
        "Amb(26, 51, 77, 1)",
        "Trans(0.25)",
        "TextureFile(brick.png)",
        "Material(glass, )",
        "Diff(0, 0, 255, 0.5)",
        "Spec(128, 128, 128, 1)",
        "Amb(26, 51, 77, 1)",
        "Trans(0)",
        "TextureFile()",
        "RootContainer(site, Site, [1 0 0 0 1 0 0 0 1], [0 0 0])",
        "Container(building, Building, , true)",
        "Object2D(plan, , Plan, false, )",
        p(0, 0, 0, 0),
        p(1, 2, 0.5, 0),
        "Object3D(wall, brick, Wall, false, ref-wall)",
        "Object3D(void, , , true, )",
        "GenericObject(door, Door)",
        "Container(floor, , , false)",
        "Object3D(slab, , Slab, false, )",
        "EndContainer()",
        "EndContainer()",
        "PropertySection(1.5)",
        "Property(wall, Fire rating, xs:string, )",
        "Value(F90)",
        "Property(wall, Host, xs:IDREF, )",
        "Value(building)",
        "Property(slab, Area, xs:double, m2)",
        "Value(12.5)",
        // topology
        "Contacts(0.005, m, true)",
        "Contact(wall, slab)",
        "Intersections(0.01, m, false)",
        "Intersection(wall, void)",
        "HRefs(m)",
        "HRef(level0, 0)",
        "HRefRel(wall, level0, level1)",
        // views
        "ViewContainer(views, Views)",
        "View(v1, Front, true, )",
        "Thumbnail(504e470001ff)",
        "Camera((10 -5 3), (0 0 1), (0 0 1), 0.25, 500, 45, 1.6, 1, 20, 12.5, 19, 11.875, (1 2 3), (4 5 6))",
        "Camera((10 -5 3), (0 0 1), (0 0 1), 0.25, 500, 45, 1.6, 0, 0, 0, 0, 0, (0 0 0), (0 0 0))",
        "Light(0, Sun, false)",
        "Amb(51, 51, 51, 0)",
        "Diff(255, 255, 255, 1)",
        "Spec(128, 128, 128, 1)",
        "Spot((0 0 10), (0 0 -1), 30)",
        "Light(1, , false)",
        "Amb(51, 51, 51, 0)",
        "Diff(255, 255, 255, 1)",
        "Spec(128, 128, 128, 1)",
        "Positional((0 0 10))",
        "Light(2, , true)",
        "Amb(51, 51, 51, 0)",
        "Diff(255, 255, 255, 1)",
        "Spec(128, 128, 128, 1)",
        "Directional((0 0 -1))",
        "Light(3, , true)",
        "Amb(51, 51, 51, 0)",
        "Diff(255, 255, 255, 1)",
        "Spec(128, 128, 128, 1)",
        "ClippingPlane(2.5, (0 0 1), false)",
        "Background(255, 255, 255)",
        "View(v2, , true, view.png)",
        "Background(255, 255, 255)",
        // units
        "UnitSection(1.4, , , )",
        "Unit(1, 2, 2, 1, m, , 0.001, Millimetre)",
        "UnitName(mm)",
        "Unit(1, 2, -1, 0, , , none, )",
        "UnitName(m)",
        // activities
        "Schedule(s1, Construction, Phase 1, 0)",
        "Desc(Phase 1)",
        "Start(2024, 6, 1, 12, 0, 0)",
        "End(2024, 6, 1, 12, 0, 0)",
        "Activity(a1, , , -1, , wall)",
        "Activity(a2, , , -1, , slab)",
        "EndActivity()",
        "EndActivity()",
        "PropertySection(1.5)",
        "Property(a1, Cost, xs:double, EUR)",
        "Value(100)",
        "SetSection(1.4)",
        "ObjectSet(set1, Walls, Object3D)",
        "Member(void)",
        "Member(wall)",
        // geometry
        "Data3D(loose)",
        p(0, 0, 0, 0),
        p(1, 1, 0, 0),
        p(2, 0, 1, 0),
        "T(0, 1, 2)",
        "Data3D(wall)",
        p(0, 0, 0, 0),
        p(1, 1.25, 0, 0),
        p(2, 1.25, 0, 2.5),
        p(3, 0, 0.001, 2.5),
        "T(0, 1, 2)",
        "Tex([0,0 1,0 1,1])",
        "T(0, 2, 3)",
        "Pl([0 1 2 3 0], 1, 2)",
        "Tex([0,0 1,0 1,1 0,1])",
        "Pl([0 1 2 0], 1, 1)",
        "Pl([0 1 2 3 0], 1, 0)",
        "Tess()",
        "T(0, 1, 2)",
        "Tex([0,0 1,0 1,1])",
        "EndTess()",
        "Face()",
        "FaceShape(0)",
        "T(0, 1, 3)",
        "Pl([1 2 3 1], 1, 2)",
        "EndFace()",
        "Solid()",
        "Face()",
        "FaceShape(0)",
        "T(0, 3, 2)",
        "EndFace()",
        "EndSolid()",
        "OBB(" + v(0, 0, 0) + ", " + v(1.25, 0, 0) + ", " + v(0, 0.25, 0) + ", " + v(0, 0, 2.5) + ")",
        "Data3D(void)",
        p(0, 0.5, 0, 1),
        p(1, 1, 0, 1),
        p(2, 1, 0, 2),
        "T(0, 1, 2)",
        "Data3D(slab)",
        p(0, -1, -1, 0),
    };
}

/// Whatever the reader got that is not in the expected list, and what it missed, in order.
QString Difference(const QStringList& actual, const QStringList& expected) {
    QStringList lines;
    for (int i = 0; i < std::max(actual.size(), expected.size()); ++i) {
        const QString a = actual.value(i), e = expected.value(i);
        if (a != e)
            lines << QString("%1: got '%2' expected '%3'").arg(i).arg(a, e);
        if (lines.size() > 5)
            break;
    }
    return lines.join("\n");
}

} // namespace

class tst_OxaXmlWriter : public QObject {
    Q_OBJECT

private slots:
    void init() { QVERIFY(dir.isValid()); }
    void roundTrip_data();
    void roundTrip();
    void writingTwiceGivesTheSameBytes();
    void whatARewriteDrops();
    void emptyDocument();
    void emptyRootContainer();
    void textureRunOverSkippedPolygons();
    void propertiesOnlyInTheActivitySection();
    void scheduleWithoutReference();
    void noDocument();
    void failureKeepsTheOriginal();
    void unwritableFolder();
    void replacesTheOriginalOnSuccess();
    void targetThatCannotBeReplaced();

private:
    QString Path(const QString& name) const { return dir.filePath(name); }
    QTemporaryDir dir;
};

void tst_OxaXmlWriter::roundTrip_data() {
    QTest::addColumn<QString>("unit");
    QTest::addColumn<double>("scale");
    QTest::newRow("metres") << "m" << 1.0;
    QTest::newRow("millimetres") << "mm" << 0.001;
    QTest::newRow("feet, as the system counts them") << "foot" << 0.305;
    QTest::newRow("a unit the system does not know") << "furlong" << 1.0;
}

void tst_OxaXmlWriter::roundTrip() {
    // Everything a rewrite keeps comes back from a read of the written file; geometry in the
    // unit of the document, every identifier as it was.
    QFETCH(QString, unit);
    QFETCH(double, scale);
    OxaObjects document;
    BuildDocument(document, unit.toStdWString());
    QVERIFY(Write(document, Path("round.oxaxml")));
    RecordingReader reader;
    reader.Read(Path("round.oxaxml"));
    const QStringList expected = ExpectedRead(unit, scale);
    QVERIFY2(reader.lines == expected, qPrintable(Difference(reader.lines, expected)));
    QCOMPARE(reader.created, Text(document.Context().CreatedTimeAsString()));
    QVERIFY(!QFileInfo::exists(Path("round.oxaxml.part")));
}

void tst_OxaXmlWriter::writingTwiceGivesTheSameBytes() {
    // Twice with one writer, and once more with another.
    OxaObjects document;
    BuildDocument(document, L"mm");
    OxaXmlWriter writer(&document);
    std::wstring error;
    QVERIFY(writer.Write(Path("first.oxaxml").toStdWString(), error));
    QVERIFY(writer.Write(Path("second.oxaxml").toStdWString(), error));
    QVERIFY(Write(document, Path("third.oxaxml")));
    const QByteArray first = ReadFile(Path("first.oxaxml"));
    QVERIFY(first.size() > 1000);
    QCOMPARE(ReadFile(Path("second.oxaxml")), first);
    QCOMPARE(ReadFile(Path("third.oxaxml")), first);
    QVERIFY(first.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<objects "));
}

void tst_OxaXmlWriter::whatARewriteDrops() {
    OxaObjects document;
    BuildDocument(document, L"m");
    QVERIFY(Write(document, Path("drops.oxaxml")));
    const QString xml = QString::fromUtf8(ReadFile(Path("drops.oxaxml")));
    // The objects of a root container are listed nowhere, though their geometry is written.
    RecordingReader reader;
    reader.Read(Path("drops.oxaxml"));
    QVERIFY(!reader.lines.contains("Object3D(loose, , , false, )"));
    QVERIFY(reader.lines.contains("Data3D(loose)"));
    // An object without vertices is written neither as an object nor as geometry.
    QVERIFY(!xml.contains("No geometry"));
    // No face shape, no smart set, no set outside the activity section, no description that
    // is not the reference.
    QVERIFY(!xml.contains("shape="));
    QVERIFY(!reader.lines.join(" ").contains("smart"));
    QVERIFY(!reader.lines.join(" ").contains("objset"));
    QVERIFY(!reader.lines.join(" ").contains("set0"));
    QVERIFY(!xml.contains("not written"));
    // Sections that the walk never writes, and the rotation of the root container.
    for (const char* element : {"currencySection", "bsSection", "loggingSection", "mRot=\"0 1", "thickness",
                                "defaultUnitLength", "roundMode", "visType", "<l "})
        QVERIFY2(!xml.contains(element), element);
    QVERIFY(!reader.lines.join(" ").contains("ViewContainer(none"));
}

void tst_OxaXmlWriter::emptyDocument() {
    OxaObjects document;
    QVERIFY(Write(document, Path("empty.oxaxml")));
    const QString xml = QString::fromUtf8(ReadFile(Path("empty.oxaxml")));
    const QString expected =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<objects xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
        "xsi:noNamespaceSchemaLocation=\"OXA-Objects.xsd\" projectID=\"\" createdBy=\"\" "
        "sourceApp=\"\" sourceFormat=\"\" created=\"" +
        Text(document.Context().CreatedTimeAsString()) +
        "\" oxaversion=\"1.5\">\n"
        "  <content version=\"1.2\"/>\n"
        "</objects>\n";
    QCOMPARE(xml, expected);
}

void tst_OxaXmlWriter::emptyRootContainer() {
    OxaObjects document;
    document.ObjectSection().AddContainer(new tmod::Container(L"root"));
    QVERIFY(Write(document, Path("root.oxaxml")));
    const QString xml = QString::fromUtf8(ReadFile(Path("root.oxaxml")));
    const int body = xml.indexOf("<content");
    QCOMPARE(xml.mid(body),
             QString("<content version=\"1.2\">\n"
                     "    <section name=\"objectSection\"/>\n"
                     "  </content>\n"
                     "  <IDMapping version=\"1.4\">\n"
                     "    <ID k=\"1\" v=\"root\"/>\n"
                     "  </IDMapping>\n"
                     "  <objectSection unit=\"unknown\" version=\"1.5\">\n"
                     "    <rootContainer ID=\"1\" mRot=\"1.000000 0.000000 0.000000 0.000000 1.000000 "
                     "0.000000 0.000000 0.000000 1.000000\" vTrans=\"0.000000 0.000000 0.000000\"/>\n"
                     "  </objectSection>\n"
                     "  <objectDataSection version=\"1.5\"/>\n"
                     "</objects>\n"));
}

void tst_OxaXmlWriter::textureRunOverSkippedPolygons() {
    // A triangle asks from 0; polygons ask at the running index, which advances by the length
    // of each polygon, or by 3 per triangle of its tessellation, whether written or skipped.
    OxaObjects document;
    auto* root = new tmod::Container(L"root");
    document.ObjectSection().AddContainer(root);
    auto* object = root->Add(new wm::Object3D(L"o"));
    auto* a = object->AddVertex(0, 0, 0);
    auto* b = object->AddVertex(1, 0, 0);
    auto* c = object->AddVertex(1, 1, 0);
    auto* d = object->AddVertex(0, 1, 0);
    auto* triangle = object->Add(new wm::Triangle(a, b, c));
    auto* first = object->Add(new wm::Polygon({a, b, c, d}));
    auto* skipped = object->Add(new wm::Polygon({a, b, c}, plPolygon, false));
    auto* tessellated = object->Add(new wm::Polygon({a, b, c, d}));
    auto* part1 = tessellated->Tessellate(a, b, c);
    auto* part2 = tessellated->Tessellate(a, c, d);
    auto* last = object->Add(new wm::Polygon({a, b, d}));
    QVERIFY(Write(document, Path("run.oxaxml")));
    QCOMPARE(triangle->texture.askedIndices, std::vector<int>{0});
    QCOMPARE(first->texture.askedIndices, std::vector<int>{0});
    QCOMPARE(skipped->texture.askedIndices, std::vector<int>{});
    QCOMPARE(tessellated->texture.askedIndices, std::vector<int>{}); // its triangles carry them
    QCOMPARE(part1->texture.askedIndices, std::vector<int>{7});
    QCOMPARE(part2->texture.askedIndices, std::vector<int>{7});
    QCOMPARE(last->texture.askedIndices, std::vector<int>{13});
}

void tst_OxaXmlWriter::propertiesOnlyInTheActivitySection() {
    OxaObjects document;
    document.ActivitySection().AddSchedule(new tmod::Schedule(L"s"));
    document.ActivitySection().PropertySection().AddProperty(
        new VOxaPropertyType{L"task", L"Owner", L"xs:IDREF", L"crew", L""});
    QVERIFY(Write(document, Path("activity.oxaxml")));
    const QString xml = QString::fromUtf8(ReadFile(Path("activity.oxaxml")));
    QVERIFY(xml.contains("<ID k=\"1\" v=\"crew\"/>"));
    QVERIFY(xml.contains("<ID k=\"3\" v=\"task\"/>"));
    QVERIFY(xml.contains("<property refID=\"3\" name=\"Owner\" datatype=\"xs:IDREF\">1</property>"));
    QVERIFY(!xml.contains("objectSection"));
    QVERIFY(!xml.contains("objectDataSection"));
}

void tst_OxaXmlWriter::scheduleWithoutReference() {
    OxaObjects document;
    auto* schedule = new wm::Schedule(L"s");
    schedule->reference.clear();
    document.ActivitySection().AddSchedule(schedule);
    QVERIFY(Write(document, Path("schedule.oxaxml")));
    const QString xml = QString::fromUtf8(ReadFile(Path("schedule.oxaxml")));
    QVERIFY(xml.contains("<schedule ID=\"1\" duration=\"0\">"));
    QVERIFY(!xml.contains("<desc"));
    QVERIFY(!xml.contains("ref="));
}

void tst_OxaXmlWriter::noDocument() {
    OxaXmlWriter writer(nullptr);
    std::wstring error = L"before";
    QVERIFY(!writer.Write(Path("none.oxaxml").toStdWString(), error));
    QCOMPARE(error, std::wstring(L"before"));
    QVERIFY(!QFileInfo::exists(Path("none.oxaxml")));
    QVERIFY(!QFileInfo::exists(Path("none.oxaxml.part")));
}

void tst_OxaXmlWriter::failureKeepsTheOriginal() {
    // A colour channel out of range stops the walk half way, in the object section.
    const QString target = Path("model.oxaxml");
    QFile original(target);
    QVERIFY(original.open(QIODevice::WriteOnly));
    original.write("the user's document");
    original.close();

    OxaObjects document;
    BuildDocument(document, L"m");
    document.ObjectSection().AddMaterial(new wm::Material(L"bad", L"", {2.0f, 0.0f, 0.0f, 1.0f}));
    OxaXmlWriter writer(&document);
    std::wstring error;
    QVERIFY(!writer.Write(target.toStdWString(), error));

    const QString text = Text(error);
    QVERIFY2(text.startsWith("value for r not allowed"), qPrintable(text));
    QVERIFY2(text.contains("\"" + target + "\" is unchanged"), qPrintable(text));
    QVERIFY2(text.contains("\"" + target + ".part\""), qPrintable(text));
    QCOMPARE(ReadFile(target), QByteArray("the user's document"));
    const QByteArray partial = ReadFile(target + ".part");
    QVERIFY(partial.startsWith("<?xml"));
    QVERIFY(partial.contains("<material ID="));      // written up to the failure
    QVERIFY(!partial.contains("objectDataSection")); // and no further
    // The refused colour never began: the file ends in the start tag of its material.
    const QByteArray lastLine = partial.mid(partial.lastIndexOf('\n') + 1);
    QVERIFY2(lastLine.trimmed().startsWith("<material ID=") && !lastLine.contains('>'), lastLine.constData());
    // The writer stays in the broken document.
    QVERIFY(!writer.Write(target.toStdWString(), error));
    QVERIFY2(Text(error).startsWith("StartOxaDocument: Document already in progress"),
             qPrintable(Text(error)));
    QCOMPARE(ReadFile(target), QByteArray("the user's document"));
}

void tst_OxaXmlWriter::unwritableFolder() {
    OxaObjects document;
    BuildDocument(document, L"m");
    const QString target = Path("missing/folder/model.oxaxml");
    std::wstring error;
    QVERIFY(!Write(document, target, &error));
    const QString text = Text(error);
    QVERIFY2(text.startsWith(target + ".part: cannot open the file for writing: "), qPrintable(text));
    QVERIFY2(text.contains("No such file or directory"), qPrintable(text));
    QVERIFY2(text.endsWith("(\"" + target + "\" is unchanged)"), qPrintable(text));
}

void tst_OxaXmlWriter::replacesTheOriginalOnSuccess() {
    const QString target = Path("replace.oxaxml");
    QFile original(target);
    QVERIFY(original.open(QIODevice::WriteOnly));
    original.write("old");
    original.close();
    QFile stale(target + ".part");
    QVERIFY(stale.open(QIODevice::WriteOnly));
    stale.write("left over from a failed write");
    stale.close();

    OxaObjects document;
    BuildDocument(document, L"m");
    QVERIFY(Write(document, target));
    QVERIFY(ReadFile(target).startsWith("<?xml"));
    QVERIFY(!QFileInfo::exists(target + ".part"));
}

void tst_OxaXmlWriter::targetThatCannotBeReplaced() {
    // A folder in the way of the target: the document is complete in the partial file, and
    // the text names both.
    const QString target = Path("taken.oxaxml");
    QVERIFY(QDir().mkpath(target + "/inside"));
    OxaObjects document;
    BuildDocument(document, L"m");
    std::wstring error;
    QVERIFY(!Write(document, target, &error));
    const QString text = Text(error);
    QVERIFY2(text.startsWith("cannot replace \"" + target + "\" by \"" + target + ".part\": "),
             qPrintable(text));
    QVERIFY2(text.endsWith("; the partial document stands in \"" + target + ".part\")"), qPrintable(text));
    QVERIFY(QFileInfo(target + "/inside").isDir());
    QVERIFY(ReadFile(target + ".part").trimmed().endsWith("</objects>"));
}

QTEST_GUILESS_MAIN(tst_OxaXmlWriter)
#include "tst_OxaXmlWriter.moc"
