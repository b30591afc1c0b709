#include "oxa/Writer3ds.h"

#include <QTemporaryDir>
#include <QtTest>

#include "support/CliRun.h"

using namespace w3ds;

/// `info` and `convert` on 3DS files, as a script would use them.
class TestCli3ds : public QObject {
    Q_OBJECT

    static CliResult run(const QStringList& arguments) { return run_cli(arguments); }

    /// Two quads with one material and a group node above the first.
    static QByteArray two_quads() {
        const QByteArray quad_mesh = vertices({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}) +
                                     faces({{0, 1, 2}, {0, 2, 3}}, face_material("Stone", {0, 1}));
        return file(material("Stone", chunk(0xA020, color_float(0.5f, 0.5f, 0.5f))) +
                        object("Left", quad_mesh) + object("Right", quad_mesh),
                    keyframer(node(0, "$$$DUMMY", 0xFFFF, "Group") + node(1, "Left", 0)));
    }

private slots:
    void info_tells_what_a_3ds_file_holds() {
        QTemporaryDir folder;
        const QString path = folder.filePath("quads.3DS");
        QVERIFY(save(path, two_quads()));
        const CliResult result = run({"info", path});
        QCOMPARE(result.code, 0);
        QVERIFY2(result.out.contains("source format:      3ds\n"), qPrintable(result.out));
        QVERIFY(result.out.contains("containers:         1\n"));
        QVERIFY(result.out.contains("objects:            2\n"));
        QVERIFY(result.out.contains("triangles:          4\n"));
        QVERIFY(result.out.contains("materials:          1\n"));

        const CliResult missing = run({"info", folder.filePath("none.3ds")});
        QCOMPARE(missing.code, 1);
        QVERIFY(missing.err.contains("3ds: could not open file ["));
    }

    void convert_writes_an_exchange_document() {
        QTemporaryDir folder;
        const QString input = folder.filePath("quads.3ds");
        const QString output = folder.filePath("quads.oxaxml");
        QVERIFY(save(input, two_quads()));
        const CliResult result = run({"convert", input, output});
        QCOMPARE(result.code, 0);
        QCOMPARE(result.out, "wrote " + output + "\n");
        QFile written(output);
        QVERIFY(written.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(written.readAll());
        QVERIFY(text.contains("quads.3ds::Left"));
        QVERIFY(text.contains("quads.3ds::Right"));
        QVERIFY(text.contains("quads.3ds::Stone"));
        // The written document reads back through the summary reader.
        const CliResult info = run({"info", output});
        QCOMPARE(info.code, 0);
        QVERIFY2(info.out.contains("created by:         3dsToOxa"), qPrintable(info.out));
        QVERIFY(info.out.contains("source format:      3ds"));
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

QTEST_GUILESS_MAIN(TestCli3ds)
#include "tst_cli_3ds.moc"
