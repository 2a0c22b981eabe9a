#include "gui/actionhandling/timekeeper.h"

#include <QTimer>
#include <QtTest>

using gui::actionhandling::TimeKeeper;

class TestTimeKeeper : public QObject {
    Q_OBJECT
private slots:
    void runSimulationTwiceStopsTheSteps() {
        TimeKeeper keeper(nullptr, nullptr);
        QSignalSpy steps(&keeper, &TimeKeeper::updateSimulationAndGL);
        keeper.toggleRunSimulation();
        QVERIFY(keeper.simmulationTimer != nullptr);
        QCOMPARE(keeper.simmulationTimer->interval(), 0);
        QVERIFY(!keeper.simmulationTimer->isSingleShot());
        QTRY_VERIFY(steps.count() >= 3);
        keeper.toggleRunSimulation();
        QVERIFY(keeper.simmulationTimer == nullptr);
        const int count = steps.count();
        QTest::qWait(30);
        QCOMPARE(steps.count(), count);
    }

    // A frame is drawn while the event loop handles a queued event; input
    // that comes in meanwhile waits behind it. The next step must come after
    // that input, not straight after the frame.
    void afterAFrameEventsComeBeforeTheNextStep() {
        TimeKeeper keeper(nullptr, nullptr);
        QStringList order;
        bool drawn = false;
        connect(&keeper, &TimeKeeper::updateSimulationAndGL, this, [&] {
            if (drawn)
                order << "step";
        });
        keeper.toggleRunSimulation();
        QMetaObject::invokeMethod(
            this,
            [&] {
                QMetaObject::invokeMethod(
                    this, [&] { order << "key"; }, Qt::QueuedConnection);
                keeper.frameShown();
                drawn = true;
            },
            Qt::QueuedConnection);
        QTRY_VERIFY(order.size() >= 2);
        QCOMPARE(order.first(), QString("key"));
        keeper.toggleRunSimulation();
    }

    void sequenceExportDuringSimulationNumbersImages() {
        TimeKeeper keeper(nullptr, nullptr);
        QSignalSpy images(&keeper, &TimeKeeper::grabFrameBuffer);
        QSignalSpy stopped(&keeper, &TimeKeeper::sequenceExportStopped);
        keeper.toggleAnimationExportingMode();
        // Five simulation ticks, driven by hand so that exactly five run.
        connect(&keeper, &TimeKeeper::updateSimulationAndGL, this, [&] {
            if (images.count() + 1 >= 5)
                keeper.toggleRunSimulation();
        });
        keeper.toggleRunSimulation();
        QTRY_COMPARE(images.count(), 5);
        QTest::qWait(20);
        QCOMPARE(images.count(), 5);
        for (int i = 0; i < 5; ++i)
            QCOMPARE(images.at(i).at(0).toInt(), i);
        QCOMPARE(keeper.animationFrameNumber, 5);
        keeper.toggleAnimationExportingMode();
        QCOMPARE(keeper.animationFrameNumber, 0);
        QCOMPARE(stopped.count(), 1);
    }

    void animationTickExportsGeometryThenImage() {
        TimeKeeper keeper(nullptr, nullptr);
        QStringList order;
        connect(&keeper, &TimeKeeper::grabGeometry, this,
                [&](int n) { order << QString("g%1").arg(n); });
        connect(&keeper, &TimeKeeper::updateOnlyGL, this, [&] { order << "paint"; });
        connect(&keeper, &TimeKeeper::grabFrameBuffer, this,
                [&](int n) { order << QString("i%1").arg(n); });
        keeper.forceUpdateGl();
        keeper.toggleAnimationExportingMode();
        keeper.forceUpdateGl();
        keeper.forceUpdateGl();
        QCOMPARE(order, QStringList({"paint", "g0", "paint", "i1", "g2", "paint", "i3"}));
        // Switching export on again does not reset the number; off does.
        keeper.toggleAnimationExportingMode();
        keeper.toggleAnimationExportingMode();
        QCOMPARE(keeper.animationFrameNumber, 0);
    }

    void startingARunningAnimationKeepsItsTimer() {
        TimeKeeper keeper(nullptr, nullptr);
        keeper.startTreeAnimation();
        QTimer* first = keeper.treeTimer;
        QVERIFY(first != nullptr);
        QCOMPARE(first->interval(), 20);
        keeper.startTreeAnimation();
        QCOMPARE(keeper.treeTimer, first);
        keeper.stopTreeAnimation();
        QVERIFY(keeper.treeTimer == nullptr);
        keeper.stopTreeAnimation(); // nothing to stop
        QVERIFY(keeper.treeTimer == nullptr);
    }

    void glideAndTreeAnimationRepaintOnBothTimers() {
        TimeKeeper keeper(nullptr, nullptr);
        QSignalSpy tree(&keeper, &TimeKeeper::animateTree);
        QSignalSpy camera(&keeper, &TimeKeeper::animateCamera);
        QSignalSpy repaints(&keeper, &TimeKeeper::updateOnlyGL);
        keeper.startTreeAnimation();
        keeper.startCameraAnimation();
        QCOMPARE(keeper.cameraTimer->interval(), 10);
        QTRY_VERIFY(tree.count() >= 2 && camera.count() >= 2);
        keeper.stopCameraAnimation();
        keeper.stopTreeAnimation();
        QCOMPARE(repaints.count(), tree.count() + camera.count());
    }
};

QTEST_GUILESS_MAIN(TestTimeKeeper)
#include "tst_timekeeper.moc"
