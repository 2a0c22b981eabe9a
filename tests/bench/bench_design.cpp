// Dragging a point of the strand distribution with "auto proof" on, in the
// running program: the time from the mouse move on the designer's graph to
// the view's finished frame of the regrown tree (tree-edit mode, the default
// tree, an 800 x 600 view). "event" is the part spent in the move itself
// (designer, curves handed on, table recomputed, repaint requested), "paint"
// the time until the view has drawn the frame (tree grown and drawn), "compose"
// the rest until the window has put the frame on the screen. Also the CPU
// time per change of the main thread and of the whole process (llvmpipe's
// rasteriser threads included): steadier than wall time on a busy machine.
// Run from the repository root under Xvfb:
//   xvfb-run -a -s "-screen 0 1280x1024x24" build/tests/bench_design [moves [imageDir]]
// With imageDir the window, the designer (levels coloured) and the advanced
// properties are also written there as PNG.

#include "ecosystem/render/ecosystemrender.h"
#include "gui/actionhandling/designhandler.h"
#include "gui/design/distributiondesigner.h"
#include "gui/design/widgetgraph.h"
#include "gui/dialogs/advancedtreeproperties.h"
#include "gui/glformat.h"
#include "gui/mainwindow.h"
#include "gui/oglwidget.h"

#include "support/mouseover.h"
#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QScreen>

#include <QtTest>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

namespace {

struct Stats {
    double median, low, high;
};

double cpuMs(clockid_t clock) {
    timespec t;
    clock_gettime(clock, &t);
    return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
}

Stats stats(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return {v[v.size() / 2], v.front(), v[v.size() * 9 / 10]};
}

} // namespace

int main(int argc, char** argv) {
    gui::requestGlFormat();
    QApplication app(argc, argv);
    const int moves = argc > 1 ? std::max(5, std::atoi(argv[1])) : 60;
    const QString imageDir = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString();

    gui::MainWindow w;
    w.oglWidget->setFixedSize(800, 600);
    w.show();
    if (!QTest::qWaitForWindowExposed(&w) || !QTest::qWaitFor([&] { return w.currentModel; })) {
        std::printf("no scene\n");
        return 1;
    }
    w.ui.actionShow_ecosystem->trigger(); // tree-edit mode
    w.ui.actionDesign_strand_distribution->trigger();
    gui::DistributionDesigner* d = w.designHandler->designers.last();
    d->move(w.geometry().right() - d->width(), w.geometry().top());
    (void)QTest::qWaitForWindowExposed(d);
    gui::WidgetGraph* graph = d->graphG;

    bool swapped = false;
    QElapsedTimer t;
    double paintedAt = 0;
    QObject::connect(w.oglWidget, &QOpenGLWidget::aboutToCompose,
                     [&] { paintedAt = t.nsecsElapsed() / 1e6; });
    QObject::connect(w.oglWidget, &QOpenGLWidget::frameSwapped, [&] { swapped = true; });
    auto frameAfter = [&](QPoint to, double& eventMs, double& paintMs) {
        swapped = false;
        t.start();
        mouseOver(graph, to, Qt::LeftButton);
        eventMs = t.nsecsElapsed() / 1e6;
        while (!swapped)
            app.processEvents(QEventLoop::WaitForMoreEvents);
        paintMs = paintedAt - eventMs;
        return t.nsecsElapsed() / 1e6;
    };

    // The right end point of the order curve, dragged up and down.
    const QPoint start(graph->width() - 3, int(graph->points().back().y()));
    QTest::mousePress(graph, Qt::LeftButton, {}, start);
    std::vector<double> total, event, paint, compose, mainCpu, allCpu;
    for (int i = 0; i < moves + 5; ++i) {
        const QPoint to(start.x(), 10 + (i * 37) % (graph->height() - 20));
        double e = 0, p = 0;
        const double main0 = cpuMs(CLOCK_THREAD_CPUTIME_ID), all0 = cpuMs(CLOCK_PROCESS_CPUTIME_ID);
        const double ms = frameAfter(to, e, p);
        if (i < 5)
            continue; // warm-up: llvmpipe compiles its shaders on the first frames
        mainCpu.push_back(cpuMs(CLOCK_THREAD_CPUTIME_ID) - main0);
        allCpu.push_back(cpuMs(CLOCK_PROCESS_CPUTIME_ID) - all0);
        total.push_back(ms);
        event.push_back(e);
        paint.push_back(p);
        compose.push_back(ms - e - p);
    }
    QTest::mouseRelease(graph, Qt::LeftButton, {}, start);
    const Stats s = stats(total), se = stats(event), sp = stats(paint), sc = stats(compose);
    std::printf("moves %d, view %dx%d\n", moves, w.oglWidget->width(), w.oglWidget->height());
    std::printf("point change to finished frame: median %.1f ms (min %.1f, 90%% %.1f)\n", s.median,
                s.low, s.high);
    std::printf("  event %.2f ms, paint %.1f ms, compose %.1f ms (medians)\n", se.median, sp.median,
                sc.median);
    std::printf("  CPU per change: main thread %.1f ms, process %.1f ms (medians)\n",
                stats(mainCpu).median, stats(allCpu).median);

    if (!imageDir.isEmpty()) {
        QTest::mouseClick(d->colorLevels, Qt::LeftButton);
        mouseOver(graph, QPoint(graph->width() / 10, 20)); // the first branches
        QTest::qWait(300);
        w.ui.actionAdvanced_tree_properties->trigger();
        (void)QTest::qWaitForWindowExposed(w.designHandler->advancedTreeProperties);
        QTest::qWait(300);
        w.grab().save(imageDir + "/window.png");
        d->grab().save(imageDir + "/designer.png");
        w.designHandler->advancedTreeProperties->grab().save(imageDir + "/advanced.png");
        QApplication::primaryScreen()->grabWindow(0).save(imageDir + "/screen.png");
    }
    return 0;
}
