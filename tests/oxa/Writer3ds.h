#pragma once

// Builds 3DS files byte by byte for the import tests: each helper returns the bytes of one
// chunk (identifier, length including the six head bytes, body), so files nest as calls do.

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QtEndian>

#include <cstring>
#include <initializer_list>

namespace w3ds {

inline QByteArray u16(unsigned int value) {
    char raw[2];
    qToLittleEndian<quint16>(static_cast<quint16>(value), raw);
    return QByteArray(raw, 2);
}

inline QByteArray u32(unsigned int value) {
    char raw[4];
    qToLittleEndian<quint32>(value, raw);
    return QByteArray(raw, 4);
}

inline QByteArray f32(float value) {
    quint32 bits;
    std::memcpy(&bits, &value, 4);
    return u32(bits);
}

/// The text and its terminating zero.
inline QByteArray text(const char* value) {
    return QByteArray(value) + QByteArray(1, '\0');
}

/// A chunk whose length field says `length` whatever the body is.
inline QByteArray raw_chunk(unsigned int id, unsigned int length, const QByteArray& body) {
    return u16(id) + u32(length) + body;
}

inline QByteArray chunk(unsigned int id, const QByteArray& body) {
    return raw_chunk(id, 6 + body.size(), body);
}

inline QByteArray join(std::initializer_list<QByteArray> parts) {
    QByteArray all;
    for (const QByteArray& part : parts)
        all += part;
    return all;
}

struct xyz {
    float x, y, z;
};
struct tri {
    unsigned int a, b, c;
};

inline QByteArray vertices(std::initializer_list<xyz> points) {
    QByteArray body = u16(static_cast<unsigned int>(points.size()));
    for (const xyz& p : points)
        body += f32(p.x) + f32(p.y) + f32(p.z);
    return chunk(0x4110, body);
}

/// A face list; `inner` are its sub-chunks (face materials).
inline QByteArray faces(std::initializer_list<tri> list, const QByteArray& inner = QByteArray()) {
    QByteArray body = u16(static_cast<unsigned int>(list.size()));
    for (const tri& t : list)
        body += u16(t.a) + u16(t.b) + u16(t.c) + u16(0);
    return chunk(0x4120, body + inner);
}

/// A face material group naming `material` for the given faces.
inline QByteArray face_material(const char* material, std::initializer_list<unsigned int> face_numbers) {
    QByteArray body = text(material) + u16(static_cast<unsigned int>(face_numbers.size()));
    for (unsigned int f : face_numbers)
        body += u16(f);
    return chunk(0x4130, body);
}

inline QByteArray uv(std::initializer_list<std::pair<float, float>> pairs) {
    QByteArray body = u16(static_cast<unsigned int>(pairs.size()));
    for (const auto& p : pairs)
        body += f32(p.first) + f32(p.second);
    return chunk(0x4140, body);
}

inline QByteArray object(const char* name, const QByteArray& mesh_chunks) {
    return chunk(0x4000, text(name) + chunk(0x4100, mesh_chunks));
}

inline QByteArray color_float(float r, float g, float b) {
    return chunk(0x0010, f32(r) + f32(g) + f32(b));
}
inline QByteArray color_bytes(unsigned char r, unsigned char g, unsigned char b) {
    return chunk(0x0011, QByteArray(1, char(r)) + QByteArray(1, char(g)) + QByteArray(1, char(b)));
}
inline QByteArray percent(unsigned int value) {
    return chunk(0x0030, u16(value));
}

inline QByteArray material(const char* name, const QByteArray& inner = QByteArray()) {
    return chunk(0xAFFF, chunk(0xA000, text(name)) + inner);
}

inline QByteArray texture_map(const char* file) {
    return chunk(0xA200, percent(100) + chunk(0xA300, text(file)));
}

/// An object node: its number, name and parent number; `instance` for group nodes.
inline QByteArray node(unsigned int number, const char* name, unsigned int parent,
                       const char* instance = nullptr) {
    QByteArray body = chunk(0xB030, u16(number)) + chunk(0xB010, text(name) + u16(0) + u16(0) + u16(parent));
    if (instance)
        body += chunk(0xB011, text(instance));
    return chunk(0xB002, body);
}

inline QByteArray keyframer(const QByteArray& nodes) {
    return chunk(0xB000, nodes);
}

/// The whole file: the editor part (version, materials, objects) and the keyframer part.
inline QByteArray file(const QByteArray& editor, const QByteArray& after_editor = QByteArray()) {
    return chunk(0x4D4D,
                 chunk(0x0002, u32(3)) + chunk(0x3D3D, chunk(0x3D3E, u32(3)) + editor) + after_editor);
}

/// A quad of two triangles with texture coordinates, material `material_name` on both faces.
inline QByteArray quad_object(const char* name = "Plane", const char* material_name = "Red") {
    return object(name, vertices({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}) +
                            faces({{0, 1, 2}, {0, 2, 3}}, face_material(material_name, {0, 1})) +
                            uv({{0, 0}, {1, 0}, {1, 1}, {0, 1}}));
}

inline QByteArray red_material() {
    return material("Red", chunk(0xA010, color_bytes(255, 0, 51)) +
                               chunk(0xA020, color_float(0.5f, 0.25f, 1.0f)) +
                               chunk(0xA030, color_float(1, 1, 1)) + chunk(0xA040, percent(50)) +
                               chunk(0xA050, percent(25)) + texture_map("wall.tif"));
}

/// The whole files the import tests read, by what they show: every import of one of them must
/// survive a conversion whole.
inline QMap<QString, QByteArray> sample_files() {
    const QByteArray corners = vertices({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}});
    const QByteArray quad = vertices({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}) +
                            faces({{0, 1, 2}, {0, 2, 3}}, face_material("Stone", {0, 1}));
    // A group node (named by its instance) holds A and the group "Sub", which holds C; B hangs
    // below a surface, which holds nothing, and so ends under the root; D has no node at all.
    const QByteArray nodes = node(0, "$$$DUMMY", 0xFFFF, "Group") + node(1, "A", 0) + node(2, "Sub", 0) +
                             node(3, "C", 2) + node(4, "B", 1);
    return {
        {"keyframer tree two levels deep",
         file(red_material() + quad_object("A") + quad_object("B") + quad_object("C") + quad_object("D"),
              keyframer(nodes))},
        {"no keyframer", file(red_material() + quad_object("One") + quad_object("Two"))},
        {"face materials beside the face list",
         file(red_material() + object("Plane", corners + faces({{0, 1, 2}}) + face_material("Red", {0})))},
        {"two quads, one under a group",
         file(material("Stone", chunk(0xA020, color_float(0.5f, 0.5f, 0.5f))) + object("Left", quad) +
                  object("Right", quad),
              keyframer(node(0, "$$$DUMMY", 0xFFFF, "Group") + node(1, "Left", 0)))},
    };
}

} // namespace w3ds
