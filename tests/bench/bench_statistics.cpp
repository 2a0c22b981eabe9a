// What an open statistics window costs a running simulation: 100 steps run
// through the program's own timer (each step drawn as the view repaints),
// without and with an "Ecosystem statistics" window opened after the first
// step, in alternating runs, each in a fresh main window with the same seeds.
// For the runs with the window, the time spent in the window's slots and in
// its repaints is also added up directly (slots timed in place; each repaint
// counted and costed by timing repaints of the finished plot).
// The plants live in a square of the grid (rows and columns 40 to 60 unless
// given): the whole default area grows to some 300 000 plants in 100 steps
// and a run then takes the better part of an hour; a smaller area makes the
// run shorter and the window's share of it larger, a harder test.
// Run from the repository root under Xvfb:
//   xvfb-run -a -s "-screen 0 1280x1024x24" build/tests/bench_statistics
//       [runs [steps [first last]]]   (arguments on the same line)

#include "ecosystem/render/ecosystemrender.h"
#include "ecosystem/simulation/ecosystemsimulation.h"
#include "gui/glformat.h"
#include "gui/mainwindow.h"
#include "gui/oglwidget.h"
#include "gui/statistics/ecosystemstatistics.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

using ecosystem::render::EcosystemRender;

// Counts the paint events of the widgets it watches.
class PaintCounter : public QObject {
public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* e) override {
        paints += e->type() == QEvent::Paint;
        return false;
    }
};

struct Run {
    double runMs = 0;    // from "Run simulation" to the last step's repaint
    double windowMs = 0; // the window's slots and repaints
    int frames = 0;
};

double repaintMs(QWidget* w) {
    QElapsedTimer t;
    t.start();
    for (int i = 0; i < 20; ++i)
        w->repaint();
    return t.nsecsElapsed() / 1e6 / 20;
}

Run run(bool withWindow, int steps, int first, int last) {
    Run result;
    gui::MainWindow w;
    w.resize(900, 740);
    w.show();
    if (!QTest::qWaitForWindowExposed(&w) || !QTest::qWaitFor([&] { return w.currentModel; }))
        return result;
    QTest::qWait(200);
    EcosystemRender* scene = w.currentModel;
    scene->setLupaMinX(first);
    scene->setLupaMaxX(last);
    scene->setLupaMinY(first);
    scene->setLupaMaxY(last);
    QElapsedTimer slotClock, clock;
    double slotMs = 0;
    // Timing brackets around the window's own connections (made in between).
    auto open = [&] { slotClock.start(); };
    auto close = [&] { slotMs += slotClock.nsecsElapsed() / 1e6; };
    QObject::connect(scene, &EcosystemRender::nrPlantsLivingChanged, &w, open);
    QObject::connect(scene, &EcosystemRender::nrPlantsRenderedChanged, &w, open);
    gui::EcosystemStatistics* window = nullptr;
    PaintCounter plotPaints, windowPaints;
    QEventLoop loop;
    QObject::connect(w.oglWidget, &QOpenGLWidget::frameSwapped, &w, [&] { ++result.frames; });
    QObject::connect(scene, &EcosystemRender::nrPlantsLivingChanged, &w, [&] {
        const int step = scene->ecosystemSimulation->simulationStepNr;
        if (withWindow && !window) {
            w.ui.actionShow_statistics->trigger();
            window = w.findChild<gui::EcosystemStatistics*>();
            if (qEnvironmentVariableIsSet("ASIDE"))
                window->move(w.geometry().right() + 10, 0);
            if (qEnvironmentVariableIsSet("HIDE"))
                window->hide();
            window->ui.graf1->installEventFilter(&plotPaints);
            window->installEventFilter(&windowPaints);
            QObject::connect(scene, &EcosystemRender::nrPlantsLivingChanged, &w, close);
            QObject::connect(scene, &EcosystemRender::nrPlantsRenderedChanged, &w, close);
        }
        if (step + 1 >= steps) {
            w.ui.actionRun_simulation->trigger();
            // The last step's frame belongs to the run.
            QObject::connect(w.oglWidget, &QOpenGLWidget::frameSwapped, &loop, &QEventLoop::quit);
        }
    });
    clock.start();
    w.ui.actionRun_simulation->trigger();
    loop.exec();
    result.runMs = clock.nsecsElapsed() / 1e6;
    if (window) {
        const int plot = plotPaints.paints, all = windowPaints.paints;
        result.windowMs = slotMs + plot * repaintMs(window->ui.graf1) +
                          std::max(0, all - plot) * repaintMs(window);
        std::printf("    window: slots %.1f ms, %d plot paints, %d window paints\n", slotMs, plot,
                    all);
    }
    return result;
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}

} // namespace

int main(int argc, char** argv) {
    gui::requestGlFormat();
    QApplication app(argc, argv);
    const int runs = argc > 1 ? std::atoi(argv[1]) : 3;
    const int steps = argc > 2 ? std::atoi(argv[2]) : 100;
    const int first = argc > 4 ? std::atoi(argv[3]) : 40;
    const int last = argc > 4 ? std::atoi(argv[4]) : 60;
    std::vector<double> without, with, windowShare;
    for (int r = 0; r < runs; ++r)
        for (bool withWindow : {false, true}) {
            const Run x = run(withWindow, steps, first, last);
            std::printf("run %d %-14s %8.0f ms, %d frames\n", r + 1,
                        withWindow ? "with window" : "without window", x.runMs, x.frames);
            std::fflush(stdout);
            (withWindow ? with : without).push_back(x.runMs);
            if (withWindow)
                windowShare.push_back(100.0 * x.windowMs / x.runMs);
        }
    const double a = median(without), b = median(with);
    std::printf("plant area %d to %d; median of %d runs of %d steps: without %.0f ms, with %.0f ms "
                "(%+.1f %%); "
                "the window's own work %.2f %% of its runs\n",
                first, last, runs, steps, a, b, 100.0 * (b - a) / a, median(windowShare));
    return 0;
}
