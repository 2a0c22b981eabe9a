#include "ecosystem/render/camera.h"
#include "ecosystem/render/ecosystemrender.h"
#include "gui/actionhandling/timekeeper.h"
#include "gui/glformat.h"
#include "gui/mainwindow.h"
#include "gui/oglwidget.h"
#include "gui/plantarea.h"
#include "gui/randomgeneratorseedseditor.h"
#include "support/mainwindowfixture.h"

#include <QLineEdit>
#include <QSpinBox>
#include <QTimer>

#include <QApplication>
#include <QMenuBar>
#include <QTranslator>
#include <QtTest>

using gui::MainWindow;
using gui::OglWidget;

class TestMainWindow : public QObject {
    Q_OBJECT
    static void send(QWidget* w, QEvent::Type type, QPoint pos, Qt::MouseButton button,
                     Qt::MouseButtons buttons);
private slots:
    void initTestCase() { qRegisterMetaType<ecosystem::render::EcosystemRender*>(); }

    void windowForm() {
        MainWindow w;
        QCOMPARE(w.windowTitle(), QString("Bosket"));
        QVERIFY(w.width() >= 788 && w.height() >= 671);
        QVERIFY(!w.windowIcon().isNull());
        QCOMPARE(w.ui.toolBar->orientation(), Qt::Vertical);
        QCOMPARE(w.toolBarArea(w.ui.toolBar), Qt::LeftToolBarArea);
        QCOMPARE(w.toolBarArea(w.ui.toolBar_2), Qt::TopToolBarArea);
    }

    // Start-up creates exactly one scene; added views share it.
    void oneSceneForEveryView() {
        MainWindow w;
        QSignalSpy created(w.oglWidget, &OglWidget::newModelCreated);
        QSignalSpy initialised(w.oglWidget, &OglWidget::newGlContextInitialized);
        QVERIFY(w.currentModel == nullptr);
        QVERIFY(showWithScene(w));
        QTRY_COMPARE(created.count(), 1);
        QCOMPARE(initialised.count(), 1);
        QCOMPARE(w.models.size(), 1);
        QCOMPARE(w.oglWidget->currentModel, w.currentModel);
        QVERIFY(w.timeKeeper != nullptr && w.viewHandler != nullptr);
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

    void mouseDragsTurnAndMoveTheTree() {
        MainWindow w;
        QVERIFY(showWithScene(w));
        ecosystem::render::Camera* camera = w.currentModel->getCurrentCamera();
        OglWidget* view = w.oglWidget;
        const float z0 = camera->z_pomik, x0 = camera->x_zasuk, y0 = camera->y_zasuk;

        // Left drag 35 pixels down: the tree moves 3.5 units away.
        send(view, QEvent::MouseButtonPress, QPoint(50, 100), Qt::LeftButton, Qt::LeftButton);
        send(view, QEvent::MouseMove, QPoint(80, 135), Qt::NoButton, Qt::LeftButton);
        send(view, QEvent::MouseButtonRelease, QPoint(80, 135), Qt::LeftButton, Qt::NoButton);
        QCOMPARE(camera->z_pomik, z0 + 3.5f);
        QCOMPARE(camera->y_zasuk, y0);

        // Right drag: horizontal turns, vertical tilts, one unit per 10 pixels.
        send(view, QEvent::MouseButtonPress, QPoint(50, 100), Qt::RightButton, Qt::RightButton);
        send(view, QEvent::MouseMove, QPoint(70, 95), Qt::NoButton, Qt::RightButton);
        send(view, QEvent::MouseButtonRelease, QPoint(70, 95), Qt::RightButton, Qt::NoButton);
        QCOMPARE(camera->y_zasuk, y0 + 2.0f);
        QCOMPARE(camera->x_zasuk, x0 - 0.5f);
        QCOMPARE(camera->z_pomik, z0 + 3.5f);

        // Both buttons: a move drag only; releasing one ends every drag.
        send(view, QEvent::MouseButtonPress, QPoint(0, 0), Qt::RightButton,
             Qt::LeftButton | Qt::RightButton);
        QVERIFY(view->actionMove);
        QVERIFY(!view->actionRotate);
        send(view, QEvent::MouseButtonRelease, QPoint(0, 0), Qt::RightButton, Qt::LeftButton);
        QVERIFY(!view->actionMove && !view->actionRotate);
    }

    void plantAreaChangesTakeEffectAtOnce() {
        MainWindow w;
        QVERIFY(showWithScene(w));
        ecosystem::render::EcosystemRender* scene = w.currentModel;
        QCOMPARE(scene->getLupaMinX(), 25);
        QCOMPARE(scene->getLupaMaxY(), 75);
        bool seen = false;
        QTimer::singleShot(0, this, [&] {
            auto* dialog = qobject_cast<gui::PlantArea*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            seen = true;
            QCOMPARE(dialog->windowTitle(), QString("Plant area setup"));
            QCOMPARE(dialog->minX->value(), 25);
            QCOMPARE(dialog->maxY->maximum(), 99);
            dialog->minX->setValue(30);
            dialog->maxY->setValue(60);
            QCOMPARE(scene->getLupaMinX(), 30);
            QCOMPARE(scene->getLupaMaxY(), 60);
            dialog->reject(); // closing undoes nothing
        });
        w.ui.actionSet_plant_area->trigger();
        QVERIFY(seen);
        QCOMPARE(scene->getLupaMinX(), 30);
        QCOMPARE(scene->getLupaMaxY(), 60);
    }

    // The editor shows the scene's seeds; OK sets the edited ones (up to the
    // 64-bit limit), Cancel keeps them.
    void seedsEditorShowsAndSetsTheSceneSeeds_data() {
        QTest::addColumn<bool>("accept");
        QTest::newRow("OK") << true;
        QTest::newRow("Cancel") << false;
    }
    void seedsEditorShowsAndSetsTheSceneSeeds() {
        QFETCH(bool, accept);
        MainWindow w;
        QVERIFY(showWithScene(w));
        ecosystem::render::EcosystemRender* scene = w.currentModel;
        const std::vector<unsigned long long> before = scene->getRandomGeneratorSeeds();
        QCOMPARE(before.size(), size_t(13));
        bool seen = false;
        QTimer::singleShot(0, this, [&] {
            auto* dialog =
                qobject_cast<gui::RandomGeneratorSeedsEditor*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            seen = true;
            QCOMPARE(dialog->randomGrowClose->text(), QString::number(before[0]));
            QCOMPARE(dialog->randomTimeOfDeath->text(), QString::number(before[12]));
            dialog->randomGrowClose->setText("18446744073709551615");
            dialog->randomDeathBecauseOfBadSlope->setText("77");
            accept ? dialog->accept() : dialog->reject();
        });
        w.ui.actionEdit_random_generator_seeds->trigger();
        QVERIFY(seen);
        std::vector<unsigned long long> expected = before;
        if (accept) {
            expected[0] = 18446744073709551615ULL;
            expected[11] = 77;
        }
        QCOMPARE(scene->getRandomGeneratorSeeds(), expected);
    }

    void ecosystemFrameShowsSkyAndTerrain() {
        MainWindow w;
        QVERIFY(showWithScene(w));
        const QImage frame = w.oglWidget->grabFramebuffer();
        QVERIFY(!frame.isNull());
        // A blank or one-coloured frame means the sky or the terrain was not drawn.
        QSet<QRgb> colours;
        for (int y = 0; y < frame.height(); y += 7)
            for (int x = 0; x < frame.width(); x += 7)
                colours.insert(frame.pixel(x, y) & 0xF0F0F0);
        QVERIFY2(colours.size() > 50, qPrintable(QString::number(colours.size())));
    }

    void stepsPerFrameActions() {
        MainWindow w;
        QVERIFY(showWithScene(w));
        ecosystem::render::EcosystemRender* scene = w.currentModel;
        w.ui.actionCompute_less_simulation_steps_per_one_rendered_frame->trigger();
        QCOMPARE(scene->simulationStepsPerRenderedFrame, 1);
        w.ui.actionCompute_more_simulation_steps_per_one_rendered_frame->trigger();
        w.ui.actionCompute_more_simulation_steps_per_one_rendered_frame->trigger();
        QCOMPARE(scene->simulationStepsPerRenderedFrame, 3);
        w.ui.actionCompute_less_simulation_steps_per_one_rendered_frame->trigger();
        QCOMPARE(scene->simulationStepsPerRenderedFrame, 2);
    }

    void quitClosesTheWindow() {
        MainWindow w;
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        w.ui.actionQuit->trigger();
        QTRY_VERIFY(!w.isVisible());
    }
};

void TestMainWindow::send(QWidget* w, QEvent::Type type, QPoint pos, Qt::MouseButton button,
                          Qt::MouseButtons buttons) {
    QMouseEvent event(type, QPointF(pos), w->mapToGlobal(QPointF(pos)), button, buttons,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(w, &event);
}

int main(int argc, char** argv) {
    gui::requestGlFormat();
    QApplication app(argc, argv);
    TestMainWindow test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_mainwindow.moc"
