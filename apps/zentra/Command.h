#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>

#include <stdexcept>
#include <vector>

/// One subcommand of the `zentra` tool. Each lives in its own source file and registers itself
/// with a static `CommandRegistration`, so adding a command touches no shared table.
struct Command {
    QString name;
    QString arguments; ///< e.g. "FILE..." for the usage line
    QString summary;
    /// Runs with the arguments after the command name; returns the process exit code.
    int (*run)(const QStringList& arguments, QTextStream& out, QTextStream& err);
    /// A command that draws makes its own widget application once it has a display; the others
    /// run inside a core application made for them.
    bool draws = false;
};

/// Thrown by a command whose arguments are wrong: the tool prints the text with the command's
/// usage and exits with code 2.
class UsageError : public std::runtime_error {
public:
    explicit UsageError(const QString& text) : std::runtime_error(text.toStdString()) {}
};

/// The registered commands, in name order.
const std::vector<Command>& registered_commands();

struct CommandRegistration {
    explicit CommandRegistration(Command command);
};
