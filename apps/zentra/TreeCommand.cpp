#include "Command.h"
#include "LoadedModel.h"

#include "oxa/OxaFileHandler.h"

namespace {

int run_tree(const QStringList& arguments, QTextStream& out, QTextStream& err) {
    if (arguments.size() != 1)
        throw UsageError("give one document or project folder");
    LoadedModel model(arguments.first());
    oxa::OxaFileHandler::DumpContainer(model.root().RootContainer(), out);
    out.flush();
    for (const QString& error : model.errors())
        err << error << "\n";
    return model.errors().isEmpty() && !model.cancelled() ? 0 : 1;
}

const CommandRegistration registration({"tree", "PATH", "print the container tree of a document or project folder",
                                        run_tree});

} // namespace
