#pragma once

#include "zentra_export.h"

#include "model/Graph.h"
#include "model/mapCoordsType.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

namespace mesh3D {
class GeometricElement;
}

namespace model {

class Method;
class Object;
class Property;
class QSColumnAbstract;
class Repository;
class RepositoryP;

/// A chain of table columns, first to last; owned by the system that made it.
using ColumnPath = QList<QSColumnAbstract*>;
/// For every ordered pair of connected columns, the shortest chain between them.
using ColumnGraph = ::graph::Graph<QSColumnAbstract*, ColumnPath*>;

/// The root of one object space. It owns the transient repository and a named list of
/// persistent ones (which it searches, but does not own), finds objects by identifier and
/// properties by path, and holds the table columns and the per-element texture coordinates
/// that other parts of the model keep here.
///
/// A property path is "objectID.name", or runs through references: in "a.b.c" the value of
/// reference `b` of object `a` is the identifier of the object whose property `c` is meant.
class ZENTRA_EXPORT System {
public:
    /// With `quick_search` false the quick-search tables are switched off.
    explicit System(bool quick_search);
    System(const System&) = delete;
    System& operator=(const System&) = delete;
    ~System();

    /// The transient repository, made on first use.
    Repository& repository();
    /// The persistent repository of that name. Throws NoSuchRepository_Exception for an unknown
    /// name, and leaves a null entry under that name behind, so that a later `add_repository`
    /// with the name fails; hosts rely on a failed look-up reserving the name.
    RepositoryP& repositoryP(const QString& name);
    /// False, and nothing changed, if the name is taken.
    bool add_repository(RepositoryP* repository, const QString& name);
    /// Takes the entry out; the repository stays alive.
    void remove_repository(const QString& name);
    QMap<QString, RepositoryP*>& persistent_repositories();
    /// Appends the names of the persistent repositories, in key order.
    void get_active_repositories(QStringList& out);

    /// The object of that identifier, with blanks trimmed from both ends: the transient
    /// repository first, then the persistent ones in name order; null if none has it.
    Object* object(const QString& id);
    bool object_exists(const QString& id);
    /// The property a path names, following references. Throws basic::Exception with
    /// "Wrong ID. Excpected format [objID.localname] " (spelled so) for a path without ".",
    /// "No object" and "No property" for a missing object or property at the end, and
    /// NoSuchProperty_Exception for a missing reference on the way.
    Property& property(const QString& path);
    /// The system has no methods: always throws NoSuchMethod_Exception.
    Method& method(const QString& name);
    /// One step along a path of at least two "."s: replaces "objectID.reference" at its front by
    /// the reference's value and returns the replaced head. A null string when nothing is left to
    /// resolve or the object does not exist. The middle property is read as a reference value
    /// whatever its kind, so a path may run only through references.
    QString resolve_property_path(QString& path);
    /// The union of the property names of the objects' classes, asking one object per class.
    QStringList all_properties(QList<Object*>& objects);
    /// The property names that every class among the objects can produce, judged by the first
    /// object of each class.
    QStringList common_properties(QList<Object*>& objects);

    /// Free storage for a host, one map per system.
    QMap<QString, QVariant>& data() { return *_data; }
    /// The number of update runs under way; kept by a host's update driver, 0 in a new system.
    int update_count() const { return _update_count; }
    void update_count(int count) { _update_count = count; }
    bool update_running() const { return _update_count > 0; }
    bool quickSearch() const { return _quick_search; }
    QHash<QString, QSColumnAbstract*>& qs_columns() { return *_qs_columns; }
    /// The columns that the running filter has reached.
    QSet<QSColumnAbstract*>& handled_columns() { return _handled_columns; }
    QHash<mesh3D::GeometricElement*, QVector<mapCoordsType>>& mapping_coordinates() {
        return _mapping_coordinates;
    }
    /// Calls `clear_filter()` on every column.
    void clearAllFilters();
    /// A new column path, a copy of `path` or empty for null, owned by the system until
    /// `deletePaths`.
    QList<QSColumnAbstract*>* newPath(QList<QSColumnAbstract*>* path);
    void deletePaths();

    /// The shortest chains between the columns, as of the last `update_shortestpaths`.
    const ColumnGraph& graph() const { return _graph; }
    /// How often the column graph was rebuilt.
    int graph_generation() const { return _graph_generation; }
    /// Rebuilds the column graph from the columns' direct links: frees every path made so far,
    /// then multiplies the graph of direct links by the one-step adjacency until chains of any
    /// length are found. Since links are mutual, each linked column also gets a chain to itself
    /// that goes out and back. Among equally short chains the one met last wins, so which of them
    /// is kept depends on the order of the columns in the hash.
    void update_shortestpaths();

private:
    QMap<QString, QVariant>* _data;
    int _update_count = 0;
    QHash<QString, QSColumnAbstract*>* _qs_columns;
    Repository* _transient = nullptr;
    QMap<QString, RepositoryP*>* _persistent = nullptr;
    QSet<QSColumnAbstract*> _handled_columns;
    ColumnGraph _graph;
    int _graph_generation = 0;
    QSet<QList<QSColumnAbstract*>*> _paths;
    bool _quick_search;
    QHash<mesh3D::GeometricElement*, QVector<mapCoordsType>> _mapping_coordinates;
};

} // namespace model
