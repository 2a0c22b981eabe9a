#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <vector>

namespace simrunner {

// What one headless run does, as given on the command line.
class RunOptions {
    Q_DECLARE_TR_FUNCTIONS(RunOptions)
public:
    bool help = false;
    bool version = false;
    int steps = 100;
    std::vector<unsigned long long> seeds; // the thirteen streams; empty: the program's own
    QString demFile;                       // empty: the compiled-in landscape
    QString loadFile;                      // a saved simulation to continue
    QString resumeFile;                    // an exact state to continue
    bool areaGiven = false;
    int area[4] = {0, 0, 0, 0}; // plant area: first and last column, first and last row
    QString csvFile;
    QString outFolder = ".";
    int snapshotEvery = 0; // 0: no snapshots
    QString saveFile;

    // Reads the arguments that follow the program name. On a mistake returns
    // false with one line saying what is wrong.
    bool parse(const QStringList& arguments, QString& error);

    // Where the exact state of a simulation file goes: beside it.
    static QString stateFileOf(const QString& simFile) { return simFile + ".state"; }

    static QString helpText();
    static QString versionText();
    static QString sourceRevision();

private:
    bool checkStart(QString& error) const;
    bool checkOutputNames(QString& error) const;
};

} // namespace simrunner
