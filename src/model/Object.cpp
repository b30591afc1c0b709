#include "model/Object.h"

#include "basic/identifier.h"
#include "basic/numeric.h"
#include "model/Method.h"
#include "model/Primitive.h"
#include "model/Repository.h"
#include "model/RepositoryP.h"
#include "model/System.h"
#include "model/XmlHandler.h"
#include "model/object_xml.h"
#include "model/exceptions.h"

#include <QRegExp>
#include <QTextStream>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

#include <cstdio>

namespace model {

namespace {

const QString id_property_name = QStringLiteral("ID");

/// Enters `member` under its local name; a different member already there is deleted.
template <typename Member> void insert_member(QMap<QString, Member*>& members, Member* member) {
    Member*& slot = members[member->local_name()];
    if (slot != member)
        delete slot;
    slot = member;
}

} // namespace

Object::Object(System* system) : Element(basic::create_ID()), _system(system) { init(nullptr); }

Object::Object(Repository* repository) : Element(basic::create_ID()) { init(repository); }

Object::Object(const QString& id, RepositoryP* repository) : Element(id) { init(repository); }

Object::Object(System* system, const QString& id) : Element(id), _system(system) { init(nullptr); }

Object::Object(const Object& other) : Element(basic::create_ID()), _system(other._system) {
    init(other._repository);
}

Object& Object::operator=(const Object& other) {
    _id = other._id;
    _version = other._version;
    _system = other._system;
    _repository = other._repository;
    _properties = other._properties;
    _methods = other._methods;
    return *this;
}

Object::~Object() {
    if (_repository)
        _repository->remove(this);
    qDeleteAll(_properties);
    _properties.clear();
    qDeleteAll(_methods);
    _methods.clear();
}

void Object::init(Repository* repository) {
    if (repository)
        _system = repository->system();
    else if (_system)
        repository = &_system->repository();
    _repository = repository;
    if (_repository)
        _repository->insert(this);
}

QString Object::info() const { return QStringLiteral("Baseclass of all objects."); }

ElementType Object::element_type() const { return OBJECT_ELEMENT; }

void Object::print(const QString& prefix, QTextStream& stream, bool with_info) const {
    print_identity(prefix, stream);
    stream << prefix << "class              [" << classname() << "]\n";
    const QString member_prefix = QStringLiteral("  ") + prefix;
    stream << "\n" << prefix << "[properties]\n";
    for (const Property* property : _properties) {
        try {
            property->print(member_prefix, stream, false);
        } catch (const basic::Exception& e) {
            stream << e.text() << "\n";
        }
        stream << prefix << "--\n";
    }
    stream << "\n" << prefix << "[methods]\n";
    for (const Method* method : _methods) {
        try {
            method->print(member_prefix, stream, false);
        } catch (const NoSuchMethod_Exception& e) {
            stream << e.text() << "\n";
        }
        stream << prefix << "--\n";
    }
    if (with_info)
        stream << prefix << "info  [" << info() << "]\n";
}

void Object::delete_object() {
    if (_repository)
        _repository->remove(_id);
    delete this;
}

long Object::hashcode() {
    static const long hash = basic::hash_text(QStringLiteral("model::Object"));
    return hash;
}

long Object::class_hashcode() const { return hashcode(); }

QString Object::classname() const { return QStringLiteral("model::Object"); }

void Object::superclasses(QStringList&) const {}

void Object::property_list(QStringList& out) const { out.append(id_property_name); }

void Object::method_list(QStringList&) const {}

Property* Object::activate_property(const QString& name) {
    if (name != id_property_name)
        return nullptr;
    auto* id_property = new Primitive(name, this, 2, false);
    insert_property(id_property);
    return id_property;
}

Method* Object::activate_method(const QString&) { return nullptr; }

QString Object::primitive_get_value(const QString& name) const {
    return name == id_property_name ? _id : QString();
}

void Object::primitive_set_value(const QString&, const QString&) {}
void Object::primitive_restore_value(const QString&, const QString&) {}
QString Object::reference_get_value(const QString&) { return QString(); }
void Object::reference_set_value(const QString&, const QString&) {}
void Object::reference_restore_value(const QString&, const QString&) {}
QString Object::invoke_method(const QString&, QStringList&) { return QString(); }
void Object::map_get_all_keys(const QString&, QStringList&) {}
void Object::map_write_value(const QString&, const QString&, const QString&) {}
QString Object::map_get_value(const QString&, const QString&) { return QString(); }
void Object::map_remove_key(const QString&, const QString&) {}
void Object::map_restore_value(const QString&, const QString&, const QString&) {}
void Object::set_get_values(const QString&, QStringList&) {}
void Object::set_add_value(const QString&, const QString&) {}
void Object::set_remove_value(const QString&, const QString&) {}
void Object::set_restore_value(const QString&, const QString&) {}
int Object::list_count(const QString&) const { return -1; }
void Object::list_insert(const QString&, int, const QString&) {}
void Object::list_replace(const QString&, int, const QString&) {}
void Object::list_remove(const QString&, int) {}
QString Object::list_get(const QString&, int) const { return QString(); }
void Object::list_restore(const QString&, int, const QString&) {}
QString Object::member_info(const QString&) const { return QStringLiteral(""); }

Property& Object::property(const QString& name) const {
    if (Property* found = _properties.value(name))
        return *found;
    if (Property* activated = const_cast<Object*>(this)->activate_property(name))
        return *activated;
    throw NoSuchProperty_Exception(QStringLiteral("No such property [") + name + QStringLiteral("]"));
}

Method& Object::method(const QString& name) const {
    if (Method* found = _methods.value(name))
        return *found;
    if (Method* activated = const_cast<Object*>(this)->activate_method(name))
        return *activated;
    throw NoSuchMethod_Exception(QStringLiteral("No such method [") + name + QStringLiteral("]"));
}

void Object::property_list(QStringList& out, const QString& pattern) const {
    QStringList names;
    property_list(names);
    const QRegExp expression(pattern, Qt::CaseSensitive);
    bool matched = false;
    for (const QString& name : qAsConst(names)) {
        if (name.indexOf(expression) >= 0) {
            out.append(_id + QLatin1Char('.') + name);
            matched = true;
        }
    }
    if (!matched) {
        std::fprintf(stderr, "Object::get_property_list() : WARNING \n");
        std::fprintf(stderr, "-> no properties append to list !!\n");
        std::fprintf(stderr, "   object         : [%s] \n", qPrintable(_id));
        std::fprintf(stderr, "   class          : [%s] \n", qPrintable(classname()));
        std::fprintf(stderr, "   select pattern : [%s] \n", qPrintable(pattern));
    }
}

long Object::increase_property_version(const QString& name) {
    try {
        Property& changed = property(name);
        changed.version(changed.version() + 1);
        _version += 1;
        return changed.version();
    } catch (const NoSuchProperty_Exception&) {
        return 0;
    }
}

QString Object::object_to_xml() {
    QString xml = QStringLiteral("<object ID=\"") + _id + QStringLiteral("\" VERSION=\"") +
                  QString::number(_version) + QStringLiteral("\">\n<classname>") + classname() +
                  QStringLiteral("</classname>\n");
    QStringList property_names;
    property_list(property_names);
    for (const QString& name : qAsConst(property_names)) {
        try {
            const Property& member = property(name);
            if (!member.is_virtual())
                xml += member.to_xml() + QLatin1Char('\n');
        } catch (const NoSuchProperty_Exception&) {
            std::printf("did not get property [%s] \n", qPrintable(name));
            std::fflush(stdout);
        }
    }
    QStringList method_names;
    method_list(method_names);
    for (const QString& name : qAsConst(method_names)) {
        try {
            xml += method(name).to_xml() + QLatin1Char('\n');
        } catch (const NoSuchMethod_Exception&) {
            std::printf("did not get method [%s] \n", qPrintable(name));
            std::fflush(stdout);
        }
    }
    return xml + QStringLiteral("</object>");
}

void Object::activate_from_xmldata(const QString& xml) {
    XmlHandler handler(this);
    QXmlInputSource source;
    source.setData(xml);
    QXmlSimpleReader reader;
    reader.setContentHandler(&handler);
    reader.parse(&source);
    if (handler.failure())
        std::rethrow_exception(handler.failure());
    version(xml_object_version(xml));
}

Object* Object::xml_to_object(RepositoryP* repository, const QString& xml) {
    return filled_from_xml(new Object(xml_object_id(xml), repository), xml);
}

void Object::insert_property(Property* property) { insert_member(_properties, property); }

void Object::insert_method(Method* method) { insert_member(_methods, method); }

} // namespace model
