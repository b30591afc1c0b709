// The summary reader, which stops after the head of a document, against a full walk of the same
// file by the reader core: the summary must not grow with the file.

#include "BenchDocument.h"

#include "oxa/OxaInfoReader.h"
#include "oxaIO/OxaNullReader.h"
#include "tavxmln/CXMLException.h"
#include "tavxmln/CXMLManager.h"

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTemporaryDir folder;
    const QString path = bench::benchmark_document(app.arguments(), folder);
    if (path.isEmpty())
        return 0;
    bool valid = true;
    const double info = bench::best_seconds(20, [&] { valid = oxa::OxaInfoReader(path).IsValid() && valid; });
    const std::wstring name = path.toStdWString();
    const double walk = bench::best_seconds(2, [&] {
        oxaIO::OxaNullReader reader;
        try {
            tavxmln::CXMLManager::GetInstance()->LoadDocument(name.c_str(), &reader, true, false, nullptr,
                                                              false, false);
        } catch (const tavxmln::CXMLException&) {
            valid = false;
        }
    });
    std::printf("document: %.1f MB\n", double(QFileInfo(path).size()) / (1024.0 * 1024.0));
    std::printf("summary reader: %.3f ms; full reader walk: %.3f s; ratio %.5f\n", info * 1e3, walk,
                info / walk);
    return valid ? 0 : 1;
}
