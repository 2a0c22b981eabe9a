#include "gui/mainwindow.h"

#include "ecosystem/render/ecosystemrender.h"
#include "gui/about.h"
#include "gui/actionhandling/filehandler.h"
#include "gui/actionhandling/navigationhandler.h"
#include "gui/actionhandling/timekeeper.h"
#include "gui/actionhandling/viewhandler.h"
#include "gui/help.h"
#include "gui/oglwidget.h"
#include "gui/plantarea.h"
#include "gui/randomgeneratorseedseditor.h"

#include <QSpinBox>

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
    bindViewHandler();
    bindNavigationHandler();
}

void MainWindow::bindFileHandler() {
    using actionhandling::FileHandler;
    fileHandler = new FileHandler(this, currentModel, oglWidget);
    connect(fileHandler, &FileHandler::reloadCurrentTreeTextures, currentModel,
            &EcosystemRender::reloadCurrentTreeTextures);
    using F = FileHandler;
    bindActions<F>(fileHandler, {{ui.actionLoad_simulation, &F::actionLoad_simulation},
                                 {ui.actionSave_simulation, &F::actionSave_simulation},
                                 {ui.actionAutosave_simulation, &F::actionAutosave_simulation}});
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

void MainWindow::bindViewHandler() {
    viewHandler = new actionhandling::ViewHandler(this, currentModel);
    connect(ui.actionShow_ecosystem, &QAction::triggered, viewHandler,
            &actionhandling::ViewHandler::actionShow_ecosystem);
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
    connect(viewHandler, &actionhandling::ViewHandler::forceRepaint, view, &OglWidget::updateGL,
            Qt::UniqueConnection);
    connect(navigationHandler, &actionhandling::NavigationHandler::forceRefresh, view,
            &OglWidget::updateGL, Qt::UniqueConnection);
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
