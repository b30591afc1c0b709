#pragma once

#include "zentra_export.h"

#include "model/ElementType.h"

#include <QString>

class QTextStream;

namespace model {

/// Abstract root of everything in the object model: a text identifier, unique within a system,
/// and a change counter that starts at 0.
class ZENTRA_EXPORT Element {
public:
    Element() = default;
    explicit Element(const QString& id) : _id(id) {}
    virtual ~Element();

    /// A line of description for printouts. The default text keeps its historic spelling
    /// ("arbitray"), which hosts compare against.
    virtual QString info() const;
    virtual ElementType element_type() const = 0;
    /// Writes "ID" and "version" lines, each starting with `prefix`, and the info line on request.
    virtual void print(const QString& prefix, QTextStream& stream, bool with_info) const;

    const QString& id() const { return _id; }
    long version() const { return _version; }
    void version(long value) { _version = value; }

protected:
    /// The "ID" and "version" lines that every printout of an element starts with.
    void print_identity(const QString& prefix, QTextStream& stream) const;

    QString _id;
    long _version = 0;
};

} // namespace model
