#include "simrunner/statisticscsv.h"

#include "ecosystem/simulation/ecosystemsimulation.h"

#include <sstream>

namespace simrunner {

std::string StatisticsCsv::speciesName(int tip) {
    // The order in which the vegetation factory creates the five species.
    static const char* const names[] = {"shrub", "willow", "maple", "spruce", "beech"};
    if (tip >= 0 && tip < 5)
        return names[tip];
    return "species" + std::to_string(tip);
}

std::string StatisticsCsv::header(const std::vector<std::string>& comments, int nrSpecies) {
    std::ostringstream out;
    for (const std::string& comment : comments)
        out << "# " << comment << '\n';
    out << "step";
    for (const char* column : {"living_", "births_", "dominance_deaths_", "other_deaths_"})
        for (int s = 0; s < nrSpecies; ++s)
            out << ',' << column << speciesName(s);
    out << ",step_ms\n";
    return out.str();
}

std::string StatisticsCsv::row(const ecosystem::CEcosystemSimulation& simulation, int stepMs) {
    const ecosystem::statistics::CEntitiesStatistics& s = simulation.entitiesStatistics;
    std::ostringstream out;
    out << simulation.simulationStepNr;
    for (const auto& vrsta : simulation.rastlinskeVrste)
        out << ',' << vrsta.ziviPrimerkiTeVrste.size();
    for (const std::vector<int>* perSpecies :
         {&s.rojeniVKoraku, &s.umrliZaradiDominiranostiVKoraku, &s.umrliOstaloVKoraku})
        for (size_t v = 0; v < simulation.rastlinskeVrste.size(); ++v)
            out << ',' << (v < perSpecies->size() ? (*perSpecies)[v] : 0);
    out << ',' << stepMs << '\n';
    return out.str();
}

} // namespace simrunner
