#include "Command.h"
#include "LoadedModel.h"

#include "basic/text.h"
#include "oxa/OxaInfoReader.h"
#include "oxaIO/ExportContext.h"
#include "oxaIO/OxaObjects.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString section_list(const oxa::OxaInfoReader& reader) {
    QStringList names;
    for (oxaIO::ESectionType type : reader.GetSectionTypes()) {
        const wchar_t* name = oxaIO::SectionName(type);
        names << (name ? QString::fromWCharArray(name) : QString("(unknown section)"));
    }
    return names.join("; ");
}

using Fields = QList<QPair<QString, QString>>;

Fields head_fields(const oxa::OxaInfoReader& reader) {
    return {{"project id", basic::FromStdString(reader.GetProjectID())},
            {"created", reader.GetCreated()},
            {"created by", basic::FromStdString(reader.GetCreatedBy())},
            {"source application", basic::FromStdString(reader.GetSourceApp())},
            {"source format", basic::FromStdString(reader.GetSourceFormat())},
            {"version", basic::FromStdString(reader.GetVersion())},
            {"sections", section_list(reader)}};
}

QList<QPair<QString, long>> count_fields(const ModelCounts& c) {
    return {{"containers", c.containers},       {"objects", c.objects},
            {"generic objects", c.genericObjects}, {"vertices", c.vertices},
            {"triangles", c.triangles},         {"polygons", c.polygons},
            {"materials", c.materials},         {"properties", c.properties},
            {"contacts", c.contacts},           {"intersections", c.intersections},
            {"height references", c.heightReferences}, {"views", c.views},
            {"schedules", c.schedules}};
}

/// The documents of a path: the file itself, or every document below the folder.
QStringList documents_of(const QString& path) {
    if (!QFileInfo(path).isDir())
        return {path};
    QStringList files;
    QDirIterator it(path, {"*.oxaxml"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << it.next();
    files.sort();
    return files;
}

/// The heads of the documents of a path, read by the summary reader, each led by its "file".
QList<Fields> document_heads(const QString& path) {
    QList<Fields> heads;
    for (const QString& file : documents_of(path)) {
        const oxa::OxaInfoReader reader(file);
        if (reader.IsValid()) // the full load reports the others
            heads << (Fields{{"file", file}} + head_fields(reader));
    }
    return heads;
}

/// The head of an imported 3DS file, from the document the import made, with the keys of a
/// document's head: a 3DS file has no creation time, version or sections, so those stay empty.
QList<Fields> import_heads(LoadedModel& model) {
    QList<Fields> heads;
    for (const oxaIO::OxaObjects* document : model.root().OxaObjectsList()) {
        const oxaIO::ExportContext& context = document->Context();
        heads << Fields{{"file", model.path()},
                        {"project id", basic::FromStdString(context.ProjectID())},
                        {"created", QString()},
                        {"created by", basic::FromStdString(context.CreatedBy())},
                        {"source application", basic::FromStdString(context.SourceApp())},
                        {"source format", basic::FromStdString(context.SourceFormat())},
                        {"version", QString()},
                        {"sections", QString()}};
    }
    return heads;
}

int run_info(const QStringList& arguments, QTextStream& out, QTextStream& err) {
    QStringList paths = arguments;
    const bool json = paths.removeAll("--json") > 0;
    if (paths.isEmpty())
        throw UsageError("no document given");
    int exit_code = 0;
    QJsonArray reports;
    for (const QString& path : paths) {
        const bool imported = LoadedModel::is_3ds(path);
        if (!imported && !QFileInfo(path).isDir()) {
            const oxa::OxaInfoReader head(path);
            if (!head.IsValid()) {
                out.flush();
                err << head.ErrorText() << "\n";
                err.flush();
                exit_code = 1;
                continue;
            }
        }
        LoadedModel model(path);
        if (imported && model.root().OxaObjectsList().isEmpty()) {
            for (const QString& error : model.errors())
                err << error << "\n";
            err.flush();
            exit_code = 1;
            continue;
        }
        QJsonObject report{{"path", path}};
        QJsonArray heads;
        if (!json)
            out << path << "\n";
        for (const Fields& fields : imported ? import_heads(model) : document_heads(path)) {
            QJsonObject head;
            for (const auto& field : fields) {
                head.insert(field.first, field.second);
                if (!json && field.first == "file" && field.second != path)
                    out << " " << field.second << "\n";
                else if (!json && field.first != "file")
                    out << "  " << QString(field.first + ":").leftJustified(20) << field.second << "\n";
            }
            heads.append(head);
        }
        report.insert("documents", heads);

        QJsonObject counts;
        for (const auto& field : count_fields(model.counts())) {
            counts.insert(field.first, static_cast<double>(field.second));
            if (!json)
                out << "  " << QString(field.first + ":").leftJustified(20) << field.second << "\n";
        }
        report.insert("counts", counts);
        report.insert("load seconds", model.seconds());
        report.insert("peak memory MiB", peak_memory_mib());
        report.insert("cancelled", model.cancelled());
        if (!json)
            out << "  " << QString("load time:").leftJustified(20) << QString::number(model.seconds(), 'f', 3)
                << " s\n  " << QString("peak memory:").leftJustified(20)
                << QString::number(peak_memory_mib(), 'f', 1) << " MiB\n";
        if (model.cancelled())
            err << path << ": cancelled; counts show what was read\n";
        for (const QString& error : model.errors())
            err << error << "\n";
        if (!model.errors().isEmpty() || model.cancelled())
            exit_code = 1;
        reports.append(report);
        out.flush();
        err.flush();
    }
    if (json)
        out << QJsonDocument(reports).toJson(QJsonDocument::Indented);
    return exit_code;
}

const CommandRegistration registration(
    {"info", "[--json] PATH...",
     "print the heads and full-load counts of documents, project folders or 3DS files (vertices: the points "
     "each surface holds after welding, summed over all surfaces; triangles: loose triangles of the objects)",
     run_info});

} // namespace
