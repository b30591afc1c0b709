// Import of a generated 3DS file of 200 000 faces (four meshes of 50 000, since a 3DS mesh counts
// its faces in 16 bits) against the bare read of the same bytes: the file read whole and every
// coordinate and index decoded, which is the least any importer has to do.

#include "mesh3D/Material.h"
#include "mesh3D/Surface.h"
#include "model/System.h"
#include "oxa/DataIO_3ds.h"
#include "oxaIO/OxaObjects.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void put16(QByteArray& out, unsigned int v) {
    char raw[2];
    qToLittleEndian<quint16>(static_cast<quint16>(v), raw);
    out.append(raw, 2);
}
void put32(QByteArray& out, quint32 v) {
    char raw[4];
    qToLittleEndian<quint32>(v, raw);
    out.append(raw, 4);
}
void putf(QByteArray& out, float f) {
    quint32 bits;
    std::memcpy(&bits, &f, 4);
    put32(out, bits);
}
QByteArray chunk(unsigned int id, const QByteArray& body) {
    QByteArray out;
    put16(out, id);
    put32(out, static_cast<quint32>(6 + body.size()));
    return out + body;
}

/// A wavy grid of `columns` x `rows` quads, two triangles each.
QByteArray grid_object(const QByteArray& name, int columns, int rows, double offset) {
    QByteArray points;
    put16(points, static_cast<unsigned int>((columns + 1) * (rows + 1)));
    for (int r = 0; r <= rows; ++r)
        for (int c = 0; c <= columns; ++c) {
            putf(points, float(c * 0.1 + offset));
            putf(points, float(r * 0.1));
            putf(points, float(0.05 * std::sin(c * 0.3) * std::cos(r * 0.2)));
        }
    QByteArray faces;
    put16(faces, static_cast<unsigned int>(2 * columns * rows));
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c) {
            const unsigned int a = r * (columns + 1) + c, b = a + 1, d = a + columns + 1, e = d + 1;
            for (unsigned int v : {a, b, e, 0u, a, e, d, 0u})
                put16(faces, v);
        }
    QByteArray material = QByteArray("Grey") + '\0';
    put16(material, 0);
    return chunk(0x4000,
                 name + '\0' +
                     chunk(0x4100, chunk(0x4110, points) + chunk(0x4120, faces + chunk(0x4130, material))));
}

QByteArray generated_file(int meshes, int columns, int rows) {
    QByteArray grey = QByteArray("Grey") + '\0';
    QByteArray colour;
    putf(colour, 0.5f);
    putf(colour, 0.5f);
    putf(colour, 0.5f);
    QByteArray editor = chunk(0xAFFF, chunk(0xA000, grey) + chunk(0xA020, chunk(0x0010, colour)));
    for (int m = 0; m < meshes; ++m)
        editor += grid_object("grid" + QByteArray::number(m), columns, rows, m * (columns * 0.1 + 1.0));
    return chunk(0x4D4D, chunk(0x3D3D, editor));
}

/// The baseline: read the file whole and decode every coordinate and face index.
double bare_read(const QString& path, double& checksum) {
    const auto start = Clock::now();
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    const char* p = bytes.constData();
    const char* end = p + bytes.size();
    checksum = 0.0;
    while (p + 6 <= end) {
        const unsigned int id = qFromLittleEndian<quint16>(p);
        const unsigned int length = qFromLittleEndian<quint32>(p + 2);
        if (id == 0x4D4D || id == 0x3D3D || id == 0x4100) {
            p += 6;
        } else if (id == 0x4000) {
            p += 6 + std::strlen(p + 6) + 1;
        } else if (id == 0x4110) {
            const unsigned int count = qFromLittleEndian<quint16>(p + 6);
            for (unsigned int i = 0; i < 3 * count; ++i) {
                const quint32 bits = qFromLittleEndian<quint32>(p + 8 + 4 * i);
                float f;
                std::memcpy(&f, &bits, 4);
                checksum += f;
            }
            p += length;
        } else if (id == 0x4120) {
            const unsigned int count = qFromLittleEndian<quint16>(p + 6);
            for (unsigned int i = 0; i < 4 * count; ++i)
                checksum += qFromLittleEndian<quint16>(p + 8 + 2 * i);
            p += 8 + 8 * count; // its material group follows inside
        } else {
            p += length;
        }
    }
    return seconds_since(start);
}

} // namespace

int main() {
    QTemporaryDir folder;
    const QString path = folder.filePath("grid.3ds");
    const int meshes = 4, columns = 250, rows = 100;
    const long faces = 2L * meshes * columns * rows;
    {
        QFile out(path);
        if (!out.open(QIODevice::WriteOnly) || out.write(generated_file(meshes, columns, rows)) < 0) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    const double megabytes = QFile(path).size() / 1e6;

    double checksum = 0.0;
    double baseline = 1e9;
    for (int run = 0; run < 3; ++run)
        baseline = std::min(baseline, bare_read(path, checksum));

    // Best of three on both sides, as the machine is shared.
    double import = 1e9;
    for (int run = 0; run < 3; ++run) {
        model::System system(true);
        QString error;
        const auto start = Clock::now();
        oxaIO::OxaObjects* document = oxa::DataIO_3ds::import_file(&system, nullptr, path, 1.0, &error);
        import = std::min(import, seconds_since(start));
        if (!document) {
            std::fprintf(stderr, "import failed: %s\n", qPrintable(error));
            return 1;
        }
        delete document;
        mesh3D::Surface::DeleteGlobalQSColumnObject(&system);
        mesh3D::Material::DeleteGlobalQSColumnMaterial(&system);
        mesh3D::Material::DeleteGlobalMaterials(&system);
    }

    std::printf("file: %ld faces in %d meshes, %.1f MB\n", faces, meshes, megabytes);
    std::printf("3ds import: %.3f s, %.0f faces/s\n", import, faces / import);
    std::printf("bare read and decode: %.4f s (checksum %.0f)\n", baseline, checksum);
    std::printf("3ds import: %.3f s; bare read and decode: %.4f s; ratio %.0f\n", import, baseline,
                import / baseline);
    return 0;
}
