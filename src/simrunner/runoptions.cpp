#include "simrunner/runoptions.h"

#include "sourcerevision.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <limits>

namespace simrunner {

namespace {

const int nrSeeds = 13;

bool isWholeNumber(const QString& text) {
    static const QRegularExpression digits("^[0-9]+$");
    return digits.match(text).hasMatch();
}

// Comma-separated whole numbers, exactly count of them, each fitting 64 bits.
bool parseNumberList(const QString& text, int count, std::vector<unsigned long long>& numbers) {
    const QStringList parts = text.split(',');
    if (parts.size() != count)
        return false;
    numbers.clear();
    for (const QString& part : parts) {
        bool ok = false;
        const unsigned long long n = part.trimmed().toULongLong(&ok, 10);
        if (!isWholeNumber(part.trimmed()) || !ok)
            return false;
        numbers.push_back(n);
    }
    return true;
}

bool parseCount(const QString& text, int lowest, int& value) {
    bool ok = false;
    const int n = text.toInt(&ok, 10);
    if (!isWholeNumber(text) || !ok || n < lowest)
        return false;
    value = n;
    return true;
}

QString absolute(const QString& file) {
    return QDir::cleanPath(QDir::current().absoluteFilePath(file));
}

// A file that a snapshot every period steps into folder may be written to.
bool isSnapshotName(const QString& file, const QString& folder, int period) {
    static const QRegularExpression name("^([1-9][0-9]{0,9})\\.sim(\\.state)?$");
    const QFileInfo info(absolute(file));
    const QRegularExpressionMatch match = name.match(info.fileName());
    return period > 0 && info.path() == absolute(folder) && match.hasMatch() &&
           match.captured(1).toLongLong() % period == 0;
}

} // namespace

bool RunOptions::parse(const QStringList& arguments, QString& error) {
    QCommandLineParser parser;
    const QCommandLineOption helpOption(QStringList{"h", "help"}), versionOption("version");
    const QCommandLineOption stepsOption("steps", {}, "N"), seedsOption("seeds", {}, "LIST"),
        seedOption("seed", {}, "N"), demOption("dem", {}, "FILE"), loadOption("load", {}, "FILE"),
        resumeOption("resume", {}, "FILE"), areaOption("area", {}, "LIST"),
        csvOption("csv", {}, "FILE"), outOption("out", {}, "DIR"),
        snapshotOption("snapshot-every", {}, "K"), saveOption("save", {}, "FILE");
    parser.addOptions({helpOption, versionOption, stepsOption, seedsOption, seedOption, demOption,
                       loadOption, resumeOption, areaOption, csvOption, outOption, snapshotOption,
                       saveOption});
    if (!parser.parse(QStringList{"virela-sim"} + arguments)) {
        error = parser.errorText() + ' ' + tr("See virela-sim --help.");
        return false;
    }
    if (!parser.positionalArguments().isEmpty()) {
        error = tr("Unexpected argument '%1'. See virela-sim --help.")
                    .arg(parser.positionalArguments().first());
        return false;
    }
    help = parser.isSet(helpOption);
    version = parser.isSet(versionOption);

    if (parser.isSet(stepsOption) && !parseCount(parser.value(stepsOption), 0, steps)) {
        error =
            tr("--steps needs a whole number of steps, not '%1'.").arg(parser.value(stepsOption));
        return false;
    }
    if (parser.isSet(seedsOption) && parser.isSet(seedOption)) {
        error = tr("Give either --seeds or --seed, not both.");
        return false;
    }
    if (parser.isSet(seedsOption) && !parseNumberList(parser.value(seedsOption), nrSeeds, seeds)) {
        error = tr("--seeds needs thirteen whole numbers separated by commas, not '%1'.")
                    .arg(parser.value(seedsOption));
        return false;
    }
    if (parser.isSet(seedOption)) {
        // Run N takes the block of seeds 13N - 12 ... 13N: run 1 is the program's own.
        int n = 0;
        if (!parseCount(parser.value(seedOption), 1, n)) {
            error = tr("--seed needs a whole number from 1 up, not '%1'.")
                        .arg(parser.value(seedOption));
            return false;
        }
        seeds.clear();
        for (int i = 0; i < nrSeeds; ++i)
            seeds.push_back(13ull * (unsigned long long)(n - 1) + i + 1);
    }
    demFile = parser.value(demOption);
    loadFile = parser.value(loadOption);
    resumeFile = parser.value(resumeOption);
    if (parser.isSet(demOption) && demFile.isEmpty()) {
        error = tr("--dem needs a file name.");
        return false;
    }
    if ((parser.isSet(loadOption) && loadFile.isEmpty()) ||
        (parser.isSet(resumeOption) && resumeFile.isEmpty())) {
        error = tr("--load and --resume need a file name.");
        return false;
    }
    areaGiven = parser.isSet(areaOption);
    if (areaGiven) {
        std::vector<unsigned long long> bounds;
        const bool ok = parseNumberList(parser.value(areaOption), 4, bounds) &&
                        bounds[0] <= bounds[1] && bounds[2] <= bounds[3] &&
                        bounds[1] <= (unsigned long long)std::numeric_limits<int>::max() &&
                        bounds[3] <= (unsigned long long)std::numeric_limits<int>::max();
        if (!ok) {
            error = tr("--area needs four whole numbers FIRST_COLUMN,LAST_COLUMN,FIRST_ROW,"
                       "LAST_ROW with first <= last, not '%1'.")
                        .arg(parser.value(areaOption));
            return false;
        }
        for (int i = 0; i < 4; ++i)
            area[i] = int(bounds[i]);
    }
    csvFile = parser.value(csvOption);
    saveFile = parser.value(saveOption);
    if (parser.isSet(outOption))
        outFolder = parser.value(outOption);
    if ((parser.isSet(csvOption) && csvFile.isEmpty()) ||
        (parser.isSet(saveOption) && saveFile.isEmpty()) ||
        (parser.isSet(outOption) && outFolder.isEmpty())) {
        error = tr("--csv, --save and --out need a name.");
        return false;
    }
    if (parser.isSet(snapshotOption) &&
        !parseCount(parser.value(snapshotOption), 1, snapshotEvery)) {
        error = tr("--snapshot-every needs a whole number of steps from 1 up, not '%1'.")
                    .arg(parser.value(snapshotOption));
        return false;
    }
    if (parser.isSet(outOption) && snapshotEvery == 0) {
        error = tr("--out names the folder of the snapshots: give --snapshot-every K too.");
        return false;
    }
    return checkStart(error) && checkOutputNames(error);
}

// An exact continuation brings its own seeds and plant area.
bool RunOptions::checkStart(QString& error) const {
    if (resumeFile.isEmpty())
        return true;
    if (!loadFile.isEmpty()) {
        error = tr("Give either --load or --resume, not both.");
        return false;
    }
    if (!seeds.empty() || areaGiven) {
        error = tr("--resume continues with the seeds and the plant area of its state: leave out "
                   "--seeds, --seed and --area.");
        return false;
    }
    return true;
}

// Two outputs of one name would overwrite each other.
bool RunOptions::checkOutputNames(QString& error) const {
    QStringList files;
    if (!csvFile.isEmpty())
        files << csvFile;
    if (!saveFile.isEmpty())
        files << saveFile << stateFileOf(saveFile);
    for (int i = 0; i < files.size(); ++i) {
        bool twice = isSnapshotName(files[i], outFolder, snapshotEvery);
        for (int j = i + 1; j < files.size(); ++j)
            twice = twice || absolute(files[i]) == absolute(files[j]);
        if (twice) {
            error = tr("Two outputs would be written to the same file %1.").arg(files[i]);
            return false;
        }
    }
    return true;
}

QString RunOptions::helpText() {
    // clang-format off
    return tr("Usage: virela-sim [options]\n"
              "Runs the ecosystem simulation of Virela without a window: the same steps,\n"
              "statistics lines and simulation files as the window program, one run per call.\n"
              "\n"
              "Start:\n"
              "  --dem FILE           terrain from a DEM file (.dmr, 100 x 100 points) instead\n"
              "                       of the compiled-in landscape\n"
              "  --load FILE          continue a saved simulation (.sim) as the window program\n"
              "                       continues one (the file keeps six digits, and not which\n"
              "                       plants were dominated nor the last step's seed count, so\n"
              "                       the continuation is not the saved run's own)\n"
              "  --resume FILE        continue exactly from the state file (.sim.state) that\n"
              "                       virela-sim writes beside every .sim: the same steps as if\n"
              "                       the run had not stopped. Give the same terrain (--dem) as\n"
              "                       the run that wrote it; its seeds and plant area come\n"
              "                       with it (not with --load, --seeds, --seed or --area)\n"
              "  --area X0,X1,Y0,Y1   plant area: grid columns X0 to X1 and rows Y0 to Y1\n"
              "                       (default 25,75,25,75; a loaded simulation brings its own)\n"
              "  --seeds S1,...,S13   the thirteen random stream seeds (default 1,2,...,13;\n"
              "                       with --load they replace the streams stored in the file)\n"
              "  --seed N             shorthand for the seeds 13N-12 to 13N (--seed 1 is the\n"
              "                       default), for replicate sweeps\n"
              "  --steps N            number of steps to simulate (default 100)\n"
              "\n"
              "Output (missing folders are made; with a bad input nothing is written):\n"
              "  --csv FILE           one CSV row per step: living plants, births, deaths by\n"
              "                       dominance and by other causes per species, and the\n"
              "                       step's milliseconds\n"
              "  --snapshot-every K   save the simulation as <step>.sim after every K-th step\n"
              "  --out DIR            folder of the snapshots (default: the working folder)\n"
              "  --save FILE          save the final state\n"
              "                       Beside every .sim goes its exact state, <name>.sim.state,\n"
              "                       for --resume.\n"
              "  --help               show this help\n"
              "  --version            show the version and the source revision\n"
              "\n"
              "Standard output carries the window program's lines: one statistics line per\n"
              "step, save and load confirmations. Standard error shows a progress line when it\n"
              "is a terminal, and a summary at the end. Ctrl+C stops after the current step\n"
              "and leaves complete files.\n"
              "Exit status: 0 done, 1 an output (standard output too) could not be written,\n"
              "2 bad input, 128 + the signal number when interrupted.\n"
              "\n"
              "Examples:\n"
              "  virela-sim --steps 100 --seed 3 --dem my.dmr --csv runs/3.csv \\\n"
              "             --snapshot-every 30 --out runs/3 --save runs/3/final.sim\n"
              "  virela-sim --resume runs/3/60.sim.state --dem my.dmr --steps 40 \\\n"
              "             --csv runs/3-rest.csv --save runs/3/final.sim\n");
    // clang-format on
}

QString RunOptions::sourceRevision() {
    return QStringLiteral(VIRELA_SOURCE_REVISION);
}

// Not translated: scripts read it, and the CSV header repeats it.
QString RunOptions::versionText() {
    return QString("virela-sim %1 (source revision %2)")
        .arg(QStringLiteral(VIRELA_VERSION), sourceRevision());
}

} // namespace simrunner
