#include "mesh3D/Object3D.h"

#include "basic/numeric.h"
#include "basic/text.h"
#include "geometry/OBB.h"
#include "geometry/OctreeIterator.h"
#include "mesh3D/Container.h"
#include "mesh3D/Face.h"
#include "mesh3D/Material.h"
#include "mesh3D/Polygon.h"
#include "mesh3D/Solid.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"

namespace mesh3D {

Object3D::Object3D(Container* parent, model::System* system, const QString& id, basic::unit unit,
                   const QString& name)
    : Surface(parent, system, id, unit) {
    Element::name(name);
}

Object3D::Object3D(Container* parent, const QString& id, basic::unit unit, const QString& name)
    : Surface(parent, id, unit) {
    Element::name(name);
}

Object3D::Object3D(const Surface& surface) : Surface(surface) {}

Object3D::Object3D(const Object3D& other) : Object3D(static_cast<const Surface&>(other)) {}

void Object3D::Negative(bool negative) {
    _negative = negative;
}

std::wstring Object3D::ID() const {
    return basic::ToStdString(id());
}

std::wstring Object3D::Name() const {
    return basic::ToStdString(name());
}

std::wstring Object3D::RefID() const {
    return basic::ToStdString(_ref_id);
}

const oxaIO::IMaterial* Object3D::Material() const {
    return material();
}

const oxaIO::IOBB* Object3D::OOBB() const {
    return OptOBB();
}

void Object3D::OOBB(const oxaIO::IOBB& box) {
    geometry3D::OBB stored;
    const oxaIO::VCoords3D ref = box.Ref();
    const oxaIO::VCoords3D vx = box.Vx();
    const oxaIO::VCoords3D vy = box.Vy();
    const oxaIO::VCoords3D vz = box.Vz();
    stored.origin(ref.x, ref.y, ref.z);
    stored.axis(0, vx.x, vx.y, vx.z);
    stored.axis(1, vy.x, vy.y, vy.z);
    stored.axis(2, vz.x, vz.y, vz.z);
    GeometricElement::OOBB(stored);
}

int Object3D::CountTriangles() const {
    QList<Triangle*> all;
    allTriangles(all);
    return all.size();
}

void Object3D::Triangles(std::list<oxaIO::ITriangle*>* out) const {
    for (Triangle* triangle : triangles())
        out->push_back(triangle);
}

void Object3D::Polygons(std::list<oxaIO::IPolygon*>* out) const {
    for (Polygon* polygon : polygons())
        out->push_back(polygon);
}

void Object3D::Faces(std::list<oxaIO::IFace*>* out) const {
    for (Face* face : faces())
        out->push_back(face);
}

void Object3D::Solids(std::list<oxaIO::ISolid*>* out) const {
    for (Solid* solid : solids())
        out->push_back(solid);
}

void Object3D::Vertices(std::list<oxaIO::IVertex*>* out) const {
    geometry3D::OctreeIterator walk(&vertices());
    while (geometry3D::Point* vertex = walk.next())
        out->push_back(static_cast<Vertex*>(vertex));
}

ObjectType Object3D::m_type() const {
    return Surface::m_type() | TYPE_OBJECT3D;
}

long Object3D::hashcode() {
    static const long hash = basic::hash_text(QStringLiteral("mesh3D::Object3D"));
    return hash;
}

long Object3D::class_hashcode() const {
    return hashcode();
}

QString Object3D::classname() const {
    return QStringLiteral("mesh3D::Object3D");
}

void Object3D::superclasses(QStringList& out) const {
    Surface::superclasses(out);
    out.append(Surface::classname());
}

} // namespace mesh3D
