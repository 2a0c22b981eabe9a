#pragma once

#include <string>
#include <vector>

namespace ecosystem {
class CEcosystemSimulation;
}

namespace simrunner {

// The CSV table of a run: comment lines ("# ...") naming the program and the
// run's inputs, the column names, then one row per step. Columns: step; for
// each species its living plants, then births, deaths by dominance and deaths
// by other causes (old age, weakness) of the step; last the milliseconds of the
// step's add, grow and kill phases. The names are fixed for scripts to read.
class StatisticsCsv {
public:
    static std::string header(const std::vector<std::string>& comments, int nrSpecies);
    // The step just simulated; stepMs is its time.
    static std::string row(const ecosystem::CEcosystemSimulation& simulation, int stepMs);
    // Column name of a species by its type number: shrub, willow, maple, spruce, beech.
    static std::string speciesName(int tip);
};

} // namespace simrunner
