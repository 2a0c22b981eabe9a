#pragma once

#include "gui/ui_mainwindow.h"

#include <QList>
#include <QMainWindow>

#include <initializer_list>
#include <utility>

namespace ecosystem::render {
class EcosystemRender;
}

namespace gui {

class OglWidget;
namespace actionhandling {
class FileHandler;
class TimeKeeper;
class DesignHandler;
class ViewHandler;
class NavigationHandler;
} // namespace actionhandling

// The main window: menus, tool bars and the stacked OpenGL views. The scene
// comes into being when the first view's GL context is initialised; then the
// action handlers are created and every action is wired to them.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    Ui_MainWindow ui;
    ecosystem::render::EcosystemRender* currentModel = nullptr;
    QList<ecosystem::render::EcosystemRender*> models;
    int currentModelNr = 0;
    OglWidget* oglWidget = nullptr;
    actionhandling::FileHandler* fileHandler = nullptr;
    actionhandling::TimeKeeper* timeKeeper = nullptr;
    actionhandling::DesignHandler* designHandler = nullptr;
    actionhandling::ViewHandler* viewHandler = nullptr;
    actionhandling::NavigationHandler* navigationHandler = nullptr;

public slots:
    void bindNewModel(ecosystem::render::EcosystemRender* model);
    void newGlContextInitialized(gui::OglWidget* view);
    void on_actionAdd_view_triggered();
    void on_actionSet_plant_area_triggered();
    void on_actionEdit_random_generator_seeds_triggered();
    void on_actionShow_statistics_triggered();
    void on_actionAbout_triggered();
    void on_actionUsage_triggered();
    void cycleView();
    // Sets every check mark to the state it stands for: of the scene, the
    // selected tree, the camera or the timers.
    void showStateInCheckMarks();

private:
    template <class Receiver>
    void bindActions(Receiver* receiver,
                     std::initializer_list<std::pair<QAction*, void (Receiver::*)()>> rows);
    void bindWindowActions();
    void bindFileHandler();
    void bindTimeKeeper();
    void bindSceneActions();
    void bindDesignHandler();
    void bindViewHandler();
    void bindCheckMarks();
    void bindStatistics();
    void bindNavigationHandler();
};

} // namespace gui
