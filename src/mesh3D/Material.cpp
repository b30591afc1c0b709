#include "mesh3D/Material.h"

#include "basic/numeric.h"
#include "basic/text.h"
#include "mesh3D/QSColumnMaterial.h"
#include "model/Primitive.h"
#include "model/System.h"
#include "model/object_xml.h"

namespace mesh3D {

namespace {

const QString name_property = QStringLiteral("Name");

using MaterialTable = QHash<QString, Material*>;

/// The materials that `GetGlobalMaterial` made, per system.
QHash<model::System*, MaterialTable*>& global_materials() {
    static QHash<model::System*, MaterialTable*> tables;
    return tables;
}

QHash<model::System*, mesh3D::QSColumnMaterial*>& material_columns() {
    static QHash<model::System*, mesh3D::QSColumnMaterial*> columns;
    return columns;
}

oxaIO::VColor4 to_vcolor(const basic::color4& c) {
    return oxaIO::VColor4{c.r, c.g, c.b, c.a};
}

} // namespace

Material::Material(model::System* system) : Element(system) {
    init();
}

Material::Material(model::System* system, const QString& id, const QString& name)
    : Element(system, id), _material_name(name) {
    init();
}

Material::Material(const QString& id, model::RepositoryP* repository) : Element(id, repository) {}

Material::Material(const Material& other)
    : Element(other), oxaIO::IMaterial(), _material_name(other._material_name),
      _transparency(other._transparency), _ambient(other._ambient), _diffuse(other._diffuse),
      _specular(other._specular), _shininess(other._shininess), _texture(other._texture),
      _texture_filename(other._texture_filename), _texture_path(other._texture_path) {
    enter_column();
}

Material::~Material() {
    if (mesh3D::QSColumnMaterial* column = existing_column(system()))
        column->remove(this);
}

void Material::init() {
    const basic::color4 white{1.0f, 1.0f, 1.0f, 0.0f};
    _transparency = 0.0;
    _ambient = white;
    _diffuse = white;
    _specular = white;
    _shininess = 0.0;
    _texture = 0;
    enter_column();
}

void Material::enter_column() {
    if (mesh3D::QSColumnMaterial* column = QSColumnMaterial(system()))
        column->item(this);
}

QHash<GeometricElement*, QVector<model::mapCoordsType>>& Material::mapping_coordinates() {
    return system()->mapping_coordinates();
}

std::wstring Material::ID() const {
    return basic::ToStdString(id());
}

std::wstring Material::Name() const {
    return basic::ToStdString(_material_name);
}

oxaIO::VColor4 Material::Diffuse() const {
    return to_vcolor(_diffuse);
}

oxaIO::VColor4 Material::Specular() const {
    return to_vcolor(_specular);
}

oxaIO::VColor4 Material::Ambient() const {
    return to_vcolor(_ambient);
}

double Material::Transparency() const {
    return _transparency;
}

std::wstring Material::TextureFileName() const {
    return basic::ToStdString(_texture_filename);
}

Material* Material::GetGlobalMaterial(model::System* system, const QString& id, const QString& name) {
    MaterialTable*& table = global_materials()[system];
    if (!table)
        table = new MaterialTable;
    if (Material* known = table->value(id))
        return known;
    if (model::Object* present = system->object(id))
        return dynamic_cast<Material*>(present);
    auto* made = new Material(system, id, name);
    table->insert(id, made);
    return made;
}

Material* Material::Dummy(model::System* system) {
    return GetGlobalMaterial(system, QStringLiteral("mesh3D::Material"), QStringLiteral("mesh3D::Material"));
}

void Material::DeleteGlobalMaterials(model::System* system) {
    MaterialTable* table = global_materials().take(system);
    if (!table)
        return;
    while (!table->isEmpty())
        delete table->take(table->begin().key());
    delete table;
}

mesh3D::QSColumnMaterial* Material::QSColumnMaterial(model::System* system) {
    if (!system || !system->quickSearch())
        return nullptr;
    mesh3D::QSColumnMaterial*& column = material_columns()[system];
    if (!column)
        column = new mesh3D::QSColumnMaterial(system, QStringLiteral("Material"));
    return column;
}

mesh3D::QSColumnMaterial* Material::existing_column(model::System* system) {
    return material_columns().value(system);
}

void Material::DeleteGlobalQSColumnMaterial(model::System* system) {
    delete material_columns().take(system);
}

mesh3D::QSColumnMaterial* Material::qs_column() const {
    return QSColumnMaterial(system());
}

ObjectType Material::m_type() const {
    return TYPE_MATERIAL | TYPE_ELEMENT;
}

Material* Material::xml_to_object(model::RepositoryP* repository, const QString& xml) {
    // The repository form sets only the identifiers; the defaults come first so that the text
    // fills over them.
    auto* made = new Material(model::xml_object_id(xml), repository);
    made->init();
    return filled_from_xml(made, xml);
}

long Material::hashcode() {
    static const long hash = basic::hash_text(QStringLiteral("mesh3D::Material"));
    return hash;
}

long Material::class_hashcode() const {
    return hashcode();
}

QString Material::classname() const {
    return QStringLiteral("mesh3D::Material");
}

QString Material::info() const {
    return QStringLiteral("Material");
}

void Material::superclasses(QStringList& out) const {
    Element::superclasses(out);
    out.append(Element::classname());
}

void Material::property_list(QStringList& out) const {
    out.append(name_property);
    Element::property_list(out);
}

model::Property* Material::activate_property(const QString& name) {
    if (name != name_property)
        return Element::activate_property(name);
    auto* made = new model::Primitive(name, this, 2, false);
    insert_property(made);
    return made;
}

QString Material::primitive_get_value(const QString& name) const {
    return name == name_property ? _material_name : Element::primitive_get_value(name);
}

void Material::primitive_set_value(const QString& name, const QString& value) {
    if (name == name_property)
        _material_name = value;
    else
        Element::primitive_set_value(name, value);
}

void Material::primitive_restore_value(const QString& name, const QString& value) {
    if (name == name_property)
        _material_name = value;
    else
        Element::primitive_restore_value(name, value);
}

QString Material::member_info(const QString& name) const {
    return name == name_property ? QStringLiteral("Name of material") : Element::member_info(name);
}

} // namespace mesh3D
