#include "model/RepositoryP.h"

namespace model {

RepositoryP::RepositoryP(System* system) : Repository(system) {}

RepositoryP::~RepositoryP() = default;

QString RepositoryP::type() { return QStringLiteral("persistent"); }

} // namespace model
