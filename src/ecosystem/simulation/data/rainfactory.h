#pragma once

#include <vector>

namespace ecosystem::data {

class CTerrainData;

// Moisture per vertex from a one-pass water-flow model: one unit of rain per
// vertex (eleven under water), passed from the highest vertex down to strictly
// lower 4-neighbours, more of it on steeper ground; then smoothed and capped at 1.
//
// Neighbours are numbered 0 previous row, 1 next row, 2 previous column,
// 3 next column; one outside the grid has the height marker -1000.
class CRainFactory {
public:
    CTerrainData& terrainData;
    int nrNodes;
    float flowPower;                  // from inclination to the share of water that flows away
    std::vector<int> sortedRainNodes; // vertex indexes, highest first

    // The terrain being processed, for the static comparison of the sort.
    static CTerrainData* terrainDataStaticSortPtr;

    explicit CRainFactory(CTerrainData& terrainData);

    void buildRain();
    void init();
    void makeNodesFromVertices();
    void sortNodesByHeight();
    void simulateWaterFlowModel();
    void widenMoistureUsingInterpolation(int r);

    static bool isNodeHeigher(const int& node1, const int& node2);
    int mapNeighborPosition(int nodeIndex, int neighborNr);
    void addNodeMoisture(int pointIndex, float moisture);
    float getNeighbouringHeights(int nodeIndex, std::vector<float>& neighborHeights);
    int getNumberOfFlowAwaySides(float heightHere, std::vector<float>& neighborHeights);
    void divideRainForNode(int nodeIndex, float heightHere, std::vector<float>& neighborHeights,
                           int flowAwayNr);
    // Diagnostic: writes the sorted nodes with height and moisture to "nodes.txt".
    void dumpData();
};

} // namespace ecosystem::data
