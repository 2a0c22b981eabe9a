// A headless run of the default vegetation on the default DEM for 100 steps.
// Prints, at steps 25, 50, 75 and 100, the living plants and the milliseconds of
// the add, grow and kill phases of that step; then the total time and the peak
// memory with the bytes per living plant at the largest population. Run by hand:
//   bench_simulation [steps] [check-prefix]
// With a check prefix it also writes <prefix>.log (every step's statistics line,
// death counters, random streams and a digest of every plant's whole state) and
// <prefix>.sim (the simulation file after the last step), for comparing two
// builds bit for bit.
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <sys/resource.h>
#include <time.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

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

// FNV-1a over the bytes of every field of every plant, species by species in
// list order, so any difference in any plant's state shows.
template <typename T> void dodajVDigest(std::uint64_t& h, const T& v) {
    unsigned char bajti[sizeof(T)];
    std::memcpy(bajti, &v, sizeof(T));
    for (unsigned char b : bajti)
        h = (h ^ b) * 1099511628211ull;
}

std::uint64_t digestRastlin(const CEcosystemSimulation& simulation) {
    std::uint64_t h = 1469598103934665603ull;
    for (const CVrstaRastlin& vrsta : simulation.rastlinskeVrste) {
        dodajVDigest(h, vrsta.komulacijaSemen);
        dodajVDigest(h, vrsta.komulacijaPrihajajocihRastlin);
        for (const auto& r : vrsta.ziviPrimerkiTeVrste) {
            for (auto v : {r.id, r.trenutnaStarost, r.pozicijaMap2D.x, r.pozicijaMap2D.y})
                dodajVDigest(h, v);
            for (auto v : {r.pozicija3D.x, r.pozicija3D.y, r.pozicija3D.z})
                dodajVDigest(h, v);
            for (auto v : {r.trenutnaVelikost, r.trenutniRadij, r.prodornost, r.trenutnaMoc,
                           r.strminaTukaj, r.vlaznostTukaj, r.sonceTukaj, r.veterTukaj,
                           r.visinaTukajNormNadVodo, r.umreNaKoraku})
                dodajVDigest(h, v);
            dodajVDigest(h, r.jeDominirana);
            dodajVDigest(h, r.vrstaRastline == &vrsta);
        }
    }
    return h;
}

void zapisiKorak(std::FILE* log, CEcosystemSimulation& simulation) {
    const auto& s = *simulation.getEntitiesStatistics();
    std::fprintf(log, "%s | dominance=%d other=%d all=%d | seeds", s.logText.c_str(),
                 s.umrliZaradiDominiranosti, s.umrliOstalo, s.umrliSkupaj);
    for (unsigned long long seed : simulation.getRandomGeneratorSeeds())
        std::fprintf(log, " %llu", seed);
    std::fprintf(log, " | lastID=%d digest=%016llx\n",
                 ecosystem::simulationEntities::CRastlina::lastID,
                 static_cast<unsigned long long>(digestRastlin(simulation)));
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int steps = argc > 1 ? std::atoi(argv[1]) : 100;
    const std::string preveri = argc > 2 ? argv[2] : "";
    std::FILE* log = preveri.empty() ? nullptr : std::fopen((preveri + ".log").c_str(), "w");
    ecosystem::data::CTerrainData terrain;
    CEcosystemSimulation simulation;
    simulation.setTerrainData(terrain);

    QElapsedTimer total;
    total.start();
    const double cpuStart = cpuMs();
    // The first step also builds the vegetation and the terrain layers.
    simulation.simulateNextStep();
    // The check log holds no timings, which differ from run to run.
    if (log) {
        simulation.getEntitiesStatistics()->sumRenderTime = 0;
        simulation.getEntitiesStatistics()->sumSimmTime = 0;
        CEcosystemSimulation::casPobijanjaDominiranihRastlin = 0;
        simulation.getEntitiesStatistics()->saveSimulationRutinesTimings(1, 0, 0, 0, 0, 0);
        zapisiKorak(log, simulation);
    }
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
        CEcosystemSimulation::casPobijanjaDominiranihRastlin = 0;
        simulation.saveStatistics(0, 0, 0, 0);
        if (log)
            zapisiKorak(log, simulation);
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
    if (log) {
        std::fclose(log);
        simulation.saveSimulation(preveri + ".sim");
    }
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
