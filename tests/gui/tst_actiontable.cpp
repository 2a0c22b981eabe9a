#include "gui/glformat.h"
#include "gui/mainwindow.h"
#include "support/mainwindowfixture.h"

#include <QApplication>
#include <QMenuBar>
#include <QToolBar>
#include <QTranslator>
#include <QtTest>

// Every menu entry and tool-bar button against the action table: order,
// separators, submenus, object names, texts, shortcuts, icons and check states;
// and every action reaches a receiver once the scene is bound.
namespace {

// menu | object name | text | shortcut | icon | check state ("", "on", "off");
// "menu|-" is a separator, "menu|>title" a submenu. Beyond the original table:
// the OBJ export, undo and redo of design edits, and fast distant trees; and the
// high-quality switch starts off like the trees' own flag.
const char* const table = R"(
&File|actionLoad_parameters|L&oad tree parameters|Ctrl+O|fileopen.png|
&File|actionSave_parameters|&Save tree parameters|Ctrl+S|filesave.png|
&File|actionImport_tree_2_x_parameters|&Import tree 2.x parameters|Ctrl+I||
&File|actionExport_current_tree_geometry_as_vertices|Export current tree geometry as &vertices|Ctrl+V||
&File|actionExport_current_tree_as_OBJ|Export current tree as OB&J…|Ctrl+Shift+E||
&File|actionExport_current_tree_as_Latex_formulas|Export current tree as Latex formulas|Ctrl+T||
&File|-
&File|actionLoad_DEM_terrain_model|Load DEM terrain model|Ctrl+Alt+D||
&File|actionSet_sky_textures|Set sky textures|Ctrl+Alt+T||
&File|-
&File|actionExport_window_image|Export &window image|Ctrl+W||
&File|actionExport_custom_resolution_image|&Export custom resolution image|Ctrl+E||
&File|actionAnimation_rendering_mode_Sequence_export|Ani&mation rendering mode (sequence export)|Ctrl+Alt+M||off
&File|-
&File|actionQuit|&Quit|Ctrl+Q||
&Edit|actionSelect_next_tree_parameters_tree_edit_mode|Select &next tree parameters (tree edit mode)|Ctrl+Space||
&Edit|-
&Edit|actionEnlarge_leave_size|&Enlarge leave size|Q||
&Edit|actionReduce_leave_size|&Reduce leave size|A||
&Edit|actionLoad_bark_texture|Load &bark texture|Ctrl+Alt+B||
&Edit|actionLoadleaf_texture|Load lea&f texture|Ctrl+Alt+L||
&Edit|-
&Edit|actionDesign_strand_distribution|Design &strand distribution|Ctrl+D|strands.png|
&Edit|actionDesign_branching_angles|Design &branching angles|Ctrl+B|angles.png|
&Edit|actionDesign_branch_absolute_minimal_length|Design branch absolute minimal &length|Ctrl+L||
&Edit|actionDesign_branch_absolute_maximal_length|Design branch absolute maximal length|Ctrl+Shift+L||
&Edit|actionDesign_branch_lenght_scaling|Design branch lenght s&caling|Ctrl+C|scaling.png|
&Edit|actionDesign_gravimorphism_impact_distribution|Design &gravimorphism impact distribution|Ctrl+G|gravimorphism.png|
&Edit|-
&Edit|actionAdvanced_tree_properties|&Advanced tree &properties|Ctrl+A|treescalars.png|
&Edit|-
&Edit|actionUndo_design_edit|&Undo design edit|Ctrl+Z||
&Edit|actionRedo_design_edit|Re&do design edit|Ctrl+Shift+Z||
&View|actionShow_ecosystem|Show &ecosystem|Space|ecosystem.png|on
&View|actionAdd_view|&Add view|Shift+Esc||
&View|-
&View|actionShow_frame_rate|Show frame &rate|Ctrl+F||on
&View|actionLighting_enabled|&Lighting enabled|S||on
&View|actionDisplay_background_sky|Display &background sky|Ctrl+K||on
&View|actionRender_wireframe|Render &wireframe|W||off
&View|-
&View|actionDisplay_leaves|Display lea&ves|L||on
&View|actionColour_uppon|Colour &uppon tree branches|C||off
&View|actionHigh_quality_rendering_more_polygons|&High quality tree rendering (more polygons)|Ctrl+H||off
&View|-
&View|actionDo_not_draw_trees_ecosystem_mode|Do not draw &trees (ecosystem mode)|Ctrl+R||off
&View|actionDo_not_refresh_display_only_run_simulation_ecosystem_mode|Do not refresh &display, only run simulation (ecosystem mode)|Ctrl+Shift+R||off
&View|actionFast_distant_trees|Fast distant trees|Ctrl+Shift+F||off
&View|-
&View|actionShow_ecologic_neighborhood_ecosystem_mode|Show ecologic neighb&orhood (ecosystem mode)|Ctrl+N||off
&View|actionDisplay_terrain_land_markings_S_N_E_W|Display terrain l&and markings (South, North, East, West)|Ctrl+M||off
&View|-
&View|actionDisplay_terrain_normals|Display terrain &normals|Ctrl+1||off
&View|actionDisplay_terrain_inclination|Display terrain &inclination|Ctrl+2||off
&View|actionDisplay_terrain_moisture|Display terrain &moisture|Ctrl+3|moistureness.png|off
&View|actionDisplay_terrain_sunniness|Display terrain &sunniness|Ctrl+4|sunniness.png|off
&View|actionDisplay_terrain_windiness|Display terrain &windiness|Ctrl+5|windiness.png|off
&View|actionDisplay_sun|Display sun|Ctrl+Shift+S||off
&Navigation|-
&Navigation|action_Navigation_panel|&Navigation panel|Ctrl+Alt+N|navigate.png|
&Navigation|actionSwitch_to_next_predefined_camera|Switch to next predefined camera (ecosystem mode)|Ctrl+0||
&Navigation|actionSave_camera_as_predefined|Save camera as predefined|Ctrl+Shift+0||
&Navigation|actionReset_camera_view|Reset camera position and rotation|Esc||
&Navigation|actionKeep_camera_position_above_terrain_surface_ecosystem_mode|Keep camera position above terrain surface (ecosystem mode)|Ctrl+8||on
&Navigation|actionForce_camera_position_at_terrain_surface_ecosystem_mode|Force camera position at terrain surface (ecosystem mode)|Ctrl+9||off
&Navigation|-
&Navigation|actionMove_up|Move up|,||
&Navigation|actionMove_down|Move down|.||
&Navigation|actionMove_left|Move left|Del||
&Navigation|actionMove_right|Move right|PgDown||
&Navigation|actionMove_forward|Move forward|Up||
&Navigation|actionMove_backward|Move backward|Down||
&Navigation|actionRotate_left|Rotate left|Left||
&Navigation|actionRotate_right|Rotate right|Right||
&Navigation|actionRotate_up|Rotate up|Home||
&Navigation|actionRotate_down|Rotate down|End||
&Navigation|actionRotate_in|Rotate in|Ins||
&Navigation|actionRotate_out|Rotate out|PgUp||
&Navigation|-
&Navigation|>Move faster
&Navigation > Move faster|actionMove_up_more|Move up more|Ctrl+,||
&Navigation > Move faster|actionMove_down_more|Move down more|Ctrl+.||
&Navigation > Move faster|actionMove_left_more|Move left more|Ctrl+Del||
&Navigation > Move faster|actionMove_right_more|Move right more|Ctrl+PgDown||
&Navigation > Move faster|actionMove_forward_more|Move forward more|Ctrl+Up||
&Navigation > Move faster|actionMove_backward_more|Move backward more|Ctrl+Down||
&Navigation|>Move slower
&Navigation > Move slower|actionMove_up_less|Move up less|Alt+,||
&Navigation > Move slower|actionMove_down_less|Move down less|Alt+.||
&Navigation > Move slower|actionMove_left_less|Move left less|Alt+Del||
&Navigation > Move slower|actionMove_right_less|Move right less|Alt+PgDown||
&Navigation > Move slower|actionMove_forward_less|Move forward less|Alt+Up||
&Navigation > Move slower|actionMove_backward_less|Move backward less|Alt+Down||
Tree &animation|actionGrow_tree|G&row tree|R|grow.png|off
Tree &animation|actionSpin_tree|&Spin tree|O||off
Tree &animation|actionSway_tree_in_wind|Sway tree in &wind|Y|wind.png|off
&Ecosystem simulation|actionRun_simulation|&Run simulation|F5|play.png|off
&Ecosystem simulation|actionLoad_simulation|Load simulation|Ctrl+Alt+Shift+L|fileopenecosystem.png|
&Ecosystem simulation|actionSave_simulation|Save simulation|Ctrl+Alt+Shift+S|filesaveecosystem.png|
&Ecosystem simulation|actionAutosave_simulation|Autosave simulation|Ctrl+Alt+V||off
&Ecosystem simulation|actionSet_plant_area|Set plant area|Ctrl+Alt+A|area.png|
&Ecosystem simulation|actionEdit_random_generator_seeds|Edit random generator seeds|Ctrl+Alt+R||
&Ecosystem simulation|actionCompute_more_simulation_steps_per_one_rendered_frame|Compute &more simulation steps per one rendered frame|+||
&Ecosystem simulation|actionCompute_less_simulation_steps_per_one_rendered_frame|Compute &less simulation steps per one rendered frame|-||
&Ecosystem simulation|-
&Ecosystem simulation|actionShow_statistics|Show &statistics|F6|stats.png|
&Help|actionUsage|Usage|Shift+F1||
&Help|-
&Help|actionAbout|&About|F1||
)";

struct Row {
    QString menu, name, text, shortcut, icon, check;
};

QList<Row> rows() {
    QList<Row> out;
    for (const QString& line : QString::fromUtf8(table).split('\n', Qt::SkipEmptyParts)) {
        QStringList c = line.split('|');
        while (c.size() < 6)
            c << QString();
        out << Row{c[0], c[1], c[2], c[3], c[4], c[5]};
    }
    return out;
}

// What a menu shows, one entry a line in the table's form (without the menu).
QStringList entries(const QMenu* menu) {
    QStringList out;
    for (const QAction* a : menu->actions()) {
        if (a->isSeparator())
            out << "-";
        else if (a->menu())
            out << ">" + a->menu()->title();
        else
            out << a->objectName();
    }
    return out;
}

class Peek : public QAction {
public:
    using QAction::receivers;
};

// The protected member is reached through a member pointer of QObject's own
// type: no cast of the action to a class it is not.
int triggeredReceivers(QAction* a) {
    int (QObject::*receivers)(const char*) const = &Peek::receivers;
    return (a->*receivers)(SIGNAL(triggered(bool)));
}

} // namespace

class TestActionTable : public QObject {
    Q_OBJECT
private slots:
    void menusHoldTheTableInOrder() {
        gui::MainWindow w;
        QMap<QString, QStringList> expected;
        QStringList menuOrder;
        for (const Row& r : rows()) {
            if (!expected.contains(r.menu) && !r.menu.contains(" > "))
                menuOrder << r.menu;
            expected[r.menu] << (r.name.startsWith('-') || r.name.startsWith('>') ? r.name
                                                                                  : r.name);
        }
        QStringList titles;
        for (QAction* a : w.menuBar()->actions())
            titles << a->text();
        QCOMPARE(titles, menuOrder);
        for (QAction* a : w.menuBar()->actions()) {
            QCOMPARE(entries(a->menu()), expected[a->text()]);
            for (QAction* sub : a->menu()->actions())
                if (sub->menu())
                    QCOMPARE(entries(sub->menu()), expected[a->text() + " > " + sub->text()]);
        }
    }

    // In Slovene too, Alt and a letter reach one entry of each menu.
    void sloveneAcceleratorsDiffer() {
        QTranslator sl;
        QVERIFY(sl.load(":/gui/translations/virela_sl_SI"));
        QCoreApplication::installTranslator(&sl);
        gui::MainWindow w;
        QCoreApplication::removeTranslator(&sl);
        QStringList clashes;
        for (QAction* m : w.menuBar()->actions()) {
            QMap<QString, QString> taken; // letter, entry
            for (QAction* a : m->menu()->actions()) {
                const QString key = QKeySequence::mnemonic(a->text()).toString();
                if (!key.isEmpty() && taken.contains(key))
                    clashes << taken[key] + " / " + a->text();
                taken[key] = a->text();
            }
        }
        QVERIFY2(clashes.isEmpty(), qPrintable(clashes.join(" | ")));
    }

    void everyActionAsTabled() {
        gui::MainWindow w;
        int actions = 0;
        for (const Row& r : rows()) {
            if (r.name == "-" || r.name.startsWith('>'))
                continue;
            ++actions;
            auto* a = w.findChild<QAction*>(r.name);
            QVERIFY2(a, qPrintable(r.name));
            QCOMPARE(a->text(), r.text);
            QCOMPARE(a->shortcut(), QKeySequence(r.shortcut));
            QCOMPARE(a->shortcutContext(), Qt::WindowShortcut);
            QCOMPARE(a->isCheckable(), !r.check.isEmpty());
            QCOMPARE(a->isChecked(), r.check == "on");
            QCOMPARE(a->icon().isNull(), r.icon.isEmpty());
            if (!r.icon.isEmpty()) {
                const QImage expected = QIcon(":/gui/icons/icons/" + r.icon).pixmap(16).toImage();
                QVERIFY2(!expected.isNull(), qPrintable(r.icon));
                QCOMPARE(a->icon().pixmap(16).toImage(), expected);
            }
        }
        QCOMPARE(actions, 90);
    }

    void toolBarsHoldTheirActions() {
        gui::MainWindow w;
        auto names = [](QToolBar* bar) {
            QStringList out;
            for (QAction* a : bar->actions())
                out << a->objectName();
            return out;
        };
        QCOMPARE(names(w.ui.toolBar),
                 QStringList({"actionLoad_parameters", "actionSave_parameters",
                              "actionDesign_strand_distribution", "actionDesign_branching_angles",
                              "actionDesign_branch_lenght_scaling",
                              "actionDesign_gravimorphism_impact_distribution",
                              "actionAdvanced_tree_properties", "actionGrow_tree",
                              "actionSway_tree_in_wind"}));
        QCOMPARE(names(w.ui.toolBar_2),
                 QStringList({"actionShow_ecosystem", "actionDisplay_terrain_moisture",
                              "actionDisplay_terrain_sunniness", "actionDisplay_terrain_windiness",
                              "action_Navigation_panel", "actionSet_plant_area",
                              "actionShow_statistics", "actionLoad_simulation",
                              "actionSave_simulation", "actionRun_simulation"}));
    }

    // Compared with the bare form (whose tool-bar buttons listen too), each
    // action of the bound window has a receiver of its own.
    void everyActionIsBound() {
        QMainWindow bare;
        Ui_MainWindow form;
        form.setupUi(&bare);
        gui::MainWindow w;
        QVERIFY(showWithScene(w));
        QStringList unbound;
        for (const Row& r : rows()) {
            if (r.name == "-" || r.name.startsWith('>') || r.name == "actionQuit")
                continue;
            auto* bound = w.findChild<QAction*>(r.name);
            auto* plain = bare.findChild<QAction*>(r.name);
            if (triggeredReceivers(bound) <= triggeredReceivers(plain))
                unbound << r.name;
        }
        QCOMPARE(unbound.join("\n"), QString());
    }
};

int main(int argc, char** argv) {
    gui::requestGlFormat();
    QApplication app(argc, argv);
    TestActionTable test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_actiontable.moc"
