#pragma once

#include "simrunner/progressline.h"
#include "simrunner/runoptions.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <memory>
#include <string>
#include <vector>

class QSaveFile;

namespace ecosystem {
class CEcosystemSimulation;
namespace data {
class CTerrainData;
}
} // namespace ecosystem

namespace simrunner {

// One headless run: the terrain data and the simulation of the window
// program, stepped as its simulation timer steps them, with the CSV table,
// snapshots and final state that the options ask for.
class SimulationRun {
    Q_DECLARE_TR_FUNCTIONS(SimulationRun)
public:
    explicit SimulationRun(const RunOptions& options);
    ~SimulationRun();
    SimulationRun(const SimulationRun&) = delete;
    SimulationRun& operator=(const SimulationRun&) = delete;

    // Makes sure every output can be written, touching nothing. False with
    // one line when one cannot.
    bool checkOutputs(QString& error) const;
    // The inputs: terrain, saved simulation or state, plant area and seeds;
    // the vegetation and terrain layers are made ready as the first step
    // would. On bad input returns false with one line; nothing has been
    // written, not even to standard output (its lines wait for run()).
    bool prepare(QString& error);
    // Makes the missing folders and starts the CSV table. False with one line
    // when an output cannot be written; the folders made are taken away again.
    bool openOutputs(QString& error);
    // Simulates the steps; returns the exit status (0, 1 when an output could
    // not be written, 128 + the signal number when interrupted).
    int run();

    // From now on Ctrl+C (SIGINT), SIGTERM, SIGHUP and SIGPIPE stop the run
    // after the current step, with complete files; a second SIGINT, SIGTERM
    // or SIGHUP ends the program at once.
    static void catchInterruptions();

private:
    QString takeMessages();
    void keepAsNotes();
    void passOnNotes();
    QString terrainName() const;
    QStringList outputFolders() const;
    bool loadTerrain(QString& error);
    bool checkArea(QString& error) const;
    void startSimulation();
    bool loadSimulation(QString& error);
    bool resumeState(QString& error);
    void applyAreaAndSeeds();
    bool makeFolder(const QString& folder);
    void removeMadeFolders();
    bool openCsv();
    std::vector<std::string> csvComments() const;
    bool writeCsv(const std::string& text);
    void reportFailure(const QString& text);
    void checkStandardOutput();
    void saveSnapshot();
    void saveFinalState();
    void saveStateBeside(const QString& simFile);
    void finishCsv();
    void simulateStep(int done);
    void showStepProgress(int done);
    void printSummary(int done, double seconds, int caughtSignal) const;

    const RunOptions& options;
    std::unique_ptr<ecosystem::data::CTerrainData> terrain;
    std::unique_ptr<ecosystem::CEcosystemSimulation> simulation;
    std::unique_ptr<QSaveFile> csv;
    ProgressLine progress;
    std::vector<std::string> messages; // told to the user by the layers below
    QStringList notes;                 // of those, what is no failure: for standard error
    std::string heldOutput;            // standard output of the preparation
    QStringList madeFolders;           // by openOutputs, in the order made
    bool outputFailed = false;         // an output could not be written; reported
    int firstStep = 0;
    int mostPlants = 0, mostPlantsStep = 0;
    double secondsPerStep = 0;
    std::vector<unsigned long long> startSeeds;
};

} // namespace simrunner
