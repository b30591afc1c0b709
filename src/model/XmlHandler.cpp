#include "model/XmlHandler.h"

#include "model/List.h"
#include "model/Map.h"
#include "model/Object.h"
#include "model/Primitive.h"
#include "model/Reference.h"
#include "model/Set.h"

namespace model {

namespace {

QString folded(const QString& qualified_name) {
    return qualified_name.trimmed().toLower();
}

bool names_property(const QString& element) {
    return element == QLatin1String("primitive") || element == QLatin1String("reference") ||
           element == QLatin1String("map") || element == QLatin1String("set") ||
           element == QLatin1String("list");
}

} // namespace

XmlHandler::XmlHandler(Object* object) : object(object) {}

XmlHandler::~XmlHandler() = default;

bool XmlHandler::startElement(const QString&, const QString&, const QString& qualified_name,
                              const QXmlAttributes& attributes) {
    const QString element = folded(qualified_name);
    if (names_property(element)) {
        local_name = attributes.value(QStringLiteral("name"));
        // The parser's frames are not built for unwinding, so a failed look-up is carried
        // across the parse instead of being thrown through it.
        try {
            current = &object->property(local_name);
        } catch (...) {
            _failure = std::current_exception();
            current = nullptr;
            return false;
        }
        current->version(attributes.value(QStringLiteral("version")).toLong(nullptr, 10));
    } else if (element == QLatin1String("setelement")) {
        in_set = true;
    } else if (element == QLatin1String("mapelement")) {
        in_map = true;
        map_key = attributes.value(QStringLiteral("key"));
    } else if (element == QLatin1String("listelement")) {
        in_list = true;
        list_index = attributes.value(QStringLiteral("index")).toInt();
    }
    return true;
}

bool XmlHandler::endElement(const QString&, const QString&, const QString& qualified_name) {
    const QString element = folded(qualified_name);
    if (names_property(element))
        current = nullptr;
    else if (element == QLatin1String("mapelement"))
        in_map = false;
    else if (element == QLatin1String("setelement"))
        in_set = false;
    else if (element == QLatin1String("listelement"))
        in_list = false;
    return true;
}

bool XmlHandler::characters(const QString& text) {
    const QString value = text.trimmed();
    if (value.isEmpty() || !current)
        return true;
    switch (current->element_type()) {
    case PRIMITIVE_ELEMENT:
        static_cast<Primitive*>(current)->restore(value);
        break;
    case REFERENCE_ELEMENT:
        static_cast<Reference*>(current)->restore(value);
        break;
    case SET_ELEMENT:
        if (in_set)
            static_cast<Set*>(current)->restore(value);
        break;
    case MAP_ELEMENT:
        if (in_map)
            static_cast<Map*>(current)->restore(map_key, value);
        break;
    case LIST_ELEMENT:
        if (in_list)
            static_cast<List*>(current)->restore(list_index, value);
        break;
    default:
        break;
    }
    return true;
}

} // namespace model
