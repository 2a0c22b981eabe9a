// The default landscape resampled to a large grid (default 1000 x 1000 vertices
// 25 m apart, about a hundred times the plants of the default run): the time of
// each terrain layer, then the simulation step by step with the living plants,
// steps per second, peak memory and bytes per living plant at the step where
// the plant count peaks (the run stops once the count has fallen 5 % below its
// peak). Processor seconds are given beside wall seconds, as the machine may be
// shared. Run by hand, once per thread count:
//   VIRELA_THREADS=1 build/tests/bench_largeterrain [size] [steps] > /dev/null
//   VIRELA_THREADS=2 build/tests/bench_largeterrain [size] [steps] > /dev/null
// (standard output takes the statistics lines; the figures go to standard error).
#include "ecosystem/simulation/data/progress.h"
#include "ecosystem/simulation/data/rowworkers.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <sys/resource.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <vector>

using ecosystem::CEcosystemSimulation;
using ecosystem::data::CTerrainData;

namespace {

long residentKilobytes() {
    std::ifstream statm("/proc/self/statm");
    long pages = 0, resident = 0;
    statm >> pages >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

long peakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// Bilinear heights of the default 100 x 100 grid over size x size vertices;
// the terrain box grows with the grid, so a grid unit stays 25 m.
void resample(CTerrainData& t, int size) {
    const int w = t.stTockX, h = t.stTockY;
    const std::vector<CTerrainData::TerrainVertexData> source = t.pTerrainVertexData;
    auto at = [&](int x, int y) { return source[x + y * w].pos.y; };
    const int n = size * size;
    t.stTockX = t.stTockY = size;
    t.pTerrainVertexData.resize(n);
    t.ogliscaTerena.resize(n);
    t.terrainNormals.assign(n, arbo::Tocka(0, 1, 0));
    for (std::vector<float>* layer :
         {&t.terrainInclination, &t.terrainMoisture, &t.terrainWindiness, &t.terrainSunniness})
        layer->assign(n, 0.0f);
    float highest = 0;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const double u = double(x) * (w - 1) / (size - 1), v = double(y) * (h - 1) / (size - 1);
            const int x0 = std::min(int(u), w - 2), y0 = std::min(int(v), h - 2);
            const double fu = u - x0, fv = v - y0;
            const float height = float((at(x0, y0) * (1 - fu) + at(x0 + 1, y0) * fu) * (1 - fv) +
                                       (at(x0, y0 + 1) * (1 - fu) + at(x0 + 1, y0 + 1) * fu) * fv);
            highest = std::max(highest, height);
            t.ogliscaTerena[x + y * size] = arbo::Tocka(25.0f * x, height, 25.0f * y);
            t.pTerrainVertexData[x + y * size].pos = t.ogliscaTerena[x + y * size];
        }
    }
    t.dmrMinZ = 0;
    t.dmrMaxZ = highest;
    t.visinskaRazlikaNaTerenu = highest;
    t.dimen = arbo::Tocka(25.0f * size, 1000.0f, 25.0f * size);
    t.spawnLupa();
}

double processorSeconds() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return t.tv_sec + t.tv_nsec / 1e9;
}

int livingPlants(const CEcosystemSimulation& simulation) {
    int n = 0;
    for (const auto& vrsta : simulation.rastlinskeVrste)
        n += int(vrsta.ziviPrimerkiTeVrste.size());
    return n;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int size = argc > 1 ? std::atoi(argv[1]) : 1000;
    int steps = argc > 2 ? std::atoi(argv[2]) : 100;

    CTerrainData terrain;
    resample(terrain, size);
    CEcosystemSimulation simulation;
    simulation.setTerrainData(terrain);

    // Each layer's time from its first to its last progress report.
    QElapsedTimer clock;
    std::map<std::string, std::pair<double, double>> layers;
    ecosystem::data::setProgressHandler([&](const std::string& task, int, int) {
        const double now = clock.nsecsElapsed() / 1e6;
        auto it = layers.find(task);
        if (it == layers.end())
            layers[task] = {now, now};
        else
            it->second.second = now;
    });
    clock.start();
    simulation.zagotoviInicializiranostSimulacije(); // vegetation and every layer
    const double layersMs = clock.nsecsElapsed() / 1e6;
    ecosystem::data::setProgressHandler(nullptr);
    std::fprintf(stderr, "%d x %d grid, %d threads: vegetation and layers %.0f ms\n", size, size,
                 ecosystem::data::layerThreadCount(), layersMs);
    for (const auto& [task, span] : layers)
        std::fprintf(stderr, "  %-22s %8.0f ms\n", task.c_str(), span.second - span.first);

    const long baseKb = residentKilobytes();
    int most = 0, mostStep = 0;
    long kbAtMost = baseKb;
    QElapsedTimer run;
    run.start();
    const double processorStart = processorSeconds();
    int step = 1;
    for (; step <= steps; ++step) {
        QElapsedTimer one;
        one.start();
        simulation.simulateNextStepAndLog();
        const double ms = one.nsecsElapsed() / 1e6;
        const int plants = livingPlants(simulation);
        if (plants > most) {
            most = plants;
            mostStep = step;
            kbAtMost = residentKilobytes();
        }
        const bool past = plants < most * 0.95;
        if (step % 10 == 0 || step == steps || past || ms > 1000)
            std::fprintf(stderr, "step %4d: %9d plants, %8.0f ms, resident %ld MB\n", step, plants,
                         ms, residentKilobytes() / 1024);
        if (past)
            break;
    }
    steps = std::min(step, steps);
    const double seconds = run.nsecsElapsed() / 1e9;
    const double processor = processorSeconds() - processorStart;
    std::fprintf(stderr,
                 "%d steps in %.1f s wall, %.1f s processor: %.2f steps/s (%.2f per processor "
                 "second); peak memory %ld MB; most plants %d at step %d, %.0f bytes per plant "
                 "there (resident %ld MB, %ld MB before the first step)\n",
                 steps, seconds, processor, steps / seconds, steps / processor,
                 peakKilobytes() / 1024, most, mostStep,
                 most ? (kbAtMost - baseKb) * 1024.0 / most : 0.0, kbAtMost / 1024, baseKb / 1024);
    return 0;
}
