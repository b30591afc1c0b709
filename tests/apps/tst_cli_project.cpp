#include <QtTest>

#include "support/CliRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

namespace {

/// A document with a container `id` whose inner container holds one triangle object `object`.
QByteArray Document(const QByteArray& created, const QByteArray& id, const QByteArray& object) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<objects projectID="P" createdBy="tests" sourceApp="tst" sourceFormat="hand made" created=")" +
           created + R"(" oxaversion="1.5"><content version="1.2"><section name="objectSection"/></content>
<objectSection unit="m" version="1.5"><container ID=")" + id + R"(" name="outer"><container ID=")" + id +
           R"(-IN" name="inner"><object3D ID=")" + object + R"(" name="o"/></container></container>
<objectDataSection version="1.5"><data3D refID=")" + object + R"("><p nr="0" x="0" y="0" z="0"/>
<p nr="1" x="1" y="0" z="0"/><p nr="2" x="0" y="1" z="0"/><t p1="0" p2="1" p3="2"/></data3D></objectDataSection>
</objectSection></objects>)";
}

bool Write(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QJsonObject Counts(const QString& path, const QString& directory = QString()) {
    const CliResult result = run_cli({"info", "--json", path}, QProcessEnvironment::systemEnvironment(), directory);
    return QJsonDocument::fromJson(result.out.toUtf8()).array().first().toObject().value("counts").toObject();
}

} // namespace

class tst_cli_project : public QObject {
    Q_OBJECT

    QTemporaryDir dir;

private slots:
    void initTestCase() {
        QVERIFY(dir.isValid());
        QVERIFY(Write(dir.filePath("p/a.oxaxml"), Document("2024-02-01T00:00:00", "A", "A1")));
        QVERIFY(Write(dir.filePath("p/sub/b.oxaxml"), Document("2024-01-01T00:00:00", "B", "B1")));
    }

    void infoCountsAFullLoad() {
        const QJsonObject counts = Counts(dir.filePath("p"));
        QCOMPARE(counts.value("containers").toInt(), 4);
        QCOMPARE(counts.value("objects").toInt(), 2);
        QCOMPARE(counts.value("triangles").toInt(), 2);
        QCOMPARE(counts.value("vertices").toInt(), 6);
        const CliResult text = run_cli({"info", dir.filePath("p")});
        QCOMPARE(text.code, 0);
        QVERIFY(text.out.contains("created:            2024-02-01T00:00:00"));
        QVERIFY(text.out.contains("peak memory:"));
    }

    void anyPathToAProjectLoadsTheSameModel_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("directory");
        QTest::newRow("relative") << "p" << dir.path();
        QTest::newRow("through ..") << "../../p" << dir.filePath("p/sub");
        QTest::newRow("trailing slash") << dir.filePath("p") + "/" << QString();
    }

    void anyPathToAProjectLoadsTheSameModel() {
        QFETCH(QString, path);
        QFETCH(QString, directory);
        QCOMPARE(Counts(path, directory), Counts(dir.filePath("p")));
    }

    void treeDumpsTheContainers() {
        const CliResult result = run_cli({"tree", dir.filePath("p/a.oxaxml")});
        QCOMPARE(result.code, 0);
        QVERIFY2(result.out.contains("  <Container composite=0 name=\"outer\" ID=\"A\">\n"
                                     "    <Container composite=0 name=\"inner\" ID=\"A-IN\">\n"
                                     "      <Object3D name=\"o\" ID=\"A1\" />\n"),
                 qPrintable(result.out));
        QVERIFY(result.err.isEmpty());
    }

    void convertedProjectReadsBackWithTheSameCounts() {
        const QString copy = dir.filePath("copy");
        const CliResult result = run_cli({"convert", dir.filePath("p"), copy});
        QCOMPARE(result.code, 0);
        QVERIFY(QFile::exists(copy + "/sub/b.oxaxml"));
        QCOMPARE(Counts(copy), Counts(dir.filePath("p")));
    }

    void aCopyThatLosesDataKeepsItsPartName() {
        // The writer leaves out an object without geometry; the read-back check sees it gone.
        QByteArray document = Document("2024-01-01T00:00:00", "E", "E1");
        document.replace(R"(<object3D ID="E1" name="o"/>)", R"(<object3D ID="E1" name="o"/><object3D ID="E2" name="empty"/>)");
        QVERIFY(Write(dir.filePath("lossy/e.oxaxml"), document));
        const QString output = dir.filePath("lossy-copy.oxaxml");
        const CliResult result = run_cli({"convert", dir.filePath("lossy/e.oxaxml"), output});
        QCOMPARE(result.code, 1);
        QVERIFY2(result.err.contains("objects 2 written, 1 read back"), qPrintable(result.err));
        QVERIFY(!QFile::exists(output));
        QVERIFY(QFile::exists(output + ".part"));
        QCOMPARE(run_cli({"convert", "--no-verify", dir.filePath("lossy/e.oxaxml"), output}).code, 0);
        QVERIFY(QFile::exists(output));
    }

    void sampleProjectIsMadeByTheLibraryAndBundled() {
        const QString made = dir.filePath("sample");
        QCOMPARE(run_cli({"sample", made}).code, 0);
        const QJsonObject counts = Counts(made);
        QCOMPARE(counts.value("objects").toInt(), 4);
        QCOMPARE(counts.value("triangles").toInt(), 48);
        QCOMPARE(counts.value("materials").toInt(), 3);
        QCOMPARE(counts.value("properties").toInt(), 2);
        QCOMPARE(counts.value("contacts").toInt(), 1);
        QCOMPARE(counts.value("intersections").toInt(), 1);
        QCOMPARE(counts.value("vertices").toInt(), 4 * 8); // four boxes of eight welded corners
        QVERIFY(QFile::exists(made + "/structure/structure.oxaxml"));
        // The bundled copy is what the generator makes.
        QCOMPARE(Counts(QStringLiteral(ZENTRA_SOURCE_DIR) + "/examples/sample-project"), counts);
    }

    void sampleGrowsToTheTrianglesAsked() {
        const QString made = dir.filePath("grown");
        QCOMPARE(run_cli({"sample", "--triangles", "1000", made}).code, 0);
        const QJsonObject counts = Counts(made);
        // 80 columns of 12 triangles lift the 48 of the sample to the first count of 1000 or more.
        QCOMPARE(counts.value("triangles").toInt(), 48 + 80 * 12);
        QCOMPARE(counts.value("objects").toInt(), 4 + 80);
        QCOMPARE(counts.value("properties").toInt(), 2 + 80);
        QCOMPARE(run_cli({"sample", "--triangles", "some", made}).code, 2);
        QCOMPARE(run_cli({"sample", made, "--triangles"}).code, 2);
    }

    void failuresNameTheFileAndTheReason() {
        const CliResult missing = run_cli({"info", dir.filePath("none")});
        QCOMPARE(missing.code, 1);
        QVERIFY2(missing.err.startsWith(dir.filePath("none")), qPrintable(missing.err));
        QCOMPARE(missing.err.count('\n'), 1);
        QVERIFY(Write(dir.filePath("bad/x.oxaxml"), "<objects><objectSection"));
        const CliResult bad = run_cli({"tree", dir.filePath("bad/x.oxaxml")});
        QCOMPARE(bad.code, 1);
        QVERIFY2(bad.err.startsWith(dir.filePath("bad/x.oxaxml") + ": "), qPrintable(bad.err));
        QCOMPARE(bad.err.count('\n'), 1);
        // One unreadable document fails the whole project, by name; what was read still counts.
        QVERIFY(Write(dir.filePath("broken/good.oxaxml"), Document("2024-01-01T00:00:00", "G", "G1")));
        QVERIFY(Write(dir.filePath("broken/sub/bad.oxaxml"), "<objects><objectSection"));
        const CliResult project = run_cli({"info", dir.filePath("broken")});
        QCOMPARE(project.code, 1);
        QVERIFY2(project.err.contains("bad.oxaxml"), qPrintable(project.err));
        QVERIFY(project.out.contains("objects:            1\n"));
    }
};

QTEST_GUILESS_MAIN(tst_cli_project)
#include "tst_cli_project.moc"
