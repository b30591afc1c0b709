#pragma once

#include "zentra_export.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

namespace basic {
class MessageService;
}
namespace mesh3D {
class Container;
}
namespace model {
class System;
}
namespace oxaIO {
class OxaObjects;
}

namespace oxa {

class HRef;
class OxaXmlReader;

/// One document of a project load: where it lies and the "created" text of its head.
struct FileListElement {
    QString file;      ///< absolute path with backslashes
    QString subfolder; ///< as the caller gave it; empty for the project folder itself
    QString created;
};

/// What a host holds on to: one object system, one root container showing every document of a
/// project, the parsed documents, and the contact and intersection tables of all documents.
/// Loads a file or a project folder (documents merge by identifier) and writes a project back.
class ZENTRA_EXPORT OxaRoot {
public:
    explicit OxaRoot(bool quick_search);
    OxaRoot(const OxaRoot&) = delete;
    OxaRoot& operator=(const OxaRoot&) = delete;
    virtual ~OxaRoot();

    model::System* System() const { return system; }
    mesh3D::Container* RootContainer() const { return rootContainer; }
    const QList<HRef*>& HRefList() const { return hrefList; }
    const QList<oxaIO::OxaObjects*>& OxaObjectsList() const { return oxaObjects; }
    const QHash<QString, QSet<QString>*>& GetContacts() const { return contacts; }
    const QHash<QString, QSet<QString>*>& GetIntersections() const { return intersections; }
    basic::MessageService* MsgService() const { return messageService; }
    void MsgService(basic::MessageService* service) { messageService = service; }

    /// Appends to the document list, nothing else.
    void AddOxaObjects(oxaIO::OxaObjects* objects);
    /// Loads one document; its context gets the file's name and `subFolder` where it states none.
    bool ImportOXAXML(const QString& fileName, const QString& subFolder, OxaXmlReader* reader = nullptr);
    /// The subfolders of the project folder `path`, relative to it, at any depth and sorted,
    /// that hold documents: what `ReadFromOxaProject` takes to load the whole folder.
    static QList<QString> DocumentSubfolders(const QString& path);
    /// Loads every document of `path` and of the listed subfolders, newest first. A shared
    /// `reader` makes the progress of all files one line from 0 to 1.
    bool ReadFromOxaProject(const QString& path, const QList<QString>& subFolders,
                            OxaXmlReader* reader = nullptr);
    /// Writes every document to `path`, each into the subfolder its context names.
    bool WriteToOxaProject(const QString& path);
    /// Rebuilds the root tree and the height references from all documents.
    bool SyncObjectsToRootContainer();
    /// Appends one document and adds it to the tree.
    bool SyncObjectsToRootContainer(oxaIO::OxaObjects* objects);

private:
    QString GetCreatedString(QString& fileName);
    int CollectAllFilesAndSize(const QString& path, QList<QString>& subFolders, QList<FileListElement*>& files);
    void SortAllFiles(QList<FileListElement*>& files);
    bool ReadAllFiles(QList<FileListElement*>& files, OxaXmlReader* reader);
    bool ClearAllFiles(QList<FileListElement*>& files);
    bool AddToRootStructure(oxaIO::OxaObjects* objects);

    model::System* system;
    mesh3D::Container* rootContainer;
    QList<HRef*> hrefList;
    QList<oxaIO::OxaObjects*> oxaObjects;
    QHash<QString, QSet<QString>*> contacts;
    QHash<QString, QSet<QString>*> intersections;
    basic::MessageService* messageService = nullptr;
};

} // namespace oxa
