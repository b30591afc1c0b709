#include "ReaderFixture.h"

#include "basic/MessageService.h"
#include "mesh3D/Container.h"
#include "mesh3D/Object3D.h"
#include "oxa/HRef.h"
#include "oxa/OxaFileHandler.h"
#include "oxa/OxaRoot.h"
#include "oxa/OxaXmlReader.h"
#include "oxaIO/ExportContext.h"
#include "oxaIO/OxaObjects.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {

using fixture::Children;

/// A document created at `created` with one container `id` holding the objects `objects`.
QByteArray Doc(const QByteArray& created, const QByteArray& id, const QList<QByteArray>& objects,
               const QByteArray& rest = {}, const QByteArray& unit = "m") {
    // Objects sit one level down: a root container holds containers only when written.
    QByteArray body = "<container ID=\"" + id + "\" name=\"" + id.toLower() + "\"><container ID=\"" + id +
                      "-IN\" name=\"in\">";
    for (const QByteArray& object : objects)
        body += "<object3D ID=\"" + object + "\" name=\"" + object.toLower() + "\"/>";
    body += "</container></container>";
    // Each object gets one triangle: the writer leaves out objects without geometry.
    QByteArray data = "<objectDataSection version=\"1.5\">";
    for (const QByteArray& object : objects)
        data += "<data3D refID=\"" + object + "\"><p nr=\"0\" x=\"0\" y=\"0\" z=\"0\"/>"
                "<p nr=\"1\" x=\"1\" y=\"0\" z=\"0\"/><p nr=\"2\" x=\"0\" y=\"1\" z=\"0\"/>"
                "<t p1=\"0\" p2=\"1\" p3=\"2\"/></data3D>";
    body += data + "</objectDataSection>";
    return fixture::Document(body, rest, unit)
        .replace("2024-06-01T12:00:00", created)
        .replace("\n<objectSection", "\n<content version=\"1.2\"><section name=\"objectSection\"/></content><objectSection");
}

/// The dump of each top-level container of the root, by identifier.
QMap<QString, QString> Dumps(const oxa::OxaRoot& root) {
    QMap<QString, QString> dumps;
    for (mesh3D::Element* child : root.RootContainer()->children()) {
        QString text;
        QTextStream stream(&text);
        oxa::OxaFileHandler::DumpContainer(dynamic_cast<mesh3D::Container*>(child), stream);
        stream.flush();
        dumps.insert(child->id(), text);
    }
    return dumps;
}

QStringList Sorted(const QSet<QString>* set) {
    QStringList list = set ? QStringList(set->values()) : QStringList();
    list.sort();
    return list;
}

/// Containers, objects and triangles in the root's tree.
struct TreeCounts {
    int containers = 0, objects = 0, triangles = 0;
};

TreeCounts CountTree(const mesh3D::Container* container) {
    TreeCounts counts;
    for (mesh3D::Element* child : container->children())
        if (auto* inner = dynamic_cast<mesh3D::Container*>(child)) {
            const TreeCounts below = CountTree(inner);
            counts.containers += 1 + below.containers;
            counts.objects += below.objects;
            counts.triangles += below.triangles;
        } else if (auto* object = dynamic_cast<mesh3D::Object3D*>(child)) {
            ++counts.objects;
            counts.triangles += object->triangles().size();
        }
    return counts;
}

} // namespace

class tst_OxaRoot : public QObject {
    Q_OBJECT

    QTemporaryDir dir;

    QString write(const QString& name, const QByteArray& bytes) {
        const QString path = dir.filePath(name);
        return fixture::WriteFile(path, bytes) ? path : QString();
    }

private slots:
    void initTestCase() { QVERIFY(dir.isValid()); }

    void projectIsReadNewestFirstWithStableTies() {
        write("p/a.oxaxml", Doc("2024-01-01T00:00:00", "A", {"A1"}));
        // Newer than a, so read before it: a's container merges into this one.
        write("p/f.oxaxml", Doc("2024-01-15T00:00:00", "A", {"F1"}));
        write("p/b.oxaxml", Doc("2024-03-01T00:00:00", "B", {"B1"}));
        write("p/c.oxaxml", Doc("2024-02-01T00:00:00", "C", {"C1"}));
        write("p/d.oxaxml", Doc("2024-02-01T00:00:00", "D", {"D1"}));
        write("p/sub/e.oxaxml", Doc("2024-02-01T00:00:00", "E", {"E1"}));
        write("p/sub/ignored.txt", "not a document");
        oxa::OxaRoot root(false);
        QVERIFY(root.ReadFromOxaProject(dir.filePath("p"), {"sub"}));
        // The subfolder is listed before the project folder, so of the three equal dates its
        // document comes first, then c and d in folder order.
        QCOMPARE(Children(root.RootContainer()), QStringList({"B", "E", "C", "D", "A"}));
        QCOMPARE(Children(root.System()->object("A-IN")), QStringList({"F1", "A1"}));
        QCOMPARE(root.OxaObjectsList().size(), 6);
        const oxaIO::ExportContext& e = root.OxaObjectsList()[1]->Context();
        QCOMPARE(e.OxaFileName(), std::wstring(L"e.oxaxml"));
        QCOMPARE(e.OriginFileName(), std::wstring(L"e.oxaxml"));
        QCOMPARE(e.SubFolder(), std::wstring(L"sub"));
        QCOMPARE(root.OxaObjectsList()[0]->Context().SubFolder(), std::wstring());
    }

    void emptyProjectAndBadPaths() {
        QDir().mkpath(dir.filePath("empty"));
        basic::MessageService service;
        QSignalSpy messages(&service, &basic::MessageService::message);
        oxa::OxaRoot root(false);
        root.MsgService(&service);
        QVERIFY(root.ReadFromOxaProject(dir.filePath("empty"), {}));
        QVERIFY(root.RootContainer()->children().isEmpty());
        QVERIFY(messages.isEmpty());

        QVERIFY(!root.ReadFromOxaProject(QString(), {}));
        QVERIFY(!root.ImportOXAXML(QString(), QString()));
        QVERIFY(messages.isEmpty());

        QVERIFY(!root.ReadFromOxaProject(dir.filePath("nowhere"), {}));
        QCOMPARE(messages.takeFirst().at(0).toString(),
                 "Error - project path does not exist : " + dir.filePath("nowhere"));

        QVERIFY(root.ReadFromOxaProject(dir.filePath("empty"), {"missing"}));
        QCOMPARE(messages.takeFirst().at(0).toString(),
                 "Error - project subpath does not exist : " + dir.filePath("empty") + "\\missing");
    }

    void unparsableFileLeavesTheOthers() {
        write("u/good1.oxaxml", Doc("2024-03-01T00:00:00", "G1", {"X1"}));
        const QString bad = write("u/bad.oxaxml", "<objects created=\"2024-02-01T00:00:00\"><objectSection>");
        write("u/good2.oxaxml", Doc("2024-01-01T00:00:00", "G2", {"X2"}));
        basic::MessageService service;
        QSignalSpy messages(&service, &basic::MessageService::message);
        QSignalSpy progressMessages(&service, &basic::MessageService::progress_message);
        oxa::OxaRoot root(false);
        root.MsgService(&service);
        oxa::OxaXmlReader reader(&root);
        reader.MsgService(&service);
        QVERIFY(!root.ReadFromOxaProject(dir.filePath("u"), {}, &reader));
        QCOMPARE(Children(root.RootContainer()), QStringList({"G1", "G2"}));
        QCOMPARE(messages.size(), 1);
        QString expected = bad;
        QCOMPARE(messages.first().at(0).toString(), "Error reading file : " + expected.replace('/', '\\'));
        // The root's handler has no channel of its own, so no import lines reach the host.
        for (const QList<QVariant>& arguments : progressMessages)
            QVERIFY(!arguments.at(0).toString().startsWith("oxa"));
    }

    void contactsAreEnteredBothWays() {
        write("t/one.oxaxml", Doc("2024-02-01T00:00:00", "C1", {"A", "B"}, R"(<topologySection version="1.3">
<contacts eps="0.001" unit="m" sym="false"><contact L="A" R="B"/></contacts>
<intersections eps="0" unit="m"><isect L="A" R="X"/></intersections>
<hRefs unit="m"><hRef ID="L0" z="0"/></hRefs></topologySection>)"));
        write("t/two.oxaxml", Doc("2024-01-01T00:00:00", "C2", {"X"}, R"(<topologySection version="1.3">
<contacts eps="0.001" unit="m"><contact L="X" R="A"/><contact L="B" R="A"/></contacts></topologySection>)"));
        oxa::OxaRoot root(false);
        QVERIFY(root.ReadFromOxaProject(dir.filePath("t"), {}));
        QCOMPARE(Sorted(root.GetContacts().value("A")), QStringList({"B", "X"}));
        QCOMPARE(Sorted(root.GetContacts().value("B")), QStringList({"A"}));
        QCOMPARE(Sorted(root.GetContacts().value("X")), QStringList({"A"}));
        QCOMPARE(Sorted(root.GetIntersections().value("X")), QStringList({"A"}));
        QCOMPARE(root.HRefList().size(), 1);
        // A rebuild neither doubles the tree nor the relations.
        QVERIFY(root.SyncObjectsToRootContainer());
        QCOMPARE(Children(root.RootContainer()), QStringList({"C1", "C2"}));
        QCOMPARE(root.HRefList().size(), 1);
        QCOMPARE(Sorted(root.GetContacts().value("A")), QStringList({"B", "X"}));
    }

    void writtenProjectReadsBackEqual_data() {
        QTest::addColumn<QByteArray>("unit");
        QTest::newRow("metres") << QByteArray("m");
        QTest::newRow("millimetres") << QByteArray("mm");
    }

    void writtenProjectReadsBackEqual() {
        QFETCH(QByteArray, unit);
        const QString base = unit + "/";
        write(base + "w/top.oxaxml", Doc("2024-02-01T00:00:00", "TOP", {"T1", "T2"}, {}, unit));
        write(base + "w/deep/sub.oxaxml", Doc("2024-01-01T00:00:00", "SUB", {"S1"}, {}, unit));
        basic::MessageService service;
        QSignalSpy messages(&service, &basic::MessageService::message);
        oxa::OxaRoot root(false);
        root.MsgService(&service);
        QVERIFY(root.ReadFromOxaProject(dir.filePath(base + "w"), {"deep"}));
        const QString copy = dir.filePath(base + "copy");
        QVERIFY(QDir().mkpath(copy));
        QVERIFY(root.WriteToOxaProject(copy));
        QCOMPARE(messages.size(), 2);
        QCOMPARE(messages[0].at(0).toString(), "Writing file [" + copy + "/top.oxaxml]");
        QCOMPARE(messages[1].at(0).toString(), "Writing file [" + copy + "/deep/sub.oxaxml]");

        oxa::OxaRoot again(false);
        QVERIFY(again.ReadFromOxaProject(copy, {"deep"}));
        QCOMPARE(Dumps(again), Dumps(root));
        // The geometry comes back at the same place, whatever unit the document was in.
        const auto* read = dynamic_cast<mesh3D::Object3D*>(root.System()->object("T1"));
        const auto* back = dynamic_cast<mesh3D::Object3D*>(again.System()->object("T1"));
        QVERIFY(read && back);
        QCOMPARE(back->triangles().size(), 1);
        QCOMPARE(back->getBoundingbox().xmax, read->getBoundingbox().xmax);
        QCOMPARE(read->getBoundingbox().xmax, unit == "mm" ? 0.001 : 1.0);
        // Writing the copy again gives the same bytes: nothing drifts on a second round.
        const QString second = dir.filePath(base + "second");
        QVERIFY(QDir().mkpath(second));
        QVERIFY(again.WriteToOxaProject(second));
        for (const QString& file : {QString("/top.oxaxml"), QString("/deep/sub.oxaxml")})
            QCOMPARE(fixture::WithoutCreated(fixture::ReadFile(second + file)),
                     fixture::WithoutCreated(fixture::ReadFile(copy + file)));
    }

    void writeFailuresAreReported() {
        basic::MessageService service;
        QSignalSpy messages(&service, &basic::MessageService::message);
        oxa::OxaRoot empty(false);
        empty.MsgService(&service);
        QVERIFY(!empty.WriteToOxaProject(dir.filePath("out")));
        QCOMPARE(messages.takeFirst().at(0).toString(), QString("Error writing file [] : No data."));

        write("f/a.oxaxml", Doc("2024-01-01T00:00:00", "A", {"A1"}));
        oxa::OxaRoot root(false);
        root.MsgService(&service);
        QVERIFY(root.ReadFromOxaProject(dir.filePath("f"), {}));
        root.OxaObjectsList().first()->Context().OxaFileName(std::wstring());
        messages.clear();
        QVERIFY(!root.WriteToOxaProject(dir.filePath("f")));
        QCOMPARE(messages.size(), 2);
        QVERIFY(messages[1].at(0).toString().startsWith("Error writing file : "));
    }

    // A project folder read by a relative, a `..` or a trailing-slash path from another working
    // folder gives the model its absolute path gives: the bundled sample, and the shared one.
    void projectPathFormsReadTheSameModel_data() {
        QTest::addColumn<QString>("parent");
        QTest::addColumn<QString>("cwd");
        QTest::addColumn<QString>("path");
        for (const QString& parent : {QStringLiteral(ZENTRA_SOURCE_DIR "/examples"), QStringLiteral(ZENTRA_SHARED_DATA)}) {
            const char* where = parent.endsWith("examples") ? "bundled" : "shared";
            QTest::addRow("%s, relative", where) << parent << "." << "sample-project";
            QTest::addRow("%s, dot-dot", where) << parent << "sample-project/structure" << "../../sample-project";
            QTest::addRow("%s, trailing slash", where) << parent << "." << "sample-project/";
        }
    }
    void projectPathFormsReadTheSameModel() {
        QFETCH(QString, parent);
        QFETCH(QString, cwd);
        QFETCH(QString, path);
        if (!QDir(parent + "/sample-project").exists())
            QSKIP("sample project not present");
        const auto read = [](const QString& from, const QString& folder) {
            const QString previous = QDir::currentPath();
            QDir::setCurrent(from);
            oxa::OxaRoot root(false);
            const bool ok = root.ReadFromOxaProject(folder, oxa::OxaRoot::DocumentSubfolders(folder));
            QDir::setCurrent(previous);
            const TreeCounts counts = CountTree(root.RootContainer());
            return QStringList{QString::number(ok), Children(root.RootContainer()).join(','),
                               QString::number(counts.containers), QString::number(counts.objects),
                               QString::number(counts.triangles), QString::number(root.OxaObjectsList().size())};
        };
        const QStringList absolute = read(QDir::currentPath(), parent + "/sample-project");
        QVERIFY(absolute[0] == "1" && absolute[3].toInt() > 0);
        QCOMPARE(read(parent + "/" + cwd, path), absolute);
    }

    /// The shared sample project, read as a host reads a folder, against its manifest.
    void sharedProjectMatchesTheManifest() {
        const QString path = QStringLiteral(ZENTRA_SHARED_DATA) + "/sample-project";
        const QByteArray manifest = fixture::ReadFile(QStringLiteral(ZENTRA_SHARED_DATA) + "/sample-project/manifest.json");
        if (manifest.isEmpty())
            QSKIP("shared sample project not present");
        const QJsonObject project = QJsonDocument::fromJson(manifest).object().value("project").toObject();
        oxa::OxaRoot root(false);
        QVERIFY(root.ReadFromOxaProject(path, oxa::OxaRoot::DocumentSubfolders(path)));
        QCOMPARE(Children(root.RootContainer()), project.value("root_children").toVariant().toStringList());
        const TreeCounts counts = CountTree(root.RootContainer());
        QCOMPARE(counts.containers, project.value("containers_in_tree").toInt());
        QCOMPARE(counts.objects, project.value("object3D_in_tree").toInt());
        QCOMPARE(counts.triangles, project.value("triangles_in_tree").toInt());
        int entries = 0;
        for (const QSet<QString>* set : root.GetContacts())
            entries += set->size();
        const QJsonObject contacts = project.value("contacts_table").toObject();
        QCOMPARE(root.GetContacts().size(), contacts.value("keys").toInt());
        QCOMPARE(entries, contacts.value("entries").toInt());
        QStringList hrefs;
        for (const oxa::HRef* href : root.HRefList())
            hrefs << href->id();
        QCOMPARE(hrefs, project.value("href_list").toVariant().toStringList());
    }
};

QTEST_GUILESS_MAIN(tst_OxaRoot)
#include "tst_OxaRoot.moc"
