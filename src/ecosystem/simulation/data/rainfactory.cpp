#include "ecosystem/simulation/data/rainfactory.h"

#include "ecosystem/simulation/data/progress.h"
#include "ecosystem/simulation/data/terraindata.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <fstream>

namespace ecosystem::data {

namespace {
const float outsideGrid = -1000.0f; // height marker of a neighbour outside the grid
} // namespace

CTerrainData* CRainFactory::terrainDataStaticSortPtr = nullptr;

CRainFactory::CRainFactory(CTerrainData& terrainData)
    : terrainData(terrainData), nrNodes(0), flowPower(10.0f) {}

// One thread: the water of a vertex is known only when every higher vertex has
// passed its share on, and the smoothing reads the values of its own pass.
void CRainFactory::buildRain() {
    const std::string task =
        QCoreApplication::translate("CRainFactory", "Computing moisture").toStdString();
    reportProgress(task, 0, 4);
    init();
    makeNodesFromVertices();
    sortNodesByHeight();
    reportProgress(task, 1, 4);
    simulateWaterFlowModel();
    reportProgress(task, 3, 4);
    widenMoistureUsingInterpolation(5);
    reportProgress(task, 4, 4);
}

void CRainFactory::init() {
    terrainDataStaticSortPtr = &terrainData;
    nrNodes = terrainData.stTockX * terrainData.stTockY;
    sortedRainNodes.assign(nrNodes, 0);
}

// One unit of rain per vertex, ten more where the vertex lies under water.
void CRainFactory::makeNodesFromVertices() {
    CTerrainData& t = terrainData;
    const float waterLevel = t.waterHeight * t.visinskaRazlikaNaTerenu;
    for (int i = 0; i < nrNodes; ++i) {
        sortedRainNodes[i] = i;
        t.terrainMoisture[i] = 1.0f;
        if (waterLevel > t.pTerrainVertexData[i].pos.y)
            t.terrainMoisture[i] += 10.0f;
    }
}

// Vertices of equal height never exchange water, so their order is immaterial.
void CRainFactory::sortNodesByHeight() {
    std::sort(sortedRainNodes.begin(), sortedRainNodes.end(), isNodeHeigher);
}

void CRainFactory::simulateWaterFlowModel() {
    std::vector<float> neighborHeights;
    neighborHeights.reserve(4);
    for (int i = 0; i < nrNodes; ++i) {
        const int nodeIndex = sortedRainNodes[i];
        neighborHeights.clear();
        const float heightHere = getNeighbouringHeights(nodeIndex, neighborHeights);
        const int flowNr = getNumberOfFlowAwaySides(heightHere, neighborHeights);
        divideRainForNode(nodeIndex, heightHere, neighborHeights, flowNr);
    }
}

// Smooths the inner vertices in place (left and upper neighbours already
// smoothed in the same pass), clears row 0 and column 0, caps inner values at 1.
void CRainFactory::widenMoistureUsingInterpolation(int r) {
    CTerrainData& t = terrainData;
    std::vector<float>& m = t.terrainMoisture;
    const int w = t.stTockX;
    const int h = t.stTockY;
    for (int pass = 0; pass < r; ++pass) {
        for (int y = 1; y < h - 1; ++y) {
            for (int x = 1; x < w - 1; ++x) {
                const int i = x + y * w;
                m[i] = (m[i] + m[i - 1] + m[i + 1] + m[i - w] + m[i + w]) / 5.0;
            }
        }
    }
    for (int y = 0; y < h; ++y)
        m[y * w] = 0.0f;
    for (int x = 0; x < w; ++x)
        m[x] = 0.0f;
    for (int y = 1; y < h - 1; ++y) {
        for (int x = 1; x < w - 1; ++x) {
            const int i = x + y * w;
            if (m[i] > 1.0f)
                m[i] = 1.0f;
        }
    }
}

bool CRainFactory::isNodeHeigher(const int& node1, const int& node2) {
    const auto& v = terrainDataStaticSortPtr->pTerrainVertexData;
    return v[node1].pos.y > v[node2].pos.y;
}

int CRainFactory::mapNeighborPosition(int nodeIndex, int neighborNr) {
    switch (neighborNr) {
    case 0:
        return nodeIndex - terrainData.stTockX;
    case 1:
        return nodeIndex + terrainData.stTockX;
    case 2:
        return nodeIndex - 1;
    case 3:
        return nodeIndex + 1;
    default:
        return nodeIndex;
    }
}

void CRainFactory::addNodeMoisture(int pointIndex, float moisture) {
    terrainData.terrainMoisture[pointIndex] += moisture;
}

float CRainFactory::getNeighbouringHeights(int nodeIndex, std::vector<float>& neighborHeights) {
    const CTerrainData& t = terrainData;
    const int resX = t.stTockX;
    const int y = nodeIndex / resX;
    const int x = nodeIndex % resX;
    auto height = [&](int index) { return t.pTerrainVertexData[index].pos.y; };
    neighborHeights.push_back(y >= 1 ? height(nodeIndex - resX) : outsideGrid);
    neighborHeights.push_back(y < t.stTockY - 1 ? height(nodeIndex + resX) : outsideGrid);
    neighborHeights.push_back(x >= 1 ? height(nodeIndex - 1) : outsideGrid);
    neighborHeights.push_back(x < resX - 1 ? height(nodeIndex + 1) : outsideGrid);
    return height(nodeIndex);
}

int CRainFactory::getNumberOfFlowAwaySides(float heightHere, std::vector<float>& neighborHeights) {
    int count = 0;
    for (float h : neighborHeights)
        if (h != outsideGrid && h < heightHere)
            ++count;
    return count;
}

// Steeper ground passes on more: from inclination 0.1 up, all of the water.
void CRainFactory::divideRainForNode(int nodeIndex, float heightHere,
                                     std::vector<float>& neighborHeights, int flowAwayNr) {
    if (flowAwayNr <= 0)
        return; // a hollow keeps all its water
    float capilarity = std::fabs(terrainData.terrainInclination[nodeIndex]) * flowPower;
    if (capilarity > 1.0f)
        capilarity = 1.0f;
    const float flowOffHere = capilarity * (terrainData.terrainMoisture[nodeIndex] / flowAwayNr);
    for (int i = 0; i < 4; ++i) {
        const float h = neighborHeights[i];
        if (h != outsideGrid && h < heightHere) {
            addNodeMoisture(nodeIndex, -flowOffHere);
            addNodeMoisture(mapNeighborPosition(nodeIndex, i), flowOffHere);
        }
    }
}

void CRainFactory::dumpData() {
    std::ofstream out("nodes.txt", std::ios::out | std::ios::trunc);
    for (int i = 0; i < nrNodes; ++i) {
        const int node = sortedRainNodes[i];
        out << i << "=" << node << "@"
            << "_" << terrainData.pTerrainVertexData[node].pos.y << "_"
            << terrainData.terrainMoisture[node] << "\n";
    }
}

} // namespace ecosystem::data
