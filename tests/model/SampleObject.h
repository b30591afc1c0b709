#pragma once

// A small model class for the object-model tests: it publishes one property of each kind and
// one method, and keeps the values in plain fields, as a class of a host would.

#include "basic/numeric.h"
#include "model/List.h"
#include "model/Map.h"
#include "model/Method.h"
#include "model/Object.h"
#include "model/Primitive.h"
#include "model/Reference.h"
#include "model/Set.h"

#include <QMap>
#include <QStringList>

class SampleObject : public model::Object {
public:
    SampleObject(model::System* system, const QString& id) : model::Object(system, id) {}
    SampleObject(const QString& id, model::RepositoryP* repository) : model::Object(id, repository) {}

    QString name;
    QString next;
    QStringList items;
    QMap<QString, QString> attributes;
    QStringList tags;
    /// Lists a name that the class cannot activate, as a broken class would.
    bool publish_ghost = false;
    /// How often each property was built.
    QMap<QString, int> activations;

    static long hashcode() {
        static const long hash = basic::hash_text(QStringLiteral("test::Sample"));
        return hash;
    }
    long class_hashcode() const override { return hashcode(); }
    QString classname() const override { return QStringLiteral("test::Sample"); }
    QString info() const override { return QStringLiteral("Sample for tests."); }
    using model::Object::property_list;
    void property_list(QStringList& out) const override {
        model::Object::property_list(out);
        out << QStringList{"name", "next", "items", "attributes", "tags", "area"};
        if (publish_ghost)
            out << "ghost";
    }
    void method_list(QStringList& out) const override {
        model::Object::method_list(out);
        out << "recompute";
    }

    model::Property* activate_property(const QString& property_name) override {
        model::Property* made = nullptr;
        if (property_name == "name")
            made = new model::Primitive(property_name, this, 2, false);
        else if (property_name == "area")
            made = new model::Primitive(property_name, this, 5, true);
        else if (property_name == "next")
            made = new model::Reference(property_name, this, false, "test::Sample");
        else if (property_name == "items")
            made = new model::List(property_name, this, 2, false);
        else if (property_name == "attributes")
            made = new model::Map(property_name, this, 2, false);
        else if (property_name == "tags")
            made = new model::Set(property_name, this, 2, false);
        else
            return model::Object::activate_property(property_name);
        insert_property(made);
        ++activations[property_name];
        return made;
    }
    model::Method* activate_method(const QString& method_name) override {
        if (method_name != "recompute")
            return model::Object::activate_method(method_name);
        auto* made = new model::Method(method_name, this, 2);
        insert_method(made);
        return made;
    }

    // A user-level change raises the versions; restoring only puts the value back.
    QString primitive_get_value(const QString& n) const override {
        if (n == "name")
            return name;
        if (n == "area")
            return "12.5";
        return model::Object::primitive_get_value(n);
    }
    void primitive_set_value(const QString& n, const QString& value) override {
        if (n != "name")
            return model::Object::primitive_set_value(n, value);
        name = value;
        increase_property_version(n);
    }
    void primitive_restore_value(const QString& n, const QString& value) override {
        if (n != "name")
            return model::Object::primitive_restore_value(n, value);
        name = value;
    }
    QString reference_get_value(const QString& n) override {
        return n == "next" ? next : model::Object::reference_get_value(n);
    }
    void reference_set_value(const QString& n, const QString& value) override {
        if (n != "next")
            return model::Object::reference_set_value(n, value);
        next = value;
        increase_property_version(n);
    }
    void reference_restore_value(const QString& n, const QString& value) override {
        if (n != "next")
            return model::Object::reference_restore_value(n, value);
        next = value;
    }
    QString invoke_method(const QString& n, QStringList& args) override {
        return n == "recompute" ? args.join('+') : model::Object::invoke_method(n, args);
    }
    int list_count(const QString& n) const override {
        return n == "items" ? items.size() : model::Object::list_count(n);
    }
    void list_insert(const QString& n, int index, const QString& value) override {
        if (n != "items")
            return model::Object::list_insert(n, index, value);
        items.insert(index, value);
    }
    void list_replace(const QString& n, int index, const QString& value) override {
        if (n != "items")
            return model::Object::list_replace(n, index, value);
        items[index] = value;
    }
    void list_remove(const QString& n, int index) override {
        if (n != "items")
            return model::Object::list_remove(n, index);
        items.removeAt(index);
    }
    QString list_get(const QString& n, int index) const override {
        return n == "items" ? items.value(index) : model::Object::list_get(n, index);
    }
    void list_restore(const QString& n, int index, const QString& value) override {
        list_insert(n, index, value);
    }
    void map_get_all_keys(const QString& n, QStringList& out) override {
        if (n != "attributes")
            return model::Object::map_get_all_keys(n, out);
        out.append(attributes.keys());
    }
    void map_write_value(const QString& n, const QString& key, const QString& value) override {
        if (n != "attributes")
            return model::Object::map_write_value(n, key, value);
        attributes[key] = value;
    }
    QString map_get_value(const QString& n, const QString& key) override {
        return n == "attributes" ? attributes.value(key) : model::Object::map_get_value(n, key);
    }
    void map_remove_key(const QString& n, const QString& key) override {
        if (n != "attributes")
            return model::Object::map_remove_key(n, key);
        attributes.remove(key);
    }
    void map_restore_value(const QString& n, const QString& key, const QString& value) override {
        map_write_value(n, key, value);
    }
    void set_get_values(const QString& n, QStringList& out) override {
        if (n != "tags")
            return model::Object::set_get_values(n, out);
        out.append(tags);
    }
    void set_add_value(const QString& n, const QString& value) override {
        if (n != "tags")
            return model::Object::set_add_value(n, value);
        if (!tags.contains(value))
            tags.append(value);
    }
    void set_remove_value(const QString& n, const QString& value) override {
        if (n != "tags")
            return model::Object::set_remove_value(n, value);
        tags.removeAll(value);
    }
    void set_restore_value(const QString& n, const QString& value) override { set_add_value(n, value); }
    QString member_info(const QString& n) const override {
        return n == "name" ? QStringLiteral("The name shown to users.") : model::Object::member_info(n);
    }
};
