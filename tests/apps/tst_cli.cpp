#include <QtTest>

#include "support/CliRun.h"

/// The command-line tool as a script would use it: output, exit codes, usage errors.
class tst_cli : public QObject {
    Q_OBJECT

    static CliResult run(const QStringList& arguments) { return run_cli(arguments); }

private slots:
    void version_and_help() {
        const CliResult version = run({"--version"});
        QCOMPARE(version.code, 0);
        QVERIFY(version.out.startsWith("zentra "));
        const CliResult help = run({"--help"});
        QCOMPARE(help.code, 0);
        QVERIFY(help.out.contains("Usage: zentra <command>"));
        QVERIFY(help.out.contains("about"));
    }

    void usage_errors_exit_with_2_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("message");
        QTest::newRow("no command") << QStringList() << "no command given";
        QTest::newRow("unknown command") << QStringList({"frobnicate"}) << "unknown command 'frobnicate'";
        QTest::newRow("stray argument") << QStringList({"about", "x"}) << "unexpected argument 'x'";
    }

    void usage_errors_exit_with_2() {
        QFETCH(QStringList, arguments);
        QFETCH(QString, message);
        const CliResult result = run(arguments);
        QCOMPARE(result.code, 2);
        QVERIFY2(result.err.contains(message), qPrintable(result.err));
        QVERIFY(result.out.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_cli)
#include "tst_cli.moc"
