// The loaders at their limits: how long the largest file each limit allows
// takes to load, how long the first frame or step after it takes, and the
// peak memory. Processor time of this thread, median of several runs. Run by
// hand (it writes its files to a temporary folder):
//   bench_loaders [runs] [dem|sim|tree]   (one part alone shows its own peak memory)
#include "arbo/arbo.h"
#include "ecosystem/simulation/data/heighmapfactory.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"
#include "ecosystem/simulation/simulationfile.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <sys/resource.h>
#include <time.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

using arbo::ParametriDrevesa;
using ecosystem::CEcosystemSimulation;
using ecosystem::CSimulationFile;
using ecosystem::data::CTerrainData;

namespace {

double cpuMs() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
}

long peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

double median(int runs, const std::function<void()>& f) {
    std::vector<double> t;
    for (int i = 0; i < runs; ++i) {
        const double start = cpuMs();
        f();
        t.push_back(cpuMs() - start);
    }
    std::sort(t.begin(), t.end());
    return t[t.size() / 2];
}

void write(const QString& path, const std::string& text) {
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(text.data(), qint64(text.size())) < 0)
        std::abort();
}

double megabytes(const QString& path) {
    return QFile(path).size() / 1048576.0;
}

// Every count at its limit, every value at its bound, 1000 vertices a curve.
std::string largestTreeFile() {
    std::ostringstream s;
    s << "b\nl\n"
      << ParametriDrevesa::najvecZil << " 1e6 -1e6 1e6 -1e6 1 1e6 "
      << ParametriDrevesa::najvecListov << " -1e6 4\n";
    for (int k = 0; k < 12; ++k) {
        s << ParametriDrevesa::najvecTockKrivulje << "\t\n";
        for (int i = 0; i < ParametriDrevesa::najvecTockKrivulje; ++i)
            s << i / double(ParametriDrevesa::najvecTockKrivulje - 1) << '\t'
              << (i % 2 ? -999999.5 : 999999.5) << '\n';
        s << '\n';
    }
    return s.str();
}

void trees(const QTemporaryDir& dir, int runs) {
    const QString largest = dir.filePath("largest.tree.xml");
    write(largest, largestTreeFile());
    ParametriDrevesa p;
    const double load = median(runs, [&] {
        if (!p.loadParameters(largest.toStdString()))
            std::abort();
    });
    std::printf("tree file at every limit (%.2f MB): load %.1f ms\n", megabytes(largest), load);

    std::string million = "b\nl\n1000 5 0.01 85 0.3 1 0.1 5 1.5 0\n1000000\n";
    for (int i = 0; i < 1000000; ++i)
        million += "0.5\t0.5\n";
    const QString refused = dir.filePath("million.tree.xml");
    write(refused, million);
    const double refuse = median(runs, [&] {
        if (ParametriDrevesa().loadParameters(refused.toStdString()))
            std::abort();
    });
    std::printf("curve of 10^6 vertices (%.1f MB): refused in %.3f ms\n", megabytes(refused),
                refuse);

    // Frames of the default tree's shape, leaves bunched, finest stems: the
    // most a frame draws (10 000 strands, 30 leaves a twig), the limits, and
    // the most growing without drawing (every strand a twig of one leaf, or no
    // leaves, far away).
    struct Case {
        int strands, leaves, lod;
        bool shown;
    };
    for (const Case c : {Case{10000, 30, 0, true},
                         Case{ParametriDrevesa::najvecZil, ParametriDrevesa::najvecListov, 0, true},
                         Case{ParametriDrevesa::najvecZil, 1, 0, true},
                         Case{ParametriDrevesa::najvecZil, 5, 5, false}}) {
        arbo::Arbo tree;
        tree.pdPrepared.stVsehZil = c.strands;
        tree.pdPrepared.gostotaListov = c.leaves;
        tree.pdPrepared.listi = c.shown;
        tree.pdPrepared.tipListov = 3;
        tree.pogled.highQualityRendering = true;
        tree.pogled.lowQuality = c.lod;
        int segments = 0, leaves = 0;
        const double frame = median(runs, [&] {
            int stZil = 0;
            double h = 0;
            tree.zacniOkvir(stZil, h);
            tree.zrasti(stZil, h, arbo::MatrikaSklad::identiteta());
            segments = tree.delckiDrevesa.stSegmentov;
            leaves = tree.delckiDrevesa.stListov;
            tree.delckiDrevesa.mreza.izprazni(); // as drawing the frame does
        });
        std::printf("frame of %d strands, leaf density %d%s, level of detail %d: %d segments, %d "
                    "leaves in %.0f ms; peak so far %ld MB\n",
                    c.strands, c.leaves, c.shown ? "" : " (hidden)", c.lod, segments, leaves, frame,
                    peakMegabytes());
    }
}

void dem(const QTemporaryDir& dir, int runs) {
    CTerrainData t;
    const QString path = dir.filePath("default.dmr");
    QFile in(":/gui/textures/100x100.dmr");
    if (!in.open(QIODevice::ReadOnly))
        std::abort();
    std::string text = in.readAll().toStdString();
    write(path, text);
    ecosystem::data::CHeighMapFactory::Mreza grid;
    const double read = median(runs, [&] {
        if (!ecosystem::data::CHeighMapFactory::preberiDmr(path.toLocal8Bit().constData(), 100, 100,
                                                           grid))
            std::abort();
    });
    const double reload = median(runs, [&] {
        if (!t.reloadDMR(path.toLocal8Bit().constData()))
            std::abort();
    });
    std::printf("DEM of 100 x 100 points (%.2f MB): read and check %.1f ms, whole reload with "
                "every layer %.0f ms\n",
                megabytes(path), read, reload);
    // What follows the last point is never read.
    while (text.size() < (size_t(100) << 20))
        text += text;
    const QString huge = dir.filePath("huge.dmr");
    write(huge, text);
    const double hugeRead = median(runs, [&] {
        if (!ecosystem::data::CHeighMapFactory::preberiDmr(huge.toLocal8Bit().constData(), 100, 100,
                                                           grid))
            std::abort();
    });
    std::printf("the same DEM followed by %.0f MB more points: read and check %.1f ms\n",
                megabytes(huge), hugeRead);
    QFile::remove(huge);
}

// A saved run's format with plants spread over the lupa, 200 000 a species.
std::string largestSimulationFile() {
    std::ostringstream s;
    s << CSimulationFile::najvecjiKorak << "\n5\n";
    const int each = CSimulationFile::najvecRastlin / 5;
    int id = 0;
    for (int v = 0; v < 5; ++v) {
        s << each << '\n';
        for (int i = 0; i < each; ++i) {
            const int x = 25 + i % 51, y = 25 + (i / 51) % 51;
            s << x << '\t' << y << '\t' << 25 * x + 12.5 << '\t' << 100.25 << '\t' << 25 * y + 7.5
              << '\t' << ++id << '\t' << i % 200 << '\t' << 0.5 << '\t' << 0.9 << '\t' << 0.8
              << '\t' << 0.3 << '\t' << 0.1 << '\t' << 0.4 << '\t' << 0.5 << '\t' << 0.2 << '\t'
              << 0.27 << '\t' << 200 + i % 50 << '\n';
        }
    }
    for (int v = 0; v < 5; ++v)
        s << 0.5 << '\t';
    for (int k = 1; k <= 13; ++k)
        s << k * 1000003ULL << '\t';
    s << "\n25\t75\t25\t75\n";
    return s.str();
}

void simulation(const QTemporaryDir& dir) {
    const QString path = dir.filePath("largest.sim");
    write(path, largestSimulationFile());
    CTerrainData t;
    CEcosystemSimulation s;
    s.setTerrainData(t);
    s.simulateNextStep();
    std::streambuf* out = std::cout.rdbuf(nullptr);
    double start = cpuMs();
    CSimulationFile read;
    if (read.preberi(path.toStdString(), 5, t.stTockX, t.stTockY) !=
        CSimulationFile::Izid::Prebrano)
        std::abort();
    const double parse = cpuMs() - start;
    read = CSimulationFile();
    start = cpuMs();
    s.loadSimulation(path.toStdString());
    const double load = cpuMs() - start;
    start = cpuMs();
    s.simulateNextStep();
    const double step = cpuMs() - start;
    std::cout.rdbuf(out);
    std::printf("simulation file of 10^6 plants (%.0f MB): load %.0f ms (read and check alone "
                "%.0f ms), the next step %.0f ms; peak %ld MB\n",
                megabytes(path), load, parse, step, peakMegabytes());
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    const std::string part = argc > 2 ? argv[2] : "";
    QTemporaryDir dir;
    if (part.empty() || part == "dem")
        dem(dir, runs);
    if (part.empty() || part == "sim")
        simulation(dir);
    if (part.empty() || part == "tree")
        trees(dir, runs);
    return 0;
}
