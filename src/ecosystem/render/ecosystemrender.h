#pragma once

#include <QObject>
#include <QString>

#include <string>
#include <vector>

class QOpenGLContext;
class QOpenGLWidget;

namespace ecosystem::data {
class CTerrainData;
}

namespace ecosystem::render {

class Camera;

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
    Camera* getCurrentCamera() const { return camera; }
    data::CTerrainData* getTerrainData() const { return terrainData; }
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
    data::CTerrainData* terrainData = nullptr;
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

signals:
    void modelDataChanged();
    void startTreeAnimation();
    void stopTreeAnimation();
    void nrPlantsLivingChanged();
    void nrPlantsRenderedChanged();

public slots:
    void render();
    void initAllTextures(QOpenGLWidget* widget);
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
    void actionRender_less_often_skip_more_frames();
    void actionRender_more_often_skip_less_frames();
    void checkGlError(const char* message);
    void setLupaMinX(int v);
    void setLupaMaxX(int v);
    void setLupaMinY(int v);
    void setLupaMaxY(int v);
    void reloadDMR(std::string fileName);

private:
    void initModelObjects();
    void countFrame();
    void setLightPosition();
    void renderEcosystem();
};

} // namespace ecosystem::render
