#include "Command.h"
#include "Imported3ds.h"

#include "basic/text.h"
#include "oxaIO/OxaXmlWriter.h"

namespace {

int run_convert(const QStringList& arguments, QTextStream& out, QTextStream& err) {
    if (arguments.size() != 2)
        throw UsageError("give one input file and one output file");
    const QString& input = arguments.at(0);
    const QString& output = arguments.at(1);
    if (!Imported3ds::is_3ds(input))
        throw UsageError(QString("cannot convert '%1': the input must be a 3DS file").arg(input));
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

const CommandRegistration registration({"convert", "INPUT.3ds OUTPUT.oxaxml",
                                        "write a 3DS file as an exchange document", run_convert});

} // namespace
