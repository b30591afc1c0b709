#include "Command.h"

#include "basic/text.h"
#include "model/System.h"
#include "oxa/OxaXmlReader.h"
#include "oxaIO/ExportContext.h"
#include "oxaIO/OxaObjects.h"
#include "oxaIO/OxaXmlWriter.h"
#include "mesh3D/Material.h"

#include <QDir>

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

    /// A box object `id` of the given size at x offset `x`, as eight corners and twelve triangles.
    void box(const wchar_t* id, double x, double width, double depth, double height) {
        reader.StartData3D(id);
        for (int i = 0; i < 8; ++i)
            reader.Point(i, x + (i & 1) * width, ((i >> 1) & 1) * depth, ((i >> 2) & 1) * height);
        const int quads[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
        for (const auto& q : quads) {
            reader.StartTriangle(q[0], q[1], q[2]);
            reader.EndTriangle();
            reader.StartTriangle(q[0], q[2], q[3]);
            reader.EndTriangle();
        }
        reader.EndData3D();
    }

    void property(const wchar_t* refId, const wchar_t* name, const wchar_t* value) {
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

int run_sample(const QStringList& arguments, QTextStream& out, QTextStream& err) {
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
    builder.reader.EndContainer();
    builder.reader.StartObjectDataSection(L"1.5");
    builder.box(L"W1", 0, 5, 0.3, 3);
    builder.box(L"W2", 5, 5, 0.3, 3);
    builder.box(L"WIN1", 1, 1.2, 0.3, 1.5);
    builder.reader.EndObjectDataSection();
    builder.reader.StartPropertySection(L"1.5");
    builder.property(L"W1", L"FireRating", L"F90");
    builder.property(L"W2", L"FireRating", L"F30");
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
    builder.box(L"B1", 1.5, 0.2, 0.5, 3.2);
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

const CommandRegistration registration({"sample", "FOLDER",
                                        "write a small sample project made by the library itself", run_sample});

} // namespace
