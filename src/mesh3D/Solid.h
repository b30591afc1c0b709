#pragma once

#include "zentra_export.h"

#include "oxaIO/IGeometry.h"

#include <QList>

namespace mesh3D {

class Face;

/// A solid bounded by faces, which it owns; the primitives of the faces stay with the surface.
class ZENTRA_EXPORT Solid : public oxaIO::ISolid {
public:
    Solid() = default;
    Solid(const Solid&) = delete;
    Solid& operator=(const Solid&) = delete;
    /// Deletes the faces.
    ~Solid() override;

    void Add(Face* face);
    /// Takes the face out; the caller owns it then.
    void Remove(Face* face);
    const QList<Face*>& faces() const { return _faces; }
    void Faces(std::list<oxaIO::IFace*>* faces) const override;

private:
    QList<Face*> _faces;
};

} // namespace mesh3D
