#include "ecosystem/render/ecosystemrender.h"
#include "gui/actionhandling/timekeeper.h"
#include "gui/glformat.h"
#include "gui/mainwindow.h"
#include "gui/oglwidget.h"

#include <QApplication>
#include <QMenuBar>
#include <QTranslator>
#include <QtTest>

using gui::MainWindow;
using gui::OglWidget;

class TestMainWindow : public QObject {
    Q_OBJECT
private slots:
    void startUpCreatesExactlyOneScene() {
        MainWindow w;
        QSignalSpy created(w.oglWidget, &OglWidget::newModelCreated);
        QSignalSpy initialised(w.oglWidget, &OglWidget::newGlContextInitialized);
        QVERIFY(w.currentModel == nullptr);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QTRY_COMPARE(created.count(), 1);
        QCOMPARE(initialised.count(), 1);
        QCOMPARE(w.models.size(), 1);
        QVERIFY(w.currentModel != nullptr);
        QCOMPARE(w.oglWidget->currentModel, w.currentModel);
        QVERIFY(w.timeKeeper != nullptr);
        QVERIFY(w.viewHandler != nullptr);
    }

    void windowForm() {
        MainWindow w;
        QCOMPARE(w.windowTitle(), QString("Bosket"));
        QVERIFY(w.width() >= 788 && w.height() >= 671);
        QVERIFY(!w.windowIcon().isNull());
        QStringList titles;
        for (QAction* a : w.menuBar()->actions())
            titles << a->text();
        QCOMPARE(titles, QStringList({"&File", "&Edit", "&View", "&Navigation", "Tree &animation",
                                      "&Ecosystem simulation", "&Help"}));
        QCOMPARE(w.ui.toolBar->orientation(), Qt::Vertical);
        QCOMPARE(w.toolBarArea(w.ui.toolBar), Qt::LeftToolBarArea);
        QCOMPARE(w.toolBarArea(w.ui.toolBar_2), Qt::TopToolBarArea);
        QCOMPARE(w.ui.actionAdd_view->shortcut(), QKeySequence("Shift+Esc"));
        QCOMPARE(w.ui.actionQuit->shortcut(), QKeySequence("Ctrl+Q"));
    }

    void addedViewsShareTheScene() {
        MainWindow w;
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QTRY_VERIFY(w.currentModel != nullptr);
        ecosystem::render::EcosystemRender* scene = w.currentModel;
        w.ui.actionAdd_view->trigger();
        w.ui.actionAdd_view->trigger();
        QList<OglWidget*> views = w.findChildren<OglWidget*>();
        QCOMPARE(views.size(), 3);
        QList<QSignalSpy*> spies;
        for (OglWidget* v : views)
            if (v != w.oglWidget)
                spies << new QSignalSpy(v, &OglWidget::newModelCreated);
        for (OglWidget* v : views) {
            QCOMPARE(v->currentModel, scene);
            QTRY_VERIFY(v->context() != nullptr && v->isValid());
        }
        // Stacked vertically below the first view.
        QTRY_VERIFY(views[1]->mapTo(&w, QPoint()).y() != views[2]->mapTo(&w, QPoint()).y());
        for (QSignalSpy* s : spies) {
            QCOMPARE(s->count(), 0);
            delete s;
        }
        QCOMPARE(w.models.size(), 1);
    }

    void slovenianTranslationIsCompiledIn() {
        QTranslator t;
        QVERIFY(t.load(":/gui/translations/virela_sl_SI"));
        QCOMPARE(t.translate("MainWindow", "&File"), QString("&Datoteka"));
        QTranslator none;
        QVERIFY(!none.load(":/gui/translations/virela_de_DE"));
    }

    void quitClosesTheWindow() {
        MainWindow w;
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        w.ui.actionQuit->trigger();
        QTRY_VERIFY(!w.isVisible());
    }
};

int main(int argc, char** argv) {
    gui::requestGlFormat();
    QApplication app(argc, argv);
    TestMainWindow test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_mainwindow.moc"
