#include "Command.h"
#include "LoadedModel.h"

#include "basic/MessageService.h"
#include "basic/identifier.h"
#include "basic/text.h"
#include "mesh3D/Container.h"
#include "mesh3D/Object3D.h"
#include "model/System.h"
#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaObjects.h"
#include "oxaIO/OxaXmlWriter.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

namespace {

/// An exchange document lists objects only inside containers, never straight under a root
/// container, so a 3DS file's top-level objects (or a document's, whose outermost container
/// holds objects) would be written nowhere. They move into one
/// container under the root that carries the root's name, which keeps each object's place by
/// the names of its containers.
void nest_top_level_objects(oxa::OxaRoot& root) {
    for (oxaIO::OxaObjects* document : root.OxaObjectsList()) {
        for (oxaIO::IContainer* top : document->ObjectSection().GetContainers()) {
            auto* container = dynamic_cast<mesh3D::Container*>(top);
            QList<mesh3D::Object3D*> loose;
            for (mesh3D::Element* child : container ? container->children() : QList<mesh3D::Element*>())
                if (auto* object = dynamic_cast<mesh3D::Object3D*>(child))
                    loose << object;
            if (loose.isEmpty())
                continue;
            QString id = container->id() + "objects";
            if (root.System()->object(id))
                id = basic::create_ID() + "::" + id;
            auto* nest = new mesh3D::Container(container, root.System(), id, container->name());
            container->children().append(nest);
            for (mesh3D::Object3D* object : loose) {
                container->take_child(object);
                object->Parent(nest);
                nest->children().append(object);
            }
        }
    }
}

/// Writes every document of the model: a project into the folder `target`, each document into
/// its own subfolder; a single document into the file `target`.
bool write_model(LoadedModel& model, const QString& target, QTextStream& err) {
    if (model.isProject()) {
        if (!QDir().mkpath(target)) {
            err << target << ": cannot create the folder\n";
            return false;
        }
        basic::MessageService service;
        QObject::connect(&service, &basic::MessageService::message, [&err](const QString& text) {
            if (text.startsWith("Error"))
                err << text << "\n";
        });
        model.root().MsgService(&service);
        const bool written = model.root().WriteToOxaProject(target);
        model.root().MsgService(nullptr);
        return written;
    }
    std::wstring error;
    oxaIO::OxaXmlWriter writer(model.root().OxaObjectsList().first());
    if (!writer.Write(basic::ToStdString(target), error)) {
        err << target << ": " << basic::FromStdString(error) << "\n";
        return false;
    }
    return true;
}

/// What differs between the model written and the copy read back, in the counts a lost object
/// or material changes; empty when nothing does.
QStringList differences(const ModelCounts& written, const ModelCounts& read) {
    QStringList found;
    const auto compare = [&](const char* what, long a, long b) {
        if (a != b)
            found << QString("%1 %2 written, %3 read back").arg(what).arg(a).arg(b);
    };
    compare("objects", written.objects, read.objects);
    compare("triangles", written.triangles, read.triangles);
    compare("materials", written.materials, read.materials);
    return found;
}

void remove_path(const QString& path) {
    if (QFileInfo(path).isDir())
        QDir(path).removeRecursively();
    else
        QFile::remove(path);
}

int run_convert(const QStringList& arguments, QTextStream& out, QTextStream& err) {
    QStringList paths = arguments;
    const bool verify = paths.removeAll("--no-verify") == 0;
    if (paths.size() != 2)
        throw UsageError("give one input file and one output file");
    const QString& input = paths.at(0);
    const QString output = QDir::cleanPath(paths.at(1));
    LoadedModel model(input);
    for (const QString& error : model.errors())
        err << error << "\n";
    if (model.root().OxaObjectsList().isEmpty())
        return 1;
    nest_top_level_objects(model.root());

    // The copy is written beside the target and takes its name only once the load was whole and
    // the copy has read back as written: a partial model never appears under the target name.
    const QString part = output + ".part";
    remove_path(part);
    if (!write_model(model, part, err))
        return 1;
    if (!model.errors().isEmpty() || model.cancelled()) {
        err << "zentra convert: the model was not read whole; the copy is kept as " << part << "\n";
        return 1;
    }
    if (verify) {
        QElapsedTimer checking;
        checking.start();
        const LoadedModel back(part);
        const QStringList problems = differences(model.counts(), back.counts()) + back.errors();
        if (!problems.isEmpty()) {
            err << "zentra convert: the written copy does not read back as written (" << problems.join("; ")
                << "); it is kept as " << part << "\n";
            return 1;
        }
        out << QString("checked the written copy in %1 s\n").arg(checking.nsecsElapsed() / 1e9, 0, 'f', 2);
    }
    remove_path(output);
    if (!QDir().rename(part, output)) {
        err << "zentra convert: cannot move " << part << " to " << output << "\n";
        return 1;
    }
    out << "wrote " << output << " (" << model.root().OxaObjectsList().size() << " documents)\n";
    return 0;
}

const CommandRegistration registration(
    {"convert", "[--no-verify] INPUT OUTPUT",
     "write a 3DS file, a document or a project folder as exchange documents; the copy is read back and "
     "compared before it takes the output name (--no-verify skips that)",
     run_convert});

} // namespace
