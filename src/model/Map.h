#pragma once

#include "zentra_export.h"

#include "model/Property.h"

#include <QStringList>

namespace model {

/// Texts of its owner by key.
class ZENTRA_EXPORT Map : public Property {
public:
    Map(const QString& local_name, Object* owner, int datatype, bool is_virtual);
    ~Map() override;

    ElementType element_type() const override;
    QString to_xml() const override;

    QStringList keys() const;
    void write(const QString& key, const QString& value);
    QString get(const QString& key) const;
    void remove(const QString& key);
    void restore(const QString& key, const QString& value);
};

} // namespace model
