#pragma once

#include "zentra_export.h"

#include "oxaIO/OxaTypes.h"

#include <list>
#include <string>

namespace oxaIO {

// The quantity take-off of the fit section. These interfaces are implemented by the host's own
// model only; the library calls them when it writes a document. List operations append to the
// list they are given and hand over no ownership.

/// A node of the item tree.
class ZENTRA_EXPORT IItem {
public:
    virtual ~IItem() = default;
    virtual void SubItems(std::list<IItem*>* items) const = 0;
    /// May be empty: such an item stands for its sub-items only.
    virtual std::wstring ID() const = 0;
    virtual std::wstring Name() const = 0;
    virtual std::wstring Key() const = 0;
    virtual std::wstring MatchKey() const = 0;
};

/// One measured result of a formula.
class ZENTRA_EXPORT IResult {
public:
    virtual ~IResult() = default;
    /// The object measured.
    virtual std::wstring RefID() const = 0;
    virtual VOptional<double> Value() const = 0;
    virtual long Quality() const = 0;
    /// Not written: a document always carries an empty geometry for a result.
    virtual std::wstring Geometry() const = 0;
    virtual std::wstring Text() const = 0;
};

/// A formula of an item's quantities and its results.
class ZENTRA_EXPORT IFormula {
public:
    virtual ~IFormula() = default;
    virtual bool IsQuantity() const = 0;
    /// True when the formula is the source's own (the document's `orig`).
    virtual bool IsOriginal() const = 0;
    virtual std::wstring Text() const = 0;
    virtual std::wstring Variable() const = 0;
    virtual void Results(std::list<IResult*>* results) const = 0;
};

/// The quantities of one item: a `qto` entry.
class ZENTRA_EXPORT IItemData {
public:
    virtual ~IItemData() = default;
    /// The item the quantities belong to.
    virtual std::wstring RefID() const = 0;
    virtual std::wstring Description() const = 0;
    virtual void Formulas(std::list<IFormula*>* formulas) const = 0;
};

} // namespace oxaIO
