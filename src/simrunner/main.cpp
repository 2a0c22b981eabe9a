// virela-sim: one headless run of the ecosystem simulation (see --help).
#include "simrunner/runoptions.h"
#include "simrunner/simulationrun.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <cstdio>
#include <iostream>

namespace {

const int badInput = 2;

int fail(const QString& error) {
    std::cerr << "virela-sim: " << error.toStdString() << std::endl;
    return badInput;
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    QTranslator translator;
    (void)translator.load(QString(":/simrunner/translations/virela_") + QLocale::system().name());
    app.installTranslator(&translator);

    simrunner::RunOptions options;
    QString error;
    if (!options.parse(app.arguments().mid(1), error))
        return fail(error);
    if (options.help) {
        std::fputs(simrunner::RunOptions::helpText().toLocal8Bit().constData(), stdout);
        return 0;
    }
    if (options.version) {
        std::printf("%s\n", simrunner::RunOptions::versionText().toLocal8Bit().constData());
        return 0;
    }

    simrunner::SimulationRun run(options);
    if (!run.prepare(error))
        return fail(error);
    simrunner::SimulationRun::catchInterruptions();
    if (!run.openOutputs(error))
        return fail(error);
    return run.run();
}
