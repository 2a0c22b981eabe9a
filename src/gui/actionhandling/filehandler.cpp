#include "gui/actionhandling/filehandler.h"

#include "ecosystem/render/ecosystemrender.h"

#include <QFileDialog>
#include <QMessageBox>

namespace gui::actionhandling {

FileHandler::FileHandler(QWidget* parentWindow, ecosystem::render::EcosystemRender* model,
                         QOpenGLWidget* qglWidget)
    : QObject(parentWindow), parentWindow(parentWindow), model(model), qglWidget(qglWidget) {}

bool FileHandler::simulationStarted() {
    if (model->isSimulationRedyAndRunning())
        return true;
    QMessageBox::information(parentWindow, tr("Error"), tr("First run simulation please."));
    return false;
}

void FileHandler::actionLoad_simulation() {
    if (!simulationStarted())
        return;
    const QString name =
        QFileDialog::getOpenFileName(parentWindow, tr("Choose a simulation file to open"),
                                     QString(), tr("Simulation files (*.sim)"));
    if (!name.isEmpty())
        model->loadSimulation(name.toStdString());
}

void FileHandler::actionSave_simulation() {
    if (!simulationStarted())
        return;
    const QString name =
        QFileDialog::getSaveFileName(parentWindow, tr("Choose a filename to save under"), QString(),
                                     tr("Simulation files (*.sim)"));
    if (!name.isEmpty())
        model->saveSimulation(name.toStdString());
}

void FileHandler::actionAutosave_simulation() {
    model->setAutosave(30);
}

} // namespace gui::actionhandling
