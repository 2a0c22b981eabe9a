// Time from process start to the first finished frame of the default scene.
// Run from the repository root (so bin/zbirka-4 is found) under X:
//   for i in 1 2 3 4 5; do build/tests/bench_startup; done
#include "ecosystem/render/ecosystemrender.h"
#include "gui/glformat.h"
#include "gui/mainwindow.h"
#include "gui/oglwidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTimer>

#include <cstdio>
#include <unistd.h>

namespace {

// Milliseconds between the kernel starting this process and now (10 ms grain).
double msSinceProcessStart() {
    QFile stat("/proc/self/stat"), uptime("/proc/uptime");
    if (!stat.open(QIODevice::ReadOnly) || !uptime.open(QIODevice::ReadOnly))
        return 0;
    const QString s = QString::fromLatin1(stat.readAll());
    const QStringList fields = s.mid(s.lastIndexOf(')') + 2).split(' ');
    const double startTicks = fields.value(19).toDouble(); // field 22 of the line
    const double up = QString::fromLatin1(uptime.readAll()).split(' ').value(0).toDouble();
    return (up - startTicks / double(sysconf(_SC_CLK_TCK))) * 1000.0;
}

} // namespace

int main(int argc, char** argv) {
    const double beforeMain = msSinceProcessStart();
    QElapsedTimer clock;
    clock.start();
    gui::requestGlFormat();
    QApplication app(argc, argv);
    gui::MainWindow window;
    double sceneMs = 0;
    QObject::connect(window.oglWidget, &gui::OglWidget::newModelCreated,
                     [&] { sceneMs = double(clock.elapsed()); });
    QObject::connect(window.oglWidget, &QOpenGLWidget::frameSwapped, &app, [&] {
        const double total = beforeMain + double(clock.nsecsElapsed()) / 1e6;
        std::printf("first frame %.0f ms after process start (scene created at %.0f ms)\n",
                    total, beforeMain + sceneMs);
        app.quit();
    });
    window.show();
    QTimer::singleShot(60000, &app, &QApplication::quit);
    return app.exec();
}
