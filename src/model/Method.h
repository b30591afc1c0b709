#pragma once

#include "zentra_export.h"

#include "model/Element.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace model {

class Object;
class System;

/// A named operation of an object, with the bookkeeping of a dependency-driven update: the
/// property paths it reads and writes, and the version of each input it saw at its last update.
/// Its identifier is "ownerID::localname"; invoking it calls the owner's `invoke_method`.
///
/// An input path is a property path, or "ref.path[subpath]": follow the reference or list named
/// before "[" and watch `subpath` on every object reached.
class ZENTRA_EXPORT Method : public Element {
public:
    /// One formal parameter.
    struct parameter {
        QString name;
        int type;
        QString description;
    };

    Method(const QString& local_name, Object* owner, int return_type);
    ~Method() override;

    /// The owner's `member_info` for this method.
    QString info() const override;
    ElementType element_type() const override;
    QString invoke(QStringList& args);

    Object* owner() const { return _owner; }
    const QString& local_name() const { return _local_name; }
    int return_type() const { return _return_type; }
    const QList<parameter*>& parameters() const { return _parameters; }
    void add_parameter(const QString& name, int type, const QString& description);

    void add_input_path(const QString& path);
    /// Takes out every equal path.
    void remove_input_path(const QString& path);
    void add_output_path(const QString& path);
    void remove_output_path(const QString& path);
    const QStringList& input_paths() const { return _input_paths; }
    const QStringList& output_paths() const { return _output_paths; }
    /// True while some input path holds a "[" part.
    bool needs_subupdate() const { return _subupdate_count > 0; }
    /// The input paths without their "[...]" part, each once, in order.
    QStringList input_properties() const;
    /// For each "ref.path[subpath]" input: "<id>.subpath" for the object a reference points to,
    /// or for every element of a list. Paths that fail in `system` are passed over.
    QStringList subupdate_properties(System* system) const;
    /// The version of each input at the last update, by path.
    QHash<QString, long>& last_update_versions() { return _last_update_versions; }
    const QHash<QString, long>& last_update_versions() const { return _last_update_versions; }

    using Element::print;
    /// The full bookkeeping: versions seen, sub-update paths, inputs and outputs.
    void print(System* system, const QString& prefix, QTextStream& stream, bool with_info) const;
    /// Name, version, versions seen, input and output paths, unescaped.
    QString to_xml() const;

private:
    QString _local_name;
    int _return_type;
    QStringList _input_paths;
    int _subupdate_count = 0;
    QStringList _output_paths;
    QHash<QString, long> _last_update_versions;
    QList<parameter*> _parameters;
    Object* _owner;
};

} // namespace model
