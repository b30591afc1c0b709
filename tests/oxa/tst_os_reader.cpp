#include "oxa/OxaOsReader.h"

#include <QtTest>

/// The object-store entry answers and reads nothing.
class TestOsReader : public QObject {
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
        // The reader only keeps the pointer, so any address stands for a root here.
        auto* root = reinterpret_cast<oxa::OxaRoot*>(this);
        reader->SetRoot(root);
        QCOMPARE(reader->Root(), root);
        reader->SetRoot(nullptr);
        QCOMPARE(reader->Root(), root);
        QVERIFY(!reader->Read("anything"));
        QCOMPARE(reader->Root(), root);
    }
};

QTEST_GUILESS_MAIN(TestOsReader)
#include "tst_os_reader.moc"
