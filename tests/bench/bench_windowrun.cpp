// The simulation as the window program runs it: the default scene, F5 (run
// simulation), and the wall time until step 100 is done. Prints that time and
// the step phases' sum from the statistics line (time(simm_all)), to set beside
// virela-sim's run of the same steps. The display is switched off as a user
// does for a fast run (software GL under Xvfb takes many seconds per frame of
// a few hundred thousand plants); "draw" keeps it on. Run from the repository
// root (so bin/zbirka-4 is found) under X:
//   build/tests/bench_windowrun [steps] [draw] > /dev/null
#include "ecosystem/render/ecosystemrender.h"
#include "ecosystem/simulation/statistics/entitiesstatistics.h"
#include "gui/actionhandling/timekeeper.h"
#include "gui/glformat.h"
#include "gui/mainwindow.h"
#include "gui/oglwidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
    gui::requestGlFormat();
    QApplication app(argc, argv);
    const int steps = argc > 1 ? std::atoi(argv[1]) : 100;
    const bool draw = argc > 2 && std::string(argv[2]) == "draw";
    gui::MainWindow window;
    QElapsedTimer clock;
    int done = 0;
    QObject::connect(window.oglWidget, &gui::OglWidget::newModelCreated, &app, [&] {
        ecosystem::render::EcosystemRender* scene = window.currentModel;
        QObject::connect(scene, &ecosystem::render::EcosystemRender::nrPlantsLivingChanged, &app,
                         [&, scene] {
                             if (++done < steps)
                                 return;
                             window.timeKeeper->toggleRunSimulation();
                             const double ms = clock.nsecsElapsed() / 1e6;
                             std::fprintf(stderr,
                                          "window: %d steps in %.0f ms wall; step phases "
                                          "(simm_all) %d ms\n",
                                          steps, ms, scene->getEntitiesStatistics()->sumSimmTime);
                             app.quit();
                         });
        // Once the first frame is up, as a user would press F5.
        QTimer::singleShot(500, &app, [&, scene] {
            if (!draw)
                scene->toggleDoNotRefreshDisplay();
            clock.start();
            window.timeKeeper->toggleRunSimulation();
        });
    });
    window.show();
    QTimer::singleShot(600000, &app, &QApplication::quit);
    return app.exec();
}
