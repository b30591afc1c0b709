#pragma once

#include "zentra_export.h"

#include "mesh3D/Surface.h"
#include "oxaIO/IGeometryObject.h"

namespace mesh3D {

/// A model object with geometry: a surface with a name, a reference identifier, and a flag
/// for objects that subtract from others. This is what a document's object becomes.
class ZENTRA_EXPORT Object3D : public Surface, public oxaIO::IObject3D {
public:
    Object3D(Container* parent, model::System* system, const QString& id, basic::unit unit,
             const QString& name);
    /// The system is the parent's.
    Object3D(Container* parent, const QString& id, basic::unit unit, const QString& name);
    /// Copies as a surface copy does: same parent, unit and material, no geometry.
    explicit Object3D(const Surface& surface);
    /// As the copy of a surface: neither the reference identifier nor the flag is taken over.
    Object3D(const Object3D& other);
    Object3D& operator=(const Object3D&) = delete;

    virtual void Negative(bool negative);

    void Name(const QString& name) { Element::name(name); }
    void RefID(const QString& id) { _ref_id = id; }
    const QString& qRefID() const { return _ref_id; }
    bool Negative() const override { return _negative; }
    std::wstring ID() const override;
    std::wstring Name() const override;
    std::wstring RefID() const override;
    /// The material as the document layer sees it; null if none.
    const oxaIO::IMaterial* Material() const override;
    /// The oriented box, or null.
    const oxaIO::IOBB* OOBB() const override;
    using GeometricElement::OptOBB;
    /// Stores the box given by the interface's corner and edges.
    void OOBB(const oxaIO::IOBB& box);
    int CountTriangles() const;

    void Triangles(std::list<oxaIO::ITriangle*>* triangles) const override;
    void Polygons(std::list<oxaIO::IPolygon*>* polygons) const override;
    void Faces(std::list<oxaIO::IFace*>* faces) const override;
    void Solids(std::list<oxaIO::ISolid*>* solids) const override;
    /// In the order of the vertex octree.
    void Vertices(std::list<oxaIO::IVertex*>* vertices) const override;

    ObjectType m_type() const override;
    static long hashcode();
    long class_hashcode() const override;
    QString classname() const override;
    void superclasses(QStringList& out) const override;

private:
    QString _ref_id;
    bool _negative = false;
};

} // namespace mesh3D
