#include "Command.h"

namespace {

int run_about(const QStringList& arguments, QTextStream& out, QTextStream&) {
    if (!arguments.isEmpty())
        throw UsageError(QString("unexpected argument '%1'").arg(arguments.first()));
    out << "Zentra " << ZENTRA_VERSION_TEXT
        << " - a library for desktop applications that work with building models.\n"
           "It reads exchange documents (*.oxaxml) and 3DS files into a tree of containers and meshes,\n"
           "shows them in an OpenGL view, offers table and pivot models, and writes the model back.\n"
           "This tool uses the library the way a host application would; see 'zentra --help'.\n";
    return 0;
}

const CommandRegistration registration({"about", "", "describe the library and this tool", run_about});

} // namespace
