#include "model/Element.h"

#include <QTextStream>

namespace model {

Element::~Element() = default;

QString Element::info() const { return QStringLiteral("Base class for arbitray objects"); }

void Element::print_identity(const QString& prefix, QTextStream& stream) const {
    stream << prefix << "ID                 [" << _id << "]\n";
    stream << prefix << "version            [" << _version << "]\n";
}

/// The info line is one column wider than the lines above it; printouts that hosts parse keep it so.
void Element::print(const QString& prefix, QTextStream& stream, bool with_info) const {
    print_identity(prefix, stream);
    if (with_info)
        stream << prefix << "info                [" << info() << "]\n";
}

} // namespace model
