#pragma once

#include <QObject>

class QTimer;

namespace ecosystem::render {
class EcosystemRender;
}

namespace gui::actionhandling {

// Owns the program's three timers: tree animation (20 ms), camera glide (10 ms)
// and simulation (0 ms: a step whenever the event loop is idle, after a frame
// once the events that came in while it was drawn are handled). A timer
// exists exactly while its activity runs. While sequence export is on, ticks
// also ask for numbered frames. While the scene holds time (an image drawn
// off screen), ticks do nothing.
class TimeKeeper : public QObject {
    Q_OBJECT
public:
    TimeKeeper(QObject* parent, ecosystem::render::EcosystemRender* model);

    ecosystem::render::EcosystemRender* model;
    bool animationExportingMode = false;
    int animationFrameNumber = 0;
    QTimer* treeTimer = nullptr;
    QTimer* cameraTimer = nullptr;
    QTimer* simmulationTimer = nullptr;

signals:
    void updateOnlyGL();
    void updateSimulationAndGL();
    void grabFrameBuffer(int frameNumber);
    void grabGeometry(int frameNumber);
    void sequenceExportStopped();
    void animateTree();
    void animateCamera();

public slots:
    void setCurrentModel(ecosystem::render::EcosystemRender* model);
    void toggleAnimationExportingMode();
    void forceUpdateGl();
    void toggleRunSimulation();
    void startTreeAnimation();
    void stopTreeAnimation();
    void startCameraAnimation();
    void stopCameraAnimation();
    // A view has shown a frame.
    void frameShown();

private slots:
    void treeTimerUpdate();
    void cameraTimerUpdate();
    void simmulationTimerUpdate();

private:
    bool frameJustShown = false; // steps wait for the events queued behind it

    bool held() const;
    QTimer* startTimer(int intervalMs, void (TimeKeeper::*tick)());
    static void stopTimer(QTimer*& timer);
};

} // namespace gui::actionhandling
