#pragma once

#include "zentra_export.h"

#include "model/Graph.h"

#include <QList>

namespace model {

class QSColumnAbstract;
class System;

/// Makes shortest chains of columns out of matrix products: a product is the first chain
/// followed by the second, and a sum keeps the shorter chain. Every chain it makes is a new path
/// of the system, freed by `System::deletePaths`, so the graphs that hold them never free them.
class ZENTRA_EXPORT QSAlgebra : public ::graph::Algebra<QList<QSColumnAbstract*>*> {
public:
    using Path = QList<QSColumnAbstract*>*;

    explicit QSAlgebra(System* system) : _system(system) {}

    /// No chain: null.
    Path zero() override;
    /// A new empty chain.
    Path one() override;
    /// Null if either is null; else a new chain holding `a` followed by `b`.
    Path multiply(Path a, Path b) override;
    /// The other one if either is null; else the one with fewer columns, and `b` on a tie, so that
    /// among equally short chains the later candidate wins.
    Path add(Path a, Path b) override;

private:
    System* _system;
};

} // namespace model
