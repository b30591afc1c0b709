#pragma once

#include "zentra_export.h"

#include <QHash>
#include <QString>

namespace model {
class System;
}
namespace oxaIO {
class OxaObjects;
}

namespace oxa {

class OxaRoot;

/// The entry point reserved for reading a model from an object store instead of an exchange
/// document. It is wired up but reads nothing: a read gives null and the root stays as it was,
/// which hosts that call the entry rely on. A process-wide instance, made on first use and
/// kept to the end of the process.
class ZENTRA_EXPORT OxaOsReader {
public:
    virtual ~OxaOsReader();
    OxaOsReader(const OxaOsReader&) = delete;
    OxaOsReader& operator=(const OxaOsReader&) = delete;

    static OxaOsReader* GetInstance();
    /// Keeps the root to read into and its system; null is ignored and the last root stays.
    void SetRoot(OxaRoot* root);
    /// Always null: there is no object store to read. With a root set, the result is cleared.
    oxaIO::OxaObjects* Read(const QString& path);

    OxaRoot* Root() const { return root; }
    model::System* System() const { return system; }

private:
    OxaOsReader();

    oxaIO::OxaObjects* result = nullptr;
    OxaRoot* root = nullptr;
    model::System* system = nullptr;
    // Reserved for a reader of a real store; nothing uses them yet.
    QHash<QString, QString> firstTable;
    QHash<QString, QString> secondTable;
};

} // namespace oxa
