// Reading a large document into a model (containers, objects, welded vertices, triangles,
// normals and edges) against a bare expat parse of the same file. Targets: at most 4 times the
// bare parse, and a peak memory of at most 3 times the file size.

#include "BenchDocument.h"

#include "mesh3D/Container.h"
#include "mesh3D/Material.h"
#include "mesh3D/Object3D.h"
#include "mesh3D/Polygon.h"
#include "model/System.h"
#include "oxa/OxaExamineContainer.h"
#include "oxa/OxaXmlReader.h"
#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaObjects.h"

#include <QFile>

#include <ctime>

namespace {

/// Processor time of the process for `work`, in seconds: the machine is shared, and wall time
/// would measure the neighbours as well.
double cpu_seconds(const std::function<void()>& work) {
    timespec start{}, end{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &start);
    work();
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &end);
    return double(end.tv_sec - start.tv_sec) + double(end.tv_nsec - start.tv_nsec) * 1e-9;
}

/// A figure of /proc/self/status in bytes ("VmHWM" the peak, "VmRSS" the present resident
/// size); 0 where the file does not exist.
double status_bytes(const char* key) {
    QFile file("/proc/self/status");
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return 0.0;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.startsWith(key))
            return line.mid(int(qstrlen(key)) + 1).trimmed().split(' ').first().toDouble() * 1024.0;
    return 0.0;
}

long long count_triangles(const mesh3D::Container* container) {
    long long count = 0;
    for (const mesh3D::Element* child : container->children()) {
        if (auto* sub = dynamic_cast<const mesh3D::Container*>(child)) {
            count += count_triangles(sub);
        } else if (auto* object = dynamic_cast<const mesh3D::Object3D*>(child)) {
            count += object->triangles().size();
            for (const mesh3D::Polygon* polygon : object->polygons())
                count += polygon->Tessellation().size();
        }
    }
    return count;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTemporaryDir folder;
    const QString path = bench::benchmark_document(app.arguments(), folder);
    if (path.isEmpty())
        return 0;
    const double fileBytes = double(QFileInfo(path).size());
    const double startRss = status_bytes("VmRSS:");

    // The model read first, so that the peak it reaches is its own.
    model::System system(false);
    auto* reader = new oxa::OxaXmlReader(&system);
    QString error;
    bool ok = false;
    const double build = cpu_seconds([&] { ok = reader->ReadOxaXmlFile(path, &error); });
    const double peak = status_bytes("VmHWM:");
    if (!ok) {
        std::printf("model read failed: %s\n", qPrintable(error));
        return 1;
    }
    oxaIO::OxaObjects* document = reader->GetOXAResult();
    long long triangles = 0;
    for (const oxaIO::IContainer* root : document->ObjectSection().GetContainers())
        triangles += count_triangles(dynamic_cast<const mesh3D::Container*>(root));
    oxa::OxaXmlReader::DeleteOXAResult(document);
    delete reader;
    mesh3D::Material::DeleteGlobalMaterials(&system);
    oxa::OxaExamineContainer::DeleteInstance();

    double bare = 1e300;
    for (int round = 0; round < 3; ++round)
        bare = std::min(bare, cpu_seconds([&] { bench::bare_expat_parse(path); }));

    std::printf("document: %.1f MB, %lld triangles\n", fileBytes / (1024.0 * 1024.0), triangles);
    std::printf("model build: %.2f s processor time, %.0f triangles/s\n", build, triangles / build);
    std::printf("peak memory: %.0f MB (%.0f MB at start), %.2f times the file\n", peak / (1024.0 * 1024.0),
                startRss / (1024.0 * 1024.0), peak / fileBytes);
    std::printf("model build: %.2f s; bare expat parse: %.3f s; ratio %.2f\n", build, bare, build / bare);
    return 0;
}
