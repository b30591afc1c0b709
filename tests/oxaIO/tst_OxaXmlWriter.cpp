#include "TestModel.h"
#include "common/RecordingReader.h"

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
#include "support/Files.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using namespace oxaIO;
using recording::Format;
using recording::RecordingReader;
namespace tmod = testmodel;

namespace {

bool Write(OxaObjects& document, const QString& path, std::wstring* error = nullptr) {
    OxaXmlWriter writer(&document);
    std::wstring text;
    const bool written = writer.Write(path.toStdWString(), text);
    if (error)
        *error = text;
    else if (!written)
        qWarning() << Format(text);
    return written;
}

/// A wall of four vertices (in metres) with every kind of geometry the walk knows.
tmod::Object3D* MakeWall(const IMaterial* material) {
    auto* wall = new tmod::Object3D(L"wall", L"Wall");
    wall->material = material;
    wall->refID = L"ref-wall";
    auto* a = wall->AddVertex(0, 0, 0);
    auto* b = wall->AddVertex(1.25, 0, 0);
    auto* c = wall->AddVertex(1.25, 0, 2.5);
    auto* d = wall->AddVertex(0, 0.001, 2.5);
    wall->Add(new tmod::Triangle(a, b, c))->texture.coords = {{0, 0}, {1, 0}, {1, 1}};
    wall->Add(new tmod::Triangle(a, c, d))->texture.coords = {{0, 0}, {1, 1}}; // two coordinates: none
    wall->Add(new tmod::Triangle(b, c, d, false)); // inside a face only: not written at the root
    wall->AddPolygon(new tmod::Polygon({a, b, c, d}))->texture.coords = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    wall->AddPolygon(new tmod::Polygon({a, b, c, a}, plChain));
    wall->AddPolygon(new tmod::Polygon({a, c, d}, plPolygon, false)); // skipped, its 3 coordinates still count
    auto* tessellated = wall->AddPolygon(new tmod::Polygon({a, b, c, d}, plNone));
    tessellated->texture.coords = {{9, 9}};
    tessellated->Tessellate(a, b, c)->texture.coords = {{0, 0}, {1, 0}, {1, 1}};
    auto* face = wall->Add(new tmod::Face(fsCurved));
    face->Add(new tmod::Triangle(a, b, d, false));
    face->Add(new tmod::Polygon({b, c, d}, plPolygon, false));
    auto* solid = wall->Add(new tmod::Solid());
    solid->Add(new tmod::Face())->Add(new tmod::Triangle(a, d, c, false));
    wall->box.reset(new tmod::Box({0, 0, 0}, {1.25, 0, 0}, {0, 0.25, 0}, {0, 0, 2.5}));
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
    auto* brick = new tmod::Material(L"brick", L"Brick", {0.8f, 0.4f, 0.2f, 1.0f}, 0.25, L"brick.png");
    objects.AddMaterial(brick);
    objects.AddMaterial(new tmod::Material(L"glass", L"", {0.0f, 0.0f, 1.0f, 0.5f}));

    auto* site = new tmod::Container(L"site", L"Site");
    objects.AddContainer(site);
    objects.SetContainerRotTrans(site, new std::vector<double>{0, 1, 0, -1, 0, 0, 0, 0, 1},
                                 new std::vector<double>{5, 6, 7});
    auto* loose = site->Add(new tmod::Object3D(L"loose"));
    auto* l0 = loose->AddVertex(0, 0, 0);
    auto* l1 = loose->AddVertex(1, 0, 0);
    auto* l2 = loose->AddVertex(0, 1, 0);
    loose->Add(new tmod::Triangle(l0, l1, l2));

    auto* building = site->Add(new tmod::Container(L"building", L"Building", true));
    auto* plan = building->Add(new tmod::Object2D(L"plan", L"Plan"));
    plan->AddVertex(0, 0, 0);
    plan->AddVertex(2, 0.5, 0);
    building->Add(MakeWall(brick));
    auto* hole = building->Add(new tmod::Object3D(L"void"));
    hole->negative = true;
    auto* h0 = hole->AddVertex(0.5, 0, 1);
    auto* h1 = hole->AddVertex(1, 0, 1);
    auto* h2 = hole->AddVertex(1, 0, 2);
    hole->Add(new tmod::Triangle(h0, h1, h2));
    building->Add(new tmod::Object3D(L"empty", L"No geometry"));
    building->Add(new tmod::GenericObject(L"door", L"Door"));
    auto* floor = building->Add(new tmod::Container(L"floor"));
    auto* slab = floor->Add(new tmod::Object3D(L"slab", L"Slab"));
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
    static tmod::Item* root = [] {
        auto* item = new tmod::Item(L"");
        item->Add(new tmod::Item(L"i1"))->Add(new tmod::Item(L"i11"));
        item->Add(new tmod::Item(L"i2"));
        return item;
    }();
    fit.RootItem(root);
    auto* data = new tmod::ItemData(L"i1");
    data->Add(new tmod::Formula())->Add(new tmod::Result(L"wall"));
    fit.AddItemData(data);

    OxaVisualisationSection& views = document.VisualisationSection();
    auto* viewContainer = new tmod::ViewContainer(L"views", L"Views");
    auto* view = new tmod::View(L"v1", L"Front", QByteArray("PNG\0\x01\xff", 6));
    view->Cameras().push_back(new tmod::Camera(1));
    view->Cameras().push_back(new tmod::Camera(0));
    view->Lights().push_back(new tmod::Light(0, esSpot));
    view->Lights().push_back(new tmod::Light(1, esPositional));
    view->Lights().push_back(new tmod::Light(2, esDirectional));
    view->Lights().push_back(new tmod::Light(3, 0));
    view->ClippingPlanes().push_back(new tmod::ClippingPlane());
    viewContainer->AddView(view);
    viewContainer->AddView(new tmod::View(L"v2", L""));
    views.AddViewContainer(viewContainer);
    views.AddViewContainer(new tmod::ViewContainer(L"none"));

    document.GetUnitSection().AddUnit(new tmod::Unit(L"mm", 0.001, 2L, L"Millimetre"));
    document.GetUnitSection().AddUnit(new tmod::Unit());

    OxaActivitySection& activities = document.ActivitySection();
    auto* schedule = new tmod::Schedule(L"s1", L"Construction");
    schedule->Add(new tmod::Activity(L"a1", L"wall"))->Add(new tmod::Activity(L"a2", L"slab"));
    activities.AddSchedule(schedule);
    activities.PropertySection().AddProperty(
        new VOxaPropertyType{L"a1", L"Cost", L"xs:double", L"100", L"EUR"});
    static tmod::ObjectSet walls(L"set1", L"Walls");
    static tmod::ObjectSet none(L"set0");
    static tmod::SmartSet smart(L"smart");
    if (walls.ElementIDs().empty()) {
        walls.ContentType(L"Object3D");
        for (const wchar_t* id : {L"wall", L"void", L"wall"}) // written once each, in ID order
            walls.AddElementID(id);
    }
    activities.SetSection().AddSet(&walls);
    activities.SetSection().AddSet(&none);
    activities.SetSection().AddSet(&smart);
}

/// What a reader gets from the document of `BuildDocument`: `scale` is the length in metres of
/// the document's unit.
QStringList ExpectedRead(const QString& unit, double scale, const QString& created) {
    const auto p = [scale](int nr, double x, double y, double z) {
        return QString("Point(%1, %2, %3, %4)").arg(nr).arg(Format(x / scale), Format(y / scale), Format(z / scale));
    };
    const auto v = [scale](double x, double y, double z) {
        return Format(VCoords3D{x / scale, y / scale, z / scale});
    };
    // The three colours of every light, as one entry until the list is split into lines.
    const QString lightColours = "ColorAmb(51, 51, 51, 0)\nColorDiff(255, 255, 255, 1)\nColorSpec(128, 128, 128, 1)";
    return QStringList{
        "StartOxaDocument(P-1, zentra tests, , hand made, " + created + ", tester, , , 1.5)", "StartContent()",
        "Section(1)", "Section(4)", "Section(5)", "Section(8)", "Section(12)", "EndContent()",
        "StartFitSection(1.4)", "StartItem(i1, , , , )", "StartItem(i11, , , , )", "EndItem()", "EndItem()",
        "StartItem(i2, , , , )", "EndItem()", "StartItemData(i1, )", "StartFormula(false, true, , )",
        "StartResult(wall, , nan, 0, )", "EndResult()", "EndFormula()", "EndItemData()", "EndFitSection()",
        "StartObjectSection(" + unit + ", 1.5)", "StartMaterialSection(1.4)", "StartMaterial(brick, Brick)",
        "ColorDiff(204, 102, 51, 1)", "ColorSpec(128, 128, 128, 1)", "ColorAmb(26, 51, 77, 1)",
        "ColorTrans(0.25)", "TextureFile(brick.png)", "EndMaterial()", "StartMaterial(glass, )",
        "ColorDiff(0, 0, 255, 0.5)", "ColorSpec(128, 128, 128, 1)", "ColorAmb(26, 51, 77, 1)", "ColorTrans(0)",
        "TextureFile()", "EndMaterial()", "EndMaterialSection()",
        "StartRootContainer(site, Site, [1 0 0 0 1 0 0 0 1], [0 0 0])",
        "StartContainer(building, Building, , true)", "StartObject2D(plan, , Plan, false, )", p(0, 0, 0, 0),
        p(1, 2, 0.5, 0), "EndObject2D()", "StartObject3D(wall, brick, Wall, false, ref-wall)", "EndObject3D()",
        "StartObject3D(void, , , true, )", "EndObject3D()", "GenericObject(door, Door)",
        "StartContainer(floor, , , false)", "StartObject3D(slab, , Slab, false, )", "EndObject3D()",
        "EndContainer()", "EndContainer()", "EndRootContainer()", "StartPropertySection(1.5)",
        "StartProperty(wall, Fire rating, xs:string, )", "ReadPropertyValue(F90)", "EndProperty()",
        "StartProperty(wall, Host, xs:IDREF, )", "ReadPropertyValue(building)", "EndProperty()",
        "StartProperty(slab, Area, xs:double, m2)", "ReadPropertyValue(12.5)", "EndProperty()",
        "EndPropertySection()", "EndObjectSection()", "StartTopologySection(1.3)",
        "StartContacts(0.005, m, true)", "Contact(wall, slab)", "StartIntersections(0.01, m, false)",
        "Intersection(wall, void)", "StartHRefs(m)", "HRef(level0, 0)", "HRefRel(wall, level0, level1)",
        "EndTopologySection()", "StartVisualisationSection(1.4)", "StartViewContainer(views, Views)",
        "StartView(v1, Front, true, )", "ReadThumbnailData(bytes:504e470001ff)",
        "ViewCamera((10 -5 3), (0 0 1), (0 0 1), 0.25, 500, 45, 1.6, 1, 20, 12.5, 19, 11.875, (1 2 3), (4 5 6))",
        "ViewCamera((10 -5 3), (0 0 1), (0 0 1), 0.25, 500, 45, 1.6, 0, 0, 0, 0, 0, (0 0 0), (0 0 0))",
        "StartLight(0, Sun, false)", lightColours, "SpotLight((0 0 10), (0 0 -1), 30)", "EndLight()",
        "StartLight(1, , false)", lightColours, "PositionalLight((0 0 10))", "EndLight()",
        "StartLight(2, , true)", lightColours, "DirectionalLight((0 0 -1))", "EndLight()",
        "StartLight(3, , true)", lightColours, "EndLight()",
        "ViewClippingPlane(2.5, (0 0 1), false)", "ViewBackGround(255, 255, 255)", "EndView()",
        "StartView(v2, , true, view.png)", "ViewBackGround(255, 255, 255)", "EndView()", "EndViewContainer()",
        "EndVisualisationSection()", "StartUnitSection(1.4, , , )", "Unit(1, 2, 2, 1, m, , 0.001, Millimetre)",
        "ReadUnitName(mm)", "Unit(1, 2, null, 0, , , null, )", "ReadUnitName(m)", "EndUnitSection()",
        "StartActivitySection(1.4)", "StartSchedule(s1, Construction, Phase 1, 0)", "ReadDesc(Phase 1)",
        "StartStart(2024, 6, 1, 12, 0, 0)", "EndStart()", "StartEnd(2024, 6, 1, 12, 0, 0)", "EndEnd()",
        "StartActivity(a1, , , -1, , wall)", "StartActivity(a2, , , -1, , slab)", "EndActivity()",
        "EndActivity()", "EndSchedule()", "StartPropertySection(1.5)",
        "StartProperty(a1, Cost, xs:double, EUR)", "ReadPropertyValue(100)", "EndProperty()",
        "EndPropertySection()", "StartSetSection(1.4)", "StartObjectSet(set1, Walls, Object3D)",
        "ObjectSetAddElement(void)", "ObjectSetAddElement(wall)", "EndSet()", "EndSetSection()",
        "EndActivitySection()", "StartObjectDataSection(1.5)", "StartData3D(loose)", p(0, 0, 0, 0),
        p(1, 1, 0, 0), p(2, 0, 1, 0), "StartTriangle(0, 1, 2)", "EndTriangle()", "EndData3D()",
        "StartData3D(wall)", p(0, 0, 0, 0), p(1, 1.25, 0, 0), p(2, 1.25, 0, 2.5), p(3, 0, 0.001, 2.5),
        "StartTriangle(0, 1, 2)", "TextureCoords([(0 0) (1 0) (1 1)])", "EndTriangle()",
        "StartTriangle(0, 2, 3)", "EndTriangle()", "StartPolyline([0 1 2 3 0], 1, 2)",
        "TextureCoords([(0 0) (1 0) (1 1) (0 1)])", "EndPolyline()", "StartPolyline([0 1 2 0], 1, 1)",
        "EndPolyline()", "StartPolyline([0 1 2 3 0], 1, 0)", "StartTessellation()", "StartTriangle(0, 1, 2)",
        "TextureCoords([(0 0) (1 0) (1 1)])", "EndTriangle()", "EndTessellation()", "EndPolyline()",
        "StartFace()", "SetFaceShape(0)", "StartTriangle(0, 1, 3)", "EndTriangle()",
        "StartPolyline([1 2 3 1], 1, 2)", "EndPolyline()", "EndFace()", "StartSolid()", "StartFace()",
        "SetFaceShape(0)", "StartTriangle(0, 3, 2)", "EndTriangle()", "EndFace()", "EndSolid()",
        "OptOBB(" + v(0, 0, 0) + ", " + v(1.25, 0, 0) + ", " + v(0, 0.25, 0) + ", " + v(0, 0, 2.5) + ")",
        "EndData3D()", "StartData3D(void)", p(0, 0.5, 0, 1), p(1, 1, 0, 1), p(2, 1, 0, 2),
        "StartTriangle(0, 1, 2)", "EndTriangle()", "EndData3D()", "StartData3D(slab)", p(0, -1, -1, 0),
        "EndData3D()", "EndObjectDataSection()", "EndOxaDocument()",
    }.join('\n').split('\n');
}

} // namespace

class tst_OxaXmlWriter : public QObject {
    Q_OBJECT

private slots:
    void init() { QVERIFY(dir.isValid()); }
    void roundTrip_data();
    void roundTrip();
    void writingTwiceGivesTheSameBytes();
    void emptyRootContainer();
    void textureRunOverSkippedPolygons();
    void activitiesOnly();
    void noDocument();
    void failureKeepsTheOriginal();
    void unwritableTargets();

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
    // unit of the document, every identifier as it was. The file replaces the one before, and
    // the partial file of a failed write is gone.
    QFETCH(QString, unit);
    QFETCH(double, scale);
    OxaObjects document;
    BuildDocument(document, unit.toStdWString());
    QVERIFY(fixture::WriteFile(Path("round.oxaxml"), "old"));
    QVERIFY(fixture::WriteFile(Path("round.oxaxml.part"), "left over from a failed write"));
    QVERIFY(Write(document, Path("round.oxaxml")));
    RecordingReader reader;
    reader.mapReferences = true;
    reader.ReadFile(Path("round.oxaxml"));
    const QStringList expected = ExpectedRead(unit, scale, Format(document.Context().CreatedTimeAsString()));
    QVERIFY2(reader.calls == expected, qPrintable(reader.calls.join('\n')));
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
    const QByteArray first = fixture::ReadFile(Path("first.oxaxml"));
    QVERIFY(first.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<objects "));
    QCOMPARE(fixture::ReadFile(Path("second.oxaxml")), first);
    QCOMPARE(fixture::ReadFile(Path("third.oxaxml")), first);
    // What a read cannot show is dropped too: the face shape, a description that is not the
    // reference, the rotation of the root container, and what the walk never writes.
    for (const char* text : {"shape=", "not written", "mRot=\"0 1", "currencySection", "bsSection",
                             "loggingSection", "thickness", "defaultUnitLength", "roundMode", "visType", "<l "})
        QVERIFY2(!first.contains(text), text);
}

void tst_OxaXmlWriter::emptyRootContainer() {
    // The one document pinned byte by byte: head, content list, identifier map and sections.
    OxaObjects document;
    document.ObjectSection().AddContainer(new tmod::Container(L"root"));
    QVERIFY(Write(document, Path("root.oxaxml")));
    QCOMPARE(QString::fromUtf8(fixture::ReadFile(Path("root.oxaxml"))),
             "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
             "<objects xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
             "xsi:noNamespaceSchemaLocation=\"OXA-Objects.xsd\" projectID=\"\" createdBy=\"\" "
             "sourceApp=\"\" sourceFormat=\"\" created=\"" +
                 Format(document.Context().CreatedTimeAsString()) + "\" oxaversion=\"1.5\">\n" +
             QString("  <content version=\"1.2\">\n"
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
    auto* object = root->Add(new tmod::Object3D(L"o"));
    auto* a = object->AddVertex(0, 0, 0);
    auto* b = object->AddVertex(1, 0, 0);
    auto* c = object->AddVertex(1, 1, 0);
    auto* d = object->AddVertex(0, 1, 0);
    auto* triangle = object->Add(new tmod::Triangle(a, b, c));
    auto* first = object->AddPolygon(new tmod::Polygon({a, b, c, d}));
    auto* skipped = object->AddPolygon(new tmod::Polygon({a, b, c}, plPolygon, false));
    auto* tessellated = object->AddPolygon(new tmod::Polygon({a, b, c, d}));
    auto* part1 = tessellated->Tessellate(a, b, c);
    auto* part2 = tessellated->Tessellate(a, c, d);
    auto* last = object->AddPolygon(new tmod::Polygon({a, b, d}));
    QVERIFY(Write(document, Path("run.oxaxml")));
    // The tessellated polygon asks for none: its triangles carry them.
    const std::vector<std::vector<int>> asked = {
        triangle->texture.askedIndices, first->texture.askedIndices, skipped->texture.askedIndices,
        tessellated->texture.askedIndices, part1->texture.askedIndices, part2->texture.askedIndices,
        last->texture.askedIndices};
    QVERIFY(asked == (std::vector<std::vector<int>>{{0}, {0}, {}, {}, {7}, {7}, {13}}));
}

void tst_OxaXmlWriter::activitiesOnly() {
    // Properties of the activity section map their references; no object section is written,
    // nor a schedule's reference or description when it has no reference.
    OxaObjects document;
    auto* schedule = new tmod::Schedule(L"s");
    schedule->reference.clear();
    document.ActivitySection().AddSchedule(schedule);
    document.ActivitySection().PropertySection().AddProperty(
        new VOxaPropertyType{L"task", L"Owner", L"xs:IDREF", L"crew", L""});
    QVERIFY(Write(document, Path("activity.oxaxml")));
    const QString xml = QString::fromUtf8(fixture::ReadFile(Path("activity.oxaxml")));
    QVERIFY(xml.contains("<ID k=\"1\" v=\"crew\"/>"));
    QVERIFY(xml.contains("<ID k=\"3\" v=\"task\"/>"));
    QVERIFY(xml.contains("<property refID=\"3\" name=\"Owner\" datatype=\"xs:IDREF\">1</property>"));
    QVERIFY(xml.contains("<schedule ID=\"2\" duration=\"0\">"));
    for (const char* text : {"objectSection", "objectDataSection", "<desc", "ref="})
        QVERIFY2(!xml.contains(text), text);
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
    QVERIFY(fixture::WriteFile(target, "the user's document"));

    OxaObjects document;
    BuildDocument(document, L"m");
    document.ObjectSection().AddMaterial(new tmod::Material(L"bad", L"", {2.0f, 0.0f, 0.0f, 1.0f}));
    OxaXmlWriter writer(&document);
    std::wstring error;
    QVERIFY(!writer.Write(target.toStdWString(), error));

    const QString text = Format(error);
    QVERIFY2(text.startsWith("value for r not allowed"), qPrintable(text));
    QVERIFY2(text.contains("\"" + target + "\" is unchanged"), qPrintable(text));
    QVERIFY2(text.contains("\"" + target + ".part\""), qPrintable(text));
    QCOMPARE(fixture::ReadFile(target), QByteArray("the user's document"));
    const QByteArray partial = fixture::ReadFile(target + ".part");
    // Written up to the failure and no further: the refused colour never began, and the file
    // ends in the start tag of its material.
    QVERIFY(!partial.contains("objectDataSection"));
    const QByteArray lastLine = partial.mid(partial.lastIndexOf('\n') + 1);
    QVERIFY2(lastLine.trimmed().startsWith("<material ID=") && !lastLine.contains('>'), lastLine.constData());
    // The writer stays in the broken document.
    QVERIFY(!writer.Write(target.toStdWString(), error));
    QVERIFY2(Format(error).startsWith("StartOxaDocument: Document already in progress"),
             qPrintable(Format(error)));
    QCOMPARE(fixture::ReadFile(target), QByteArray("the user's document"));
}

void tst_OxaXmlWriter::unwritableTargets() {
    // A missing folder stops the write before it begins; a folder in the way of the target stops
    // only the replacing: the document is complete in the partial file, and the text names both.
    OxaObjects document;
    BuildDocument(document, L"m");
    const QString missing = Path("missing/folder/model.oxaxml"), taken = Path("taken.oxaxml");
    QVERIFY(QDir().mkpath(taken + "/inside"));
    std::wstring error;
    QVERIFY(!Write(document, missing, &error));
    QString text = Format(error);
    QVERIFY2(text.startsWith(missing + ".part: cannot open the file for writing: "), qPrintable(text));
    QVERIFY2(text.contains("No such file or directory"), qPrintable(text));
    QVERIFY2(text.endsWith("(\"" + missing + "\" is unchanged)"), qPrintable(text));

    QVERIFY(!Write(document, taken, &error));
    text = Format(error);
    QVERIFY2(text.startsWith("cannot replace \"" + taken + "\" by \"" + taken + ".part\": "), qPrintable(text));
    QVERIFY2(text.endsWith("; the partial document stands in \"" + taken + ".part\")"), qPrintable(text));
    QVERIFY(QFileInfo(taken + "/inside").isDir());
    QVERIFY(fixture::ReadFile(taken + ".part").trimmed().endsWith("</objects>"));
}

QTEST_GUILESS_MAIN(tst_OxaXmlWriter)
#include "tst_OxaXmlWriter.moc"
