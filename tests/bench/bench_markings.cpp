// Frame time of the ecosystem view (sky, terrain, one overlay) at 800 x 600
// from the default camera, without and with each terrain overlay, on the
// default terrain (100 x 100, layers built) and on a 400 x 400 terrain (hills,
// layers filled with values from 0 to 1). Each configuration is timed over
// rounds of frames taken in turn with the others (so that a busy spell of the
// machine hits them alike); the median frame of every configuration is
// reported, with its CPU time of the whole process (llvmpipe's threads
// included). Run under Xvfb: xvfb-run -a bench_markings [frames [rounds [imageDir]]]
// With imageDir the last frame of every configuration is written there as PNG.

#include "ecosystem/render/camera.h"
#include "ecosystem/render/sky.h"
#include "ecosystem/render/terrain.h"
#include "ecosystem/render/terrainmarkings.h"
#include "ecosystem/simulation/data/sunfactory.h"
#include "ecosystem/simulation/data/terraindata.h"

#include "arbo/gltexture.h"
#include "support/glcontext.h"
#include "support/terrain.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <vector>

using namespace ecosystem;

namespace {

double processCpuMs() {
    timespec t;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}

void inclinationDiskByDisk(render::TerrainMarkings& m) {
    const data::CTerrainData& t = *m.terrainData;
    glDisable(GL_BLEND);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_LIGHTING);
    for (int y = 0; y < t.stTockY - 1; ++y)
        for (int x = 0; x < t.stTockX - 1; ++x) {
            const int base = y * t.stTockX + x;
            const float v = t.terrainInclination[base];
            const arbo::Tocka& p = t.pTerrainVertexData[base].pos;
            glColor4f(v, 0, v, 0.5f);
            glDisable(GL_DEPTH_TEST);
            glPushMatrix();
            glTranslatef(p.x, p.y, p.z);
            glRotatef(90, 1, 0, 0);
            glRotatef(45, 0, 0, 1);
            gluDisk(m.kvadraticnePloskve, 0, 17.75 * v, 4, 1);
            glPopMatrix();
            glEnable(GL_DEPTH_TEST);
        }
    glEnable(GL_LIGHTING);
    glEnable(GL_BLEND);
    glEnable(GL_TEXTURE_2D);
    glColor4f(1, 1, 1, 1);
}

QImage readFrame() {
    QImage image(800, 600, QImage::Format_RGBA8888);
    glReadPixels(0, 0, 800, 600, GL_RGBA, GL_UNSIGNED_BYTE, image.bits());
    return image.mirrored().convertToFormat(QImage::Format_RGB32);
}

struct Overlay {
    const char* name;
    std::function<void(render::TerrainMarkings&)> draw;
};

const Overlay overlays[] = {
    {"none", [](render::TerrainMarkings&) {}},
    {"normals",
     [](render::TerrainMarkings& m) {
         glColor3f(1, 0, 0);
         m.renderNormals();
     }},
    {"inclination", [](render::TerrainMarkings& m) { m.renderInclination(); }},
    {"moisture", [](render::TerrainMarkings& m) { m.renderMoisture(); }},
    {"sunniness", [](render::TerrainMarkings& m) { m.renderSunniness(); }},
    {"windiness", [](render::TerrainMarkings& m) { m.renderWindiness(); }},
    {"sun", [](render::TerrainMarkings& m) { m.renderSun(); }},
    // For comparison: the inclination drawn diamond by diamond, a quadric disk
    // in its own turned frame each, as the overlay would be without its array.
    {"incl_disks", [](render::TerrainMarkings& m) { inclinationDiskByDisk(m); }},
};

// A 400 x 400 terrain of rolling hills; each layer a different smooth pattern
// from 0 to 1, normals from the slopes.
void makeLargeTerrain(data::CTerrainData& t) {
    const int n = 400;
    auto height = [](int x, int y) {
        return float(150 + 120 * std::sin(x * 0.05) * std::cos(y * 0.04) + 40 * std::sin(y * 0.2));
    };
    testterrain::reshape(t, n, n, height);
    for (int y = 0; y < n; ++y)
        for (int x = 0; x < n; ++x) {
            const int i = x + y * n;
            t.terrainInclination[i] = float(0.5 + 0.5 * std::sin(x * 0.07));
            t.terrainMoisture[i] = float(0.5 + 0.5 * std::cos(y * 0.05));
            t.terrainSunniness[i] = float(0.5 + 0.5 * std::sin((x + y) * 0.03));
            t.terrainWindiness[i] = float(0.5 + 0.5 * std::cos((x - y) * 0.04));
            arbo::Tocka normal(height(x, y) - height(std::min(x + 1, n - 1), y), 25.0f,
                               height(x, y) - height(x, std::min(y + 1, n - 1)));
            normal.normalize();
            t.terrainNormals[i] = normal;
        }
    t.sunFactory = std::make_unique<data::CSunFactory>(t);
}

void timeTerrain(const char* title, data::CTerrainData& terrainData, int frames, int rounds,
                 const QString& imageDir) {
    render::Camera camera(nullptr, &terrainData);
    render::Sky sky(terrainData.dimen);
    render::Terrain terrain(QOpenGLContext::currentContext(), &terrainData);
    terrain.setTextureNames(arbo::GlTexture::bind(*terrainData.ortofotoTexture),
                            arbo::GlTexture::bind(QImage(":/gui/textures/detail.png")));
    terrain.initGLContexMultitextureAndArrays();
    render::TerrainMarkings markings(&terrainData);
    markings.sunTexture = arbo::GlTexture::bind(render::TerrainMarkings::sunImage());

    const int count = int(std::size(overlays));
    std::vector<std::vector<double>> wall(count), cpu(count);
    for (int r = 0; r < rounds; ++r)
        for (int o = 0; o < count; ++o)
            for (int f = 0; f < frames + 1; ++f) { // the first frame warms up
                QElapsedTimer t;
                t.start();
                const double cpu0 = processCpuMs();
                glClearColor(1, 1, 1, 1);
                glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
                glLoadIdentity();
                camera.setupEcosystemCamera();
                sky.render();
                terrain.render();
                overlays[o].draw(markings);
                glFinish();
                if (f == 0)
                    continue;
                wall[o].push_back(t.nsecsElapsed() / 1e6);
                cpu[o].push_back(processCpuMs() - cpu0);
                if (!imageDir.isEmpty() && r == rounds - 1 && f == frames)
                    readFrame().save(QString("%1/%2_%3.png")
                                         .arg(imageDir)
                                         .arg(terrainData.stTockX)
                                         .arg(overlays[o].name));
            }
    std::printf("%s (%d x %d vertices, terrain drawn: %s)\n", title, terrainData.stTockX,
                terrainData.stTockY,
                terrainData.stTockX * terrainData.stTockY <= 65536 ? "yes" : "no, too many");
    std::printf("  %-12s %9s %9s %9s %9s\n", "overlay", "frame_ms", "added_ms", "cpu_ms",
                "added_cpu");
    const double base = median(wall[0]), baseCpu = median(cpu[0]);
    for (int o = 0; o < count; ++o)
        std::printf("  %-12s %9.2f %9.2f %9.2f %9.2f\n", overlays[o].name, median(wall[o]),
                    median(wall[o]) - base, median(cpu[o]), median(cpu[o]) - baseCpu);
    arbo::GlTexture::release(markings.sunTexture);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const int frames = argc > 1 ? std::atoi(argv[1]) : 10;
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 3;
    OffscreenGl gl;
    if (!gl.createWithViewState(800, 600)) {
        std::printf("no OpenGL context\n");
        return 1;
    }
    data::CTerrainData standard;
    if (!standard.isDataReady())
        standard.buildTerrainData();
    const QString imageDir = argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString();
    timeTerrain("default terrain", standard, frames, rounds, imageDir);

    data::CTerrainData large;
    makeLargeTerrain(large);
    timeTerrain("400 x 400 terrain", large, frames, rounds, imageDir);
    return 0;
}
