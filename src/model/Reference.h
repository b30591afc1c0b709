#pragma once

#include "zentra_export.h"

#include "model/Property.h"

namespace model {

/// The identifier of another object, which a property path can run through.
class ZENTRA_EXPORT Reference : public Property {
public:
    /// `referenced_class` names the class of the objects it points to; the data type is 2.
    Reference(const QString& local_name, Object* owner, bool is_virtual, const QString& referenced_class);
    ~Reference() override;

    ElementType element_type() const override;
    QString to_xml() const override;

    const QString& referenced_class() const { return _referenced_class; }
    QString get() const;
    void set(const QString& value);
    void restore(const QString& value);

private:
    QString _referenced_class;
};

} // namespace model
