#pragma once

#include "zentra_export.h"

#include "model/Property.h"

namespace model {

/// A single text value of its owner.
class ZENTRA_EXPORT Primitive : public Property {
public:
    Primitive(const QString& local_name, Object* owner, int datatype, bool is_virtual);
    ~Primitive() override;

    ElementType element_type() const override;
    QString to_xml() const override;
    void print(const QString& prefix, QTextStream& stream, bool with_info) const override;

    QString get() const;
    void set(const QString& value);
    void restore(const QString& value);
};

} // namespace model
