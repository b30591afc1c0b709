#include "oxa/OxaRoot.h"

#include "basic/MessageService.h"
#include "basic/text.h"
#include "mesh3D/Container.h"
#include "mesh3D/Material.h"
#include "mesh3D/Surface.h"
#include "model/System.h"
#include "oxa/HRef.h"
#include "oxa/OxaFileHandler.h"
#include "oxa/OxaInfoReader.h"
#include "oxa/OxaXmlReader.h"
#include "oxaIO/ContactList.h"
#include "oxaIO/ExportContext.h"
#include "oxaIO/IntersectionList.h"
#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaObjects.h"
#include "oxaIO/OxaTopologySection.h"
#include "oxaIO/OxaXmlWriter.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace oxa {

namespace {

using RelationTable = QHash<QString, QSet<QString>*>;

void AddRelation(RelationTable& table, const QString& from, const QString& to) {
    QSet<QString>*& set = table[from];
    if (!set)
        set = new QSet<QString>;
    set->insert(to);
}

/// Enters each pair both ways, whatever the document said about symmetry.
void AddBothWays(RelationTable& table, const std::list<oxaIO::VObjPairRelation>& pairs) {
    for (const oxaIO::VObjPairRelation& pair : pairs) {
        const QString left = basic::FromStdString(pair.left);
        const QString right = basic::FromStdString(pair.right);
        AddRelation(table, left, right);
        AddRelation(table, right, left);
    }
}

/// The folder of one subfolder text: drive-lettered and network texts stand as they are, the
/// empty text is the project folder, anything else lies below it.
QString SubFolderPath(const QString& path, const QString& subFolder) {
    if (subFolder.isEmpty())
        return path;
    if (subFolder.size() > 2 && subFolder[1] == ':')
        return subFolder;
    if (subFolder.size() >= 3 && subFolder.startsWith("\\\\"))
        return subFolder;
    return path + '\\' + subFolder;
}

/// Paths are built with backslashes; this platform's file calls need its own separator.
QString NativePath(const QString& path) {
#ifdef Q_OS_WIN
    return path;
#else
    if (path.startsWith("\\\\"))
        return path;
    QString native = path;
    return native.replace('\\', '/');
#endif
}

} // namespace

OxaRoot::OxaRoot(bool quick_search)
    : system(new model::System(quick_search)), rootContainer(new mesh3D::Container(nullptr, system)) {}

OxaRoot::~OxaRoot() {
    // The documents own their containers; the root only lists them.
    rootContainer->children().clear();
    delete rootContainer;
    for (oxaIO::OxaObjects* objects : oxaObjects)
        OxaXmlReader::DeleteOXAResult(objects);
    oxaObjects.clear();
    mesh3D::Material::DeleteGlobalMaterials(system);
    mesh3D::Surface::DeleteGlobalQSColumnObject(system);
    mesh3D::Material::DeleteGlobalQSColumnMaterial(system);
    delete system;
    // The relation sets are left to the process on purpose, as hosts may still hold pointers
    // to them taken from `GetContacts` while tearing down.
}

void OxaRoot::AddOxaObjects(oxaIO::OxaObjects* objects) { oxaObjects.append(objects); }

bool OxaRoot::ImportOXAXML(const QString& fileName, const QString& subFolder, OxaXmlReader* reader) {
    if (fileName.isEmpty())
        return false;
    /// The local handler has no channel of its own: a file reports only through a shared
    /// reader's channel, and otherwise stays silent.
    OxaFileHandler handler;
    QString ignored;
    oxaIO::OxaObjects* objects = handler.oxaReadXML(this, NativePath(fileName), &ignored, reader);
    if (!objects)
        return false;
    const std::wstring name = basic::ToStdString(QFileInfo(NativePath(fileName)).fileName());
    oxaIO::ExportContext& context = objects->Context();
    if (context.OxaFileName().empty())
        context.OxaFileName(name);
    if (context.OriginFileName().empty())
        context.OriginFileName(name);
    if (context.SubFolder().empty())
        context.SubFolder(basic::ToStdString(subFolder));
    return true;
}

bool OxaRoot::SyncObjectsToRootContainer() {
    rootContainer->children().clear();
    hrefList.clear();
    for (oxaIO::OxaObjects* objects : oxaObjects)
        AddToRootStructure(objects);
    rootContainer->update_boundingbox();
    return true;
}

bool OxaRoot::SyncObjectsToRootContainer(oxaIO::OxaObjects* objects) {
    oxaObjects.append(objects);
    AddToRootStructure(objects);
    rootContainer->update_boundingbox();
    return true;
}

bool OxaRoot::AddToRootStructure(oxaIO::OxaObjects* objects) {
    for (oxaIO::IContainer* container : objects->ObjectSection().GetContainers())
        if (auto* tree = dynamic_cast<mesh3D::Container*>(container))
            rootContainer->children().append(tree);
    oxaIO::OxaTopologySection& topology = objects->TopologySection();
    for (oxaIO::IHRef* definition : topology.GetHRefDefinitions())
        if (auto* href = dynamic_cast<HRef*>(definition))
            hrefList.append(href);
    for (const oxaIO::ContactList* list : topology.GetContacts())
        if (list)
            AddBothWays(contacts, list->GetContactRelations());
    for (const oxaIO::IntersectionList* list : topology.GetIntersections())
        if (list)
            AddBothWays(intersections, list->GetIntersectionRelations());
    return true;
}

QList<QString> OxaRoot::DocumentSubfolders(const QString& path) {
    // Walk the cleaned absolute folder: a relative path, one with "..", or one with a trailing
    // slash then names the same subfolders as the absolute path does.
    const QDir project(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    QList<QString> folders;
    QDirIterator it(project.path(), QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString folder = it.next();
        if (!QDir(folder).entryList({"*.oxaxml"}, QDir::Files).isEmpty())
            folders << project.relativeFilePath(folder);
    }
    std::sort(folders.begin(), folders.end());
    return folders;
}

bool OxaRoot::ReadFromOxaProject(const QString& path, const QList<QString>& subFolders, OxaXmlReader* reader) {
    if (path.isEmpty())
        return false;
    if (!QDir(NativePath(path)).exists()) {
        if (messageService)
            messageService->send_message("Error - project path does not exist : " + path);
        return false;
    }
    QList<QString> folders = subFolders;
    folders.append(QString()); // the project folder itself, read last in the listing
    QList<FileListElement*> files;
    const int total = CollectAllFilesAndSize(path, folders, files);
    if (reader)
        reader->SetMultiFileSize(total);
    SortAllFiles(files);
    const bool result = ReadAllFiles(files, reader);
    ClearAllFiles(files);
    return result;
}

int OxaRoot::CollectAllFilesAndSize(const QString& path, QList<QString>& subFolders,
                                    QList<FileListElement*>& files) {
    int total = 0;
    for (const QString& subFolder : subFolders) {
        const QString folder = SubFolderPath(path, subFolder);
        QDir dir(NativePath(folder));
        if (!dir.exists()) {
            if (messageService)
                messageService->send_message("Error - project subpath does not exist : " + folder);
            continue;
        }
        for (const QFileInfo& entry : dir.entryInfoList(QStringList{"*.oxaxml"}, QDir::Files, QDir::Name)) {
            QString file = entry.absoluteFilePath();
            /// The low 32 bits only, as the total is an int: a project above 2 GiB reports a
            /// wrong fraction but still loads.
            total += static_cast<int>(QFile(file).size());
            file.replace('/', '\\');
            files.append(new FileListElement{file, subFolder, GetCreatedString(file)});
        }
    }
    return total;
}

QString OxaRoot::GetCreatedString(QString& fileName) {
    const OxaInfoReader info(NativePath(fileName));
    return info.IsValid() ? info.GetCreated() : QString();
}

/// A bubble sort on purpose: it is stable, so documents with equal "created" texts keep the
/// order in which the folders listed them. Newest first means the newest document wins the
/// identifier clashes of the load.
void OxaRoot::SortAllFiles(QList<FileListElement*>& files) {
    if (files.size() < 2)
        return;
    bool swapped = true;
    while (swapped) {
        swapped = false;
        for (int i = 1; i < files.size(); ++i)
            if (files[i - 1]->created < files[i]->created) {
                files.swapItemsAt(i - 1, i);
                swapped = true;
            }
    }
}

bool OxaRoot::ReadAllFiles(QList<FileListElement*>& files, OxaXmlReader* reader) {
    bool result = true;
    int offset = 0;
    for (const FileListElement* element : files) {
        if (reader)
            reader->SetMultiFileOffset(offset);
        const int size = static_cast<int>(QFile(NativePath(element->file)).size());
        if (!ImportOXAXML(element->file, element->subfolder, reader)) {
            result = false;
            if (messageService)
                messageService->send_message("Error reading file : " + element->file);
        }
        offset += size;
    }
    return result;
}

bool OxaRoot::ClearAllFiles(QList<FileListElement*>& files) {
    qDeleteAll(files);
    files.clear();
    return true;
}

bool OxaRoot::WriteToOxaProject(const QString& path) {
    if (oxaObjects.isEmpty()) {
        /// The name between the brackets is always empty here: there is no document to name.
        if (messageService)
            messageService->send_message("Error writing file [" + QString() + "] : No data.");
        return false;
    }
    bool result = true;
    for (oxaIO::OxaObjects* objects : oxaObjects) {
        const QString subFolder = basic::FromStdString(objects->Context().SubFolder());
        QString part = "/";
        if (!subFolder.isEmpty()) {
            QDir().mkpath(path + '/' + subFolder);
            part = '/' + subFolder + '/';
        }
        const QString file = path + part + basic::FromStdString(objects->Context().OxaFileName());
        if (messageService)
            messageService->send_message("Writing file [" + file + "]");
        oxaIO::OxaXmlWriter writer(objects);
        std::wstring error;
        if (!writer.Write(basic::ToStdString(file), error)) {
            result = false;
            if (messageService)
                messageService->send_message("Error writing file : " + basic::FromStdString(error));
        }
    }
    return result;
}

} // namespace oxa
