#include "common/RecordingReader.h"

#include <QtTest>

using namespace oxaIO;
using recording::RecordingReader;

class tst_OxaReader : public QObject {
    Q_OBJECT

private slots:
    void callbacks_data();
    void callbacks();
    void identifierMapping();
    void tokenise_data();
    void tokenise();
};

void tst_OxaReader::callbacks_data() {
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("p at the root passes, bad number reads 0, unknown attribute ignored")
        << QByteArray(R"(<p nr="3" x="1.5" y="bad" z="-2" w="9"/>)") << QStringList{"Point(3, 1.5, 0, -2)"};

    QTest::newRow("t under object3D skipped but its end runs, t under data3D read")
        << QByteArray(R"(<objects projectID="P" created="2024-06-01T12:00:00">
             <objectSection unit="m" version="1.5">
               <rootContainer ID="R" mRot="1 0 0 0 1 0 0 0 1" vTrans="4512345.5 5412345.25 0">
                 <container ID="C" name="Storey" composite="true">
                   <object3D ID="O" name="n" negative="maybe" matID="M"><t p1="0" p2="1" p3="2"/></object3D>
                   <object2D ID="O2" negative="true"><p nr="0" x="1" y="2" z="3"/></object2D>
                 </container>
               </rootContainer>
             </objectSection>
             <objectDataSection version="1.5"><data3D refID="O"><t p1="0" p2="1" p3="x"/></data3D></objectDataSection>
           </objects>)")
        << QStringList{"StartOxaDocument(P, , , , 2024-06-01T12:00:00, , , , )",
                       "StartObjectSection(m, 1.5)",
                       "StartRootContainer(R, , [1 0 0 0 1 0 0 0 1], [4512345.5 5412345.25 0])",
                       "StartContainer(C, Storey, , true)", "StartObject3D(O, M, n, false, )", "EndTriangle()",
                       "EndObject3D()", "StartObject2D(O2, , , true, )", "Point(0, 1, 2, 3)", "EndObject2D()",
                       "EndContainer()", "EndRootContainer()", "EndObjectSection()",
                       "StartObjectDataSection(1.5)", "StartData3D(O)", "StartTriangle(0, 1, -1)",
                       "EndTriangle()", "EndData3D()", "EndObjectDataSection()",
                       "EndOxaDocument()"};

    QTest::newRow("val in two text parts, property text, entity in value")
        << QByteArray(
               R"(<propertySection version="1.5"><property refID="W" name="Comment" datatype="xs:string"><val>first &amp; <![CDATA[x]]></val><val>second</val></property><property refID="S" name="Remark" datatype="xs:string" unit="m"><![CDATA[x < y & z]]></property></propertySection>)")
        << QStringList{"StartPropertySection(1.5)",
                       "StartProperty(W, Comment, xs:string, )", "StartVal()", "ReadValValue(first & )",
                       "ReadValValue(x)", "EndVal()", "StartVal()", "ReadValValue(second)", "EndVal()",
                       "EndProperty()", "StartProperty(S, Remark, xs:string, m)",
                       "ReadPropertyValue(x < y & z)", "EndProperty()",
                       "EndPropertySection()"};

    QTest::newRow("EndContacts, EndIntersections and EndHRefs never fire; stray contact skipped")
        << QByteArray(
               R"(<topologySection version="1.3"><contacts eps="0.005" unit="m"><contact L="A" R="B"/></contacts><contacts eps="1" sym="false"/><contact L="X" R="Y"/><intersections eps="0.1"><isect L="C" R="D"/></intersections><hRefs unit="m"><hRef ID="H1" z="3.5"/><hRefRel refID="O" hRefL="H1"/></hRefs></topologySection>)")
        << QStringList{"StartTopologySection(1.3)",
                       "StartContacts(0.005, m, true)", "Contact(A, B)", "StartContacts(1, , false)",
                       "StartIntersections(0.1, , true)", "Intersection(C, D)", "StartHRefs(m)",
                       "HRef(H1, 3.5)", "HRefRel(O, H1, )",
                       "EndTopologySection()"};

    QTest::newRow("set of type 2 pushes nothing: its end tag closes the set container")
        << QByteArray(
               R"(<setSection version="1.4"><setContainer ID="SC" name="n"><set ID="S2" type="2">ignored</set><set ID="S1" ctype="obj"> A
  B </set></setContainer><set ID="SM" type="1" ctype="q">x &gt; 1</set></setSection>)")
        << QStringList{"StartSetSection(1.4)",
                       "StartSetContainer(SC, n)", "EndSetContainer()", "StartObjectSet(S1, , obj)",
                       "ObjectSetAddElement(A)", "ObjectSetAddElement(B)", "EndSet()", "EndSetSection()",
                       "StartSmartSet(SM, , q)", "SmartSetPredicate(x > 1)",
                       "EndSet()"};

    QTest::newRow("unknown elements and section names")
        << QByteArray(
               R"(<objects projectID="P" vendor="v" sourceFileName="model.src" changedBy="qa" changed="2024-06-02T08:30:00" oxaversion="1.5"><vendorData a="1"><genericObject ID="G"/>text</vendorData><content version="1.2"><section name="objectSection"/><section name="clashResults"/><section name="loggingSection" extra="1"/><ID k="1" v="X"/></content></objects>)")
        << QStringList{"StartOxaDocument(P, , model.src, , , , qa, 2024-06-02T08:30:00, 1.5)",
                       "StartContent()", "Section(1)", "Section(0)", "Section(14)", "EndContent()",
                       "EndOxaDocument()"};

    QTest::newRow("reader-only defaults of geometry")
        << QByteArray(
               R"(<data3D refID="D"><pl points="0 1 x 2" length="4"/><pl points="3 4" type="Chain" thickness="0.02"><tex coords="0 1"/><tess><t p1="3" p2="4" p3="5"/></tess></pl><pl type="Polygon" points=""/><solid><face><t p1="0" p2="1" p3="2"><tex coords="0 0 1 bad 0.5 1 7"/></t></face></solid><face shape="Curved"/><face shape="round"/><optOBB ref="1 2 3" vx="1 0" vy="0 1 0" vz="0 0 1 9"/><optOBBxy ref="1 2 3" vx="1 0" vy="0 1 5" h="2.5"/><l p1="0" p2="1"/></data3D>)")
        << QStringList{"StartData3D(D)",
                       "StartPolyline([0 1 2], 1, 0)", "EndPolyline()", "StartPolyline([3 4], 0.02, 1)",
                       "TextureCoords([(0 1)])", "StartTessellation()", "StartTriangle(3, 4, 5)",
                       "EndTriangle()", "EndTessellation()", "EndPolyline()", "StartPolyline([], 1, 2)",
                       "EndPolyline()", "StartSolid()", "StartFace()", "SetFaceShape(0)",
                       "StartTriangle(0, 1, 2)", "TextureCoords([(0 0) (0.5 1)])", "EndTriangle()", "EndFace()",
                       "EndSolid()", "StartFace()", "SetFaceShape(2)", "EndFace()", "StartFace()",
                       "SetFaceShape(0)", "EndFace()", "OptOBB((1 2 3), (0 0 0), (0 1 0), (0 0 1))",
                       "OptOBBxy((1 2 3), (1 0 0), (0 1 0), 2.5)", "Line(0, 1)",
                       "EndData3D()"};

    // Every start pushed and every end popped: what follows still sees the right parents.
    QTest::newRow("nested objects fails its parent check, the stack stays balanced")
        << QByteArray(
               R"(<objects><objects projectID="inner"/><objectDataSection><data3D refID="D"/></objectDataSection></objects>)")
        << QStringList{"StartOxaDocument(, , , , , , , , )", "EndOxaDocument()", "StartObjectDataSection()",
                       "StartData3D(D)", "EndData3D()", "EndObjectDataSection()", "EndOxaDocument()"};

    QTest::newRow("tex on an empty stack is a texture file")
        << QByteArray(R"(<tex file="loose.png" coords="0 1"/>)") << QStringList{"TextureFile(loose.png)"};

    QTest::newRow("material colours: missing channels 0, missing alpha -1; misplaced tex skipped")
        << QByteArray(
               R"(<objectSection><tex file="loose.png"/><materialSection version="1.4"><material ID="M" name="Glass" vendorCode="x"><diff r="255" g="bad" a="0.5"/><spec r="1" g="2" b="3" a="1"/><amb/><trans v="0.25"/><tex file="glass.png"/></material></materialSection></objectSection>)")
        << QStringList{"StartObjectSection(, )",    "StartMaterialSection(1.4)", "StartMaterial(M, Glass)",
                       "ColorDiff(255, 0, 0, 0.5)", "ColorSpec(1, 2, 3, 1)",     "ColorAmb(0, 0, 0, -1)",
                       "ColorTrans(0.25)",          "TextureFile(glass.png)",    "EndMaterial()",
                       "EndMaterialSection()",      "EndObjectSection()"};

    QTest::newRow("visualisation and units")
        << QByteArray(
               R"(<objects><visualisationSection version="1.4"><viewContainer ID="VC" name="Views"><view ID="V" name="Front" current="true" thumbnail="front.png"><thumbnail>iVBO
Rw==</thumbnail><camera eye="0 -10 2" lookat="0 0 0" up="0 0 1" nearPlane="0.1" farPlane="100" viewAngle="45" aspectRatio="1.5" projType="orthographic" orthoWidth="20" savedEye="1 2 3"/><light nr="2" name="Sun" off="true"><diff r="10" g="20" b="30" a="1"/><spot pos="1 2 3" dir="0 0 -1" cutoff="30"/></light><light nr="3"><directional dir="0 1 0"/><positional pos="4 5 6"/></light><clpPlane n="0 0 1" d="2.5" off="false"/><bgColor r="1" g="2" b="3"/></view></viewContainer></visualisationSection><unitSection version="1.4" defaultUnitLength="m"><unit dim="1" roundMode="down" digits="3" digitsMode="significant" baseUnit="m" convFactor="0.001" desc="millimetre">mm</unit><unit dim="2">m2</unit></unitSection></objects>)")
        << QStringList{"StartOxaDocument(, , , , , , , , )",
                       "StartVisualisationSection(1.4)", "StartViewContainer(VC, Views)",
                       "StartView(V, Front, true, front.png)", "ReadThumbnailData(bytes:89504e47)",
                       "ViewCamera((0 -10 2), (0 0 0), (0 0 1), 0.1, 100, 45, 1.5, 1, 0, 0, 20, 0, "
                       "(1 2 3), (0 0 0))", "StartLight(2, Sun, true)", "ColorDiff(10, 20, 30, 1)",
                       "SpotLight((1 2 3), (0 0 -1), 30)", "EndLight()", "StartLight(3, , false)",
                       "DirectionalLight((0 1 0))", "PositionalLight((4 5 6))", "EndLight()",
                       "ViewClippingPlane(2.5, (0 0 1), false)", "ViewBackGround(1, 2, 3)", "EndView()",
                       "EndViewContainer()", "EndVisualisationSection()", "StartUnitSection(1.4, m, , )",
                       "Unit(1, 1, 3, 2, m, , 0.001, millimetre)", "ReadUnitName(mm)",
                       "Unit(2, 2, null, 0, , , null, )", "ReadUnitName(m2)", "EndUnitSection()",
                       "EndOxaDocument()"};

    QTest::newRow("quantities, activities and the log")
        << QByteArray(
               R"(<objects><fitSection version="1.4"><items><item ID="F1" key="300" matchKey="Wall" name="Walls"><item ID="F2"/></item></items><qto><itemData refID="F2" desc="area"><formula orig="true" qto="false" text="L*H" var="A"><result refID="W" value="14.75" quality="1">14.750 m2</result><result refID="X" datatype="xs:double"/></formula></itemData></qto></fitSection><activitySection version="1.4"><schedule ID="S" name="Plan" ref="r" duration="30"><desc>the plan</desc><start date="2024-06-01" time="08:00:00"/><activity ID="A" refID="W" name="Build" wbs="1.1" visType="Construct"><end date="2024-07-01" time="bad"/></activity></schedule></activitySection><loggingSection version="1.4"><levelDef><level ID="L1"/></levelDef><msgGrp ID="G" description="import"><msgInfo type="Warning" module="reader" timeStamp="2024-06-01T12:00:05" levelRefID="L1"><msgTxt>careful</msgTxt><msgSet refID="W"/></msgInfo></msgGrp></loggingSection></objects>)")
        << QStringList{"StartOxaDocument(, , , , , , , , )",
                       "StartFitSection(1.4)", "StartItem(F1, 300, Wall, Walls, )", "StartItem(F2, , , , )",
                       "EndItem()", "EndItem()", "StartItemData(F2, area)", "StartFormula(true, false, L*H, A)",
                       "StartResult(W, , 14.75, 1, )", "ReadResultDetail(14.750 m2)", "EndResult()",
                       "StartResult(X, xs:double, nan, 0, )", "EndResult()", "EndFormula()", "EndItemData()",
                       "EndFitSection()", "StartActivitySection(1.4)", "StartSchedule(S, Plan, r, 30)",
                       "ReadDesc(the plan)", "StartStart(2024, 6, 1, 8, 0, 0)", "EndStart()",
                       "StartActivity(A, Build, 1.1, -1, Construct, W)", "StartEnd(2024, 7, 1, 0, 0, 0)",
                       "EndEnd()", "EndActivity()", "EndSchedule()", "EndActivitySection()",
                       "StartLoggingSection(1.4)", "StartLevelDef()", "EndLevelDef()", "StartMsgGrp(G, import)",
                       "StartMsgInfo(2, reader, 2024, 6, 1, 12, 0, 5, L1)", "MsgTxt(careful)", "MsgSet(W)",
                       "EndMsgInfo()", "EndMsgGrp()", "EndLoggingSection()",
                       "EndOxaDocument()"};
}

void tst_OxaReader::callbacks() {
    QFETCH(QByteArray, xml);
    QFETCH(QStringList, expected);
    RecordingReader reader;
    reader.Read(xml);
    QCOMPARE(reader.calls, expected);
}

void tst_OxaReader::identifierMapping() {
    RecordingReader reader;
    reader.Read(
        R"(<objects><IDMapping version="1.4"><ID k="1" v="SITE"/><ID k="2" v="WALL"/><ID k="3" v=""/></IDMapping>
        <content><ID k="4" v="STRAY"/></content>
        <objectSection><rootContainer ID="1"><container ID="7" name="g"><object3D ID="2" matID="9" refID="3"/></container></rootContainer></objectSection></objects>)");
    QCOMPARE(reader.calls.at(4), QString("StartRootContainer(SITE, , [], [])"));
    QCOMPARE(reader.calls.at(5), QString("StartContainer(7, g, , false)"));
    QCOMPARE(reader.calls.at(6), QString("StartObject3D(WALL, 9, , false, 3)"));

    // The stray ID outside IDMapping left the map alone; the lookups of 7 and 9 added them.
    const std::map<std::wstring, std::wstring> expected = {
        {L"1", L"SITE"}, {L"2", L"WALL"}, {L"3", L""}, {L"7", L""}, {L"9", L""}};
    QVERIFY(reader.IdentifierMap() == expected);
    QCOMPARE(reader.GetObjectID(L"2"), std::wstring(L"WALL"));
    QCOMPARE(reader.GetMappedObjectID(L"WALL"), std::wstring(L"2"));
    QCOMPARE(reader.GetMappedObjectID(L""), std::wstring(L"3"));
    QCOMPARE(reader.GetMappedObjectID(L"nowhere"), std::wstring(L"nowhere"));
    QCOMPARE(reader.GetObjectID(L"new"), std::wstring(L"new"));
    QCOMPARE(reader.IdentifierMap().size(), std::size_t(6));

    // A new document starts with an empty map: identifiers stand as they are and nothing grows.
    reader.calls.clear();
    reader.Read(R"(<objects><objectSection><rootContainer ID="1"/></objectSection></objects>)");
    QCOMPARE(reader.calls.at(2), QString("StartRootContainer(1, , [], [])"));
    QVERIFY(reader.IdentifierMap().empty());
    QCOMPARE(reader.GetMappedObjectID(L"SITE"), std::wstring(L"SITE"));
}

void tst_OxaReader::tokenise_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("tokens");
    QTest::newRow("empty") << "" << QStringList{};
    QTest::newRow("only separators") << " \r\n\t " << QStringList{};
    QTest::newRow("leading, trailing and doubled") << "\t1  2\r\n3 " << QStringList{"1", "2", "3"};
}

void tst_OxaReader::tokenise() {
    QFETCH(QString, text);
    QFETCH(QStringList, tokens);
    QStringList found;
    for (const std::wstring& token : OxaReader::Tokenise(text.toStdWString(), L" \r\t\n"))
        found << QString::fromStdWString(token);
    QCOMPARE(found, tokens);

    VCoords3D coords{7, 8, 9};
    QCOMPARE(OxaReader::TokeniseCoords3D(text.toStdWString(), coords), tokens.size() >= 3);
    if (tokens.size() < 3)
        QCOMPARE(coords.x, 7.0);
    else
        QCOMPARE(coords.z, 3.0);
    std::vector<double> values{-1};
    OxaReader::TokeniseDoubles(text.toStdWString() + L" x", values);
    QCOMPARE(int(values.size()), tokens.size() + 2);
    QCOMPARE(values.back(), 0.0);
}

QTEST_GUILESS_MAIN(tst_OxaReader)
#include "tst_OxaReader.moc"
