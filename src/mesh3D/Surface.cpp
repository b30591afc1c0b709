#include "mesh3D/Surface.h"

#include "basic/numeric.h"
#include "geometry/Octree.h"
#include "geometry/OctreeIterator.h"
#include "mesh3D/Container.h"
#include "mesh3D/Face.h"
#include "mesh3D/IncidenceMap.h"
#include "mesh3D/Material.h"
#include "mesh3D/Polygon.h"
#include "mesh3D/QSColumnMaterial.h"
#include "mesh3D/ShellOrientation.h"
#include "mesh3D/Solid.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"
#include "model/QSColumnObject.h"
#include "model/QSItemObject.h"
#include "model/System.h"
#include "model/object_xml.h"
#include "vmp/Vector.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace mesh3D {

namespace {

using SourceTable = QHash<Surface*, Material*>;

QHash<model::System*, SourceTable*>& source_tables() {
    static QHash<model::System*, SourceTable*> tables;
    return tables;
}

QHash<model::System*, model::QSColumnObject*>& surface_columns() {
    static QHash<model::System*, model::QSColumnObject*> columns;
    return columns;
}

double cosine(const geometry3D::point& a, const geometry3D::point& b) {
    const double dot = a.x * b.x + a.y * b.y + a.z * b.z;
    return dot /
           (std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z) * std::sqrt(b.x * b.x + b.y * b.y + b.z * b.z));
}

/// Takes every occurrence of `item` out of `list` and deletes it.
template <typename T> void remove_and_delete(QList<T*>& list, T* item) {
    list.removeAll(item);
    delete item;
}

template <typename T> void delete_front_to_back(QList<T*>& list) {
    while (!list.isEmpty())
        delete list.takeFirst();
}

} // namespace

Surface::Surface(Container* parent) : GeometricElement(parent, parent ? parent->system() : nullptr) {
    enter_column();
}

Surface::Surface(Container* parent, const QString& id, basic::unit unit)
    : GeometricElement(parent, parent ? parent->system() : nullptr, id, unit) {
    enter_column();
}

Surface::Surface(Container* parent, model::System* system, const QString& id, basic::unit unit)
    : GeometricElement(parent, system, id, unit) {
    enter_column();
}

Surface::Surface(const QString& id, model::RepositoryP* repository) : GeometricElement(id, repository) {
    enter_column();
}

Surface::Surface(const Surface& other) : GeometricElement(other), _material(other._material) {
    enter_column();
    link_material_item(true);
}

Surface::~Surface() {
    EmptyGeometry();
    if (SourceTable* sources = source_tables().value(system())) {
        sources->remove(this);
        if (sources->isEmpty())
            delete source_tables().take(system());
    }
    if (model::QSColumnObject* column = surface_columns().value(system()))
        column->remove(this);
    free_edges();
}

void Surface::init() {
    GeometricElement::init(unit());
    free_edges();
    link_material_item(false);
    _material = nullptr;
    enter_column();
}

void Surface::enter_column() {
    if (model::QSColumnObject* column = QSColumnObject(system()))
        column->item(this);
}

void Surface::link_material_item(bool linked) {
    model::QSColumnObject* surfaces = surface_columns().value(system());
    mesh3D::QSColumnMaterial* materials = Material::existing_column(system());
    if (!_material || !surfaces || !materials)
        return;
    model::QSItemObject* item = surfaces->value(this);
    model::QSItemObject* material_item = materials->value(_material);
    if (!item || !material_item)
        return;
    if (linked)
        item->link_to(material_item);
    else
        item->unlink(material_item);
}

void Surface::add(Triangle* triangle) {
    triangle->surface(this);
    _triangles.append(triangle);
}

void Surface::add(Polygon* polygon) {
    polygon->surface(this);
    _polygons.append(polygon);
}

void Surface::add(Face* face) {
    _faces.append(face);
}

void Surface::add(Solid* solid) {
    _solids.append(solid);
}

void Surface::remove(Triangle* triangle) {
    remove_and_delete(_triangles, triangle);
}

void Surface::remove(Polygon* polygon) {
    remove_and_delete(_polygons, polygon);
}

void Surface::remove(Face* face) {
    remove_and_delete(_faces, face);
}

void Surface::remove(Solid* solid) {
    remove_and_delete(_solids, solid);
}

void Surface::allTriangles(QList<Triangle*>& out) const {
    out = _triangles;
    for (const Polygon* polygon : _polygons)
        out.append(polygon->Tessellation());
}

long Surface::count_edges() const {
    long count = 0;
    for (int i = 0; i < _edge_count; ++i)
        for (int bit = 0; bit < 3; ++bit)
            if (_edges[i]->flags & (1 << bit))
                ++count;
    return count;
}

void Surface::material(Material* material, bool temporary_keep) {
    if (_material && !temporary_keep) {
        SourceTable& sources = source_materials(system());
        if (!sources.contains(this))
            sources.insert(this, _material);
    }
    link_material_item(false);
    _material = material;
    link_material_item(true);
}

QString Surface::material_ID() const {
    return _material ? _material->id() : QString("");
}

void Surface::SetEmptyMaterial() {
    material(Material::Dummy(system()), false);
}

Material* Surface::source_material() const {
    const SourceTable* sources = source_tables().value(system());
    return sources ? sources->value(const_cast<Surface*>(this)) : nullptr;
}

void Surface::reset_material() {
    SourceTable* sources = source_tables().value(system());
    if (!sources || !sources->contains(this))
        return;
    link_material_item(false);
    _material = sources->take(this);
    link_material_item(true);
}

void Surface::reset_materials(model::System* system) {
    SourceTable* sources = source_tables().value(system);
    if (!sources)
        return;
    const QList<Surface*> overridden = sources->keys();
    for (Surface* surface : overridden)
        surface->reset_material();
}

QHash<Surface*, Material*>& Surface::source_materials(model::System* system) {
    SourceTable*& sources = source_tables()[system];
    if (!sources)
        sources = new SourceTable;
    return *sources;
}

model::QSColumnObject* Surface::QSColumnObject(model::System* system) {
    if (!system || !system->quickSearch())
        return nullptr;
    model::QSColumnObject*& column = surface_columns()[system];
    if (!column) {
        column = new model::QSColumnObject(system, QStringLiteral("Surface"));
        if (mesh3D::QSColumnMaterial* materials = Material::QSColumnMaterial(system))
            materials->link_to(column);
    }
    return column;
}

model::QSColumnObject* Surface::qs_column() const {
    return QSColumnObject(system());
}

void Surface::DeleteGlobalQSColumnObject(model::System* system) {
    model::QSColumnObject* column = surface_columns().take(system);
    if (!column)
        return;
    if (mesh3D::QSColumnMaterial* materials = Material::existing_column(system))
        materials->remove_link(column);
    delete column;
}

void Surface::EmptyGeometry() {
    delete_front_to_back(_faces);
    delete_front_to_back(_solids);
    delete_front_to_back(_triangles);
    delete_front_to_back(_polygons);
    // The number is taken as radians as it stands; with no triangle left it only frees the
    // edge records.
    update_edges(45.0);
}

void Surface::Thickness(double thickness) {
    for (Polygon* polygon : qAsConst(_polygons))
        polygon->Thickness(thickness);
}

void Surface::swap_coordinates(int a, int b, int c) {
    // Only a permutation of the three axes is meaningful.
    if (a < 0 || b < 0 || c < 0 || a > 2 || b > 2 || c > 2 || a == b || b == c || a == c)
        return;
    geometry3D::OctreeIterator walk(&vertices());
    while (geometry3D::Point* vertex = walk.next()) {
        double moved[3];
        moved[a] = vertex->x();
        moved[b] = vertex->y();
        moved[c] = vertex->z();
        vertex->xyz(moved[0], moved[1], moved[2]);
    }
}

void Surface::update_normals() {
    for (Triangle* triangle : qAsConst(_triangles))
        triangle->update_normal();
    for (Polygon* polygon : qAsConst(_polygons)) {
        polygon->update_normal();
        for (Triangle* triangle : polygon->Tessellation())
            triangle->update_normal();
    }
}

void Surface::update_edges(double angle) {
    const double limit = std::cos(angle);
    IncidenceMap<Triangle> map(_triangles);
    const int count = map.primitive_count();
    QVector<unsigned char> flags(count, 0);
    QVector<bool> recorded(count, false);
    auto mark = [&](int t, int edge) {
        flags[t] |= static_cast<unsigned char>(1 << edge);
        recorded[t] = true;
    };

    // Border edges: an end used by one triangle only, or no other triangle at both ends.
    for (int t = 0; t < count; ++t) {
        for (int e = 0; e < 3; ++e) {
            const int a = map.corner_id(t, e);
            const int b = map.corner_id(t, (e + 1) % 3);
            bool shared = false;
            if (map.list_size(a) != 1 && map.list_size(b) != 1) {
                const int* users = map.list(a);
                for (int i = 0, n = map.list_size(a); i < n && !shared; ++i)
                    shared = users[i] != t && map.listed(b, users[i]);
            }
            if (!shared)
                mark(t, e);
        }
    }

    // Sharp edges. Taking each triangle out of the list of the corner it starts an edge from
    // meets every pair of neighbours once; only a neighbour running the edge the other way
    // (consistent orientation) counts.
    for (int t = 0; t < count; ++t) {
        Triangle* triangle = map.primitive(t);
        for (int e = 0; e < 3; ++e) {
            const int a = map.corner_id(t, e);
            if (a < 0)
                continue;
            map.remove(a, t);
            geometry3D::Point* from = triangle->point(e);
            geometry3D::Point* to = triangle->point((e + 1) % 3);
            const int* users = map.list(a);
            for (int i = 0, n = map.list_size(a); i < n; ++i) {
                const int u = users[i];
                Triangle* other = map.primitive(u);
                const int k = other->contains_edge(to, from);
                if (k <= 0 || !(cosine(triangle->normal(), other->normal()) < limit))
                    continue;
                if (recorded[t] || !recorded[u])
                    mark(t, e);
                else
                    mark(u, k - 1);
            }
        }
    }

    free_edges();
    // The records follow the order of the triangles, so that the drawing order is stable.
    for (int t = 0; t < count; ++t)
        if (recorded[t])
            ++_edge_count;
    if (_edge_count == 0)
        return;
    _edges = new triangle_edges*[_edge_count];
    _edge_records = new triangle_edges[_edge_count];
    int next = 0;
    for (int t = 0; t < count; ++t)
        if (recorded[t]) {
            _edge_records[next] = triangle_edges{map.primitive(t), flags[t]};
            _edges[next] = &_edge_records[next];
            ++next;
        }
}

void Surface::free_edges() {
    delete[] _edge_records;
    _edge_records = nullptr;
    delete[] _edges;
    _edges = nullptr;
    _edge_count = 0;
}

bool Surface::get_reference_direction_and_point(vmp::Vector& direction, Vertex*& point) {
    update_boundingbox();
    const geometry3D::point centre = geometry3D::center(getBoundingbox());
    double greatest = -1.0;
    geometry3D::OctreeIterator walk(&vertices());
    while (geometry3D::Point* vertex = walk.next()) {
        const double d =
            geometry3D::distance2(vertex->x(), vertex->y(), vertex->z(), centre.x, centre.y, centre.z);
        if (d > greatest) {
            greatest = d;
            point = static_cast<Vertex*>(vertex);
        }
    }
    if (greatest < 0.0)
        return false;
    direction = vmp::Vector(point->x() - centre.x, point->y() - centre.y, point->z() - centre.z);
    direction.normalize();
    return true;
}

void Surface::correct_normals() {
    vmp::Vector direction(3);
    Vertex* point = nullptr;
    if (!get_reference_direction_and_point(direction, point))
        return;
    const geometry3D::point centre = geometry3D::center(getBoundingbox());
    correct_normals_of_triangles(direction, point, centre);
    correct_normals_of_polygons(direction, point, centre);
}

void Surface::correct_normals_of_triangles(const vmp::Vector& direction, Vertex* point,
                                           const geometry3D::point& centre) {
    QList<Triangle*> all;
    allTriangles(all);
    if (all.isEmpty())
        return;
    IncidenceMap<Triangle> map(all);
    // The first entries of `all` are `triangles` in their order, so a triangle's number is its
    // place there; the others belong to tessellations.
    const int plain = _triangles.size();
    auto reverse = [&](int t, int i, int j) { swap_vertices(map.primitive(t), i, j, t < plain ? t : -1); };
    ShellOrientation<Triangle, decltype(reverse)>(map, reverse).run(direction, point, centre);
}

void Surface::correct_normals_of_polygons(const vmp::Vector& direction, Vertex* point,
                                          const geometry3D::point& centre) {
    if (_polygons.isEmpty())
        return;
    IncidenceMap<Polygon> map(_polygons);
    auto reverse = [&](int p, int, int) {
        Polygon* polygon = map.primitive(p);
        flip_normal(polygon, p);
        correct_normals_of_tessellation(polygon);
    };
    ShellOrientation<Polygon, decltype(reverse)>(map, reverse).run(direction, point, centre);
}

void Surface::correct_normals_of_tessellation(Polygon* polygon) {
    const vmp::Vector normal = polygon->calc_normal();
    for (Triangle* triangle : polygon->Tessellation())
        if (normal * triangle->calc_normal() <= 0.0)
            swap_vertices(triangle, 0, 1);
}

void Surface::swap_vertices(Triangle* triangle, int i, int j) {
    swap_vertices(triangle, i, j, _triangles.indexOf(triangle));
}

void Surface::swap_vertices(Polygon* polygon, int i, int j) {
    swap_vertices(polygon, i, j, _polygons.indexOf(polygon));
}

void Surface::swap_vertices(Triangle* triangle, int i, int j, int index) {
    swap_mapping_coordinates(index, i, j);
    triangle->swap_points(i, j);
    // An exchange of two corners reverses the winding; the stored normal follows, so that
    // lighting and the edge search after a correction see the corrected side.
    if (i != j)
        triangle->reverse_normal();
}

void Surface::swap_vertices(Polygon* polygon, int i, int j, int index) {
    swap_mapping_coordinates(index, i, j);
    polygon->swap_points(i, j);
}

void Surface::swap_mapping_coordinates(int index, int i, int j) {
    if (index < 0 || !mapping_coordinates_if_any())
        return;
    QVector<model::mapCoordsType>& coordinates = *GetMaterialMappingCoordinates();
    const int a = 3 * index + i;
    const int b = 3 * index + j;
    if (a < coordinates.size() && b < coordinates.size())
        std::swap(coordinates[a], coordinates[b]);
}

void Surface::flip_normal(Polygon* polygon) {
    flip_normal(polygon, _polygons.indexOf(polygon));
}

void Surface::flip_normal(Polygon* polygon, int index) {
    const int n = polygon->count_points();
    const int last = static_cast<int>((n - 1) * 0.5);
    for (int i = 1, j = n - 1; i <= last; ++i, --j)
        swap_vertices(polygon, i, j, index);
    polygon->reverse_normal();
}

void Surface::sort_triangles() {
    const int count = _triangles.size();
    QVector<double> areas(count);
    for (int t = 0; t < count; ++t)
        areas[t] = _triangles[t]->area2();
    QVector<int> order(count);
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return areas[a] < areas[b]; });

    const QList<Triangle*> before = _triangles;
    for (int t = 0; t < count; ++t)
        _triangles[t] = before[order[t]];

    const QVector<model::mapCoordsType>* coordinates = mapping_coordinates_if_any();
    if (!coordinates)
        return;
    QVector<model::mapCoordsType> sorted;
    sorted.reserve(coordinates->size());
    for (int t = 0; t < count; ++t)
        for (int c = 0; c < 3; ++c)
            sorted.append(coordinates->value(3 * order[t] + c));
    *GetMaterialMappingCoordinates() = sorted;
}

bool Surface::is_closed_mesh() {
    QList<Triangle*> all;
    allTriangles(all);
    IncidenceMap<Triangle> map(all);
    for (int t = 0; t < map.primitive_count(); ++t) {
        Triangle* triangle = map.primitive(t);
        int neighbours = 0;
        for (int e = 0; e < 3; ++e) {
            geometry3D::Point* from = triangle->point(e);
            geometry3D::Point* to = triangle->point((e + 1) % 3);
            const int a = map.corner_id(t, e);
            const int* users = map.list(a);
            for (int i = 0, n = map.list_size(a); i < n; ++i)
                if (users[i] != t && map.primitive(users[i])->contains_edge(to, from) != 0)
                    ++neighbours;
        }
        if (neighbours != 3)
            return false;
    }
    return true;
}

ObjectType Surface::m_type() const {
    return GeometricElement::m_type() | TYPE_SURFACE;
}

Surface* Surface::xml_to_object(model::RepositoryP* repository, const QString& xml) {
    return filled_from_xml(new Surface(model::xml_object_id(xml), repository), xml);
}

long Surface::hashcode() {
    static const long hash = basic::hash_text(QStringLiteral("mesh3D::Surface"));
    return hash;
}

long Surface::class_hashcode() const {
    return hashcode();
}

QString Surface::classname() const {
    return QStringLiteral("mesh3D::Surface");
}

QString Surface::info() const {
    return QStringLiteral("3D-Surface of an element");
}

void Surface::superclasses(QStringList& out) const {
    GeometricElement::superclasses(out);
    out.append(GeometricElement::classname());
}

} // namespace mesh3D
