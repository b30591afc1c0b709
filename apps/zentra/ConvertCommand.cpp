#include "Command.h"
#include "Imported3ds.h"
#include "LoadedModel.h"

#include "basic/MessageService.h"
#include "basic/text.h"
#include "oxaIO/OxaXmlWriter.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// A document or project folder read and written back: a project into the folder `output`,
/// each document into its own subfolder, a single document into the file `output`.
int convert_exchange(const QString& input, const QString& output, QTextStream& out, QTextStream& err) {
    LoadedModel model(input);
    for (const QString& error : model.errors())
        err << error << "\n";
    if (model.root().OxaObjectsList().isEmpty())
        return 1;
    if (model.isProject()) {
        if (!QDir().mkpath(output)) {
            err << output << ": cannot create the folder\n";
            return 1;
        }
        basic::MessageService service;
        QObject::connect(&service, &basic::MessageService::message, [&err](const QString& text) {
            if (text.startsWith("Error"))
                err << text << "\n";
        });
        model.root().MsgService(&service);
        const bool written = model.root().WriteToOxaProject(output);
        model.root().MsgService(nullptr);
        if (!written)
            return 1;
    } else {
        std::wstring error;
        oxaIO::OxaXmlWriter writer(model.root().OxaObjectsList().first());
        if (!writer.Write(basic::ToStdString(output), error)) {
            err << output << ": " << basic::FromStdString(error) << "\n";
            return 1;
        }
    }
    out << "wrote " << output << " (" << model.root().OxaObjectsList().size() << " documents)\n";
    return model.errors().isEmpty() && !model.cancelled() ? 0 : 1;
}

int run_convert(const QStringList& arguments, QTextStream& out, QTextStream& err) {
    if (arguments.size() != 2)
        throw UsageError("give one input file and one output file");
    const QString& input = arguments.at(0);
    const QString& output = arguments.at(1);
    if (!Imported3ds::is_3ds(input))
        return convert_exchange(input, output, out, err);
    const Imported3ds imported(input);
    if (!imported.document()) {
        err << imported.error() << "\n";
        return 1;
    }
    std::wstring error;
    oxaIO::OxaXmlWriter writer(imported.document());
    if (!writer.Write(basic::ToStdString(output), error)) {
        err << "cannot write " << output << ": " << basic::FromStdString(error) << "\n";
        return 1;
    }
    out << "wrote " << output << "\n";
    return 0;
}

const CommandRegistration registration({"convert", "INPUT OUTPUT",
                                        "write a 3DS file, a document or a project folder as exchange documents",
                                        run_convert});

} // namespace
