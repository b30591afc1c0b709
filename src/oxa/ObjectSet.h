#pragma once

#include "zentra_export.h"

#include "oxaIO/ISet.h"

#include <QHash>
#include <QSet>
#include <QString>

namespace model {
class System;
}

namespace oxa {

/// A set that lists its members by identifier, as a document's `set` does. Members are kept as
/// identifiers until the host resolves them against a system with `ResolveIDs`; the objects
/// found then stay the system's.
class ZENTRA_EXPORT ObjectSet : public oxaIO::IObjectSet {
public:
    ObjectSet(const QString& id, const QString& name);
    ~ObjectSet() override;

    std::wstring ID() const override;
    std::wstring Name() const override;
    void ContentType(std::wstring contentType) override;
    std::wstring ContentType() const override;
    /// The unresolved identifiers first, then those of the resolved members.
    std::list<std::wstring> ElementIDs() const override;
    std::list<oxaIO::IObject*> ElementList() const override;
    void AddElementID(std::wstring id) override;
    /// Keeps the object under its identifier; null is ignored.
    void AddElement(oxaIO::IObject* element) override;

    /// Looks each unresolved identifier up in the system; 3D objects and containers become
    /// members, and every identifier the system knows leaves the unresolved ones. True when no identifier is
    /// left unresolved; false for a null system.
    bool ResolveIDs(model::System* system);

private:
    QHash<QString, oxaIO::IObject*> elements;
    QSet<QString> unresolvedIDs;
    QString contentType;
    QString id;
    QString name;
};

} // namespace oxa
