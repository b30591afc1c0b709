#pragma once

#include "zentra_export.h"

#include <QString>
#include <QTextStream>

namespace basic {
class MessageService;
}
namespace mesh3D {
class Container;
class Surface;
} // namespace mesh3D
namespace oxaIO {
class OxaObjects;
}

namespace oxa {

class OxaRoot;
class OxaXmlReader;

/// The front door of the import and export paths: runs one read or write at a time, hands a
/// finished document to the project root, and forwards cancellation, multi-file progress figures
/// and the message channel to the reader running at that moment (possibly from another thread).
/// It holds no document data.
class ZENTRA_EXPORT OxaFileHandler {
public:
    OxaFileHandler() = default;
    /// Copies every field, the reader pointer included, so two copies share a running reader.
    OxaFileHandler(const OxaFileHandler&) = default;
    OxaFileHandler& operator=(const OxaFileHandler&) = default;
    /// With the cancel flag set the reader is left alive: the read it belongs to may still run
    /// in another thread. Otherwise a reader still held is deleted.
    virtual ~OxaFileHandler();

    /// Reads one document into `root` (which then rebuilds its tree); null when nothing was
    /// read. A `reader` given by the caller is used as it is and stays alive afterwards.
    oxaIO::OxaObjects* oxaReadXML(OxaRoot* root, const QString& fileName, QString* errorText,
                                  OxaXmlReader* reader = nullptr);
    bool oxaWriteXML(const QString& fileName, oxaIO::OxaObjects* objects, QString* errorText);
    /// The object-store entry: callable, but no store is read yet, so it gives null and the root
    /// stays as it was.
    oxaIO::OxaObjects* oxaReadOsDatabase(OxaRoot* root, const QString& path);
    /// Fills `surface` from a document fragment held in memory, in metres.
    void oxaReadGeometryXML(mesh3D::Surface* surface, const QString& xmlText, QString* errorText);

    void CancelReading();
    bool IsReading() const;
    /// The running reader's channel while a read runs, else the handler's own.
    basic::MessageService* MsgService() const;
    void MsgService(basic::MessageService* service);
    void SetMultiFileSize(int size);
    void SetMultiFileOffset(int offset);

    /// Prints `container` and everything below it as an indented XML-like listing.
    static void DumpContainer(mesh3D::Container* container, QTextStream& stream);
    /// Prints the whole tree of `root` into a file; silent when the file cannot be opened.
    static void DumpContainerInFile(OxaRoot* root, const QString& fileName);

private:
    OxaXmlReader* reader = nullptr;
    basic::MessageService* messageService = nullptr;
    int multiFileSize = 0;
    int multiFileOffset = 0;
    bool cancelled = false;
};

} // namespace oxa
