#include "model/Map.h"

#include "model/Object.h"

namespace model {

Map::Map(const QString& local_name, Object* owner, int datatype, bool is_virtual)
    : Property(local_name, owner, datatype, is_virtual) {}

Map::~Map() = default;

ElementType Map::element_type() const { return MAP_ELEMENT; }

QString Map::to_xml() const {
    QString xml = xml_head(QStringLiteral("map")) + QLatin1Char('\n');
    const QStringList all_keys = keys();
    for (const QString& key : all_keys)
        xml += QStringLiteral("   <mapelement key=\"") + key + QStringLiteral("\">") + get(key) +
               QStringLiteral("</mapelement>\n");
    return xml + QStringLiteral("</map>");
}

QStringList Map::keys() const {
    QStringList all_keys;
    owner()->map_get_all_keys(local_name(), all_keys);
    return all_keys;
}

void Map::write(const QString& key, const QString& value) { owner()->map_write_value(local_name(), key, value); }

QString Map::get(const QString& key) const { return owner()->map_get_value(local_name(), key); }

void Map::remove(const QString& key) { owner()->map_remove_key(local_name(), key); }

void Map::restore(const QString& key, const QString& value) {
    owner()->map_restore_value(local_name(), key, value);
}

} // namespace model
