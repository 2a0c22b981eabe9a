#include "ecosystem/simulation/data/inclinationfactory.h"
#include "ecosystem/simulation/data/rainfactory.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/data/terrainnormalsfactory.h"

#include "support/terrain.h"

#include <QtTest>

#include <cmath>
#include <fstream>
#include <numeric>

using ecosystem::data::CInclinationFactory;
using ecosystem::data::CRainFactory;
using ecosystem::data::CTerrainData;
using ecosystem::data::CTerrainNormalsFactory;

namespace {

void buildInclination(CTerrainData& t) {
    CTerrainNormalsFactory(t).buildTriangleNormals();
    CInclinationFactory(t).buildInclination();
}

void rainAndFlow(CRainFactory& rain) {
    rain.init();
    rain.makeNodesFromVertices();
    rain.sortNodesByHeight();
    rain.simulateWaterFlowModel();
}

double total(const std::vector<float>& layer) {
    return std::accumulate(layer.begin(), layer.end(), 0.0);
}

} // namespace

class TestRainFactory : public QObject {
    Q_OBJECT
private slots:
    void neighboursAndMarkers() {
        CTerrainData t;
        testterrain::reshape(t, 4, 3, [](int x, int y) { return float(10 * y + x); });
        CRainFactory rain(t);
        QCOMPARE(rain.mapNeighborPosition(5, 0), 1);
        QCOMPARE(rain.mapNeighborPosition(5, 1), 9);
        QCOMPARE(rain.mapNeighborPosition(5, 2), 4);
        QCOMPARE(rain.mapNeighborPosition(5, 3), 6);
        QCOMPARE(rain.mapNeighborPosition(5, 4), 5);
        std::vector<float> h;
        QCOMPARE(rain.getNeighbouringHeights(0, h), 0.0f);
        QCOMPARE(h, (std::vector<float>{-1000.0f, 10.0f, -1000.0f, 1.0f}));
        h.clear();
        QCOMPARE(rain.getNeighbouringHeights(11, h), 23.0f);
        QCOMPARE(h, (std::vector<float>{13.0f, -1000.0f, 22.0f, -1000.0f}));
        QCOMPARE(rain.getNumberOfFlowAwaySides(23.0f, h), 2);
        QCOMPARE(rain.getNumberOfFlowAwaySides(13.0f, h), 0);
    }

    void rainFallsAndWaterCollectsUnderTheLevel() {
        CTerrainData t;
        testterrain::reshape(t, 5, 1, [](int x, int) { return float(x); }); // 0 .. 4
        t.waterHeight = 0.5f; // level 2 m: heights 0 and 1 lie under water
        CRainFactory rain(t);
        rain.init();
        rain.makeNodesFromVertices();
        QCOMPARE(t.terrainMoisture, (std::vector<float>{11, 11, 1, 1, 1}));
        rain.sortNodesByHeight();
        QCOMPARE(rain.sortedRainNodes, (std::vector<int>{4, 3, 2, 1, 0}));
        QVERIFY(CRainFactory::isNodeHeigher(4, 3));
        QVERIFY(!CRainFactory::isNodeHeigher(3, 3));
    }

    void steepPeakSendsAQuarterToEachNeighbour() {
        CTerrainData t;
        testterrain::reshape(t, 5, 5, [](int x, int y) { return x == 2 && y == 2 ? 10.0f : 0.0f; });
        buildInclination(t);
        // The peak spans (50,10,50), (75,0,50), (50,0,75): normal (250, 625, 250)/718.07.
        QVERIFY(std::fabs(t.terrainInclination[12] - (1 - 625 / std::sqrt(515625.0))) < 1e-5);
        QVERIFY(t.terrainInclination[12] >= 0.1f);
        CRainFactory rain(t);
        rainAndFlow(rain);
        QCOMPARE(t.terrainMoisture[12], 0.0f);
        for (int n : {7, 11, 13, 17})
            QCOMPARE(t.terrainMoisture[n], 1.25f);
        QCOMPARE(t.terrainMoisture[0], 1.0f);
    }

    void gentleSlopeSendsTenTimesItsInclination() {
        CTerrainData t;
        testterrain::reshape(t, 3, 3, [](int x, int y) {
            return x == 1 && y == 1 ? 5.0f : (x == 1 && y == 0 ? 10.0f : 0.0f);
        });
        CRainFactory rain(t);
        rain.init();
        t.terrainMoisture.assign(9, 1.0f);
        t.terrainMoisture[4] = 2.0f;
        t.terrainInclination[4] = -0.05f; // the magnitude counts
        std::vector<float> h;
        const float here = rain.getNeighbouringHeights(4, h);
        rain.divideRainForNode(4, here, h, rain.getNumberOfFlowAwaySides(here, h));
        const float share = 0.5f * (2.0f / 3);
        QVERIFY(std::fabs(t.terrainMoisture[4] - (2.0f - 3 * share)) < 1e-6f);
        for (int n : {3, 5, 7})
            QCOMPARE(t.terrainMoisture[n], 1.0f + share);
        QCOMPARE(t.terrainMoisture[1], 1.0f); // the higher neighbour gets nothing
    }

    void hollowKeepsItsWater() {
        CTerrainData t;
        testterrain::reshape(t, 3, 3, [](int x, int y) { return x == 1 && y == 1 ? 0.0f : 9.0f; });
        CRainFactory rain(t);
        rain.init();
        t.terrainMoisture.assign(9, 1.0f);
        t.terrainInclination[4] = 0.5f;
        std::vector<float> h;
        rain.getNeighbouringHeights(4, h);
        rain.divideRainForNode(4, 0.0f, h, 0);
        QCOMPARE(t.terrainMoisture[4], 1.0f);
    }

    void flowConservesWater() {
        CTerrainData t; // the default DEM
        buildInclination(t);
        CRainFactory rain(t);
        rain.init();
        rain.makeNodesFromVertices();
        rain.sortNodesByHeight();
        for (int i = 1; i < rain.nrNodes; ++i)
            QVERIFY(
                !CRainFactory::isNodeHeigher(rain.sortedRainNodes[i], rain.sortedRainNodes[i - 1]));
        const double before = total(t.terrainMoisture);
        QCOMPARE(before, 10000.0);
        rain.simulateWaterFlowModel();
        QVERIFY(std::fabs(total(t.terrainMoisture) - before) < 1e-5 * before);
        // Water gathered somewhere and left somewhere.
        const auto [low, high] =
            std::minmax_element(t.terrainMoisture.begin(), t.terrainMoisture.end());
        QVERIFY(*low < 0.5f && *high > 5.0f);
    }

    void smoothingIsInPlaceThenEdgesClearedAndCapped() {
        CTerrainData t;
        testterrain::reshape(t, 4, 3, [](int, int) { return 0.0f; });
        CRainFactory rain(t);
        rain.init();
        t.terrainMoisture = {0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.0f,
                             0.0f, 0.8f, 0.9f, 1.0f, 1.1f, 1.2f};
        rain.widenMoistureUsingInterpolation(1);
        // (1,1) = (0 + 0.5 + 0 + 0.2 + 1.0) / 5; (2,1) reads the new (1,1).
        const float m11 = (0.0f + 0.5f + 0.0f + 0.2f + 1.0f) / 5.0f;
        const float m21 = (0.0f + m11 + 0.8f + 0.3f + 1.1f) / 5.0f;
        QVERIFY(std::fabs(t.terrainMoisture[5] - m11) < 1e-6f);
        QVERIFY(std::fabs(t.terrainMoisture[6] - m21) < 1e-6f);
        QCOMPARE(t.terrainMoisture[0], 0.0f);
        QCOMPARE(t.terrainMoisture[3], 0.0f);  // row 0
        QCOMPARE(t.terrainMoisture[8], 0.0f);  // column 0
        QCOMPARE(t.terrainMoisture[7], 0.8f);  // last column keeps its value
        QCOMPARE(t.terrainMoisture[11], 1.2f); // last row is not capped
    }

    void flatTerrainEndsWetExceptRowAndColumnZero() {
        CTerrainData t;
        testterrain::reshape(t, 7, 6, [](int, int) { return 4.0f; });
        buildInclination(t);
        CRainFactory(t).buildRain();
        for (int y = 0; y < 6; ++y)
            for (int x = 0; x < 7; ++x)
                QCOMPARE(t.terrainMoisture[x + y * 7], (x == 0 || y == 0) ? 0.0f : 1.0f);
    }

    void innerMoistureNeverExceedsOne() {
        CTerrainData t;
        t.waterHeight = 0.2f;
        buildInclination(t);
        CRainFactory(t).buildRain();
        for (int y = 0; y < 100; ++y) {
            for (int x = 0; x < 100; ++x) {
                const float m = t.terrainMoisture[x + y * 100];
                QVERIFY(std::isfinite(m) && m >= -1e-4f);
                if (x > 0 && y > 0 && x < 99 && y < 99)
                    QVERIFY(m <= 1.0f);
            }
        }
    }

    void dumpWritesOneLinePerNode() {
        CTerrainData t;
        testterrain::reshape(t, 3, 2, [](int x, int y) { return float(x + 3 * y); });
        buildInclination(t);
        CRainFactory rain(t);
        rainAndFlow(rain);
        rain.dumpData();
        std::ifstream in("nodes.txt");
        std::string line;
        std::vector<std::string> lines;
        while (std::getline(in, line))
            lines.push_back(line);
        QCOMPARE(int(lines.size()), 6);
        QCOMPARE(QString::fromStdString(lines[0]).section('_', 0, 0), QString("0=5@"));
        QCOMPARE(QString::fromStdString(lines[0]).section('_', 1, 1).toFloat(), 5.0f);
    }
};

QTEST_GUILESS_MAIN(TestRainFactory)
#include "tst_rainfactory.moc"
