#include <QtTest>

#include "support/CliRun.h"
#include "support/Files.h"

#include "geometry/Octree.h"
#include "mesh3D/Container.h"
#include "mesh3D/Object3D.h"
#include "oxa/OxaRoot.h"

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

QJsonObject Counts(const QString& path) {
    const CliResult result = run_cli({"info", "--json", path});
    return QJsonDocument::fromJson(result.out.toUtf8()).array().first().toObject().value("counts").toObject();
}

/// The points the surfaces of the project hold after welding, summed, as the library loads it.
long WeldedPoints(const QString& project) {
    oxa::OxaRoot root(false);
    root.ReadFromOxaProject(project, oxa::OxaRoot::DocumentSubfolders(project));
    long points = 0;
    QList<const mesh3D::Container*> open{root.RootContainer()};
    while (!open.isEmpty())
        for (mesh3D::Element* child : open.takeFirst()->children())
            if (auto* inner = dynamic_cast<const mesh3D::Container*>(child))
                open << inner;
            else if (auto* object = dynamic_cast<const mesh3D::Object3D*>(child))
                points += object->vertices().count();
    return points;
}

} // namespace

class tst_cli_project : public QObject {
    Q_OBJECT

    QTemporaryDir dir;

private slots:
    void initTestCase() {
        QVERIFY(dir.isValid());
        QVERIFY(fixture::WriteFile(dir.filePath("p/a.oxaxml"), Document("2024-02-01T00:00:00", "A", "A1")));
        QVERIFY(fixture::WriteFile(dir.filePath("p/sub/b.oxaxml"), Document("2024-01-01T00:00:00", "B", "B1")));
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
        // The second conversion replaces the folder the first one made.
        for (int run = 0; run < 2; ++run) {
            const CliResult result = run_cli({"convert", dir.filePath("p"), copy});
            QVERIFY2(result.code == 0, qPrintable(result.err));
        }
        QVERIFY(QFile::exists(copy + "/sub/b.oxaxml"));
        QCOMPARE(Counts(copy), Counts(dir.filePath("p")));
    }

    void aCopyThatLosesDataKeepsItsPartName() {
        // The writer leaves out an object without geometry; the read-back check sees it gone.
        QByteArray document = Document("2024-01-01T00:00:00", "E", "E1");
        document.replace(R"(<object3D ID="E1" name="o"/>)", R"(<object3D ID="E1" name="o"/><object3D ID="E2" name="empty"/>)");
        QVERIFY(fixture::WriteFile(dir.filePath("lossy/e.oxaxml"), document));
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
        QVERIFY(QFile::exists(made + "/structure/structure.oxaxml"));
        // The bundled copy is what the generator makes.
        const QString bundled = QStringLiteral(ZENTRA_SOURCE_DIR) + "/examples/sample-project";
        QCOMPARE(Counts(bundled), counts);
        QVERIFY(counts.value("vertices").toInt() > 0);
        QCOMPARE(counts.value("vertices").toInt(), WeldedPoints(bundled));
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
        QVERIFY(fixture::WriteFile(dir.filePath("bad/x.oxaxml"), "<objects><objectSection"));
        const CliResult bad = run_cli({"tree", dir.filePath("bad/x.oxaxml")});
        QCOMPARE(bad.code, 1);
        QVERIFY2(bad.err.startsWith(dir.filePath("bad/x.oxaxml") + ": "), qPrintable(bad.err));
        QCOMPARE(bad.err.count('\n'), 1);
        // One unreadable document fails the whole project, by name; what was read still counts.
        QVERIFY(fixture::WriteFile(dir.filePath("broken/good.oxaxml"), Document("2024-01-01T00:00:00", "G", "G1")));
        QVERIFY(fixture::WriteFile(dir.filePath("broken/sub/bad.oxaxml"), "<objects><objectSection"));
        const CliResult project = run_cli({"info", dir.filePath("broken")});
        QCOMPARE(project.code, 1);
        QVERIFY2(project.err.contains("bad.oxaxml"), qPrintable(project.err));
        QVERIFY(project.out.contains("objects:            1\n"));
        // A partial model is never written under the target name.
        const QString output = dir.filePath("broken-copy");
        QCOMPARE(run_cli({"convert", dir.filePath("broken"), output}).code, 1);
        QVERIFY(!QFileInfo::exists(output));
        QVERIFY(QFileInfo::exists(output + ".part"));
    }
};

QTEST_GUILESS_MAIN(tst_cli_project)
#include "tst_cli_project.moc"
