// Times the terrain layers, factory by factory, on the default 100 x 100 DEM and
// on a synthetic 400 x 400 grid. Run by hand; prints one line per layer with the
// best and the median wall time of several runs and the best processor time
// (all threads), in milliseconds.
#include "ecosystem/simulation/data/heighmapfactory.h"
#include "ecosystem/simulation/data/inclinationfactory.h"
#include "ecosystem/simulation/data/rainfactory.h"
#include "ecosystem/simulation/data/sunfactory.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/data/terrainnormalsfactory.h"
#include "ecosystem/simulation/data/windfactory.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

using namespace ecosystem::data;
using arbo::Tocka;

namespace {

void timeIt(const char* name, int runs, const std::function<void()>& work) {
    std::vector<double> ms, cpu;
    for (int r = 0; r < runs; ++r) {
        QElapsedTimer timer;
        const std::clock_t cpuStart = std::clock();
        timer.start();
        work();
        ms.push_back(timer.nsecsElapsed() / 1e6);
        cpu.push_back(double(std::clock() - cpuStart) * 1000.0 / CLOCKS_PER_SEC);
    }
    std::sort(ms.begin(), ms.end());
    std::sort(cpu.begin(), cpu.end());
    std::printf("  %-22s wall best %8.2f median %8.2f ms   cpu best %8.2f ms\n", name, ms.front(),
                ms[ms.size() / 2], cpu.front());
}

// Rolling hills with a ridge, heights 0 .. about 400 m.
void makeSyntheticGrid(CTerrainData& t, int w, int h) {
    t.stTockX = w;
    t.stTockY = h;
    const int n = w * h;
    t.pTerrainVertexData.resize(n);
    t.ogliscaTerena.resize(n);
    t.terrainNormals.assign(n, Tocka(0, 1, 0));
    t.terrainInclination.assign(n, 0.0f);
    t.terrainMoisture.assign(n, 0.0f);
    t.terrainWindiness.assign(n, 0.0f);
    t.terrainSunniness.assign(n, 0.0f);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const double u = double(x) / w, v = double(y) / h;
            const float height = float(200 + 90 * std::sin(9 * u) * std::cos(7 * v) +
                                       60 * std::sin(23 * u + 11 * v) + 40 * std::cos(31 * v));
            t.ogliscaTerena[x + y * w] = Tocka(25.0f * x, height, 25.0f * y);
            t.pTerrainVertexData[x + y * w].pos = t.ogliscaTerena[x + y * w];
        }
    }
    t.dmrMinZ = 0;
    t.dmrMaxZ = 400;
    t.visinskaRazlikaNaTerenu = 400;
    t.spawnLupa();
}

void timeLayers(CTerrainData& t, int runs, int plainRuns) {
    timeIt("nonwater indexes", runs, [&] { t.buildNonwaterIndexes(); });
    timeIt("normals", runs, [&] { CTerrainNormalsFactory(t).buildTriangleNormals(); });
    timeIt("inclination", runs, [&] { CInclinationFactory(t).buildInclination(); });
    timeIt("moisture", runs, [&] { CRainFactory(t).buildRain(); });
    timeIt("sunniness", runs, [&] { CSunFactory(t).buildSunniness(); });
    timeIt("sunniness point rule", plainRuns, [&] {
        // The same layer vertex by vertex with the plain rule, for comparison.
        CSunFactory sun(t);
        for (int y = 0; y < t.stTockY; ++y)
            for (int x = 0; x < t.stTockX; ++x)
                t.terrainSunniness[x + y * t.stTockX] = float(sun.getPointCumulativeSunniness(
                    arbo::Tocka2D(x, y), t.terrainNormals[x + y * t.stTockX]));
    });
    timeIt("windiness", runs, [&] { CWindFactory(t).buildWindiness(); });
    timeIt("buildTerrainData", runs, [&] { t.buildTerrainData(); });
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);

    std::printf("default DEM, 100 x 100:\n");
    CTerrainData terrain;
    timeIt("load DEM", 5,
           [&] { terrain.heighMapFactory->loadDmrHeighMap(":/gui/textures/100x100.dmr"); });
    timeIt("ortho-photo", 5, [&] { delete terrain.heighMapFactory->produceOrtoFotoTexture(); });
    timeLayers(terrain, 9, 3);

    std::printf("synthetic grid, 400 x 400:\n");
    CTerrainData big;
    makeSyntheticGrid(big, 400, 400);
    timeLayers(big, 3, 1);
    return 0;
}
