#include "oxa/OxaFileHandler.h"

#include "basic/Exception.h"
#include "basic/MessageService.h"
#include "basic/text.h"
#include "mesh3D/Container.h"
#include "mesh3D/Object3D.h"
#include "oxa/OxaOsReader.h"
#include "oxa/OxaRoot.h"
#include "oxa/OxaXmlReader.h"
#include "oxaIO/OxaXmlWriter.h"

#include <QDebug>
#include <QFile>

#include <new>

namespace oxa {

namespace {
/// Nesting depth of the running dump; process-wide, so two dumps must not run at once.
int dumpDepth = 0;
} // namespace

OxaFileHandler::~OxaFileHandler() {
    if (cancelled) {
        qDebug() << "OxaFileHandler::~OxaFileHandler cancelReading - leave reader alive";
        return;
    }
    qDebug() << "OxaFileHandler::~OxaFileHandler normal";
    delete reader;
}

oxaIO::OxaObjects* OxaFileHandler::oxaReadXML(OxaRoot* root, const QString& fileName, QString* errorText,
                                              OxaXmlReader* foreignReader) {
    // Kept for the whole call: cancelling clears the reader's channel, and the closing message
    // must still go out.
    basic::MessageService* channel = reader ? reader->MsgService() : messageService;
    cancelled = false;
    if (channel)
        channel->show_progress_message("oxa: import file " + fileName);
    if (!QFile::exists(fileName)) {
        if (channel)
            channel->show_progress_message("oxa: ERROR : file does not exist !");
        return nullptr;
    }
    const bool foreign = foreignReader != nullptr;
    if (foreign) {
        reader = foreignReader;
    } else {
        reader = new (std::nothrow) OxaXmlReader(root);
        if (!reader)
            return nullptr;
        reader->MsgService(messageService);
        reader->SetMultiFileSize(multiFileSize);
        reader->SetMultiFileOffset(multiFileOffset);
    }
    oxaIO::OxaObjects* result = nullptr;
    QString text;
    bool read = false;
    try {
        read = reader->ReadOxaXmlFile(fileName, &text);
    } catch (const basic::Exception& exception) {
        // The model refuses what the parser let through, e.g. an object whose container was
        // misplaced and never made. The read leaves with that exception; here it becomes a
        // document that failed, so that no host meets it and a foreign reader stays alive.
        text = exception.text();
    }
    if (read) {
        result = reader->GetOXAResult();
        if (result) {
            root->AddOxaObjects(result);
            root->SyncObjectsToRootContainer();
        }
        if (channel)
            channel->show_progress_message("oxa: import file done.");
    } else {
        if (channel)
            channel->show_progress_message("oxaReader ERROR: " + text);
        if (errorText)
            *errorText = text;
    }
    if (!foreign)
        delete reader;
    reader = nullptr;
    return result;
}

oxaIO::OxaObjects* OxaFileHandler::oxaReadOsDatabase(OxaRoot* root, const QString& path) {
    OxaOsReader* store = OxaOsReader::GetInstance();
    if (!store)
        return nullptr;
    store->SetRoot(root);
    oxaIO::OxaObjects* result = store->Read(path);
    if (result) {
        root->AddOxaObjects(result);
        root->SyncObjectsToRootContainer();
    }
    return result;
}

bool OxaFileHandler::oxaWriteXML(const QString& fileName, oxaIO::OxaObjects* objects, QString* errorText) {
    oxaIO::OxaXmlWriter writer(objects);
    std::wstring text;
    const bool written = writer.Write(basic::ToStdString(fileName), text);
    if (!written && errorText)
        *errorText = basic::FromStdString(text);
    return written;
}

void OxaFileHandler::oxaReadGeometryXML(mesh3D::Surface* surface, const QString& xmlText, QString* errorText) {
    if (!surface)
        return;
    reader = new (std::nothrow) OxaXmlReader(surface, basic::unit_m);
    if (!reader)
        return;
    reader->MsgService(messageService);
    QString text;
    if (!reader->ReadOxaXmlFragment(xmlText, &text)) {
        if (reader->MsgService())
            reader->MsgService()->show_progress_message("oxaReader ERROR: " + text);
        if (errorText)
            *errorText = text;
    }
    delete reader;
    reader = nullptr;
}

void OxaFileHandler::CancelReading() {
    qDebug() << "OxaFileHandler::CancelReading";
    cancelled = true;
    if (reader)
        reader->CancelReading();
}

bool OxaFileHandler::IsReading() const { return reader && reader->IsReading(); }

basic::MessageService* OxaFileHandler::MsgService() const {
    return reader ? reader->MsgService() : messageService;
}

void OxaFileHandler::MsgService(basic::MessageService* service) {
    messageService = service;
    if (reader)
        reader->MsgService(service);
}

void OxaFileHandler::SetMultiFileSize(int size) {
    multiFileSize = size;
    if (reader)
        reader->SetMultiFileSize(size);
}

void OxaFileHandler::SetMultiFileOffset(int offset) {
    multiFileOffset = offset;
    if (reader)
        reader->SetMultiFileOffset(offset);
}

void OxaFileHandler::DumpContainer(mesh3D::Container* container, QTextStream& stream) {
    const QString indent = QString("  ").repeated(dumpDepth);
    stream << indent << "<Container composite=" << (container->IsComposite() ? 1 : 0) << " name=\""
           << container->name() << "\" ID=\"" << container->id().toLatin1() << "\">\n";
    ++dumpDepth;
    for (mesh3D::Element* child : container->children()) {
        if (auto* inner = dynamic_cast<mesh3D::Container*>(child))
            DumpContainer(inner, stream);
        else if (auto* object = dynamic_cast<mesh3D::Object3D*>(child))
            stream << indent << "  <Object3D name=\"" << object->name() << "\" ID=\""
                   << object->id().toLatin1() << "\" />\n";
    }
    stream << indent << "</Container>\n";
    --dumpDepth;
}

void OxaFileHandler::DumpContainerInFile(OxaRoot* root, const QString& fileName) {
    if (!root->RootContainer())
        return;
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return;
    QTextStream stream(&file);
    DumpContainer(root->RootContainer(), stream);
}

} // namespace oxa
