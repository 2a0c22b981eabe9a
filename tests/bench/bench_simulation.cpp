// A headless run of the default vegetation on the default DEM for 100 steps.
// Prints, at steps 25, 50, 75 and 100, the living plants and the milliseconds of
// the add, grow and kill phases of that step; then the total time and the peak
// memory with the bytes per living plant at the largest population. Run by hand.
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <sys/resource.h>
#include <time.h>

#include <algorithm>
#include <cstdio>

using ecosystem::CEcosystemSimulation;
using ecosystem::simulationEntities::CVrstaRastlin;

namespace {

long peakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

int livingPlants(const CEcosystemSimulation& simulation) {
    int n = 0;
    for (const CVrstaRastlin& vrsta : simulation.rastlinskeVrste)
        n += int(vrsta.ziviPrimerkiTeVrste.size());
    return n;
}

double msSince(QElapsedTimer& timer) {
    return timer.nsecsElapsed() / 1e6;
}

// Processor time of this thread: on a shared machine wall time also counts
// the time other programs had the processor.
double cpuMs() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int steps = argc > 1 ? std::atoi(argv[1]) : 100;
    ecosystem::data::CTerrainData terrain;
    CEcosystemSimulation simulation;
    simulation.setTerrainData(terrain);

    QElapsedTimer total;
    total.start();
    const double cpuStart = cpuMs();
    // The first step also builds the vegetation and the terrain layers.
    simulation.simulateNextStep();
    const double firstStepMs = msSince(total);
    const long baseKb = peakKilobytes();
    int mostPlants = 0;
    double addSum = 0, growSum = 0, killSum = 0;
    std::printf("step   plants    add ms   grow ms   kill ms   step processor ms\n");
    for (int step = 2; step <= steps; ++step) {
        QElapsedTimer phase;
        phase.start();
        const double cpuStep = cpuMs();
        simulation.zagotoviInicializiranostSimulacije();
        simulation.simulationStepNr += 1;
        simulation.dodajRastlineVrstam();
        const double add = msSince(phase);
        phase.restart();
        simulation.zrastiVseRastlineInDolociMoci();
        const double grow = msSince(phase);
        phase.restart();
        simulation.pobijRastline();
        const double kill = msSince(phase);
        const double cpu = cpuMs() - cpuStep;
        simulation.saveStatistics(0, 0, 0, 0);
        addSum += add;
        growSum += grow;
        killSum += kill;
        const int plants = livingPlants(simulation);
        mostPlants = std::max(mostPlants, plants);
        if (step % 25 == 0 || (plants > 250000 && step % 5 == 0))
            std::printf("%4d %8d %9.2f %9.2f %9.2f %9.2f\n", step, plants, add, grow, kill, cpu);
    }
    const double totalMs = msSince(total);
    const double totalCpuMs = cpuMs() - cpuStart;
    const long peakKb = peakKilobytes();
    std::printf("first step (vegetation + terrain layers): %.1f ms\n", firstStepMs);
    std::printf("total for %d steps: %.1f ms wall, %.1f ms processor (add %.1f, grow %.1f, kill "
                "%.1f wall)\n",
                steps, totalMs, totalCpuMs, addSum, growSum, killSum);
    std::printf("peak memory: %ld kB (%ld kB after the first step); most plants %d: %.0f bytes "
                "per plant\n",
                peakKb, baseKb, mostPlants,
                mostPlants ? (peakKb - baseKb) * 1024.0 / mostPlants : 0.0);
    return 0;
}
