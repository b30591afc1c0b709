#include "model/Primitive.h"

#include "model/Object.h"

#include <QTextStream>

namespace model {

Primitive::Primitive(const QString& local_name, Object* owner, int datatype, bool is_virtual)
    : Property(local_name, owner, datatype, is_virtual) {}

Primitive::~Primitive() = default;

ElementType Primitive::element_type() const { return PRIMITIVE_ELEMENT; }

void Primitive::print(const QString& prefix, QTextStream& stream, bool with_info) const {
    print_property(prefix, stream);
    stream << prefix << "value              [" << get() << "]\n";
    if (with_info)
        print_info(prefix, stream);
}

QString Primitive::to_xml() const { return xml_head(QStringLiteral("primitive")) + get() + "</primitive>"; }

QString Primitive::get() const { return owner()->primitive_get_value(local_name()); }

void Primitive::set(const QString& value) { owner()->primitive_set_value(local_name(), value); }

void Primitive::restore(const QString& value) { owner()->primitive_restore_value(local_name(), value); }

} // namespace model
