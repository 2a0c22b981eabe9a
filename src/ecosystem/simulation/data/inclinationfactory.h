#pragma once

namespace ecosystem::data {

class CTerrainData;

// Inclination per vertex from its normal: 0 for level ground, 1 for a wall.
class CInclinationFactory {
public:
    CTerrainData& terrainData;

    explicit CInclinationFactory(CTerrainData& terrainData);

    void buildInclination();
};

} // namespace ecosystem::data
