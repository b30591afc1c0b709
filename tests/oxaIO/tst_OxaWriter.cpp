#include "common/RecordingReader.h"
#include "oxaIO/OxaWriter.h"
#include "tavxmln/CXMLException.h"

#include <QtTest>

#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <sstream>

using namespace oxaIO;
using recording::RecordingReader;
using tavxmln::CXMLException;

namespace {

using Call = std::function<void(OxaWriter&)>;

/// How to reach each element state that an operation can open: the state it stands in and the
/// operation that opens it.
struct Step {
    int parent;
    Call open;
};

const std::map<int, Step>& Steps() {
    static const std::map<int, Step> steps = {
        {esObjects,
         {0, [](OxaWriter& w) { w.StartOxaDocument(L"p", L"c", L"a", L"f", 2024, 1, 2, 3, 4, 5); }}},
        {esContent, {esObjects, [](OxaWriter& w) { w.StartContent(); }}},
        {esObjectSection, {esObjects, [](OxaWriter& w) { w.StartObjectSection(L"m"); }}},
        {esObjectDataSection, {esObjects, [](OxaWriter& w) { w.StartObjectDataSection(); }}},
        {esMaterialSection, {esObjectSection, [](OxaWriter& w) { w.StartMaterialSection(); }}},
        {esMaterial, {esMaterialSection, [](OxaWriter& w) { w.StartMaterial(L"m", L""); }}},
        {esRootContainer, {esObjectSection, [](OxaWriter& w) { w.StartRootContainer(L"r", L""); }}},
        {esContainer, {esObjectSection, [](OxaWriter& w) { w.StartContainer(L"c", L"", L"", false); }}},
        {esObject2D, {esContainer, [](OxaWriter& w) { w.StartObject2D(L"o", L"", L"", false, L""); }}},
        {esObject3D, {esContainer, [](OxaWriter& w) { w.StartObject3D(L"o", L"", L"", false, L""); }}},
        {esData3D, {esObjectDataSection, [](OxaWriter& w) { w.StartData3D(L"o"); }}},
        {esPl, {esData3D, [](OxaWriter& w) { w.StartPolyline({0, 1, 2, 0}, {}, plPolygon); }}},
        {esTess, {esPl, [](OxaWriter& w) { w.StartTesselation(); }}},
        {esSolid, {esData3D, [](OxaWriter& w) { w.StartSolid(); }}},
        {esTxt,
         {esObject2D, [](OxaWriter& w) { w.StartText(0, {}, {}, {}, L"t", {}, L"f", 10, false, false); }}},
        {esTopologySection, {esObjects, [](OxaWriter& w) { w.StartTopologySection(); }}},
        {esHRefs, {esTopologySection, [](OxaWriter& w) { w.StartHRefs(L"m"); }}},
        {esFitSection, {esObjects, [](OxaWriter& w) { w.StartFitSection(); }}},
        {esItems, {esFitSection, [](OxaWriter& w) { w.StartItems(); }}},
        {esQto, {esFitSection, [](OxaWriter& w) { w.StartQto(); }}},
        {esItemData, {esQto, [](OxaWriter& w) { w.StartItemData(L"i", L""); }}},
        {esFormula, {esItemData, [](OxaWriter& w) { w.StartFormula(true, true, L"", L""); }}},
        {esVisualisationSection, {esObjects, [](OxaWriter& w) { w.StartVisualisationSection(); }}},
        {esViewContainer, {esVisualisationSection, [](OxaWriter& w) { w.StartViewContainer(L"vc", L""); }}},
        {esView, {esViewContainer, [](OxaWriter& w) { w.StartView(L"v", L"", true, L"", nullptr, 0); }}},
        {esLight, {esView, [](OxaWriter& w) { w.StartLight(0, L"", false); }}},
        {esUnitSection, {esObjects, [](OxaWriter& w) { w.StartUnitSection(L"", L"", L""); }}},
        {esCurrencySection, {esObjects, [](OxaWriter& w) { w.StartCurrencySection(); }}},
        {esBsSection, {esObjects, [](OxaWriter& w) { w.StartBsSection(); }}},
        {esBsTypes, {esBsSection, [](OxaWriter& w) { w.StartBsTypes(); }}},
        {esSetSection, {esObjectSection, [](OxaWriter& w) { w.StartSetSection(); }}},
        {esSetContainer, {esSetSection, [](OxaWriter& w) { w.StartSetContainer(L"sc", L""); }}},
        {esActivitySection, {esObjects, [](OxaWriter& w) { w.StartActivitySection(); }}},
        {esSchedule, {esActivitySection, [](OxaWriter& w) { w.StartSchedule(L"s", L"", L"", -1, L""); }}},
        {esActivity, {esSchedule, [](OxaWriter& w) { w.StartActivity(L"a", L"", L"", -1, L""); }}},
        {esLoggingSection, {esObjects, [](OxaWriter& w) { w.StartLoggingSection(); }}},
        {esMsgGrp, {esLoggingSection, [](OxaWriter& w) { w.StartMsgGrp(L"g", L""); }}},
    };
    return steps;
}

/// Opens the elements from the root down to `state`.
void Enter(OxaWriter& writer, int state) {
    if (state == 0)
        return;
    const Step& step = Steps().at(state);
    Enter(writer, step.parent);
    step.open(writer);
}

/// A writer on a stream without layout, so that outputs compare as plain text.
struct Session {
    Session() { writer.StartDocument(&out, false, false); }
    std::ostringstream out;
    OxaWriter writer;
};

/// The code and text of the exception a call raises; code -1 when it raises none.
std::pair<int, QString> Outcome(const std::function<void()>& call) {
    try {
        call();
    } catch (const CXMLException& exception) {
        return {exception.code(), QString::fromWCharArray(exception.text())};
    }
    return {-1, QString()};
}

/// The text an operation adds to the output, without the `>` that closes its parent's start
/// tag.
QString Fragment(int parent, const Call& call) {
    Session session;
    Enter(session.writer, parent);
    const std::size_t before = std::size_t(session.writer.BytesWritten());
    call(session.writer);
    session.writer.Abandon();
    QString added = QString::fromStdString(session.out.str().substr(before));
    if (added.startsWith('>'))
        added.remove(0, 1);
    return added;
}

} // namespace

Q_DECLARE_METATYPE(Call)

class tst_OxaWriter : public QObject {
    Q_OBJECT

private slots:
    void grammar_data();
    void grammar();
    void documentStart();
    void sectionTypes();
    void valueChecks_data();
    void valueChecks();
    void elements_data();
    void elements();
    void idMapping();
};

void tst_OxaWriter::grammar_data() {
    QTest::addColumn<int>("parent");
    QTest::addColumn<Call>("call");
    QTest::addColumn<QString>("refusal");
    const auto row = [](const char* name, int parent, Call call, const char* refusal = "") {
        QTest::newRow(name) << parent << call << QString(refusal);
    };
    row("object3D in a container", esContainer, [](OxaWriter& w) { w.StartObject3D(L"o", L"", L"", false, L""); });
    row("object3D straight in a root container", esRootContainer,
        [](OxaWriter& w) { w.StartObject3D(L"o", L"", L"", false, L""); }, "StartObject3D: not allowed here");
    row("container in a root container", esRootContainer, [](OxaWriter& w) { w.StartContainer(L"c", L"", L"", false); });
    row("material outside its section", esObjectSection, [](OxaWriter& w) { w.StartMaterial(L"m", L""); },
        "StartMaterial: not allowed here");
    row("material section in the fit section", esFitSection, [](OxaWriter& w) { w.StartMaterialSection(); });
    row("data3D in the object section", esObjectSection, [](OxaWriter& w) { w.StartData3D(L"o"); },
        "StartData3D: not allowed here");
    row("tessellation outside a polyline", esData3D, [](OxaWriter& w) { w.StartTesselation(); },
        "StartTesselation: not allowed here");
    row("view outside a view container", esVisualisationSection,
        [](OxaWriter& w) { w.StartView(L"v", L"", true, L"", nullptr, 0); }, "StartView: not allowed here");
    row("a container fragment outside any document", 0, [](OxaWriter& w) { w.StartContainer(L"c", L"", L"", false); });
    row("logging outside a document", 0, [](OxaWriter& w) { w.StartLoggingSection(); },
        "StartLoggingSection: not allowed here");
    row("the end of what is open", esObject3D, [](OxaWriter& w) { w.EndObject3D(); });
    row("an end of something not open", esContainer, [](OxaWriter& w) { w.EndObject3D(); },
        "EndObject3D: not allowed here");
    row("an end with nothing open", 0, [](OxaWriter& w) { w.EndContainer(); }, "EndContainer: not allowed here");
}

void tst_OxaWriter::grammar() {
    // An accepted element opens or closes one level; a refused one leaves the stack as it was
    // and raises code 6 with the operation's name.
    QFETCH(int, parent);
    QFETCH(Call, call);
    QFETCH(QString, refusal);
    Session session;
    Enter(session.writer, parent);
    const std::deque<int> before = session.writer.ElementStack();
    const auto outcome = Outcome([&] { call(session.writer); });
    if (refusal.isEmpty()) {
        QCOMPARE(outcome.first, -1);
        QVERIFY(session.writer.ElementStack() != before);
    } else {
        QCOMPARE(outcome, std::make_pair(6, refusal));
        QVERIFY(session.writer.ElementStack() == before);
    }
}

void tst_OxaWriter::documentStart() {
    Session session;
    Steps().at(esObjects).open(session.writer);
    QCOMPARE(Outcome([&] { Steps().at(esObjects).open(session.writer); }),
             std::make_pair(6, QString("StartOxaDocument: Document already in progress")));

    // A fragment opened outside the document keeps the document from starting.
    Session fragment;
    fragment.writer.StartContainer(L"c", L"", L"", false);
    QCOMPARE(Outcome([&] { Steps().at(esObjects).open(fragment.writer); }).second,
             QString("StartOxaDocument: Document already in progress"));
}

void tst_OxaWriter::sectionTypes() {
    // Every type the writer names reads back as that type: the two tables agree. The types
    // without a name are refused.
    QList<int> refused;
    for (int type = 0; type <= 15; ++type) {
        const Call call = [type](OxaWriter& w) { w.Section(ESectionType(type)); };
        Session session;
        Enter(session.writer, esContent);
        const auto outcome = Outcome([&] { call(session.writer); });
        if (outcome.first != -1) {
            QCOMPARE(outcome, std::make_pair(6, QString("Section: unknown section type")));
            refused << type;
            continue;
        }
        RecordingReader reader;
        reader.Read(("<objects><content>" + Fragment(esContent, call) + "</content></objects>").toUtf8());
        QVERIFY2(reader.calls.contains(QString("Section(%1)").arg(type)), qPrintable(reader.calls.join(" ")));
    }
    QCOMPARE(refused, (QList<int>{0, 2, 13, 15}));
}

void tst_OxaWriter::valueChecks_data() {
    QTest::addColumn<int>("parent");
    QTest::addColumn<Call>("call");
    QTest::addColumn<QString>("message"); ///< empty when the value passes
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const VCoords3D c{0, 0, 1};
    const auto row = [](const char* name, int parent, const Call& call, const char* message) {
        QTest::newRow(name) << parent << call << QString(message);
    };
    row("red above 255", esMaterial, [](OxaWriter& w) { w.MaterialDiff(256, 0, 0, 1.0); },
        "value for r not allowed");
    row("green above 255", esLight, [](OxaWriter& w) { w.Amb(0, 300, 0, 1.0); }, "value for g not allowed");
    row("blue above 255", esView, [](OxaWriter& w) { w.BgColor(0, 0, 256, {}); }, "value for b not allowed");
    row("negative red", esTxt, [](OxaWriter& w) { w.Color(-1, 0, 0, {}); }, "value for r not allowed");
    row("alpha 1.0000001", esMaterial, [](OxaWriter& w) { w.MaterialAmb(0, 0, 0, double(1.0000001f)); },
        "value for a not allowed");
    row("alpha below 0", esLight, [](OxaWriter& w) { w.Diff(0, 0, 0, -0.001); }, "value for a not allowed");
    row("alpha 0 and 1", esLight, [](OxaWriter& w) { w.Spec(0, 0, 0, 0.0); w.Diff(0, 0, 0, 1.0); }, "");
    row("255 and alpha NaN", esMaterial, [nan](OxaWriter& w) { w.MaterialSpec(255, 255, 255, nan); }, "");
    row("view angle 360", esView, [c](OxaWriter& w) {
        w.Camera(c, c, c, 1, 2, 360.0, 1, 0, 0, 0, 0, 0, c, c);
    }, "");
    row("view angle 360.5", esView,
        [c](OxaWriter& w) { w.Camera(c, c, c, 1, 2, 360.5, 1, 0, 0, 0, 0, 0, c, c); },
        "value for viewAngle not allowed");
    row("view angle -0.5", esView, [c](OxaWriter& w) {
        w.Camera(c, c, c, 1, 2, -0.5, 1, 1, 0, 0, 0, 0, c, c);
    }, "value for viewAngle not allowed");
    row("cutoff 361", esLight, [c](OxaWriter& w) { w.Spot(c, c, 361); }, "value for cutoff not allowed");
    row("arc a1 below 0", esObject2D, [](OxaWriter& w) { w.Arc(0, 1, -1, 90, {}, {}, {}); },
        "value for a1 not allowed");
    row("arc a2 above 360", esObject2D, [](OxaWriter& w) { w.Arc(0, 1, 0, 400, {}, {}, {}); },
        "value for a2 not allowed");
    row("unit without name", esUnitSection, [](OxaWriter& w) { w.Unit(L"", 1, 2, {}, 0, L"", L"", {}, L""); },
        "value for name not allowed");
    row("unit dim 4", esUnitSection, [](OxaWriter& w) { w.Unit(L"m", 4, 2, {}, 0, L"", L"", {}, L""); },
        "value for dim not allowed");
    row("unit round mode 3", esUnitSection, [](OxaWriter& w) { w.Unit(L"m", 1, 3, {}, 0, L"", L"", {}, L""); },
        "value for round mode not allowed");
    row("unit digits mode 4", esUnitSection, [](OxaWriter& w) { w.Unit(L"m", 1, 2, 2L, 4, L"", L"", {}, L""); },
        "value for digits mode not allowed");
    row("digits without mode", esUnitSection,
        [](OxaWriter& w) { w.Unit(L"m", 1, 2, 2L, 0, L"", L"", {}, L""); },
        "digits and digitsMode do not match");
    row("mode without digits", esUnitSection,
        [](OxaWriter& w) { w.Unit(L"m", 1, 2, {}, 1, L"", L"", {}, L""); },
        "digits and digitsMode do not match");
    row("base currency without name", esCurrencySection, [](OxaWriter& w) { w.BaseCurr(L"", L"", {}); },
        "value for name not allowed");
    row("currency without name", esCurrencySection, [](OxaWriter& w) { w.Curr(L"", L"", {}, {}); },
        "value for name not allowed");
}

void tst_OxaWriter::valueChecks() {
    QFETCH(int, parent);
    QFETCH(Call, call);
    QFETCH(QString, message);
    Session session;
    Enter(session.writer, parent);
    const auto outcome = Outcome([&] { call(session.writer); });
    if (message.isEmpty())
        QCOMPARE(outcome.first, -1);
    else
        QCOMPARE(outcome, std::make_pair(7, message));
}

void tst_OxaWriter::elements_data() {
    QTest::addColumn<int>("parent");
    QTest::addColumn<Call>("call");
    QTest::addColumn<QString>("written");
    // What a read of the written document shows is the writer's round-trip test; these rows pin
    // what a read cannot: attributes left out, numbers as text, and elements the walk never writes.
    const auto row = [](const char* name, int parent, const Call& call, const char* written) {
        QTest::newRow(name) << parent << call << QString(written);
    };
    row("object with everything", esContainer, [](OxaWriter& w) {
        w.StartObject3D(L"o", L"Wall", L"mat", true, L"r");
        w.EndObject3D();
    }, "<object3D ID=\"o\" name=\"Wall\" matID=\"mat\" negative=\"true\" refID=\"r\"/>");
    row("positive object without options", esContainer, [](OxaWriter& w) {
        w.StartObject2D(L"o", L"", L"", false, L"");
        w.EndObject2D();
    }, "<object2D ID=\"o\"/>");
    row("composite container", esObjectSection, [](OxaWriter& w) {
        w.StartContainer(L"c", L"", L"", true);
        w.EndContainer();
    }, "<container ID=\"c\" composite=\"true\"/>");
    row("plain container with unit", esRootContainer, [](OxaWriter& w) {
        w.StartContainer(L"c", L"N", L"mm", false);
        w.EndContainer();
    }, "<container ID=\"c\" name=\"N\" unit=\"mm\"/>");
    row("point", esData3D, [](OxaWriter& w) { w.Point(3, 1.5, -0.0, 1e-7); },
        "<p nr=\"3\" x=\"1.5\" y=\"-0\" z=\"1e-07\"/>");
    row("triangle with four texture coordinates", esTess, [](OxaWriter& w) {
        w.Triangle(0, 1, 2, {{0, 0}, {1, 0}, {1, 1}, {0, 1}});
    }, "<t p1=\"0\" p2=\"1\" p3=\"2\"/>");
    row("polyline without type", esSolid, [](OxaWriter& w) {
        w.StartPolyline({}, {}, plNone);
        w.EndPolyline();
    }, "<pl length=\"0\" points=\"\"/>");
    row("colour without alpha", esView, [](OxaWriter& w) { w.BgColor(1, 2, 3, {}); },
        "<bgColor r=\"1\" g=\"2\" b=\"3\"/>");
    row("symmetric contacts", esTopologySection, [](OxaWriter& w) {
        w.StartContacts(0.005, L"m", true);
        w.EndContacts();
    }, "<contacts eps=\"0.005\" unit=\"m\"/>");
    row("one-way intersections", esTopologySection, [](OxaWriter& w) {
        w.StartIntersections({}, L"", false);
        w.EndIntersections();
    }, "<intersections sym=\"false\"/>");
    row("height relation", esHRefs, [](OxaWriter& w) {
        w.HRefRel(L"o", L"", L"u");
        w.HRefRel(L"o", L"l", L"u");
    }, "<hRefRel refID=\"o\" hRefU=\"u\"/><hRefRel refID=\"o\" hRefL=\"l\" hRefU=\"u\"/>");
    row("result with value zero and no quality", esFormula,
        [](OxaWriter& w) { w.Result(L"o", 0.0, L"", 0, L""); },
        "<result refID=\"o\" value=\"0\"></result>");
    row("result with quality and text", esFormula, [](OxaWriter& w) { w.Result(L"o", {}, L"a & b", 3, L"g"); },
        "<result refID=\"o\" quality=\"3\" geometry=\"g\">a &amp; b</result>");
    row("activity", esSchedule, [](OxaWriter& w) {
        w.StartActivity(L"a", L"", L"1.2", 5, L"o");
        w.EndActivity();
    }, "<activity ID=\"a\" refID=\"o\" wbs=\"1.2\" duration=\"5\"/>");
    row("activity with visualisation type", esActivity, [](OxaWriter& w) {
        w.StartActivityVis(L"a", L"A", L"", -1, L"o", L"bar");
        w.EndActivity();
    }, "<activity ID=\"a\" refID=\"o\" name=\"A\" visType=\"bar\"/>");
    row("smart set", esSetContainer, [](OxaWriter& w) { w.SmartSet(L"s", L"N", L"c", L"x < 3"); },
        "<set ID=\"s\" name=\"N\" type=\"1\" ctype=\"c\">x &lt; 3</set>");
    row("structure types", esBsTypes, [](OxaWriter& w) {
        w.StartBsType(L"t", L"", 6);
        w.StartBsType(L"u", L"", 22);
        w.EndBsType();
        w.EndBsType();
    }, "<bsType ID=\"t\" type=\"Level\"><bsType ID=\"u\" type=\"\"/></bsType>");
    row("arc with normal", esObject2D, [](OxaWriter& w) { w.Arc(1, 2.5, 0, 360, {}, {}, 1.0); },
        "<a cp=\"1\" radius=\"2.5\" a1=\"0\" a2=\"360\" nvz=\"1\"/>");
    row("text", esObject2D, [](OxaWriter& w) {
        w.StartText(0, 1.0, {}, {}, L"T", 1, L"Arial", 12, true, false);
        w.Color(0, 0, 0, 1.0);
        w.EndText();
    },
        "<txt p1=\"0\" vx=\"1\" value=\"T\" align=\"Center\" font=\"Arial\" size=\"12\" "
        "bold=\"true\" italic=\"false\"><color r=\"0\" g=\"0\" b=\"0\" a=\"1\"/></txt>");
    row("text with unknown alignment", esObject2D, [](OxaWriter& w) {
        w.StartText(0, {}, {}, {}, L"", 5, L"", 0, false, true);
        w.EndText();
    }, "<txt p1=\"0\" value=\"\" font=\"\" size=\"0\" bold=\"false\" italic=\"true\"/>");
    row("message", esMsgGrp, [](OxaWriter& w) {
        w.StartMsgInfo(2, L"mod", 2024, 1, 2, 3, 4, 5, L"");
        w.MsgTxt(L"t");
        w.MsgSet(L"s");
        w.EndMsgInfo();
    },
        "<msgInfo type=\"Warning\" module=\"mod\" "
        "timeStamp=\"2024-01-02T03:04:05\"><msgTxt>t</msgTxt><msgSet refID=\"s\"/></msgInfo>");
    row("item", esItems, [](OxaWriter& w) {
        w.StartItem(L"i", L"k", L"", L"n", L"");
        w.EndItem();
    }, "<item ID=\"i\" key=\"k\" name=\"n\"/>");
    row("formula", esItemData, [](OxaWriter& w) {
        w.StartFormula(true, false, L"", L"v");
        w.EndFormula();
    }, "<formula orig=\"true\" qto=\"false\" var=\"v\"/>");
}

void tst_OxaWriter::elements() {
    QFETCH(int, parent);
    QFETCH(Call, call);
    QFETCH(QString, written);
    QCOMPARE(Fragment(parent, call), written);
}

void tst_OxaWriter::idMapping() {
    Session session;
    OxaWriter& w = session.writer;
    Enter(w, esObjects);
    QCOMPARE(w.MapID(L"A", false), std::wstring(L"A")); // no map yet
    w.IDMapping({L"B", L"", L"A"});
    QCOMPARE(w.MapID(L"Z", false), std::wstring(L"Z"));
    QCOMPARE(w.MapID(L"B", true), std::wstring(L"3"));

    // Optional references skip the empty ID, mandatory ones map it.
    QCOMPARE(Fragment(0,
                      [](OxaWriter& x) {
                          x.IDMapping({L"", L"A"});
                          x.StartContainer(L"", L"", L"", false);
                          x.StartObject3D(L"A", L"", L"", false, L"");
                          x.EndObject3D();
                          x.EndContainer();
                          x.StartData3D(L"");
                          x.EndData3D();
                          x.StartPropertySection();
                          x.Property(L"A", L"n", L"xs:IDREF", L"A", L"");
                          x.Property(L"A", L"n", L"xs:string", L"A", L"mm");
                          x.EndPropertySection();
                      }),
             QString("<IDMapping version=\"1.4\"><ID k=\"1\" v=\"\"/><ID k=\"2\" v=\"A\"/></IDMapping>"
                     "<container ID=\"1\"><object3D ID=\"2\"/></container><data3D refID=\"\"/>"
                     "<propertySection version=\"1.5\"><property refID=\"2\" name=\"n\" "
                     "datatype=\"xs:IDREF\">2</property>"
                     "<property refID=\"2\" name=\"n\" datatype=\"xs:string\" "
                     "unit=\"mm\">A</property></propertySection>"));

    // An empty set writes nothing and clears the map.
    Session other;
    Enter(other.writer, esObjects);
    other.writer.IDMapping({L"A"});
    const std::uint64_t end = other.writer.BytesWritten();
    other.writer.IDMapping({});
    QCOMPARE(other.writer.BytesWritten(), end);
    QCOMPARE(other.writer.MapID(L"A", false), std::wstring(L"A"));
}

QTEST_GUILESS_MAIN(tst_OxaWriter)
#include "tst_OxaWriter.moc"
