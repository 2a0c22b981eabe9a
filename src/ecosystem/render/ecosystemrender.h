#pragma once

#include <QObject>
#include <QString>

#include "ecosystem/render/visibleplantsrender.h"

#include <string>
#include <vector>

class QImage;
class QOpenGLContext;
class QOpenGLWidget;

namespace arbo {
class Arbo;
}

namespace ecosystem {
class CEcosystemSimulation;
}
namespace ecosystem::data {
class CTerrainData;
}
namespace ecosystem::statistics {
class CEntitiesStatistics;
}

namespace ecosystem::render {

class Camera;
class Sky;
class Terrain;
class TerrainMarkings;

// The scene: owns everything that is drawn or simulated, holds every display
// switch, draws one frame on request and runs one simulation step on request.
// Tree-edit mode (singleRender) shows the selected model tree alone; ecosystem
// mode (the state at start) shows terrain, sky, overlays and living plants.
class EcosystemRender : public QObject {
    Q_OBJECT
public:
    EcosystemRender(QOpenGLContext* context, QOpenGLWidget* widget);
    ~EcosystemRender() override;

    bool isSingleRender() const { return singleRender; }
    arbo::Arbo* getIzbranoArbo() const { return izbranoArbo; }
    Camera* getCurrentCamera() const { return camera; }
    data::CTerrainData* getTerrainData() const { return terrainData; }
    statistics::CEntitiesStatistics* getEntitiesStatistics() const;
    bool isSimulationRedyAndRunning() const;
    std::vector<unsigned long long> getRandomGeneratorSeeds() const;
    void getSkyTextureFileNames(QString& north, QString& south, QString& east, QString& west,
                                QString& up, QString& down) const;
    // Draws the living plants; returns how many passed the culling test.
    int renderVisiblePlants();
    // The plant walk, with its measurements and impostor atlas.
    VisiblePlantsRender& plantWalk() { return visiblePlants; }
    int getLupaMinX() const;
    int getLupaMaxX() const;
    int getLupaMinY() const;
    int getLupaMaxY() const;

    bool singleRender = false;
    bool displayTerrainNormals = false;
    bool displayTerrainInclination = false;
    bool displayTerrainMoisture = false;
    bool displayTerrainSunniness = false;
    bool displayTerrainWindiness = false;
    bool displayLandMarkings = false;
    Camera* camera = nullptr;
    Terrain* terrain = nullptr;
    TerrainMarkings* terrainMarkings = nullptr;
    Sky* sky = nullptr;
    data::CTerrainData* terrainData = nullptr;
    CEcosystemSimulation* ecosystemSimulation = nullptr;
    // Index i < 5 is the model of the species whose type is i; the sixth
    // belongs to no species.
    std::vector<arbo::Arbo*> izglediDrevesnihVrst;
    arbo::Arbo* izbranoArbo = nullptr;
    int indexIzbranegaDrevesa = 5;
    QOpenGLWidget* qGLWidget = nullptr;
    int simulationStepsPerRenderedFrame = 1;
    bool lightingEnabled = true;
    bool wireframe = false;
    bool showFPS = true;
    bool showNeighborHood = false;
    bool doNotDrawTrees = false;
    bool doNotRefreshDisplay = false;
    int simulationStepsUntilRender = 1;
    bool displaySun = false;
    bool displaySky = true;
    int autoSaveSimulationStepNr = -1;
    QString filenameDetail;
    QString filenameSky1, filenameSky2, filenameSky3, filenameSky4, filenameSky5, filenameSky6;
    bool checkingForGlErrors = false;
    // Plants at levels of detail 5 and beyond (125 m and farther) drawn as
    // impostors, pictures of their trees drawn once, instead of grown trees.
    bool fastDistantTrees = false;
    // Ecosystem frames slower than this bring the hint at the fast switch.
    double slowFrameMs = 500.0;
    // Raised while an image is drawn off screen tile by tile: the timers'
    // ticks (simulation steps, camera glides, tree animation) wait, so that
    // every tile shows the same moment.
    bool holdTime = false;

    // A frame of an image drawn off screen: as render(), but it is no frame of
    // a view (no statistics point, no frame counted, no hint), and the impostor
    // atlas first draws every picture the frame needs, however long that takes.
    void renderOffScreen();

signals:
    void modelDataChanged();
    void startTreeAnimation();
    void stopTreeAnimation();
    void nrPlantsLivingChanged();
    void nrPlantsRenderedChanged();
    // The selected tree was switched, its parameters were replaced as a whole
    // (a parameter file loaded into it) or the tree-edit mode was entered or
    // left: whatever edits the selected tree takes it up again (or closes).
    void selectedTreeReplaced();
    // A hint for the status bar, given once: frames are slow and the fast
    // switch would help. An empty text takes it back.
    void statusHint(const QString& text);

public slots:
    void render();
    void initAllTextures(QOpenGLWidget* widget);
    void reloadCurrentTreeTextures();
    void reloadAllTreeTextures();
    void selectNextTreeSpecies();
    void actionEnlarge_leave_size();
    void actionReduce_leave_size();
    void actionGrow_tree();
    void actionSpin_tree();
    void actionSway_tree_in_wind();
    void toggleSingleRender();
    void toggleLightingEnabled();
    void toggleShowFPS();
    void toggleWireframe();
    void toggleShowNeighborHood();
    void toggleDoNotDrawTrees();
    void toggleDoNotRefreshDisplay();
    void toggleDisplayTerrainNormals();
    void toggleDisplayTerrainInclination();
    void toggleDisplayTerrainMoisture();
    void toggleDisplayTerrainSunniness();
    void toggleDisplayTerrainWindiness();
    void toggleDisplayLandMarkings();
    void toggleDisplaySun();
    void toggleDisplaySky();
    void toggleFastDistantTrees();
    void actionRender_less_often_skip_more_frames();
    void actionRender_more_often_skip_less_frames();
    void checkGlError(const char* message);
    void sendSkyTexturesToSkyRender();
    void reloadSkyTextures(QString north, QString south, QString east, QString west, QString up,
                           QString down);
    void setLupaMinX(int v);
    void setLupaMaxX(int v);
    void setLupaMinY(int v);
    void setLupaMaxY(int v);
    void reloadDMR(std::string fileName);
    void simulateNextStepAndUpdateGL();
    void loadSimulation(std::string fileName);
    void saveSimulation(std::string fileName);
    void setRandomGeneratorSeeds(std::vector<unsigned long long> seeds);
    void setAutosave(int steps);
    void updateAutoSave();

public:
    // Pixels whose red, green and blue all exceed 200 become transparent white.
    static void makeTransparent(QImage& image);
    // The tree's bark and leaf images as its textures show them (transparent
    // where bright); says "Could not open bark texture file." and returns false
    // when either cannot be read.
    static bool loadTreeTextureImages(const arbo::Arbo& tree, QImage& bark, QImage& leaf);
    // A parameter file into the selected tree's parameters; false (and the
    // tree as it was, and why in reason) when the file is missing or rejected.
    // Whatever edits the tree takes the new set up (selectedTreeReplaced).
    bool loadSelectedTreeParameters(const std::string& fileName, std::string* reason = nullptr);

private:
    void initModelObjects();
    void createModelTrees();
    void selectTree(int index);
    void countFrame();
    void setLightPosition();
    void renderEcosystem();
    void renderOverlays();
    int drawVisiblePlants();
    void initSunTexture();
    void initTerrainTextures(QOpenGLWidget* widget);
    void bindTreeTextures(const QImage& bark, const QImage& leaf);

    void hintAtSlowFrames(double frameMs);

    VisiblePlantsRender visiblePlants;
    bool slowFramesHinted = false;
    bool offScreenFrame = false; // the frame being drawn is renderOffScreen's
};

} // namespace ecosystem::render
