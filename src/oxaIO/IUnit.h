#pragma once

#include "zentra_export.h"

#include "oxaIO/OxaTypes.h"

#include <string>

namespace oxaIO {

/// A unit definition of the unit section, implemented by the host's own model.
class ZENTRA_EXPORT IUnit {
public:
    virtual ~IUnit() = default;
    virtual std::wstring Name() const = 0;
    virtual std::wstring BaseUnit() const = 0;
    virtual VOptional<double> ConversionFactor() const = 0;
    /// 0 to 3; the library hands the number on without giving it a meaning.
    virtual int Dimension() const = 0;
    virtual std::wstring Description() const = 0;
    virtual VOptional<long> Digits() const = 0;
};

} // namespace oxaIO
