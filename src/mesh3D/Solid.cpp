#include "mesh3D/Solid.h"

#include "mesh3D/Face.h"

namespace mesh3D {

Solid::~Solid() {
    qDeleteAll(_faces);
}

void Solid::Add(Face* face) {
    _faces.append(face);
}

void Solid::Remove(Face* face) {
    _faces.removeAll(face);
}

void Solid::Faces(std::list<oxaIO::IFace*>* faces) const {
    for (Face* face : _faces)
        faces->push_back(face);
}

} // namespace mesh3D
