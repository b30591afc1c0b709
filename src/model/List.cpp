#include "model/List.h"

#include "model/Object.h"

namespace model {

List::List(const QString& local_name, Object* owner, int datatype, bool is_virtual)
    : Property(local_name, owner, datatype, is_virtual) {}

List::~List() = default;

ElementType List::element_type() const { return LIST_ELEMENT; }

/// The element tag carries two blanks before "index"; readers of stored texts expect exactly that.
QString List::to_xml() const {
    QString xml = xml_head(QStringLiteral("list")) + QLatin1Char('\n');
    const int elements = count();
    for (int index = 0; index < elements; ++index)
        xml += QStringLiteral("   <listelement  index=\"") + QString::number(index) + QStringLiteral("\">") +
               get(index) + QStringLiteral("</listelement>\n");
    return xml + QStringLiteral("</list>");
}

int List::count() const { return owner()->list_count(local_name()); }

void List::insert(int index, const QString& value) { owner()->list_insert(local_name(), index, value); }

void List::replace(int index, const QString& value) { owner()->list_replace(local_name(), index, value); }

void List::remove(int index) { owner()->list_remove(local_name(), index); }

QString List::get(int index) const { return owner()->list_get(local_name(), index); }

void List::restore(int index, const QString& value) { owner()->list_restore(local_name(), index, value); }

} // namespace model
