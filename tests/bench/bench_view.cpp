// Frame time of the ecosystem view: the scene itself draws its frames at
// 800 x 600 off screen (Xvfb/llvmpipe) from the default camera, with the
// simulation state of steps 30, 60 and 100.
//
//   xvfb-run -a bench_view [lastStep [mode [imageDir]]]
//
// mode: "exact" (the default) times the exact frame; "fast" switches far trees
// to impostors, times those frames and compares each with the exact frame of
// the same step (mean absolute difference per channel, 0 to 255); "fastonly"
// times impostor frames alone (for peak memory); "gen" grows the trees without
// drawing them (the growing's share of the exact frame).
// VIEW_WIDTH, VIEW_HEIGHT set the frame's size (800 x 600).
// VIRELA_THREADS=n sets the threads that grow trees (1: all on the drawing
// thread); VIEW_FRAMES=n times n frames per step (default 4, median reported);
// VIEW_TERRAIN=400 runs on a 400 x 400 terrain (the default DEM mirrored 4 x 4,
// its default plant area; the terrain itself is not drawn, its 160 000 vertices
// being more than its 16-bit indices reach); VIEW_CAMERA="x,y,z,alfa,beta"
// places the camera; VIEW_SPECIES=file grows every species from that tree
// parameter file (one at the file's limits, for the walk's memory); VIEW_ONLY_LAST=1 reports the
// last step alone (the atlas then starts there, as when the switch is first taken up at that step).
// With imageDir, the last frame of every reported step is written there as
// <mode>_<step>.png. Columns: frame_ms (median wall time, glFinish included),
// walk_ms (plant walk), trees_ms (walk time spent on trees), submit_ms (drawing
// grown trees), grow_ms (growing on the drawing thread), wait_ms (waiting for
// growers), imp_ms (atlas and impostors), read_ms and compose_ms (of which
// reading the frame's depth, which waits for it, and composing), finish_ms (glFinish:
// rasterising left), main_cpu / all_cpu (CPU ms of the drawing thread / whole
// process).

#include "arbo/arbo.h"
#include "ecosystem/render/camera.h"
#include "ecosystem/render/ecosystemrender.h"
#include "ecosystem/render/impostoratlas.h"
#include "ecosystem/render/visibleplantsrender.h"
#include "ecosystem/simulation/data/heighmapfactory.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"

#include "support/glcontext.h"
#include "support/imagecompare.h"
#include "support/terrain.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QImage>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

using namespace ecosystem;

namespace {

double cpuMs(clockid_t ura) {
    timespec t;
    clock_gettime(ura, &t);
    return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}

int envInt(const char* name, int otherwise) {
    const char* s = getenv(name);
    return s ? atoi(s) : otherwise;
}

long peakKb() {
    QFile f("/proc/self/status");
    f.open(QIODevice::ReadOnly);
    for (const QByteArray& line : f.readAll().split('\n'))
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toLong();
    return 0;
}

// The default DEM mirrored into an n x n grid, its default plant area.
void enlargeTerrain(data::CTerrainData& t, int n) {
    const int w = t.stTockX, h = t.stTockY;
    std::vector<float> heights(size_t(w) * h);
    for (int i = 0; i < w * h; ++i)
        heights[size_t(i)] = t.ogliscaTerena[size_t(i)].y;
    auto mirror = [](int i, int size) {
        const int k = i % (2 * size);
        return k < size ? k : 2 * size - 1 - k;
    };
    testterrain::reshape(
        t, n, n, [&](int x, int y) { return heights[size_t(mirror(x, w) + mirror(y, h) * w)]; });
    t.ortofotoTexture.reset(t.heighMapFactory->produceOrtoFotoTexture());
    t.buildTerrainData();
}

struct Frame {
    double wall = 0, walk = 0, trees = 0, submit = 0, grow = 0, wait = 0, imp = 0, read = 0,
           compose = 0, finish = 0, cpu = 0, cpuAll = 0;
};

Frame drawFrame(render::EcosystemRender& scene) {
    Frame f;
    QElapsedTimer t;
    t.start();
    const double cpu0 = cpuMs(CLOCK_THREAD_CPUTIME_ID), all0 = cpuMs(CLOCK_PROCESS_CPUTIME_ID);
    scene.render();
    QElapsedTimer fin;
    fin.start();
    glFinish();
    f.finish = fin.nsecsElapsed() / 1e6;
    f.wall = t.nsecsElapsed() / 1e6;
    f.cpu = cpuMs(CLOCK_THREAD_CPUTIME_ID) - cpu0;
    f.cpuAll = cpuMs(CLOCK_PROCESS_CPUTIME_ID) - all0;
    const render::VisiblePlantsRender& p = scene.plantWalk();
    f.walk = p.walkMs;
    f.trees = p.treesMs;
    f.submit = p.submitMs;
    f.grow = p.drawingThreadGrowMs;
    f.wait = p.waitMs;
    f.imp = p.impostorsMs;
    if (scene.fastDistantTrees) {
        f.read = scene.plantWalk().atlas().branjeMs;
        f.compose = scene.plantWalk().atlas().sestavljanjeMs;
    }
    return f;
}

// Median of each column over the frames.
Frame medianFrame(const std::vector<Frame>& frames) {
    Frame m;
    auto col = [&](double Frame::*c) {
        std::vector<double> v;
        for (const Frame& f : frames)
            v.push_back(f.*c);
        m.*c = median(v);
    };
    for (auto c :
         {&Frame::wall, &Frame::walk, &Frame::trees, &Frame::submit, &Frame::grow, &Frame::wait,
          &Frame::imp, &Frame::read, &Frame::compose, &Frame::finish, &Frame::cpu, &Frame::cpuAll})
        col(c);
    return m;
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const int lastStep = argc > 1 ? atoi(argv[1]) : 100;
    const std::string mode = argc > 2 ? argv[2] : "exact";
    const QString imageDir = argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString();
    const bool fast = mode == "fast" || mode == "fastonly";
    const int frames = envInt("VIEW_FRAMES", 4);
    const bool onlyLast = envInt("VIEW_ONLY_LAST", 0) != 0;
    QDir::setCurrent(VIRELA_SOURCE_DIR); // the species files are found from here

    OffscreenGl gl;
    if (!gl.createWithViewState(envInt("VIEW_WIDTH", 800), envInt("VIEW_HEIGHT", 600))) {
        std::printf("no OpenGL context\n");
        return 1;
    }
    render::EcosystemRender scene(&gl.context, nullptr);
    scene.showFPS = false;
    if (mode == "gen")
        for (arbo::Arbo* a : scene.izglediDrevesnihVrst)
            a->delckiDrevesa.risi = false;
    if (const char* f = getenv("VIEW_SPECIES"))
        for (arbo::Arbo* a : scene.izglediDrevesnihVrst)
            if (!a->pdPrepared.loadParameters(f)) {
                std::printf("cannot load %s\n", f);
                return 1;
            }
    if (const int n = envInt("VIEW_TERRAIN", 0); n > 0) {
        enlargeTerrain(*scene.terrainData, n);
        scene.ecosystemSimulation->setTerrainData(*scene.terrainData); // the new grid's cells
    }
    if (const char* c = getenv("VIEW_CAMERA")) {
        render::Camera& cam = *scene.camera;
        std::sscanf(c, "%f,%f,%f,%f,%f", &cam.x, &cam.y, &cam.z, &cam.alfa, &cam.beta);
    }
    render::VisiblePlantsRender& plants = scene.plantWalk();
    std::printf("threads %d, mode %s, %d frames per step, terrain %d x %d\n", plants.stNiti,
                mode.c_str(), frames, scene.terrainData->stTockX, scene.terrainData->stTockY);
    std::printf("step living visible frame_ms fps walk_ms trees_ms submit_ms grow_ms wait_ms "
                "imp_ms read_ms compose_ms finish_ms main_cpu all_cpu | lod5..9 impostors\n");
    for (int step = 1; step <= lastStep; ++step) {
        scene.ecosystemSimulation->simulateNextStep();
        if ((step != 30 && step != 60 && step != 100 && step != lastStep) ||
            (onlyLast && step != lastStep))
            continue;
        int living = 0;
        for (auto& v : scene.ecosystemSimulation->rastlinskeVrste)
            living += int(v.ziviPrimerkiTeVrste.size());
        QImage exact, bare;
        if (mode == "fast") {
            drawFrame(scene); // the exact frame to compare with
            exact = gl.fbo->toImage();
            scene.doNotDrawTrees = true; // and one without trees, for scale
            drawFrame(scene);
            bare = gl.fbo->toImage();
            scene.doNotDrawTrees = false;
        }
        scene.fastDistantTrees = fast;
        double atlasFirstFrame = 0;
        const double atlasBefore = plants.atlas().casGradnjeMs;
        // Warm up (and let the atlas draw what this view asks for).
        for (int f = 0; f < 100; ++f) {
            const Frame w = drawFrame(scene);
            if (f == 0)
                atlasFirstFrame = w.wall;
            if (!plants.atlasPending && f >= 1)
                break;
        }
        const double atlasMs = plants.atlas().casGradnjeMs - atlasBefore;
        std::vector<Frame> timed;
        for (int f = 0; f < frames; ++f)
            timed.push_back(drawFrame(scene));
        const Frame m = medianFrame(timed);
        const QImage image = gl.fbo->toImage();
        int visible = 0;
        for (int n : plants.treesPerLod)
            visible += n;
        std::printf("%d %d %d %.1f %.2f %.1f %.1f %.1f %.1f %.1f %.1f %.1f %.1f %.1f %.1f %.1f |",
                    step, living, visible, m.wall, 1000.0 / m.wall, m.walk, m.trees, m.submit,
                    m.grow, m.wait, m.imp, m.read, m.compose, m.finish, m.cpu, m.cpuAll);
        for (int lod = 5; lod < 10; ++lod)
            std::printf(" %d", plants.treesPerLod[lod]);
        std::printf(" %d\n", fast ? plants.atlas().stImpostorjev : 0);
        if (fast)
            std::printf("   atlas: %.0f ms drawing %d cells in all (this step %.0f ms; first frame "
                        "%.0f ms)\n",
                        plants.atlas().casGradnjeMs, plants.atlas().stNarisanihCelic, atlasMs,
                        atlasFirstFrame);
        if (!exact.isNull())
            std::printf("   mean absolute difference from the exact frame: %.3f per channel "
                        "(of 8 x 8 averages %.3f), %d pixels differ; without trees %.3f (%.3f)\n",
                        imagecompare::meanAbsoluteDifference(exact, image),
                        imagecompare::meanAbsoluteDifference(exact, image, 8),
                        imagecompare::differingPixels(exact, image),
                        imagecompare::meanAbsoluteDifference(exact, bare),
                        imagecompare::meanAbsoluteDifference(exact, bare, 8));
        if (!imageDir.isEmpty()) {
            imagecompare::asShown(image).save(
                imageDir + QString("/%1_%2.png").arg(QString::fromStdString(mode)).arg(step));
            if (!exact.isNull())
                imagecompare::asShown(exact).save(imageDir + QString("/exact_%1.png").arg(step));
        }
        scene.fastDistantTrees = false;
        std::fflush(stdout);
    }
    std::printf("peak memory %.1f MB\n", peakKb() / 1024.0);
    return 0;
}
