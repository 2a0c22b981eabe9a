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
    // "&View"
    QAction* actionAdd_view;
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
        actionAdd_view->setText(QCoreApplication::translate("MainWindow", "&Add view"));
        actionUsage->setText(QCoreApplication::translate("MainWindow", "Usage"));
        actionAbout->setText(QCoreApplication::translate("MainWindow", "&About"));
        menu_File->setTitle(QCoreApplication::translate("MainWindow", "&File"));
        menu_Edit->setTitle(QCoreApplication::translate("MainWindow", "&Edit"));
        menu_View->setTitle(QCoreApplication::translate("MainWindow", "&View"));
        menu_Navigation->setTitle(QCoreApplication::translate("MainWindow", "&Navigation"));
        menuTree_animation->setTitle(QCoreApplication::translate("MainWindow", "Tree &animation"));
        menu_Ecosystem_simulation->setTitle(
            QCoreApplication::translate("MainWindow", "&Ecosystem simulation"));
        menu_Help->setTitle(QCoreApplication::translate("MainWindow", "&Help"));
        toolBar->setWindowTitle(QCoreApplication::translate("MainWindow", "Tree tools"));
        toolBar_2->setWindowTitle(QCoreApplication::translate("MainWindow", "Ecosystem tools"));
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
        actionAdd_view = makeAction(w, "actionAdd_view", "Shift+Esc");
        actionUsage = makeAction(w, "actionUsage", "Shift+F1");
        actionAbout = makeAction(w, "actionAbout", "F1");
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
    void fillEditMenu() {}
    void fillViewMenu() { menu_View->addAction(actionAdd_view); }
    void fillNavigationMenu() {}
    void fillTreeAnimationMenu() {}
    void fillEcosystemSimulationMenu() {}
    void fillHelpMenu() {
        menu_Help->addAction(actionUsage);
        menu_Help->addSeparator();
        menu_Help->addAction(actionAbout);
    }

    void createToolBars(QMainWindow* w) {
        toolBar = new QToolBar(w);
        toolBar->setObjectName("toolBar");
        toolBar->setOrientation(Qt::Vertical);
        w->addToolBar(Qt::LeftToolBarArea, toolBar);
        toolBar_2 = new QToolBar(w);
        toolBar_2->setObjectName("toolBar_2");
        w->addToolBar(Qt::TopToolBarArea, toolBar_2);
    }
};

namespace Ui {
class MainWindow : public Ui_MainWindow {};
} // namespace Ui
