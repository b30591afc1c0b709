#include "ReaderFixture.h"

#include "basic/MessageService.h"
#include "geometry/OBB.h"
#include "geometry/OBB2D.h"
#include "geometry/Octree.h"
#include "mesh3D/Face.h"
#include "mesh3D/Polygon.h"
#include "mesh3D/Solid.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"
#include "oxa/Camera.h"
#include "oxa/HRef.h"
#include "oxa/ObjectSet.h"
#include "oxa/OxaExamineContainer.h"
#include "oxa/OxaExamineData.h"
#include "oxaIO/OxaActivitySection.h"
#include "oxaIO/OxaPropertySection.h"
#include "oxaIO/OxaSetSection.h"
#include "oxaIO/OxaTopologySection.h"
#include "oxaIO/OxaVisualisationSection.h"

#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <thread>

using fixture::Document;
using fixture::Model;
using fixture::S;

namespace {

/// A box object `id` in a data3D: eight corners, each given three times under other numbers
/// (so 24 points weld to 8 vertices), and twelve triangles over the first copies.
QByteArray BoxData(const QByteArray& id, double size = 1.0) {
    QByteArray xml = "<data3D refID=\"" + id + "\">";
    int number = 0;
    for (int copy = 0; copy < 3; ++copy)
        for (int i = 0; i < 8; ++i)
            xml += QString("<p nr=\"%1\" x=\"%2\" y=\"%3\" z=\"%4\"/>")
                       .arg(number++)
                       .arg((i & 1) * size)
                       .arg(((i >> 1) & 1) * size)
                       .arg(((i >> 2) & 1) * size)
                       .toUtf8();
    const int quads[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4},
                             {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
    for (const auto& q : quads)
        xml += QString("<t p1=\"%1\" p2=\"%2\" p3=\"%3\"/><t p1=\"%1\" p2=\"%3\" p3=\"%4\"/>")
                   .arg(q[0])
                   .arg(q[1])
                   .arg(q[2])
                   .arg(q[3])
                   .toUtf8();
    return xml + "</data3D>";
}

QByteArray DataSection(const QByteArray& body) {
    return "<objectDataSection version=\"1.5\">" + body + "</objectDataSection>";
}

int TriangleCount(mesh3D::Object3D* object) {
    return object ? object->triangles().size() : -1;
}

} // namespace

class tst_OxaXmlReader : public QObject {
    Q_OBJECT

    QTemporaryDir dir;

    QString write(const QString& name, const QByteArray& xml) {
        const QString path = dir.filePath(name);
        return fixture::WriteFile(path, xml) ? path : QString();
    }

private slots:
    void initTestCase() { QVERIFY(dir.isValid()); }

    void cleanup() {
        oxa::OxaXmlReader::SetXmlReadMode(65535);
        oxa::OxaExamineContainer::DeleteInstance();
    }

    void materials() {
        QVERIFY(fixture::WriteFile(dir.filePath("brick.jpg"), "jpeg"));
        const QString path = write("materials.oxaxml", Document(R"(<materialSection version="1.4">
<material ID="M1" name="Brick &amp; mortar"><diff r="170" g="74" b="68" a="1.0"/><spec r="20" g="30" b="40" a="0.5"/>
<amb r="64" g="28" b="26" a="0.375"/><trans v="0.25"/><tex file="brick.jpg"/></material>
<material ID="M2" name="No texture"><diff r="255" g="0" b="0"/><tex file="missing.jpg"/></material>
</materialSection><container ID="C" name="c"><object3D ID="A" name="a" matID="M1"/><object3D ID="B" name="b" matID="NOPE"/>
<object3D ID="N" name="n"/></container>)"));
        Model model;
        oxaIO::OxaObjects* document = model.Read(path);
        QVERIFY(document);
        QCOMPARE(int(document->ObjectSection().GetMaterials().size()), 2);

        mesh3D::Material* m1 = model.Material("M1");
        QVERIFY(m1);
        QCOMPARE(fixture::MaterialSummary(*m1),
                 QString("Brick & mortar | 170 74 68 1 | 20 30 40 0.5 | 64 28 26 0.375 | trans 0.25 | shine 0 | brick.jpg"));
        // The folder of the document, a backslash and the file: the form projects store.
        QCOMPARE(m1->texture_path(), dir.path() + "\\brick.jpg");

        mesh3D::Material* m2 = model.Material("M2");
        QVERIFY(m2);
        QCOMPARE(m2->diffuse().r, 1.0f);
        QCOMPARE(m2->diffuse().a, -1.0f); // a colour without alpha passes the reader's -1 on
        QCOMPARE(m2->texture_filename(), QString("missing.jpg"));
        QVERIFY(m2->texture_path().isEmpty());

        // An unknown or missing material reference gives the shared empty material.
        QCOMPARE(model.Object("A")->material(), m1);
        mesh3D::Material* dummy = mesh3D::Material::Dummy(&model.system);
        QCOMPARE(model.Object("B")->material(), dummy);
        QCOMPARE(model.Object("N")->material(), dummy);
    }

    void scaleFollowsSectionAndContainerUnits() {
        // Geometry can only stand in data3D, after the object section; to see the scale while a
        // container is open the callbacks are driven in the order a document would drive them.
        Model model;
        oxa::OxaXmlReader& reader = *model.reader;
        reader.StartObjectSection(L"mm", L"1.5");
        reader.StartContainer(L"OUTER", L"", L"", false);
        reader.StartContainer(L"CM", L"", L"cm", false);
        reader.StartObject3D(L"IN-CM", L"", L"", false, L"");
        reader.Point(0, 100, 200, 300);
        reader.EndObject3D();
        reader.StartContainer(L"M", L"", L"m", false);
        reader.StartObject3D(L"IN-M", L"", L"", false, L"");
        reader.Point(0, 1, 2, 3);
        reader.EndObject3D();
        reader.EndContainer();
        reader.StartObject3D(L"BACK-IN-CM", L"", L"", false, L"");
        reader.Point(0, 100, 0, 0);
        reader.EndObject3D();
        reader.EndContainer();
        reader.StartObject3D(L"IN-MM", L"", L"", false, L"");
        reader.Point(0, 1000, 0, 0);
        reader.EndObject3D();
        reader.EndContainer();
        reader.EndObjectSection();
        model.documents.append(reader.GetOXAResult());

        auto box = [&](const char* id) { return model.Object(id)->getBoundingbox(); };
        QCOMPARE(box("IN-CM").xmax, 1.0);
        QCOMPARE(box("IN-CM").zmax, 3.0);
        QCOMPARE(box("IN-M").ymax, 2.0);
        QCOMPARE(box("BACK-IN-CM").xmax, 1.0);
        QCOMPARE(box("IN-MM").xmax, 1.0);
    }

    void sectionUnitScalesGeometryAndBoxes() {
        const QString path =
            write("mm.oxaxml",
                  Document(R"(<container ID="C" name="c" unit="km"><object3D ID="A" name="a"/></container>)",
                           DataSection(
                               BoxData("A", 2000.0)
                                   .replace("</data3D>",
                                            R"(<optOBB ref="1000 0 0" vx="2000 0 0" vy="0 2000 0" vz="0 0 4000"/>
<optOBBxy ref="0 500 7" vx="10 0" vy="0 20" h="99"/></data3D>)")),
                           "mm"));
        Model model;
        oxaIO::OxaObjects* document = model.Read(path);
        QVERIFY(document);
        QCOMPARE(document->ObjectSection().Unit(), std::wstring(L"mm"));
        mesh3D::Object3D* a = model.Object("A");
        QCOMPARE(TriangleCount(a), 12);
        QCOMPARE(a->vertices().count(), 8);
        // A finished surface knows the edges to draw: the box's twelve, not the sides' diagonals.
        QCOMPARE(a->count_edges(), 12L);
        // The data section comes after the container: the container's unit no longer applies.
        QCOMPARE(a->getBoundingbox().xmax, 2.0);
        QCOMPARE(a->getBoundingbox().zmax, 2.0);
        QVERIFY(a->OptOBB());
        QCOMPARE(a->OptOBB()->origin()[0], 1.0);
        QCOMPARE(a->OptOBB()->axis(2)[2], 4.0);
        QVERIFY(a->OOBBxy());
        QCOMPARE(a->OOBBxy()->origin()[1], 0.5);
        QCOMPARE(a->OOBBxy()->axis(0)[0], 0.01);
        QCOMPARE(a->OOBBxy()->axis(0)[2], 0.0);
        QCOMPARE(a->OOBBxy()->axis(1)[1], 0.02);
    }

    void containerClashes_data() {
        QTest::addColumn<QByteArray>("second");
        QTest::addColumn<QStringList>("childrenOfC");
        QTest::addColumn<QStringList>("absent");

        const QByteArray after =
            R"(<container ID="AFTER" name="after"><object3D ID="AFTER-X" name="x"/></container>)";
        QTest::newRow("plain container merges")
            << QByteArray(R"(<container ID="C" name="again" unit="km"><object3D ID="B" name="b"/>
<container ID="C-SUB" name="sub"/></container>)") +
                   after
            << QStringList{"A", "B", "C-SUB"} << QStringList{};
        QTest::newRow("composite is skipped with its subtree")
            << QByteArray(R"(<container ID="C" name="again" composite="true"><object3D ID="B" name="b"/>
<container ID="C-SUB" name="sub"><object3D ID="C-SUB-X" name="x"/><genericObject ID="G" name="g"/></container></container>)") +
                   after
            << QStringList{"A"} << QStringList{"B", "C-SUB", "C-SUB-X", "G"};
        QTest::newRow("container named like a surface is skipped")
            << QByteArray(R"(<container ID="A" name="like the object"><object3D ID="B" name="b"/></container>)") +
                   after
            << QStringList{"A"} << QStringList{"B"};
    }

    void containerClashes() {
        QFETCH(QByteArray, second);
        QFETCH(QStringList, childrenOfC);
        QFETCH(QStringList, absent);

        Model model;
        QVERIFY(model.Read(write(
            "first.oxaxml", Document(R"(<container ID="C" name="c"><object3D ID="A" name="a"/></container>)"))));
        oxaIO::OxaObjects* document = model.Read(write("second.oxaxml", Document(second)));
        QVERIFY(document);

        mesh3D::Container* c = model.Container("C");
        QCOMPARE(c->name(), QString("c"));
        QCOMPARE(fixture::Children(c), childrenOfC);
        for (const QString& id : absent)
            QVERIFY2(!model.system.object(id), qPrintable(id));
        // The present container is not listed again; what follows the clash is read normally.
        QCOMPARE(int(document->ObjectSection().GetContainers().size()), 1);
        QVERIFY(model.Object("AFTER-X"));
        QCOMPARE(model.Object("AFTER-X")->Parent(), model.Container("AFTER"));
    }

    void refusedObjectAndMaterial() {
        Model model;
        QVERIFY(model.Read(write(
            "first.oxaxml",
            Document(
                R"(<materialSection version="1.4"><material ID="M" name="first"><diff r="255" g="0" b="0" a="1.0"/></material></materialSection>
<container ID="C" name="c"><object3D ID="A" name="first a" matID="M"/></container>)",
                DataSection(BoxData("A"))))));
        // A second reader over the same system: the identifiers are taken, but its own table of
        // surfaces does not know A, so the second document's geometry for A goes nowhere.
        oxa::OxaXmlReader second(&model.system);
        QString error;
        QVERIFY(second.ReadOxaXmlFile(
            write(
                "second.oxaxml",
                Document(
                    R"(<materialSection version="1.4"><material ID="M" name="second"><diff r="0" g="255" b="0" a="1.0"/></material></materialSection>
<container ID="D" name="d"><object3D ID="A" name="second a"/><object3D ID="B" name="b" matID="M"/></container>)",
                    DataSection(BoxData("A", 5.0) + BoxData("B")))),
            &error));
        model.documents.append(second.GetOXAResult());
        oxaIO::OxaObjects* document = model.documents.last();

        mesh3D::Material* m = model.Material("M");
        QVERIFY(fixture::MaterialSummary(*m).startsWith("first | 255 0 0 1 |"));
        QVERIFY(document->ObjectSection().GetMaterials().empty());
        // The object of the new document names the present material.
        QCOMPARE(model.Object("B")->material(), m);
        QCOMPARE(TriangleCount(model.Object("B")), 12);

        mesh3D::Object3D* a = model.Object("A");
        QCOMPARE(a->name(), QString("first a"));
        QCOMPARE(a->Parent(), model.Container("C"));
        QCOMPARE(TriangleCount(a), 12);
        QCOMPARE(a->getBoundingbox().xmax, 1.0);
        QCOMPARE(fixture::Children(model.Container("D")), QStringList{"B"});
    }

    void geometryPrimitives() {
        const QString path = write(
            "primitives.oxaxml",
            Document(
                R"(<container ID="C" name="c"><object3D ID="A" name="a" negative="true" refID="W"/></container>)",
                DataSection(R"(<data3D refID="A">
<p nr="1" x="0" y="0" z="0"/><p nr="2" x="1" y="0" z="0"/><p nr="3" x="1" y="1" z="0"/><p nr="4" x="0" y="1" z="0"/>
<t p1="1" p2="2" p3="3"><tex coords="0 0 1 0 1 1"/></t>
<t p1="1" p2="3" p3="99"/>
<pl points="1 2 3 4 1" thickness="0.25" type="Polygon"><tess><t p1="1" p2="2" p3="3"/><t p1="1" p2="3" p3="4"/></tess></pl>
<pl points="1 77 3" type="Chain"/>
<pl points="1 77"/>
<pl points="1"/>
<solid><face shape="Planar"><t p1="1" p2="3" p3="4"/></face><face/></solid>
<face><pl points="1 2 3"/></face>
</data3D>)")));
        Model model;
        QVERIFY(model.Read(path));
        mesh3D::Object3D* a = model.Object("A");
        QVERIFY(a->Negative());
        QCOMPARE(a->qRefID(), QString("W"));
        // The triangle naming point 99 is dropped; the face's triangle is a surface triangle too.
        QCOMPARE(a->triangles().size(), 2);
        QVERIFY(a->triangles()[0]->IsRootGeometry());
        QVERIFY(!a->triangles()[1]->IsRootGeometry());
        // An unknown number is left out; a polyline with fewer than two known points is not made;
        // the face's polygon is the surface's too.
        QStringList polylines;
        for (const mesh3D::Polygon* polygon : a->polygons())
            polylines << QString("%1 points, type %2, thickness %3, %4 tessellated")
                             .arg(polygon->count_points())
                             .arg(polygon->Type())
                             .arg(polygon->Thickness())
                             .arg(polygon->Tessellation().size());
        QCOMPARE(polylines, (QStringList{"5 points, type 2, thickness 0.25, 2 tessellated",
                                         "2 points, type 1, thickness 1, 0 tessellated",
                                         "3 points, type 0, thickness 1, 0 tessellated"}));
        QCOMPARE(a->polygons()[1]->vertex(1)->y(), 1.0);
        QCOMPARE(a->solids().size(), 1);
        QCOMPARE(a->solids()[0]->faces().size(), 2);
        QCOMPARE(a->solids()[0]->faces()[0]->Shape(), oxaIO::fsPlanar);
        QCOMPARE(a->faces().size(), 1);
        QCOMPARE(a->faces()[0]->polygons().size(), 1);
        const QVector<model::mapCoordsType>* mapping = a->mapping_coordinates_if_any();
        QVERIFY(mapping && mapping->size() == 3);
        QCOMPARE(QString("%1 %2").arg(mapping->at(1).u).arg(mapping->at(2).v), QString("1 1"));
        // The surface is finished: normals are there.
        QCOMPARE(a->triangles()[0]->normal().z, 1.0);
    }

    void duplicatePointsAreRecordedAndUnknownDataDropped() {
        const QString path = write(
            "duplicates.oxaxml", Document(R"(<container ID="C" name="c"><object3D ID="A" name="a"/></container>)",
                                          DataSection(BoxData("NOBODY") + BoxData("A"))));
        Model model;
        QVERIFY(model.Read(path));
        QCOMPARE(TriangleCount(model.Object("A")), 12);
        QVERIFY(!model.system.object("NOBODY"));
        QVERIFY(!oxa::OxaExamineContainer::GetInstance()->FindObjectExamineDataFromRealID("NOBODY"));
        oxa::OxaExamineData* record =
            oxa::OxaExamineContainer::GetInstance()->FindObjectExamineDataFromRealID("A");
        QVERIFY(record);
        QCOMPARE(record->MappedID(), QString("A"));
        // Each corner came three times: the kept number, then the two that merged into it.
        QCOMPARE(record->KeptPoints(), (QList<int>{0, 1, 2, 3, 4, 5, 6, 7}));
        QCOMPARE(record->CountDuplicatePoints(), 16);
        // Corner 5 (x and z at 1) came as 5, 13 and 21: one of them leads to the kept vertex and back.
        const QList<int> numbers{5, 13, 21};
        QCOMPARE(record->DuplicatePoints(5), numbers);
        mesh3D::Vertex* vertex = nullptr;
        for (int number : numbers)
            if (record->FindPoint(number))
                vertex = record->FindPoint(number);
        QVERIFY(vertex);
        QCOMPARE(QString("%1 %2 %3").arg(vertex->x()).arg(vertex->y()).arg(vertex->z()), QString("1 0 1"));
        QVERIFY(numbers.contains(record->FindPoint(vertex)));
        QCOMPARE(record->FindPoint(record->FindPoint(vertex)), vertex);
        QCOMPARE(record->FindPoint(999), static_cast<mesh3D::Vertex*>(nullptr));
    }

    void properties_data() {
        QTest::addColumn<bool>("propertiesOn");
        QTest::newRow("read") << true;
        QTest::newRow("switched off") << false;
    }

    void properties() {
        QFETCH(bool, propertiesOn);
        if (!propertiesOn)
            oxa::OxaXmlReader::UnsetXmlReadMode(4);
        QCOMPARE(oxa::OxaXmlReader::XmlReadMode() & 4, propertiesOn ? 4 : 0);
        const QString path = write("properties.oxaxml", R"(<objects>
<IDMapping version="1.4"><ID k="7" v="REAL-A"/><ID k="8" v="REAL-B"/></IDMapping>
<objectSection unit="m" version="1.5"><container ID="7" name="c"><object3D ID="D" name="d"/><object3D ID="K" name="k"/></container>
<propertySection version="1.5">
<property refID="D" name="oxaSimulationType">Demolish</property><property refID="K" name="oxaSimulationType">Keep</property>
<property refID="7" name="oxaSimulationType">Demolish</property>
<property refID="7" name="Host" datatype="xs:IDREF">8</property>
<property refID="7" name="Code" datatype="xs:string" unit="m">8</property>
<property refID="7" name="Comment"><val>first</val><val>second</val></property>
<property refID="7" name="Hosts" datatype="xs:IDREF"><val>7</val><val>8</val></property>
</propertySection></objectSection>
<activitySection version="1.4"><propertySection version="1.5"><property refID="ACT" name="Crew">A</property></propertySection></activitySection>
</objects>)");
        Model model;
        oxaIO::OxaObjects* document = model.Read(path);
        QVERIFY(document);
        QVERIFY(model.Container("REAL-A"));
        // Only "Demolish" on a surface marks it; the flag comes from the properties read.
        QCOMPARE(model.Object("D")->SimulationType(), propertiesOn ? 1 : 0);
        QCOMPARE(model.Object("K")->SimulationType(), 0);
        // The object section's properties, then the activity section's; none when switched off.
        QStringList seen;
        for (const oxaIO::OxaPropertySection* section :
             {&document->ObjectSection().PropertySection(), &document->ActivitySection().PropertySection()})
            for (const oxaIO::VOxaPropertyType* property : section->GetProperties())
                seen << QString::fromStdWString(property->refID + L"/" + property->name + L"/" + property->datatype +
                                                L"/" + property->value + L"/" + property->unit);
        const QStringList all{"D/oxaSimulationType//Demolish/", "K/oxaSimulationType//Keep/",
                              "REAL-A/oxaSimulationType//Demolish/", "REAL-A/Host/xs:IDREF/REAL-B/",
                              "REAL-A/Code/xs:string/8/m", "REAL-A/Comment//first | second/",
                              "REAL-A/Hosts/xs:IDREF/REAL-A | REAL-B/", "ACT/Crew//A/"};
        QCOMPARE(seen, propertiesOn ? all : QStringList());
    }

    void topologyIsKept_data() {
        QTest::addColumn<bool>("hRefsOn");
        QTest::newRow("height references read") << true;
        QTest::newRow("height references switched off") << false;
    }

    void topologyIsKept() {
        QFETCH(bool, hRefsOn);
        if (!hRefsOn)
            oxa::OxaXmlReader::UnsetXmlReadMode(8);
        const QString path = write("topology.oxaxml", Document("", R"(<topologySection version="1.3">
<contacts eps="0.001" unit="m"><contact L="A" R="B"/><contact L="A" R="C"/></contacts>
<contacts eps="1.0" unit="mm" sym="false"><contact L="B" R="C"/></contacts>
<intersections eps="0.0" unit="m"><isect L="X" R="Y"/></intersections>
<hRefs unit="m"><hRef ID="L0" z="0.25"/><hRef ID="L1" z="3.45"/><hRef ID="" z="9"/>
<hRefRel refID="A" hRefL="L0" hRefU="L1"/><hRefRel refID="" hRefL="L0" hRefU="L1"/></hRefs>
</topologySection>)"));
        Model model;
        oxaIO::OxaObjects* document = model.Read(path);
        QVERIFY(document);
        // One contact list: 1 mm is the same tolerance as 0.001 m. The level and the relation
        // without an identifier are left out.
        const oxaIO::OxaTopologySection& topology = document->TopologySection();
        QStringList read;
        for (const oxaIO::ContactList* list : topology.GetContacts())
            for (const oxaIO::VObjPairRelation& pair : list->GetContactRelations())
                read << QString("contact %1-%2 within %3%4").arg(S(pair.left), S(pair.right)).arg(list->Eps()).arg(list->Sym() ? "" : " one way");
        for (const oxaIO::IntersectionList* list : topology.GetIntersections())
            for (const oxaIO::VObjPairRelation& pair : list->GetIntersectionRelations())
                read << QString("intersection %1-%2").arg(S(pair.left), S(pair.right));
        read << "levels in " + S(topology.HRefsUnit());
        for (const oxaIO::IHRef* level : topology.GetHRefDefinitions())
            read << QString("level %1 '%2' at %3").arg(S(level->ID()), S(level->Name())).arg(level->ZValue());
        for (const oxaIO::VHRefRel& relation : topology.GetHRefRelations())
            read << QString("%1 from %2 to %3").arg(S(relation.refID), S(relation.hRefL), S(relation.hRefU));
        const QStringList pairs{"contact A-B within 0.001", "contact A-C within 0.001", "contact B-C within 0.001",
                                "intersection X-Y"};
        const QStringList levels{"levels in m", "level L0 '' at 0.25", "level L1 '' at 3.45", "A from L0 to L1"};
        QCOMPARE(read, pairs + (hRefsOn ? levels : QStringList{"levels in "}));
        if (hRefsOn)
            QVERIFY(dynamic_cast<oxa::HRef*>(model.system.object("L0")));
    }

    void viewsAndSets() {
        const QString path = write(
            "views.oxaxml",
            Document(
                R"(<container ID="C" name="c"><object3D ID="A" name="a"/><container ID="D" name="d"/></container>)",
                R"(<visualisationSection version="1.4"><viewContainer ID="VC" name="Views">
<view ID="V1" name="Persp" current="true">
<camera eye="1 2 3" lookat="4 5 6" up="0 0 1" nearPlane="0.1" farPlane="100" viewAngle="45" aspectRatio="1.5" projType="perspective"/>
<light nr="2" name="Sun" off="true"><diff r="255" g="0" b="0" a="1.0"/><spec r="0" g="255" b="0" a="1.0"/><amb r="0" g="0" b="255" a="1.0"/><spot pos="1 1 1" dir="0 0 -1" cutoff="30"/></light>
<light nr="3" name="Fill" off="false"><directional dir="0 1 0"/></light>
<clpPlane n="0 0 -1" d="3.2" off="true"/><bgColor r="255" g="0" b="51" a="1.0"/></view>
<view ID="V2" name="Plan" current="false" thumbnail="plan.png">
<camera eye="0 0 50" lookat="0 0 0" up="0 1 0" nearPlane="1" farPlane="500" viewAngle="30" aspectRatio="1.25" projType="orthographic" expOrthoWidth="20" expOrthoHeight="17" orthoWidth="22.5" orthoHeight="19" savedEye="1 2 3" savedLookat="4 5 6"/>
</view></viewContainer></visualisationSection>
<activitySection version="1.4"><setSection version="1.4"><set ID="S1" name="Walls" ctype="Object3D">A D NOBODY</set></setSection></activitySection>)"));
        Model model;
        oxaIO::OxaObjects* document = model.Read(path);
        QVERIFY(document);
        const auto& containers = document->VisualisationSection().ViewContainers();
        QCOMPARE(int(containers.size()), 1);
        QCOMPARE(containers.front()->Name(), std::wstring(L"Views"));
        // Each view in one line: what it is, then its cameras, lights and clipping planes.
        const auto xyz = [](const oxaIO::VCoords3D& v) { return QString("(%1 %2 %3)").arg(v.x).arg(v.y).arg(v.z); };
        const auto rgba = [](const oxaIO::VColor4& c) { return QString("%1 %2 %3 %4").arg(c.r).arg(c.g).arg(c.b).arg(c.a); };
        QStringList views;
        for (oxaIO::IView* view : containers.front()->Views()) {
            QStringList parts{QString("current %1, thumbnail '%2', background %3")
                                  .arg(view->IsCurrent())
                                  .arg(QString::fromStdWString(view->ThumbnailFile()),
                                       view->HasBackground() ? rgba(view->BackgroundColor()) : "none")};
            for (const oxaIO::ICamera* camera : view->Cameras())
                parts << QString("camera %1 at %2 ortho %3 x %4, exp. height %5, saved look at %6")
                             .arg(camera->ProjectionType())
                             .arg(xyz(camera->LookAt()))
                             .arg(camera->OrthoWidth())
                             .arg(camera->OrthoHeight())
                             .arg(camera->ExpOrthoHeight())
                             .arg(xyz(camera->SavedLookAt()));
            for (const oxaIO::ILight* light : view->Lights())
                parts << QString("light %1 off %2 type %3 cutoff %4 dir %5 diff %6 spec %7 amb %8")
                             .arg(light->Number())
                             .arg(light->IsOff())
                             .arg(light->Type())
                             .arg(light->Cutoff())
                             .arg(xyz(light->Direction()), rgba(light->Diffuse()), rgba(light->Specular()),
                                  rgba(light->Ambient()));
            for (const oxaIO::IClippingPlane* plane : view->ClippingPlanes())
                parts << QString("plane %1 off %2").arg(plane->Distance()).arg(plane->IsOff());
            views << parts.join("; ");
        }
        // Lights and backgrounds take no alpha.
        QCOMPARE(views, (QStringList{
                            "current 1, thumbnail '', background 1 0 0.2 0; camera 0 at (4 5 6) ortho 0 x 0, exp. "
                            "height 0, saved look at (0 0 0); light 2 off 1 type 63 cutoff 30 dir (0 0 -1) diff 1 0 0 0 "
                            "spec 0 1 0 0 amb 0 0 1 0; light 3 off 0 type 65 cutoff 0 dir (0 1 0) diff 0 0 0 0 spec 0 0 0 "
                            "0 amb 0 0 0 0; plane 3.2 off 1",
                            "current 0, thumbnail 'plan.png', background none; camera 1 at (0 0 0) ortho 22.5 x 19, exp. "
                            "height 17, saved look at (4 5 6)"}));

        const std::list<oxaIO::ISet*> sets = document->ActivitySection().SetSection().SetList();
        QCOMPARE(int(sets.size()), 1);
        auto* set = dynamic_cast<oxa::ObjectSet*>(sets.front());
        QVERIFY(set);
        QVERIFY(set->ElementList().empty());
        QVERIFY(!set->ResolveIDs(&model.system)); // NOBODY stays open
        QCOMPARE(int(set->ElementList().size()), 2);
        QCOMPARE(set->ElementIDs().front(), std::wstring(L"NOBODY"));
        QCOMPARE(int(set->ElementIDs().size()), 3);
    }

    void malformedDocumentKeepsWhatWasRead() {
        const QString path = write(
            "broken.oxaxml", Document(R"(<container ID="C" name="c"><object3D ID="A" name="a"/></container>)",
                                      DataSection(BoxData("A")) + "<unclosed>")
                                 .replace("</objects>", "</objectz>"));
        Model model;
        QString error;
        QVERIFY(!model.Read(path, &error));
        QVERIFY(!error.isEmpty());
        QVERIFY(!model.reader->IsReading());
        QCOMPARE(int(model.documents.last()->ObjectSection().GetContainers().size()), 1);
        QCOMPARE(TriangleCount(model.Object("A")), 12);
        // The result is handed over once: asked again, the reader has an empty one.
        model.documents.append(model.reader->GetOXAResult());
        QVERIFY(model.documents.last()->IsEmpty());

        QVERIFY(!model.Read(dir.filePath("no-such-file.oxaxml"), &error));
        QVERIFY(!error.isEmpty());

        // A document cut off inside a container: the next one does not build into it.
        QVERIFY(!model.Read(write(
            "cut.oxaxml",
            R"(<objects><objectSection unit="m"><container ID="OPEN" name="o"><object3D ID="X" name="x"/>)")));
        oxaIO::OxaObjects* next =
            model.Read(write("next.oxaxml", Document(R"(<container ID="NEXT" name="n"/>)")));
        QVERIFY(next);
        QCOMPARE(int(next->ObjectSection().GetContainers().size()), 1);
        QCOMPARE(model.Container("NEXT")->Parent(), static_cast<mesh3D::Container*>(nullptr));
        QCOMPARE(model.Container("OPEN")->children().size(), 1);
    }

    void fragments() {
        model::System system(false);
        {
            mesh3D::Container root(nullptr, &system, "ROOT", "root");
            auto* surface = new mesh3D::Object3D(&root, "S", basic::unit_m, "s");
            root.children().append(surface);
            oxa::OxaXmlReader reader(surface, basic::unit_cm);
            QString error;
            QVERIFY(reader.ReadOxaXmlFragment(QString::fromUtf8(BoxData("ANY", 100.0)), &error));
            QCOMPARE(surface->triangles().size(), 12);
            QCOMPARE(surface->getBoundingbox().xmax, 1.0);
            QVERIFY(!reader.ReadOxaXmlFragment("<data3D><p", &error));
            QVERIFY(!error.isEmpty());

            mesh3D::Material material(&system, "MAT", "mat");
            oxa::OxaXmlReader materialReader(&material);
            QVERIFY(materialReader.ReadOxaXmlFragment(
                R"(<material ID="MAT" name="changed"><diff r="0" g="255" b="0" a="1.0"/><trans v="0.5"/></material>)",
                &error));
            QCOMPARE(material.diffuse().g, 1.0f);
            QCOMPARE(material.transparency(), 0.5);
            QCOMPARE(material.name(), QString("mat"));
            oxaIO::OxaObjects* document = materialReader.GetOXAResult();
            QVERIFY(document->ObjectSection().GetMaterials().empty());
            oxa::OxaXmlReader::DeleteOXAResult(document);
        }
        mesh3D::Material::DeleteGlobalMaterials(&system);
    }

    void cancelFromAnotherThread() {
        const int objectCount = 3000;
        QByteArray objects, data;
        for (int i = 0; i < objectCount; ++i) {
            const QByteArray id = "OBJ" + QByteArray::number(i);
            objects += "<object3D ID=\"" + id + "\" name=\"o\"/>";
            data += BoxData(id, 1.0 + i);
        }
        const QString path =
            write("large.oxaxml",
                  Document("<container ID=\"C\" name=\"c\">" + objects + "</container>", DataSection(data)));
        Model model;
        basic::MessageService service;
        model.reader->MsgService(&service);
        model.reader->SetMultiFileSize(int(QFileInfo(path).size()));
        model.reader->SetMultiFileOffset(0);

        // A report deep in the data section, on the reading thread, hands over to a second thread
        // that cancels; the report waits for that, so the cancel surely lands in the middle of the
        // read. The object section alone makes some six thousand callbacks, the data section about
        // fifty per object, and there is one report per thousand callbacks.
        std::atomic<int> reports{0};
        std::atomic<bool> cancelled{false};
        bool fractionsInRange = true;
        const int cancelAt = 50;
        connect(
            &service, &basic::MessageService::progress, &service,
            [&](double fraction) {
                fractionsInRange = fractionsInRange && fraction > 0.0 && fraction <= 1.0;
                if (++reports != cancelAt)
                    return;
                while (!cancelled.load())
                    std::this_thread::yield();
            },
            Qt::DirectConnection);
        std::thread canceller([&] {
            while (reports.load() < cancelAt)
                std::this_thread::yield();
            model.reader->CancelReading();
            cancelled.store(true);
        });
        QString error;
        const bool ok = model.reader->ReadOxaXmlFile(path, &error);
        canceller.join();
        model.documents.append(model.reader->GetOXAResult());

        QVERIFY(ok);
        QVERIFY(error.isEmpty());
        QVERIFY(!model.reader->IsReading());
        QCOMPARE(reports.load(), cancelAt); // nothing is reported after the cancel
        QVERIFY(fractionsInRange);
        mesh3D::Container* c = model.Container("C");
        QVERIFY(c);
        QCOMPARE(c->children().size(), objectCount); // the object section was read before
        // In document order: complete objects, at most one cut in the middle, then empty ones.
        int i = 0;
        while (i < objectCount && TriangleCount(model.Object(QString("OBJ%1").arg(i))) == 12)
            ++i;
        QVERIFY(i > 100);
        QVERIFY(i < objectCount / 2);
        if (TriangleCount(model.Object(QString("OBJ%1").arg(i))) != 0)
            ++i;
        for (; i < objectCount; ++i)
            QCOMPARE(TriangleCount(model.Object(QString("OBJ%1").arg(i))), 0);
        // Cancelling drops the channel and ends this file only: the next one is read whole.
        QVERIFY(!model.reader->MsgService());
        QVERIFY(model.Read(write("after-cancel.oxaxml",
                                 Document(R"(<container ID="AFTER" name="c"><object3D ID="AFTER-A" name="a"/></container>)",
                                          DataSection(BoxData("AFTER-A"))))));
        QCOMPARE(TriangleCount(model.Object("AFTER-A")), 12);
    }
};

QTEST_GUILESS_MAIN(tst_OxaXmlReader)
#include "tst_OxaXmlReader.moc"
