#pragma once

#include "oxaIO/IGeometry.h"
#include "oxaIO/IObject.h"

namespace oxaIO {

class IMaterial;
class IOBB;

/// An object with geometry. The list operations append to the list they are given; the object
/// keeps the ownership of its geometry and of its material.
class ZENTRA_EXPORT IGeometryObject : public IObject {
public:
    virtual void Triangles(std::list<ITriangle*>* triangles) const = 0;
    virtual void Polygons(std::list<IPolygon*>* polygons) const = 0;
    virtual void Faces(std::list<IFace*>* faces) const = 0;
    virtual void Solids(std::list<ISolid*>* solids) const = 0;
    virtual void Vertices(std::list<IVertex*>* vertices) const = 0;
    virtual bool Negative() const = 0;
    virtual std::wstring RefID() const = 0;
    /// The object's material, or null.
    virtual const IMaterial* Material() const = 0;
};

/// A 3D object; its geometry stands in the object-data section of a document.
class ZENTRA_EXPORT IObject3D : public IGeometryObject {
public:
    /// The oriented bounding box, or null when the object has none.
    virtual const IOBB* OOBB() const = 0;
};

/// A 2D object; a document keeps only its vertices.
class ZENTRA_EXPORT IObject2D : public IGeometryObject {};

} // namespace oxaIO
