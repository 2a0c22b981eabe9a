#include "ecosystem/render/ecosystemrender.h"

#include "ecosystem/render/framerate.h"

#include <GL/gl.h>

#include <cstdio>

namespace ecosystem::render {

EcosystemRender::EcosystemRender(QOpenGLContext* /*context*/, QOpenGLWidget* widget)
    : qGLWidget(widget), filenameDetail(":/gui/textures/detail.png"),
      filenameSky1(":/gui/textures/sky_n.png"), filenameSky2(":/gui/textures/sky_s.png"),
      filenameSky3(":/gui/textures/sky_e.png"), filenameSky4(":/gui/textures/sky_w.png"),
      filenameSky5(":/gui/textures/sky_u.png"), filenameSky6(":/gui/textures/sky_d.png") {
    initAllTextures(widget);
}

EcosystemRender::~EcosystemRender() = default;

void EcosystemRender::initAllTextures(QOpenGLWidget* /*widget*/) {}

void EcosystemRender::render() {
    if (doNotRefreshDisplay)
        return;
    countFrame();
    if (lightingEnabled)
        glEnable(GL_LIGHTING);
    else
        glDisable(GL_LIGHTING);
    checkGlError("Zacetek renderiranja");
    if (!singleRender) {
        glClearColor(1, 1, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glLoadIdentity();
        checkGlError("Identity model");
    }
    checkGlError("Vse zrenderirano");
}

void EcosystemRender::countFrame() {
    static FrameRate frameRate;
    const float fps = frameRate.frame();
    if (fps > 0 && showFPS) {
        std::printf("%s\n", FrameRate::line(fps).c_str());
        std::fflush(stdout);
    }
}

void EcosystemRender::checkGlError(const char* message) {
    if (!checkingForGlErrors)
        return;
    for (GLenum e = glGetError(); e != GL_NO_ERROR; e = glGetError()) {
        const char* name = nullptr;
        switch (e) {
        case GL_INVALID_ENUM:
            name = "GL_INVALID_ENUM";
            break;
        case GL_INVALID_VALUE:
            name = "GL_INVALID_VALUE";
            break;
        case GL_INVALID_OPERATION:
            name = "GL_INVALID_OPERATION";
            break;
        case GL_STACK_OVERFLOW:
            name = "GL_STACK_OVERFLOW";
            break;
        case GL_OUT_OF_MEMORY:
            name = "GL_OUT_OF_MEMORY";
            break;
        default:
            break;
        }
        std::printf("%s: ", message);
        if (name)
            std::printf("%s", name);
        std::printf("\n");
    }
}

void EcosystemRender::toggleSingleRender() {
    singleRender = !singleRender;
}
void EcosystemRender::toggleLightingEnabled() {
    lightingEnabled = !lightingEnabled;
}
void EcosystemRender::toggleShowFPS() {
    showFPS = !showFPS;
}
void EcosystemRender::toggleWireframe() {
    wireframe = !wireframe;
}
void EcosystemRender::toggleShowNeighborHood() {
    showNeighborHood = !showNeighborHood;
}
void EcosystemRender::toggleDoNotDrawTrees() {
    doNotDrawTrees = !doNotDrawTrees;
}
void EcosystemRender::toggleDoNotRefreshDisplay() {
    doNotRefreshDisplay = !doNotRefreshDisplay;
}
void EcosystemRender::toggleDisplayTerrainNormals() {
    displayTerrainNormals = !displayTerrainNormals;
}
void EcosystemRender::toggleDisplayTerrainInclination() {
    displayTerrainInclination = !displayTerrainInclination;
}
void EcosystemRender::toggleDisplayTerrainMoisture() {
    displayTerrainMoisture = !displayTerrainMoisture;
}
void EcosystemRender::toggleDisplayTerrainSunniness() {
    displayTerrainSunniness = !displayTerrainSunniness;
}
void EcosystemRender::toggleDisplayTerrainWindiness() {
    displayTerrainWindiness = !displayTerrainWindiness;
}
void EcosystemRender::toggleDisplayLandMarkings() {
    displayLandMarkings = !displayLandMarkings;
}
void EcosystemRender::toggleDisplaySun() {
    displaySun = !displaySun;
}
void EcosystemRender::toggleDisplaySky() {
    displaySky = !displaySky;
}

void EcosystemRender::actionRender_less_often_skip_more_frames() {
    ++simulationStepsPerRenderedFrame;
}

void EcosystemRender::actionRender_more_often_skip_less_frames() {
    if (simulationStepsPerRenderedFrame > 1)
        --simulationStepsPerRenderedFrame;
}

} // namespace ecosystem::render
