#pragma once

#include "oxaIO/OxaSection.h"

#include <list>
#include <map>
#include <vector>

namespace oxaIO {

class IContainer;
class IMaterial;

/// The geometry part of a document: its root containers, its materials and the length unit of
/// its coordinates. It owns the root containers (and through them the tree), the materials and
/// the rotation and translation vectors kept per root container.
class ZENTRA_EXPORT OxaObjectSection : public OxaSection {
public:
    OxaObjectSection();
    ~OxaObjectSection() override;

    std::list<IContainer*>& GetContainers() { return containers; }
    const std::list<IContainer*>& GetContainers() const { return containers; }
    std::list<IMaterial*>& GetMaterials() { return materials; }
    const std::list<IMaterial*>& GetMaterials() const { return materials; }

    /// Appends a root container and takes it over; null is ignored.
    void AddContainer(IContainer* container);
    /// Appends a material and takes it over; null is ignored.
    void AddMaterial(IMaterial* material);

    /// The length unit of the coordinates; "unknown" until set.
    const std::wstring& Unit() const { return unit; }
    void Unit(const std::wstring& unit);

    /// Keeps the rotation (nine values) and translation (three values) that a document gave a
    /// root container, and takes both vectors over; vectors kept before for the same container
    /// are deleted. They are kept only: the geometry is not moved and a writer does not use them.
    void SetContainerRotTrans(IContainer* container, std::vector<double>* rotation,
                              std::vector<double>* translation);
    /// The rotation kept for the container, or null.
    const std::vector<double>* ContainerRotation(IContainer* container) const;
    /// The translation kept for the container, or null.
    const std::vector<double>* ContainerTranslation(IContainer* container) const;

    /// The number of polygons of all 3D objects in the tree that have no tessellation, so that a
    /// host can tell whether it has to tessellate before writing.
    int CountPolygonsWithoutTesselation() const;

    /// No properties, no containers and no materials.
    bool IsEmpty() const override;

private:
    using VectorMap = std::map<IContainer*, std::vector<double>*>;

    static void _Keep(VectorMap& map, IContainer* container, std::vector<double>* vector);
    static const std::vector<double>* _Find(const VectorMap& map, IContainer* container);

    std::list<IContainer*> containers;
    std::list<IMaterial*> materials;
    std::wstring unit = L"unknown";
    VectorMap rotations;
    VectorMap translations;
};

} // namespace oxaIO
