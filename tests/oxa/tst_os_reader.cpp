#include "oxa/OxaOsReader.h"
#include "oxa/OxaRoot.h"

#include <QtTest>

/// The object-store entry answers and reads nothing.
class tst_os_reader : public QObject {
    Q_OBJECT
private slots:
    void one_instance_that_reads_nothing_data() {
        QTest::addColumn<QString>("path");
        QTest::newRow("empty") << QString();
        QTest::newRow("some store") << QString("store://building/7");
        QTest::newRow("a file") << QString("/tmp/model.oxaxml");
    }
    void one_instance_that_reads_nothing() {
        QFETCH(QString, path);
        oxa::OxaOsReader* reader = oxa::OxaOsReader::GetInstance();
        QVERIFY(reader);
        QCOMPARE(oxa::OxaOsReader::GetInstance(), reader);
        QVERIFY(!reader->Read(path));
    }
    void a_null_root_leaves_the_last_root() {
        oxa::OxaOsReader* reader = oxa::OxaOsReader::GetInstance();
        oxa::OxaRoot root(false);
        reader->SetRoot(&root);
        QCOMPARE(reader->Root(), &root);
        QCOMPARE(reader->System(), root.System());
        reader->SetRoot(nullptr);
        QCOMPARE(reader->Root(), &root);
        QCOMPARE(reader->System(), root.System());
        QVERIFY(!reader->Read("anything"));
        QCOMPARE(reader->Root(), &root);
        QVERIFY(root.OxaObjectsList().isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_os_reader)
#include "tst_os_reader.moc"
