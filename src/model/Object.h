#pragma once

#include "zentra_export.h"

#include "model/Element.h"

#include <QMap>
#include <QString>
#include <QStringList>

namespace model {

class Method;
class Property;
class Repository;
class RepositoryP;
class System;

/// A thing of the model with an identifier, a version and a repository that finds it by that
/// identifier. Besides its ordinary fields it publishes named properties and methods, which are
/// made on first use by name (`property`, `method`) and owned by the object afterwards: a fresh
/// object carries only its identifier and two empty maps.
///
/// A property holds no value; it calls back into the value operations below, each taking the
/// property's local name first. A derived class answers its own names there and hands every
/// other name to its base. `set` is the user-level change (a derived class may raise versions
/// and trigger consequences); `restore` is what persistence uses and only puts the value back.
class ZENTRA_EXPORT Object : public Element {
public:
    /// A new identifier, registered in the system's transient repository.
    explicit Object(System* system);
    /// A new identifier, registered in `repository`.
    explicit Object(Repository* repository);
    /// The given identifier, registered in `repository`; null means none, and the object stays
    /// unregistered because it knows no system.
    Object(const QString& id, RepositoryP* repository);
    /// The given identifier, registered in the system's transient repository.
    Object(System* system, const QString& id);
    /// A new identifier and version 0 in the source's repository; no properties or methods are
    /// taken over.
    Object(const Object& other);
    /// Copies identifier, version, system, repository and both member maps as they stand, so that
    /// both objects then share the same property and method objects. Only for a target that is
    /// discarded right after, without running its destructor on the shared members.
    Object& operator=(const Object& other);
    /// Leaves the repository first, then deletes every property and method.
    ~Object() override;

    QString info() const override;
    ElementType element_type() const override;
    void print(const QString& prefix, QTextStream& stream, bool with_info) const override;

    /// Takes the object out of its repository by identifier, then deletes it.
    virtual void delete_object();
    virtual long class_hashcode() const;
    virtual QString classname() const;
    /// Appends the base classes, root first.
    virtual void superclasses(QStringList& out) const;
    /// Appends the local names of the properties this class publishes.
    virtual void property_list(QStringList& out) const;
    virtual void method_list(QStringList& out) const;
    /// Builds the property of that name, enters it with `insert_property` and returns it; null
    /// for a name the class does not publish.
    virtual Property* activate_property(const QString& name);
    virtual Method* activate_method(const QString& name);

    virtual QString primitive_get_value(const QString& name) const;
    virtual void primitive_set_value(const QString& name, const QString& value);
    virtual void primitive_restore_value(const QString& name, const QString& value);
    virtual QString reference_get_value(const QString& name);
    virtual void reference_set_value(const QString& name, const QString& value);
    virtual void reference_restore_value(const QString& name, const QString& value);
    virtual QString invoke_method(const QString& name, QStringList& args);
    virtual void map_get_all_keys(const QString& name, QStringList& out);
    virtual void map_write_value(const QString& name, const QString& key, const QString& value);
    virtual QString map_get_value(const QString& name, const QString& key);
    virtual void map_remove_key(const QString& name, const QString& key);
    virtual void map_restore_value(const QString& name, const QString& key, const QString& value);
    virtual void set_get_values(const QString& name, QStringList& out);
    virtual void set_add_value(const QString& name, const QString& value);
    virtual void set_remove_value(const QString& name, const QString& value);
    virtual void set_restore_value(const QString& name, const QString& value);
    /// The number of elements, or -1 where the class has no such list.
    virtual int list_count(const QString& name) const;
    virtual void list_insert(const QString& name, int index, const QString& value);
    virtual void list_replace(const QString& name, int index, const QString& value);
    virtual void list_remove(const QString& name, int index);
    virtual QString list_get(const QString& name, int index) const;
    virtual void list_restore(const QString& name, int index, const QString& value);
    /// The description of a property or method, for its `info()`.
    virtual QString member_info(const QString& name) const;
    /// Fills this object's existing properties from its XML text and then takes the object
    /// version from the text. A malformed text stops the fill silently where the fault is, and
    /// what was restored before it stays. A property name the object lacks throws
    /// NoSuchProperty_Exception; the properties restored before it stay changed.
    virtual void activate_from_xmldata(const QString& xml);

    System* system() const { return _system; }
    Repository* repository() const { return _repository; }
    /// The properties and methods activated so far, by local name.
    const QMap<QString, Property*>& properties() const { return _properties; }
    const QMap<QString, Method*>& methods() const { return _methods; }

    /// The property of that local name, activated on first use.
    /// Throws NoSuchProperty_Exception "No such property [name]".
    Property& property(const QString& name) const;
    /// The method of that local name, activated on first use.
    /// Throws NoSuchMethod_Exception "No such method [name]".
    Method& method(const QString& name) const;
    /// Appends "id.name" for each published property whose name `pattern` (a case-sensitive
    /// regular expression) is found in; warns on standard error when none matched. A class that
    /// overrides the one-argument form brings this one in with `using Object::property_list`.
    void property_list(QStringList& out, const QString& pattern) const;
    /// Raises the property's version and the object's by one and returns the property's new
    /// version; 0, and nothing changed, for a property the object does not have.
    long increase_property_version(const QString& name);
    /// The object as XML text: identifier, version, class name, every non-virtual property and
    /// every method. Values are written as they are, without XML escaping.
    QString object_to_xml();

    static long hashcode();
    /// A new plain object under the identifier found in the text, registered in `repository`
    /// and filled by `activate_from_xmldata`. The caller owns it through the repository. Should
    /// the fill throw, the half-made object is deleted and the exception passes on.
    static Object* xml_to_object(RepositoryP* repository, const QString& xml);

    /// For classes that build their members eagerly. A member already entered under the same
    /// local name is deleted and replaced.
    void insert_property(Property* property);
    void insert_method(Method* method);

protected:
    /// The last step of every `xml_to_object`: fills the object made under the text's identifier
    /// and returns it; should the fill throw, the object is deleted and the exception passes on.
    template <typename Made> static Made* filled_from_xml(Made* made, const QString& xml) {
        try {
            made->activate_from_xmldata(xml);
        } catch (...) {
            delete made;
            throw;
        }
        return made;
    }

    /// An unregistered object without identifier; `init` registers it later.
    Object() = default;
    /// Sets the repository (null: the system's transient one) and registers the object.
    void init(Repository* repository);

private:
    System* _system = nullptr;
    Repository* _repository = nullptr;
    // Lazy activation fills the maps on read access, hence mutable.
    mutable QMap<QString, Property*> _properties;
    mutable QMap<QString, Method*> _methods;
};

} // namespace model
