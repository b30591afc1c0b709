#pragma once

// A model read from a document: the system, the reader and its result, torn down in the order
// the model needs (document with its tree and materials, then the system's shared materials,
// then the system).

#include "mesh3D/Container.h"
#include "mesh3D/Material.h"
#include "mesh3D/Object3D.h"
#include "model/System.h"
#include "oxa/OxaXmlReader.h"
#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaObjects.h"
#include "support/Files.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace fixture {

/// The text of a document: `objects` with an object section of `unit` holding `objectSection`,
/// then `rest` (further sections).
inline QByteArray Document(const QByteArray& objectSection, const QByteArray& rest = {},
                           const QByteArray& unit = "m") {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<objects projectID="P-1" createdBy="tests" sourceApp="tst 1.0" sourceFormat="hand made" created="2024-06-01T12:00:00" oxaversion="1.5">
<objectSection unit=")" +
           unit + R"(" version="1.5">)" + objectSection + "</objectSection>" + rest + "</objects>";
}

/// The text of a written document without its "created" stamp, which is the writer's clock.
inline QByteArray WithoutCreated(QByteArray text) {
    const int start = text.indexOf(" created=\"");
    return start < 0 ? text : text.remove(start, text.indexOf('"', start + 10) - start + 1);
}

inline QString S(const std::wstring& text) {
    return QString::fromStdWString(text);
}

/// The identifiers of a container's children, in order; `element` must be a container.
inline QStringList Children(const model::Object* element) {
    QStringList ids;
    for (const mesh3D::Element* child : dynamic_cast<const mesh3D::Container&>(*element).children())
        ids << child->id();
    return ids;
}

/// A material in one line: name; diffuse, specular and ambient colour (channels 0 to 255, then
/// alpha); transparency, shininess and texture file.
inline QString MaterialSummary(const mesh3D::Material& m) {
    const auto colour = [](const basic::color4& c) {
        return QString("%1 %2 %3 %4").arg(qRound(c.r * 255)).arg(qRound(c.g * 255)).arg(qRound(c.b * 255)).arg(c.a);
    };
    return QString("%1 | %2 | %3 | %4 | trans %5 | shine %6 | %7")
        .arg(m.name(), colour(m.diffuse()), colour(m.specular()), colour(m.ambient()))
        .arg(m.transparency())
        .arg(m.shininess())
        .arg(m.texture_filename());
}

struct Model {
    model::System system{false};
    std::unique_ptr<oxa::OxaXmlReader> reader{new oxa::OxaXmlReader(&system)};
    /// Every result taken from the reader, deleted at the end.
    QList<oxaIO::OxaObjects*> documents;

    ~Model() {
        for (oxaIO::OxaObjects* document : documents)
            oxa::OxaXmlReader::DeleteOXAResult(document);
        reader.reset();
        mesh3D::Material::DeleteGlobalMaterials(&system);
    }

    /// Reads the file and takes the result; null when the read failed.
    oxaIO::OxaObjects* Read(const QString& path, QString* error = nullptr) {
        QString text;
        const bool ok = reader->ReadOxaXmlFile(path, &text);
        documents.append(reader->GetOXAResult());
        if (error)
            *error = text;
        return ok ? documents.last() : nullptr;
    }

    template <typename T> T* Find(const QString& id) { return dynamic_cast<T*>(system.object(id)); }
    mesh3D::Object3D* Object(const QString& id) { return Find<mesh3D::Object3D>(id); }
    mesh3D::Container* Container(const QString& id) { return Find<mesh3D::Container>(id); }
    mesh3D::Material* Material(const QString& id) { return Find<mesh3D::Material>(id); }
};

} // namespace fixture
