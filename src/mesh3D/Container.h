#pragma once

#include "zentra_export.h"

#include "geometry/primitives.h"
#include "mesh3D/Element.h"
#include "mesh3D/HierarchyElement.h"
#include "mesh3D/Placement.h"
#include "oxaIO/IContainer.h"

#include <QList>

namespace mesh3D {

/// An inner node of the model tree. It owns its children, in order; a child that is destroyed
/// elsewhere takes itself out of `children`, so the list stays right whichever end of the
/// tree goes first. A composite container stands for one compound object of the model.
class ZENTRA_EXPORT Container : public oxaIO::IContainer,
                                public Element,
                                public HierarchyElement,
                                public Placement {
public:
    Container(Container* parent, model::System* system);
    /// The system is the parent's.
    Container(Container* parent, const QString& id, const QString& name);
    Container(Container* parent, model::System* system, const QString& id, const QString& name);
    Container(const QString& id, model::RepositoryP* repository);
    /// A new identifier over the same child pointers: the copy lists the children without
    /// taking them over, so only one of the two may be destroyed with its list filled.
    Container(const Container& other);
    Container& operator=(const Container&) = delete;
    /// Deletes the children front to back, then leaves the parent's list.
    ~Container() override;

    /// Not composite, translation 0, scale 1.
    void init();
    bool IsComposite() const override { return _composite; }
    void IsComposite(bool composite) { _composite = composite; }
    bool IsEmpty() const override { return _children.isEmpty(); }

    /// The children; whoever moves an element between containers edits these lists.
    QList<Element*>& children() { return _children; }
    const QList<Element*>& children() const { return _children; }
    /// Takes the first occurrence of `child` out of the list, without deleting it.
    void take_child(Element* child);

    geometry3D::boundingbox boundingbox() const { return _bbox; }
    /// The union of the boxes of all geometry below; the empty box when there is none.
    void update_boundingbox();
    void update_normals();
    /// Prepares every surface below for drawing: normals computed, made consistent and
    /// outward, and the edges sharper than 45 degrees found. Reports each element on stdout.
    void correct_normals();
    /// All descendants, containers included.
    int count_children() const;
    /// All leaves below, at any depth.
    int CountObjects() const;
    /// Deletes everything below, leaving this container empty.
    void delete_content();
    void Thickness(double thickness) override;

    void Containers(std::list<oxaIO::IContainer*>* containers) override;
    void Objects3D(std::list<oxaIO::IObject3D*>* objects) override;
    void Objects2D(std::list<oxaIO::IObject2D*>* objects) override;
    void GenericObjects(std::list<oxaIO::IGenericObject*>* objects) override;
    std::wstring ID() const override;
    std::wstring Name() const override;

    ObjectType m_type() const override;
    /// A new container under the identifier found in the XML text, registered in `repository` and
    /// filled from the text (see `model::Object::activate_from_xmldata`).
    static Container* xml_to_object(model::RepositoryP* repository, const QString& xml);
    static long hashcode();
    long class_hashcode() const override;
    QString classname() const override;
    QString info() const override;
    void superclasses(QStringList& out) const override;

private:
    /// Deletes the children front to back; with `depth_first` each container child is emptied
    /// before it goes.
    void delete_children(bool depth_first);

    QList<Element*> _children;
    geometry3D::boundingbox _bbox;
    bool _composite = false;
};

} // namespace mesh3D
