#include "Command.h"
#include "Imported3ds.h"

#include "basic/text.h"
#include "oxa/OxaInfoReader.h"

namespace {

QString section_list(const oxa::OxaInfoReader& reader) {
    QStringList names;
    for (oxaIO::ESectionType type : reader.GetSectionTypes()) {
        const wchar_t* name = oxaIO::SectionName(type);
        names << (name ? QString::fromWCharArray(name) : QString("(unknown section)"));
    }
    return names.join("; ");
}

void print_head(const oxa::OxaInfoReader& reader, QTextStream& out) {
    out << "  project id:         " << basic::FromStdString(reader.GetProjectID()) << "\n"
        << "  created:            " << reader.GetCreated() << "\n"
        << "  created by:         " << basic::FromStdString(reader.GetCreatedBy()) << "\n"
        << "  source application: " << basic::FromStdString(reader.GetSourceApp()) << "\n"
        << "  source format:      " << basic::FromStdString(reader.GetSourceFormat()) << "\n"
        << "  version:            " << basic::FromStdString(reader.GetVersion()) << "\n"
        << "  sections:           " << section_list(reader) << "\n";
}

int run_info(const QStringList& arguments, QTextStream& out, QTextStream& err) {
    if (arguments.isEmpty())
        throw UsageError("no document given");
    int exit_code = 0;
    for (const QString& file : arguments) {
        if (Imported3ds::is_3ds(file)) {
            const Imported3ds imported(file);
            if (!imported.document()) {
                out.flush();
                err << imported.error() << "\n";
                err.flush();
                exit_code = 1;
                continue;
            }
            out << file << "\n";
            imported.print_summary(out);
            out.flush();
            continue;
        }
        const oxa::OxaInfoReader reader(file);
        if (!reader.IsValid()) {
            out.flush();
            err << reader.ErrorText() << "\n";
            err.flush();
            exit_code = 1;
            continue;
        }
        out << file << "\n";
        print_head(reader, out);
        out.flush();
    }
    return exit_code;
}

const CommandRegistration registration(
    {"info", "FILE...", "print the head and section list of exchange documents, or what a 3DS file holds",
     run_info});

} // namespace
