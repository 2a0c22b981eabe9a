#include "ecosystem/render/ecosystemrender.h"
#include "ecosystem/simulation/statistics/entitiesstatistics.h"
#include "gui/design/hoverpoints.h"
#include "gui/glformat.h"
#include "gui/mainwindow.h"
#include "gui/statistics/ecosystemstatistics.h"
#include "support/mainwindowfixture.h"
#include "support/messagecatcher.h"
#include "support/mouseover.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <cmath>

using ecosystem::statistics::CEntitiesStatistics;
using gui::EcosystemStatistics;

namespace {

// Two species over three steps, the last one after loading step 30; frames
// drawn before the vegetation exists (no species), after the first and the
// last step.
void fill(CEntitiesStatistics& s) {
    s.addRenderedSpecies({});
    s.addRenderedSpecies({});
    s.addLiveSpecies({1, 5});
    s.addRenderedSpecies({2, 0});
    s.addRenderedSpecies({1, 3});
    s.addLiveSpecies({10, 50});
    s.addLiveSpecies({100, 0}, 30);
    s.addRenderedSpecies({7, 0});
}

} // namespace

class TestEcosystemStatistics : public QObject {
    Q_OBJECT
private slots:
    // Step s and count n are plotted at (s, H - 20 ln n): 1 on the bottom line,
    // 0 there too; the last pair is the current value.
    void pointsFromTheLogarithmLivingOrDrawn() {
        CEntitiesStatistics s;
        fill(s);
        EcosystemStatistics w(nullptr, &s);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(w.windowTitle(), QString("Ecosystem statistics"));
        const double h = w.ui.graf1->height();
        QCOMPARE(w.ui.graf1->points(),
                 QPolygonF({{0, h}, {1, h - 20 * std::log(10.0)}, {2, h - 20 * std::log(100.0)}}));
        QCOMPARE(w.ui.currentValue->text(), QString("(2, 100)"));

        w.ui.izbranaVrsta->setCurrentIndex(1);
        QCOMPARE(w.izbranaVrstaIndex, 1);
        QCOMPARE(w.ui.graf1->points(),
                 QPolygonF({{0, h - 20 * std::log(5.0)}, {1, h - 20 * std::log(50.0)}, {2, h}}));
        QCOMPARE(w.ui.currentValue->text(), QString("(2, 0)"));

        // The pointer 40 pixels above the bottom line reads e squared.
        mouseOver(w.ui.graf1, QPoint(30, int(h) - 40));
        QCOMPARE(w.ui.currentValue->text(), QString("(30, 7.38906)"));
        // Points cannot be dragged, added or removed.
        QTest::mouseClick(w.ui.graf1, Qt::LeftButton, {}, QPoint(100, 50));
        QTest::mouseClick(w.ui.graf1, Qt::RightButton, {}, QPoint(1, int(h) - 1));
        QCOMPARE(w.ui.graf1->points().size(), 3);

        // "rendered only" plots the drawn plants; while it is on, the living
        // series' signal leaves the plot alone.
        w.ui.izbranaVrsta->setCurrentIndex(0);
        QVERIFY(!w.ui.showOnlyRenderedOnes->isChecked());
        w.ui.showOnlyRenderedOnes->setChecked(true);
        const QPolygonF drawn({{0, h - 20 * std::log(2.0)}, {1, h}, {2, h - 20 * std::log(7.0)}});
        QCOMPARE(w.ui.graf1->points(), drawn);
        QCOMPARE(w.ui.currentValue->text(), QString("(2, 7)"));
        s.addLiveSpecies({3, 3});
        w.nrPlantsLivingChanged();
        QCOMPARE(w.ui.graf1->points(), drawn);
        s.addRenderedSpecies({1, 1});
        w.izberiVrsto(0);
        QCOMPARE(w.ui.graf1->points().size(), 4);
    }

    // The curve's pen takes the species' colour (alpha 200), and the plot shows it.
    void speciesColours() {
        CEntitiesStatistics s;
        for (int i = 0; i < 10; ++i)
            s.addLiveSpecies({1 + 50 * i, 1 + 50 * i, 20, 1 + 50 * i, 1 + 50 * i});
        EcosystemStatistics w(nullptr, &s);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        const QColor colours[] = {{255, 0, 0},   {0, 255, 0},   {0, 0, 255},
                                  {255, 0, 255}, {255, 255, 0}, {255, 255, 255}};
        for (int i = 0; i < 6; ++i) {
            w.izberiVrsto(i);
            const QPen pen = w.ui.graf1->hoverPoints->connectionPen;
            QColor expected = colours[i];
            expected.setAlpha(200);
            QCOMPARE(pen.color(), expected);
            QCOMPARE(pen.widthF(), 2.0);
            QCOMPARE(pen.capStyle(), Qt::SquareCap);
            QCOMPARE(pen.joinStyle(), Qt::BevelJoin);
        }
        // A species without a series: no points, the value stays.
        QVERIFY(w.ui.graf1->points().isEmpty());
        QCOMPARE(w.ui.currentValue->text(), QString("(9, 451)"));

        w.izberiVrsto(2); // a level line
        const QImage plot = w.ui.graf1->grab().toImage();
        const int y = int(w.ui.graf1->points()[5].y());
        int bluest = 0;
        for (int dy = -2; dy <= 2; ++dy) {
            const QColor c = plot.pixelColor(5, y + dy);
            bluest = std::max(bluest, c.blue() - std::max(c.red(), c.green()));
        }
        QVERIFY2(bluest > 150, qPrintable(QString::number(bluest)));
    }

    // One row per step, by its number; "drawn" is the last frame after that
    // step, empty when none was drawn; a file that cannot be written is reported.
    void csvOfEverySeries() {
        CEntitiesStatistics s;
        fill(s);
        EcosystemStatistics w(nullptr, &s);
        QTemporaryDir dir;
        const QString name = dir.filePath("stats.csv");
        QVERIFY(w.saveCsv(name));
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(file.readAll()),
                 QString("step,Bush living,Bush drawn,Weeping willow living,Weeping willow drawn\n"
                         "1,1,1,5,3\n"
                         "2,10,,50,\n"
                         "30,100,7,0,0\n"));
        QVERIFY(!w.saveCsv(dir.filePath("no/such/folder/stats.csv")));
    }

    // Before the simulation has run there is nothing to show; afterwards every
    // use opens a window that follows the steps until it is closed.
    void mainWindowOpensWindowsOnceTheSimulationRuns() {
        gui::MainWindow w;
        QVERIFY(showWithScene(w));
        MessageCatcher catcher;
        w.ui.actionShow_statistics->trigger();
        QCOMPARE(catcher.lines(), std::vector<std::string>{"Error: First run simulation please."});
        QVERIFY(w.findChildren<EcosystemStatistics*>().isEmpty());

        w.currentModel->simulateNextStepAndUpdateGL();
        w.ui.actionShow_statistics->trigger();
        w.ui.actionShow_statistics->trigger();
        const auto windows = w.findChildren<EcosystemStatistics*>();
        QCOMPARE(windows.size(), 2);
        QVERIFY(windows[0]->isVisible() && !windows[0]->isModal());
        QCOMPARE(windows[0]->ui.graf1->points().size(), 1);
        w.currentModel->simulateNextStepAndUpdateGL();
        QCOMPARE(windows[0]->ui.graf1->points().size(), 2);
        QCOMPARE(windows[1]->ui.graf1->points().size(), 2);
        QCOMPARE(catcher.messages.size(), size_t(1));

        // "Close" deletes the window; the other one goes on.
        const QPointer<EcosystemStatistics> closed = windows[0];
        QTest::mouseClick(closed->ui.close, Qt::LeftButton);
        QTRY_VERIFY(closed.isNull());
        w.currentModel->simulateNextStepAndUpdateGL();
        QCOMPARE(windows[1]->ui.graf1->points().size(), 3);
    }
};

int main(int argc, char** argv) {
    gui::requestGlFormat();
    QApplication app(argc, argv);
    TestEcosystemStatistics test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ecosystemstatistics.moc"
