#include "ecosystem/render/ecosystemrender.h"

#include "arbo/arbo.h"
#include "arbo/gltexture.h"
#include "arbo/usermessage.h"
#include "ecosystem/render/camera.h"
#include "ecosystem/render/framerate.h"
#include "ecosystem/render/sky.h"
#include "ecosystem/render/terrain.h"
#include "ecosystem/render/terrainmarkings.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QImage>

#include <GL/gl.h>

#include <cstdio>

namespace ecosystem::render {

EcosystemRender::EcosystemRender(QOpenGLContext* context, QOpenGLWidget* widget)
    : qGLWidget(widget), filenameDetail(":/gui/textures/detail.png"),
      filenameSky1(":/gui/textures/sky_n.png"), filenameSky2(":/gui/textures/sky_s.png"),
      filenameSky3(":/gui/textures/sky_e.png"), filenameSky4(":/gui/textures/sky_w.png"),
      filenameSky5(":/gui/textures/sky_u.png"), filenameSky6(":/gui/textures/sky_d.png") {
    initModelObjects();
    camera = new Camera(this, terrainData);
    terrainMarkings = new TerrainMarkings(terrainData);
    sky = new Sky(terrainData->dimen);
    terrain = new Terrain(context, terrainData);
    initAllTextures(widget);
}

EcosystemRender::~EcosystemRender() {
    delete terrain;
    if (sky)
        for (int i = 0; i < 6; ++i)
            arbo::GlTexture::release(sky->getTextureNames()[i]);
    delete sky;
    delete terrainData;
    if (terrainMarkings)
        arbo::GlTexture::release(terrainMarkings->sunTexture);
    delete terrainMarkings;
    delete ecosystemSimulation;
    for (arbo::Arbo* tree : izglediDrevesnihVrst) {
        arbo::GlTexture::release(tree->pogled.textureNames[0]);
        arbo::GlTexture::release(tree->pogled.textureNames[1]);
        delete tree;
    }
}

void EcosystemRender::initModelObjects() {
    terrainData = new data::CTerrainData();
    ecosystemSimulation = new CEcosystemSimulation();
    ecosystemSimulation->setTerrainData(*terrainData);
    createModelTrees();
    if (!terrainData->isDataReady())
        terrainData->buildTerrainData();
}

// Five species trees from the collection (relative to the working directory)
// and the default tree. A species file that cannot be loaded leaves its tree
// with the default parameters; one message names every such file and why.
void EcosystemRender::createModelTrees() {
    const char* files[] = {"bin/zbirka-4/grm5.tree.xml",
                           "bin/zbirka-4/Vrba Zalujka (Salix Babylonica).tree.xml",
                           "bin/zbirka-4/javorVelikZgorajGost.tree.xml",
                           "bin/zbirka-4/smrekaMini.tree.xml",
                           "bin/zbirka-4/manjseDefault100_vecjiListi.tree.xml",
                           ""};
    QString failed;
    for (const char* file : files) {
        auto* tree = new arbo::Arbo();
        tree->createKvadraticnePloskve();
        std::string reason;
        if (!tree->pdPrepared.loadParameters(file, &reason) && *file)
            failed += QString("\n%1: %2")
                          .arg(QString::fromLocal8Bit(file), QString::fromStdString(reason));
        izglediDrevesnihVrst.push_back(tree);
    }
    selectTree(5);
    if (!failed.isEmpty())
        arbo::showUserMessage(
            QCoreApplication::translate("EcosystemRender", "Error").toStdString(),
            (QCoreApplication::translate("EcosystemRender", "Could not open file.") + "\n" +
             failed + "\n\n" +
             QCoreApplication::translate("EcosystemRender",
                                         "These species are drawn with the default tree."))
                .toStdString());
}

void EcosystemRender::selectTree(int index) {
    indexIzbranegaDrevesa = index;
    izbranoArbo = izglediDrevesnihVrst[index];
}

void EcosystemRender::makeTransparent(QImage& image) {
    image = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            if (qRed(line[x]) > 200 && qGreen(line[x]) > 200 && qBlue(line[x]) > 200)
                line[x] = qRgba(255, 255, 255, 0);
    }
}

void EcosystemRender::reloadAllTreeTextures() {
    const int selected = indexIzbranegaDrevesa;
    for (int i = 0; i < int(izglediDrevesnihVrst.size()); ++i) {
        selectTree(i);
        reloadCurrentTreeTextures();
    }
    selectTree(selected);
}

bool EcosystemRender::loadTreeTextureImages(const arbo::Arbo& tree, QImage& bark, QImage& leaf) {
    const QString barkName =
        QString::fromStdString(tree.pdPrepared.barkTextureFileName).replace('\\', '/');
    const QString leafName =
        QString::fromStdString(tree.pdPrepared.leafTextureFileName).replace('\\', '/');
    // Only regular files: a device or a pipe that a tree file names might never end.
    auto load = [](QImage& image, const QString& name) {
        return QFileInfo(name).isFile() && image.load(name);
    };
    if (!load(bark, barkName) || !load(leaf, leafName)) {
        arbo::showUserMessage(
            QCoreApplication::translate("EcosystemRender", "Error").toStdString(),
            QCoreApplication::translate("EcosystemRender", "Could not open bark texture file.")
                .toStdString());
        return false;
    }
    makeTransparent(bark);
    makeTransparent(leaf);
    return true;
}

bool EcosystemRender::loadSelectedTreeParameters(const std::string& fileName, std::string* reason) {
    if (!izbranoArbo->pdPrepared.loadParameters(fileName, reason))
        return false;
    emit selectedTreeReplaced();
    return true;
}

// Needs a current GL context. The views repaint either way: the tree's
// parameters may have changed with its texture names.
void EcosystemRender::reloadCurrentTreeTextures() {
    QImage bark, leaf;
    if (loadTreeTextureImages(*izbranoArbo, bark, leaf))
        bindTreeTextures(bark, leaf);
    emit modelDataChanged();
}

void EcosystemRender::bindTreeTextures(const QImage& bark, const QImage& leaf) {
    GLuint* names = izbranoArbo->pogled.textureNames;
    arbo::GlTexture::release(names[0]);
    arbo::GlTexture::release(names[1]);
    names[0] = arbo::GlTexture::bind(bark);
    names[1] = arbo::GlTexture::bind(leaf);
    izbranoArbo->reloadIdTextures(1, 1);
}

void EcosystemRender::initAllTextures(QOpenGLWidget* widget) {
    reloadAllTreeTextures();
    sendSkyTexturesToSkyRender();
    initTerrainTextures(widget);
    initSunTexture();
}

void EcosystemRender::initSunTexture() {
    arbo::GlTexture::release(terrainMarkings->sunTexture);
    terrainMarkings->sunTexture = arbo::GlTexture::bind(TerrainMarkings::sunImage());
}

void EcosystemRender::initTerrainTextures(QOpenGLWidget* /*widget*/) {
    unsigned int ortho = 0, detail = 0;
    terrain->getTextureNames(ortho, detail);
    arbo::GlTexture::release(ortho);
    arbo::GlTexture::release(detail);
    terrain->setTextureNames(arbo::GlTexture::bind(*terrainData->ortofotoTexture),
                             arbo::GlTexture::bind(QImage(filenameDetail)));
    terrain->initGLContexMultitextureAndArrays();
}

// Missing sky images are not reported: that face stays untextured.
void EcosystemRender::sendSkyTexturesToSkyRender() {
    GLuint* old = sky->getTextureNames();
    for (int i = 0; i < 6; ++i)
        arbo::GlTexture::release(old[i]);
    GLuint n[6];
    const QString* files[6] = {&filenameSky1, &filenameSky2, &filenameSky3,
                               &filenameSky4, &filenameSky5, &filenameSky6};
    for (int i = 0; i < 6; ++i)
        n[i] = arbo::GlTexture::bind(QImage(*files[i]));
    sky->setTextureNames(n[0], n[1], n[2], n[3], n[4], n[5]);
}

void EcosystemRender::reloadSkyTextures(QString north, QString south, QString east, QString west,
                                        QString up, QString down) {
    filenameSky1 = north;
    filenameSky2 = south;
    filenameSky3 = east;
    filenameSky4 = west;
    filenameSky5 = up;
    filenameSky6 = down;
    sendSkyTexturesToSkyRender();
    emit modelDataChanged();
}

void EcosystemRender::getSkyTextureFileNames(QString& north, QString& south, QString& east,
                                             QString& west, QString& up, QString& down) const {
    north = filenameSky1;
    south = filenameSky2;
    east = filenameSky3;
    west = filenameSky4;
    up = filenameSky5;
    down = filenameSky6;
}

// The walk sets the drawing state of each species' model tree for every plant
// it draws; when the selected tree is one of those models, it gets its own
// state back, so that the tree-edit view and the check marks keep what the
// user chose (and a finished animation can end the animation timer).
int EcosystemRender::renderVisiblePlants() {
    arbo::Pogled& pogled = izbranoArbo->pogled;
    const arbo::Pogled kept = pogled;
    const int visible = drawVisiblePlants();
    pogled.wireframe = kept.wireframe;
    pogled.animateGrow = kept.animateGrow;
    pogled.orbit = kept.orbit;
    pogled.starostDrevesa = kept.starostDrevesa;
    pogled.lowQuality = kept.lowQuality;
    return visible;
}

int EcosystemRender::drawVisiblePlants() {
    std::vector<int> counts;
    const int visible = visiblePlants.render(ecosystemSimulation->rastlinskeVrste,
                                             izglediDrevesnihVrst, *izbranoArbo, *camera,
                                             {showNeighborHood, doNotDrawTrees, lightingEnabled,
                                              wireframe, fastDistantTrees, offScreenFrame},
                                             counts);
    // The statistics have one point per frame a view shows.
    if (!offScreenFrame) {
        getEntitiesStatistics()->addRenderedSpecies(counts);
        emit nrPlantsRenderedChanged();
    }
    return visible;
}

void EcosystemRender::renderOffScreen() {
    offScreenFrame = true;
    render();
    offScreenFrame = false;
}

void EcosystemRender::render() {
    const arbo::Pogled& pogled = izbranoArbo->pogled;
    if (!pogled.animateGrow && !pogled.animateOrbitAround && !pogled.animateWindSway)
        emit stopTreeAnimation();
    if (doNotRefreshDisplay)
        return;
    if (!offScreenFrame)
        countFrame();
    if (lightingEnabled)
        glEnable(GL_LIGHTING);
    else
        glDisable(GL_LIGHTING);
    checkGlError("Zacetek renderiranja");
    if (singleRender) {
        izbranoArbo->drawSingleTreeCentered(camera->dol_pomik, camera->levo_pomik, camera->z_pomik,
                                            camera->x_zasuk, camera->y_zasuk);
    } else {
        QElapsedTimer frameTimer;
        frameTimer.start();
        renderEcosystem();
        if (!offScreenFrame)
            hintAtSlowFrames(frameTimer.nsecsElapsed() / 1e6);
        // The impostor atlas draws a limited number of pictures per frame:
        // the next frame draws more.
        if (visiblePlants.atlasPending)
            emit modelDataChanged();
    }
    checkGlError("Vse zrenderirano");
}

// Frames that hold the window for more than half a second with the exact
// drawing: say once where the faster one is.
void EcosystemRender::hintAtSlowFrames(double frameMs) {
    if (slowFramesHinted || fastDistantTrees || frameMs <= slowFrameMs)
        return;
    slowFramesHinted = true;
    emit statusHint(QCoreApplication::translate(
        "EcosystemRender", "Frames take more than half a second: View > \"Fast distant trees\" "
                           "(Ctrl+Shift+F) draws far trees faster."));
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
    if (displaySky)
        sky->render();
    checkGlError("Sky konec");
    terrain->render();
    // A newly loaded DEM is taken up here.
    if (!terrainData->isDataReady())
        terrainData->buildTerrainData();
    renderOverlays();
    renderVisiblePlants();
}

// The overlays switched on, after the terrain and before the plants.
void EcosystemRender::renderOverlays() {
    if (displayTerrainNormals) {
        glColor3f(1, 0, 0);
        terrainMarkings->renderNormals();
    }
    if (displayTerrainInclination)
        terrainMarkings->renderInclination();
    if (displayTerrainMoisture)
        terrainMarkings->renderMoisture();
    if (displayTerrainSunniness)
        terrainMarkings->renderSunniness();
    if (displayTerrainWindiness)
        terrainMarkings->renderWindiness();
    if (displayLandMarkings)
        terrainMarkings->renderLandMarkings();
    if (displaySun)
        terrainMarkings->renderSun();
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
    izbranoArbo->pogled.animateGrow = false;
    izbranoArbo->pogled.wireframe = false;
    izbranoArbo->pogled.orbit = 0;
    emit selectedTreeReplaced();
}

void EcosystemRender::selectNextTreeSpecies() {
    arbo::Pogled& old = izbranoArbo->pogled;
    const bool orbit = old.animateOrbitAround, sway = old.animateWindSway;
    old.animateOrbitAround = false;
    old.animateWindSway = false;
    // The spin and sway go with the selection; growing does not.
    selectTree((indexIzbranegaDrevesa + 1) % int(izglediDrevesnihVrst.size()));
    izbranoArbo->pogled.animateOrbitAround = orbit;
    izbranoArbo->pogled.animateWindSway = sway;
    emit selectedTreeReplaced();
    emit modelDataChanged();
}

void EcosystemRender::actionEnlarge_leave_size() {
    izbranoArbo->pdPrepared.listSize *= 1.1f;
    emit modelDataChanged();
}

void EcosystemRender::actionReduce_leave_size() {
    izbranoArbo->pdPrepared.listSize *= 0.91f;
    emit modelDataChanged();
}

void EcosystemRender::actionGrow_tree() {
    izbranoArbo->pogled.animateGrow = !izbranoArbo->pogled.animateGrow;
    izbranoArbo->pogled.starostDrevesa = 0.0;
    emit modelDataChanged();
    emit startTreeAnimation();
}

void EcosystemRender::actionSpin_tree() {
    izbranoArbo->pogled.animateOrbitAround = !izbranoArbo->pogled.animateOrbitAround;
    emit modelDataChanged();
    emit startTreeAnimation();
}

void EcosystemRender::actionSway_tree_in_wind() {
    izbranoArbo->pogled.animateWindSway = !izbranoArbo->pogled.animateWindSway;
    emit modelDataChanged();
    emit startTreeAnimation();
}
void EcosystemRender::toggleLightingEnabled() {
    lightingEnabled = !lightingEnabled;
}
void EcosystemRender::toggleShowFPS() {
    showFPS = !showFPS;
}
void EcosystemRender::toggleWireframe() {
    wireframe = !wireframe;
    terrain->toggleWireframe();
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
void EcosystemRender::toggleFastDistantTrees() {
    fastDistantTrees = !fastDistantTrees;
    // The hint has been taken up.
    if (fastDistantTrees && slowFramesHinted)
        emit statusHint(QString());
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

statistics::CEntitiesStatistics* EcosystemRender::getEntitiesStatistics() const {
    return ecosystemSimulation->getEntitiesStatistics();
}

bool EcosystemRender::isSimulationRedyAndRunning() const {
    return ecosystemSimulation->simulationRunning;
}

std::vector<unsigned long long> EcosystemRender::getRandomGeneratorSeeds() const {
    return ecosystemSimulation->getRandomGeneratorSeeds();
}

void EcosystemRender::setRandomGeneratorSeeds(std::vector<unsigned long long> seeds) {
    ecosystemSimulation->setRandomGeneratorSeeds(seeds);
}

void EcosystemRender::simulateNextStepAndUpdateGL() {
    ecosystemSimulation->simulateNextStepAndLog();
    emit nrPlantsLivingChanged();
    // With several steps per rendered frame, only every n-th step asks for a
    // repaint; the simulation itself runs at full pace.
    if (--simulationStepsUntilRender < 1) {
        simulationStepsUntilRender = simulationStepsPerRenderedFrame;
        emit modelDataChanged();
    }
    updateAutoSave();
}

void EcosystemRender::setAutosave(int steps) {
    autoSaveSimulationStepNr = steps;
}

void EcosystemRender::updateAutoSave() {
    ecosystemSimulation->autoSave(autoSaveSimulationStepNr);
}

void EcosystemRender::saveSimulation(std::string fileName) {
    ecosystemSimulation->saveSimulation(fileName);
}

void EcosystemRender::loadSimulation(std::string fileName) {
    ecosystemSimulation->loadSimulation(fileName);
    emit nrPlantsLivingChanged();
    emit modelDataChanged();
}

// The terrain renderer takes the new grid and ortho-photo up at its next draw;
// the camera is lifted onto the new surface where it has to be. A rejected
// file leaves the terrain, the camera and the views as they were.
void EcosystemRender::reloadDMR(std::string fileName) {
    if (!terrainData->reloadDMR(fileName.c_str()))
        return;
    camera->hodiPoTerenu();
    emit modelDataChanged();
}

} // namespace ecosystem::render
