// Feeds arbitrary bytes to the summary reader, which reads a document's head from a file and
// stops the parse at the end of its section list. Any crash, leak or undefined behaviour is a
// bug; an invalid summary with an error text is the expected answer to bad input.

#include "oxa/OxaInfoReader.h"

#include <QDir>
#include <QFile>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The reader takes a file name: one scratch file per fuzzing process.
    static const QString path =
        QDir::tempPath() + QStringLiteral("/zentra-fuzz-info-%1.oxaxml").arg(::getpid());
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        file.write(reinterpret_cast<const char*>(data), qint64(size));
    }
    oxa::OxaInfoReader info(path);
    // Every getter, so that whatever a half-read head left behind is touched.
    std::size_t touched = info.GetCreated().size() + info.GetChanged().size() + info.GetProjectID().size() +
                          info.GetSourceApp().size() + info.GetSourceFileName().size() +
                          info.GetSourceFormat().size() + info.GetCreatedBy().size() +
                          info.GetChangedBy().size() + info.GetVersion().size() +
                          info.GetSections().size() + info.ErrorText().size();
    touched += info.HasSection(info.GetSectionTypes().empty() ? oxaIO::stNone
                                                              : info.GetSectionTypes().back());
    (void)touched;
    return 0;
}
