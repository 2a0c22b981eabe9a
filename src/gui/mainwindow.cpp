#include "gui/mainwindow.h"

#include "ecosystem/render/ecosystemrender.h"
#include "gui/about.h"
#include "gui/actionhandling/timekeeper.h"
#include "gui/actionhandling/viewhandler.h"
#include "gui/help.h"
#include "gui/oglwidget.h"

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
    bindTimeKeeper();
    bindSceneActions();
    bindViewHandler();
}

void MainWindow::bindTimeKeeper() {
    timeKeeper = new actionhandling::TimeKeeper(this, currentModel);
    connect(currentModel, &EcosystemRender::startTreeAnimation, timeKeeper,
            &actionhandling::TimeKeeper::startTreeAnimation);
    connect(currentModel, &EcosystemRender::stopTreeAnimation, timeKeeper,
            &actionhandling::TimeKeeper::stopTreeAnimation);
}

void MainWindow::bindSceneActions() {}

void MainWindow::bindViewHandler() {
    viewHandler = new actionhandling::ViewHandler(this, currentModel);
}

void MainWindow::newGlContextInitialized(OglWidget* view) {
    connect(timeKeeper, &actionhandling::TimeKeeper::updateOnlyGL, view, &OglWidget::updateGL,
            Qt::UniqueConnection);
    connect(viewHandler, &actionhandling::ViewHandler::forceRepaint, view, &OglWidget::updateGL,
            Qt::UniqueConnection);
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
