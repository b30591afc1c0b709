#pragma once

#include "zentra_export.h"

#include "model/Repository.h"

namespace model {

/// A store that a system searches after its transient one, registered with
/// `System::add_repository`. The system uses only what `Repository` declares; a host derives
/// its own storage from this class.
class ZENTRA_EXPORT RepositoryP : public Repository {
public:
    explicit RepositoryP(System* system);
    ~RepositoryP() override;

    /// "persistent".
    QString type() override;
};

} // namespace model
