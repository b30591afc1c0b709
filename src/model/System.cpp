#include "model/System.h"

#include "model/Object.h"
#include "model/Property.h"
#include "model/QSAlgebra.h"
#include "model/QSColumnAbstract.h"
#include "model/Repository.h"
#include "model/RepositoryP.h"
#include "model/exceptions.h"

#include <cstdio>

namespace model {

System::System(bool quick_search)
    : _data(new QMap<QString, QVariant>()), _qs_columns(new QHash<QString, QSColumnAbstract*>()),
      _quick_search(quick_search) {}

System::~System() {
    delete _qs_columns;
    delete _transient;
    delete _persistent;
    delete _data;
    deletePaths();
}

Repository& System::repository() {
    if (!_transient)
        _transient = new Repository(this);
    return *_transient;
}

RepositoryP& System::repositoryP(const QString& name) {
    RepositoryP* found = persistent_repositories()[name];
    if (!found)
        throw NoSuchRepository_Exception(QStringLiteral("No such repository [") + name + QStringLiteral("]"));
    return *found;
}

bool System::add_repository(RepositoryP* repository, const QString& name) {
    QMap<QString, RepositoryP*>& repositories = persistent_repositories();
    if (repositories.contains(name))
        return false;
    repositories.insert(name, repository);
    return true;
}

void System::remove_repository(const QString& name) { persistent_repositories().remove(name); }

QMap<QString, RepositoryP*>& System::persistent_repositories() {
    if (!_persistent)
        _persistent = new QMap<QString, RepositoryP*>();
    return *_persistent;
}

void System::get_active_repositories(QStringList& out) { out.append(persistent_repositories().keys()); }

Object* System::object(const QString& id) {
    const QString key = id.trimmed();
    if (Object* found = repository().object(key))
        return found;
    for (RepositoryP* persistent : persistent_repositories())
        if (persistent)
            if (Object* found = persistent->object(key))
                return found;
    return nullptr;
}

bool System::object_exists(const QString& id) { return object(id) != nullptr; }

QString System::resolve_property_path(QString& path) {
    const QChar dot = QLatin1Char('.');
    const int first = path.indexOf(dot);
    const int second = first < 0 ? -1 : path.indexOf(dot, first + 1);
    if (second < 0)
        return QString();
    const QString head = path.left(second);
    const Object* owner = object(head.left(first));
    if (!owner)
        return QString();
    const Property& through = owner->property(path.mid(first + 1, second - first - 1));
    path.replace(0, second, through.owner()->reference_get_value(through.local_name()));
    return head;
}

/// Every successful look-up is traced on standard error; hosts' logs are read with that line.
Property& System::property(const QString& path) {
    QString resolved = path;
    // Each step through a proper reference removes one ".", so a path can take no more steps
    // than it has "."s; the bound stops reference values that hold "." from cycling for ever.
    for (int steps = path.count(QLatin1Char('.')); steps > 0; --steps)
        if (resolve_property_path(resolved).isEmpty())
            break;
    const int dot = resolved.indexOf(QLatin1Char('.'));
    if (dot < 0)
        throw basic::Exception(QStringLiteral("Wrong ID. Excpected format [objID.localname] "));
    const Object* owner = object(resolved.left(dot));
    if (!owner)
        throw basic::Exception(QStringLiteral("No object"));
    try {
        Property& found = owner->property(resolved.mid(dot + 1));
        std::fprintf(stderr, "%s</System::get_property(%s)> <ok> \n", ":", qPrintable(path));
        return found;
    } catch (const NoSuchProperty_Exception&) {
        throw basic::Exception(QStringLiteral("No property"));
    }
}

Method& System::method(const QString& name) {
    throw NoSuchMethod_Exception(QStringLiteral("No such method [") + name + QStringLiteral("]"));
}

QStringList System::all_properties(QList<Object*>& objects) {
    QSet<long> seen_classes;
    QSet<QString> names;
    for (const Object* candidate : qAsConst(objects)) {
        if (seen_classes.contains(candidate->class_hashcode()))
            continue;
        seen_classes.insert(candidate->class_hashcode());
        QStringList class_names;
        candidate->property_list(class_names);
        for (const QString& name : qAsConst(class_names))
            names.insert(name);
    }
    return names.values();
}

QStringList System::common_properties(QList<Object*>& objects) {
    if (objects.isEmpty())
        return QStringList();
    const Object* first = objects.first();
    QSet<long> seen_classes{first->class_hashcode()};
    QSet<QString> names;
    QStringList first_names;
    first->property_list(first_names);
    for (const QString& name : qAsConst(first_names)) {
        try {
            first->property(name);
            names.insert(name);
        } catch (const NoSuchProperty_Exception&) {
            std::printf("did not get property [%s] \n", qPrintable(name));
            std::fflush(stdout);
        }
    }
    for (const Object* candidate : qAsConst(objects)) {
        if (seen_classes.contains(candidate->class_hashcode()))
            continue;
        seen_classes.insert(candidate->class_hashcode());
        QSet<QString> missing;
        for (const QString& name : qAsConst(names)) {
            try {
                candidate->property(name);
            } catch (const basic::Exception&) {
                missing.insert(name);
            }
        }
        names.subtract(missing);
    }
    return names.values();
}

QList<QSColumnAbstract*>* System::newPath(QList<QSColumnAbstract*>* path) {
    auto* made = path ? new QList<QSColumnAbstract*>(*path) : new QList<QSColumnAbstract*>();
    _paths.insert(made);
    return made;
}

void System::deletePaths() {
    qDeleteAll(_paths);
    _paths.clear();
}

void System::clearAllFilters() {
    for (QSColumnAbstract* column : qAsConst(*_qs_columns))
        column->clear_filter();
}

void System::update_shortestpaths() {
    ++_graph_generation;
    _graph.clear();
    deletePaths();

    ColumnGraph adjacency;
    int column_count = 0;
    for (QSColumnAbstract* column : qAsConst(*_qs_columns)) {
        _graph.add_key(column);
        adjacency.add_key(column);
        ++column_count;
    }
    for (QSColumnAbstract* column : qAsConst(*_qs_columns))
        for (QSColumnAbstract* neighbour : column->edges()) {
            ColumnPath direct{column, neighbour};
            _graph.set(column, neighbour, newPath(&direct));
            ColumnPath step{neighbour};
            adjacency.set(column, neighbour, newPath(&step));
        }

    QSAlgebra algebra(this);
    for (int round = 1; round < column_count; ++round) {
        const ColumnGraph longer = _graph.multiply(adjacency, _graph.key_list(), algebra);
        _graph.merge(longer, algebra);
    }
}

} // namespace model
