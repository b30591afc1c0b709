#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// What one run of the command-line tool gave: exit code and the two output streams.
struct CliResult {
    int code;
    QString out;
    QString err;
};

/// Runs the built `zentra` tool with the arguments, as a script would, and waits for it.
inline CliResult run_cli(const QStringList& arguments,
                         const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(ZENTRA_CLI, arguments);
    process.waitForFinished(60000);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}
