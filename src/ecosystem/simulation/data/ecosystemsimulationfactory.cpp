#include "ecosystem/simulation/data/ecosystemsimulationfactory.h"

#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"

#include <algorithm>
#include <cmath>

namespace ecosystem::simulationFactory {

using simulationEntities::CVrstaRastlin;

void CEcosystemSimulationFactory::buildPanonicVegetation(
    CEcosystemSimulation& ecosystemSimulation, data::CTerrainData* terrainData,
    statistics::CEntitiesStatistics* entitiesStatistics) {
    // Plants point at their species, so the vector must never move once it has some.
    std::vector<CVrstaRastlin>& vrste = ecosystemSimulation.rastlinskeVrste;
    vrste.reserve(10);
    data::CTerrainData* t = terrainData;
    statistics::CEntitiesStatistics* s = entitiesStatistics;
    // clang-format off
    //                                 new  kum  mat  old  death size  dom   | height: need tol  die  slow | moisture               | sun                      | wind                   | crown delez slope moc
    CVrstaRastlin grm(    t, s, 0, 5.0f, 0.0f, 3,  10,  25, 0.8f, 0.08f,  0.4f,  0.4f,  0.3f, 0.5f, 0.5f, 0.5f, 0.3f, 0.5f, 0.4f,  0.6f,  0.4f, 0.1f, 0.0f, 1.0f, 0.1f,  0.1f, 1.0f, 0.8f, 0.01f, 0.05f);
    CVrstaRastlin zalujka(t, s, 1, 5.0f, 0.0f, 40, 100, 200, 0.8f, 0.075f, 0.01f, 0.05f, 0.5f, 0.9f, 0.5f, 0.3f, 0.3f, 0.5f, 0.6f,  0.2f,  0.4f, 0.1f, 0.0f, 0.3f, 0.2f,  0.1f, 1.0f, 0.8f, 0.01f, 0.4f);
    CVrstaRastlin javor(  t, s, 2, 5.0f, 0.0f, 30, 100, 250, 0.8f, 0.07f,  0.2f,  0.3f,  0.3f, 0.5f, 0.6f, 0.3f, 0.3f, 0.5f, 0.65f, 0.15f, 0.4f, 0.1f, 0.0f, 0.4f, 0.22f, 0.1f, 1.5f, 0.8f, 0.05f, 0.6f);
    CVrstaRastlin smreka( t, s, 3, 5.0f, 0.0f, 60, 200, 250, 0.8f, 0.01f,  0.55f, 0.35f, 0.3f, 0.5f, 0.2f, 0.6f, 0.3f, 0.5f, 0.4f,  0.5f,  0.4f, 0.1f, 0.0f, 1.0f, 0.15f, 0.1f, 2.3f, 0.8f, 0.01f, 0.6f);
    CVrstaRastlin bukev(  t, s, 4, 5.0f, 0.0f, 28, 150, 250, 0.8f, 0.08f,  0.2f,  0.2f,  0.2f, 0.5f, 0.7f, 0.3f, 0.3f, 0.5f, 0.4f,  0.2f,  0.4f, 0.1f, 0.0f, 0.6f, 0.2f,  0.1f, 2.0f, 0.8f, 0.05f, 0.7f);
    // clang-format on
    vrste.push_back(grm);
    vrste.push_back(zalujka);
    vrste.push_back(javor);
    vrste.push_back(smreka);
    vrste.push_back(bukev);
    calculateNighborhoodExtent(ecosystemSimulation, terrainData);
}

void CEcosystemSimulationFactory::calculateNighborhoodExtent(
    CEcosystemSimulation& ecosystemSimulation, data::CTerrainData* terrainData) {
    float radijMax = 0.0f;
    for (const CVrstaRastlin& vrsta : ecosystemSimulation.rastlinskeVrste)
        radijMax = std::max(radijMax, vrsta.razmerjeMedVelikostjoInRadijemKrosnje);
    const float velikostKvadrata = terrainData->dimen.x / terrainData->stTockX;
    const float radijKvadratovEneRastline = radijMax / velikostKvadrata;
    CVrstaRastlin::maxStKvadratovNajdemRadijSoseda =
        static_cast<int>(std::ceil(2 * radijKvadratovEneRastline));
}

} // namespace ecosystem::simulationFactory
