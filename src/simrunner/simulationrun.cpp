#include "simrunner/simulationrun.h"

#include "arbo/usermessage.h"
#include "ecosystem/simulation/data/progress.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"
#include "simrunner/statisticscsv.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <sstream>

namespace simrunner {

using ecosystem::CEcosystemSimulation;
using ecosystem::data::CTerrainData;

namespace {

volatile std::sig_atomic_t caughtSignal = 0;

extern "C" void onInterrupt(int signalNumber) {
    caughtSignal = signalNumber;
}

// A folder can be written into when it is one that can, or when the nearest
// folder above it that exists can (the missing ones are made there).
bool canWriteInto(const QString& folder) {
    QFileInfo info(QDir::cleanPath(QDir::current().absoluteFilePath(folder)));
    while (!info.exists() && !info.isRoot())
        info = QFileInfo(info.absolutePath());
    return info.isDir() && info.isWritable();
}

QString folderOf(const QString& file) {
    return QFileInfo(file).path();
}

QString joined(const std::vector<unsigned long long>& numbers) {
    QStringList parts;
    for (unsigned long long n : numbers)
        parts << QString::number(n);
    return parts.join(',');
}

int livingPlants(const CEcosystemSimulation& simulation) {
    int n = 0;
    for (const auto& vrsta : simulation.rastlinskeVrste)
        n += int(vrsta.ziviPrimerkiTeVrste.size());
    return n;
}

QString duration(double seconds) {
    if (seconds < 10)
        return SimulationRun::tr("%1 s").arg(seconds, 0, 'f', 1);
    const long long s = (long long)(seconds + 0.5);
    if (s < 60)
        return SimulationRun::tr("%1 s").arg(s);
    if (s < 3600)
        return SimulationRun::tr("%1 min %2 s").arg(s / 60).arg(s % 60, 2, 10, QChar('0'));
    return SimulationRun::tr("%1 h %2 min").arg(s / 3600).arg(s / 60 % 60, 2, 10, QChar('0'));
}

} // namespace

SimulationRun::SimulationRun(const RunOptions& options) : options(options) {
    arbo::setUserMessageHandler(
        [this](const std::string&, const std::string& text) { messages.push_back(text); });
    ecosystem::data::setProgressHandler([this](const std::string& task, int done, int total) {
        const int percent = total > 0 ? int(100LL * done / total) : 100;
        progress.show(tr("%1: %2%").arg(QString::fromStdString(task)).arg(percent));
    });
}

SimulationRun::~SimulationRun() {
    arbo::setUserMessageHandler(nullptr);
    ecosystem::data::setProgressHandler(nullptr);
}

QString SimulationRun::takeMessages() {
    QStringList texts;
    // A box's text may hold paragraphs (the file, line and reason of a refusal);
    // the runner says each failure in one line.
    for (const std::string& text : messages)
        texts << QString::fromStdString(text).simplified();
    messages.clear();
    return texts.join(' ');
}

void SimulationRun::catchInterruptions() {
    struct sigaction action {};
    action.sa_handler = onInterrupt;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESETHAND;
    for (int signalNumber : {SIGINT, SIGTERM, SIGHUP})
        sigaction(signalNumber, &action, nullptr);
    // A reader that went away (virela-sim | head) ends the run too; the
    // writes still to come fail quietly instead of ending the program.
    action.sa_flags = 0;
    sigaction(SIGPIPE, &action, nullptr);
}

// ---- inputs ----

bool SimulationRun::prepare(QString& error) {
    terrain = std::make_unique<CTerrainData>();
    simulation = std::make_unique<CEcosystemSimulation>();
    simulation->setTerrainData(*terrain);
    if (!loadTerrain(error))
        return false;
    // The vegetation and the layers, as the window program's first step makes
    // them. The window program loads a file only into a simulation that has
    // run, so before a load one step is taken silently, as F5 pressed once: the
    // load replaces its plants and streams, and the seed count its growth left
    // (the same after any of the first three steps) is what the window
    // program's first step after the load sows from.
    if (options.loadFile.isEmpty())
        simulation->zagotoviInicializiranostSimulacije();
    else
        simulation->simulateNextStep();
    progress.clear();
    if (!loadSimulation(error) || !applyAreaAndSeeds(error))
        return false;
    firstStep = simulation->simulationStepNr + 1;
    startSeeds = simulation->getRandomGeneratorSeeds();
    return true;
}

bool SimulationRun::loadTerrain(QString& error) {
    if (options.demFile.isEmpty())
        return true;
    terrain->reloadDMR(QFile::encodeName(options.demFile).constData());
    progress.clear();
    const QString told = takeMessages();
    if (!told.isEmpty()) {
        error = tr("Could not use the DEM file %1: %2").arg(options.demFile, told);
        return false;
    }
    return true;
}

bool SimulationRun::loadSimulation(QString& error) {
    if (options.loadFile.isEmpty())
        return true;
    // The loader also writes its complaint to standard error: it is caught
    // here so that a bad file costs the user one line.
    std::ostringstream complaint;
    std::streambuf* const standardError = std::cerr.rdbuf(complaint.rdbuf());
    simulation->loadSimulation(options.loadFile.toStdString());
    std::cerr.rdbuf(standardError);
    QString told = takeMessages();
    if (told.isEmpty())
        told = QString::fromStdString(complaint.str()).trimmed();
    if (!told.isEmpty()) {
        error = tr("Could not load the simulation %1: %2").arg(options.loadFile, told);
        return false;
    }
    return true;
}

bool SimulationRun::applyAreaAndSeeds(QString& error) {
    CTerrainData& t = *terrain;
    if (options.areaGiven) {
        if (options.area[1] >= t.stTockX || options.area[3] >= t.stTockY) {
            error = tr("The plant area %1,%2,%3,%4 reaches past the %5 x %6 grid.")
                        .arg(options.area[0])
                        .arg(options.area[1])
                        .arg(options.area[2])
                        .arg(options.area[3])
                        .arg(t.stTockX)
                        .arg(t.stTockY);
            return false;
        }
        // As the plant-area editor of the window program sets it.
        t.lupaXmin = options.area[0];
        t.lupaXmax = options.area[1];
        t.lupaYmin = options.area[2];
        t.lupaYmax = options.area[3];
        t.buildNonwaterIndexes();
    }
    // Plants sown anywhere land on a dry cell of the plant area.
    if (t.nonWaterIndexes.empty()) {
        error = tr("The plant area %1,%2,%3,%4 has no dry cell to sow plants on.")
                    .arg(t.lupaXmin)
                    .arg(t.lupaXmax)
                    .arg(t.lupaYmin)
                    .arg(t.lupaYmax);
        return false;
    }
    if (!options.seeds.empty())
        simulation->setRandomGeneratorSeeds(options.seeds);
    return true;
}

// ---- outputs ----

bool SimulationRun::openOutputs(QString& error) {
    QStringList folders;
    if (options.snapshotEvery > 0)
        folders << options.outFolder;
    for (const QString& file : {options.csvFile, options.saveFile}) {
        if (file.isEmpty())
            continue;
        if (QFileInfo(file).isDir()) {
            error = tr("%1 is a folder, not a file.").arg(file);
            return false;
        }
        folders << folderOf(file);
    }
    for (const QString& folder : folders) {
        if (!canWriteInto(folder)) {
            error = tr("Cannot write into the folder %1.").arg(folder);
            return false;
        }
    }
    for (const QString& folder : folders) {
        if (!QDir().mkpath(folder)) {
            error = tr("Cannot make the folder %1.").arg(folder);
            return false;
        }
    }
    if (options.csvFile.isEmpty())
        return true;
    // The table replaces an older one only when it is complete (at the end
    // of the run, also of an interrupted one).
    csv = std::make_unique<QSaveFile>(options.csvFile);
    if (!csv->open(QIODevice::WriteOnly) ||
        !writeCsv(StatisticsCsv::header(csvComments(), int(simulation->rastlinskeVrste.size())))) {
        error = tr("Could not write the CSV file %1.").arg(options.csvFile);
        csv.reset();
        return false;
    }
    return true;
}

std::vector<std::string> SimulationRun::csvComments() const {
    const CTerrainData& t = *terrain;
    std::vector<std::string> comments;
    comments.push_back(RunOptions::versionText().toStdString());
    comments.push_back("terrain: " + (options.demFile.isEmpty()
                                          ? std::string("compiled-in landscape")
                                          : options.demFile.toStdString()));
    comments.push_back("start: " + (options.loadFile.isEmpty()
                                        ? std::string("new simulation")
                                        : options.loadFile.toStdString() + " at step " +
                                              std::to_string(firstStep - 1)));
    comments.push_back(QString("plant area: %1,%2,%3,%4")
                           .arg(t.lupaXmin)
                           .arg(t.lupaXmax)
                           .arg(t.lupaYmin)
                           .arg(t.lupaYmax)
                           .toStdString());
    comments.push_back("seeds: " + joined(startSeeds).toStdString());
    comments.push_back("steps: " + std::to_string(options.steps));
    return comments;
}

bool SimulationRun::writeCsv(const std::string& text) {
    return !csv || csv->write(text.data(), qint64(text.size())) == qint64(text.size());
}

void SimulationRun::reportFailure(const QString& text) {
    progress.clear();
    std::cerr << "virela-sim: " << text.toStdString() << std::endl;
    outputFailed = true;
}

void SimulationRun::saveSnapshot() {
    const std::string written =
        simulation->autoSave(options.snapshotEvery, options.outFolder.toStdString());
    const QString told = takeMessages();
    if (!told.isEmpty())
        reportFailure(tr("Could not save %1: %2").arg(QString::fromStdString(written), told));
}

void SimulationRun::saveFinalState() {
    if (options.saveFile.isEmpty() || outputFailed)
        return;
    simulation->saveSimulation(options.saveFile.toStdString());
    const QString told = takeMessages();
    if (!told.isEmpty())
        reportFailure(tr("Could not save %1: %2").arg(options.saveFile, told));
}

// The table replaces the older one only when every write went through.
void SimulationRun::finishCsv() {
    if (csv && !csv->commit() && !outputFailed)
        reportFailure(tr("Could not write the CSV file %1.").arg(options.csvFile));
}

// ---- steps ----

int SimulationRun::run() {
    QElapsedTimer clock;
    clock.start();
    int done = 0;
    while (done < options.steps && caughtSignal == 0 && !outputFailed)
        simulateStep(++done);
    progress.clear();
    const int signalNumber = caughtSignal;
    saveFinalState();
    finishCsv();
    printSummary(done, clock.nsecsElapsed() / 1e9, signalNumber);
    if (outputFailed)
        return 1;
    return signalNumber != 0 ? 128 + signalNumber : 0;
}

// Step number done of this run: the step, its row, its snapshot, the progress.
void SimulationRun::simulateStep(int done) {
    QElapsedTimer stepClock;
    stepClock.start();
    if (progress.outputIsTerminal)
        progress.clear();
    const int simulatedBefore = simulation->entitiesStatistics.sumSimmTime;
    simulation->simulateNextStepAndLog();
    const int stepMs = simulation->entitiesStatistics.sumSimmTime - simulatedBefore;
    if (!writeCsv(StatisticsCsv::row(*simulation, stepMs)))
        reportFailure(tr("Could not write the CSV file %1.").arg(options.csvFile));
    else
        saveSnapshot();
    const int living = livingPlants(*simulation);
    if (living > mostPlants || done == 1) {
        mostPlants = living;
        mostPlantsStep = simulation->simulationStepNr;
    }
    // Smoothed: steps slow down as the plants multiply.
    const double seconds = stepClock.nsecsElapsed() / 1e9;
    secondsPerStep = done == 1 ? seconds : 0.7 * secondsPerStep + 0.3 * seconds;
    showStepProgress(done);
}

void SimulationRun::showStepProgress(int done) {
    const double perSecond = secondsPerStep > 0 ? 1.0 / secondsPerStep : 0.0;
    progress.show(tr("Step %1 of %2: %3 plants, %4 steps/s, about %5 left")
                      .arg(simulation->simulationStepNr)
                      .arg(qint64(firstStep) + options.steps - 1)
                      .arg(livingPlants(*simulation))
                      .arg(perSecond, 0, 'f', 1)
                      .arg(duration(secondsPerStep * (options.steps - done))),
                  progress.outputIsTerminal);
}

void SimulationRun::printSummary(int done, double seconds, int signalNumber) const {
    QString summary;
    if (signalNumber != 0)
        summary = tr("Interrupted. ");
    if (done == 0) {
        summary += tr("No step simulated; %1 plants living.").arg(livingPlants(*simulation));
    } else {
        summary += tr("Steps %1 to %2 in %3 (%4 steps/s); %5 plants living at the end, at most "
                      "%6 after step %7.")
                       .arg(firstStep)
                       .arg(simulation->simulationStepNr)
                       .arg(duration(seconds))
                       .arg(seconds > 0 ? done / seconds : 0.0, 0, 'f', 1)
                       .arg(livingPlants(*simulation))
                       .arg(mostPlants)
                       .arg(mostPlantsStep);
    }
    std::cerr << summary.toStdString() << std::endl;
}

} // namespace simrunner
