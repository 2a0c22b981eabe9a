#pragma once

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWidget>

// The main window's form: actions, menus, tool bars, the dock that holds the
// first view, and their texts. Written by hand in the shape of a generated form.
class Ui_MainWindow {
public:
    // "&File"
    QAction* actionQuit;
    // "&Edit"
    QAction* actionSelect_next_tree_parameters_tree_edit_mode;
    QAction* actionEnlarge_leave_size;
    QAction* actionReduce_leave_size;
    // "&View"
    QAction* actionShow_ecosystem;
    QAction* actionAdd_view;
    // "&Navigation"
    QAction* action_Navigation_panel;
    QAction* actionSwitch_to_next_predefined_camera;
    QAction* actionSave_camera_as_predefined;
    QAction* actionReset_camera_view;
    QAction* actionKeep_camera_position_above_terrain_surface_ecosystem_mode;
    QAction* actionForce_camera_position_at_terrain_surface_ecosystem_mode;
    QAction* actionMove_up;
    QAction* actionMove_down;
    QAction* actionMove_left;
    QAction* actionMove_right;
    QAction* actionMove_forward;
    QAction* actionMove_backward;
    QAction* actionRotate_left;
    QAction* actionRotate_right;
    QAction* actionRotate_up;
    QAction* actionRotate_down;
    QAction* actionRotate_in;
    QAction* actionRotate_out;
    QAction* actionMove_up_more;
    QAction* actionMove_down_more;
    QAction* actionMove_left_more;
    QAction* actionMove_right_more;
    QAction* actionMove_forward_more;
    QAction* actionMove_backward_more;
    QAction* actionMove_up_less;
    QAction* actionMove_down_less;
    QAction* actionMove_left_less;
    QAction* actionMove_right_less;
    QAction* actionMove_forward_less;
    QAction* actionMove_backward_less;
    // "Tree &animation"
    QAction* actionGrow_tree;
    QAction* actionSpin_tree;
    QAction* actionSway_tree_in_wind;
    // "&Ecosystem simulation"
    QAction* actionRun_simulation;
    QAction* actionLoad_simulation;
    QAction* actionSave_simulation;
    QAction* actionAutosave_simulation;
    QAction* actionSet_plant_area;
    QAction* actionEdit_random_generator_seeds;
    QAction* actionCompute_more_simulation_steps_per_one_rendered_frame;
    QAction* actionCompute_less_simulation_steps_per_one_rendered_frame;
    // "&Help"
    QAction* actionUsage;
    QAction* actionAbout;

    QWidget* centralwidget;
    QVBoxLayout* vboxLayout;
    QDockWidget* dockWidget;
    QWidget* dockWidgetContents;
    QHBoxLayout* hboxLayout;
    QMenuBar* menubar;
    QMenu* menu_File;
    QMenu* menu_Edit;
    QMenu* menu_View;
    QMenu* menu_Navigation;
    QMenu* menuMove_faster;
    QMenu* menuMove_slower;
    QMenu* menuTree_animation;
    QMenu* menu_Ecosystem_simulation;
    QMenu* menu_Help;
    QStatusBar* statusbar;
    QToolBar* toolBar;
    QToolBar* toolBar_2;

    void setupUi(QMainWindow* MainWindow) {
        if (MainWindow->objectName().isEmpty())
            MainWindow->setObjectName("MainWindow");
        MainWindow->resize(788, 671);
        MainWindow->setWindowIcon(QIcon(":/gui/icons/icons/virela.png"));
        createActions(MainWindow);
        createCentralWidget(MainWindow);
        createMenus(MainWindow);
        createToolBars(MainWindow);
        retranslateUi(MainWindow);
        QObject::connect(actionQuit, &QAction::triggered, MainWindow, &QMainWindow::close);
        QMetaObject::connectSlotsByName(MainWindow);
        const QSize hint = MainWindow->minimumSizeHint();
        if (hint.width() > MainWindow->width() || hint.height() > MainWindow->height())
            MainWindow->resize(MainWindow->size().expandedTo(hint));
    }

    void retranslateUi(QMainWindow* MainWindow) {
        MainWindow->setWindowTitle(QCoreApplication::translate("MainWindow", "Bosket"));
        actionQuit->setText(QCoreApplication::translate("MainWindow", "&Quit"));
        actionSelect_next_tree_parameters_tree_edit_mode->setText(QCoreApplication::translate(
            "MainWindow", "Select &next tree parameters (tree edit mode)"));
        actionEnlarge_leave_size->setText(
            QCoreApplication::translate("MainWindow", "&Enlarge leave size"));
        actionReduce_leave_size->setText(
            QCoreApplication::translate("MainWindow", "&Reduce leave size"));
        actionShow_ecosystem->setText(QCoreApplication::translate("MainWindow", "Show &ecosystem"));
        actionAdd_view->setText(QCoreApplication::translate("MainWindow", "&Add view"));
        retranslateNavigation();
        actionGrow_tree->setText(QCoreApplication::translate("MainWindow", "G&row tree"));
        actionSpin_tree->setText(QCoreApplication::translate("MainWindow", "&Spin tree"));
        actionSway_tree_in_wind->setText(
            QCoreApplication::translate("MainWindow", "Sway tree in &wind"));
        actionRun_simulation->setText(QCoreApplication::translate("MainWindow", "&Run simulation"));
        actionLoad_simulation->setText(
            QCoreApplication::translate("MainWindow", "Load simulation"));
        actionSave_simulation->setText(
            QCoreApplication::translate("MainWindow", "Save simulation"));
        actionAutosave_simulation->setText(
            QCoreApplication::translate("MainWindow", "Autosave simulation"));
        actionSet_plant_area->setText(QCoreApplication::translate("MainWindow", "Set plant area"));
        actionEdit_random_generator_seeds->setText(
            QCoreApplication::translate("MainWindow", "Edit random generator seeds"));
        actionCompute_more_simulation_steps_per_one_rendered_frame->setText(
            QCoreApplication::translate("MainWindow",
                                        "Compute &more simulation steps per one rendered frame"));
        actionCompute_less_simulation_steps_per_one_rendered_frame->setText(
            QCoreApplication::translate("MainWindow",
                                        "Compute &less simulation steps per one rendered frame"));
        actionUsage->setText(QCoreApplication::translate("MainWindow", "Usage"));
        actionAbout->setText(QCoreApplication::translate("MainWindow", "&About"));
        menu_File->setTitle(QCoreApplication::translate("MainWindow", "&File"));
        menu_Edit->setTitle(QCoreApplication::translate("MainWindow", "&Edit"));
        menu_View->setTitle(QCoreApplication::translate("MainWindow", "&View"));
        menu_Navigation->setTitle(QCoreApplication::translate("MainWindow", "&Navigation"));
        menuMove_faster->setTitle(QCoreApplication::translate("MainWindow", "Move faster"));
        menuMove_slower->setTitle(QCoreApplication::translate("MainWindow", "Move slower"));
        menuTree_animation->setTitle(QCoreApplication::translate("MainWindow", "Tree &animation"));
        menu_Ecosystem_simulation->setTitle(
            QCoreApplication::translate("MainWindow", "&Ecosystem simulation"));
        menu_Help->setTitle(QCoreApplication::translate("MainWindow", "&Help"));
        toolBar->setWindowTitle(QCoreApplication::translate("MainWindow", "Tree tools"));
        toolBar_2->setWindowTitle(QCoreApplication::translate("MainWindow", "Ecosystem tools"));
    }

    void retranslateNavigation() {
        action_Navigation_panel->setText(
            QCoreApplication::translate("MainWindow", "&Navigation panel"));
        actionSwitch_to_next_predefined_camera->setText(QCoreApplication::translate(
            "MainWindow", "Switch to next predefined camera (ecosystem mode)"));
        actionSave_camera_as_predefined->setText(
            QCoreApplication::translate("MainWindow", "Save camera as predefined"));
        actionReset_camera_view->setText(
            QCoreApplication::translate("MainWindow", "Reset camera position and rotation"));
        actionKeep_camera_position_above_terrain_surface_ecosystem_mode->setText(
            QCoreApplication::translate(
                "MainWindow", "Keep camera position above terrain surface (ecosystem mode)"));
        actionForce_camera_position_at_terrain_surface_ecosystem_mode->setText(
            QCoreApplication::translate(
                "MainWindow", "Force camera position at terrain surface (ecosystem mode)"));
        actionMove_up->setText(QCoreApplication::translate("MainWindow", "Move up"));
        actionMove_down->setText(QCoreApplication::translate("MainWindow", "Move down"));
        actionMove_left->setText(QCoreApplication::translate("MainWindow", "Move left"));
        actionMove_right->setText(QCoreApplication::translate("MainWindow", "Move right"));
        actionMove_forward->setText(QCoreApplication::translate("MainWindow", "Move forward"));
        actionMove_backward->setText(QCoreApplication::translate("MainWindow", "Move backward"));
        actionRotate_left->setText(QCoreApplication::translate("MainWindow", "Rotate left"));
        actionRotate_right->setText(QCoreApplication::translate("MainWindow", "Rotate right"));
        actionRotate_up->setText(QCoreApplication::translate("MainWindow", "Rotate up"));
        actionRotate_down->setText(QCoreApplication::translate("MainWindow", "Rotate down"));
        actionRotate_in->setText(QCoreApplication::translate("MainWindow", "Rotate in"));
        actionRotate_out->setText(QCoreApplication::translate("MainWindow", "Rotate out"));
        actionMove_up_more->setText(QCoreApplication::translate("MainWindow", "Move up more"));
        actionMove_down_more->setText(QCoreApplication::translate("MainWindow", "Move down more"));
        actionMove_left_more->setText(QCoreApplication::translate("MainWindow", "Move left more"));
        actionMove_right_more->setText(
            QCoreApplication::translate("MainWindow", "Move right more"));
        actionMove_forward_more->setText(
            QCoreApplication::translate("MainWindow", "Move forward more"));
        actionMove_backward_more->setText(
            QCoreApplication::translate("MainWindow", "Move backward more"));
        actionMove_up_less->setText(QCoreApplication::translate("MainWindow", "Move up less"));
        actionMove_down_less->setText(QCoreApplication::translate("MainWindow", "Move down less"));
        actionMove_left_less->setText(QCoreApplication::translate("MainWindow", "Move left less"));
        actionMove_right_less->setText(
            QCoreApplication::translate("MainWindow", "Move right less"));
        actionMove_forward_less->setText(
            QCoreApplication::translate("MainWindow", "Move forward less"));
        actionMove_backward_less->setText(
            QCoreApplication::translate("MainWindow", "Move backward less"));
    }

private:
    // Shortcuts with a bare key stay active while a view has the focus.
    static QAction* makeAction(QMainWindow* w, const char* name, const char* shortcut,
                               const char* icon = nullptr, bool checkable = false,
                               bool checked = false) {
        auto* a = new QAction(w);
        a->setObjectName(name);
        a->setShortcut(QKeySequence(QString::fromLatin1(shortcut)));
        a->setShortcutContext(Qt::WindowShortcut);
        if (icon)
            a->setIcon(QIcon(QString(":/gui/icons/icons/") + icon));
        a->setCheckable(checkable);
        a->setChecked(checked);
        w->addAction(a);
        return a;
    }

    void createActions(QMainWindow* w) {
        actionQuit = makeAction(w, "actionQuit", "Ctrl+Q");
        actionSelect_next_tree_parameters_tree_edit_mode =
            makeAction(w, "actionSelect_next_tree_parameters_tree_edit_mode", "Ctrl+Space");
        actionEnlarge_leave_size = makeAction(w, "actionEnlarge_leave_size", "Q");
        actionReduce_leave_size = makeAction(w, "actionReduce_leave_size", "A");
        actionShow_ecosystem =
            makeAction(w, "actionShow_ecosystem", "Space", "ecosystem.png", true, true);
        actionAdd_view = makeAction(w, "actionAdd_view", "Shift+Esc");
        createNavigationActions(w);
        actionGrow_tree = makeAction(w, "actionGrow_tree", "R", "grow.png", true, false);
        actionSpin_tree = makeAction(w, "actionSpin_tree", "O", nullptr, true, false);
        actionSway_tree_in_wind =
            makeAction(w, "actionSway_tree_in_wind", "Y", "wind.png", true, false);
        actionRun_simulation = makeAction(w, "actionRun_simulation", "F5", "play.png", true, false);
        actionLoad_simulation =
            makeAction(w, "actionLoad_simulation", "Ctrl+Alt+Shift+L", "fileopenecosystem.png");
        actionSave_simulation =
            makeAction(w, "actionSave_simulation", "Ctrl+Alt+Shift+S", "filesaveecosystem.png");
        actionAutosave_simulation =
            makeAction(w, "actionAutosave_simulation", "Ctrl+Alt+V", nullptr, true, false);
        actionSet_plant_area = makeAction(w, "actionSet_plant_area", "Ctrl+Alt+A", "area.png");
        actionEdit_random_generator_seeds =
            makeAction(w, "actionEdit_random_generator_seeds", "Ctrl+Alt+R");
        actionCompute_more_simulation_steps_per_one_rendered_frame =
            makeAction(w, "actionCompute_more_simulation_steps_per_one_rendered_frame", "+");
        actionCompute_less_simulation_steps_per_one_rendered_frame =
            makeAction(w, "actionCompute_less_simulation_steps_per_one_rendered_frame", "-");
        actionUsage = makeAction(w, "actionUsage", "Shift+F1");
        actionAbout = makeAction(w, "actionAbout", "F1");
    }

    void createNavigationActions(QMainWindow* w) {
        action_Navigation_panel =
            makeAction(w, "action_Navigation_panel", "Ctrl+Alt+N", "navigate.png");
        actionSwitch_to_next_predefined_camera =
            makeAction(w, "actionSwitch_to_next_predefined_camera", "Ctrl+0");
        actionSave_camera_as_predefined =
            makeAction(w, "actionSave_camera_as_predefined", "Ctrl+Shift+0");
        actionReset_camera_view = makeAction(w, "actionReset_camera_view", "Esc");
        actionKeep_camera_position_above_terrain_surface_ecosystem_mode =
            makeAction(w, "actionKeep_camera_position_above_terrain_surface_ecosystem_mode",
                       "Ctrl+8", nullptr, true, true);
        actionForce_camera_position_at_terrain_surface_ecosystem_mode =
            makeAction(w, "actionForce_camera_position_at_terrain_surface_ecosystem_mode", "Ctrl+9",
                       nullptr, true, false);
        actionMove_up = makeAction(w, "actionMove_up", ",");
        actionMove_down = makeAction(w, "actionMove_down", ".");
        actionMove_left = makeAction(w, "actionMove_left", "Del");
        actionMove_right = makeAction(w, "actionMove_right", "PgDown");
        actionMove_forward = makeAction(w, "actionMove_forward", "Up");
        actionMove_backward = makeAction(w, "actionMove_backward", "Down");
        actionRotate_left = makeAction(w, "actionRotate_left", "Left");
        actionRotate_right = makeAction(w, "actionRotate_right", "Right");
        actionRotate_up = makeAction(w, "actionRotate_up", "Home");
        actionRotate_down = makeAction(w, "actionRotate_down", "End");
        actionRotate_in = makeAction(w, "actionRotate_in", "Ins");
        actionRotate_out = makeAction(w, "actionRotate_out", "PgUp");
        actionMove_up_more = makeAction(w, "actionMove_up_more", "Ctrl+,");
        actionMove_down_more = makeAction(w, "actionMove_down_more", "Ctrl+.");
        actionMove_left_more = makeAction(w, "actionMove_left_more", "Ctrl+Del");
        actionMove_right_more = makeAction(w, "actionMove_right_more", "Ctrl+PgDown");
        actionMove_forward_more = makeAction(w, "actionMove_forward_more", "Ctrl+Up");
        actionMove_backward_more = makeAction(w, "actionMove_backward_more", "Ctrl+Down");
        actionMove_up_less = makeAction(w, "actionMove_up_less", "Alt+,");
        actionMove_down_less = makeAction(w, "actionMove_down_less", "Alt+.");
        actionMove_left_less = makeAction(w, "actionMove_left_less", "Alt+Del");
        actionMove_right_less = makeAction(w, "actionMove_right_less", "Alt+PgDown");
        actionMove_forward_less = makeAction(w, "actionMove_forward_less", "Alt+Up");
        actionMove_backward_less = makeAction(w, "actionMove_backward_less", "Alt+Down");
    }

    void createCentralWidget(QMainWindow* w) {
        centralwidget = new QWidget(w);
        centralwidget->setObjectName("centralwidget");
        vboxLayout = new QVBoxLayout(centralwidget);
        vboxLayout->setSpacing(0);
        vboxLayout->setContentsMargins(0, 0, 0, 0);
        dockWidget = new QDockWidget(centralwidget);
        dockWidget->setObjectName("dockWidget");
        dockWidgetContents = new QWidget(dockWidget);
        dockWidgetContents->setObjectName("dockWidgetContents");
        hboxLayout = new QHBoxLayout(dockWidgetContents);
        hboxLayout->setSpacing(6);
        hboxLayout->setContentsMargins(9, 9, 9, 9);
        dockWidget->setWidget(dockWidgetContents);
        vboxLayout->addWidget(dockWidget);
        w->setCentralWidget(centralwidget);
    }

    void createMenus(QMainWindow* w) {
        menubar = new QMenuBar(w);
        menubar->setObjectName("menubar");
        menu_File = menubar->addMenu(QString());
        menu_Edit = menubar->addMenu(QString());
        menu_View = menubar->addMenu(QString());
        menu_Navigation = menubar->addMenu(QString());
        menuTree_animation = menubar->addMenu(QString());
        menu_Ecosystem_simulation = menubar->addMenu(QString());
        menu_Help = menubar->addMenu(QString());
        fillFileMenu();
        fillEditMenu();
        fillViewMenu();
        fillNavigationMenu();
        fillTreeAnimationMenu();
        fillEcosystemSimulationMenu();
        fillHelpMenu();
        w->setMenuBar(menubar);
        statusbar = new QStatusBar(w);
        statusbar->setObjectName("statusbar");
        w->setStatusBar(statusbar);
    }

    void fillFileMenu() { menu_File->addAction(actionQuit); }
    void fillEditMenu() {
        menu_Edit->addAction(actionSelect_next_tree_parameters_tree_edit_mode);
        menu_Edit->addSeparator();
        menu_Edit->addAction(actionEnlarge_leave_size);
        menu_Edit->addAction(actionReduce_leave_size);
    }
    void fillViewMenu() {
        menu_View->addAction(actionShow_ecosystem);
        menu_View->addAction(actionAdd_view);
    }
    void fillNavigationMenu() {
        menu_Navigation->addSeparator();
        menu_Navigation->addAction(action_Navigation_panel);
        menu_Navigation->addAction(actionSwitch_to_next_predefined_camera);
        menu_Navigation->addAction(actionSave_camera_as_predefined);
        menu_Navigation->addAction(actionReset_camera_view);
        menu_Navigation->addAction(actionKeep_camera_position_above_terrain_surface_ecosystem_mode);
        menu_Navigation->addAction(actionForce_camera_position_at_terrain_surface_ecosystem_mode);
        menu_Navigation->addSeparator();
        menu_Navigation->addActions({actionMove_up, actionMove_down, actionMove_left,
                                     actionMove_right, actionMove_forward, actionMove_backward,
                                     actionRotate_left, actionRotate_right, actionRotate_up,
                                     actionRotate_down, actionRotate_in, actionRotate_out});
        menu_Navigation->addSeparator();
        menuMove_faster = menu_Navigation->addMenu(QString());
        menuMove_faster->addActions({actionMove_up_more, actionMove_down_more, actionMove_left_more,
                                     actionMove_right_more, actionMove_forward_more,
                                     actionMove_backward_more});
        menuMove_slower = menu_Navigation->addMenu(QString());
        menuMove_slower->addActions({actionMove_up_less, actionMove_down_less, actionMove_left_less,
                                     actionMove_right_less, actionMove_forward_less,
                                     actionMove_backward_less});
    }
    void fillTreeAnimationMenu() {
        menuTree_animation->addActions({actionGrow_tree, actionSpin_tree, actionSway_tree_in_wind});
    }
    void fillEcosystemSimulationMenu() {
        menu_Ecosystem_simulation->addActions(
            {actionRun_simulation, actionLoad_simulation, actionSave_simulation,
             actionAutosave_simulation, actionSet_plant_area, actionEdit_random_generator_seeds,
             actionCompute_more_simulation_steps_per_one_rendered_frame,
             actionCompute_less_simulation_steps_per_one_rendered_frame});
    }
    void fillHelpMenu() {
        menu_Help->addAction(actionUsage);
        menu_Help->addSeparator();
        menu_Help->addAction(actionAbout);
    }

    void createToolBars(QMainWindow* w) {
        toolBar = new QToolBar(w);
        toolBar->setObjectName("toolBar");
        toolBar->setOrientation(Qt::Vertical);
        toolBar->addActions({actionGrow_tree, actionSway_tree_in_wind});
        w->addToolBar(Qt::LeftToolBarArea, toolBar);
        toolBar_2 = new QToolBar(w);
        toolBar_2->setObjectName("toolBar_2");
        toolBar_2->addActions({actionShow_ecosystem, action_Navigation_panel, actionSet_plant_area,
                               actionLoad_simulation, actionSave_simulation, actionRun_simulation});
        w->addToolBar(Qt::TopToolBarArea, toolBar_2);
    }
};

namespace Ui {
class MainWindow : public Ui_MainWindow {};
} // namespace Ui
