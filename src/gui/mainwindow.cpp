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

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent) {
    ui.setupUi(this);
    oglWidget = new OglWidget(ui.dockWidget, nullptr);
    connect(oglWidget, &OglWidget::newModelCreated, this, &MainWindow::bindNewModel);
    connect(oglWidget, &OglWidget::newGlContextInitialized, this,
            &MainWindow::newGlContextInitialized);
    ui.dockWidget->setWidget(oglWidget);
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
    connect(ui.actionLoad_simulation, &QAction::triggered, fileHandler,
            &FileHandler::actionLoad_simulation);
    connect(ui.actionSave_simulation, &QAction::triggered, fileHandler,
            &FileHandler::actionSave_simulation);
    connect(ui.actionAutosave_simulation, &QAction::triggered, fileHandler,
            &FileHandler::actionAutosave_simulation);
}

void MainWindow::bindTimeKeeper() {
    using actionhandling::TimeKeeper;
    timeKeeper = new TimeKeeper(this, currentModel);
    connect(timeKeeper, &TimeKeeper::updateSimulationAndGL, currentModel,
            &EcosystemRender::simulateNextStepAndUpdateGL);
    connect(ui.actionRun_simulation, &QAction::triggered, timeKeeper,
            &TimeKeeper::toggleRunSimulation);
    connect(currentModel, &EcosystemRender::startTreeAnimation, timeKeeper,
            &actionhandling::TimeKeeper::startTreeAnimation);
    connect(currentModel, &EcosystemRender::stopTreeAnimation, timeKeeper,
            &actionhandling::TimeKeeper::stopTreeAnimation);
}

void MainWindow::bindSceneActions() {
    connect(ui.actionSelect_next_tree_parameters_tree_edit_mode, &QAction::triggered, currentModel,
            &EcosystemRender::selectNextTreeSpecies);
    connect(ui.actionEnlarge_leave_size, &QAction::triggered, currentModel,
            &EcosystemRender::actionEnlarge_leave_size);
    connect(ui.actionReduce_leave_size, &QAction::triggered, currentModel,
            &EcosystemRender::actionReduce_leave_size);
    connect(ui.actionGrow_tree, &QAction::triggered, currentModel,
            &EcosystemRender::actionGrow_tree);
    connect(ui.actionSpin_tree, &QAction::triggered, currentModel,
            &EcosystemRender::actionSpin_tree);
    connect(ui.actionSway_tree_in_wind, &QAction::triggered, currentModel,
            &EcosystemRender::actionSway_tree_in_wind);
    connect(ui.actionCompute_more_simulation_steps_per_one_rendered_frame, &QAction::triggered,
            currentModel, &EcosystemRender::actionRender_less_often_skip_more_frames);
    connect(ui.actionCompute_less_simulation_steps_per_one_rendered_frame, &QAction::triggered,
            currentModel, &EcosystemRender::actionRender_more_often_skip_less_frames);
}

void MainWindow::bindViewHandler() {
    viewHandler = new actionhandling::ViewHandler(this, currentModel);
    connect(ui.actionShow_ecosystem, &QAction::triggered, viewHandler,
            &actionhandling::ViewHandler::actionShow_ecosystem);
}

// Every navigation action reaches the handler's slot of the same name.
void MainWindow::bindNavigationHandler() {
    using actionhandling::NavigationHandler;
    navigationHandler = new NavigationHandler(this, currentModel);
    const QList<QAction*> actions = {
        ui.action_Navigation_panel,
        ui.actionSwitch_to_next_predefined_camera,
        ui.actionSave_camera_as_predefined,
        ui.actionReset_camera_view,
        ui.actionKeep_camera_position_above_terrain_surface_ecosystem_mode,
        ui.actionForce_camera_position_at_terrain_surface_ecosystem_mode,
        ui.actionMove_up,
        ui.actionMove_down,
        ui.actionMove_left,
        ui.actionMove_right,
        ui.actionMove_forward,
        ui.actionMove_backward,
        ui.actionRotate_left,
        ui.actionRotate_right,
        ui.actionRotate_up,
        ui.actionRotate_down,
        ui.actionRotate_in,
        ui.actionRotate_out,
        ui.actionMove_up_more,
        ui.actionMove_down_more,
        ui.actionMove_left_more,
        ui.actionMove_right_more,
        ui.actionMove_forward_more,
        ui.actionMove_backward_more,
        ui.actionMove_up_less,
        ui.actionMove_down_less,
        ui.actionMove_left_less,
        ui.actionMove_right_less,
        ui.actionMove_forward_less,
        ui.actionMove_backward_less};
    for (QAction* action : actions) {
        const QByteArray slot = "1" + action->objectName().toLatin1() + "()";
        connect(action, SIGNAL(triggered()), navigationHandler, slot.constData());
    }
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
