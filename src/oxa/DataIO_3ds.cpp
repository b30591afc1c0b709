#include "oxa/DataIO_3ds.h"

#include "basic/MessageService.h"
#include "basic/identifier.h"
#include "basic/text.h"
#include "mesh3D/Container.h"
#include "mesh3D/Material.h"
#include "mesh3D/Object3D.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"
#include "model/System.h"
#include "oxa/OxaRoot.h"
#include "oxa/Stream3ds.h"
#include "oxaIO/ExportContext.h"
#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaObjects.h"

#include <QHash>
#include <QSet>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace oxa {

namespace {

enum chunk_id : unsigned short {
    MAIN = 0x4D4D,
    EDITOR = 0x3D3D,
    MESH_VERSION = 0x3D3E,
    NAMED_OBJECT = 0x4000,
    TRIANGLE_MESH = 0x4100,
    VERTEX_LIST = 0x4110,
    FACE_LIST = 0x4120,
    FACE_MATERIAL = 0x4130,
    TEXTURE_COORDINATES = 0x4140,
    MATERIAL = 0xAFFF,
    MATERIAL_NAME = 0xA000,
    AMBIENT = 0xA010,
    DIFFUSE = 0xA020,
    SPECULAR = 0xA030,
    SHININESS = 0xA040,
    TRANSPARENCY = 0xA050,
    TEXTURE_MAP = 0xA200,
    MAP_FILE_NAME = 0xA300,
    KEYFRAMER = 0xB000,
    OBJECT_NODE_TAG = 0xB002,
    NODE_HEADER = 0xB010,
    INSTANCE_NAME = 0xB011,
    NODE_NUMBER = 0xB030,
    COLOR_FLOAT = 0x0010,
    COLOR_BYTES = 0x0011,
    COLOR_BYTES_GAMMA = 0x0012,
    COLOR_FLOAT_GAMMA = 0x0013,
    PERCENTAGE_INT = 0x0030
};

const unsigned short ROOT_PARENT = 0xFFFF;
const unsigned int OBJECT_NAME_BYTES = 120;
const unsigned int SHORT_NAME_BYTES = 30;

/// The state of the one import that runs.
struct Import {
    Stream3ds stream;
    basic::MessageService* messages = nullptr;
    QString prefix;
    mesh3D::Container* root = nullptr;
    mesh3D::Material* fallback = nullptr;
    /// By name in the file; the first of a name wins, as identifiers do in a system.
    QHash<QString, mesh3D::Material*> materials;
    QHash<QString, mesh3D::Element*> objects;
    /// Everything made, in reading order, so that nothing of a repeated name is lost.
    QList<mesh3D::Material*> material_order;
    QList<mesh3D::Element*> object_order;
    QList<DataIO_3ds::node_type> nodes;
    DataIO_3ds::obj_type* current = nullptr;
    basic::color4 color{0.0f, 0.0f, 0.0f, 1.0f};
    bool told_objects = false;
    bool told_materials = false;
    bool told_structure = false;
};

Import& state() {
    static Import import;
    return import;
}

void reset_state() {
    Import& s = state();
    s.stream.close();
    s.messages = nullptr;
    s.prefix.clear();
    s.root = nullptr;
    s.fallback = nullptr;
    s.materials.clear();
    s.objects.clear();
    s.material_order.clear();
    s.object_order.clear();
    s.nodes.clear();
    delete s.current;
    s.current = nullptr;
    s.color = basic::color4{0.0f, 0.0f, 0.0f, 1.0f};
    s.told_objects = s.told_materials = s.told_structure = false;
}

void tell(const QString& text) {
    if (state().messages)
        state().messages->send_message(text);
}

void progress(double value) {
    if (state().messages)
        state().messages->show_progress(value, QString());
}

/// The prefix, "::" and the name; a name the system already holds gets a new identifier and
/// "::" in front, so that a second import of the same file makes new elements.
QString element_name(model::System* system, const QString& name_in_file) {
    const QString name = state().prefix + QStringLiteral("::") + name_in_file;
    return system->object_exists(name) ? basic::create_ID() + QStringLiteral("::") + name : name;
}

/// Reads `count` records of `record_bytes` each in one go; a count larger than the chunk can
/// hold breaks the stream before anything is allocated.
bool read_records(QByteArray& raw, unsigned int count, unsigned int record_bytes, unsigned int end) {
    Stream3ds& stream = state().stream;
    const unsigned long long bytes = static_cast<unsigned long long>(count) * record_bytes;
    const unsigned int room = end > stream.position() ? end - stream.position() : 0;
    if (bytes > room || stream.position() + bytes > stream.size()) {
        stream.fail();
        return false;
    }
    raw.resize(static_cast<int>(bytes));
    return stream.bytes(raw.data(), static_cast<unsigned int>(bytes), end);
}

float float_at(const char* data) {
    const quint32 bits = qFromLittleEndian<quint32>(data);
    float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

void read_vertices(unsigned int end, double scale) {
    unsigned short count = 0;
    QByteArray raw;
    if (!state().stream.u16(count, end) || !read_records(raw, count, 12, end))
        return;
    QVector<DataIO_3ds::point3>& vertices = state().current->vertices;
    vertices.resize(count);
    for (int i = 0; i < count; ++i) {
        const char* p = raw.constData() + 12 * i;
        vertices[i] =
            DataIO_3ds::point3{float_at(p) * scale, float_at(p + 4) * scale, float_at(p + 8) * scale};
    }
}

/// An object has one material: each material group names it, without its face numbers, and the
/// last group's name stands. Writers put the groups inside the face list or beside it in the
/// mesh; both places are read alike.
void read_face_material(DataIO_3ds::obj_type& object, unsigned int end) {
    state().stream.name(object.material, SHORT_NAME_BYTES, end);
}

void read_faces(unsigned int end) {
    static const char* const corner_error[3] = {
        "+++++++ fehler [a] %d >= %d \n", "+++++++ fehler [b] %d >= %d \n", "+++++++ fehler [c] %d >= %d \n"};
    unsigned short count = 0;
    QByteArray raw;
    if (!state().stream.u16(count, end) || !read_records(raw, count, 8, end))
        return;
    DataIO_3ds::obj_type& object = *state().current;
    const int vertex_count = object.vertices.size();
    object.faces.reserve(object.faces.size() + count);
    for (int i = 0; i < count; ++i) {
        const char* p = raw.constData() + 8 * i;
        DataIO_3ds::face_type face;
        for (int c = 0; c < 3; ++c) {
            unsigned short index = qFromLittleEndian<quint16>(p + 2 * c);
            // A bad index is drawn with the first vertex, so the face keeps its place.
            if (index >= vertex_count) {
                std::fprintf(stderr, corner_error[c], int(index), vertex_count);
                index = 0;
            }
            face.index[c] = index;
        }
        // Without any vertex there is no point to draw a face with.
        if (vertex_count > 0)
            object.faces.append(face);
    }
    // The face list's own sub-chunks follow: material groups, smoothing groups.
    Stream3ds& stream = state().stream;
    while (stream.before(end)) {
        Chunk3ds head;
        if (!stream.chunk(head, end))
            break;
        if (head.id == FACE_MATERIAL)
            read_face_material(object, head.end);
        stream.seek(head.limit);
    }
}

void read_texture_coordinates(unsigned int end) {
    unsigned short count = 0;
    QByteArray raw;
    if (!state().stream.u16(count, end) || !read_records(raw, count, 8, end))
        return;
    auto& coordinates = state().current->texture_coordinates;
    coordinates.reserve(coordinates.size() + count);
    for (int i = 0; i < count; ++i) {
        const char* p = raw.constData() + 8 * i;
        coordinates.append(qMakePair<double, double>(float_at(p), float_at(p + 4)));
    }
}

/// The texture coordinates of each corner in face order, when the mesh has one pair per vertex.
void map_texture_coordinates(model::System* system, mesh3D::Object3D* surface,
                             const DataIO_3ds::obj_type& object) {
    if (object.texture_coordinates.isEmpty() || object.texture_coordinates.size() != object.vertices.size())
        return;
    QVector<model::mapCoordsType> corners;
    corners.reserve(object.faces.size() * 3);
    for (const DataIO_3ds::face_type& face : object.faces) {
        for (unsigned short index : face.index) {
            const QPair<double, double>& uv = object.texture_coordinates.at(index);
            corners.append(model::mapCoordsType{uv.first, uv.second});
        }
    }
    system->mapping_coordinates().insert(surface, corners);
}

/// True when `element` stands somewhere above `container`, or is it.
bool is_above(const mesh3D::Element* element, mesh3D::Container* container) {
    for (mesh3D::Container* c = container; c; c = c->Parent()) {
        if (c == element)
            return true;
    }
    return false;
}

/// Appends `element` to the children of `container` and links it back. An element is placed
/// once, and never below itself.
bool place(mesh3D::Container* container, mesh3D::Element* element, QSet<mesh3D::Element*>& placed) {
    if (placed.contains(element) || is_above(element, container))
        return false;
    if (auto* child = dynamic_cast<mesh3D::HierarchyElement*>(element))
        child->Parent(container);
    container->children().append(element);
    placed.insert(element);
    return true;
}

} // namespace

QStringList DataIO_3ds::supported_formats() const {
    return QStringList{QStringLiteral("*.3ds")};
}

oxaIO::OxaObjects* DataIO_3ds::import_file(OxaRoot* root, const QString& fileName, double scale,
                                           QString* errorText) {
    oxaIO::OxaObjects* objects = import_file(root->System(), root->MsgService(), fileName, scale, errorText);
    if (!objects)
        return nullptr;
    root->AddOxaObjects(objects);
    root->SyncObjectsToRootContainer();
    return objects;
}

oxaIO::OxaObjects* DataIO_3ds::import_file(model::System* system, basic::MessageService* messages,
                                           const QString& fileName, double scale, QString* errorText) {
    reset_state();
    Import& s = state();
    s.messages = messages;
    tell(QStringLiteral("3ds: import file ") + fileName);
    s.prefix = fileName.mid(fileName.lastIndexOf(QLatin1Char('/')) + 1);
    s.fallback = mesh3D::Material::GetGlobalMaterial(system, QStringLiteral("dummy"),
                                                     s.prefix + QStringLiteral("-dummyMat"));
    s.root = new mesh3D::Container(nullptr, system, element_name(system, QString()), s.prefix);
    if (load3ds(system, fileName, scale) != 0) {
        if (errorText)
            *errorText = QStringLiteral("3ds: could not open file [") + fileName + QStringLiteral("]");
        delete s.root;
        reset_state();
        return nullptr;
    }
    update_surfaces();
    build_tree(system);

    auto* objects = new oxaIO::OxaObjects;
    oxaIO::ExportContext& context = objects->Context();
    context.ProjectID(basic::ToStdString(s.prefix));
    context.OriginFileName(basic::ToStdString(fileName));
    context.CreatedBy(L"3dsToOxa");
    context.SourceApp(L"unknown");
    context.SourceFormat(L"3ds");
    objects->ObjectSection().AddContainer(s.root);
    for (mesh3D::Material* material : qAsConst(s.material_order))
        objects->ObjectSection().AddMaterial(material);
    reset_state();
    return objects;
}

int DataIO_3ds::load3ds(model::System* system, const QString& fileName, double scale) {
    Stream3ds& stream = state().stream;
    if (!stream.open(fileName)) {
        tell(QStringLiteral("3ds: could not open file [") + fileName + QStringLiteral("]"));
        return -1;
    }
    const unsigned int size = stream.size();
    // The file is no chunk with a length of its own: a chunk at the top that claims more than
    // the file holds is a cut-off file, read as far as it goes.
    const unsigned int unbounded = 0xFFFFFFFFu;
    while (stream.before(size)) {
        Chunk3ds head;
        if (!stream.chunk(head, unbounded))
            break;
        switch (head.id) {
        case MAIN:
        case EDITOR:
            continue; // their sub-chunks follow at once
        case MESH_VERSION: {
            unsigned int version = 0;
            if (stream.u32(version, head.end))
                tell(QString::asprintf("3ds Version : %d ", int(version)));
            break;
        }
        case NAMED_OBJECT:
            if (!state().told_objects) {
                tell(QStringLiteral("3ds: read objects ..."));
                state().told_objects = true;
            }
            read_EDIT_OBJECT(system, head.end, scale);
            break;
        case MATERIAL:
            if (!state().told_materials) {
                tell(QStringLiteral("3ds: read materials ..."));
                state().told_materials = true;
            }
            read_MAT_ENTRY(system, head.end, nullptr);
            break;
        case KEYFRAMER:
            if (!state().told_structure) {
                tell(QStringLiteral("3ds: read model structure ..."));
                state().told_structure = true;
            }
            read_KFDATA(head.end);
            break;
        default:
            break;
        }
        stream.seek(head.limit);
        progress(size ? 0.5 * stream.position() / size : 0.5);
    }
    stream.close();
    return 0;
}

void DataIO_3ds::read_EDIT_OBJECT(model::System* system, unsigned int end, double scale) {
    Import& s = state();
    Stream3ds& stream = s.stream;
    QString name;
    if (!stream.name(name, OBJECT_NAME_BYTES, end))
        return;
    while (stream.before(end)) {
        Chunk3ds head;
        if (!stream.chunk(head, end))
            break;
        if (head.id == TRIANGLE_MESH) {
            if (!s.current) {
                s.current = new obj_type;
                s.current->name = name;
            }
            continue; // the mesh's sub-chunks follow at once
        }
        if (!s.current) {
            stream.seek(head.limit);
            continue;
        }
        switch (head.id) {
        case VERTEX_LIST:
            read_vertices(head.end, scale);
            break;
        case FACE_LIST:
            read_faces(head.end);
            break;
        case TEXTURE_COORDINATES:
            read_texture_coordinates(head.end);
            break;
        case FACE_MATERIAL:
            read_face_material(*s.current, head.end);
            break;
        default:
            break;
        }
        stream.seek(head.limit);
    }
    // An object whose data broke off is not made: only what was read completely stays.
    if (s.current && !stream.broken()) {
        mesh3D::Object3D* surface = create_surface(system, *s.current);
        if (!s.objects.contains(name))
            s.objects.insert(name, surface);
        s.object_order.append(surface);
    }
    delete s.current;
    s.current = nullptr;
}

void DataIO_3ds::read_MAT_ENTRY(model::System* system, unsigned int end, mesh3D::Material* material) {
    Import& s = state();
    Stream3ds& stream = s.stream;
    while (stream.before(end)) {
        Chunk3ds head;
        if (!stream.chunk(head, end))
            break;
        if (head.id == TEXTURE_MAP)
            continue; // a container of the map's file name
        if (head.id == MATERIAL_NAME) {
            QString name;
            if (stream.name(name, head.end - stream.position(), head.end) && !material) {
                // A fresh identifier: a material often shares its name with a mesh of the file.
                material =
                    new mesh3D::Material(system, basic::create_ID(), s.prefix + QStringLiteral("::") + name);
                if (!s.materials.contains(name))
                    s.materials.insert(name, material);
                s.material_order.append(material);
            }
        } else if (material) {
            switch (head.id) {
            case AMBIENT:
                material->ambient(read_color(head.end));
                break;
            case DIFFUSE:
                material->diffuse(read_color(head.end));
                break;
            case SPECULAR:
                material->specular(read_color(head.end));
                break;
            case SHININESS:
                material->shininess(read_percentage(head.end));
                break;
            case TRANSPARENCY:
                material->transparency(read_percentage(head.end));
                break;
            case MAP_FILE_NAME: {
                QString file;
                if (stream.name(file, SHORT_NAME_BYTES, head.end)) {
                    // Textures are looked for as JPEG where the file names a TIFF.
                    if (file.endsWith(QLatin1String(".tif")) || file.endsWith(QLatin1String(".TIF")))
                        file = file.left(file.size() - 4) + QStringLiteral(".jpg");
                    material->texture_filename(file);
                }
                break;
            }
            default:
                break;
            }
        }
        stream.seek(head.limit);
    }
}

void DataIO_3ds::read_KFDATA(unsigned int end) {
    Stream3ds& stream = state().stream;
    while (stream.before(end)) {
        Chunk3ds head;
        if (!stream.chunk(head, end))
            break;
        if (head.id == OBJECT_NODE_TAG)
            read_OBJECT_NODE_TAG(head.end);
        stream.seek(head.limit);
    }
}

void DataIO_3ds::read_OBJECT_NODE_TAG(unsigned int end) {
    Import& s = state();
    Stream3ds& stream = s.stream;
    node_type node;
    node.number = static_cast<unsigned short>(s.nodes.size());
    QString instance;
    while (stream.before(end)) {
        Chunk3ds head;
        if (!stream.chunk(head, end))
            break;
        switch (head.id) {
        case NODE_HEADER: {
            unsigned short flags = 0;
            stream.name(node.name, SHORT_NAME_BYTES, head.end);
            stream.u16(flags, head.end);
            stream.u16(flags, head.end);
            stream.u16(node.parent, head.end);
            break;
        }
        case INSTANCE_NAME:
            stream.name(instance, SHORT_NAME_BYTES, head.end);
            break;
        case NODE_NUMBER:
            stream.u16(node.number, head.end);
            break;
        default:
            break;
        }
        stream.seek(head.limit);
    }
    if (stream.broken() || node.name.isEmpty())
        return;
    // Group nodes all carry the one name "$$$DUMMY"; their own name is the instance name.
    if (node.name == QLatin1String("$$$DUMMY") && !instance.isEmpty())
        node.name = instance;
    s.nodes.append(node);
}

mesh3D::Object3D* DataIO_3ds::create_surface(model::System* system, obj_type& object) {
    Import& s = state();
    const QString name = element_name(system, object.name);
    auto* surface = new mesh3D::Object3D(s.root, system, name, basic::unit_m, name);
    QVector<mesh3D::Vertex*> kept(object.vertices.size(), nullptr);
    for (const face_type& face : qAsConst(object.faces)) {
        mesh3D::Vertex* corners[3];
        for (int c = 0; c < 3; ++c) {
            mesh3D::Vertex*& corner = kept[face.index[c]];
            if (!corner) {
                const point3& p = object.vertices.at(face.index[c]);
                auto* vertex = new mesh3D::Vertex(p.x, p.y, p.z);
                corner = surface->add(vertex);
                if (corner != vertex)
                    delete vertex;
            }
            corners[c] = corner;
        }
        surface->add(new mesh3D::Triangle(corners[0], corners[1], corners[2]));
    }
    map_texture_coordinates(system, surface, object);
    mesh3D::Material* material = s.materials.value(object.material);
    if (!material) {
        std::fprintf(stderr, "3ds: ERROR: could not find material [%s] \n", qPrintable(object.material));
        material = s.fallback;
    }
    surface->material(material, true);
    return surface;
}

void DataIO_3ds::update_surfaces() {
    Import& s = state();
    tell(QStringLiteral("3ds: updating surfaces ..."));
    const double angle = 45.0 * M_PI / 180.0;
    const int count = s.object_order.size();
    for (int i = 0; i < count; ++i) {
        auto* surface = static_cast<mesh3D::Object3D*>(s.object_order.at(i));
        surface->update_normals();
        surface->correct_normals();
        surface->update_edges(angle);
        surface->sort_triangles();
        progress(0.5 + 0.3 * (i + 1) / count);
    }
    tell(QStringLiteral("3ds: updating surfaces. ok."));
}

void DataIO_3ds::build_tree(model::System* system) {
    Import& s = state();
    tell(QStringLiteral("3ds: building tree ..."));
    std::stable_sort(s.nodes.begin(), s.nodes.end(),
                     [](const node_type& a, const node_type& b) { return a.number < b.number; });
    QHash<int, const node_type*> by_number;
    for (const node_type& node : qAsConst(s.nodes)) {
        if (!by_number.contains(node.number))
            by_number.insert(node.number, &node);
    }
    QSet<mesh3D::Element*> placed;
    const int count = s.nodes.size();
    for (int i = 0; i < count; ++i) {
        const node_type& node = s.nodes.at(i);
        mesh3D::Element* element = s.objects.value(node.name);
        if (!element) {
            const QString name = element_name(system, node.name);
            element = new mesh3D::Container(s.root, system, name, name);
            s.objects.insert(node.name, element);
            s.object_order.append(element);
        }
        if (node.parent == ROOT_PARENT) {
            place(s.root, element, placed);
        } else if (const node_type* parent = by_number.value(node.parent)) {
            mesh3D::Element* parent_element = s.objects.value(parent->name);
            if (parent_element && parent_element->is_type(mesh3D::TYPE_CONTAINER))
                place(static_cast<mesh3D::Container*>(parent_element), element, placed);
        }
        progress(0.8 + 0.2 * (i + 1) / count);
    }
    for (mesh3D::Element* element : qAsConst(s.object_order))
        place(s.root, element, placed);
    progress(1.0);
    tell(QStringLiteral("3ds: building tree. ok."));
}

basic::color4 DataIO_3ds::read_color(unsigned int end) {
    Import& s = state();
    Stream3ds& stream = s.stream;
    Chunk3ds head;
    if (!stream.chunk(head, end))
        return s.color;
    switch (head.id) {
    case COLOR_FLOAT:
    case COLOR_FLOAT_GAMMA: {
        float r = 0, g = 0, b = 0;
        if (stream.f32(r, head.end) && stream.f32(g, head.end) && stream.f32(b, head.end))
            s.color = basic::color4{r, g, b, 1.0f};
        break;
    }
    case COLOR_BYTES:
    case COLOR_BYTES_GAMMA: {
        unsigned char rgb[3];
        if (stream.bytes(rgb, 3, head.end))
            s.color =
                basic::color4{float(rgb[0] / 255.0), float(rgb[1] / 255.0), float(rgb[2] / 255.0), 1.0f};
        break;
    }
    default:
        std::fputs("ReadColor - error this is not a color chunk\n", stderr);
        break;
    }
    return s.color;
}

double DataIO_3ds::read_percentage(unsigned int end) {
    Stream3ds& stream = state().stream;
    Chunk3ds head;
    unsigned short value = 0;
    if (!stream.chunk(head, end) || head.id != PERCENTAGE_INT || !stream.u16(value, head.end))
        return 0.0;
    return static_cast<short>(value) / 100.0;
}

void DataIO_3ds::export_file(const mesh3D::Container&, const QString&) {}

} // namespace oxa
