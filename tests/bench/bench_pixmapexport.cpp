// Custom-resolution export of the default ecosystem view: time to render the
// image off screen (in tiles of at most 4096 pixels, as the program does) and
// to write it as PNG at a quality (the dialog's default 0 gives the smallest
// file), and the peak memory of the process. One size per run, so that each
// peak is its own. Run from the repository root under X, for example:
//   for s in 2048 8192; do for i in 1 2 3; do build/tests/bench_pixmapexport $s 0; done; done
#include "ecosystem/render/ecosystemrender.h"
#include "gui/glformat.h"
#include "gui/mainwindow.h"
#include "gui/oglwidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <sys/resource.h>

namespace {

double peakMiB() {
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return double(u.ru_maxrss) / 1024.0;
}

} // namespace

int main(int argc, char** argv) {
    gui::requestGlFormat();
    QApplication app(argc, argv);
    const int size = argc > 1 ? QString(argv[1]).toInt() : 2048;
    const int quality = argc > 2 ? QString(argv[2]).toInt() : 0;
    gui::MainWindow window;
    window.resize(800, 700);
    window.show();
    QTemporaryDir dir;
    QTimer::singleShot(0, &app, [&] {
        while (!window.currentModel)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        QCoreApplication::processEvents();
        window.oglWidget->renderPixmap(64, 64); // warm-up: shader compilation
        const double before = peakMiB();
        QElapsedTimer t;
        t.start();
        const QImage image = window.oglWidget->renderPixmap(size, size);
        const double renderMs = double(t.nsecsElapsed()) / 1e6;
        t.restart();
        QImageWriter writer(dir.filePath("big.png"), "png");
        writer.setQuality(quality);
        const bool written = writer.write(image);
        const double saveMs = double(t.nsecsElapsed()) / 1e6;
        std::printf("%d x %d: render %.0f ms, PNG of quality %d %.0f ms (%s, %.1f MiB), peak "
                    "memory %.0f MiB (%.0f MiB before the export)\n",
                    size, size, renderMs, quality, saveMs, written ? "written" : "NOT WRITTEN",
                    double(QFileInfo(dir.filePath("big.png")).size()) / 1048576.0, peakMiB(),
                    before);
        app.quit();
    });
    return app.exec();
}
