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

// Status 1 when standard output cannot take the text (a full disk).
int print(const QString& text) {
    std::fputs(text.toLocal8Bit().constData(), stdout);
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return 0;
    std::cerr << "virela-sim: "
              << simrunner::SimulationRun::tr("Could not write to standard output.").toStdString()
              << std::endl;
    return 1;
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
    if (options.help)
        return print(simrunner::RunOptions::helpText());
    if (options.version)
        return print(simrunner::RunOptions::versionText() + '\n');

    simrunner::SimulationRun run(options);
    if (!run.checkOutputs(error) || !run.prepare(error))
        return fail(error);
    simrunner::SimulationRun::catchInterruptions();
    if (!run.openOutputs(error))
        return fail(error);
    return run.run();
}
