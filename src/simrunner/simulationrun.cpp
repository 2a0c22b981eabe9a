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

// What the layers below said so far is no failure: a note for standard error.
void SimulationRun::keepAsNotes() {
    for (const std::string& text : messages)
        notes << QString::fromStdString(text).simplified();
    messages.clear();
}

void SimulationRun::passOnNotes() {
    keepAsNotes();
    if (notes.isEmpty())
        return;
    progress.clear();
    for (const QString& note : notes)
        std::cerr << "virela-sim: " << tr("note: %1").arg(note).toStdString() << std::endl;
    notes.clear();
}

QString SimulationRun::terrainName() const {
    return options.demFile.isEmpty() ? QString("compiled-in landscape") : options.demFile;
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

namespace {
// Standard output goes into text while it lives.
class HeldOutput {
public:
    explicit HeldOutput(std::string& text) : text(text), before(std::cout.rdbuf(held.rdbuf())) {}
    ~HeldOutput() {
        std::cout.rdbuf(before);
        text += held.str();
    }
    HeldOutput(const HeldOutput&) = delete;
    HeldOutput& operator=(const HeldOutput&) = delete;

private:
    std::string& text;
    std::ostringstream held;
    std::streambuf* before;
};
} // namespace

// The window program's lines (a load's confirmation) wait until every input
// has been accepted: a refused run prints nothing on standard output.
bool SimulationRun::prepare(QString& error) {
    const HeldOutput held(heldOutput);
    terrain = std::make_unique<CTerrainData>();
    simulation = std::make_unique<CEcosystemSimulation>();
    simulation->setTerrainData(*terrain);
    if (!loadTerrain(error) || !checkArea(error))
        return false;
    startSimulation();
    if (!loadSimulation(error) || !resumeState(error))
        return false;
    applyAreaAndSeeds();
    firstStep = simulation->simulationStepNr + 1;
    startSeeds = simulation->getRandomGeneratorSeeds();
    return true;
}

bool SimulationRun::loadTerrain(QString& error) {
    if (options.demFile.isEmpty())
        return true;
    const bool loaded = terrain->reloadDMR(QFile::encodeName(options.demFile).constData());
    progress.clear();
    if (loaded) {
        keepAsNotes();
        return true;
    }
    error = tr("Could not use the DEM file %1: %2").arg(options.demFile, takeMessages());
    return false;
}

bool SimulationRun::checkArea(QString& error) const {
    const CTerrainData& t = *terrain;
    if (!options.areaGiven || (options.area[1] < t.stTockX && options.area[3] < t.stTockY))
        return true;
    error = tr("The plant area %1,%2,%3,%4 reaches past the %5 x %6 grid.")
                .arg(options.area[0])
                .arg(options.area[1])
                .arg(options.area[2])
                .arg(options.area[3])
                .arg(t.stTockX)
                .arg(t.stTockY);
    return false;
}

// The vegetation and the layers, as the window program's first step makes
// them. The window program loads a file only into a simulation that has run,
// so before a load one step is taken silently, as F5 pressed once: the load
// replaces its plants and streams, and the seed count its growth left (the
// same after any of the first three steps) is what the window program's first
// step after the load sows from. What that step says (that the plant area has
// no dry land) is a note for when the run starts.
void SimulationRun::startSimulation() {
    if (options.loadFile.isEmpty())
        simulation->zagotoviInicializiranostSimulacije();
    else
        simulation->simulateNextStep();
    progress.clear();
    keepAsNotes();
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

bool SimulationRun::resumeState(QString& error) {
    if (options.resumeFile.isEmpty() || simulation->loadState(options.resumeFile.toStdString()))
        return true;
    error = tr("Could not continue from %1: %2").arg(options.resumeFile, takeMessages());
    return false;
}

// A plant area without dry land is no mistake: the simulation sows only
// beside existing plants there, and says so once.
void SimulationRun::applyAreaAndSeeds() {
    CTerrainData& t = *terrain;
    if (options.areaGiven) {
        // As the plant-area editor of the window program sets it.
        t.lupaXmin = options.area[0];
        t.lupaXmax = options.area[1];
        t.lupaYmin = options.area[2];
        t.lupaYmax = options.area[3];
        t.buildNonwaterIndexes();
    }
    if (!options.seeds.empty())
        simulation->setRandomGeneratorSeeds(options.seeds);
}

// ---- outputs ----

QStringList SimulationRun::outputFolders() const {
    QStringList folders;
    if (options.snapshotEvery > 0)
        folders << options.outFolder;
    for (const QString& file : {options.csvFile, options.saveFile})
        if (!file.isEmpty())
            folders << folderOf(file);
    return folders;
}

bool SimulationRun::checkOutputs(QString& error) const {
    QStringList files{options.csvFile, options.saveFile};
    if (!options.saveFile.isEmpty())
        files << RunOptions::stateFileOf(options.saveFile);
    for (const QString& file : files) {
        if (!file.isEmpty() && QFileInfo(file).isDir()) {
            error = tr("%1 is a folder, not a file.").arg(file);
            return false;
        }
    }
    for (const QString& folder : outputFolders()) {
        if (!canWriteInto(folder)) {
            error = tr("Cannot write into the folder %1.").arg(folder);
            return false;
        }
    }
    return true;
}

// All or nothing: when one output cannot be started, the folders made for
// the others go again.
bool SimulationRun::openOutputs(QString& error) {
    for (const QString& folder : outputFolders()) {
        if (!makeFolder(folder)) {
            error = tr("Cannot make the folder %1.").arg(folder);
            removeMadeFolders();
            return false;
        }
    }
    if (!openCsv()) {
        error = tr("Could not write the CSV file %1.").arg(options.csvFile);
        removeMadeFolders();
        return false;
    }
    return true;
}

// The folder and the missing ones above it, each remembered once made.
bool SimulationRun::makeFolder(const QString& folder) {
    QStringList missing;
    for (QFileInfo info(QDir::cleanPath(QDir::current().absoluteFilePath(folder)));
         !info.exists() && !info.isRoot(); info = QFileInfo(info.absolutePath()))
        missing.prepend(info.absoluteFilePath());
    for (const QString& path : missing) {
        if (!QDir().mkdir(path))
            return false;
        madeFolders << path;
    }
    return true;
}

void SimulationRun::removeMadeFolders() {
    while (!madeFolders.isEmpty())
        QDir().rmdir(madeFolders.takeLast());
}

// The table replaces an older one only when it is complete (at the end of the
// run, also of an interrupted one).
bool SimulationRun::openCsv() {
    if (options.csvFile.isEmpty())
        return true;
    csv = std::make_unique<QSaveFile>(options.csvFile);
    if (csv->open(QIODevice::WriteOnly) &&
        writeCsv(StatisticsCsv::header(csvComments(), int(simulation->rastlinskeVrste.size()))))
        return true;
    csv.reset();
    return false;
}

std::vector<std::string> SimulationRun::csvComments() const {
    const CTerrainData& t = *terrain;
    std::vector<std::string> comments;
    comments.push_back(RunOptions::versionText().toStdString());
    comments.push_back("terrain: " + terrainName().toStdString());
    const std::string atStep = " at step " + std::to_string(firstStep - 1);
    if (!options.resumeFile.isEmpty())
        comments.push_back("start: " + options.resumeFile.toStdString() + atStep + ", exactly");
    else if (!options.loadFile.isEmpty())
        comments.push_back("start: " + options.loadFile.toStdString() + atStep);
    else
        comments.push_back("start: new simulation");
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

// Standard output that cannot be written (a full disk) fails the run; a
// reader that went away (SIGPIPE) interrupts it instead.
void SimulationRun::checkStandardOutput() {
    if (std::cout.flush() || caughtSignal == SIGPIPE || outputFailed)
        return;
    reportFailure(tr("Could not write to standard output."));
}

// What the simulation says while it saves is why the save failed: the notes
// of the step have been passed on before.
void SimulationRun::saveSnapshot() {
    const std::string written =
        simulation->autoSave(options.snapshotEvery, options.outFolder.toStdString());
    if (written.empty())
        return;
    const QString file = QString::fromStdString(written);
    const QString told = takeMessages();
    if (!told.isEmpty())
        reportFailure(tr("Could not save %1: %2").arg(file, told));
    else
        saveStateBeside(file);
}

void SimulationRun::saveFinalState() {
    if (options.saveFile.isEmpty() || outputFailed)
        return;
    passOnNotes();
    simulation->saveSimulation(options.saveFile.toStdString());
    const QString told = takeMessages();
    if (!told.isEmpty())
        reportFailure(tr("Could not save %1: %2").arg(options.saveFile, told));
    else
        saveStateBeside(options.saveFile);
}

// Beside every simulation file its exact state, for --resume.
void SimulationRun::saveStateBeside(const QString& simFile) {
    const QString stateFile = RunOptions::stateFileOf(simFile);
    if (!simulation->saveState(stateFile.toStdString(), terrainName().toStdString()))
        reportFailure(tr("Could not save %1: %2").arg(stateFile, takeMessages()));
}

// The table replaces the older one only when every write went through.
void SimulationRun::finishCsv() {
    if (csv && !csv->commit() && !outputFailed)
        reportFailure(tr("Could not write the CSV file %1.").arg(options.csvFile));
}

// ---- steps ----

int SimulationRun::run() {
    std::cout << heldOutput;
    checkStandardOutput();
    passOnNotes();
    QElapsedTimer clock;
    clock.start();
    int done = 0;
    while (done < options.steps && caughtSignal == 0 && !outputFailed)
        simulateStep(++done);
    progress.clear();
    const int signalNumber = caughtSignal;
    saveFinalState();
    finishCsv();
    checkStandardOutput();
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
    passOnNotes();
    if (!writeCsv(StatisticsCsv::row(*simulation, stepMs)))
        reportFailure(tr("Could not write the CSV file %1.").arg(options.csvFile));
    else
        saveSnapshot();
    checkStandardOutput();
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
