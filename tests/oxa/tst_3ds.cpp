#include "oxa/ReaderFixture.h"
#include "oxa/Writer3ds.h"
#include "support/Files.h"
#include "support/OutputCapture.h"

#include "basic/MessageService.h"
#include "basic/text.h"
#include "geometry/Octree.h"
#include "mesh3D/Container.h"
#include "mesh3D/Material.h"
#include "mesh3D/Object3D.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"
#include "model/System.h"
#include "oxa/DataIO_3ds.h"
#include "oxa/OxaRoot.h"
#include "oxaIO/ExportContext.h"
#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaObjects.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace w3ds;

namespace {

/// One import into a system of its own, with the document and everything it made freed at the
/// end.
struct Imported {
    model::System system{true};
    basic::MessageService messages;
    std::unique_ptr<oxaIO::OxaObjects> objects;
    QString error;
    QByteArray errors;

    ~Imported() {
        objects.reset();
        mesh3D::Surface::DeleteGlobalQSColumnObject(&system);
        mesh3D::Material::DeleteGlobalQSColumnMaterial(&system);
        mesh3D::Material::DeleteGlobalMaterials(&system);
    }

    bool run(const QString& path, double scale = 1.0) {
        OutputCapture capture(stderr);
        objects.reset(oxa::DataIO_3ds::import_file(&system, &messages, path, scale, &error));
        errors = capture.text();
        return objects != nullptr;
    }

    mesh3D::Container* root() const {
        const auto& containers = objects->ObjectSection().GetContainers();
        return containers.empty() ? nullptr : dynamic_cast<mesh3D::Container*>(containers.front());
    }

    QList<mesh3D::Material*> materials() const {
        QList<mesh3D::Material*> out;
        for (oxaIO::IMaterial* material : objects->ObjectSection().GetMaterials())
            out.append(dynamic_cast<mesh3D::Material*>(material));
        return out;
    }
};

/// Writes `bytes` to a file named `name` in `folder` and imports it.
bool import_bytes(Imported& imported, const QTemporaryDir& folder, const QByteArray& bytes,
                  double scale = 1.0, const QString& name = QStringLiteral("model.3ds")) {
    const QString path = folder.filePath(name);
    return fixture::WriteFile(path, bytes) && imported.run(path, scale);
}

/// The tree below `container` as text: each element's name, children in brackets.
QString tree(const mesh3D::Element* element) {
    QString text = element->name();
    if (element->is_type(mesh3D::TYPE_CONTAINER)) {
        const auto* container = static_cast<const mesh3D::Container*>(element);
        QStringList children;
        for (const mesh3D::Element* child : container->children())
            children << tree(child);
        text += "[" + children.join(", ") + "]";
    }
    return text;
}

void collect_surfaces(const mesh3D::Container* container, QList<mesh3D::Object3D*>& out) {
    for (mesh3D::Element* child : container->children()) {
        if (child->is_type(mesh3D::TYPE_CONTAINER))
            collect_surfaces(static_cast<mesh3D::Container*>(child), out);
        else if (auto* surface = dynamic_cast<mesh3D::Object3D*>(child))
            out.append(surface);
    }
}

QList<mesh3D::Object3D*> surfaces_of(const Imported& imported) {
    QList<mesh3D::Object3D*> out;
    if (imported.root())
        collect_surfaces(imported.root(), out);
    return out;
}

} // namespace

class tst_3ds : public QObject {
    Q_OBJECT
private slots:
    void two_triangle_mesh_with_material_and_texture();
    void messages_and_progress();
    void tree_with_and_without_a_keyframer_data();
    void tree_with_and_without_a_keyframer();
    void face_index_beyond_the_vertex_list_uses_vertex_zero();
    void unknown_material_gets_the_fallback();
    void face_materials_inside_or_beside_the_face_list_data();
    void face_materials_inside_or_beside_the_face_list();
    void hostile_lengths_end_the_read_cleanly_data();
    void hostile_lengths_end_the_read_cleanly();
    void every_cut_of_a_file_reads_what_was_whole();
    void missing_file_gives_null_and_a_text();
    void import_into_a_project_root();
    void repeated_import_makes_new_names();
    void shared_files_match_their_references();
};

void tst_3ds::two_triangle_mesh_with_material_and_texture() {
    QTemporaryDir folder;
    Imported imported;
    QVERIFY(import_bytes(imported, folder, file(red_material() + quad_object()), 2.0));

    const oxaIO::ExportContext& context = imported.objects->Context();
    QCOMPARE(basic::FromStdString(context.ProjectID() + L" | " + context.OriginFileName() + L" | " +
                                  context.CreatedBy() + L" | " + context.SourceApp() + L" | " +
                                  context.SourceFormat()),
             "model.3ds | " + folder.filePath("model.3ds") + " | 3dsToOxa | unknown | 3ds");

    QCOMPARE(tree(imported.root()), QString("model.3ds[model.3ds::Plane]"));
    const QList<mesh3D::Object3D*> surfaces = surfaces_of(imported);
    QCOMPARE(surfaces.size(), 1);
    mesh3D::Object3D* plane = surfaces.first();
    QCOMPARE(plane->triangles().size(), 2);
    QCOMPARE(plane->vertices().count(), 4); // corners of both faces are welded again
    // Sorted by area (equal here), scaled by two.
    QSet<QString> corners;
    for (mesh3D::Triangle* triangle : plane->triangles())
        for (int c = 0; c < 3; ++c)
            corners << QString("%1 %2 %3")
                           .arg(triangle->vertex(c)->x())
                           .arg(triangle->vertex(c)->y())
                           .arg(triangle->vertex(c)->z());
    QCOMPARE(corners, (QSet<QString>{"0 0 0", "2 0 0", "2 2 0", "0 2 0"}));
    QCOMPARE(plane->triangles().first()->normal().z, 1.0);

    const QList<mesh3D::Material*> materials = imported.materials();
    QCOMPARE(materials.size(), 1);
    mesh3D::Material* red = materials.first();
    QCOMPARE(plane->material(), red);
    QCOMPARE(fixture::MaterialSummary(*red),
             QString("model.3ds::Red | 128 64 255 1 | 255 255 255 1 | 255 0 51 1 | trans 0.25 | shine 0.5 | wall.jpg"));

    // One texture coordinate per corner, following the triangles.
    const QVector<model::mapCoordsType> mapped = imported.system.mapping_coordinates().value(plane);
    QCOMPARE(mapped.size(), 6);
    for (int t = 0; t < 2; ++t) {
        for (int c = 0; c < 3; ++c) {
            const mesh3D::Vertex* v = plane->triangles().at(t)->vertex(c);
            QCOMPARE(mapped.at(3 * t + c).u, v->x() / 2);
            QCOMPARE(mapped.at(3 * t + c).v, v->y() / 2);
        }
    }
    QVERIFY(imported.errors.isEmpty());
}

void tst_3ds::messages_and_progress() {
    QTemporaryDir folder;
    Imported imported;
    QSignalSpy messages(&imported.messages, &basic::MessageService::message);
    QSignalSpy progress(&imported.messages, &basic::MessageService::progress);
    QVERIFY(import_bytes(imported, folder,
                         file(red_material() + material("Other") + quad_object("A") + quad_object("B"),
                              keyframer(node(0, "A", 0xFFFF)))));
    QStringList texts;
    for (const QList<QVariant>& call : qAsConst(messages))
        texts << call.at(0).toString();
    QCOMPARE(texts,
             (QStringList{"3ds: import file " + folder.filePath("model.3ds"), "3ds Version : 3 ",
                          "3ds: read materials ...", "3ds: read objects ...", "3ds: read model structure ...",
                          "3ds: updating surfaces ...", "3ds: updating surfaces. ok.",
                          "3ds: building tree ...", "3ds: building tree. ok."}));
    QList<double> values;
    for (const QList<QVariant>& call : qAsConst(progress))
        values << call.at(0).toDouble();
    QVERIFY(!values.isEmpty());
    QVERIFY(std::is_sorted(values.begin(), values.end()));
    QCOMPARE(values.last(), 1.0);
    const auto reaches = [&values](double mark) {
        return std::any_of(values.begin(), values.end(),
                           [mark](double v) { return std::abs(v - mark) < 1e-12; });
    };
    QVERIFY(reaches(0.5)); // reading ends at half
    QVERIFY(reaches(0.8)); // the surfaces end at 0.8
    QVERIFY(values.first() > 0.0 && values.first() <= 0.5);
}

void tst_3ds::tree_with_and_without_a_keyframer_data() {
    QTest::addColumn<QString>("sample");
    QTest::addColumn<QString>("tree");
    QTest::newRow("keyframer") << "keyframer tree two levels deep"
                               << "model.3ds[model.3ds::Group[model.3ds::A, model.3ds::Sub[model.3ds::C]], "
                                  "model.3ds::B, model.3ds::D]";
    QTest::newRow("no keyframer: surfaces under the root")
        << "no keyframer" << QString("model.3ds[model.3ds::One, model.3ds::Two]");
}

void tst_3ds::tree_with_and_without_a_keyframer() {
    QFETCH(QString, sample);
    QTemporaryDir folder;
    Imported imported;
    QVERIFY(import_bytes(imported, folder, sample_files().value(sample)));
    QTEST(tree(imported.root()), "tree");
    // Parents are linked back.
    for (mesh3D::Object3D* surface : surfaces_of(imported))
        QVERIFY(surface->Parent()->children().contains(surface));
}

void tst_3ds::face_index_beyond_the_vertex_list_uses_vertex_zero() {
    QTemporaryDir folder;
    Imported imported;
    const QByteArray body = vertices({{5, 5, 5}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}}) +
                            faces({{1, 2, 3}, {1, 9, 2}, {65535, 3, 4}}, face_material("Red", {0, 1, 2}));
    QVERIFY(import_bytes(imported, folder, file(red_material() + object("Bad", body))));
    QCOMPARE(imported.errors, QByteArray("+++++++ fehler [b] 9 >= 4 \n+++++++ fehler [a] 65535 >= 4 \n"
                                         "+++++++ fehler [c] 4 >= 4 \n"));
    const QList<mesh3D::Object3D*> surfaces = surfaces_of(imported);
    QCOMPARE(surfaces.size(), 1);
    QCOMPARE(surfaces.first()->triangles().size(), 3);
    int at_vertex_zero = 0;
    for (mesh3D::Triangle* triangle : surfaces.first()->triangles())
        for (int c = 0; c < 3; ++c)
            at_vertex_zero += triangle->vertex(c)->x() == 5.0 ? 1 : 0;
    QCOMPARE(at_vertex_zero, 3);
}

void tst_3ds::face_materials_inside_or_beside_the_face_list_data() {
    QTest::addColumn<QByteArray>("mesh");
    const QByteArray corners = vertices({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}});
    const QByteArray in_list = faces({{0, 1, 2}}, face_material("Red", {0}));
    QTest::newRow("inside the face list") << corners + in_list;
    QTest::newRow("beside it, in the mesh") << corners + faces({{0, 1, 2}}) + face_material("Red", {0});
    QTest::newRow("after unknown chunks, which are skipped")
        << corners + chunk(0x4160, QByteArray(48, '\x7f')) + chunk(0x1234, QByteArray(5, '\0')) + in_list;
}

void tst_3ds::face_materials_inside_or_beside_the_face_list() {
    QFETCH(QByteArray, mesh);
    QTemporaryDir folder;
    Imported imported;
    QVERIFY(import_bytes(imported, folder, file(red_material() + object("Plane", mesh))));
    const QList<mesh3D::Object3D*> surfaces = surfaces_of(imported);
    QCOMPARE(surfaces.size(), 1);
    QCOMPARE(surfaces.first()->triangles().size(), 1);
    QVERIFY(surfaces.first()->material());
    QCOMPARE(surfaces.first()->material()->name(), QString("model.3ds::Red"));
}

void tst_3ds::unknown_material_gets_the_fallback() {
    QTemporaryDir folder;
    Imported imported;
    QVERIFY(
        import_bytes(imported, folder,
                     file(red_material() + quad_object("Plane", "Missing") +
                          object("Bare", vertices({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}) + faces({{0, 1, 2}})))));
    QCOMPARE(imported.errors, QByteArray("3ds: ERROR: could not find material [Missing] \n"
                                         "3ds: ERROR: could not find material [] \n"));
    const QList<mesh3D::Object3D*> surfaces = surfaces_of(imported);
    QCOMPARE(surfaces.size(), 2);
    mesh3D::Material* fallback = surfaces.at(0)->material();
    QCOMPARE(surfaces.at(1)->material(), fallback);
    QCOMPARE(fallback->id(), QString("dummy"));
    QCOMPARE(fallback->name(), QString("model.3ds-dummyMat"));
    // The fallback belongs to the system's table, not to the document.
    QCOMPARE(imported.materials().size(), 1);
}

void tst_3ds::hostile_lengths_end_the_read_cleanly_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("tree");
    QTest::addColumn<int>("materials");
    const QByteArray good = red_material() + quad_object("Good");
    const QByteArray verts = vertices({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
    // Most broken files keep only what stood before the damage: the good object and its material.
    const auto row = [](const char* name, const QByteArray& bytes,
                        const QString& tree = "model.3ds[model.3ds::Good]",
                        int materials = 1) { QTest::newRow(name) << bytes << tree << materials; };
    row("zero length", file(good + raw_chunk(0x4000, 0, text("X")) + quad_object("Late")));
    row("length smaller than its head", file(good + raw_chunk(0x4000, 3, text("X")) + quad_object("Late")));
    row("length smaller than its head inside a mesh",
        file(good + object("Broken", verts + raw_chunk(0x4120, 5, u16(0))) + quad_object("Late")));
    row("chunk past its parent", file(good + object("Broken", verts + raw_chunk(0x4140, 4000, u16(0)))));
    // A chunk cut by the end of the file is read as far as it goes: what is whole there stays.
    row("chunk past the file", file(good) + raw_chunk(0x4D4D, 100000, quad_object("Whole")),
        "model.3ds[model.3ds::Good, model.3ds::Whole]");
    row("vertex count larger than the data",
        file(good + object("Broken", chunk(0x4110, u16(60000) + f32(1) + f32(2) + f32(3)))));
    row("face count larger than the data",
        file(good + object("Broken", verts + chunk(0x4120, u16(500) + u16(0) + u16(1) + u16(2) + u16(0)))));
    row("texture count larger than the data",
        file(good + object("Broken", verts + chunk(0x4140, u16(3) + f32(0) + f32(0)))));
    row("object name without zero", file(good + chunk(0x4000, QByteArray(200, 'n') + chunk(0x4100, verts))));
    row("object name cut by its chunk", file(good + chunk(0x4000, QByteArray("abc"))));
    row("map name without zero",
        file(good +
             chunk(0xAFFF, chunk(0xA000, text("M")) + chunk(0xA200, chunk(0xA300, QByteArray(40, 'm'))))),
        "model.3ds[model.3ds::Good]", 2);
    row("colour chunk past its parent",
        file(good + chunk(0xAFFF, chunk(0xA000, text("M")) + chunk(0xA010, raw_chunk(0x0010, 60, f32(1))))),
        "model.3ds[model.3ds::Good]", 2);
    row("node name without zero", file(good, keyframer(chunk(0xB002, chunk(0xB010, QByteArray(64, 'k'))))));
    row("empty file", QByteArray(), "model.3ds[]", 0);
    row("five bytes", QByteArray("\x4d\x4d\x10\x00\x00", 5), "model.3ds[]", 0);
}

void tst_3ds::hostile_lengths_end_the_read_cleanly() {
    QFETCH(QByteArray, bytes);
    QTemporaryDir folder;
    Imported imported;
    QVERIFY(import_bytes(imported, folder, bytes));
    QTEST(tree(imported.root()), "tree");
    QTEST(imported.materials().size(), "materials");
}

void tst_3ds::every_cut_of_a_file_reads_what_was_whole() {
    // A file cut after every byte: the import ends cleanly, and an object appears only whole.
    const QByteArray whole = file(red_material() + quad_object("A") + quad_object("B"),
                                  keyframer(node(0, "A", 0xFFFF) + node(1, "B", 0)));
    QTemporaryDir folder;
    for (int size = 0; size <= whole.size(); ++size) {
        Imported imported;
        QVERIFY(import_bytes(imported, folder, whole.left(size)));
        for (mesh3D::Object3D* surface : surfaces_of(imported)) {
            QCOMPARE(surface->triangles().size(), 2);
            QCOMPARE(imported.system.mapping_coordinates().value(surface).size(), 6);
        }
    }
    Imported imported;
    QVERIFY(import_bytes(imported, folder, whole));
    QCOMPARE(tree(imported.root()), QString("model.3ds[model.3ds::A, model.3ds::B]"));
}

void tst_3ds::missing_file_gives_null_and_a_text() {
    Imported imported;
    QSignalSpy messages(&imported.messages, &basic::MessageService::message);
    QVERIFY(!imported.run("/nonexistent/folder/none.3ds"));
    QCOMPARE(imported.error, QString("3ds: could not open file [/nonexistent/folder/none.3ds]"));
    QCOMPARE(messages.last().at(0).toString(), imported.error);
}

void tst_3ds::import_into_a_project_root() {
    QTemporaryDir folder;
    const QString path = folder.filePath("model.3ds");
    QVERIFY(fixture::WriteFile(path, sample_files().value("no keyframer")));
    oxa::OxaRoot root(false);
    QString error;
    QVERIFY(!oxa::DataIO_3ds::import_file(&root, folder.filePath("none.3ds"), 1.0, &error));
    QVERIFY(root.OxaObjectsList().isEmpty());
    QVERIFY(root.RootContainer()->children().isEmpty());

    oxaIO::OxaObjects* document = oxa::DataIO_3ds::import_file(&root, path, 1.0, &error);
    QVERIFY2(document, qPrintable(error));
    QCOMPARE(root.OxaObjectsList(), QList<oxaIO::OxaObjects*>{document});
    const QList<mesh3D::Element*>& top = root.RootContainer()->children();
    QCOMPARE(top.size(), 1);
    QCOMPARE(tree(top.first()), QString("model.3ds[model.3ds::One, model.3ds::Two]"));
}

void tst_3ds::repeated_import_makes_new_names() {
    QTemporaryDir folder;
    Imported imported;
    QVERIFY(import_bytes(imported, folder, file(red_material() + quad_object())));
    std::unique_ptr<oxaIO::OxaObjects> first = std::move(imported.objects);
    QVERIFY(import_bytes(imported, folder, file(red_material() + quad_object())));
    const QList<mesh3D::Object3D*> surfaces = surfaces_of(imported);
    QCOMPARE(surfaces.size(), 1);
    QVERIFY(surfaces.first()->id().endsWith("::model.3ds::Plane")); // prefixed, so not the first's
    // Materials take fresh identifiers, so both imports keep their own.
    mesh3D::Material* red = imported.materials().first();
    QCOMPARE(red->name(), QString("model.3ds::Red"));
    QVERIFY(red != dynamic_cast<mesh3D::Material*>(first->ObjectSection().GetMaterials().front()));
    first.reset();
}

void tst_3ds::shared_files_match_their_references() {
    const QDir folder(QStringLiteral(ZENTRA_SHARED_DATA "/3ds"));
    if (!folder.exists())
        QSKIP("no shared 3DS files");
    const QStringList references = folder.entryList({"*.reference.json"}, QDir::Files, QDir::Name);
    QVERIFY(!references.isEmpty());
    for (const QString& reference_name : references) {
        const QJsonObject reference = QJsonDocument::fromJson(fixture::ReadFile(folder.filePath(reference_name))).object();
        const QString file_name = reference.value("file").toString();
        const QJsonObject summary = reference.value("summary").toObject();
        Imported imported;
        QVERIFY2(imported.run(folder.filePath(file_name)), qPrintable(file_name));
        const QString prefix = file_name + "::";

        // Meshes in file order: names, face counts and the material of the last group.
        const QJsonArray meshes = summary.value("meshes").toObject().value("list").toArray();
        QList<mesh3D::Object3D*> surfaces = surfaces_of(imported);
        std::sort(surfaces.begin(), surfaces.end(), [](mesh3D::Object3D* a, mesh3D::Object3D* b) {
            return a->id().section("::", -1) < b->id().section("::", -1);
        });
        QStringList expected, actual;
        for (const QJsonValue& value : meshes) {
            const QJsonObject mesh = value.toObject();
            const QJsonArray groups = mesh.value("face_materials").toArray();
            expected << QString("%1 %2 %3")
                            .arg(prefix + mesh.value("name").toString())
                            .arg(mesh.value("faces").toInt())
                            .arg(groups.isEmpty() ? file_name + "-dummyMat"
                                                  : prefix + groups.last().toString());
        }
        for (mesh3D::Object3D* surface : surfaces)
            actual << QString("%1 %2 %3")
                          .arg(surface->name())
                          .arg(surface->triangles().size())
                          .arg(surface->material()->name());
        expected.sort();
        actual.sort();
        QCOMPARE(actual, expected);

        // Materials: names, colours and percentages (within the reference's four digits) and the
        // texture map, whose TIFF names turn JPEG.
        QMap<QString, QJsonObject> expected_materials;
        for (const QJsonValue& value : summary.value("materials").toObject().value("list").toArray())
            expected_materials.insert(prefix + value.toObject().value("name").toString(), value.toObject());
        QStringList material_names;
        for (mesh3D::Material* material : imported.materials()) {
            material_names << material->name();
            const QJsonObject entry = expected_materials.value(material->name());
            const QJsonObject colours = entry.value("lib3ds_colours_0to1").toObject();
            const auto check = [&](const char* key, const basic::color4& actual) {
                const QJsonArray rgb = colours.value(key).toArray();
                const float parts[3] = {actual.r, actual.g, actual.b};
                for (int i = 0; i < 3; ++i)
                    QVERIFY2(std::abs(parts[i] - rgb.at(i).toDouble()) < 1e-3,
                             qPrintable(material->name() + " " + key));
            };
            check("ambient", material->ambient());
            check("diffuse", material->diffuse());
            check("specular", material->specular());
            QVERIFY(std::abs(material->shininess() - entry.value("lib3ds_shininess_0to1").toDouble()) < 1e-3);
            QVERIFY(std::abs(material->transparency() - entry.value("lib3ds_transparency_0to1").toDouble()) <
                    1e-3);
            QString map = entry.value("maps").toObject().value("texture1 (0xA200)").toString();
            if (map.endsWith(".tif") || map.endsWith(".TIF"))
                map = map.left(map.size() - 4) + ".jpg";
            QCOMPARE(material->texture_filename(), map);
        }
        material_names.sort();
        QCOMPARE(material_names, QStringList(expected_materials.keys()));
    }
    // The malformed files end cleanly.
    for (const QString& bad : QDir(folder.filePath("bad")).entryList({"*.3ds"}, QDir::Files)) {
        Imported imported;
        QVERIFY2(imported.run(folder.filePath("bad/" + bad)), qPrintable(bad));
    }
}

QTEST_GUILESS_MAIN(tst_3ds)
#include "tst_3ds.moc"
