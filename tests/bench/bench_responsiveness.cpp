// How soon the main window answers while the simulation runs: the simulation
// is brought to a step without frames, then run with "Run simulation" (F5) as
// the user would, with or without "Fast distant trees". A second thread posts a
// time-stamped event to the window's thread every 37 ms, as input or a dialog's
// events would queue; the time each waits before it is handled is the latency.
//
//   xvfb-run -a bench_responsiveness [fromStep [untilStep [fast|exact]]]
//
// Defaults: from step 95 until step 105, fast. Prints the frames drawn, the
// steps run and the latency median, 95th percentile and maximum.

#include "ecosystem/render/ecosystemrender.h"
#include "ecosystem/simulation/ecosystemsimulation.h"
#include "gui/glformat.h"
#include "gui/mainwindow.h"
#include "gui/oglwidget.h"

#include "support/mainwindowfixture.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

namespace {

QElapsedTimer ura; // shared clock of both threads (monotonic)

class Poskus : public QEvent {
public:
    static const QEvent::Type tip;
    qint64 poslano;
    explicit Poskus(qint64 poslano) : QEvent(tip), poslano(poslano) {}
};
const QEvent::Type Poskus::tip = QEvent::Type(QEvent::registerEventType());

class Sprejemnik : public QObject {
public:
    std::vector<double> zakasnitve; // ms
    bool event(QEvent* e) override {
        if (e->type() != Poskus::tip)
            return QObject::event(e);
        zakasnitve.push_back((ura.nsecsElapsed() - static_cast<Poskus*>(e)->poslano) / 1e6);
        return true;
    }
};

double percentil(std::vector<double> v, double p) {
    if (v.empty())
        return 0;
    std::sort(v.begin(), v.end());
    return v[std::min(v.size() - 1, size_t(p * double(v.size())))];
}

} // namespace

int main(int argc, char** argv) {
    gui::requestGlFormat();
    QApplication app(argc, argv);
    const int od = argc > 1 ? std::atoi(argv[1]) : 95;
    const int doKoraka = argc > 2 ? std::atoi(argv[2]) : 105;
    const bool hitro = argc <= 3 || std::string(argv[3]) != "exact";
    QDir::setCurrent(VIRELA_SOURCE_DIR); // the species files are found from here
    ura.start();

    gui::MainWindow w;
    w.resize(1000, 800);
    if (!showWithScene(w)) {
        std::printf("no window\n");
        return 1;
    }
    ecosystem::render::EcosystemRender& scene = *w.currentModel;
    scene.showFPS = false;
    ecosystem::CEcosystemSimulation& simulation = *scene.ecosystemSimulation;
    while (simulation.simulationStepNr < od)
        simulation.simulateNextStep();
    if (hitro)
        w.ui.actionFast_distant_trees->trigger();

    int okvirjev = 0;
    QObject::connect(w.oglWidget, &QOpenGLWidget::frameSwapped, [&] { ++okvirjev; });
    Sprejemnik sprejemnik;
    std::atomic<bool> konec{false};
    std::thread posiljatelj([&] {
        while (!konec) {
            std::this_thread::sleep_for(std::chrono::milliseconds(37));
            QCoreApplication::postEvent(&sprejemnik, new Poskus(ura.nsecsElapsed()));
        }
    });
    QTimer preveri;
    QObject::connect(&preveri, &QTimer::timeout, [&] {
        if (simulation.simulationStepNr >= doKoraka)
            app.quit();
    });
    preveri.start(50);
    const qint64 zacetek = ura.nsecsElapsed();
    w.ui.actionRun_simulation->trigger();
    app.exec();
    konec = true;
    posiljatelj.join();
    const double s = (ura.nsecsElapsed() - zacetek) / 1e9;
    std::printf("%s, view %d x %d, steps %d to %d in %.1f s, %d frames (%.2f fps)\n",
                hitro ? "fast distant trees" : "exact", w.oglWidget->width(), w.oglWidget->height(),
                od, simulation.simulationStepNr, s, okvirjev, okvirjev / s);
    std::printf("latency of a queued event: median %.0f ms, 95%% %.0f ms, max %.0f ms "
                "(%zu events)\n",
                percentil(sprejemnik.zakasnitve, 0.5), percentil(sprejemnik.zakasnitve, 0.95),
                percentil(sprejemnik.zakasnitve, 1.0), sprejemnik.zakasnitve.size());
    return 0;
}
