#include "model/Property.h"

#include "model/Method.h"
#include "model/Object.h"
#include "model/System.h"
#include "model/exceptions.h"

#include <QTextStream>

namespace model {

namespace {
const QString method_separator = QStringLiteral("::");
}

Property::Property(const QString& local_name, Object* owner, int datatype, bool is_virtual)
    : Element(owner->id() + QLatin1Char('.') + local_name), _owner(owner), _is_virtual(is_virtual),
      _datatype(datatype), _local_name(local_name) {}

Property::~Property() = default;

QString Property::info() const { return _owner->member_info(_local_name); }

QVariant Property::variant_value() const { return QVariant(); }

void Property::print_property(const QString& prefix, QTextStream& stream) const {
    stream << prefix << "local name         [" << _local_name << "]\n";
    print_identity(prefix, stream);
    stream << prefix << "ptr                [" << static_cast<const void*>(this) << "]\n";
    stream << prefix << "type               [" << element_type_text(element_type()) << "]\n";
    stream << prefix << "datatype           [" << _datatype << "]\n";
    stream << prefix << "virtual            [" << _is_virtual << "]\n";
    if (has_update_method()) {
        stream << prefix << "has update method  [true]\n";
        stream << prefix << "    update method  <" << update_method() << ">\n";
    } else {
        stream << prefix << "has update method  [false]\n";
    }
}

void Property::print_info(const QString& prefix, QTextStream& stream) const {
    stream << prefix << "info               [" << info() << "]\n";
}

void Property::print(const QString& prefix, QTextStream& stream, bool with_info) const {
    print_property(prefix, stream);
    if (with_info)
        print_info(prefix, stream);
}

QString Property::update_method() const {
    const QString& object_id = _update_method_object.isEmpty() ? _owner->id() : _update_method_object;
    return object_id + method_separator + _update_method_name;
}

void Property::set_update_method(const QString& path, bool implicit) {
    const int separator = path.indexOf(method_separator);
    if (separator <= 0) {
        _update_method_name = path;
        _update_method_object.clear();
    } else {
        _update_method_name = path.mid(separator + method_separator.size());
        _update_method_object = path.left(separator);
    }
    _update_method_implicit = implicit;
}

Method& Property::resolve_update_method() const {
    if (_update_method_name.isEmpty())
        throw NoSuchMethod_Exception(QStringLiteral("No such method []"));
    try {
        Object* target = _owner;
        if (!_update_method_object.isEmpty()) {
            System* system = _owner->system();
            target = system ? system->object(_update_method_object) : nullptr;
            if (!target)
                throw NoSuchMethod_Exception(QStringLiteral("No such method [") + update_method() +
                                             QStringLiteral("]"));
        }
        return target->method(_update_method_name);
    } catch (const basic::Exception& e) {
        throw basic::Exception(e.text());
    }
}

QString Property::xml_head(const QString& tag) const {
    QString head = QLatin1Char('<') + tag + QStringLiteral(" name=\"") + _local_name +
                   QStringLiteral("\" VERSION=\"") + QString::number(version());
    if (has_update_method() && !_update_method_implicit)
        head += QStringLiteral("\" updatemethod=\"") + update_method();
    return head + QStringLiteral("\">");
}

} // namespace model
