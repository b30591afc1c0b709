#pragma once

#include "zentra_export.h"

#include <QString>
#include <QXmlDefaultHandler>

#include <exception>

namespace model {

class Object;
class Property;

/// The SAX side of reading an object back from its XML text: each `primitive`, `reference`,
/// `map`, `set` or `list` element selects the property of that name on the target object, and
/// the text inside is handed to the property's restore operation. The handler creates nothing:
/// the object must already publish every property that the text names. Other elements of the
/// object text (`object`, `classname`, `method`, ...) are passed over, so methods and their
/// recorded versions never come back from XML. Lives for one parse.
class ZENTRA_EXPORT XmlHandler : public QXmlDefaultHandler {
public:
    /// `object` is not owned.
    explicit XmlHandler(Object* object);
    ~XmlHandler() override;

    /// Element names are trimmed and folded to lower case; attribute names are taken as they
    /// stand. The property version is read from the attribute "version" while the writers emit
    /// "VERSION": the lookup is case-sensitive, finds nothing and yields 0, so every property
    /// comes back at version 0. Hosts rely on property versions restarting on load.
    bool startElement(const QString& namespace_uri, const QString& local_name_of_element,
                      const QString& qualified_name, const QXmlAttributes& attributes) override;
    bool endElement(const QString& namespace_uri, const QString& local_name_of_element,
                    const QString& qualified_name) override;
    /// Restores the trimmed text into the current property; a map, set or list entry only while
    /// the parser stands inside the matching entry element. A text the parser delivers in pieces
    /// is restored piece by piece.
    bool characters(const QString& text) override;

    /// A failure raised while a property was looked up (a name the object lacks). The parse
    /// stops there; `Object::activate_from_xmldata` throws it on to its caller.
    std::exception_ptr failure() const { return _failure; }

private:
    Object* object;
    bool in_map = false;
    bool in_set = false;
    bool in_list = false;
    Property* current = nullptr;
    QString local_name;
    QString map_key;
    qint32 list_index = 0;
    std::exception_ptr _failure;
};

} // namespace model
