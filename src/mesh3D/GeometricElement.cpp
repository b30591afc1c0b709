#include "mesh3D/GeometricElement.h"

#include "basic/numeric.h"
#include "geometry/OBB.h"
#include "geometry/OBB2D.h"
#include "geometry/Octree.h"
#include "geometry/OctreeIterator.h"
#include "mesh3D/Container.h"
#include "mesh3D/Vertex.h"
#include "model/System.h"

namespace mesh3D {

double GeometricElement::_eps = 1e-8;
int GeometricElement::_prec = 6;

GeometricElement::GeometricElement(Container* parent, model::System* system)
    : Element(system), HierarchyElement(parent) {
    init(basic::unit_m);
}

GeometricElement::GeometricElement(Container* parent, model::System* system, const QString& id,
                                   basic::unit unit)
    : Element(system, id), HierarchyElement(parent) {
    init(unit);
}

GeometricElement::GeometricElement(const QString& id, model::RepositoryP* repository)
    : Element(id, repository) {
    init(basic::unit_m);
}

GeometricElement::GeometricElement(const GeometricElement& other)
    : Element(other), HierarchyElement(other.Parent()), Placement() {
    init(other._unit);
}

GeometricElement::~GeometricElement() {
    geometry3D::OctreeIterator walk(_vertices);
    while (geometry3D::Point* vertex = walk.next())
        delete vertex;
    delete _vertices;
    delete _opt_obb;
    delete _obb_xy;
    delete _local_origin;
    if (system())
        system()->mapping_coordinates().remove(this);
    if (Parent())
        Parent()->take_child(this);
}

void GeometricElement::init(basic::unit unit) {
    _unit = unit;
    _description.clear();
    LocalOrigin(nullptr);
    if (!_vertices)
        _vertices = new geometry3D::Octree(_eps, _prec);
    reset_placement();
}

Vertex* GeometricElement::add(Vertex* vertex) {
    auto* holder = static_cast<Vertex*>(_vertices->insert(vertex));
    holder->geometricElement(this);
    return holder;
}

void GeometricElement::remove(Vertex* vertex) {
    // The tree cannot drop a point, and a dangling one would be freed twice with the element:
    // rebuild it from the others in pre-order, which reproduces the old shape around the gap.
    auto* rebuilt = new geometry3D::Octree(_vertices->eps(), _vertices->precision());
    for (geometry3D::Point* kept : _vertices->GetListOfPoints())
        if (kept != vertex)
            rebuilt->insert(kept);
    delete _vertices;
    _vertices = rebuilt;
    delete vertex;
}

void GeometricElement::update_edges(double) {}

void GeometricElement::SetEps(double eps) {
    _eps = eps * eps;
}

void GeometricElement::SetPrec(int precision) {
    _prec = precision;
}

double GeometricElement::Eps() {
    return _eps;
}

int GeometricElement::Prec() {
    return _prec;
}

void GeometricElement::update_boundingbox() {
    _bbox = geometry3D::boundingbox();
    geometry3D::OctreeIterator walk(_vertices);
    while (geometry3D::Point* vertex = walk.next())
        geometry3D::grow(_bbox, vertex->to_primitive());
}

void GeometricElement::OOBB(const geometry3D::OBB& box) {
    if (_opt_obb)
        *_opt_obb = box;
    else
        _opt_obb = new geometry3D::OBB(box);
}

geometry3D::OBB GeometricElement::CalcOBB(double a, double b, double c) const {
    return _vertices->CalcOBB(a, b, c);
}

const geometry3D::OBB* GeometricElement::CalcOptOBB() {
    OOBB(_vertices->CalcOptOBB());
    return _opt_obb;
}

void GeometricElement::OOBBxy(const geometry2D::OBB& box) {
    if (_obb_xy)
        *_obb_xy = box;
    else
        _obb_xy = new geometry2D::OBB(box);
}

void GeometricElement::LocalOrigin(const geometry3D::OBB* frame) {
    if (!frame) {
        delete _local_origin;
        _local_origin = nullptr;
    } else if (_local_origin) {
        *_local_origin = *frame;
    } else {
        _local_origin = new geometry3D::OBB(*frame);
    }
}

QVector<model::mapCoordsType>* GeometricElement::GetMaterialMappingCoordinates() {
    return system() ? &system()->mapping_coordinates()[this] : nullptr;
}

const QVector<model::mapCoordsType>* GeometricElement::mapping_coordinates_if_any() const {
    if (!system())
        return nullptr;
    const auto& table = system()->mapping_coordinates();
    const auto found = table.constFind(const_cast<GeometricElement*>(this));
    return found == table.constEnd() ? nullptr : &found.value();
}

ObjectType GeometricElement::m_type() const {
    return TYPE_HIERARCHY | TYPE_GEOMETRIC_ELEMENT | TYPE_ELEMENT;
}

long GeometricElement::hashcode() {
    static const long hash = basic::hash_text(QStringLiteral("mesh3D::GeometricElement"));
    return hash;
}

long GeometricElement::class_hashcode() const {
    return hashcode();
}

QString GeometricElement::classname() const {
    return QStringLiteral("mesh3D::GeometricElement");
}

QString GeometricElement::info() const {
    return QStringLiteral("Geometric element such as surface, lines, etc.");
}

void GeometricElement::superclasses(QStringList& out) const {
    Element::superclasses(out);
    out.append(Element::classname());
}

} // namespace mesh3D
