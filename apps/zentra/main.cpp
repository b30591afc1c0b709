#include "Command.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <algorithm>
#include <memory>

namespace {

std::vector<Command>& command_table() {
    static std::vector<Command> table;
    return table;
}

const int exit_usage = 2;

void print_help(QTextStream& out) {
    out << "Usage: zentra <command> [arguments]\n"
           "       zentra --help | --version\n\n"
           "Commands:\n";
    int width = 0;
    for (const Command& command : registered_commands())
        width = std::max(width, int(command.name.size() + 1 + command.arguments.size()));
    for (const Command& command : registered_commands())
        out << "  " << QString("%1 %2").arg(command.name, command.arguments).leftJustified(width + 2)
            << command.summary << "\n";
}

int usage_error(QTextStream& err, const QString& text) {
    err << "zentra: " << text << "\nTry 'zentra --help'.\n";
    return exit_usage;
}

} // namespace

CommandRegistration::CommandRegistration(Command command) {
    auto& table = command_table();
    table.push_back(std::move(command));
    std::sort(table.begin(), table.end(), [](const Command& a, const Command& b) { return a.name < b.name; });
}

const std::vector<Command>& registered_commands() { return command_table(); }

int main(int argc, char** argv) {
    // The library's debug trace is for developers; the tool's own output is its report.
    QLoggingCategory::setFilterRules("*.debug=false");
    QTextStream out(stdout);
    QTextStream err(stderr);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);

    if (arguments.isEmpty())
        return usage_error(err, "no command given");
    const QString first = arguments.takeFirst();
    if (first == "--help" || first == "-h" || first == "help") {
        print_help(out);
        return 0;
    }
    if (first == "--version") {
        out << "zentra " << ZENTRA_VERSION_TEXT << "\n";
        return 0;
    }
    const auto& commands = registered_commands();
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&](const Command& command) { return command.name == first; });
    if (found == commands.end())
        return usage_error(err, QString("unknown command '%1'").arg(first));
    std::unique_ptr<QCoreApplication> app;
    if (!found->draws)
        app = std::make_unique<QCoreApplication>(argc, argv);
    try {
        return found->run(arguments, out, err);
    } catch (const UsageError& error) {
        err << "zentra " << found->name << ": " << error.what() << "\n"
            << "Usage: zentra " << found->name << " " << found->arguments << "\n";
        return exit_usage;
    }
}
