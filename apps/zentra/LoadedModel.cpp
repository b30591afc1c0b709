#include "LoadedModel.h"

#include "basic/MessageService.h"
#include "basic/text.h"
#include "mesh3D/Container.h"
#include "mesh3D/GenericObject.h"
#include "mesh3D/Object3D.h"
#include "geometry/Octree.h"
#include "oxa/DataIO_3ds.h"
#include "oxa/OxaFileHandler.h"
#include "oxa/OxaInfoReader.h"
#include "oxa/OxaXmlReader.h"
#include "oxaIO/ContactList.h"
#include "oxaIO/IView.h"
#include "oxaIO/IntersectionList.h"
#include "oxaIO/OxaActivitySection.h"
#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaObjects.h"
#include "oxaIO/OxaPropertySection.h"
#include "oxaIO/OxaTopologySection.h"
#include "oxaIO/OxaVisualisationSection.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <atomic>
#include <csignal>
#include <cstdio>

#include <sys/resource.h>
#include <unistd.h>

namespace {

std::atomic<oxa::OxaXmlReader*> runningReader{nullptr};
std::atomic<bool> interrupted{false};

extern "C" void cancel_on_interrupt(int) {
    interrupted = true;
    if (oxa::OxaXmlReader* reader = runningReader.load())
        reader->CancelReading();
}

/// Draws the load's progress as one line on standard error.
void draw_progress(double fraction) {
    const int width = 40;
    const int filled = static_cast<int>(qBound(0.0, fraction, 1.0) * width);
    std::fprintf(stderr, "\r[%s%s] %3d%%", std::string(filled, '#').c_str(),
                 std::string(width - filled, ' ').c_str(), static_cast<int>(fraction * 100));
    std::fflush(stderr);
}

QString read_failure(const QString& file) {
    const oxa::OxaInfoReader info(file);
    return info.IsValid() ? QString("the document could not be read") : info.ErrorText();
}

void count_tree(const mesh3D::Container* container, ModelCounts& counts) {
    for (mesh3D::Element* child : container->children()) {
        if (auto* inner = dynamic_cast<mesh3D::Container*>(child)) {
            ++counts.containers;
            count_tree(inner, counts);
        } else if (auto* object = dynamic_cast<mesh3D::Object3D*>(child)) {
            ++counts.objects;
            counts.triangles += object->triangles().size();
            counts.polygons += object->polygons().size();
            // The points the surface holds after welding, whatever geometry uses them.
            counts.vertices += object->vertices().count();
        } else if (dynamic_cast<mesh3D::GenericObject*>(child)) {
            ++counts.genericObjects;
        }
    }
}

} // namespace

LoadedModel::LoadedModel(const QString& path) : _path(path) {
    const QFileInfo info(path);
    if (!info.exists()) {
        _errors << path + ": no such file or folder";
        return;
    }
    _project = info.isDir();
    basic::MessageService service;
    oxa::OxaXmlReader reader(&_root);
    reader.MsgService(&service);
    if (isatty(STDERR_FILENO))
        QObject::connect(&service, &basic::MessageService::progress, &draw_progress);
    // Every error the library reports fails the load: a file it could not read (explained
    // below), any other line it marks as an error, and anything sent as an error.
    QStringList failed;
    QObject::connect(&service, &basic::MessageService::message, [&](const QString& text) {
        static const QString unreadable = "Error reading file : ";
        if (text.startsWith(unreadable))
            failed << QString(text).mid(unreadable.size()).replace('\\', '/');
        else if (text.startsWith("Error"))
            _errors << text;
    });
    QObject::connect(&service, &basic::MessageService::error, [&](const QString& text) { _errors << text; });
    _root.MsgService(&service);
    runningReader = &reader;
    auto previous = std::signal(SIGINT, cancel_on_interrupt);
    QElapsedTimer timer;
    timer.start();
    if (_project) {
        _root.ReadFromOxaProject(path, oxa::OxaRoot::DocumentSubfolders(path), &reader);
    } else if (is_3ds(path)) {
        QString error;
        if (!oxa::DataIO_3ds::import_file(&_root, path, 1.0, &error))
            _errors << path + ": " + error;
    } else {
        oxa::OxaFileHandler handler;
        QString error;
        if (!handler.oxaReadXML(&_root, path, &error, &reader))
            _errors << path + ": " + error;
    }
    _seconds = timer.nsecsElapsed() / 1e9;
    std::signal(SIGINT, previous);
    runningReader = nullptr;
    _cancelled = interrupted;
    if (isatty(STDERR_FILENO))
        std::fprintf(stderr, "\r%*s\r", 48, "");
    _root.MsgService(nullptr);
    for (const QString& file : failed)
        _errors << file + ": " + read_failure(file);
}

bool LoadedModel::is_3ds(const QString& path) {
    return path.endsWith(QLatin1String(".3ds"), Qt::CaseInsensitive);
}

ModelCounts LoadedModel::counts() const {
    ModelCounts counts;
    count_tree(_root.RootContainer(), counts);
    for (const oxaIO::OxaObjects* document : _root.OxaObjectsList()) {
        counts.materials += document->ObjectSection().GetMaterials().size();
        counts.properties += document->ObjectSection().PropertySection().GetProperties().size();
        const oxaIO::OxaTopologySection& topology = document->TopologySection();
        for (const oxaIO::ContactList* list : topology.GetContacts())
            counts.contacts += list->GetContactRelations().size();
        for (const oxaIO::IntersectionList* list : topology.GetIntersections())
            counts.intersections += list->GetIntersectionRelations().size();
        for (const oxaIO::IViewContainer* views : document->VisualisationSection().ViewContainers())
            counts.views += views->Views().size();
        counts.schedules += document->ActivitySection().Schedules().size();
    }
    counts.heightReferences = _root.HRefList().size();
    return counts;
}

double peak_memory_mib() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024.0;
}
