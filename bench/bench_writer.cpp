// Times the writing of a document of about one million triangles, presented through the
// document interfaces as a host's model would present them, against a plain buffered write of a
// file of the same size and contents. Both write into a temporary folder on the same disk. The
// figures are processor time (user and system) of the best of five runs, which other work on a
// shared machine disturbs far less than the clock on the wall.

#include "../tests/oxaIO/TestModel.h"

#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaObjects.h"
#include "oxaIO/OxaXmlWriter.h"
#include "tavxmln/XMLConvert.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <list>
#include <vector>

using namespace oxaIO;

namespace {

const int defaultObjectCount = 100;
const int columns = 50; ///< quads per row of one object's grid
const int rows = 100;
const int runs = 5;
const double metresPerUnit = 0.001; ///< the document is written in millimetres

class GridVertex : public IVertex {
public:
    GridVertex(double x, double y, double z) : x(x), y(y), z(z) {}
    double X() const override { return x; }
    double Y() const override { return y; }
    double Z() const override { return z; }

private:
    double x, y, z;
};

class GridTriangle : public ITriangle {
public:
    GridTriangle(IVertex* a, IVertex* b, IVertex* c) : corners{a, b, c} {}
    IVertex* Vertex(int index) const override { return corners[index]; }
    void TextureCoords(int, std::vector<VCoords2D>*) const override {}
    bool IsRootGeometry() const override { return true; }

private:
    IVertex* corners[3];
};

/// A wavy sheet of `columns` x `rows` quads, two triangles each, in metres.
class GridObject : public IObject3D {
public:
    GridObject(int index) : id(L"sheet-" + std::to_wstring(index)) {
        vertices.reserve(std::size_t((columns + 1) * (rows + 1)));
        for (int r = 0; r <= rows; ++r)
            for (int c = 0; c <= columns; ++c)
                vertices.emplace_back(index * 10.0 + c * 0.137, r * 0.211, 0.05 * ((c * 7 + r * 3) % 11));
        for (int r = 0; r < rows; ++r) {
            for (int c = 0; c < columns; ++c) {
                IVertex* a = &vertices[std::size_t(r * (columns + 1) + c)];
                IVertex* b = a + 1;
                IVertex* d = a + columns + 1;
                IVertex* e = d + 1;
                triangles.emplace_back(a, b, e);
                triangles.emplace_back(a, e, d);
            }
        }
    }
    std::wstring ID() const override { return id; }
    std::wstring Name() const override { return {}; }
    void Triangles(std::list<ITriangle*>* list) const override {
        for (const GridTriangle& triangle : triangles)
            list->push_back(const_cast<GridTriangle*>(&triangle));
    }
    void Polygons(std::list<IPolygon*>*) const override {}
    void Faces(std::list<IFace*>*) const override {}
    void Solids(std::list<ISolid*>*) const override {}
    void Vertices(std::list<IVertex*>* list) const override {
        for (const GridVertex& vertex : vertices)
            list->push_back(const_cast<GridVertex*>(&vertex));
    }
    bool Negative() const override { return false; }
    std::wstring RefID() const override { return {}; }
    const IMaterial* Material() const override { return nullptr; }
    const IOBB* OOBB() const override { return nullptr; }

    std::size_t TriangleCount() const { return triangles.size(); }
    const std::vector<GridVertex>& GridVertices() const { return vertices; }
    const std::vector<GridTriangle>& GridTriangles() const { return triangles; }

private:
    std::wstring id;
    std::vector<GridVertex> vertices;
    std::vector<GridTriangle> triangles;
};

/// The processor time of this process (user and system) of the best run.
template <typename Work> double BestSeconds(Work work) {
    double best = 1e300;
    for (int run = 0; run < runs; ++run) {
        const std::clock_t start = std::clock();
        work();
        best = std::min(best, double(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return best;
}

/// What any writer has to ask of the interfaces, without writing anything: the vertex list
/// that decides whether an object is written, then the lists and calls of its geometry. The
/// result only keeps the compiler from dropping the calls.
double InterfaceWalk(const std::vector<GridObject*>& objects) {
    double sum = 0;
    for (const GridObject* object : objects) {
        std::list<IVertex*> vertices;
        object->Vertices(&vertices);
        sum += double(vertices.size());
    }
    for (const GridObject* object : objects) {
        std::list<IVertex*> vertices;
        object->Vertices(&vertices);
        std::list<ITriangle*> triangles;
        object->Triangles(&triangles);
        for (const IVertex* vertex : vertices)
            sum += vertex->X() + vertex->Y() + vertex->Z();
        std::vector<VCoords2D> coords;
        for (const ITriangle* triangle : triangles) {
            if (!triangle->IsRootGeometry())
                continue;
            sum += double(triangle->Vertex(0) != triangle->Vertex(1)) + double(triangle->Vertex(2) != nullptr);
            triangle->TextureCoords(0, &coords);
        }
    }
    return sum;
}

/// The same points and triangles formatted by the library's number formatters straight into a
/// buffer of 256 KiB that goes out through the C library: no interfaces, no lists, no grammar
/// checks, no element bookkeeping. What a writer cannot do without.
void BareFormatting(const std::vector<GridObject*>& objects, double lengthScale, const QString& path) {
    std::FILE* file = std::fopen(QFile::encodeName(path).constData(), "wb");
    if (!file)
        return;
    std::vector<char> buffer(256 * 1024);
    char* out = buffer.data();
    char* const limit = out + buffer.size() - 4 * tavxmln::XMLMaxNumberChars - 64;
    const auto text = [&out](const char* piece) {
        const std::size_t length = std::strlen(piece);
        std::memcpy(out, piece, length);
        out += length;
    };
    const auto makeRoom = [&] {
        if (out > limit) {
            std::fwrite(buffer.data(), 1, std::size_t(out - buffer.data()), file);
            out = buffer.data();
        }
    };
    for (const GridObject* object : objects) {
        const GridVertex* first = object->GridVertices().data();
        int number = 0;
        for (const GridVertex& vertex : object->GridVertices()) {
            makeRoom();
            text("\n      <p nr=\"");
            out = tavxmln::XMLFormatLong(out, number++);
            text("\" x=\"");
            out = tavxmln::XMLFormatDouble(out, vertex.X() / lengthScale);
            text("\" y=\"");
            out = tavxmln::XMLFormatDouble(out, vertex.Y() / lengthScale);
            text("\" z=\"");
            out = tavxmln::XMLFormatDouble(out, vertex.Z() / lengthScale);
            text("\"/>");
        }
        for (const GridTriangle& triangle : object->GridTriangles()) {
            makeRoom();
            text("\n      <t p1=\"");
            out = tavxmln::XMLFormatLong(out, static_cast<const GridVertex*>(triangle.Vertex(0)) - first);
            text("\" p2=\"");
            out = tavxmln::XMLFormatLong(out, static_cast<const GridVertex*>(triangle.Vertex(1)) - first);
            text("\" p3=\"");
            out = tavxmln::XMLFormatLong(out, static_cast<const GridVertex*>(triangle.Vertex(2)) - first);
            text("\"/>");
        }
    }
    std::fwrite(buffer.data(), 1, std::size_t(out - buffer.data()), file);
    std::fclose(file);
}

/// Writes the bytes in blocks of 256 KiB through the C library, the way any program would.
void PlainWrite(const QByteArray& bytes, const QString& path) {
    std::FILE* file = std::fopen(QFile::encodeName(path).constData(), "wb");
    if (!file)
        return;
    const std::size_t block = 256 * 1024;
    for (std::size_t offset = 0; offset < std::size_t(bytes.size()); offset += block)
        std::fwrite(bytes.constData() + offset, 1, std::min(block, std::size_t(bytes.size()) - offset), file);
    std::fclose(file);
}

} // namespace

/// The optional argument is the number of objects of 10 000 triangles each (100 by default).
int main(int argc, char** argv) {
    const int objectCount = argc > 1 ? std::max(1, std::atoi(argv[1])) : defaultObjectCount;
    QTemporaryDir dir;
    if (!dir.isValid()) {
        std::printf("no temporary folder\n");
        return 1;
    }
    OxaObjects document;
    document.ObjectSection().Unit(L"mm");
    auto* root = new testmodel::Container(L"root");
    auto* building = root->Add(new testmodel::Container(L"building"));
    std::size_t triangleCount = 0;
    std::vector<GridObject*> objects;
    for (int i = 0; i < objectCount; ++i) {
        objects.push_back(building->Add(new GridObject(i)));
        triangleCount += objects.back()->TriangleCount();
    }
    document.ObjectSection().AddContainer(root);

    const QString target = dir.filePath("model.oxaxml");
    OxaXmlWriter writer(&document);
    bool written = true;
    const double writeSeconds = BestSeconds([&] {
        std::wstring error;
        written = writer.Write(target.toStdWString(), error) && written;
    });
    QFile output(target);
    if (!written || !output.open(QIODevice::ReadOnly)) {
        std::printf("the document was not written\n");
        return 1;
    }
    const QByteArray bytes = output.readAll();
    output.close();
    const double plainSeconds = BestSeconds([&] { PlainWrite(bytes, dir.filePath("plain.bin")); });
    double walkSum = 0;
    const double walkSeconds = BestSeconds([&] { walkSum += InterfaceWalk(objects); });
    const double bareSeconds = BestSeconds([&] { BareFormatting(objects, metresPerUnit, dir.filePath("bare.xml")); });

    const double megabytes = double(bytes.size()) / 1e6;
    std::printf("document: %zu triangles, %.1f MB (walk checksum %.0f)\n", triangleCount, megabytes, walkSum);
    // The least any writer through these interfaces costs is this walk and the plain write.
    std::printf("interface walk without output: %.3f s CPU; plain buffered write: %.3f s CPU; ratio %.1f\n",
                walkSeconds, plainSeconds, walkSeconds / plainSeconds);
    std::printf("bare formatting of the same elements: %.3f s CPU; plain buffered write: %.3f s CPU; ratio %.1f\n",
                bareSeconds, plainSeconds, bareSeconds / plainSeconds);
    std::printf("document writer: %.3f s CPU, %.0f MB/s; plain buffered write: %.3f s CPU, %.0f MB/s; "
                "ratio %.1f\n",
                writeSeconds, megabytes / writeSeconds, plainSeconds, megabytes / plainSeconds,
                writeSeconds / plainSeconds);
    return 0;
}
