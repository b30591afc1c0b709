#include "mesh3D/Vertex.h"
#include "oxa/OxaExamineContainer.h"
#include "oxa/OxaExamineData.h"
#include "support/Files.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <QtTest>

using oxa::OxaExamineContainer;
using oxa::OxaExamineData;

class tst_OxaExamineContainer : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { OxaExamineContainer::DeleteInstance(); }
    void singletonLifecycle();
    void recordsAreFoundByRealID();
    void duplicatesAndPointNumbers();
    void dumpFollowsTheDrawSwitch_data();
    void dumpFollowsTheDrawSwitch();
};

void tst_OxaExamineContainer::singletonLifecycle() {
    OxaExamineContainer* instance = OxaExamineContainer::GetInstance();
    QVERIFY(instance);
    QCOMPARE(OxaExamineContainer::GetInstance(), instance);
    double x = 0, y = 0, z = 0;
    instance->GetTextScale(x, y, z);
    QCOMPARE(x + y + z, 3.0);
    instance->SetTextScale(1.5, 2.5, 3.5);
    instance->GetTextScale(x, y, z);
    QCOMPARE(y, 2.5);
    QVERIFY(!instance->IsDrawPointNumbers());

    QVERIFY(OxaExamineContainer::DeleteInstance());
    QVERIFY(!OxaExamineContainer::DeleteInstance());
}

void tst_OxaExamineContainer::recordsAreFoundByRealID() {
    OxaExamineContainer* container = OxaExamineContainer::GetInstance();
    QVERIFY(!container->FindObjectExamineDataFromRealID("a4f"));
    OxaExamineData* record = container->GetObjectExamineData("a4f", "17");
    QCOMPARE(container->GetObjectExamineData("a4f", "other"), record);
    QCOMPARE(record->MappedID(), QString("17"));
    QCOMPARE(container->FindObjectExamineDataFromRealID("a4f"), record);
}

void tst_OxaExamineContainer::duplicatesAndPointNumbers() {
    OxaExamineData record("a4f", "17");
    record.AddDuplicatePoint(3, 9);
    record.AddDuplicatePoint(3, 12);
    record.AddDuplicatePoint(5, 6);
    QCOMPARE(record.DuplicatePoints(3), (QList<int>{3, 9, 12}));
    QCOMPARE(record.DuplicatePoints(5), (QList<int>{5, 6}));
    QVERIFY(record.DuplicatePoints(9).isEmpty());
    QCOMPARE(record.KeptPoints(), (QList<int>{3, 5}));
    QCOMPARE(record.CountDuplicatePoints(), 3);

    mesh3D::Vertex a(0, 0, 0), b(1, 0, 0), elsewhere(2, 0, 0);
    record.AddPoints({{3, &a}, {4, &b}});
    QCOMPARE(record.FindPoint(&a), 3);
    QCOMPARE(record.FindPoint(&b), 4);
    QCOMPARE(record.FindPoint(&elsewhere), 0);
    QCOMPARE(record.FindPoint(4), &b);
    QCOMPARE(record.FindPoint(8), static_cast<mesh3D::Vertex*>(nullptr));
    // The reverse table is built once: points added later are found by vertex only.
    record.AddPoints({{8, &elsewhere}, {7, &a}});
    QCOMPARE(record.FindPoint(&elsewhere), 8);
    QCOMPARE(record.FindPoint(&a), 7); // a later call overrides
    QCOMPARE(record.FindPoint(&b), 4);
    QCOMPARE(record.FindPoint(8), static_cast<mesh3D::Vertex*>(nullptr));

    QString text;
    QTextStream stream(&text);
    OxaExamineData single("a4f", "17");
    single.AddDuplicatePoint(3, 9);
    single.AddDuplicatePoint(1, 2);
    single.AddDuplicatePoint(3, 12);
    single.DumpDuplicatePoints(stream);
    stream.flush();
    QCOMPARE(text, QString("obj 17 'a4f' p: 3 9 12 \nobj 17 'a4f' p: 1 2 \n"));
}

void tst_OxaExamineContainer::dumpFollowsTheDrawSwitch_data() {
    QTest::addColumn<bool>("draw");
    QTest::newRow("drawing point numbers") << true;
    QTest::newRow("not drawing") << false;
}

void tst_OxaExamineContainer::dumpFollowsTheDrawSwitch() {
    QFETCH(bool, draw);
    QTemporaryDir dir;
    const QString path = dir.filePath("dump.txt");
    QVERIFY(fixture::WriteFile(path, "old content\n"));
    OxaExamineContainer* container = OxaExamineContainer::GetInstance();
    container->SetDrawPointNumbers(draw);
    container->GetObjectExamineData("wall-ä", "W1")->AddDuplicatePoint(0, 8);
    container->GetObjectExamineData("slab", "S1");
    container->DumpDuplicatePoints(path);

    // The file is emptied in both cases; only the drawing mode fills it.
    QCOMPARE(QString::fromUtf8(fixture::ReadFile(path)), draw ? QString("obj W1 'wall-ä' p: 0 8 \n") : QString());
}

QTEST_GUILESS_MAIN(tst_OxaExamineContainer)
#include "tst_OxaExamineContainer.moc"
