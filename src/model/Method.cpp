#include "model/Method.h"

#include "model/List.h"
#include "model/Object.h"
#include "model/Reference.h"
#include "model/System.h"
#include "model/exceptions.h"

#include <QTextStream>

namespace model {

namespace {

const QChar subpath_open = QLatin1Char('[');

bool has_subpath(const QString& path) { return path.contains(subpath_open); }

} // namespace

Method::Method(const QString& local_name, Object* owner, int return_type)
    : Element(owner->id() + QStringLiteral("::") + local_name), _local_name(local_name),
      _return_type(return_type), _owner(owner) {}

Method::~Method() { qDeleteAll(_parameters); }

QString Method::info() const { return _owner->member_info(_local_name); }

ElementType Method::element_type() const { return METHOD_ELEMENT; }

QString Method::invoke(QStringList& args) { return _owner->invoke_method(_local_name, args); }

void Method::add_parameter(const QString& name, int type, const QString& description) {
    _parameters.append(new parameter{name, type, description});
}

void Method::add_input_path(const QString& path) {
    _input_paths.append(path);
    if (has_subpath(path))
        ++_subupdate_count;
}

void Method::remove_input_path(const QString& path) {
    const int removed = _input_paths.removeAll(path);
    if (has_subpath(path))
        _subupdate_count -= removed;
}

void Method::add_output_path(const QString& path) { _output_paths.append(path); }

void Method::remove_output_path(const QString& path) { _output_paths.removeAll(path); }

QStringList Method::input_properties() const {
    QStringList properties;
    for (const QString& path : _input_paths) {
        const QString property_path = path.left(path.indexOf(subpath_open));
        if (!properties.contains(property_path))
            properties.append(property_path);
    }
    return properties;
}

QStringList Method::subupdate_properties(System* system) const {
    QStringList properties;
    if (!system)
        return properties;
    for (const QString& path : _input_paths) {
        const int open = path.indexOf(subpath_open);
        if (open < 0)
            continue;
        const QString subpath = path.mid(open + 1, path.size() - open - 2);
        try {
            Property& followed = system->property(path.left(open));
            if (followed.element_type() == REFERENCE_ELEMENT) {
                properties.append(static_cast<Reference&>(followed).get() + QLatin1Char('.') + subpath);
            } else if (followed.element_type() == LIST_ELEMENT) {
                const List& list = static_cast<List&>(followed);
                const int elements = list.count();
                for (int index = 0; index < elements; ++index)
                    properties.append(list.get(index) + QLatin1Char('.') + subpath);
            }
        } catch (const basic::Exception&) {
        }
    }
    return properties;
}

void Method::print(System* system, const QString& prefix, QTextStream& stream, bool) const {
    stream << prefix << "local name       [" << _local_name << "]\n";
    stream << prefix << "ID               [" << _id << "]\n";
    stream << prefix << "last versions of input property at update :\n";
    for (auto entry = _last_update_versions.cbegin(); entry != _last_update_versions.cend(); ++entry)
        stream << prefix << "  [" << entry.key() << "] v = <" << entry.value() << "> \n";
    if (needs_subupdate()) {
        stream << prefix << "needs subupdate  [true]\n";
        stream << prefix << " property paths:\n";
        for (const QString& path : _input_paths)
            if (has_subpath(path))
                stream << prefix << "  <" << path << ">\n";
        stream << prefix << " current properties for subupdate:\n";
        const QStringList current = subupdate_properties(system);
        for (const QString& path : current)
            stream << prefix << "  <" << path << ">\n";
    } else {
        stream << prefix << "needs subupdate  [false]\n";
    }
    stream << prefix << "input properties :\n";
    const QStringList inputs = input_properties();
    for (const QString& path : inputs)
        stream << prefix << "  " << path << "\n";
    stream << prefix << "output properties:\n";
    for (const QString& path : _output_paths)
        stream << prefix << "  <" << path << ">\n";
}

QString Method::to_xml() const {
    QString xml = QStringLiteral("<method name=\"") + _local_name + QStringLiteral("\" VERSION=\"") +
                  QString::number(_version) + QStringLiteral("\">\n");
    for (auto entry = _last_update_versions.cbegin(); entry != _last_update_versions.cend(); ++entry)
        xml += QStringLiteral("  <lastupdate name=\"") + entry.key() + QStringLiteral("\" version=\"") +
               QString::number(entry.value()) + QStringLiteral("\"/>\n");
    for (const QString& path : _input_paths)
        xml += QStringLiteral("  <inputpath name=\"") + path + QStringLiteral("\"/>\n");
    for (const QString& path : _output_paths)
        xml += QStringLiteral("  <outputpath name=\"") + path + QStringLiteral("\"/>\n");
    return xml + QStringLiteral("</method>");
}

} // namespace model
