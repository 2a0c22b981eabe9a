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

#include <initializer_list>
#include <vector>

// The main window's form: actions, menus, tool bars, the dock that holds the
// first view, and their texts. Written by hand in the shape of a generated form;
// every action is one row of actionRows(), every menu and tool bar a list of
// those actions.
class Ui_MainWindow {
public:
    // "&File"
    QAction* actionLoad_parameters;
    QAction* actionSave_parameters;
    QAction* actionImport_tree_2_x_parameters;
    QAction* actionExport_current_tree_geometry_as_vertices;
    QAction* actionExport_current_tree_as_OBJ;
    QAction* actionExport_current_tree_as_Latex_formulas;
    QAction* actionLoad_DEM_terrain_model;
    QAction* actionSet_sky_textures;
    QAction* actionExport_window_image;
    QAction* actionExport_custom_resolution_image;
    QAction* actionAnimation_rendering_mode_Sequence_export;
    QAction* actionQuit;
    // "&Edit"
    QAction* actionSelect_next_tree_parameters_tree_edit_mode;
    QAction* actionEnlarge_leave_size;
    QAction* actionReduce_leave_size;
    QAction* actionLoad_bark_texture;
    QAction* actionLoadleaf_texture;
    QAction* actionDesign_strand_distribution;
    QAction* actionDesign_branching_angles;
    QAction* actionDesign_branch_absolute_minimal_length;
    QAction* actionDesign_branch_absolute_maximal_length;
    QAction* actionDesign_branch_lenght_scaling;
    QAction* actionDesign_gravimorphism_impact_distribution;
    QAction* actionAdvanced_tree_properties;
    QAction* actionUndo_design_edit;
    QAction* actionRedo_design_edit;
    // "&View"
    QAction* actionShow_ecosystem;
    QAction* actionAdd_view;
    QAction* actionShow_frame_rate;
    QAction* actionLighting_enabled;
    QAction* actionDisplay_background_sky;
    QAction* actionRender_wireframe;
    QAction* actionDisplay_leaves;
    QAction* actionColour_uppon;
    QAction* actionHigh_quality_rendering_more_polygons;
    QAction* actionDo_not_draw_trees_ecosystem_mode;
    QAction* actionDo_not_refresh_display_only_run_simulation_ecosystem_mode;
    QAction* actionFast_distant_trees;
    QAction* actionShow_ecologic_neighborhood_ecosystem_mode;
    QAction* actionDisplay_terrain_land_markings_S_N_E_W;
    QAction* actionDisplay_terrain_normals;
    QAction* actionDisplay_terrain_inclination;
    QAction* actionDisplay_terrain_moisture;
    QAction* actionDisplay_terrain_sunniness;
    QAction* actionDisplay_terrain_windiness;
    QAction* actionDisplay_sun;
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
    QAction* actionShow_statistics;
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

    using Member = QAction* Ui_MainWindow::*;

    // One action: its field, object name, text (translated in the "MainWindow"
    // context), shortcut, icon file under :/gui/icons/icons/, and check state.
    struct ActionRow {
        Member action;
        const char* name;
        const char* text;
        const char* shortcut;
        const char* icon = nullptr;
        bool checkable = false;
        bool checked = false;
    };

    static const std::vector<ActionRow>& actionRows() {
        using U = Ui_MainWindow;
        static const std::vector<ActionRow> rows = {
            // "&File"
            {&U::actionLoad_parameters, "actionLoad_parameters",
             QT_TRANSLATE_NOOP("MainWindow", "L&oad tree parameters"), "Ctrl+O", "fileopen.png"},
            {&U::actionSave_parameters, "actionSave_parameters",
             QT_TRANSLATE_NOOP("MainWindow", "&Save tree parameters"), "Ctrl+S", "filesave.png"},
            {&U::actionImport_tree_2_x_parameters, "actionImport_tree_2_x_parameters",
             QT_TRANSLATE_NOOP("MainWindow", "&Import tree 2.x parameters"), "Ctrl+I"},
            {&U::actionExport_current_tree_geometry_as_vertices,
             "actionExport_current_tree_geometry_as_vertices",
             QT_TRANSLATE_NOOP("MainWindow", "Export current tree geometry as &vertices"),
             "Ctrl+V"},
            // Not in the original menu: a mesh any 3-D package opens.
            {&U::actionExport_current_tree_as_OBJ, "actionExport_current_tree_as_OBJ",
             QT_TRANSLATE_NOOP("MainWindow", "Export current tree as OB&J…"), "Ctrl+Shift+E"},
            {&U::actionExport_current_tree_as_Latex_formulas,
             "actionExport_current_tree_as_Latex_formulas",
             QT_TRANSLATE_NOOP("MainWindow", "Export current tree as Latex formulas"), "Ctrl+T"},
            {&U::actionLoad_DEM_terrain_model, "actionLoad_DEM_terrain_model",
             QT_TRANSLATE_NOOP("MainWindow", "Load DEM terrain model"), "Ctrl+Alt+D"},
            {&U::actionSet_sky_textures, "actionSet_sky_textures",
             QT_TRANSLATE_NOOP("MainWindow", "Set sky textures"), "Ctrl+Alt+T"},
            {&U::actionExport_window_image, "actionExport_window_image",
             QT_TRANSLATE_NOOP("MainWindow", "Export &window image"), "Ctrl+W"},
            {&U::actionExport_custom_resolution_image, "actionExport_custom_resolution_image",
             QT_TRANSLATE_NOOP("MainWindow", "&Export custom resolution image"), "Ctrl+E"},
            {&U::actionAnimation_rendering_mode_Sequence_export,
             "actionAnimation_rendering_mode_Sequence_export",
             QT_TRANSLATE_NOOP("MainWindow", "Ani&mation rendering mode (sequence export)"),
             "Ctrl+Alt+M", nullptr, true, false},
            {&U::actionQuit, "actionQuit", QT_TRANSLATE_NOOP("MainWindow", "&Quit"), "Ctrl+Q"},
            // "&Edit"
            {&U::actionSelect_next_tree_parameters_tree_edit_mode,
             "actionSelect_next_tree_parameters_tree_edit_mode",
             QT_TRANSLATE_NOOP("MainWindow", "Select &next tree parameters (tree edit mode)"),
             "Ctrl+Space"},
            {&U::actionEnlarge_leave_size, "actionEnlarge_leave_size",
             QT_TRANSLATE_NOOP("MainWindow", "&Enlarge leave size"), "Q"},
            {&U::actionReduce_leave_size, "actionReduce_leave_size",
             QT_TRANSLATE_NOOP("MainWindow", "&Reduce leave size"), "A"},
            {&U::actionLoad_bark_texture, "actionLoad_bark_texture",
             QT_TRANSLATE_NOOP("MainWindow", "Load &bark texture"), "Ctrl+Alt+B"},
            {&U::actionLoadleaf_texture, "actionLoadleaf_texture",
             QT_TRANSLATE_NOOP("MainWindow", "Load lea&f texture"), "Ctrl+Alt+L"},
            {&U::actionDesign_strand_distribution, "actionDesign_strand_distribution",
             QT_TRANSLATE_NOOP("MainWindow", "Design &strand distribution"), "Ctrl+D",
             "strands.png"},
            {&U::actionDesign_branching_angles, "actionDesign_branching_angles",
             QT_TRANSLATE_NOOP("MainWindow", "Design &branching angles"), "Ctrl+B", "angles.png"},
            {&U::actionDesign_branch_absolute_minimal_length,
             "actionDesign_branch_absolute_minimal_length",
             QT_TRANSLATE_NOOP("MainWindow", "Design branch absolute minimal &length"), "Ctrl+L"},
            {&U::actionDesign_branch_absolute_maximal_length,
             "actionDesign_branch_absolute_maximal_length",
             QT_TRANSLATE_NOOP("MainWindow", "Design branch absolute maximal length"),
             "Ctrl+Shift+L"},
            {&U::actionDesign_branch_lenght_scaling, "actionDesign_branch_lenght_scaling",
             QT_TRANSLATE_NOOP("MainWindow", "Design branch lenght s&caling"), "Ctrl+C",
             "scaling.png"},
            {&U::actionDesign_gravimorphism_impact_distribution,
             "actionDesign_gravimorphism_impact_distribution",
             QT_TRANSLATE_NOOP("MainWindow", "Design &gravimorphism impact distribution"), "Ctrl+G",
             "gravimorphism.png"},
            {&U::actionAdvanced_tree_properties, "actionAdvanced_tree_properties",
             QT_TRANSLATE_NOOP("MainWindow", "&Advanced tree &properties"), "Ctrl+A",
             "treescalars.png"},
            // Not in the original menu: undo and redo across a tree's design edits.
            {&U::actionUndo_design_edit, "actionUndo_design_edit",
             QT_TRANSLATE_NOOP("MainWindow", "&Undo design edit"), "Ctrl+Z"},
            {&U::actionRedo_design_edit, "actionRedo_design_edit",
             QT_TRANSLATE_NOOP("MainWindow", "Re&do design edit"), "Ctrl+Shift+Z"},
            // "&View"
            {&U::actionShow_ecosystem, "actionShow_ecosystem",
             QT_TRANSLATE_NOOP("MainWindow", "Show &ecosystem"), "Space", "ecosystem.png", true,
             true},
            {&U::actionAdd_view, "actionAdd_view", QT_TRANSLATE_NOOP("MainWindow", "&Add view"),
             "Shift+Esc"},
            {&U::actionShow_frame_rate, "actionShow_frame_rate",
             QT_TRANSLATE_NOOP("MainWindow", "Show frame &rate"), "Ctrl+F", nullptr, true, true},
            {&U::actionLighting_enabled, "actionLighting_enabled",
             QT_TRANSLATE_NOOP("MainWindow", "&Lighting enabled"), "S", nullptr, true, true},
            {&U::actionDisplay_background_sky, "actionDisplay_background_sky",
             QT_TRANSLATE_NOOP("MainWindow", "Display &background sky"), "Ctrl+K", nullptr, true,
             true},
            {&U::actionRender_wireframe, "actionRender_wireframe",
             QT_TRANSLATE_NOOP("MainWindow", "Render &wireframe"), "W", nullptr, true, false},
            {&U::actionDisplay_leaves, "actionDisplay_leaves",
             QT_TRANSLATE_NOOP("MainWindow", "Display lea&ves"), "L", nullptr, true, true},
            {&U::actionColour_uppon, "actionColour_uppon",
             QT_TRANSLATE_NOOP("MainWindow", "Colour &uppon tree branches"), "C", nullptr, true,
             false},
            // The trees draw in normal quality at start, so the tick starts off: a
            // tick that disagreed with the drawing would mislead.
            {&U::actionHigh_quality_rendering_more_polygons,
             "actionHigh_quality_rendering_more_polygons",
             QT_TRANSLATE_NOOP("MainWindow", "&High quality tree rendering (more polygons)"),
             "Ctrl+H", nullptr, true, false},
            {&U::actionDo_not_draw_trees_ecosystem_mode, "actionDo_not_draw_trees_ecosystem_mode",
             QT_TRANSLATE_NOOP("MainWindow", "Do not draw &trees (ecosystem mode)"), "Ctrl+R",
             nullptr, true, false},
            {&U::actionDo_not_refresh_display_only_run_simulation_ecosystem_mode,
             "actionDo_not_refresh_display_only_run_simulation_ecosystem_mode",
             QT_TRANSLATE_NOOP("MainWindow",
                               "Do not refresh &display, only run simulation (ecosystem mode)"),
             "Ctrl+Shift+R", nullptr, true, false},
            // Not in the original menu: far plants as impostors.
            {&U::actionFast_distant_trees, "actionFast_distant_trees",
             QT_TRANSLATE_NOOP("MainWindow", "Fast distant trees"), "Ctrl+Shift+F", nullptr, true,
             false},
            {&U::actionShow_ecologic_neighborhood_ecosystem_mode,
             "actionShow_ecologic_neighborhood_ecosystem_mode",
             QT_TRANSLATE_NOOP("MainWindow", "Show ecologic neighb&orhood (ecosystem mode)"),
             "Ctrl+N", nullptr, true, false},
            {&U::actionDisplay_terrain_land_markings_S_N_E_W,
             "actionDisplay_terrain_land_markings_S_N_E_W",
             QT_TRANSLATE_NOOP("MainWindow",
                               "Display terrain l&and markings (South, North, East, West)"),
             "Ctrl+M", nullptr, true, false},
            {&U::actionDisplay_terrain_normals, "actionDisplay_terrain_normals",
             QT_TRANSLATE_NOOP("MainWindow", "Display terrain &normals"), "Ctrl+1", nullptr, true,
             false},
            {&U::actionDisplay_terrain_inclination, "actionDisplay_terrain_inclination",
             QT_TRANSLATE_NOOP("MainWindow", "Display terrain &inclination"), "Ctrl+2", nullptr,
             true, false},
            {&U::actionDisplay_terrain_moisture, "actionDisplay_terrain_moisture",
             QT_TRANSLATE_NOOP("MainWindow", "Display terrain &moisture"), "Ctrl+3",
             "moistureness.png", true, false},
            {&U::actionDisplay_terrain_sunniness, "actionDisplay_terrain_sunniness",
             QT_TRANSLATE_NOOP("MainWindow", "Display terrain &sunniness"), "Ctrl+4",
             "sunniness.png", true, false},
            {&U::actionDisplay_terrain_windiness, "actionDisplay_terrain_windiness",
             QT_TRANSLATE_NOOP("MainWindow", "Display terrain &windiness"), "Ctrl+5",
             "windiness.png", true, false},
            {&U::actionDisplay_sun, "actionDisplay_sun",
             QT_TRANSLATE_NOOP("MainWindow", "Display sun"), "Ctrl+Shift+S", nullptr, true, false},
            // "&Navigation"
            {&U::action_Navigation_panel, "action_Navigation_panel",
             QT_TRANSLATE_NOOP("MainWindow", "&Navigation panel"), "Ctrl+Alt+N", "navigate.png"},
            {&U::actionSwitch_to_next_predefined_camera, "actionSwitch_to_next_predefined_camera",
             QT_TRANSLATE_NOOP("MainWindow", "Switch to next predefined camera (ecosystem mode)"),
             "Ctrl+0"},
            {&U::actionSave_camera_as_predefined, "actionSave_camera_as_predefined",
             QT_TRANSLATE_NOOP("MainWindow", "Save camera as predefined"), "Ctrl+Shift+0"},
            {&U::actionReset_camera_view, "actionReset_camera_view",
             QT_TRANSLATE_NOOP("MainWindow", "Reset camera position and rotation"), "Esc"},
            {&U::actionKeep_camera_position_above_terrain_surface_ecosystem_mode,
             "actionKeep_camera_position_above_terrain_surface_ecosystem_mode",
             QT_TRANSLATE_NOOP("MainWindow",
                               "Keep camera position above terrain surface (ecosystem mode)"),
             "Ctrl+8", nullptr, true, true},
            {&U::actionForce_camera_position_at_terrain_surface_ecosystem_mode,
             "actionForce_camera_position_at_terrain_surface_ecosystem_mode",
             QT_TRANSLATE_NOOP("MainWindow",
                               "Force camera position at terrain surface (ecosystem mode)"),
             "Ctrl+9", nullptr, true, false},
            {&U::actionMove_up, "actionMove_up", QT_TRANSLATE_NOOP("MainWindow", "Move up"), ","},
            {&U::actionMove_down, "actionMove_down", QT_TRANSLATE_NOOP("MainWindow", "Move down"),
             "."},
            {&U::actionMove_left, "actionMove_left", QT_TRANSLATE_NOOP("MainWindow", "Move left"),
             "Del"},
            {&U::actionMove_right, "actionMove_right",
             QT_TRANSLATE_NOOP("MainWindow", "Move right"), "PgDown"},
            {&U::actionMove_forward, "actionMove_forward",
             QT_TRANSLATE_NOOP("MainWindow", "Move forward"), "Up"},
            {&U::actionMove_backward, "actionMove_backward",
             QT_TRANSLATE_NOOP("MainWindow", "Move backward"), "Down"},
            {&U::actionRotate_left, "actionRotate_left",
             QT_TRANSLATE_NOOP("MainWindow", "Rotate left"), "Left"},
            {&U::actionRotate_right, "actionRotate_right",
             QT_TRANSLATE_NOOP("MainWindow", "Rotate right"), "Right"},
            {&U::actionRotate_up, "actionRotate_up", QT_TRANSLATE_NOOP("MainWindow", "Rotate up"),
             "Home"},
            {&U::actionRotate_down, "actionRotate_down",
             QT_TRANSLATE_NOOP("MainWindow", "Rotate down"), "End"},
            {&U::actionRotate_in, "actionRotate_in", QT_TRANSLATE_NOOP("MainWindow", "Rotate in"),
             "Ins"},
            {&U::actionRotate_out, "actionRotate_out",
             QT_TRANSLATE_NOOP("MainWindow", "Rotate out"), "PgUp"},
            {&U::actionMove_up_more, "actionMove_up_more",
             QT_TRANSLATE_NOOP("MainWindow", "Move up more"), "Ctrl+,"},
            {&U::actionMove_down_more, "actionMove_down_more",
             QT_TRANSLATE_NOOP("MainWindow", "Move down more"), "Ctrl+."},
            {&U::actionMove_left_more, "actionMove_left_more",
             QT_TRANSLATE_NOOP("MainWindow", "Move left more"), "Ctrl+Del"},
            {&U::actionMove_right_more, "actionMove_right_more",
             QT_TRANSLATE_NOOP("MainWindow", "Move right more"), "Ctrl+PgDown"},
            {&U::actionMove_forward_more, "actionMove_forward_more",
             QT_TRANSLATE_NOOP("MainWindow", "Move forward more"), "Ctrl+Up"},
            {&U::actionMove_backward_more, "actionMove_backward_more",
             QT_TRANSLATE_NOOP("MainWindow", "Move backward more"), "Ctrl+Down"},
            {&U::actionMove_up_less, "actionMove_up_less",
             QT_TRANSLATE_NOOP("MainWindow", "Move up less"), "Alt+,"},
            {&U::actionMove_down_less, "actionMove_down_less",
             QT_TRANSLATE_NOOP("MainWindow", "Move down less"), "Alt+."},
            {&U::actionMove_left_less, "actionMove_left_less",
             QT_TRANSLATE_NOOP("MainWindow", "Move left less"), "Alt+Del"},
            {&U::actionMove_right_less, "actionMove_right_less",
             QT_TRANSLATE_NOOP("MainWindow", "Move right less"), "Alt+PgDown"},
            {&U::actionMove_forward_less, "actionMove_forward_less",
             QT_TRANSLATE_NOOP("MainWindow", "Move forward less"), "Alt+Up"},
            {&U::actionMove_backward_less, "actionMove_backward_less",
             QT_TRANSLATE_NOOP("MainWindow", "Move backward less"), "Alt+Down"},
            // "Tree &animation"
            {&U::actionGrow_tree, "actionGrow_tree", QT_TRANSLATE_NOOP("MainWindow", "G&row tree"),
             "R", "grow.png", true, false},
            {&U::actionSpin_tree, "actionSpin_tree", QT_TRANSLATE_NOOP("MainWindow", "&Spin tree"),
             "O", nullptr, true, false},
            {&U::actionSway_tree_in_wind, "actionSway_tree_in_wind",
             QT_TRANSLATE_NOOP("MainWindow", "Sway tree in &wind"), "Y", "wind.png", true, false},
            // "&Ecosystem simulation"
            {&U::actionRun_simulation, "actionRun_simulation",
             QT_TRANSLATE_NOOP("MainWindow", "&Run simulation"), "F5", "play.png", true, false},
            {&U::actionLoad_simulation, "actionLoad_simulation",
             QT_TRANSLATE_NOOP("MainWindow", "Load simulation"), "Ctrl+Alt+Shift+L",
             "fileopenecosystem.png"},
            {&U::actionSave_simulation, "actionSave_simulation",
             QT_TRANSLATE_NOOP("MainWindow", "Save simulation"), "Ctrl+Alt+Shift+S",
             "filesaveecosystem.png"},
            {&U::actionAutosave_simulation, "actionAutosave_simulation",
             QT_TRANSLATE_NOOP("MainWindow", "Autosave simulation"), "Ctrl+Alt+V", nullptr, true,
             false},
            {&U::actionSet_plant_area, "actionSet_plant_area",
             QT_TRANSLATE_NOOP("MainWindow", "Set plant area"), "Ctrl+Alt+A", "area.png"},
            {&U::actionEdit_random_generator_seeds, "actionEdit_random_generator_seeds",
             QT_TRANSLATE_NOOP("MainWindow", "Edit random generator seeds"), "Ctrl+Alt+R"},
            {&U::actionCompute_more_simulation_steps_per_one_rendered_frame,
             "actionCompute_more_simulation_steps_per_one_rendered_frame",
             QT_TRANSLATE_NOOP("MainWindow",
                               "Compute &more simulation steps per one rendered frame"),
             "+"},
            {&U::actionCompute_less_simulation_steps_per_one_rendered_frame,
             "actionCompute_less_simulation_steps_per_one_rendered_frame",
             QT_TRANSLATE_NOOP("MainWindow",
                               "Compute &less simulation steps per one rendered frame"),
             "-"},
            {&U::actionShow_statistics, "actionShow_statistics",
             QT_TRANSLATE_NOOP("MainWindow", "Show &statistics"), "F6", "stats.png"},
            // "&Help"
            {&U::actionUsage, "actionUsage", QT_TRANSLATE_NOOP("MainWindow", "Usage"), "Shift+F1"},
            {&U::actionAbout, "actionAbout", QT_TRANSLATE_NOOP("MainWindow", "&About"), "F1"},
        };
        return rows;
    }

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
        const QSize hint = MainWindow->minimumSizeHint();
        if (hint.width() > MainWindow->width() || hint.height() > MainWindow->height())
            MainWindow->resize(MainWindow->size().expandedTo(hint));
    }

    void retranslateUi(QMainWindow* MainWindow) {
        MainWindow->setWindowTitle(QCoreApplication::translate("MainWindow", "Bosket"));
        for (const ActionRow& row : actionRows())
            (this->*row.action)->setText(QCoreApplication::translate("MainWindow", row.text));
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

private:
    using U = Ui_MainWindow;

    // Shortcuts with a bare key stay active while a view has the focus.
    void createActions(QMainWindow* w) {
        for (const ActionRow& row : actionRows()) {
            auto* a = new QAction(w);
            a->setObjectName(row.name);
            a->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
            a->setShortcutContext(Qt::WindowShortcut);
            if (row.icon)
                a->setIcon(QIcon(QString(":/gui/icons/icons/") + row.icon));
            a->setCheckable(row.checkable);
            a->setChecked(row.checked);
            w->addAction(a);
            this->*row.action = a;
        }
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

    // Adds the listed actions in order; a null entry is a separator.
    void fill(QWidget* menuOrBar, std::initializer_list<Member> entries) {
        for (Member entry : entries) {
            if (!entry) {
                auto* separator = new QAction(menuOrBar);
                separator->setSeparator(true);
                menuOrBar->addAction(separator);
            } else {
                menuOrBar->addAction(this->*entry);
            }
        }
    }

    QMenu* addMenu(QMenuBar* bar, const char* name) {
        QMenu* menu = bar->addMenu(QString());
        menu->setObjectName(name);
        return menu;
    }

    void createMenus(QMainWindow* w) {
        menubar = new QMenuBar(w);
        menubar->setObjectName("menubar");
        menu_File = addMenu(menubar, "menu_File");
        menu_Edit = addMenu(menubar, "menu_Edit");
        menu_View = addMenu(menubar, "menu_View");
        menu_Navigation = addMenu(menubar, "menu_Navigation");
        menuTree_animation = addMenu(menubar, "menuTree_animation");
        menu_Ecosystem_simulation = addMenu(menubar, "menu_Ecosystem_simulation");
        menu_Help = addMenu(menubar, "menu_Help");
        fillFileAndEditMenus();
        fillViewMenu();
        fillNavigationMenu();
        fill(menuTree_animation,
             {&U::actionGrow_tree, &U::actionSpin_tree, &U::actionSway_tree_in_wind});
        fill(menu_Ecosystem_simulation,
             {&U::actionRun_simulation, &U::actionLoad_simulation, &U::actionSave_simulation,
              &U::actionAutosave_simulation, &U::actionSet_plant_area,
              &U::actionEdit_random_generator_seeds,
              &U::actionCompute_more_simulation_steps_per_one_rendered_frame,
              &U::actionCompute_less_simulation_steps_per_one_rendered_frame, nullptr,
              &U::actionShow_statistics});
        fill(menu_Help, {&U::actionUsage, nullptr, &U::actionAbout});
        w->setMenuBar(menubar);
        statusbar = new QStatusBar(w);
        statusbar->setObjectName("statusbar");
        w->setStatusBar(statusbar);
    }

    void fillFileAndEditMenus() {
        fill(menu_File,
             {&U::actionLoad_parameters, &U::actionSave_parameters,
              &U::actionImport_tree_2_x_parameters,
              &U::actionExport_current_tree_geometry_as_vertices,
              &U::actionExport_current_tree_as_OBJ, &U::actionExport_current_tree_as_Latex_formulas,
              nullptr, &U::actionLoad_DEM_terrain_model, &U::actionSet_sky_textures, nullptr,
              &U::actionExport_window_image, &U::actionExport_custom_resolution_image,
              &U::actionAnimation_rendering_mode_Sequence_export, nullptr, &U::actionQuit});
        fill(menu_Edit, {&U::actionSelect_next_tree_parameters_tree_edit_mode, nullptr,
                         &U::actionEnlarge_leave_size, &U::actionReduce_leave_size,
                         &U::actionLoad_bark_texture, &U::actionLoadleaf_texture, nullptr,
                         &U::actionDesign_strand_distribution, &U::actionDesign_branching_angles,
                         &U::actionDesign_branch_absolute_minimal_length,
                         &U::actionDesign_branch_absolute_maximal_length,
                         &U::actionDesign_branch_lenght_scaling,
                         &U::actionDesign_gravimorphism_impact_distribution, nullptr,
                         &U::actionAdvanced_tree_properties, nullptr, &U::actionUndo_design_edit,
                         &U::actionRedo_design_edit});
    }

    void fillViewMenu() {
        fill(menu_View, {&U::actionShow_ecosystem,
                         &U::actionAdd_view,
                         nullptr,
                         &U::actionShow_frame_rate,
                         &U::actionLighting_enabled,
                         &U::actionDisplay_background_sky,
                         &U::actionRender_wireframe,
                         nullptr,
                         &U::actionDisplay_leaves,
                         &U::actionColour_uppon,
                         &U::actionHigh_quality_rendering_more_polygons,
                         nullptr,
                         &U::actionDo_not_draw_trees_ecosystem_mode,
                         &U::actionDo_not_refresh_display_only_run_simulation_ecosystem_mode,
                         &U::actionFast_distant_trees,
                         nullptr,
                         &U::actionShow_ecologic_neighborhood_ecosystem_mode,
                         &U::actionDisplay_terrain_land_markings_S_N_E_W,
                         nullptr,
                         &U::actionDisplay_terrain_normals,
                         &U::actionDisplay_terrain_inclination,
                         &U::actionDisplay_terrain_moisture,
                         &U::actionDisplay_terrain_sunniness,
                         &U::actionDisplay_terrain_windiness,
                         &U::actionDisplay_sun});
    }

    void fillNavigationMenu() {
        fill(menu_Navigation, {nullptr,
                               &U::action_Navigation_panel,
                               &U::actionSwitch_to_next_predefined_camera,
                               &U::actionSave_camera_as_predefined,
                               &U::actionReset_camera_view,
                               &U::actionKeep_camera_position_above_terrain_surface_ecosystem_mode,
                               &U::actionForce_camera_position_at_terrain_surface_ecosystem_mode,
                               nullptr,
                               &U::actionMove_up,
                               &U::actionMove_down,
                               &U::actionMove_left,
                               &U::actionMove_right,
                               &U::actionMove_forward,
                               &U::actionMove_backward,
                               &U::actionRotate_left,
                               &U::actionRotate_right,
                               &U::actionRotate_up,
                               &U::actionRotate_down,
                               &U::actionRotate_in,
                               &U::actionRotate_out,
                               nullptr});
        menuMove_faster = menu_Navigation->addMenu(QString());
        menuMove_faster->setObjectName("menuMove_faster");
        fill(menuMove_faster, {&U::actionMove_up_more, &U::actionMove_down_more,
                               &U::actionMove_left_more, &U::actionMove_right_more,
                               &U::actionMove_forward_more, &U::actionMove_backward_more});
        menuMove_slower = menu_Navigation->addMenu(QString());
        menuMove_slower->setObjectName("menuMove_slower");
        fill(menuMove_slower, {&U::actionMove_up_less, &U::actionMove_down_less,
                               &U::actionMove_left_less, &U::actionMove_right_less,
                               &U::actionMove_forward_less, &U::actionMove_backward_less});
    }

    void createToolBars(QMainWindow* w) {
        toolBar = new QToolBar(w);
        toolBar->setObjectName("toolBar");
        toolBar->setOrientation(Qt::Vertical);
        fill(toolBar, {&U::actionLoad_parameters, &U::actionSave_parameters,
                       &U::actionDesign_strand_distribution, &U::actionDesign_branching_angles,
                       &U::actionDesign_branch_lenght_scaling,
                       &U::actionDesign_gravimorphism_impact_distribution,
                       &U::actionAdvanced_tree_properties, &U::actionGrow_tree,
                       &U::actionSway_tree_in_wind});
        w->addToolBar(Qt::LeftToolBarArea, toolBar);
        toolBar_2 = new QToolBar(w);
        toolBar_2->setObjectName("toolBar_2");
        fill(toolBar_2,
             {&U::actionShow_ecosystem, &U::actionDisplay_terrain_moisture,
              &U::actionDisplay_terrain_sunniness, &U::actionDisplay_terrain_windiness,
              &U::action_Navigation_panel, &U::actionSet_plant_area, &U::actionShow_statistics,
              &U::actionLoad_simulation, &U::actionSave_simulation, &U::actionRun_simulation});
        w->addToolBar(Qt::TopToolBarArea, toolBar_2);
    }
};

namespace Ui {
class MainWindow : public Ui_MainWindow {};
} // namespace Ui
