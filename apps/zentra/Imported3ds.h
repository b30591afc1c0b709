#pragma once

#include "model/System.h"
#include "oxaIO/OxaObjects.h"

#include <QString>
#include <QTextStream>

#include <memory>

/// A 3DS file imported into an object system of its own; the document, its tree and its
/// materials go with the object.
class Imported3ds {
public:
    explicit Imported3ds(const QString& file);
    ~Imported3ds();
    Imported3ds(const Imported3ds&) = delete;
    Imported3ds& operator=(const Imported3ds&) = delete;

    /// True for a path ending in ".3ds", in any case.
    static bool is_3ds(const QString& file);

    /// Null when the import failed; `error()` says why.
    oxaIO::OxaObjects* document() const { return _document.get(); }
    const QString& error() const { return _error; }

    /// The document's head and what the tree holds, in the style of the `info` command.
    void print_summary(QTextStream& out) const;

private:
    // The error text is filled while the document is made, so it comes first.
    model::System _system{false};
    QString _error;
    std::unique_ptr<oxaIO::OxaObjects> _document;
};
