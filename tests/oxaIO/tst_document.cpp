#include "TestModel.h"

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

#include <QDateTime>
#include <QtTest>

#include <functional>

using namespace oxaIO;
using namespace testmodel;

using Filler = std::function<void(OxaObjects&)>;
Q_DECLARE_METATYPE(Filler)

namespace {

void AddProperty(OxaSection& section, const std::wstring& refID, const std::wstring& datatype,
                 const std::wstring& value) {
    auto* property = new VOxaPropertyType();
    property->refID = refID;
    property->name = L"p";
    property->datatype = datatype;
    property->value = value;
    section.PropertySection().AddProperty(property);
}

QString Joined(const std::set<std::wstring>& ids) {
    QStringList texts;
    for (const std::wstring& id : ids)
        texts << QString::fromStdWString(id);
    return texts.join(' ');
}

} // namespace

/// One document as a whole: its head, its emptiness, the identifiers a writer numbers, and that
/// it frees everything it owns.
class tst_document : public QObject {
    Q_OBJECT
private slots:
    void init() { QCOMPARE(Counted::alive, 0); }
    void cleanup() { QCOMPARE(Counted::alive, 0); }

    void createdTimeIsTheMomentOfMaking() {
        const QDateTime before = QDateTime::currentDateTime();
        ExportContext context;
        const QDateTime after = QDateTime::currentDateTime();

        const DateTime& t = context.CreatedTime();
        const QDateTime created(QDate(t.year, t.month, t.day), QTime(t.hour, t.minute, t.second));
        QVERIFY2(created.isValid(), qPrintable(QString::fromStdWString(context.CreatedTimeAsString())));
        QVERIFY(created >= before.addMSecs(-before.time().msec()) && created <= after);
        QCOMPARE(QString::fromStdWString(context.CreatedTimeAsString()),
                 created.toString("yyyy-MM-ddTHH:mm:ss"));
    }

    void isEmpty_data() {
        QTest::addColumn<Filler>("fill");
        QTest::addColumn<bool>("expected");

        QTest::newRow("new") << Filler([](OxaObjects&) {}) << true;
        QTest::newRow("object section")
            << Filler([](OxaObjects& d) { d.ObjectSection().AddMaterial(new Material(L"m")); }) << false;
        QTest::newRow("topology section") << Filler([](OxaObjects& d) {
            d.TopologySection().AddContact({L"a", L"b"}, 1, L"mm", true);
        }) << false;
        QTest::newRow("fit section") << Filler([](OxaObjects& d) {
            d.GetFitSection().AddItemData(new ItemData(L"i"));
        }) << false;
        QTest::newRow("unit section")
            << Filler([](OxaObjects& d) { d.GetUnitSection().AddUnit(new Unit()); }) << false;
        QTest::newRow("visualisation section") << Filler([](OxaObjects& d) {
            auto* container = new ViewContainer(L"vc");
            container->AddView(new View(L"v"));
            d.VisualisationSection().AddViewContainer(container);
        }) << false;
        QTest::newRow("activity section")
            << Filler([](OxaObjects& d) { d.ActivitySection().AddSchedule(new Schedule(L"s")); }) << false;
    }

    void isEmpty() {
        QFETCH(Filler, fill);
        QFETCH(bool, expected);
        OxaObjects document;
        fill(document);
        QCOMPARE(document.IsEmpty(), expected);
    }

    void isEmptyStopsAtTheFirstFilledSection() {
        OxaObjects document;
        auto* views = new ViewContainer(L"vc");
        document.VisualisationSection().AddViewContainer(views);

        QVERIFY(document.IsEmpty());
        QVERIFY(views->viewQueries > 0);

        // The unit section is asked before the visualisation section.
        views->viewQueries = 0;
        document.GetUnitSection().AddUnit(new Unit());
        QVERIFY(!document.IsEmpty());
        QCOMPARE(views->viewQueries, 0);
    }

    void idsToBeMapped() {
        OxaObjects document;
        QVERIFY(document.GetIDsToBeMapped().empty());
        ObjectSet objectSet(L"set:object"), activitySet(L"set:activity"), topologySet(L"set:topology");

        // Object section.
        OxaObjectSection& objects = document.ObjectSection();
        objects.AddMaterial(new Material(L"mat:1"));
        objects.AddMaterial(new Material(L"mat:2"));
        auto* root = new Container(L"c:root");
        root->Add(new GenericObject(L"g:1"));
        root->Add(new Object3D(L"o3:1"));
        root->Add(new Object2D(L"o2:1"));
        auto* child = root->Add(new Container(L"c:child"));
        child->Add(new Container(L"c:grandchild"))->Add(new Object3D(L"o3:deep"));
        objects.AddContainer(root);
        objects.AddContainer(new Container(L"c:root2"));
        AddProperty(objects, L"o3:1", L"xs:string", L"not an id");
        AddProperty(objects, L"o3:deep", L"xs:IDREF", L"ref:target");
        objectSet.AddElementID(L"m:b");
        objectSet.AddElementID(L"m:a");
        objects.SetSection().AddSet(&objectSet);
        objects.SetSection().FindSet(L"set:probed"); // a null entry: neither an ID nor a crash

        // Topology section: height levels and its own properties and sets; pairs and relations
        // are not numbered through this set.
        OxaTopologySection& topology = document.TopologySection();
        topology.GetHRefDefinitions().push_back(new HRef(L"h:1"));
        topology.AddContact({L"pair:l", L"pair:r"}, 1, L"mm", true);
        topology.GetHRefRelations().push_back({L"rel:ref", L"rel:u", L"rel:l"});
        AddProperty(topology, L"prop:topology", L"xs:double", L"1.0");
        topologySet.AddElementID(L"m:topology");
        topology.SetSection().AddSet(&topologySet);

        // Visualisation section: only containers that hold a view count.
        OxaVisualisationSection& visualisation = document.VisualisationSection();
        auto* withViews = new ViewContainer(L"vc:full");
        withViews->AddView(new View(L"v:1"));
        withViews->AddView(new View(L"v:2"));
        visualisation.AddViewContainer(withViews);
        visualisation.AddViewContainer(new ViewContainer(L"vc:empty"));
        AddProperty(visualisation, L"prop:view", L"xs:IDREF", L"ref:view");

        // Fit section: an item without ID contributes its sub-items only; of the quantities only
        // the measured objects count.
        OxaFitSection& fit = document.GetFitSection();
        Item rootItem(L"");
        rootItem.Add(new Item(L"item:a"))->Add(new Item(L"item:a1"));
        rootItem.Add(new Item(L""))->Add(new Item(L"item:b1"));
        fit.RootItem(&rootItem);
        auto* data = new ItemData(L"qto:ref");
        auto* formula = data->Add(new Formula());
        formula->Add(new Result(L"measured:1"));
        formula->Add(new Result(L"measured:2"));
        data->Add(new Formula())->Add(new Result(L"measured:3"));
        fit.AddItemData(data);
        AddProperty(fit, L"prop:fit", L"xs:string", L"x");

        // Activity section.
        OxaActivitySection& activities = document.ActivitySection();
        auto* schedule = new Schedule(L"sched:1");
        auto* activity = schedule->Add(new Activity(L"act:1", L"act:ref1"));
        activity->Add(new Activity(L"act:1.1", L"act:ref1.1"))
            ->Add(new Activity(L"act:1.1.1", L"act:ref1.1.1"));
        schedule->Add(new Activity(L"act:2", L"act:ref2"));
        activities.AddSchedule(schedule);
        AddProperty(activities, L"prop:activity", L"xs:IDREF", L"ref:activity");
        activitySet.AddElementID(L"m:activity");
        activities.SetSection().AddSet(&activitySet);

        // In ID order; not the topology pairs and relations, the container without views or the
        // item of the quantities.
        const QString expected =
            "act:1 act:1.1 act:1.1.1 act:2 act:ref1 act:ref1.1 act:ref1.1.1 act:ref2 c:child c:grandchild "
            "c:root c:root2 g:1 h:1 item:a item:a1 item:b1 m:a m:activity m:b m:topology mat:1 mat:2 "
            "measured:1 measured:2 measured:3 o2:1 o3:1 o3:deep prop:activity prop:fit prop:topology "
            "prop:view ref:activity ref:target ref:view sched:1 set:activity set:object set:topology v:1 "
            "v:2 vc:full";
        std::set<std::wstring>& ids = document.GetIDsToBeMapped();
        QCOMPARE(Joined(ids), expected);

        // Each call starts afresh.
        ids.insert(L"stale");
        objects.SetSection().RemoveSet(&objectSet);
        const std::set<std::wstring>& again = document.GetIDsToBeMapped();
        QCOMPARE(&again, &ids);
        QVERIFY(again.count(L"stale") == 0 && again.count(L"set:object") == 0 && again.count(L"m:a") == 0);
        QCOMPARE(int(again.size()), expected.count(' ') + 1 - 3);
    }
};

QTEST_GUILESS_MAIN(tst_document)
#include "tst_document.moc"
