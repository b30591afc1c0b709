#pragma once

#include "zentra_export.h"

namespace basic {
class IProgress;
}

namespace optimization {

class IOptimizable;

/// How the evolution strategy runs; passed by value. The two reserved words keep the record's
/// layout and are never read.
struct ZENTRA_EXPORT EvolutionSettings {
    int reserved_head = 0;
    /// Recombination of the parameters: 0 discrete, 1 intermediate.
    int recombine_x = 1;
    /// Recombination of the step sizes: 0 discrete, 1 intermediate.
    int recombine_sigma = 1;
    /// 0 uniform over the limits; otherwise normal around their centre.
    int init_mode = 0;
    /// Initial step size, lowered to a tenth of the parameter range if above it.
    double sigma0 = 3.0;
    /// The run stops when the mean fitness moves less than this between generations.
    double precision = 0.001;
    int generations = 100;
    /// Parents kept.
    int population = 100;
    /// Children made per generation.
    int offspring = 30;
    int reserved_tail = 0;
};

/// The settings of the oriented box searches: intermediate recombination of parameters and step
/// sizes, a uniform start, initial step 5 and 150 generations; they differ only in these three.
ZENTRA_EXPORT EvolutionSettings box_search_settings(double precision, int population, int offspring);

/// A (mu + lambda) evolution strategy with self-adaptive step sizes, maximising the fitness of
/// an `IOptimizable`. It draws from `basic::random01`, which is unguarded process state: run one
/// at a time.
class ZENTRA_EXPORT EvolutionStrategy {
public:
    /// The best parameters found, an array of `CountParameters()` doubles for the caller to
    /// delete[]. `progress` gets the fraction of generations done, `log` the population
    /// statistics per generation; either may be null.
    static double* optimise(IOptimizable* problem, EvolutionSettings settings, basic::IProgress* progress,
                            basic::IProgress* log);
};

} // namespace optimization
