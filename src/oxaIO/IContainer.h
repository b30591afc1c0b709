#pragma once

#include "oxaIO/IObject.h"

#include <list>

namespace oxaIO {

class IObject2D;
class IObject3D;

/// A node of the container tree as a document sees it. The list operations append to the list
/// they are given; the container keeps the ownership of what it lists.
class ZENTRA_EXPORT IContainer : public IObject {
public:
    virtual void Containers(std::list<IContainer*>* containers) = 0;
    virtual void Objects3D(std::list<IObject3D*>* objects) = 0;
    virtual void Objects2D(std::list<IObject2D*>* objects) = 0;
    virtual void GenericObjects(std::list<IGenericObject*>* objects) = 0;
    virtual bool IsEmpty() const = 0;
    virtual bool IsComposite() const = 0;
};

} // namespace oxaIO
