#include "gui/actionhandling/navigationhandler.h"

#include "ecosystem/render/camera.h"
#include "ecosystem/render/ecosystemrender.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "gui/navigationpanel.h"

#include "support/glcontext.h"

#include <QtTest>

#include <cmath>
#include <memory>

using ecosystem::render::Camera;
using ecosystem::render::EcosystemRender;
using gui::actionhandling::NavigationHandler;

class TestNavigationHandler : public QObject {
    Q_OBJECT
    OffscreenGl gl;
    std::unique_ptr<EcosystemRender> scene;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<NavigationHandler> handler;

    Camera* camera() { return scene->getCurrentCamera(); }

    // Ticks the glide until it stops itself; returns the number of ticks.
    int glideToStop(QSignalSpy& stops) {
        int ticks = 0;
        while (stops.isEmpty() && ticks < 1000) {
            handler->animateCamera();
            ++ticks;
        }
        return ticks;
    }

    // 0.9 + 0.81 + ... over n ticks, times the impulse.
    static double glideDistance(double impulse, int n) {
        return impulse * 0.9 * (1.0 - std::pow(0.9, n)) / 0.1;
    }

private slots:
    void initTestCase() { QVERIFY(gl.create()); }

    void init() {
        scene = std::make_unique<EcosystemRender>(&gl.context, nullptr);
        window = std::make_unique<QWidget>();
        handler = std::make_unique<NavigationHandler>(window.get(), scene.get());
    }

    void cleanup() {
        handler.reset();
        window.reset();
        scene.reset();
    }

    // An impulse glides on at 0.9 of its speed a tick until below 0.5, each
    // tick a repaint, then stops itself.
    void impulseGlidesAndStops_data() {
        QTest::addColumn<bool>("forward");
        QTest::addColumn<int>("ticks");
        QTest::newRow("forward, looking along -x") << true << 7;         // 0.9^7 < 0.5 <= 0.9^6
        QTest::newRow("backward more, looking along -z") << false << 39; // 30 * 0.9^39 < 0.5
    }
    void impulseGlidesAndStops() {
        QFETCH(bool, forward);
        QFETCH(int, ticks);
        QSignalSpy starts(handler.get(), &NavigationHandler::startCameraAnimation);
        QSignalSpy stops(handler.get(), &NavigationHandler::stopCameraAnimation);
        QSignalSpy refreshes(handler.get(), &NavigationHandler::forceRefresh);
        if (!forward)
            camera()->alfa = 0.0f; // a fresh camera looks along -x (alfa 270)
        camera()->setupEcosystemCamera();
        const float x0 = camera()->x, z0 = camera()->z;
        if (forward) {
            handler->actionMove_forward();
            QCOMPARE(handler->hitrostiPremikaRelative.x, -1.0f);
        } else {
            handler->actionMove_backward_more();
        }
        QCOMPARE(starts.count(), 1);
        QCOMPARE(refreshes.count(), 0);
        QCOMPARE(glideToStop(stops), ticks);
        QCOMPARE(stops.count(), 1);
        QCOMPARE(refreshes.count(), ticks);
        const double moved = forward ? x0 - camera()->x : camera()->z - z0;
        QVERIFY(std::fabs(moved - glideDistance(forward ? 1.0 : 30.0, ticks)) <
                (forward ? 1e-3 : 1e-2));
        QCOMPARE(handler->hitrostiPremikaRelative.x, 0.0f);
    }

    void rightIsForwardCrossUp() {
        camera()->alfa = 0.0f; // forward (0, 0, -1): right is +x
        camera()->setupEcosystemCamera();
        handler->actionMove_right_less();
        QCOMPARE(handler->hitrostiPremikaRelative.x, 0.1f);
        QVERIFY(std::fabs(handler->hitrostiPremikaRelative.z) < 1e-7f);
        handler->actionMove_left_more();
        QVERIFY(std::fabs(handler->hitrostiPremikaRelative.x - (0.1f - 30.0f)) < 1e-5f);
    }

    void quickPressesGlideFartherThanSeparateOnes() {
        QSignalSpy stops(handler.get(), &NavigationHandler::stopCameraAnimation);
        const float y0 = camera()->y;
        for (int i = 0; i < 3; ++i)
            handler->actionMove_up();
        const int together = glideToStop(stops);
        const float climbTogether = camera()->y - y0;

        int apart = 0;
        const float y1 = camera()->y;
        for (int i = 0; i < 3; ++i) {
            stops.clear();
            handler->actionMove_up();
            apart = std::max(apart, glideToStop(stops));
        }
        const float climbApart = camera()->y - y1;
        QCOMPARE(together, 18); // 3 * 0.9^18 < 0.5
        QCOMPARE(apart, 7);
        QVERIFY(std::fabs(climbTogether - glideDistance(3.0, 18)) < 1e-3);
        QVERIFY(std::fabs(climbApart - 3 * glideDistance(1.0, 7)) < 1e-3);
        QVERIFY(climbTogether > climbApart);
    }

    void rotationsAndRolls() {
        QSignalSpy stops(handler.get(), &NavigationHandler::stopCameraAnimation);
        handler->actionRotate_left();
        handler->actionRotate_up();
        handler->actionRotate_out();
        QCOMPARE(handler->hitrostiZasuka.x, -1.0f);
        QCOMPARE(handler->hitrostiZasuka.y, -1.0f);
        QCOMPARE(handler->hitrostiZasuka.z, 1.0f);
        const float alfa0 = camera()->alfa;
        glideToStop(stops);
        QVERIFY(std::fabs((alfa0 - camera()->alfa) - glideDistance(1.0, 7)) < 1e-3);
        QVERIFY(std::fabs(camera()->gama - glideDistance(1.0, 7)) < 1e-3);
    }

    void treeEditModeShiftsTheTree() {
        scene->singleRender = true;
        QSignalSpy starts(handler.get(), &NavigationHandler::startCameraAnimation);
        QSignalSpy refreshes(handler.get(), &NavigationHandler::forceRefresh);
        const float dol = camera()->dol_pomik;
        handler->actionMove_forward(); // Up
        QCOMPARE(camera()->dol_pomik, dol + 1.0f);
        handler->actionMove_backward_more();
        QCOMPARE(camera()->dol_pomik, dol + 1.0f - 10.0f);
        handler->actionRotate_left(); // Left
        QCOMPARE(camera()->levo_pomik, 1.0f);
        handler->actionRotate_up(); // Home: only a repaint
        handler->actionRotate_down();
        handler->actionMove_up();
        QCOMPARE(starts.count(), 0);
        QCOMPARE(refreshes.count(), 6);
        QCOMPARE(handler->hitrostiZasuka.y, 0.0f);
        QCOMPARE(handler->hitrostiPremikaRelative.y, 0.0f);

        // Switching cameras does nothing in tree-edit mode.
        handler->actionSwitch_to_next_predefined_camera();
        QCOMPARE(camera()->currCamera, 0);
    }

    void predefinedCamerasResetAndSurfaceModes() {
        handler->actionMove_forward();
        handler->actionSwitch_to_next_predefined_camera();
        QCOMPARE(camera()->currCamera, 1);
        QCOMPARE(handler->hitrostiPremikaRelative.x, 0.0f);

        handler->actionMove_up();
        handler->actionReset_camera_view();
        QCOMPARE(int(camera()->shranjeneLokacije.size()), 4);
        QCOMPARE(handler->hitrostiPremikaRelative.y, 1.0f); // a reset keeps the glide

        handler->actionSave_camera_as_predefined();
        QCOMPARE(int(camera()->shranjeneLokacije.size()), 5);

        QVERIFY(camera()->aboveSurface);
        handler->actionKeep_camera_position_above_terrain_surface_ecosystem_mode();
        QVERIFY(!camera()->aboveSurface);
        handler->actionForce_camera_position_at_terrain_surface_ecosystem_mode();
        QVERIFY(camera()->atSurface);
    }

    void panelHoldsCameraToItsControls() {
        handler->action_Navigation_panel();
        gui::NavigationPanel* panel = handler->navigationPanel;
        QVERIFY(panel != nullptr);
        QCOMPARE(panel->windowTitle(), QString("Navigation panel"));
        QCOMPARE(panel->ui.X->value(), 1300);
        QCOMPARE(panel->ui.Y->value(), 250);
        // The heading dial wraps round: 270 is shown as -90, the same heading,
        // so the camera is left looking where it did.
        QCOMPARE(panel->ui.Turn->value(), -90);
        emit handler->forceRefresh();
        QCOMPARE(camera()->alfa, 270.0f);

        camera()->y = 1500.0f;
        camera()->x = 17.8f;
        emit handler->forceRefresh();
        QCOMPARE(camera()->y, 1000.0f);
        QCOMPARE(camera()->x, 17.0f);
        const ecosystem::data::CTerrainData* t = scene->getTerrainData();
        const QString expected = QString("(%1, %2, %3)")
                                     .arg(QString::number(double(17.0f + t->dmrMinX), 'g', 7))
                                     .arg(QString::number(double(790.0f + t->dmrMinY), 'g', 7))
                                     .arg(QString::number(double(1000.0f + t->dmrMinZ), 'g', 7));
        QCOMPARE(panel->ui.dmr->text(), expected);

        panel->ui.Z->setValue(321);
        QCOMPARE(camera()->z, 321.0f);
        panel->ui.Yow->setValue(-45);
        QCOMPARE(camera()->gama, -45.0f);

        // A second panel takes over; the first no longer follows the camera.
        handler->action_Navigation_panel();
        QVERIFY(handler->navigationPanel != panel);
        camera()->z = 100.0f;
        emit handler->forceRefresh();
        QCOMPARE(handler->navigationPanel->ui.Z->value(), 100);
        QCOMPARE(panel->ui.Z->value(), 321);
    }
};

QTEST_MAIN(TestNavigationHandler)
#include "tst_navigationhandler.moc"
