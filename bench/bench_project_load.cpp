// A project folder loaded into one root (head pass for the sort, a reader per file, the tree
// rebuilt after each file) against the same files read in turn by one bare model builder.

#include "BenchDocument.h"

#include "mesh3D/Material.h"
#include "model/System.h"
#include "oxa/OxaRoot.h"
#include "oxa/OxaXmlReader.h"

#include <QDirIterator>
#include <QLoggingCategory>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTemporaryDir folder;
    const QString generator = QString(ZENTRA_SOURCE_DIR) + "/../shared/tools/oxagen.py";
    if (!QFileInfo::exists(generator) || !folder.isValid()) {
        std::printf("skipped: the generator is not available\n");
        return 0;
    }
    const QString project = folder.filePath("project");
    if (QProcess::execute("python3", {generator, "--project", project, "--documents", "6", "--storeys", "12",
                                      "--rooms-per-storey", "40", "--detail", "16"}) != 0) {
        std::printf("skipped: the generator failed\n");
        return 0;
    }
    QStringList files;
    QStringList subFolders;
    QDirIterator it(project, {"*.oxaxml"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        files << it.next();
        const QString sub = QDir(project).relativeFilePath(QFileInfo(files.last()).absolutePath());
        if (sub != "." && !subFolders.contains(sub))
            subFolders << sub;
    }
    qint64 bytes = 0;
    for (const QString& file : files)
        bytes += QFileInfo(file).size();

    bool failed = false;
    auto load_project = [&] {
        oxa::OxaRoot root(false);
        failed |= !root.ReadFromOxaProject(project, subFolders);
    };
    auto read_files = [&] {
        model::System system(false);
        {
            oxa::OxaXmlReader reader(&system);
            for (const QString& file : files) {
                QString error;
                failed |= !reader.ReadOxaXmlFile(file, &error);
                oxa::OxaXmlReader::DeleteOXAResult(reader.GetOXAResult());
            }
        }
        mesh3D::Material::DeleteGlobalMaterials(&system);
    };
    QLoggingCategory::setFilterRules("*.debug=false");
    double load = 1e300;
    double bare = 1e300;
    for (int round = 0; round < 3; ++round) {
        load = std::min(load, bench::best_seconds(1, load_project));
        bare = std::min(bare, bench::best_seconds(1, read_files));
    }
    std::printf("project: %d documents, %.1f MB\n", int(files.size()), bytes / (1024.0 * 1024.0));
    std::printf("project load: %.3f s; files read by one model builder: %.3f s; ratio %.2f\n", load, bare,
                load / bare);
    return failed ? 1 : 0;
}
