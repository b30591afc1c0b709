// Loads documents into a project root as a host does, writes the root's project, destroys the
// root, and loads what was written into a fresh root. Run alone under the leak sanitizer
// (scripts/leakcheck.sh) it proves that a whole load-write-release cycle frees what it took; in
// every build it checks that the written project holds what was loaded.
// The large row (the sample project grown to 100 000 triangles by `zentra sample --triangles`)
// is generated only when ZENTRA_LEAKCHECK_LARGE is set, so that the everyday test run stays quick.

#include "support/CliRun.h"

#include "mesh3D/Container.h"
#include "mesh3D/Object3D.h"
#include "oxa/OxaExamineContainer.h"
#include "oxa/OxaRoot.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// What a load put into a root, counted over its tree and documents.
struct Content {
    int documents = 0;
    long objects = 0;
    long triangles = 0;

    bool operator==(const Content& other) const {
        return documents == other.documents && objects == other.objects && triangles == other.triangles;
    }
};

void CountTree(const mesh3D::Container* container, Content& content) {
    for (const mesh3D::Element* child : container->children()) {
        if (auto* inner = dynamic_cast<const mesh3D::Container*>(child)) {
            CountTree(inner, content);
        } else if (auto* object = dynamic_cast<const mesh3D::Object3D*>(child)) {
            ++content.objects;
            content.triangles += object->triangles().size();
        }
    }
}

/// Loads a document or a project folder into `root`; false when any document failed.
bool Load(oxa::OxaRoot& root, const QString& path) {
    if (QFileInfo(path).isDir())
        return root.ReadFromOxaProject(path, oxa::OxaRoot::DocumentSubfolders(path));
    return root.ImportOXAXML(path, QString());
}

QString Describe(const Content& content) {
    return QString("%1 documents, %2 objects, %3 triangles")
        .arg(content.documents)
        .arg(content.objects)
        .arg(content.triangles);
}

Content Count(const oxa::OxaRoot& root) {
    Content content;
    content.documents = root.OxaObjectsList().size();
    CountTree(root.RootContainer(), content);
    return content;
}

} // namespace

namespace QTest {
template <> char* toString(const Content& content) { return qstrdup(qPrintable(Describe(content))); }
} // namespace QTest

class tst_ReadWriteRelease : public QObject {
    Q_OBJECT

private slots:
    void cycle_data();
    void cycle();
    void cleanupTestCase();

private:
    QTemporaryDir scratch;
};

void tst_ReadWriteRelease::cycle_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<long>("minimumTriangles");
    QTest::addColumn<bool>("generate");
    const QDir shared(QStringLiteral(ZENTRA_SHARED_DATA));
    QTest::newRow("sample project") << QStringLiteral(ZENTRA_SOURCE_DIR "/examples/sample-project") << 48L << false;
    QTest::newRow("shared small document") << shared.filePath("small.oxaxml") << 1L << false;
    QTest::newRow("shared sample project") << shared.filePath("sample-project") << 1L << false;
    // The sample project grown by the command-line tool.
    QTest::newRow("large") << (qEnvironmentVariableIsSet("ZENTRA_LEAKCHECK_LARGE") ? scratch.filePath("large")
                                                                                   : QString())
                           << 100000L << true;
}

/// The load, the write of the root's project and the release of the root; then the written
/// project must load into a fresh root with the same documents, objects and triangles.
void tst_ReadWriteRelease::cycle() {
    QFETCH(QString, path);
    QFETCH(long, minimumTriangles);
    QFETCH(bool, generate);
    QVERIFY(scratch.isValid());
    if (generate && !path.isEmpty()) {
        const CliResult made = run_cli({"sample", "--triangles", QString::number(minimumTriangles), path});
        QVERIFY2(made.code == 0, qPrintable(made.err));
    }
    if (path.isEmpty() || !QFileInfo::exists(path))
        QSKIP("not present (shared sample data, or the large project without ZENTRA_LEAKCHECK_LARGE)");
    const QString written = scratch.filePath("written-" + QString(QTest::currentDataTag()).replace(' ', '-'));
    Content loaded;
    {
        oxa::OxaRoot root(false);
        QVERIFY(Load(root, path));
        loaded = Count(root);
        QVERIFY2(loaded.triangles >= minimumTriangles, qPrintable(Describe(loaded)));
        QVERIFY(QDir().mkpath(written));
        QVERIFY(root.WriteToOxaProject(written));
    }
    oxa::OxaRoot again(false);
    QVERIFY(Load(again, written));
    QCOMPARE(Count(again), loaded);
}

/// The examination data is one instance per process; it is released like a host does on exit.
void tst_ReadWriteRelease::cleanupTestCase() {
    oxa::OxaExamineContainer::DeleteInstance();
}

QTEST_GUILESS_MAIN(tst_ReadWriteRelease)
#include "tst_ReadWriteRelease.moc"
