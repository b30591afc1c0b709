// The full walk of a document by the reader core (every callback empty) against a bare expat
// parse of the same file with no handlers. Target: a ratio of at most 1.5.

#include "BenchDocument.h"

#include "oxaIO/OxaNullReader.h"
#include "tavxmln/CXMLException.h"
#include "tavxmln/CXMLManager.h"

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTemporaryDir folder;
    const QString path = bench::benchmark_document(app.arguments(), folder);
    if (path.isEmpty())
        return 0;
    const double megabytes = double(QFileInfo(path).size()) / (1024.0 * 1024.0);
    const std::wstring name = path.toStdWString();
    bool failed = false;
    auto walk_once = [&] {
        oxaIO::OxaNullReader reader;
        try {
            tavxmln::CXMLManager::GetInstance()->LoadDocument(name.c_str(), &reader, true, false, nullptr,
                                                              false, false);
        } catch (const tavxmln::CXMLException& exception) {
            std::printf("reader failed: %ls\n", exception.text());
            failed = true;
        }
    };
    // Alternate the two so that both see the same load of a shared machine; keep the best.
    double walk = 1e300;
    double bare = 1e300;
    for (int round = 0; round < 4; ++round) {
        walk = std::min(walk, bench::best_seconds(1, walk_once));
        bare = std::min(bare, bench::best_seconds(1, [&] { bench::bare_expat_parse(path); }));
    }
    std::printf("document: %.1f MB\n", megabytes);
    std::printf("reader walk: %.3f s; bare expat parse: %.3f s; ratio %.2f\n", walk, bare, walk / bare);
    return failed ? 1 : 0;
}
