#include "ecosystem/simulation/data/inclinationfactory.h"

#include "ecosystem/simulation/data/terraindata.h"

namespace ecosystem::data {

CInclinationFactory::CInclinationFactory(CTerrainData& terrainData) : terrainData(terrainData) {}

void CInclinationFactory::buildInclination() {
    CTerrainData& t = terrainData;
    const int n = t.stTockX * t.stTockY;
    for (int i = 0; i < n; ++i)
        t.terrainInclination[i] = float(1.0 - double(t.terrainNormals[i].y));
}

} // namespace ecosystem::data
