#pragma once

#include "zentra_export.h"

#include "model/Property.h"

#include <QStringList>

namespace model {

/// An unordered collection of distinct texts of its owner.
class ZENTRA_EXPORT Set : public Property {
public:
    Set(const QString& local_name, Object* owner, int datatype, bool is_virtual);
    ~Set() override;

    ElementType element_type() const override;
    QString to_xml() const override;

    QStringList values() const;
    void add(const QString& value);
    void remove(const QString& value);
    void restore(const QString& value);
};

} // namespace model
