#pragma once

#include "oxaIO/IObject.h"

#include <list>

namespace oxaIO {

/// A named group of model elements with a content type.
class ZENTRA_EXPORT ISet : public IObject {
public:
    virtual void ContentType(std::wstring contentType) = 0;
    virtual std::wstring ContentType() const = 0;
    /// The identifiers of the members, resolved or not.
    virtual std::list<std::wstring> ElementIDs() const = 0;
    /// The members that are resolved to objects of the model.
    virtual std::list<IObject*> ElementList() const = 0;
};

/// A set that lists its members explicitly; the only kind a document writes back.
class ZENTRA_EXPORT IObjectSet : public ISet {
public:
    virtual void AddElementID(std::wstring id) = 0;
    virtual void AddElement(IObject* element) = 0;
};

} // namespace oxaIO
