#pragma once

#include "zentra_export.h"

#include "mesh3D/GeometricElement.h"

#include <QHash>
#include <QList>

namespace model {
class QSColumnObject;
}
namespace vmp {
class Vector;
}

namespace mesh3D {

class Face;
class Material;
class Polygon;
class Solid;
class Triangle;
class Vertex;

/// The edges of one triangle that are worth drawing: bit 0 the edge from corner 0 to 1, bit 1
/// from 1 to 2, bit 2 from 2 to 0.
struct triangle_edges {
    Triangle* triangle;
    unsigned char flags;
};

/// The geometry of one model object: shared vertices, triangles, polygons with their
/// tessellations, and faces and solids over them, all owned by the surface. It makes its
/// normals consistent and outward (`correct_normals`), finds the edges worth drawing once
/// (`update_edges`), and points to a shared material that it does not own, which may be
/// overridden for a while and reset. With quick search on, every surface has an item in its
/// system's surface column, linked to the item of its material.
class ZENTRA_EXPORT Surface : public GeometricElement {
public:
    /// The system is the container's.
    explicit Surface(Container* parent);
    Surface(Container* parent, const QString& id, basic::unit unit);
    Surface(Container* parent, model::System* system, const QString& id, basic::unit unit);
    Surface(const QString& id, model::RepositoryP* repository);
    /// An empty surface with the same parent, unit and material; no geometry is copied.
    Surface(const Surface& other);
    Surface& operator=(const Surface&) = delete;
    ~Surface() override;

    /// Runs the base `init` with the unit again, forgets the edges and the material, and
    /// enters the surface in the surface column.
    void init();

    using GeometricElement::add;
    using GeometricElement::remove;
    /// Appends; the primitive now belongs to this surface.
    void add(Triangle* triangle);
    void add(Polygon* polygon);
    void add(Face* face);
    void add(Solid* solid);
    /// Takes every occurrence out of the list and deletes the object, listed or not.
    void remove(Triangle* triangle);
    void remove(Polygon* polygon);
    void remove(Face* face);
    void remove(Solid* solid);

    const QList<Triangle*>& triangles() const { return _triangles; }
    const QList<Polygon*>& polygons() const { return _polygons; }
    const QList<Face*>& faces() const { return _faces; }
    const QList<Solid*>& solids() const { return _solids; }
    /// The plain triangles, then the tessellation of each polygon in order.
    void allTriangles(QList<Triangle*>& out) const;

    /// The records of `update_edges`, null before it ran.
    triangle_edges** edges() const { return _edges; }
    int count_triangle_edge_objects() const { return _edge_count; }
    /// The number of edges to draw.
    long count_edges() const;

    Material* material() const { return _material; }
    /// Sets the material. With `temporary_keep` false the change is an override: the material
    /// set before is remembered (only the first time) so that `reset_material` can return to it.
    void material(Material* material, bool temporary_keep);
    /// The material's identifier, or an empty text.
    QString material_ID() const;
    /// Overrides the material with the system's stand-in.
    void SetEmptyMaterial();
    /// The material before the first override since the last reset, or null.
    Material* source_material() const;
    /// Ends an override: the remembered material is set again.
    void reset_material();
    /// Ends the overrides of every surface of the system.
    static void reset_materials(model::System* system);
    /// The remembered materials of the system's surfaces, made on first use.
    static QHash<Surface*, Material*>& source_materials(model::System* system);
    /// The system's surface column, named "Surface" and linked to the material column, made on
    /// first demand; null for a system without quick search.
    static model::QSColumnObject* QSColumnObject(model::System* system);
    model::QSColumnObject* qs_column() const;
    /// Unlinks the system's surface column from the material column and deletes it.
    static void DeleteGlobalQSColumnObject(model::System* system);

    /// Deletes faces, solids, triangles and polygons, in that order, and the edge records.
    void EmptyGeometry();
    /// Stores the thickness in every polygon.
    void Thickness(double thickness) override;
    void swap_coordinates(int a, int b, int c) override;
    void update_normals() override;
    void correct_normals() override;
    /// Finds the edges to draw: every edge of only one triangle, and every edge between two
    /// consistently oriented triangles whose stored normals differ by more than `angle`
    /// (radians), stored once. Tessellation triangles take no part.
    void update_edges(double angle) override;
    /// Sorts the triangles by ascending area; texture coordinates move with their triangles.
    void sort_triangles();
    /// True when every triangle has exactly three neighbours over its edges.
    bool is_closed_mesh();

    /// What a construction simulation does with the object: 0 nothing, 1 it is demolished.
    int SimulationType() const { return _simulation_type; }
    void SimulationType(int type) { _simulation_type = type; }

    /// Of the vertices, the one farthest from the centre of the bounding box, and the unit
    /// direction from that centre to it. Updates the bounding box. False without vertices.
    bool get_reference_direction_and_point(vmp::Vector& direction, Vertex*& point);
    /// Exchanges corners `i` and `j`, with their texture coordinates if the system holds any
    /// for this surface and the triangle is one of `triangles`. The stored normal of the
    /// triangle is negated with its winding.
    void swap_vertices(Triangle* triangle, int i, int j);
    void swap_vertices(Polygon* polygon, int i, int j);
    /// Reverses the polygon's order of points, keeping point 0 in place, and negates its stored
    /// normal.
    void flip_normal(Polygon* polygon);

    ObjectType m_type() const override;
    /// A new surface under the identifier found in the XML text, registered in `repository` and
    /// filled from the text (see `model::Object::activate_from_xmldata`).
    static Surface* xml_to_object(model::RepositoryP* repository, const QString& xml);
    static long hashcode();
    long class_hashcode() const override;
    QString classname() const override;
    QString info() const override;
    void superclasses(QStringList& out) const override;

private:
    void enter_column();
    /// Links or unlinks the items of this surface and of its material; nothing unless both
    /// columns exist.
    void link_material_item(bool linked);
    /// Orients each shell from its vertex farthest from `centre`, the first from `point`.
    void correct_normals_of_triangles(const vmp::Vector& direction, Vertex* point,
                                      const geometry3D::point& centre);
    void correct_normals_of_polygons(const vmp::Vector& direction, Vertex* point,
                                     const geometry3D::point& centre);
    /// Turns the tessellation triangles to face the way of the polygon's normal.
    void correct_normals_of_tessellation(Polygon* polygon);
    /// `index` is the place in the primitive list, -1 for none.
    void swap_vertices(Triangle* triangle, int i, int j, int index);
    void swap_vertices(Polygon* polygon, int i, int j, int index);
    void flip_normal(Polygon* polygon, int index);
    /// Exchanges the texture coordinates of corners `i` and `j` of primitive `index`.
    void swap_mapping_coordinates(int index, int i, int j);
    void free_edges();

    QList<Solid*> _solids;
    QList<Face*> _faces;
    QList<Triangle*> _triangles;
    QList<Polygon*> _polygons;
    triangle_edges** _edges = nullptr;
    /// The records `_edges` points to, allocated in one block: a model has about as many of
    /// them as triangles, and one allocation each would double their size.
    triangle_edges* _edge_records = nullptr;
    int _edge_count = 0;
    Material* _material = nullptr;
    int _simulation_type = 0;
};

} // namespace mesh3D
