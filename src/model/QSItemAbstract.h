#pragma once

#include "zentra_export.h"

#include <QSet>
#include <QVariant>

namespace model {

class QSColumnAbstract;

/// One entry of a table column. Items of different columns are linked one to one, and the links
/// are always mutual; a filter follows them from column to column. The column sets itself as the
/// item's column when the item is added.
class ZENTRA_EXPORT QSItemAbstract {
public:
    QSItemAbstract() = default;
    QSItemAbstract(const QSItemAbstract&) = delete;
    QSItemAbstract& operator=(const QSItemAbstract&) = delete;
    /// Takes this item out of the links of every partner.
    virtual ~QSItemAbstract();

    /// A tag for what the items stand for: 1 for model objects. The library itself never reads it;
    /// hosts may tell kinds of items apart by it.
    virtual int kind() const = 0;
    /// What the item shows in tables.
    virtual QVariant value() const = 0;

    QSColumnAbstract* column() const { return _column; }
    const QSet<QSItemAbstract*>& links() const { return _links; }

    /// Whether the item stands in the active front part of its column.
    bool is_active() const;
    /// Links both items to each other, but only if the column graph connects their columns;
    /// false, and nothing changed, otherwise (or if either item has no column yet).
    bool link_to(QSItemAbstract* other);
    /// Removes the link both ways; whether this item held `other`.
    bool unlink(QSItemAbstract* other);

private:
    friend class QSColumnAbstract;

    QSColumnAbstract* _column = nullptr;
    QSet<QSItemAbstract*> _links;
};

} // namespace model
