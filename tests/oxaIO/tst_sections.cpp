#include "TestModel.h"

#include "oxaIO/OxaActivitySection.h"
#include "oxaIO/OxaFitSection.h"
#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaPropertySection.h"
#include "oxaIO/OxaSetSection.h"
#include "oxaIO/OxaTopologySection.h"
#include "oxaIO/OxaUnitSection.h"
#include "oxaIO/OxaVisualisationSection.h"

#include <QtTest>

#include <functional>

using namespace oxaIO;
using namespace testmodel;

using Probe = std::function<bool()>;
Q_DECLARE_METATYPE(Probe)

namespace {

VOxaPropertyType* MakeProperty(const std::wstring& refID, const std::wstring& name, const std::wstring& value,
                               const std::wstring& unit = {}, const std::wstring& datatype = L"xs:double") {
    auto* property = new VOxaPropertyType();
    property->refID = refID;
    property->name = name;
    property->datatype = datatype;
    property->value = value;
    property->unit = unit;
    return property;
}

/// Whether a section filled by `fill` is empty.
template <typename Section> Probe Filled(std::function<void(Section&)> fill) {
    return [fill] {
        Section section;
        fill(section);
        return section.IsEmpty();
    };
}

/// Each list as "eps unit sym pairs", joined by ", ".
template <typename List, typename Count> QString Summary(const std::list<List*>& lists, Count pairs) {
    QStringList texts;
    for (const List* list : lists)
        texts << QString("%1 %2 %3 %4")
                     .arg(list->Eps())
                     .arg(QString::fromStdWString(list->Unit()))
                     .arg(list->Sym())
                     .arg(pairs(list));
    return texts.join(", ");
}

struct ContactCall {
    double eps;
    std::wstring unit;
    bool sym;
};

} // namespace

Q_DECLARE_METATYPE(ContactCall)

/// The sections of a document on their own: what they keep, how they group, when they are empty.
class tst_sections : public QObject {
    Q_OBJECT
private slots:
    // Every test, and every row of `emptiness` above all, also shows that a section frees what it
    // owns: its containers, materials, levels, quantities, units, schedules and view containers;
    // and nothing else: the sets and the root item it only refers to.
    void init() { QCOMPARE(Counted::alive, 0); }
    void cleanup() { QCOMPARE(Counted::alive, 0); }

    void addPropertyIfNew() {
        OxaPropertySection section;
        QVERIFY(!section.AddPropertyIfNew(nullptr));
        QVERIFY(section.IsEmpty());

        QVERIFY(section.AddPropertyIfNew(MakeProperty(L"wall", L"height", L"2.5", L"m")));
        VOxaPropertyType* const first = section.GetProperties().front();

        // Same refID, name, datatype and unit: the first entry takes the new value.
        VOxaPropertyType* const update = MakeProperty(L"wall", L"height", L"3.0", L"m");
        QVERIFY(!section.AddPropertyIfNew(update));
        QCOMPARE(section.GetProperties().size(), size_t(1));
        QVERIFY(first->value == L"3.0");
        QVERIFY(update->value == L"3.0");
        delete update; // still the caller's

        // Any other key field makes a new entry.
        QVERIFY(section.AddPropertyIfNew(MakeProperty(L"wall", L"height", L"250", L"cm")));
        QVERIFY(section.AddPropertyIfNew(MakeProperty(L"wall", L"height", L"2.5", L"m", L"xs:string")));
        QVERIFY(section.AddPropertyIfNew(MakeProperty(L"wall", L"width", L"0.3", L"m")));
        QVERIFY(section.AddPropertyIfNew(MakeProperty(L"slab", L"height", L"0.2", L"m")));
        QCOMPARE(section.GetProperties().size(), size_t(5));
        QVERIFY(first->value == L"3.0");

        // A plain add never merges.
        section.AddProperty(MakeProperty(L"wall", L"height", L"9", L"m"));
        section.AddProperty(nullptr);
        QCOMPARE(section.GetProperties().size(), size_t(6));
        QVERIFY(first->value == L"3.0");
    }

    void setSectionKeepsSetsByIDWithoutOwningThem() {
        ObjectSet b(L"b"), a(L"a"), otherA(L"a");
        {
            OxaSetSection section;
            QVERIFY(section.IsEmpty());
            section.AddSet(&b);
            section.AddSet(&a);
            section.AddSet(nullptr);
            QCOMPARE(section.SetList(), (std::list<ISet*>{&a, &b}));
            QCOMPARE(section.FindSet(L"b"), static_cast<ISet*>(&b));

            section.AddSet(&otherA);
            QCOMPARE(section.SetList(), (std::list<ISet*>{&otherA, &b}));

            section.RemoveSet(&a); // no longer held: nothing changes
            QCOMPARE(section.SetList().size(), size_t(2));
            section.RemoveSet(&otherA);
            QCOMPARE(section.SetList(), (std::list<ISet*>{&b}));
        }
        QCOMPARE(Counted::alive, 3); // the section deleted none of them
    }

    void findSetLeavesANullEntry() {
        OxaSetSection section;
        QVERIFY(section.FindSet(L"missing") == nullptr);
        QVERIFY(!section.IsEmpty());
        QCOMPARE(section.SetList(), (std::list<ISet*>{nullptr}));

        ObjectSet found(L"missing");
        section.AddSet(&found);
        QCOMPARE(section.SetList(), (std::list<ISet*>{&found}));
    }

    void addContact_data() {
        QTest::addColumn<std::vector<ContactCall>>("calls");
        QTest::addColumn<QString>("lists"); ///< per list: tolerance, unit, sym, number of pairs

        QTest::newRow("mm and cm of one tolerance share a list")
            << std::vector<ContactCall>{{5, L"mm", true}, {0.5, L"cm", false}} << "0.005 m 1 2";
        QTest::newRow("the first call decides sym")
            << std::vector<ContactCall>{{0.01, L"m", false}, {10, L"mm", true}} << "0.01 m 0 2";
        QTest::newRow("other tolerance, new list in call order")
            << std::vector<ContactCall>{{5, L"cm", true}, {5, L"mm", true}, {0.05, L"m", true}}
            << "0.05 m 1 2, 0.005 m 1 1";
        QTest::newRow("unknown unit keeps the value")
            << std::vector<ContactCall>{{0.25, L"furlong", true}, {0.25, L"", true}} << "0.25 m 1 2";
        QTest::newRow("feet scale by the system's factor") << std::vector<ContactCall>{{2, L"foot", true}}
                                                           << "0.61 m 1 1";
    }

    void addContact() {
        QFETCH(std::vector<ContactCall>, calls);
        QFETCH(QString, lists);

        OxaTopologySection section;
        int pair = 0;
        for (const ContactCall& call : calls) {
            const std::wstring n = std::to_wstring(pair++);
            VObjPairRelation relation{L"L" + n, L"R" + n};
            section.AddContact(relation, call.eps, call.unit, call.sym);
            section.AddIntersection(relation, call.eps, call.unit, call.sym);
        }

        // Contacts and intersections group alike but apart, always in metres.
        QCOMPARE(Summary(section.GetContacts(), [](auto* list) { return list->GetContactRelations().size(); }),
                 lists);
        QCOMPARE(Summary(section.GetIntersections(),
                         [](auto* list) { return list->GetIntersectionRelations().size(); }),
                 lists);
        const VObjPairRelation& first = section.GetContacts().front()->GetContactRelations().front();
        QVERIFY(first.left == L"L0" && first.right == L"R0");
    }

    void emptiness_data() {
        QTest::addColumn<Probe>("isEmpty");
        QTest::addColumn<bool>("expected");
        // A new section is empty: the document's own test shows it for all of them.
        const auto row = [](const char* name, Probe probe, bool empty) { QTest::newRow(name) << probe << empty; };
        row("object: a property",
            Filled<OxaObjectSection>([](auto& s) { s.PropertySection().AddProperty(new VOxaPropertyType()); }), false);
        // A set and a root item are not owned: they must outlive the question.
        row("object: a set only", [] {
            OxaObjectSection s;
            ObjectSet set(L"s");
            s.SetSection().AddSet(&set);
            return s.IsEmpty();
        }, true);
        row("object: an empty root container",
            Filled<OxaObjectSection>([](auto& s) { s.AddContainer(new Container(L"root")); }), false);
        row("object: a material",
            Filled<OxaObjectSection>([](auto& s) { s.AddMaterial(new Material(L"mat")); }), false);
        row("topology: a height level",
            Filled<OxaTopologySection>([](auto& s) { s.GetHRefDefinitions().push_back(new HRef(L"level 1")); }), false);
        row("topology: a height relation",
            Filled<OxaTopologySection>([](auto& s) { s.GetHRefRelations().push_back({L"wall", L"level 2", L"level 1"}); }), false);
        row("topology: an intersection",
            Filled<OxaTopologySection>([](auto& s) { s.AddIntersection({L"a", L"b"}, 1, L"mm", true); }), false);
        row("topology: a property only",
            Filled<OxaTopologySection>([](auto& s) { s.PropertySection().AddProperty(new VOxaPropertyType()); }), true);
        row("fit: a root item without qto entries", [] {
            OxaFitSection s;
            Item root(L"root");
            root.Add(new Item(L"sub"));
            s.RootItem(&root);
            return s.IsEmpty();
        }, true);
        row("fit: a qto entry",
            Filled<OxaFitSection>([](auto& s) { s.AddItemData(new ItemData(L"root")); }), false);
        row("fit: a property",
            Filled<OxaFitSection>([](auto& s) { s.PropertySection().AddProperty(new VOxaPropertyType()); }), false);
        row("unit: a unit", Filled<OxaUnitSection>([](auto& s) { s.AddUnit(new Unit()); }), false);
        row("unit: a property",
            Filled<OxaUnitSection>([](auto& s) { s.PropertySection().AddProperty(new VOxaPropertyType()); }), false);
        row("activity: properties and sets only", [] {
            OxaActivitySection s;
            ObjectSet set(L"s");
            s.SetSection().AddSet(&set);
            s.PropertySection().AddProperty(new VOxaPropertyType());
            return s.IsEmpty();
        }, true);
        row("activity: a schedule",
            Filled<OxaActivitySection>([](auto& s) { s.AddSchedule(new Schedule(L"plan")); }), false);
        row("visualisation: containers without views", Filled<OxaVisualisationSection>([](auto& s) {
                s.AddViewContainer(new ViewContainer(L"a"));
                s.AddViewContainer(new ViewContainer(L"b"));
            }), true);
        row("visualisation: a view in the second container", Filled<OxaVisualisationSection>([](auto& s) {
                s.AddViewContainer(new ViewContainer(L"a"));
                auto* views = new ViewContainer(L"b");
                views->AddView(new View(L"v"));
                s.AddViewContainer(views);
            }), false);
        row("visualisation: a null container",
            Filled<OxaVisualisationSection>([](auto& s) { s.ViewContainers().push_back(nullptr); }), true);
    }

    void emptiness() {
        QFETCH(Probe, isEmpty);
        QFETCH(bool, expected);
        QCOMPARE(isEmpty(), expected);
    }

    void countPolygonsWithoutTesselation() {
        OxaObjectSection section;
        QCOMPARE(section.CountPolygonsWithoutTesselation(), 0);

        auto* first = new Container(L"first");
        auto* wall = first->Add(new Object3D(L"wall"));
        wall->AddPolygon(new Polygon(0));
        wall->AddPolygon(new Polygon(2));
        wall->AddPolygon(new Polygon(0));
        first->Add(new Object2D(L"plan"))->AddPolygon(new Polygon(0)); // 2D objects do not count
        auto* storey = first->Add(new Container(L"storey"));
        storey->Add(new Object3D(L"slab"))->AddPolygon(new Polygon(0));
        auto* room = storey->Add(new Container(L"room"));
        auto* door = room->Add(new Object3D(L"door"));
        door->AddPolygon(new Polygon(0));
        door->AddPolygon(new Polygon(0));
        door->AddPolygon(new Polygon(1));
        room->Add(new Object3D(L"window"));
        section.AddContainer(first);

        auto* second = new Container(L"second");
        second->Add(new Object3D(L"roof"))->AddPolygon(new Polygon(0));
        section.AddContainer(second);

        QCOMPARE(section.CountPolygonsWithoutTesselation(), 6);
    }

    void rotationAndTranslationPerRootContainer() {
        OxaObjectSection section;
        auto* a = new Container(L"a");
        auto* b = new Container(L"b");
        section.AddContainer(a);
        section.AddContainer(b);
        QVERIFY(section.ContainerRotation(a) == nullptr && section.ContainerTranslation(a) == nullptr);

        section.SetContainerRotTrans(a, new std::vector<double>(9, 0.5), new std::vector<double>{1, 2, 3});
        auto* rotation = new std::vector<double>{1, 0, 0, 0, 1, 0, 0, 0, 1};
        section.SetContainerRotTrans(a, rotation,
                                     new std::vector<double>{4, 5, 6}); // replaces, frees the old
        section.SetContainerRotTrans(b, nullptr, new std::vector<double>{7, 8, 9});

        QVERIFY(section.ContainerRotation(a) == rotation);
        QCOMPARE(*section.ContainerTranslation(a), (std::vector<double>{4, 5, 6}));
        QVERIFY(section.ContainerRotation(b) == nullptr);
        QCOMPARE(*section.ContainerTranslation(b), (std::vector<double>{7, 8, 9}));
    }
};

QTEST_GUILESS_MAIN(tst_sections)
#include "tst_sections.moc"
