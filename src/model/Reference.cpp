#include "model/Reference.h"

#include "model/Object.h"

namespace model {

Reference::Reference(const QString& local_name, Object* owner, bool is_virtual,
                     const QString& referenced_class)
    : Property(local_name, owner, 2, is_virtual), _referenced_class(referenced_class) {}

Reference::~Reference() = default;

ElementType Reference::element_type() const { return REFERENCE_ELEMENT; }

QString Reference::to_xml() const { return xml_head(QStringLiteral("reference")) + get() + "</reference>"; }

QString Reference::get() const { return owner()->reference_get_value(local_name()); }

void Reference::set(const QString& value) { owner()->reference_set_value(local_name(), value); }

void Reference::restore(const QString& value) { owner()->reference_restore_value(local_name(), value); }

} // namespace model
