#include <QTemporaryDir>
#include <QtTest>

#include "support/CliRun.h"
#include "support/Files.h"

/// `zentra info` as a script would use it: the head of each document, errors and exit codes.
class tst_info_command : public QObject {
    Q_OBJECT

    static CliResult run(const QStringList& arguments) { return run_cli(QStringList{"info"} + arguments); }

    QTemporaryDir dir;

    QString write(const QString& name, const QByteArray& xml) {
        return fixture::WriteFile(dir.filePath(name), xml) ? dir.filePath(name) : QString();
    }

private slots:
    void heads_and_failures() {
        const QString good = write("good.oxaxml", R"(<objects projectID="PRJ-9" createdBy="me" sourceApp="app"
            sourceFormat="fmt" created="2024-06-01T12:00:00" oxaversion="1.5"><content version="1.2">
            <section name="objectSection"/><section name="unheardOf"/></content></objects>)");
        const QString broken = write("broken.oxaxml", "<objects><content><section></content>");
        const CliResult result = run({good, broken, dir.filePath("missing.oxaxml")});
        QCOMPARE(result.code, 1);
        QVERIFY(result.out.startsWith(good + "\n"));
        QVERIFY(result.out.contains("project id:         PRJ-9\n"));
        QVERIFY(result.out.contains("created:            2024-06-01T12:00:00\n"));
        QVERIFY(result.out.contains("source application: app\n"));
        QVERIFY(result.out.contains("sections:           objectSection; (unknown section)\n"));
        QVERIFY2(result.err.contains(broken + ": mismatched tag at line 1"), qPrintable(result.err));
        QVERIFY(result.err.contains("missing.oxaxml: cannot open the file"));
        QVERIFY(!result.out.contains("broken.oxaxml"));
    }

    void all_good_exits_with_0() {
        const CliResult result = run({write("empty.oxaxml", "<objects><content/></objects>")});
        QCOMPARE(result.code, 0);
        QVERIFY(result.out.contains("sections:           \n"));
        QVERIFY(result.err.isEmpty());
    }

    void no_file_is_a_usage_error() {
        const CliResult result = run({});
        QCOMPARE(result.code, 2);
        QVERIFY(result.err.contains("no document given"));
    }
};

QTEST_GUILESS_MAIN(tst_info_command)
#include "tst_info_command.moc"
