#pragma once

// Shared by the reader benchmarks: finds or generates the benchmark document and times runs.

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <expat.h>
#include <functional>

namespace bench {

/// A building made by the project's document generator into `folder`, with the generator's
/// `options`; empty, after saying that the benchmark is skipped, when the generator is missing.
inline QString generated_document(const QTemporaryDir& folder, const QString& name, const QStringList& options) {
    const QString generator = QString(ZENTRA_SOURCE_DIR) + "/../shared/tools/oxagen.py";
    if (!QFileInfo::exists(generator) || !folder.isValid()) {
        std::printf("skipped: no document given and the generator is not available\n");
        return QString();
    }
    const QString path = folder.filePath(name);
    std::printf("generating %s ...\n", qPrintable(path));
    std::fflush(stdout);
    const int status = QProcess::execute("python3", QStringList{generator, "-o", path} + options);
    return status == 0 ? path : QString();
}

/// The document to measure: the first argument, or a large georeferenced building generated
/// into `folder`.
inline QString benchmark_document(const QStringList& arguments, const QTemporaryDir& folder) {
    if (arguments.size() > 1)
        return arguments.at(1);
    return generated_document(folder, "large.oxaxml",
                              {"--storeys", "40", "--rooms-per-storey", "80", "--detail", "32", "--rotate", "--origin",
                               "4512345.5,5412345.25"});
}

/// The best of `runs` timings of `work`, in seconds.
inline double best_seconds(int runs, const std::function<void()>& work) {
    double best = 1e300;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        best = std::min(best, double(timer.nsecsElapsed()) * 1e-9);
    }
    return best;
}

/// Parses the file with expat and no handlers at all, in the same chunks as the library.
inline void bare_expat_parse(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    XML_Parser parser = XML_ParserCreate(nullptr);
    for (;;) {
        void* buffer = XML_GetBuffer(parser, 1 << 20);
        const qint64 filled = file.read(static_cast<char*>(buffer), 1 << 20);
        if (XML_ParseBuffer(parser, int(std::max<qint64>(filled, 0)), filled <= 0) == XML_STATUS_ERROR) {
            std::printf("bare expat parse failed: %s\n", XML_ErrorString(XML_GetErrorCode(parser)));
            break;
        }
        if (filled <= 0)
            break;
    }
    XML_ParserFree(parser);
}

} // namespace bench
