// Feeds arbitrary text to the reading of an object from XML: the handler over the parser, the
// restore paths of every property kind, the extractors, and the construction of a plain object.
// A missing property is the one expected failure.

#include "model/List.h"
#include "model/Map.h"
#include "model/Object.h"
#include "model/Primitive.h"
#include "model/Reference.h"
#include "model/RepositoryP.h"
#include "model/Set.h"
#include "model/System.h"
#include "model/exceptions.h"
#include "model/object_xml.h"

#include <QMap>
#include <QStringList>

#include <cstddef>
#include <cstdint>

namespace {

/// Publishes one property of each kind and keeps what is restored.
class Target : public model::Object {
public:
    explicit Target(model::System* system) : model::Object(system, QStringLiteral("target")) {}

    void property_list(QStringList& out) const override {
        model::Object::property_list(out);
        out << "p"
            << "r"
            << "l"
            << "m"
            << "s";
    }
    model::Property* activate_property(const QString& name) override {
        model::Property* made = nullptr;
        if (name == "p")
            made = new model::Primitive(name, this, 2, false);
        else if (name == "r")
            made = new model::Reference(name, this, false, "model::Object");
        else if (name == "l")
            made = new model::List(name, this, 2, false);
        else if (name == "m")
            made = new model::Map(name, this, 2, false);
        else if (name == "s")
            made = new model::Set(name, this, 2, false);
        else
            return model::Object::activate_property(name);
        insert_property(made);
        return made;
    }
    void primitive_restore_value(const QString&, const QString& value) override { primitive = value; }
    void reference_restore_value(const QString&, const QString& value) override { reference = value; }
    void list_restore(const QString&, int index, const QString& value) override {
        list.insert(qBound(0, index, list.size()), value);
    }
    void map_restore_value(const QString&, const QString& key, const QString& value) override {
        map[key] = value;
    }
    void set_restore_value(const QString&, const QString& value) override { set << value; }

    QString primitive;
    QString reference;
    QStringList list;
    QMap<QString, QString> map;
    QStringList set;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString xml = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    model::System system(true);
    Target target(&system);
    try {
        target.activate_from_xmldata(xml);
    } catch (const model::NoSuchProperty_Exception&) {
    }
    model::xml_object_id(xml);
    model::xml_classname(xml);
    auto* store = new model::RepositoryP(&system);
    system.add_repository(store, QStringLiteral("store"));
    try {
        delete model::Object::xml_to_object(store, xml);
    } catch (const model::NoSuchProperty_Exception&) {
    }
    system.remove_repository(QStringLiteral("store"));
    delete store;
    return 0;
}
