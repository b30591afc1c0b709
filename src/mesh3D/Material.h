#pragma once

#include "zentra_export.h"

#include "basic/color.h"
#include "mesh3D/Element.h"
#include "model/mapCoordsType.h"
#include "oxaIO/IMaterial.h"

#include <QHash>
#include <QVector>

namespace mesh3D {

class GeometricElement;
class QSColumnMaterial;

/// How a surface looks: colours, transparency, shininess and a texture. Materials are shared
/// between surfaces, which point to them without owning them; a per-system table finds or makes
/// them by identifier and owns those it made until `DeleteGlobalMaterials`.
class ZENTRA_EXPORT Material : public Element, public oxaIO::IMaterial {
public:
    explicit Material(model::System* system);
    Material(model::System* system, const QString& id, const QString& name);
    /// Sets the identifier and repository only; `init` must follow.
    Material(const QString& id, model::RepositoryP* repository);
    /// A new identifier with all the appearance of `other`, entered in the column.
    Material(const Material& other);
    Material& operator=(const Material&) = delete;
    /// Leaves the material column. The global table keeps its entry: a material of the table is
    /// deleted only through `DeleteGlobalMaterials`.
    ~Material() override;

    /// Opaque white in all three colours (alpha 0), no shininess, no texture; enters the
    /// material in the material column.
    void init();

    const QString& name() const { return _material_name; }
    void name(const QString& value) { _material_name = value; }
    const basic::color4& ambient() const { return _ambient; }
    void ambient(const basic::color4& color) { _ambient = color; }
    const basic::color4& diffuse() const { return _diffuse; }
    void diffuse(const basic::color4& color) { _diffuse = color; }
    const basic::color4& specular() const { return _specular; }
    void specular(const basic::color4& color) { _specular = color; }
    /// 0 is opaque.
    double transparency() const { return _transparency; }
    void transparency(double value) { _transparency = value; }
    double shininess() const { return _shininess; }
    void shininess(double value) { _shininess = value; }
    /// The texture's name in the graphics context; 0 when none is made.
    unsigned int texture() const { return _texture; }
    void texture(unsigned int name) { _texture = name; }
    const QString& texture_filename() const { return _texture_filename; }
    void texture_filename(const QString& file) { _texture_filename = file; }
    const QString& texture_path() const { return _texture_path; }
    void texture_path(const QString& path) { _texture_path = path; }
    /// The system's texture coordinates of all elements.
    QHash<GeometricElement*, QVector<model::mapCoordsType>>& mapping_coordinates();

    std::wstring ID() const override;
    std::wstring Name() const override;
    oxaIO::VColor4 Diffuse() const override;
    oxaIO::VColor4 Specular() const override;
    oxaIO::VColor4 Ambient() const override;
    double Transparency() const override;
    std::wstring TextureFileName() const override;

    /// The material of that identifier: from the system's table, else the object of that
    /// identifier if it is a material (which is not entered in the table), else a new one that
    /// the table keeps. A second call with other names returns the first material unchanged.
    /// Null when the identifier belongs to an object that is no material.
    static Material* GetGlobalMaterial(model::System* system, const QString& id, const QString& name);
    /// The stand-in material of surfaces without one, one per system.
    static Material* Dummy(model::System* system);
    /// Deletes every material of the system's table, and the table. Materials in the table must
    /// not be deleted any other way.
    static void DeleteGlobalMaterials(model::System* system);
    /// The system's material column, named "Material", made on first demand; null for a system
    /// without quick search.
    static mesh3D::QSColumnMaterial* QSColumnMaterial(model::System* system);
    /// The column if the system has one already; makes nothing.
    static mesh3D::QSColumnMaterial* existing_column(model::System* system);
    /// Deletes the system's material column.
    static void DeleteGlobalQSColumnMaterial(model::System* system);
    mesh3D::QSColumnMaterial* qs_column() const;

    ObjectType m_type() const override;
    /// A new material under the identifier found in the XML text, registered in `repository` and
    /// filled from the text (see `model::Object::activate_from_xmldata`).
    static Material* xml_to_object(model::RepositoryP* repository, const QString& xml);
    static long hashcode();
    long class_hashcode() const override;
    QString classname() const override;
    QString info() const override;
    void superclasses(QStringList& out) const override;
    using model::Object::property_list;
    void property_list(QStringList& out) const override;
    model::Property* activate_property(const QString& name) override;
    QString primitive_get_value(const QString& name) const override;
    void primitive_set_value(const QString& name, const QString& value) override;
    void primitive_restore_value(const QString& name, const QString& value) override;
    QString member_info(const QString& name) const override;

private:
    void enter_column();

    QString _material_name;
    double _transparency = 0.0;
    basic::color4 _ambient;
    basic::color4 _diffuse;
    basic::color4 _specular;
    double _shininess = 0.0;
    unsigned int _texture = 0;
    QString _texture_filename;
    QString _texture_path;
};

} // namespace mesh3D
