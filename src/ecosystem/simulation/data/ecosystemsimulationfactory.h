#pragma once

namespace ecosystem {
class CEcosystemSimulation;
namespace data {
class CTerrainData;
}
namespace statistics {
class CEntitiesStatistics;
}
} // namespace ecosystem

namespace ecosystem::simulationFactory {

// Fills a fresh simulation with the species of a lowland (Pannonian) woodland
// and sizes the neighbourhood of the dominance search.
class CEcosystemSimulationFactory {
public:
    static void buildPanonicVegetation(CEcosystemSimulation& ecosystemSimulation,
                                       data::CTerrainData* terrainData,
                                       statistics::CEntitiesStatistics* entitiesStatistics);
    static void calculateNighborhoodExtent(CEcosystemSimulation& ecosystemSimulation,
                                           data::CTerrainData* terrainData);
};

} // namespace ecosystem::simulationFactory
