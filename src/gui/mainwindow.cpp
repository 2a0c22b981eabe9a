#include "gui/mainwindow.h"

#include "arbo/arbo.h"
#include "arbo/usermessage.h"
#include "ecosystem/render/camera.h"
#include "ecosystem/render/ecosystemrender.h"
#include "gui/about.h"
#include "gui/actionhandling/designhandler.h"
#include "gui/actionhandling/filehandler.h"
#include "gui/actionhandling/navigationhandler.h"
#include "gui/actionhandling/timekeeper.h"
#include "gui/actionhandling/viewhandler.h"
#include "gui/help.h"
#include "gui/oglwidget.h"
#include "gui/plantarea.h"
#include "gui/randomgeneratorseedseditor.h"
#include "gui/statistics/ecosystemstatistics.h"

#include <QSpinBox>
#include <QStatusBar>

namespace gui {

using ecosystem::render::EcosystemRender;

// Binds each action of the list to its receiver's slot.
template <class Receiver>
void MainWindow::bindActions(
    Receiver* receiver, std::initializer_list<std::pair<QAction*, void (Receiver::*)()>> rows) {
    for (const auto& [action, slot] : rows)
        connect(action, &QAction::triggered, receiver, slot);
}

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent) {
    ui.setupUi(this);
    oglWidget = new OglWidget(ui.dockWidget, nullptr);
    connect(oglWidget, &OglWidget::newModelCreated, this, &MainWindow::bindNewModel);
    connect(oglWidget, &OglWidget::newGlContextInitialized, this,
            &MainWindow::newGlContextInitialized);
    ui.dockWidget->setWidget(oglWidget);
    bindWindowActions();
    bindStatistics();
}

// The actions the window carries out itself; bound before any scene exists.
void MainWindow::bindWindowActions() {
    bindActions<MainWindow>(
        this, {{ui.actionAdd_view, &MainWindow::on_actionAdd_view_triggered},
               {ui.actionSet_plant_area, &MainWindow::on_actionSet_plant_area_triggered},
               {ui.actionEdit_random_generator_seeds,
                &MainWindow::on_actionEdit_random_generator_seeds_triggered},
               {ui.actionAbout, &MainWindow::on_actionAbout_triggered},
               {ui.actionUsage, &MainWindow::on_actionUsage_triggered}});
}

MainWindow::~MainWindow() {
    // The views (children of their docks) go first, so that no view paints a
    // scene that is already gone.
    const auto views = findChildren<OglWidget*>();
    for (OglWidget* view : views)
        view->switchToModel(nullptr);
    // The scene releases its textures in a current GL context.
    if (oglWidget && oglWidget->context())
        oglWidget->makeCurrent();
    for (EcosystemRender* model : models)
        delete model;
}

void MainWindow::bindNewModel(EcosystemRender* model) {
    models.append(model);
    currentModel = model;
    bindFileHandler();
    bindTimeKeeper();
    bindSceneActions();
    bindDesignHandler();
    bindViewHandler();
    bindNavigationHandler();
    bindCheckMarks();
}

void MainWindow::bindFileHandler() {
    using actionhandling::FileHandler;
    fileHandler = new FileHandler(this, currentModel, oglWidget);
    connect(fileHandler, &FileHandler::reloadCurrentTreeTextures, currentModel,
            &EcosystemRender::reloadCurrentTreeTextures);
    using F = FileHandler;
    bindActions<F>(
        fileHandler,
        {{ui.actionLoad_parameters, &F::actionLoad_parameters},
         {ui.actionSave_parameters, &F::actionSave_parameters},
         {ui.actionImport_tree_2_x_parameters, &F::actionImport_tree_2_x_parameters},
         {ui.actionExport_current_tree_geometry_as_vertices,
          &F::actionExport_current_tree_geometry_as_vertices},
         {ui.actionExport_current_tree_as_OBJ, &F::actionExport_current_tree_as_OBJ},
         {ui.actionExport_current_tree_as_Latex_formulas,
          &F::actionExport_current_tree_as_Latex_formulas},
         {ui.actionLoad_DEM_terrain_model, &F::actionLoad_DEM_terrain_model},
         {ui.actionSet_sky_textures, &F::actionSet_sky_textures},
         {ui.actionExport_window_image, &F::actionExport_window_image},
         {ui.actionExport_custom_resolution_image, &F::actionExport_custom_resolution_image},
         {ui.actionLoad_bark_texture, &F::actionLoad_bark_texture},
         {ui.actionLoadleaf_texture, &F::actionLoadleaf_texture},
         {ui.actionLoad_simulation, &F::actionLoad_simulation},
         {ui.actionSave_simulation, &F::actionSave_simulation},
         {ui.actionAutosave_simulation, &F::actionAutosave_simulation}});
    // A frame that cannot be written ends the sequence export, and its tick with it.
    connect(fileHandler, &FileHandler::sequenceFrameFailed, this, [this] {
        if (ui.actionAnimation_rendering_mode_Sequence_export->isChecked())
            ui.actionAnimation_rendering_mode_Sequence_export->trigger();
    });
}

void MainWindow::bindTimeKeeper() {
    using actionhandling::TimeKeeper;
    timeKeeper = new TimeKeeper(this, currentModel);
    connect(timeKeeper, &TimeKeeper::updateSimulationAndGL, currentModel,
            &EcosystemRender::simulateNextStepAndUpdateGL);
    bindActions<TimeKeeper>(timeKeeper,
                            {{ui.actionRun_simulation, &TimeKeeper::toggleRunSimulation},
                             {ui.actionAnimation_rendering_mode_Sequence_export,
                              &TimeKeeper::toggleAnimationExportingMode}});
    connect(timeKeeper, &TimeKeeper::grabFrameBuffer, fileHandler,
            &actionhandling::FileHandler::grabAnimationFrame);
    connect(timeKeeper, &TimeKeeper::grabGeometry, fileHandler,
            &actionhandling::FileHandler::grabGeometryFrame);
    connect(timeKeeper, &TimeKeeper::sequenceExportStopped, fileHandler,
            &actionhandling::FileHandler::resetLastNames);
    connect(currentModel, &EcosystemRender::startTreeAnimation, timeKeeper,
            &actionhandling::TimeKeeper::startTreeAnimation);
    connect(currentModel, &EcosystemRender::stopTreeAnimation, timeKeeper,
            &actionhandling::TimeKeeper::stopTreeAnimation);
}

void MainWindow::bindSceneActions() {
    using S = EcosystemRender;
    bindActions<S>(currentModel, {{ui.actionSelect_next_tree_parameters_tree_edit_mode,
                                   &S::selectNextTreeSpecies},
                                  {ui.actionEnlarge_leave_size, &S::actionEnlarge_leave_size},
                                  {ui.actionReduce_leave_size, &S::actionReduce_leave_size},
                                  {ui.actionGrow_tree, &S::actionGrow_tree},
                                  {ui.actionSpin_tree, &S::actionSpin_tree},
                                  {ui.actionSway_tree_in_wind, &S::actionSway_tree_in_wind},
                                  {ui.actionCompute_more_simulation_steps_per_one_rendered_frame,
                                   &S::actionRender_less_often_skip_more_frames},
                                  {ui.actionCompute_less_simulation_steps_per_one_rendered_frame,
                                   &S::actionRender_more_often_skip_less_frames}});
}

void MainWindow::bindDesignHandler() {
    using actionhandling::DesignHandler;
    using D = DesignHandler;
    designHandler = new DesignHandler(this, this, currentModel);
    designHandler->dialogActions = {ui.actionUndo_design_edit, ui.actionRedo_design_edit};
    bindActions<D>(designHandler,
                   {{ui.actionDesign_strand_distribution, &D::actionDesign_strand_distribution},
                    {ui.actionDesign_branching_angles, &D::actionDesign_branching_angles},
                    {ui.actionDesign_branch_absolute_minimal_length,
                     &D::actionDesign_branch_absolute_minimal_length},
                    {ui.actionDesign_branch_absolute_maximal_length,
                     &D::actionDesign_branch_absolute_maximal_length},
                    {ui.actionDesign_branch_lenght_scaling, &D::actionDesign_branch_lenght_scaling},
                    {ui.actionDesign_gravimorphism_impact_distribution,
                     &D::actionDesign_gravimorphism_impact_distribution},
                    {ui.actionAdvanced_tree_properties, &D::actionAdvanced_tree_properties},
                    {ui.actionUndo_design_edit, &D::actionUndo_design_edit},
                    {ui.actionRedo_design_edit, &D::actionRedo_design_edit}});
}

void MainWindow::bindViewHandler() {
    using actionhandling::ViewHandler;
    using V = ViewHandler;
    viewHandler = new ViewHandler(this, currentModel);
    bindActions<V>(
        viewHandler,
        {{ui.actionShow_ecosystem, &V::actionShow_ecosystem},
         {ui.actionShow_frame_rate, &V::actionShow_frame_rate},
         {ui.actionLighting_enabled, &V::actionLighting_enabled},
         {ui.actionDisplay_background_sky, &V::actionDisplay_background_sky},
         {ui.actionRender_wireframe, &V::actionRender_wireframe},
         {ui.actionDisplay_leaves, &V::actionDisplay_leaves},
         {ui.actionColour_uppon, &V::actionColour_uppon},
         {ui.actionHigh_quality_rendering_more_polygons,
          &V::actionHigh_quality_rendering_more_polygons},
         {ui.actionDo_not_draw_trees_ecosystem_mode, &V::actionDo_not_draw_trees_ecosystem_mode},
         {ui.actionDo_not_refresh_display_only_run_simulation_ecosystem_mode,
          &V::actionDo_not_refresh_display_only_run_simulation_ecosystem_mode},
         {ui.actionShow_ecologic_neighborhood_ecosystem_mode,
          &V::actionShow_ecologic_neighborhood_ecosystem_mode},
         {ui.actionDisplay_terrain_land_markings_S_N_E_W,
          &V::actionDisplay_terrain_land_markings_S_N_E_W},
         {ui.actionDisplay_terrain_normals, &V::actionDisplay_terrain_normals},
         {ui.actionDisplay_terrain_inclination, &V::actionDisplay_terrain_inclination},
         {ui.actionDisplay_terrain_moisture, &V::actionDisplay_terrain_moisture},
         {ui.actionDisplay_terrain_sunniness, &V::actionDisplay_terrain_sunniness},
         {ui.actionDisplay_terrain_windiness, &V::actionDisplay_terrain_windiness},
         {ui.actionDisplay_sun, &V::actionDisplay_sun},
         {ui.actionFast_distant_trees, &V::actionFast_distant_trees}});
    // Slow frames point to the fast switch once; switching it on takes that back.
    connect(currentModel, &EcosystemRender::statusHint, this, [this](const QString& text) {
        if (text.isEmpty())
            statusBar()->clearMessage();
        else
            statusBar()->showMessage(text);
    });
}

// The check marks follow the scene after every change the window hears of: a
// tree or scene change, a view switch, a camera change, and every frame drawn
// (which also catches what the dialogs change). A check action flips its own
// mark when triggered; these calls settle the marks whose meaning depends on
// the mode or on the selected tree, or whose state another action changes
// (a camera reset puts back both surface modes).
void MainWindow::bindCheckMarks() {
    connect(currentModel, &EcosystemRender::modelDataChanged, this,
            &MainWindow::showStateInCheckMarks);
    connect(viewHandler, &actionhandling::ViewHandler::forceRepaint, this,
            &MainWindow::showStateInCheckMarks);
    connect(navigationHandler, &actionhandling::NavigationHandler::forceRefresh, this,
            &MainWindow::showStateInCheckMarks);
    // Bound last, so that it runs after the action's own slot.
    const auto actions = findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly);
    for (QAction* action : actions)
        if (action->isCheckable())
            connect(action, &QAction::triggered, this, &MainWindow::showStateInCheckMarks);
    showStateInCheckMarks();
}

// The tree-edit background and wire frame belong to the selected tree in
// tree-edit mode, the sky box and terrain wire frame to the ecosystem. Every
// check action of the window has its row, so that no mark can tell otherwise
// than the state it stands for.
void MainWindow::showStateInCheckMarks() {
    if (!currentModel)
        return;
    const EcosystemRender& s = *currentModel;
    const arbo::Arbo& tree = *s.getIzbranoArbo();
    const arbo::Pogled& p = tree.pogled;
    const ecosystem::render::Camera& camera = *s.getCurrentCamera();
    const bool edit = s.isSingleRender();
    const std::pair<QAction*, bool> marks[] = {
        {ui.actionAnimation_rendering_mode_Sequence_export, timeKeeper->animationExportingMode},
        {ui.actionShow_ecosystem, !edit},
        {ui.actionShow_frame_rate, s.showFPS},
        {ui.actionLighting_enabled, s.lightingEnabled},
        {ui.actionDisplay_background_sky, edit ? p.backgroundSky : s.displaySky},
        {ui.actionRender_wireframe, edit ? p.wireframe : s.wireframe},
        {ui.actionDisplay_leaves, tree.pdPrepared.listi},
        {ui.actionColour_uppon, p.colorMonopodial},
        {ui.actionHigh_quality_rendering_more_polygons, p.highQualityRendering},
        {ui.actionDo_not_draw_trees_ecosystem_mode, s.doNotDrawTrees},
        {ui.actionDo_not_refresh_display_only_run_simulation_ecosystem_mode, s.doNotRefreshDisplay},
        {ui.actionShow_ecologic_neighborhood_ecosystem_mode, s.showNeighborHood},
        {ui.actionDisplay_terrain_land_markings_S_N_E_W, s.displayLandMarkings},
        {ui.actionDisplay_terrain_normals, s.displayTerrainNormals},
        {ui.actionDisplay_terrain_inclination, s.displayTerrainInclination},
        {ui.actionDisplay_terrain_moisture, s.displayTerrainMoisture},
        {ui.actionDisplay_terrain_sunniness, s.displayTerrainSunniness},
        {ui.actionDisplay_terrain_windiness, s.displayTerrainWindiness},
        {ui.actionDisplay_sun, s.displaySun},
        {ui.actionFast_distant_trees, s.fastDistantTrees},
        {ui.actionGrow_tree, p.animateGrow},
        {ui.actionSpin_tree, p.animateOrbitAround},
        {ui.actionSway_tree_in_wind, p.animateWindSway},
        {ui.actionKeep_camera_position_above_terrain_surface_ecosystem_mode, camera.aboveSurface},
        {ui.actionForce_camera_position_at_terrain_surface_ecosystem_mode, camera.atSurface},
        {ui.actionRun_simulation, timeKeeper->simmulationTimer != nullptr},
        {ui.actionAutosave_simulation, s.autoSaveSimulationStepNr > 0}};
    for (const auto& [action, on] : marks)
        action->setChecked(on);
}

void MainWindow::bindNavigationHandler() {
    using actionhandling::NavigationHandler;
    using N = NavigationHandler;
    navigationHandler = new NavigationHandler(this, currentModel);
    bindActions<N>(
        navigationHandler,
        {{ui.action_Navigation_panel, &N::action_Navigation_panel},
         {ui.actionSwitch_to_next_predefined_camera, &N::actionSwitch_to_next_predefined_camera},
         {ui.actionSave_camera_as_predefined, &N::actionSave_camera_as_predefined},
         {ui.actionReset_camera_view, &N::actionReset_camera_view},
         {ui.actionKeep_camera_position_above_terrain_surface_ecosystem_mode,
          &N::actionKeep_camera_position_above_terrain_surface_ecosystem_mode},
         {ui.actionForce_camera_position_at_terrain_surface_ecosystem_mode,
          &N::actionForce_camera_position_at_terrain_surface_ecosystem_mode},
         {ui.actionMove_up, &N::actionMove_up},
         {ui.actionMove_down, &N::actionMove_down},
         {ui.actionMove_left, &N::actionMove_left},
         {ui.actionMove_right, &N::actionMove_right},
         {ui.actionMove_forward, &N::actionMove_forward},
         {ui.actionMove_backward, &N::actionMove_backward},
         {ui.actionRotate_left, &N::actionRotate_left},
         {ui.actionRotate_right, &N::actionRotate_right},
         {ui.actionRotate_up, &N::actionRotate_up},
         {ui.actionRotate_down, &N::actionRotate_down},
         {ui.actionRotate_in, &N::actionRotate_in},
         {ui.actionRotate_out, &N::actionRotate_out},
         {ui.actionMove_up_more, &N::actionMove_up_more},
         {ui.actionMove_down_more, &N::actionMove_down_more},
         {ui.actionMove_left_more, &N::actionMove_left_more},
         {ui.actionMove_right_more, &N::actionMove_right_more},
         {ui.actionMove_forward_more, &N::actionMove_forward_more},
         {ui.actionMove_backward_more, &N::actionMove_backward_more},
         {ui.actionMove_up_less, &N::actionMove_up_less},
         {ui.actionMove_down_less, &N::actionMove_down_less},
         {ui.actionMove_left_less, &N::actionMove_left_less},
         {ui.actionMove_right_less, &N::actionMove_right_less},
         {ui.actionMove_forward_less, &N::actionMove_forward_less},
         {ui.actionMove_backward_less, &N::actionMove_backward_less}});
    connect(navigationHandler, &NavigationHandler::startCameraAnimation, timeKeeper,
            &actionhandling::TimeKeeper::startCameraAnimation);
    connect(navigationHandler, &NavigationHandler::stopCameraAnimation, timeKeeper,
            &actionhandling::TimeKeeper::stopCameraAnimation);
    connect(timeKeeper, &actionhandling::TimeKeeper::animateCamera, navigationHandler,
            &NavigationHandler::animateCamera);
}

void MainWindow::newGlContextInitialized(OglWidget* view) {
    connect(timeKeeper, &actionhandling::TimeKeeper::updateOnlyGL, view, &OglWidget::updateGL,
            Qt::UniqueConnection);
    connect(designHandler, &actionhandling::DesignHandler::forceRepaint, view, &OglWidget::updateGL,
            Qt::UniqueConnection);
    connect(viewHandler, &actionhandling::ViewHandler::forceRepaint, view, &OglWidget::updateGL,
            Qt::UniqueConnection);
    connect(navigationHandler, &actionhandling::NavigationHandler::forceRefresh, view,
            &OglWidget::updateGL, Qt::UniqueConnection);
    connect(view, &OglWidget::frameSwapped, timeKeeper, &actionhandling::TimeKeeper::frameShown,
            Qt::UniqueConnection);
    connect(view, &OglWidget::frameSwapped, this, &MainWindow::showStateInCheckMarks,
            Qt::UniqueConnection);
    // Queued: the box, if one opens, opens after the paint, not inside it.
    connect(view, &OglWidget::frameSwapped, fileHandler,
            &actionhandling::FileHandler::reportGeometryFailure,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
}

void MainWindow::on_actionAdd_view_triggered() {
    if (!currentModel)
        return;
    auto* dock = new QDockWidget(ui.centralwidget);
    auto* view = new OglWidget(dock, currentModel);
    connect(view, &OglWidget::grabCamera, this, &MainWindow::cycleView);
    connect(view, &OglWidget::newGlContextInitialized, this, &MainWindow::newGlContextInitialized);
    dock->setWidget(view);
    ui.vboxLayout->addWidget(dock);
}

void MainWindow::on_actionSet_plant_area_triggered() {
    if (!currentModel)
        return;
    PlantArea dialog(this);
    dialog.minX->setValue(currentModel->getLupaMinX());
    dialog.maxX->setValue(currentModel->getLupaMaxX());
    dialog.minY->setValue(currentModel->getLupaMinY());
    dialog.maxY->setValue(currentModel->getLupaMaxY());
    connect(dialog.minX, &QSpinBox::valueChanged, currentModel, &EcosystemRender::setLupaMinX);
    connect(dialog.maxX, &QSpinBox::valueChanged, currentModel, &EcosystemRender::setLupaMaxX);
    connect(dialog.minY, &QSpinBox::valueChanged, currentModel, &EcosystemRender::setLupaMinY);
    connect(dialog.maxY, &QSpinBox::valueChanged, currentModel, &EcosystemRender::setLupaMaxY);
    dialog.exec();
}

void MainWindow::on_actionEdit_random_generator_seeds_triggered() {
    if (!currentModel)
        return;
    RandomGeneratorSeedsEditor dialog(this);
    connect(&dialog, &RandomGeneratorSeedsEditor::updateSeeds, currentModel,
            [model = currentModel](const std::vector<unsigned long long>& seeds) {
                model->setRandomGeneratorSeeds(seeds);
            });
    dialog.setSeeds(currentModel->getRandomGeneratorSeeds());
    dialog.exec();
}

void MainWindow::bindStatistics() {
    connect(ui.actionShow_statistics, &QAction::triggered, this,
            &MainWindow::on_actionShow_statistics_triggered);
}

// Each use opens a further window over the simulation's statistics; it
// follows every step and every drawn frame until it is closed, and closing it
// deletes it (its connections go with it: a closed window costs the steps nothing).
void MainWindow::on_actionShow_statistics_triggered() {
    if (!currentModel)
        return;
    if (!currentModel->isSimulationRedyAndRunning()) {
        arbo::showUserMessage(tr("Error").toStdString(),
                              tr("First run simulation please.").toStdString());
        return;
    }
    auto* window = new EcosystemStatistics(this, currentModel->getEntitiesStatistics());
    window->setAttribute(Qt::WA_DeleteOnClose);
    connect(currentModel, &EcosystemRender::nrPlantsLivingChanged, window,
            &EcosystemStatistics::nrPlantsLivingChanged);
    connect(currentModel, &EcosystemRender::nrPlantsRenderedChanged, window,
            &EcosystemStatistics::nrPlantsLivingChanged);
    window->show();
}

void MainWindow::on_actionAbout_triggered() {
    About dialog(this);
    dialog.exec();
}

void MainWindow::on_actionUsage_triggered() {
    Help dialog(this);
    dialog.exec();
}

void MainWindow::cycleView() {}

} // namespace gui
