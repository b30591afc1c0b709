#pragma once

#include "zentra_export.h"

#include "model/Element.h"

#include <QString>
#include <QVariant>

namespace model {

class Method;
class Object;

/// A named handle on a value that lives in its owner: the property kinds forward every access to
/// the owner's value operations with their local name. Its identifier is "ownerID.localname".
/// A property may name the method that computes it ("objectID::method", or the owner's method).
class ZENTRA_EXPORT Property : public Element {
public:
    /// `datatype` is a free code for printouts; `is_virtual` marks a computed value that
    /// `Object::object_to_xml` leaves out.
    Property(const QString& local_name, Object* owner, int datatype, bool is_virtual);
    ~Property() override;

    /// The owner's `member_info` for this property.
    QString info() const override;
    void print(const QString& prefix, QTextStream& stream, bool with_info) const override;
    virtual QString to_xml() const = 0;
    virtual QVariant variant_value() const;

    Object* owner() const { return _owner; }
    const QString& local_name() const { return _local_name; }
    bool is_virtual() const { return _is_virtual; }
    int datatype() const { return _datatype; }
    bool update_method_implicit() const { return _update_method_implicit; }

    bool has_update_method() const { return !_update_method_name.isEmpty(); }
    /// "objectID::name", with the owner's identifier when no object was given.
    QString update_method() const;
    /// Splits "objectID::name" at the first "::". A path without it, or starting with it, is
    /// taken whole as the method name of the owner. An implicit method is not written to XML.
    void set_update_method(const QString& path, bool implicit);
    /// The method that computes this property. Throws basic::Exception (never a more special
    /// kind) when none is set or it cannot be found.
    Method& resolve_update_method() const;

protected:
    /// The lines every property prints, without info.
    void print_property(const QString& prefix, QTextStream& stream) const;
    void print_info(const QString& prefix, QTextStream& stream) const;
    /// `<tag name="local" VERSION="v"[ updatemethod="full"]>`, the opening of every `to_xml`.
    QString xml_head(const QString& tag) const;

private:
    Object* _owner;
    bool _is_virtual;
    int _datatype;
    QString _update_method_name;
    QString _update_method_object;
    bool _update_method_implicit = false;
    QString _local_name;
};

} // namespace model
