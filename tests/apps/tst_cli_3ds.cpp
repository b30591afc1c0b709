#include "oxa/Writer3ds.h"

#include "mesh3D/Container.h"
#include "mesh3D/Material.h"
#include "mesh3D/Object3D.h"
#include "oxa/DataIO_3ds.h"
#include "oxa/OxaFileHandler.h"
#include "oxa/OxaRoot.h"
#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaObjects.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include "support/CliRun.h"
#include "support/Files.h"

using namespace w3ds;

/// `info` and `convert` on 3DS files, as a script would use them.
class tst_cli_3ds : public QObject {
    Q_OBJECT

    static CliResult run(const QStringList& arguments) { return run_cli(arguments); }

    /// The name of the object's material when a document lists it; a stand-in for a missing
    /// material is no material.
    static QString material_of(const mesh3D::Object3D* object, const oxa::OxaRoot& root) {
        for (const oxaIO::OxaObjects* document : root.OxaObjectsList())
            for (const oxaIO::IMaterial* listed : document->ObjectSection().GetMaterials())
                if (listed == object->material())
                    return object->material()->name();
        return QString();
    }

    /// Every object of a loaded root by identifier.
    static QHash<QString, mesh3D::Object3D*> objects_of(const oxa::OxaRoot& root) {
        QHash<QString, mesh3D::Object3D*> found;
        QList<const mesh3D::Container*> open{root.RootContainer()};
        while (!open.isEmpty())
            for (mesh3D::Element* child : open.takeFirst()->children()) {
                if (auto* inner = dynamic_cast<const mesh3D::Container*>(child))
                    open << inner;
                else if (auto* object = dynamic_cast<mesh3D::Object3D*>(child))
                    found.insert(object->id(), object);
            }
        return found;
    }

    /// Two quads with one material and a group node above the first.
    static QByteArray two_quads() { return sample_files().value("two quads, one under a group"); }

private slots:
    void info_tells_what_a_3ds_file_holds() {
        QTemporaryDir folder;
        const QString path = folder.filePath("quads.3DS");
        QVERIFY(fixture::WriteFile(path, two_quads()));
        const CliResult result = run({"info", path});
        QCOMPARE(result.code, 0);
        QVERIFY2(result.out.contains("source format:      3ds\n"), qPrintable(result.out));
        // The import's root container and the group node.
        QVERIFY(result.out.contains("containers:         2\n"));
        QVERIFY(result.out.contains("objects:            2\n"));
        QVERIFY(result.out.contains("triangles:          4\n"));
        QVERIFY(result.out.contains("materials:          1\n"));
        // One JSON document, its head under the keys of a document's head.
        const CliResult json = run({"info", "--json", path});
        QCOMPARE(json.code, 0);
        QJsonParseError error;
        const QJsonArray reports = QJsonDocument::fromJson(json.out.toUtf8(), &error).array();
        QVERIFY2(error.error == QJsonParseError::NoError, qPrintable(json.out));
        QCOMPARE(reports.size(), 1);
        const QJsonObject head = reports.first()["documents"].toArray().first().toObject();
        QCOMPARE(head.keys(), (QStringList{"created", "created by", "file", "project id", "sections",
                                           "source application", "source format", "version"}));
        QCOMPARE(head["source format"].toString(), QString("3ds"));
        QCOMPARE(reports.first()["counts"]["objects"].toInt(), 2);

        const CliResult missing = run({"info", folder.filePath("none.3ds")});
        QCOMPARE(missing.code, 1);
        QVERIFY2(missing.err.startsWith(folder.filePath("none.3ds")), qPrintable(missing.err));
    }

    void convert_writes_an_exchange_document() {
        QTemporaryDir folder;
        const QString input = folder.filePath("quads.3ds");
        const QString output = folder.filePath("quads.oxaxml");
        QVERIFY(fixture::WriteFile(input, two_quads()));
        const CliResult result = run({"convert", input, output});
        QCOMPARE(result.code, 0);
        QVERIFY2(result.out.startsWith("checked the written copy in ") &&
                     result.out.endsWith("wrote " + output + " (1 documents)\n"),
                 qPrintable(result.out));
        QVERIFY(!QFile::exists(output + ".part"));
        QVERIFY(!run({"convert", "--no-verify", input, output}).out.contains("checked"));
        const QString text = QString::fromUtf8(fixture::ReadFile(output));
        QVERIFY(text.contains("quads.3ds::Left"));
        QVERIFY(text.contains("quads.3ds::Right"));
        QVERIFY(text.contains("quads.3ds::Stone"));
        // The written document reads back through the summary reader.
        const CliResult info = run({"info", output});
        QCOMPARE(info.code, 0);
        QVERIFY2(info.out.contains("created by:         3dsToOxa"), qPrintable(info.out));
        QVERIFY(info.out.contains("source format:      3ds"));
    }

    void every_object_reads_back_whole_data() {
        QTest::addColumn<QString>("input");
        static QTemporaryDir made;
        const QMap<QString, QByteArray> samples = sample_files();
        for (auto sample = samples.begin(); sample != samples.end(); ++sample) {
            const QString path = made.filePath(QString(sample.key()).replace(' ', '_') + ".3ds");
            QVERIFY(fixture::WriteFile(path, sample.value()));
            QTest::newRow(qPrintable(sample.key())) << path;
        }
        const QDir corpus(ZENTRA_SHARED_DATA "/3ds");
        for (const QString& name : corpus.entryList({"*.3ds", "*.3DS"}, QDir::Files))
            QTest::newRow(qPrintable(name)) << corpus.filePath(name);
    }

    /// Import, convert, read back: each object by its identifier, with its triangles, its
    /// material and the name of the container it lies in.
    void every_object_reads_back_whole() {
        QFETCH(QString, input);
        QTemporaryDir folder;
        const QString output = folder.filePath("copy.oxaxml");
        const CliResult converted = run({"convert", input, output});
        QVERIFY2(converted.code == 0, qPrintable(converted.err));
        oxa::OxaRoot imported(false), read(false);
        QString error;
        QVERIFY(oxa::DataIO_3ds::import_file(&imported, input, 1.0, &error));
        QVERIFY(oxa::OxaFileHandler().oxaReadXML(&read, output, &error));
        const QHash<QString, mesh3D::Object3D*> originals = objects_of(imported), copies = objects_of(read);
        QCOMPARE(copies.size(), originals.size());
        for (const mesh3D::Object3D* object : originals) {
            const mesh3D::Object3D* copy = copies.value(object->id());
            QVERIFY2(copy, qPrintable(object->id()));
            QCOMPARE(copy->CountTriangles(), object->CountTriangles());
            QCOMPARE(material_of(copy, read), material_of(object, imported));
            QCOMPARE(copy->Parent()->name(), object->Parent()->name());
        }
    }

    void convert_usage_errors_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("message");
        QTest::newRow("one argument")
            << QStringList{"convert", "a.3ds"} << "give one input file and one output file";
    }

    void convert_usage_errors() {
        QFETCH(QStringList, arguments);
        QFETCH(QString, message);
        const CliResult result = run(arguments);
        QCOMPARE(result.code, 2);
        QVERIFY2(result.err.contains(message), qPrintable(result.err));
    }
};

QTEST_GUILESS_MAIN(tst_cli_3ds)
#include "tst_cli_3ds.moc"
