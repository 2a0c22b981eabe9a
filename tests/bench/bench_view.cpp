// Frame time of the ecosystem view at 800 x 600 from the default camera, with
// the simulation state of steps 30, 60 and 100: culling, tree generation and
// submission, and the rest of the drawing (GL finish), and trees drawn per
// level of detail; also the CPU time of the main thread and of the whole
// process (llvmpipe's rasteriser threads included) per frame, steadier than
// wall time on a busy machine.
// Run under Xvfb: xvfb-run -a bench_view [lastStep [imageDir [gen|seq]]]
// VIEW_FRAMES=n times n frames per reported step instead of 4.
// With imageDir the last timed frame of every reported step is also written
// there as frame_<step>.png (lossless), to compare renderings pixel by pixel.

#include "arbo/arbo.h"
#include "ecosystem/render/camera.h"
#include "ecosystem/render/sky.h"
#include "ecosystem/render/terrain.h"
#include "ecosystem/render/visibleplantsrender.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"

#include "support/glcontext.h"

#include <GL/glu.h>

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>

#include <cstdio>
#include <ctime>
#include <memory>
#include <string>

using namespace ecosystem;

namespace {
// CPU time of the calling thread: less disturbed than wall time by other
// programs on a busy machine; it leaves out llvmpipe's rasteriser threads.
double cpuMs(clockid_t ura = CLOCK_THREAD_CPUTIME_ID) {
    timespec t;
    clock_gettime(ura, &t);
    return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
}
} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const int lastStep = argc > 1 ? std::atoi(argv[1]) : 100;
    const QString imageDir = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString();
    // "gen" as the third argument grows the trees without drawing them, "seq"
    // grows and draws every tree in turn on the drawing thread.
    const std::string nacin = argc > 3 ? argv[3] : "";
    const bool samoRast = nacin == "gen";
    OffscreenGl gl;
    if (!gl.create(800, 600)) {
        std::printf("no OpenGL context\n");
        return 1;
    }
    data::CTerrainData terrainData;
    if (!terrainData.isDataReady())
        terrainData.buildTerrainData();
    CEcosystemSimulation simulation;
    simulation.setTerrainData(terrainData);

    const char* files[] = {"bin/zbirka-4/grm5.tree.xml",
                           "bin/zbirka-4/Vrba Zalujka (Salix Babylonica).tree.xml",
                           "bin/zbirka-4/javorVelikZgorajGost.tree.xml",
                           "bin/zbirka-4/smrekaMini.tree.xml",
                           "bin/zbirka-4/manjseDefault100_vecjiListi.tree.xml",
                           ""};
    std::vector<std::unique_ptr<arbo::Arbo>> trees;
    std::vector<arbo::Arbo*> models;
    for (const char* f : files) {
        trees.push_back(std::make_unique<arbo::Arbo>());
        trees.back()->createKvadraticnePloskve();
        if (*f)
            trees.back()->pdPrepared.loadParameters(std::string(VIRELA_SOURCE_DIR) + "/" + f);
        trees.back()->delckiDrevesa.risi = !samoRast;
        models.push_back(trees.back().get());
    }
    render::Camera camera(nullptr, &terrainData);
    render::Sky sky(terrainData.dimen);
    render::Terrain terrain(&gl.context, &terrainData);
    terrain.initGLContexMultitextureAndArrays();
    render::VisiblePlantsRender plants;
    plants.vzporedno = nacin != "seq";

    glViewport(0, 0, 800, 600);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(90.0, 1.0, 1.0, 30000.0);
    glMatrixMode(GL_MODELVIEW);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_COLOR_MATERIAL);

    std::printf("step living visible frame_ms culling_ms trees_ms finish_ms fps main_cpu_ms "
                "all_cpu_ms lod0..9\n");
    for (int step = 1; step <= lastStep; ++step) {
        QElapsedTimer simTimer;
        simTimer.start();
        simulation.simulateNextStep();
        if (step != 30 && step != 60 && step != 100 && step != lastStep)
            continue;
        int living = 0;
        for (auto& v : simulation.rastlinskeVrste)
            living += int(v.ziviPrimerkiTeVrste.size());
        double frame = 0, culling = 0, treesMs = 0, finish = 0, cpu = 0, cpuVse = 0;
        int visible = 0;
        const int frames = getenv("VIEW_FRAMES") ? atoi(getenv("VIEW_FRAMES")) : 4;
        for (int f = 0; f < frames + 1; ++f) { // the first frame warms up
            QElapsedTimer t;
            t.start();
            const double cpu0 = cpuMs(), cpuVse0 = cpuMs(CLOCK_PROCESS_CPUTIME_ID);
            glClearColor(1, 1, 1, 1);
            glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
            glLoadIdentity();
            camera.setupEcosystemCamera();
            sky.render();
            terrain.render();
            std::vector<int> counts;
            visible = plants.render(simulation.rastlinskeVrste, models, *models[5], camera,
                                    {false, false, true, false}, counts);
            QElapsedTimer fin;
            fin.start();
            glFinish();
            if (f == 0)
                continue;
            finish += fin.nsecsElapsed() / 1e6;
            cpu += cpuMs() - cpu0;
            cpuVse += cpuMs(CLOCK_PROCESS_CPUTIME_ID) - cpuVse0;
            frame += t.nsecsElapsed() / 1e6;
            treesMs += plants.treesMs;
            culling += plants.walkMs - plants.treesMs;
        }
        if (!imageDir.isEmpty())
            gl.fbo->toImage().save(imageDir + QString("/frame_%1.png").arg(step));
        std::printf("%d %d %d %.1f %.1f %.1f %.1f %.1f %.1f %.1f", step, living, visible,
                    frame / frames, culling / frames, treesMs / frames, finish / frames,
                    1000.0 * frames / frame, cpu / frames, cpuVse / frames);
        for (int n : plants.treesPerLod)
            std::printf(" %d", n);
        std::printf("  (sim step %.0f ms)\n", simTimer.nsecsElapsed() / 1e6);
        std::fflush(stdout);
    }
    return 0;
}
