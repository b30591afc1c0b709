// Feeds arbitrary bytes to the 3DS import as a file. Whatever the bytes are, the import must end
// without a crash, a hang, a read out of bounds, a leak or an allocation beyond what the file
// could hold; a document (possibly empty) is the expected answer.

#include "mesh3D/Material.h"
#include "model/System.h"
#include "oxa/DataIO_3ds.h"
#include "oxaIO/OxaObjects.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QString path = QStringLiteral("/tmp/zentra_fuzz_3ds_%1.3ds").arg(getpid());
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            return 0;
        file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    }
    // Without quick search: the per-system columns are the host's to free, not the import's.
    model::System system(false);
    QString error;
    delete oxa::DataIO_3ds::import_file(&system, nullptr, path, 1.0, &error);
    mesh3D::Material::DeleteGlobalMaterials(&system);
    return 0;
}
