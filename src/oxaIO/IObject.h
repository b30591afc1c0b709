#pragma once

#include "zentra_export.h"

#include <string>

namespace oxaIO {

/// Anything of the model that a document names: it has an identifier and a display name.
/// Mesh and project classes implement it; the document model and the writer only read it.
class ZENTRA_EXPORT IObject {
public:
    virtual ~IObject() = default;
    virtual std::wstring ID() const = 0;
    virtual std::wstring Name() const = 0;
};

/// A named height level of the topology section.
class ZENTRA_EXPORT IHRef : public IObject {
public:
    virtual double ZValue() const = 0;
};

/// An object of the document that carries no geometry.
class ZENTRA_EXPORT IGenericObject : public IObject {};

} // namespace oxaIO
