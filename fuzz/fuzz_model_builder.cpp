// Feeds arbitrary bytes to the model builder the way a host loads a document: the bytes are a
// file that a fresh project root imports, twice, through one shared reader, so that the second
// document meets every identifier of the first and merges into it with all the clash rules.
// Containers, objects, welded geometry, materials, properties, relations, views and sets are
// built from whatever the input names, the root's tree is rebuilt over both documents, and the
// root is destroyed again. Any crash, leak, escaping exception or undefined behaviour is a bug;
// a document that cannot be parsed is the expected answer to bad input.

#include "oxa/OxaExamineContainer.h"
#include "oxa/OxaRoot.h"
#include "oxa/OxaXmlReader.h"

#include <QFile>
#include <QList>
#include <QSet>
#include <QString>
#include <QtGlobal>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {

const QString& InputFile() {
    static const QString path = QStringLiteral("/tmp/zentra_fuzz_model_builder_%1.oxaxml").arg(getpid());
    return path;
}

void RemoveInputFile() { std::remove(qPrintable(InputFile())); }

/// The reader logs every file it opens; at hundreds of inputs a second that is only noise.
void Silent(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    qInstallMessageHandler(Silent);
    // The name first: statics made before the exit handler is registered outlive its call.
    InputFile();
    std::atexit(RemoveInputFile);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    {
        QFile file(InputFile());
        if (!file.open(QIODevice::WriteOnly))
            return 0;
        file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    }
    // The relation sets outlive a root by design; this host takes them over and frees them once
    // the root is gone.
    QList<QSet<QString>*> relations;
    {
        oxa::OxaRoot root(false);
        oxa::OxaXmlReader reader(&root);
        root.ImportOXAXML(InputFile(), QString(), &reader);
        root.ImportOXAXML(InputFile(), QStringLiteral("again"), &reader);
        relations << root.GetContacts().values() << root.GetIntersections().values();
    }
    qDeleteAll(relations);
    oxa::OxaExamineContainer::DeleteInstance();
    return 0;
}
