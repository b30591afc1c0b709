#include "model/QSAlgebra.h"

#include "model/System.h"

namespace model {

QSAlgebra::Path QSAlgebra::zero() { return nullptr; }

QSAlgebra::Path QSAlgebra::one() { return _system->newPath(nullptr); }

QSAlgebra::Path QSAlgebra::multiply(Path a, Path b) {
    if (!a || !b)
        return nullptr;
    Path joined = _system->newPath(a);
    joined->append(*b);
    return joined;
}

QSAlgebra::Path QSAlgebra::add(Path a, Path b) {
    if (!a)
        return b;
    if (!b)
        return a;
    return a->size() < b->size() ? a : b;
}

} // namespace model
