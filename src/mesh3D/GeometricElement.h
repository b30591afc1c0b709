#pragma once

#include "zentra_export.h"

#include "basic/unit.h"
#include "geometry/primitives.h"
#include "mesh3D/Element.h"
#include "mesh3D/HierarchyElement.h"
#include "mesh3D/Placement.h"
#include "model/mapCoordsType.h"

#include <QVector>

namespace geometry2D {
class OBB;
}
namespace geometry3D {
class OBB;
class Octree;
} // namespace geometry3D

namespace mesh3D {

class Vertex;

/// Base of the leaves that carry geometry. It owns its vertices, kept in an octree that welds
/// coincident points on insertion (so that neighbouring primitives share vertex objects), and
/// its oriented boxes. Its parent owns it; destroying it takes it out of the parent's list and
/// drops its texture coordinates from the system.
class ZENTRA_EXPORT GeometricElement : public Element, public HierarchyElement, public Placement {
public:
    GeometricElement(Container* parent, model::System* system);
    GeometricElement(Container* parent, model::System* system, const QString& id, basic::unit unit);
    GeometricElement(const QString& id, model::RepositoryP* repository);
    /// A new element with the source's system, parent and unit; no geometry is taken over.
    GeometricElement(const GeometricElement& other);
    GeometricElement& operator=(const GeometricElement&) = delete;
    ~GeometricElement() override;

    /// Inserts into the octree and returns the vertex that holds the place: an older one if it
    /// lies within the welding distance, and then `vertex` stays the caller's to drop. The
    /// vertex that holds the place is told that it belongs to this element.
    virtual Vertex* add(Vertex* vertex);
    /// Takes the vertex out of the octree (which is rebuilt without it) and destroys it. Any
    /// primitive still using it must be removed first.
    virtual void remove(Vertex* vertex);
    /// Permutes the axes: the old x goes to index `a`, y to `b`, z to `c`.
    virtual void swap_coordinates(int a, int b, int c) = 0;
    virtual void update_normals() = 0;
    /// Makes all normals consistent and pointing outward.
    virtual void correct_normals() = 0;
    /// Finds the edges worth drawing; `angle` in radians. Does nothing here.
    virtual void update_edges(double angle);

    /// Sets the unit, forgets the local frame and the description, makes the octree if there
    /// is none (with the welding settings in force) and resets the placement.
    void init(basic::unit unit);

    /// Welding distance for octrees made from now on: the square of `eps` is stored.
    static void SetEps(double eps);
    /// Digits to which octrees made from now on round coordinates for their split decisions.
    static void SetPrec(int precision);
    /// The squared welding distance and the digit count in force.
    static double Eps();
    static int Prec();

    basic::unit unit() const { return _unit; }
    const geometry3D::Octree& vertices() const { return *_vertices; }
    const QString& description() const { return _description; }
    void description(const QString& text) { _description = text; }

    geometry3D::boundingbox getBoundingbox() const { return _bbox; }
    /// The box of all vertices; the empty box (minima above maxima) without vertices.
    void update_boundingbox();

    const geometry3D::OBB* OptOBB() const { return _opt_obb; }
    void OOBB(const geometry3D::OBB& box);
    geometry3D::OBB CalcOBB(double a, double b, double c) const;
    /// Computes the box of smallest volume, stores it and returns the stored box.
    const geometry3D::OBB* CalcOptOBB();
    const geometry2D::OBB* OOBBxy() const { return _obb_xy; }
    void OOBBxy(const geometry2D::OBB& box);
    const geometry3D::OBB* LocalOrigin() const { return _local_origin; }
    /// Stores a copy; null forgets the stored frame.
    void LocalOrigin(const geometry3D::OBB* frame);

    /// This element's texture coordinates in its system, three per triangle; made empty on
    /// first use. Null for an element without a system.
    QVector<model::mapCoordsType>* GetMaterialMappingCoordinates();
    /// The coordinates if the system holds any for this element, else null; makes nothing.
    const QVector<model::mapCoordsType>* mapping_coordinates_if_any() const;

    ObjectType m_type() const override;
    static long hashcode();
    long class_hashcode() const override;
    QString classname() const override;
    QString info() const override;
    void superclasses(QStringList& out) const override;

protected:
    geometry3D::Octree& vertex_tree() { return *_vertices; }

private:
    QString _description;
    basic::unit _unit = basic::unit_m;
    geometry3D::boundingbox _bbox;
    geometry3D::Octree* _vertices = nullptr;
    geometry3D::OBB* _opt_obb = nullptr;
    geometry2D::OBB* _obb_xy = nullptr;
    geometry3D::OBB* _local_origin = nullptr;

    static double _eps;
    static int _prec;
};

} // namespace mesh3D
