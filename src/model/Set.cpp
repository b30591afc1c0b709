#include "model/Set.h"

#include "model/Object.h"

namespace model {

Set::Set(const QString& local_name, Object* owner, int datatype, bool is_virtual)
    : Property(local_name, owner, datatype, is_virtual) {}

Set::~Set() = default;

ElementType Set::element_type() const { return SET_ELEMENT; }

QString Set::to_xml() const {
    QString xml = xml_head(QStringLiteral("set")) + QLatin1Char('\n');
    const QStringList all_values = values();
    for (const QString& value : all_values)
        xml += QStringLiteral("   <setelement>") + value + QStringLiteral("</setelement>\n");
    return xml + QStringLiteral("</set>");
}

QStringList Set::values() const {
    QStringList all_values;
    owner()->set_get_values(local_name(), all_values);
    return all_values;
}

void Set::add(const QString& value) { owner()->set_add_value(local_name(), value); }

void Set::remove(const QString& value) { owner()->set_remove_value(local_name(), value); }

void Set::restore(const QString& value) { owner()->set_restore_value(local_name(), value); }

} // namespace model
