#include "ecosystem/render/ecosystemrender.h"

#include "ecosystem/render/camera.h"
#include "ecosystem/render/framerate.h"
#include "ecosystem/simulation/data/terraindata.h"

#include <GL/gl.h>

#include <cstdio>

namespace ecosystem::render {

EcosystemRender::EcosystemRender(QOpenGLContext* /*context*/, QOpenGLWidget* widget)
    : qGLWidget(widget), filenameDetail(":/gui/textures/detail.png"),
      filenameSky1(":/gui/textures/sky_n.png"), filenameSky2(":/gui/textures/sky_s.png"),
      filenameSky3(":/gui/textures/sky_e.png"), filenameSky4(":/gui/textures/sky_w.png"),
      filenameSky5(":/gui/textures/sky_u.png"), filenameSky6(":/gui/textures/sky_d.png") {
    initModelObjects();
    camera = new Camera(this, terrainData);
    initAllTextures(widget);
}

EcosystemRender::~EcosystemRender() {
    delete terrainData;
}

void EcosystemRender::initModelObjects() {
    terrainData = new data::CTerrainData();
    if (!terrainData->isDataReady())
        terrainData->buildTerrainData();
}

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
    if (!singleRender)
        renderEcosystem();
    checkGlError("Vse zrenderirano");
}

void EcosystemRender::renderEcosystem() {
    glClearColor(1, 1, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glLoadIdentity();
    checkGlError("Identity model");
    camera->setupEcosystemCamera();
    checkGlError("Camera set");
    setLightPosition();
    checkGlError("Lights set");
    // A newly loaded DEM is taken up here.
    if (!terrainData->isDataReady())
        terrainData->buildTerrainData();
}

void EcosystemRender::setLightPosition() {
    if (singleRender)
        return;
    const GLfloat light0[] = {4609, 0, 5750, 0};
    const GLfloat light1[] = {4609, 2500, 5750, 2500};
    const GLfloat light2[] = {4609, 1000, 5750, 715};
    glLightfv(GL_LIGHT0, GL_POSITION, light0);
    glLightfv(GL_LIGHT1, GL_POSITION, light1);
    glLightfv(GL_LIGHT2, GL_POSITION, light2);
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

int EcosystemRender::getLupaMinX() const {
    return terrainData->lupaXmin;
}
int EcosystemRender::getLupaMaxX() const {
    return terrainData->lupaXmax;
}
int EcosystemRender::getLupaMinY() const {
    return terrainData->lupaYmin;
}
int EcosystemRender::getLupaMaxY() const {
    return terrainData->lupaYmax;
}

void EcosystemRender::setLupaMinX(int v) {
    terrainData->lupaXmin = v;
    terrainData->buildNonwaterIndexes();
}

void EcosystemRender::setLupaMaxX(int v) {
    terrainData->lupaXmax = v;
    terrainData->buildNonwaterIndexes();
}

void EcosystemRender::setLupaMinY(int v) {
    terrainData->lupaYmin = v;
    terrainData->buildNonwaterIndexes();
}

void EcosystemRender::setLupaMaxY(int v) {
    terrainData->lupaYmax = v;
    terrainData->buildNonwaterIndexes();
}

void EcosystemRender::reloadDMR(std::string fileName) {
    terrainData->reloadDMR(fileName.c_str());
}

} // namespace ecosystem::render
