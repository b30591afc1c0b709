#include "geometry/EvolutionStrategy.h"

#include "basic/IProgress.h"
#include "basic/numeric.h"
#include "geometry/IOptimizable.h"

#include <QString>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace optimization {

IOptimizable::~IOptimizable() = default;

namespace {

/// One candidate with its own step sizes.
struct Individual {
    explicit Individual(int n)
        : fitness{0.0, 0}, n(n), x(n), sigma(n), tau(1.0 / std::sqrt(2.0 * n)),
          tau_prime(1.0 / std::sqrt(2.0 * std::sqrt(static_cast<double>(n)))) {}

    Fitness fitness;
    int n;
    std::vector<double> x;
    std::vector<double> sigma;
    double tau;
    double tau_prime;
};

using Population = std::vector<std::unique_ptr<Individual>>;

double normal_deviate() {
    const double u1 = basic::random01() + 1e-10;
    const double u2 = basic::random01() + 1e-10;
    return std::sqrt(-2.0 * std::log(u1)) * std::sin(2.0 * M_PI * u2);
}

void evaluate(IOptimizable* problem, Individual& individual) {
    individual.fitness = problem->CalcFitness(individual.x.data());
}

void sort_by_fitness(Population& population) {
    std::sort(population.begin(), population.end(),
              [](const std::unique_ptr<Individual>& a, const std::unique_ptr<Individual>& b) {
                  return a->fitness.value > b->fitness.value;
              });
}

std::unique_ptr<Individual> recombine(const Individual& a, const Individual& b,
                                      const EvolutionSettings& settings) {
    auto child = std::make_unique<Individual>(a.n);
    for (int i = 0; i < a.n; ++i) {
        if (settings.recombine_x == 0)
            child->x[i] = basic::random01() >= 0.5 ? a.x[i] : b.x[i];
        else
            child->x[i] = (a.x[i] + b.x[i]) / 2.0;
        if (settings.recombine_sigma == 0)
            child->sigma[i] = basic::random01() < 0.5 ? b.sigma[i] : a.sigma[i];
        else
            child->sigma[i] = (a.sigma[i] + b.sigma[i]) / 2.0;
    }
    return child;
}

/// The step of x uses the parent's sigma, not the freshly adapted one: the new step size is
/// only tried in the next generation, which keeps a lucky large step from being rewarded twice.
std::unique_ptr<Individual> mutate(const Individual& parent) {
    auto mutant = std::make_unique<Individual>(parent.n);
    const double g = normal_deviate();
    for (int i = 0; i < parent.n; ++i) {
        const double z = normal_deviate();
        mutant->sigma[i] = parent.sigma[i] * std::exp(z * parent.tau_prime + g * parent.tau);
        const double w = normal_deviate();
        mutant->x[i] = parent.x[i] + parent.sigma[i] * w;
    }
    return mutant;
}

void log_population(const Population& population, basic::IProgress* log) {
    log->message("[init]");
    for (std::size_t k = 0; k < population.size(); ++k) {
        const Individual& individual = *population[k];
        QString line = QString::asprintf("(%d) f = %.3f ", static_cast<int>(k), individual.fitness.value);
        for (double value : individual.x)
            line += QString::number(value, 'g', 6) + " | ";
        log->message(line);
    }
    log->message("[/init]");
}

struct Statistics {
    double value_min = 1e15;
    double value_max = -1e15;
    double value_mean = -1.0;
    double sigma_min = 10000.0;
    double sigma_max = -10000.0;
    double sigma_mean = -1.0;
};

Statistics statistics_of(const Population& population) {
    Statistics s;
    double value_sum = 0.0;
    double sigma_sum = 0.0;
    int valid = 0;
    long sigmas = 0;
    for (const auto& individual : population) {
        if (individual->fitness.invalid)
            continue;
        ++valid;
        const double value = individual->fitness.value;
        value_sum += value;
        s.value_min = std::min(s.value_min, value);
        s.value_max = std::max(s.value_max, value);
        for (double sigma : individual->sigma) {
            sigma_sum += sigma;
            ++sigmas;
            s.sigma_min = std::min(s.sigma_min, sigma);
            s.sigma_max = std::max(s.sigma_max, sigma);
        }
    }
    if (valid > 0) {
        s.value_mean = value_sum / valid;
        s.sigma_mean = sigmas > 0 ? sigma_sum / sigmas : 0.0;
    }
    return s;
}

} // namespace

EvolutionSettings box_search_settings(double precision, int population, int offspring) {
    EvolutionSettings settings;
    settings.recombine_x = 1;
    settings.recombine_sigma = 1;
    settings.init_mode = 0;
    settings.sigma0 = 5.0;
    settings.precision = precision;
    settings.generations = 150;
    settings.population = population;
    settings.offspring = offspring;
    return settings;
}

double* EvolutionStrategy::optimise(IOptimizable* problem, EvolutionSettings settings,
                                    basic::IProgress* progress, basic::IProgress* log) {
    const int n = static_cast<int>(problem->CountParameters());
    const double lo = problem->GetLowerLimit();
    const double hi = problem->GetUpperLimit();
    const double range = hi - lo;
    if (settings.sigma0 > range / 10.0)
        settings.sigma0 = range / 10.0;

    Population population;
    for (int k = 0; k < settings.population; ++k) {
        auto individual = std::make_unique<Individual>(n);
        for (int i = 0; i < n; ++i) {
            individual->x[i] = settings.init_mode == 0 ? lo + basic::random01() * range
                                                       : 0.5 * (lo + hi) + 0.125 * range * normal_deviate();
            individual->sigma[i] = settings.sigma0;
        }
        evaluate(problem, *individual);
        population.push_back(std::move(individual));
    }
    sort_by_fitness(population);
    if (log)
        log_population(population, log);

    double previous = 1e15;
    for (int g = 0; g < settings.generations; ++g) {
        const double fraction = static_cast<double>(g) / settings.generations;
        if (progress)
            progress->progress(fraction);

        Population children;
        const double parents = static_cast<double>(population.size());
        for (int k = 0; k < settings.offspring && !population.empty(); ++k) {
            const auto first = static_cast<std::size_t>(basic::random01() * parents);
            const auto second = static_cast<std::size_t>(basic::random01() * parents);
            auto child = recombine(*population[first], *population[second], settings);
            evaluate(problem, *child);
            if (child->fitness.invalid == 0)
                children.push_back(std::move(child));
        }
        for (auto& child : children)
            population.push_back(std::move(child));

        // The best of the previous generation is kept as it is.
        for (std::size_t k = 1; k < population.size(); ++k) {
            auto mutant = mutate(*population[k]);
            evaluate(problem, *mutant);
            if (mutant->fitness.invalid == 0)
                population[k] = std::move(mutant);
        }

        sort_by_fitness(population);
        if (population.size() > static_cast<std::size_t>(settings.population))
            population.resize(static_cast<std::size_t>(std::max(settings.population, 0)));

        const Statistics s = statistics_of(population);
        if (log)
            log->message(QString::asprintf("(%d) fit [%.3f / %.3f / %.3f] sigma [%.3f / %.3f / %.3f]", g,
                                           s.value_max, s.value_mean, s.value_min, s.sigma_min, s.sigma_mean,
                                           s.sigma_max));
        if (std::fabs(s.value_mean - previous) < settings.precision) {
            if (progress)
                progress->progress(fraction);
            break;
        }
        previous = s.value_mean;
    }

    const Individual* best = nullptr;
    for (const auto& individual : population)
        if (!best || individual->fitness.value > best->fitness.value)
            best = individual.get();
    double* result = new double[n > 0 ? n : 1];
    for (int i = 0; i < n && best; ++i)
        result[i] = best->x[i];
    if (log && best) {
        QString line = QString::asprintf("best: fit [%.3f] x = ", best->fitness.value);
        for (double value : best->x)
            line += "{" + QString::number(value, 'g', 6) + "}";
        log->message(line);
    }
    return result;
}

} // namespace optimization
