#include "gui/actionhandling/timekeeper.h"

#include "ecosystem/render/ecosystemrender.h"

#include <QTimer>

namespace gui::actionhandling {

TimeKeeper::TimeKeeper(QObject* parent, ecosystem::render::EcosystemRender* model)
    : QObject(parent), model(model) {}

void TimeKeeper::setCurrentModel(ecosystem::render::EcosystemRender* m) {
    model = m;
}

QTimer* TimeKeeper::startTimer(int intervalMs, void (TimeKeeper::*tick)()) {
    auto* timer = new QTimer(this);
    timer->setSingleShot(false);
    connect(timer, &QTimer::timeout, this, tick);
    timer->start(intervalMs);
    return timer;
}

void TimeKeeper::stopTimer(QTimer*& timer) {
    if (!timer)
        return;
    timer->stop();
    // The stop may come from inside the timer's own tick.
    timer->deleteLater();
    timer = nullptr;
}

void TimeKeeper::toggleAnimationExportingMode() {
    animationExportingMode = !animationExportingMode;
    if (!animationExportingMode) {
        animationFrameNumber = 0;
        emit sequenceExportStopped();
    }
}

void TimeKeeper::forceUpdateGl() {
    if (animationExportingMode)
        emit grabGeometry(animationFrameNumber++);
    emit updateOnlyGL();
    if (animationExportingMode)
        emit grabFrameBuffer(animationFrameNumber++);
}

void TimeKeeper::toggleRunSimulation() {
    if (simmulationTimer)
        stopTimer(simmulationTimer);
    else
        simmulationTimer = startTimer(0, &TimeKeeper::simmulationTimerUpdate);
}

void TimeKeeper::startTreeAnimation() {
    if (!treeTimer)
        treeTimer = startTimer(20, &TimeKeeper::treeTimerUpdate);
}

void TimeKeeper::stopTreeAnimation() {
    stopTimer(treeTimer);
}

void TimeKeeper::startCameraAnimation() {
    if (!cameraTimer)
        cameraTimer = startTimer(10, &TimeKeeper::cameraTimerUpdate);
}

void TimeKeeper::stopCameraAnimation() {
    stopTimer(cameraTimer);
}

bool TimeKeeper::held() const {
    return model && model->holdTime;
}

void TimeKeeper::treeTimerUpdate() {
    if (held())
        return;
    emit animateTree();
    forceUpdateGl();
}

void TimeKeeper::cameraTimerUpdate() {
    if (held())
        return;
    emit animateCamera();
    forceUpdateGl();
}

// While exporting, every step is drawn before its image is taken, also when
// the scene draws only every n-th step: each image shows its own step.
void TimeKeeper::simmulationTimerUpdate() {
    if (frameJustShown || held())
        return;
    emit updateSimulationAndGL();
    if (animationExportingMode) {
        emit updateOnlyGL();
        emit grabFrameBuffer(animationFrameNumber++);
    }
}

// The zero timer fires as soon as a frame is drawn, before the events that
// came in meanwhile: a key press or a dialog would wait for the frame and a
// step. After a frame, steps wait until those events are handled.
void TimeKeeper::frameShown() {
    if (frameJustShown || !simmulationTimer)
        return;
    frameJustShown = true;
    QMetaObject::invokeMethod(
        this, [this] { frameJustShown = false; }, Qt::QueuedConnection);
}

} // namespace gui::actionhandling
