#pragma once

#include "zentra_export.h"

#include "model/Property.h"

namespace model {

/// An indexed sequence of texts of its owner.
class ZENTRA_EXPORT List : public Property {
public:
    List(const QString& local_name, Object* owner, int datatype, bool is_virtual);
    ~List() override;

    ElementType element_type() const override;
    QString to_xml() const override;

    /// -1 where the owner has no such list.
    int count() const;
    void insert(int index, const QString& value);
    void replace(int index, const QString& value);
    void remove(int index);
    QString get(int index) const;
    void restore(int index, const QString& value);
};

} // namespace model
