#include "Command.h"

#include "basic/text.h"
#include "model/System.h"
#include "oxa/OxaXmlReader.h"
#include "oxaIO/ExportContext.h"
#include "oxaIO/OxaObjects.h"
#include "oxaIO/OxaXmlWriter.h"
#include "mesh3D/Material.h"

#include <QDir>

#include <algorithm>
#include <string>

namespace {

/// Drives the model builder as a document would, so the sample is a model made by the library
/// itself and then written by its writer.
class SampleBuilder {
public:
    explicit SampleBuilder(model::System* system) : reader(system) {}

    oxa::OxaXmlReader reader;

    void begin(const wchar_t* createdBy, const wchar_t* created) {
        reader.StartDocument();
        reader.StartOxaDocument(L"ZENTRA-SAMPLE", L"zentra sample", L"", L"generated", created, createdBy, L"",
                                L"", L"1.5");
        reader.StartObjectSection(L"m", L"1.5");
        reader.StartMaterialSection(L"1.5");
    }

    void material(const wchar_t* id, const wchar_t* name, int r, int g, int b) {
        reader.StartMaterial(id, name);
        reader.ColorDiff(r, g, b, 1.0);
        reader.EndMaterial();
    }

    /// A box object `id` of the given size with its low corner at (`x`, `y`, 0), as eight corners
    /// and twelve triangles.
    void box(const std::wstring& id, double x, double y, double width, double depth, double height) {
        reader.StartData3D(id);
        for (int i = 0; i < 8; ++i)
            reader.Point(i, x + (i & 1) * width, y + ((i >> 1) & 1) * depth, ((i >> 2) & 1) * height);
        const int quads[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
        for (const auto& q : quads) {
            reader.StartTriangle(q[0], q[1], q[2]);
            reader.EndTriangle();
            reader.StartTriangle(q[0], q[2], q[3]);
            reader.EndTriangle();
        }
        reader.EndData3D();
    }

    void property(const std::wstring& refId, const wchar_t* name, const std::wstring& value) {
        reader.StartProperty(refId, name, L"string", L"");
        reader.ReadPropertyValue(value);
        reader.EndProperty();
    }

    oxaIO::OxaObjects* end() {
        reader.EndOxaDocument();
        return reader.GetOXAResult();
    }
};

bool write(oxaIO::OxaObjects* document, const QString& file, QTextStream& err) {
    std::wstring error;
    oxaIO::OxaXmlWriter writer(document);
    if (writer.Write(basic::ToStdString(file), error))
        return true;
    err << file << ": " << basic::FromStdString(error) << "\n";
    return false;
}

/// Triangles of the sample project without generated boxes, and of each box.
constexpr int sampleTriangles = 48;
constexpr int boxTriangles = 12;

std::wstring generated_id(int number) { return L"GEN" + std::to_wstring(number); }

/// The number of generated boxes that lifts the project to at least `triangles` triangles,
/// taken from "--triangles N" among the arguments (which it removes); 0 without that option.
int generated_boxes(QStringList& arguments) {
    const int option = arguments.indexOf("--triangles");
    if (option < 0)
        return 0;
    bool valid = false;
    const int triangles = option + 1 < arguments.size() ? arguments.at(option + 1).toInt(&valid) : 0;
    if (!valid || triangles < 0)
        throw UsageError("--triangles needs a count of triangles");
    arguments.erase(arguments.begin() + option, arguments.begin() + option + 2);
    return std::max(0, (triangles - sampleTriangles + boxTriangles - 1) / boxTriangles);
}

int run_sample(const QStringList& givenArguments, QTextStream& out, QTextStream& err) {
    QStringList arguments = givenArguments;
    const int boxes = generated_boxes(arguments);
    if (arguments.size() != 1)
        throw UsageError("give the folder to write the sample project into");
    const QString folder = arguments.first();
    if (!QDir().mkpath(folder + "/structure")) {
        err << folder << ": cannot create the folder\n";
        return 1;
    }
    model::System system(false);
    SampleBuilder builder(&system);

    builder.begin(L"architecture", L"2024-06-01T12:00:00");
    builder.material(L"MAT-BRICK", L"Brick", 178, 80, 60);
    builder.material(L"MAT-GLASS", L"Glass", 150, 200, 230);
    builder.reader.EndMaterialSection();
    builder.reader.StartContainer(L"SITE", L"Site", L"", false);
    builder.reader.StartContainer(L"L00", L"Level 00", L"", false);
    builder.reader.StartObject3D(L"W1", L"MAT-BRICK", L"Wall 1", false, L"");
    builder.reader.EndObject3D();
    builder.reader.StartObject3D(L"W2", L"MAT-BRICK", L"Wall 2", false, L"");
    builder.reader.EndObject3D();
    builder.reader.StartObject3D(L"WIN1", L"MAT-GLASS", L"Window 1", false, L"");
    builder.reader.EndObject3D();
    builder.reader.EndContainer();
    // A large sample for measurements and leak checks: a field of numbered columns.
    if (boxes > 0) {
        builder.reader.StartContainer(L"GENERATED", L"Generated columns", L"", false);
        for (int i = 1; i <= boxes; ++i) {
            builder.reader.StartObject3D(generated_id(i), L"MAT-BRICK", L"Column " + std::to_wstring(i), false,
                                         L"");
            builder.reader.EndObject3D();
        }
        builder.reader.EndContainer();
    }
    builder.reader.EndContainer();
    builder.reader.StartObjectDataSection(L"1.5");
    builder.box(L"W1", 0, 0, 5, 0.3, 3);
    builder.box(L"W2", 5, 0, 5, 0.3, 3);
    builder.box(L"WIN1", 1, 0, 1.2, 0.3, 1.5);
    for (int i = 1; i <= boxes; ++i)
        builder.box(generated_id(i), (i - 1) % 100, 2 + (i - 1) / 100, 0.5, 0.5, 3);
    builder.reader.EndObjectDataSection();
    builder.reader.StartPropertySection(L"1.5");
    builder.property(L"W1", L"FireRating", L"F90");
    builder.property(L"W2", L"FireRating", L"F30");
    for (int i = 1; i <= boxes; ++i)
        builder.property(generated_id(i), L"Number", std::to_wstring(i));
    builder.reader.EndPropertySection();
    builder.reader.EndObjectSection();
    builder.reader.StartTopologySection(L"1.3");
    builder.reader.StartContacts(0.001, L"m", true);
    std::wstring w1 = L"W1", w2 = L"W2", win = L"WIN1", beam = L"B1";
    builder.reader.Contact(w1, w2);
    builder.reader.EndContacts();
    builder.reader.EndTopologySection();
    oxaIO::OxaObjects* architecture = builder.end();

    builder.begin(L"structure", L"2024-05-01T12:00:00");
    builder.material(L"MAT-STEEL", L"Steel", 120, 120, 130);
    builder.reader.EndMaterialSection();
    builder.reader.StartContainer(L"SITE", L"Site (structure)", L"", false);
    builder.reader.StartContainer(L"STR", L"Structure", L"", false);
    builder.reader.StartObject3D(L"B1", L"MAT-STEEL", L"Beam 1", false, L"");
    builder.reader.EndObject3D();
    builder.reader.EndContainer();
    builder.reader.EndContainer();
    builder.reader.StartObjectDataSection(L"1.5");
    builder.box(L"B1", 1.5, 0, 0.2, 0.5, 3.2);
    builder.reader.EndObjectDataSection();
    builder.reader.EndObjectSection();
    builder.reader.StartTopologySection(L"1.3");
    // The beam runs through the window: the sample's clash.
    builder.reader.StartIntersections(0.0, L"m", true);
    builder.reader.Intersection(beam, win);
    builder.reader.EndIntersections();
    builder.reader.EndTopologySection();
    oxaIO::OxaObjects* structure = builder.end();

    const bool written = write(architecture, folder + "/architecture.oxaxml", err) &&
                         write(structure, folder + "/structure/structure.oxaxml", err);
    oxa::OxaXmlReader::DeleteOXAResult(structure);
    oxa::OxaXmlReader::DeleteOXAResult(architecture);
    mesh3D::Material::DeleteGlobalMaterials(&system);
    if (written)
        out << "wrote the sample project into " << folder << "\n";
    return written ? 0 : 1;
}

const CommandRegistration registration({"sample", "[--triangles N] FOLDER",
                                        "write a small sample project made by the library itself "
                                        "(with columns added up to N triangles)",
                                        run_sample});

} // namespace
