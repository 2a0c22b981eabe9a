#include "arbo/arbo.h"
#include "ecosystem/render/ecosystemrender.h"
#include "gui/actionhandling/viewhandler.h"
#include "gui/glformat.h"
#include "gui/mainwindow.h"
#include "gui/oglwidget.h"
#include "support/imagecompare.h"
#include "support/mainwindowfixture.h"

#include <QApplication>
#include <QtTest>

using ecosystem::render::EcosystemRender;
using gui::MainWindow;

namespace {

// Every flag a view switch may touch, by name: the scene's and the selected tree's.
QMap<QString, bool> flags(const EcosystemRender& s) {
    const arbo::Arbo& tree = *s.getIzbranoArbo();
    return {{"singleRender", s.singleRender},
            {"lightingEnabled", s.lightingEnabled},
            {"showFPS", s.showFPS},
            {"displaySky", s.displaySky},
            {"wireframe", s.wireframe},
            {"doNotDrawTrees", s.doNotDrawTrees},
            {"doNotRefreshDisplay", s.doNotRefreshDisplay},
            {"showNeighborHood", s.showNeighborHood},
            {"displayTerrainNormals", s.displayTerrainNormals},
            {"displayTerrainInclination", s.displayTerrainInclination},
            {"displayTerrainMoisture", s.displayTerrainMoisture},
            {"displayTerrainSunniness", s.displayTerrainSunniness},
            {"displayTerrainWindiness", s.displayTerrainWindiness},
            {"displayLandMarkings", s.displayLandMarkings},
            {"displaySun", s.displaySun},
            {"fastDistantTrees", s.fastDistantTrees},
            {"tree.listi", tree.pdPrepared.listi},
            {"tree.colorMonopodial", tree.pogled.colorMonopodial},
            {"tree.wireframe", tree.pogled.wireframe},
            {"tree.highQualityRendering", tree.pogled.highQualityRendering},
            {"tree.backgroundSky", tree.pogled.backgroundSky},
            {"tree.animateGrow", tree.pogled.animateGrow}};
}

// The names whose values differ between two snapshots.
QStringList changed(const QMap<QString, bool>& a, const QMap<QString, bool>& b) {
    QStringList out;
    for (auto it = a.begin(); it != a.end(); ++it)
        if (b.value(it.key()) != it.value())
            out << it.key();
    return out;
}

// What the next frame shows: the change, the same picture (also when something
// else changed, for a display that is not refreshed), or no repaint is asked for.
enum Frame { Changes, Unchanged, Frozen, NotRepainted };
using ActionOf = QAction* Ui_MainWindow::*;

} // namespace

Q_DECLARE_METATYPE(ActionOf)
Q_DECLARE_METATYPE(Frame)

class TestViewHandler : public QObject {
    Q_OBJECT
    MainWindow* w = nullptr;
    EcosystemRender* scene = nullptr;

    QImage frame() { return w->oglWidget->grabFramebuffer(); }

    void setTreeEditMode(bool on) {
        if (scene->isSingleRender() != on)
            w->ui.actionShow_ecosystem->trigger();
    }

private slots:
    void initTestCase() {
        w = new MainWindow;
        w->resize(500, 400);
        QVERIFY(showWithScene(*w));
        scene = w->currentModel;
        // Twenty steps give plants to draw (and neighbourhoods to show).
        for (int i = 0; i < 20; ++i)
            scene->simulateNextStepAndUpdateGL();
        QCOMPARE(imagecompare::differingPixels(frame(), frame()), 0); // frames repeat exactly
    }

    // Each switch flips exactly its flags, its check mark shows the result, and
    // the next frame shows it; a second trigger puts everything back.
    void eachSwitchFlipsItsFlag_data() {
        QTest::addColumn<ActionOf>("action");
        QTest::addColumn<bool>("treeEdit");
        QTest::addColumn<QStringList>("flips");
        QTest::addColumn<Frame>("frame");
        auto row = [](const char* name, ActionOf a, bool treeEdit, QStringList flips,
                      Frame f = Changes) { QTest::newRow(name) << a << treeEdit << flips << f; };
        using U = Ui_MainWindow;
        row("show ecosystem", &U::actionShow_ecosystem, false, {"singleRender"});
        row("frame rate", &U::actionShow_frame_rate, false, {"showFPS"}, NotRepainted);
        row("lighting", &U::actionLighting_enabled, true, {"lightingEnabled"});
        row("background sky, tree edit", &U::actionDisplay_background_sky, true,
            {"displaySky", "tree.backgroundSky"});
        row("background sky, ecosystem", &U::actionDisplay_background_sky, false,
            {"displaySky", "tree.backgroundSky"});
        row("wireframe, tree edit", &U::actionRender_wireframe, true, {"tree.wireframe"});
        row("wireframe, ecosystem", &U::actionRender_wireframe, false, {"wireframe"});
        row("leaves", &U::actionDisplay_leaves, true, {"tree.listi"});
        row("colour", &U::actionColour_uppon, true, {"tree.colorMonopodial"});
        row("high quality", &U::actionHigh_quality_rendering_more_polygons, true,
            {"tree.highQualityRendering"});
        row("no trees", &U::actionDo_not_draw_trees_ecosystem_mode, false, {"doNotDrawTrees"});
        row("no refresh", &U::actionDo_not_refresh_display_only_run_simulation_ecosystem_mode,
            false, {"doNotRefreshDisplay"}, Frozen);
        row("neighbourhood", &U::actionShow_ecologic_neighborhood_ecosystem_mode, false,
            {"showNeighborHood"});
        // There are no land markings to draw.
        row("land markings", &U::actionDisplay_terrain_land_markings_S_N_E_W, false,
            {"displayLandMarkings"}, Unchanged);
        row("normals", &U::actionDisplay_terrain_normals, false, {"displayTerrainNormals"});
        row("inclination", &U::actionDisplay_terrain_inclination, false,
            {"displayTerrainInclination"});
        row("moisture", &U::actionDisplay_terrain_moisture, false, {"displayTerrainMoisture"});
        row("sunniness", &U::actionDisplay_terrain_sunniness, false, {"displayTerrainSunniness"});
        row("windiness", &U::actionDisplay_terrain_windiness, false, {"displayTerrainWindiness"});
        row("sun", &U::actionDisplay_sun, false, {"displaySun"});
        row("fast distant trees", &U::actionFast_distant_trees, false, {"fastDistantTrees"});
    }

    void eachSwitchFlipsItsFlag() {
        QFETCH(ActionOf, action);
        QFETCH(bool, treeEdit);
        QFETCH(QStringList, flips);
        QFETCH(Frame, frame);
        setTreeEditMode(treeEdit);
        QAction* a = w->ui.*action;
        QSignalSpy repaint(w->viewHandler, &gui::actionhandling::ViewHandler::forceRepaint);
        const auto before = flags(*scene);
        const QImage shown = this->frame();
        a->trigger();
        const auto after = flags(*scene);
        QCOMPARE(changed(before, after), flips);
        QCOMPARE(repaint.count(), frame == NotRepainted ? 0 : 1);
        QCOMPARE(a->isChecked(), a == w->ui.actionShow_ecosystem ? !scene->isSingleRender()
                                                                 : after.value(flips[0]));
        if (frame == Frozen)
            scene->displaySky = !scene->displaySky;
        const int differing = imagecompare::differingPixels(shown, this->frame());
        if (frame == Frozen)
            scene->displaySky = !scene->displaySky;
        if (frame == Changes)
            QVERIFY2(differing > 0, "the frame did not change");
        else
            QCOMPARE(differing, 0);
        a->trigger();
        QCOMPARE(flags(*scene), before);
        QCOMPARE(imagecompare::differingPixels(shown, this->frame()), 0);
    }

    // The marks show the selected tree's own flags after "Select next tree
    // parameters", and the flags of the mode shown after a mode switch.
    void checkMarksFollowTheSelectedTreeAndTheMode() {
        setTreeEditMode(true);
        arbo::Arbo* next = scene->izglediDrevesnihVrst[(scene->indexIzbranegaDrevesa + 1) % 6];
        next->pogled.highQualityRendering = true;
        next->pogled.colorMonopodial = true;
        next->pogled.backgroundSky = false;
        next->pdPrepared.listi = false;
        w->ui.actionSelect_next_tree_parameters_tree_edit_mode->trigger();
        QCOMPARE(scene->getIzbranoArbo(), next);
        QVERIFY(w->ui.actionHigh_quality_rendering_more_polygons->isChecked());
        QVERIFY(w->ui.actionColour_uppon->isChecked());
        QVERIFY(!w->ui.actionDisplay_background_sky->isChecked());
        QVERIFY(!w->ui.actionDisplay_leaves->isChecked());

        // The sky mark is the sky box's in ecosystem mode; the wire frame mark the
        // terrain's there and the tree's in tree-edit mode.
        w->ui.actionRender_wireframe->trigger();
        QVERIFY(w->ui.actionRender_wireframe->isChecked());
        setTreeEditMode(false);
        QVERIFY(w->ui.actionDisplay_background_sky->isChecked());
        QVERIFY(!w->ui.actionRender_wireframe->isChecked()); // the terrain is solid
        w->ui.actionRender_wireframe->trigger();
        setTreeEditMode(true); // the switch clears the tree's wire frame
        QVERIFY(!w->ui.actionRender_wireframe->isChecked());
        setTreeEditMode(false);
        QVERIFY(w->ui.actionRender_wireframe->isChecked());
        w->ui.actionRender_wireframe->trigger();

        // Growing ends with the switch of modes, and so does its mark.
        setTreeEditMode(true);
        w->ui.actionGrow_tree->trigger();
        QVERIFY(w->ui.actionGrow_tree->isChecked());
        setTreeEditMode(false);
        QVERIFY(!scene->getIzbranoArbo()->pogled.animateGrow);
        QVERIFY(!w->ui.actionGrow_tree->isChecked());
        // A change made behind the actions' back shows with the next frame.
        scene->getIzbranoArbo()->pogled.animateWindSway = true;
        w->oglWidget->updateGL();
        QTRY_VERIFY(w->ui.actionSway_tree_in_wind->isChecked());
        scene->getIzbranoArbo()->pogled.animateWindSway = false;

        // A camera reset puts back both surface modes, and their marks with them.
        w->ui.actionKeep_camera_position_above_terrain_surface_ecosystem_mode->trigger();
        w->ui.actionForce_camera_position_at_terrain_surface_ecosystem_mode->trigger();
        w->ui.actionReset_camera_view->trigger();
        QVERIFY(w->ui.actionKeep_camera_position_above_terrain_surface_ecosystem_mode->isChecked());
        QVERIFY(!w->ui.actionForce_camera_position_at_terrain_surface_ecosystem_mode->isChecked());
        // The autosave mark tells whether autosaving is on, also after a second use.
        w->ui.actionAutosave_simulation->trigger();
        w->ui.actionAutosave_simulation->trigger();
        QCOMPARE(w->ui.actionAutosave_simulation->isChecked(), scene->autoSaveSimulationStepNr > 0);
        scene->setAutosave(-1);
        // Every check mark of the window's actions is set from the state it stands for.
        w->showStateInCheckMarks();
        for (QAction* a : w->findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (!a->isCheckable())
                continue;
            const bool truth = a->isChecked();
            a->setChecked(!truth);
            w->showStateInCheckMarks();
            QVERIFY2(a->isChecked() == truth, qPrintable(a->objectName()));
        }
    }

    void cleanupTestCase() { delete w; }
};

int main(int argc, char** argv) {
    gui::requestGlFormat();
    QApplication app(argc, argv);
    TestViewHandler test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_viewhandler.moc"
