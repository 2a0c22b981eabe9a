// virela-sim, run as its users run it, against the simulation library stepped
// the way the window program steps it: the same counts, lines and files.
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using ecosystem::CEcosystemSimulation;
using ecosystem::data::CTerrainData;

namespace {

struct Result {
    int code = -1;
    QString out, err;
};

// With outputFile, standard output goes there.
Result runSim(const QStringList& arguments, const QString& folder,
              const QString& outputFile = QString()) {
    QProcess process;
    process.setWorkingDirectory(folder);
    if (!outputFile.isEmpty())
        process.setStandardOutputFile(outputFile);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "C");
    process.setProcessEnvironment(environment);
    process.start(VIRELA_SIM, arguments);
    process.waitForFinished(300000);
    Result r;
    r.code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    r.out = QString::fromLocal8Bit(process.readAllStandardOutput());
    r.err = QString::fromLocal8Bit(process.readAllStandardError());
    return r;
}

QByteArray contents(const QString& file) {
    QFile f(file);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(missing)");
}

void write(const QString& file, const QByteArray& text) {
    QFile f(file);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(text);
}

// The compiled-in landscape with its relief stretched: another terrain whose
// every layer differs; flattened (factor 0), a terrain without dry land.
QByteArray stretchedDem(double factor = 1.7) {
    QFile f(":/gui/textures/100x100.dmr");
    if (!f.open(QIODevice::ReadOnly))
        return {};
    QByteArray out;
    for (const QByteArray& line : f.readAll().split('\n')) {
        const QList<QByteArray> xyz = line.simplified().split(' ');
        if (xyz.size() == 3)
            out +=
                xyz[0] + ' ' + xyz[1] + ' ' + QByteArray::number(xyz[2].toDouble() * factor) + '\n';
    }
    return out;
}

// Counts per species after each step, by the library's own tallies.
struct Counts {
    std::vector<int> living, births, dominanceDeaths, otherDeaths;
};

// The window program's run: the scene builds the terrain layers, then every
// tick of the simulation timer runs a step and autosaves when due.
struct WindowRun {
    CTerrainData terrain;
    std::unique_ptr<CEcosystemSimulation> simulation;
    std::vector<Counts> steps;

    WindowRun() {
        ecosystem::simulationEntities::CRastlina::lastID = 0; // as at program start
        simulation = std::make_unique<CEcosystemSimulation>();
        simulation->setTerrainData(terrain);
    }
    void setArea(int x0, int x1, int y0, int y1) {
        terrain.lupaXmin = x0;
        terrain.lupaXmax = x1;
        terrain.lupaYmin = y0;
        terrain.lupaYmax = y1;
        terrain.buildNonwaterIndexes();
    }
    void step(int n, int autosave, const QString& folder) {
        if (!terrain.isDataReady())
            terrain.buildTerrainData();
        for (int i = 0; i < n; ++i) {
            simulation->simulateNextStep();
            Counts c;
            for (const auto& vrsta : simulation->rastlinskeVrste)
                c.living.push_back(int(vrsta.ziviPrimerkiTeVrste.size()));
            const auto& s = simulation->entitiesStatistics;
            c.births = s.rojeniVKoraku;
            c.dominanceDeaths = s.umrliZaradiDominiranostiVKoraku;
            c.otherDeaths = s.umrliOstaloVKoraku;
            steps.push_back(c);
            simulation->autoSave(autosave, folder.toStdString());
        }
    }
};

struct Csv {
    QStringList comments;
    QString columns;
    std::vector<std::vector<int>> rows;
};

Csv readCsv(const QString& file) {
    Csv csv;
    for (const QString& line : QString::fromUtf8(contents(file)).split('\n', Qt::SkipEmptyParts)) {
        if (line.startsWith("# ")) {
            csv.comments << line.mid(2);
        } else if (csv.columns.isEmpty()) {
            csv.columns = line;
        } else {
            std::vector<int> row;
            for (const QString& field : line.split(','))
                row.push_back(field.toInt());
            csv.rows.push_back(row);
        }
    }
    return csv;
}

// The rows from step first on, without their step times.
std::vector<std::vector<int>> countsFrom(const Csv& csv, int first) {
    std::vector<std::vector<int>> rows;
    for (std::vector<int> row : csv.rows) {
        if (row[0] < first)
            continue;
        row.pop_back();
        rows.push_back(row);
    }
    return rows;
}

// Every file and folder under root with its contents, to see that nothing changed.
QMap<QString, QByteArray> listing(const QString& root) {
    QMap<QString, QByteArray> files;
    QDirIterator it(root, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        files[QDir(root).relativeFilePath(path)] =
            QFileInfo(path).isDir() ? QByteArray("(folder)") : contents(path);
    }
    return files;
}

const int nrSpecies = 5;

// Row layout: step, then living, births, dominance deaths, other deaths per species.
void compareRows(const Csv& csv, const std::vector<Counts>& expected, int firstStep) {
    QCOMPARE(csv.rows.size(), expected.size());
    for (size_t k = 0; k < expected.size(); ++k) {
        const std::vector<int>& row = csv.rows[k];
        QCOMPARE(int(row.size()), 2 + 4 * nrSpecies);
        QCOMPARE(row[0], firstStep + int(k));
        const Counts& c = expected[k];
        for (int s = 0; s < nrSpecies; ++s) {
            QCOMPARE(row[1 + s], c.living[s]);
            QCOMPARE(row[1 + nrSpecies + s], c.births[s]);
            QCOMPARE(row[1 + 2 * nrSpecies + s], c.dominanceDeaths[s]);
            QCOMPARE(row[1 + 3 * nrSpecies + s], c.otherDeaths[s]);
        }
    }
}

} // namespace

class TestSimRunner : public QObject {
    Q_OBJECT

    // good.sim and good.sim.state, saved after step 3, of another plant area
    // than the default one.
    QTemporaryDir made;

private slots:
    void initTestCase() {
        QCOMPARE(
            runSim({"--area", "20,70,30,80", "--steps", "3", "--save", "good.sim"}, made.path())
                .code,
            0);
    }

    void runIsTheWindowProgramsRun_data() {
        QTest::addColumn<QStringList>("start");
        QTest::newRow("defaults") << QStringList{};
        QTest::newRow("DEM, plant area and seed block")
            << QStringList{"--dem", "tall.dmr", "--area", "20,70,30,80", "--seed", "4"};
    }
    void runIsTheWindowProgramsRun() {
        QFETCH(QStringList, start);
        QTemporaryDir dir;
        write(dir.filePath("tall.dmr"), stretchedDem());
        const Result r =
            runSim(start + QStringList{"--steps", "36", "--csv", "out/run.csv", "--snapshot-every",
                                       "12", "--out", "snaps", "--save", "final.sim"},
                   dir.path());
        QCOMPARE(r.code, 0);

        WindowRun window;
        if (!start.isEmpty()) {
            window.terrain.reloadDMR(QFile::encodeName(dir.filePath("tall.dmr")).constData());
            window.setArea(20, 70, 30, 80);
            std::vector<unsigned long long> seeds;
            for (int i = 40; i <= 52; ++i)
                seeds.push_back(i);
            window.simulation->setRandomGeneratorSeeds(seeds);
        }
        QDir(dir.path()).mkdir("window");
        window.step(36, 12, dir.filePath("window"));
        QVERIFY(window.steps.back().living[0] > 100); // plants did settle

        const Csv csv = readCsv(dir.filePath("out/run.csv"));
        compareRows(csv, window.steps, 1);
        QCOMPARE(csv.columns,
                 QString("step,living_shrub,living_willow,living_maple,living_spruce,living_beech,"
                         "births_shrub,births_willow,births_maple,births_spruce,births_beech,"
                         "dominance_deaths_shrub,dominance_deaths_willow,dominance_deaths_maple,"
                         "dominance_deaths_spruce,dominance_deaths_beech,other_deaths_shrub,"
                         "other_deaths_willow,other_deaths_maple,other_deaths_spruce,"
                         "other_deaths_beech,step_ms"));
        QCOMPARE(csv.comments.value(0) + '\n', runSim({"--version"}, dir.path()).out);
        QVERIFY(csv.comments.contains(start.isEmpty() ? "seeds: 1,2,3,4,5,6,7,8,9,10,11,12,13"
                                                      : "seeds: 40,41,42,43,44,45,46,47,48,49,"
                                                        "50,51,52"));
        // Births and deaths account for every change of the living counts,
        // and all deaths together are the library's running totals.
        int dominance = 0, other = 0;
        for (size_t k = 0; k < csv.rows.size(); ++k) {
            for (int s = 0; s < nrSpecies; ++s) {
                const std::vector<int>& row = csv.rows[k];
                const int before = k == 0 ? 0 : csv.rows[k - 1][1 + s];
                QCOMPARE(row[1 + s], before + row[1 + nrSpecies + s] - row[1 + 2 * nrSpecies + s] -
                                         row[1 + 3 * nrSpecies + s]);
                dominance += row[1 + 2 * nrSpecies + s];
                other += row[1 + 3 * nrSpecies + s];
            }
        }
        QCOMPARE(dominance, window.simulation->entitiesStatistics.umrliZaradiDominiranosti);
        QCOMPARE(other, window.simulation->entitiesStatistics.umrliOstalo);
        QVERIFY(dominance > 0 && other > 0);

        // The same simulation files, and the same lines on standard output.
        QCOMPARE(QDir(dir.filePath("snaps")).entryList(QDir::Files),
                 QStringList({"12.sim", "12.sim.state", "24.sim", "24.sim.state", "36.sim",
                              "36.sim.state"}));
        for (const char* name : {"12.sim", "24.sim", "36.sim"})
            QCOMPARE(contents(dir.filePath(QString("snaps/") + name)),
                     contents(dir.filePath(QString("window/") + name)));
        QCOMPARE(contents(dir.filePath("final.sim")), contents(dir.filePath("window/36.sim")));
        const QStringList lines = r.out.split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 36 + 3 + 1);
        int line = 0;
        for (int k = 1; k <= 36; ++k) {
            int living = 0;
            for (int n : window.steps[k - 1].living)
                living += n;
            QVERIFY(lines[line].startsWith(QString("@%1: time(render_all)=").arg(k)));
            QVERIFY(lines[line++].endsWith(QString(" ||  nrPlants=%1").arg(living)));
            if (k % 12 == 0)
                QCOMPARE(lines[line++], QString("Simulation @ step %1successfouly saved").arg(k));
        }
        QCOMPARE(lines[line], QString("Simulation @ step 36successfouly saved"));
        // Standard error is no terminal here: the summary only.
        QCOMPARE(r.err.count('\n'), 1);
        QVERIFY(r.err.startsWith("Steps 1 to 36 in "));
    }

    // A saved run continues as the window program continues it: loaded after
    // a first step (F5 once), then stepped.
    void loadedRunContinuesAsTheWindowProgramsDoes() {
        QTemporaryDir dir;
        QCOMPARE(runSim({"--steps", "20", "--snapshot-every", "10", "--out", "a"}, dir.path()).code,
                 0);
        const Result r =
            runSim({"--load", "a/10.sim", "--steps", "12", "--csv", "b.csv", "--save", "b.sim"},
                   dir.path());
        QCOMPARE(r.code, 0);
        QVERIFY(r.out.startsWith("Simulation @ step 10 with "));

        WindowRun window;
        window.terrain.buildTerrainData();
        window.simulation->simulateNextStep();
        window.simulation->loadSimulation(dir.filePath("a/10.sim").toStdString());
        window.step(12, -1, {});
        window.simulation->saveSimulation(dir.filePath("window.sim").toStdString());

        const Csv csv = readCsv(dir.filePath("b.csv"));
        QVERIFY(csv.comments.contains("start: a/10.sim at step 10"));
        compareRows(csv, window.steps, 11);
        QCOMPARE(contents(dir.filePath("b.sim")), contents(dir.filePath("window.sim")));
    }

    // Stopped at a snapshot and resumed from its state, a run is the run that
    // went on: the same counts, the same final file and state. At step 36
    // some plants are dominated; a loaded file brings a plant area that is not
    // the one of the dry-land list.
    void resumedRunIsTheStraightRun_data() {
        QTest::addColumn<QStringList>("start");
        QTest::newRow("plant area and seed block")
            << QStringList{"--area", "20,70,30,80", "--seed", "4"};
        QTest::newRow("a loaded file") << QStringList{"--load", "good.sim"};
    }
    void resumedRunIsTheStraightRun() {
        QFETCH(QStringList, start);
        QTemporaryDir dir;
        write(dir.filePath("tall.dmr"), stretchedDem());
        write(dir.filePath("good.sim"), contents(made.filePath("good.sim")));
        const QStringList dem{"--dem", "tall.dmr"};
        QCOMPARE(runSim(start + dem +
                            QStringList{"--steps", "40", "--snapshot-every", "12", "--out", "a",
                                        "--csv", "a.csv", "--save", "a.sim"},
                        dir.path())
                     .code,
                 0);
        const Csv a = readCsv(dir.filePath("a.csv"));
        const QString rest = QString::number(a.rows.back()[0] - 36);
        QCOMPARE(runSim(QStringList{"--resume", "a/36.sim.state", "--steps", rest, "--csv", "b.csv",
                                    "--save", "b.sim"} +
                            dem,
                        dir.path())
                     .code,
                 0);

        const Csv b = readCsv(dir.filePath("b.csv"));
        QVERIFY(b.comments.contains("start: a/36.sim.state at step 36, exactly"));
        QCOMPARE(int(b.rows.size()), rest.toInt());
        QCOMPARE(countsFrom(b, 0), countsFrom(a, 37));
        QCOMPARE(contents(dir.filePath("b.sim")), contents(dir.filePath("a.sim")));
        QCOMPARE(contents(dir.filePath("b.sim.state")), contents(dir.filePath("a.sim.state")));
    }

    // Each row's arguments come after the outputs of a 3-step run (CSV,
    // snapshots after every step, final state) and win; rows marked alone go
    // without those.
    void badInputChangesNothing_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("says");
        QTest::addColumn<bool>("alone");
        auto row = [](const char* tag, const QStringList& arguments, const QString& says,
                      bool alone = false) { QTest::newRow(tag) << arguments << says << alone; };
        row("unknown option", {"--frobnicate"}, "frobnicate");
        row("stray argument", {"run.csv"}, "run.csv");
        row("seed not a number", {"--seeds", "1,2,3,4,5,6,x,8,9,10,11,12,13"}, "--seeds");
        row("twelve seeds", {"--seeds", "1,2,3,4,5,6,7,8,9,10,11,12"}, "--seeds");
        row("seed past 64 bits", {"--seeds", "1,2,3,4,5,6,7,8,9,10,11,12,18446744073709551616"},
            "--seeds");
        row("seed block 0", {"--seed", "0"}, "--seed");
        row("negative steps", {"--steps", "-3"}, "--steps");
        row("snapshots every 0 steps", {"--snapshot-every", "0"}, "--snapshot-every");
        row("snapshot folder without snapshots", {"--out", "snaps"}, "--snapshot-every", true);
        row("area past the grid", {"--area", "25,100,25,75"}, "grid");
        row("area past the grid of a load", {"--load", "good.sim", "--area", "25,100,25,75"},
            "grid");
        row("area backwards", {"--area", "75,25,25,75"}, "--area");
        row("missing DEM", {"--dem", "none.dmr"}, "none.dmr");
        row("short DEM", {"--dem", "short.dmr"}, "short.dmr");
        row("DEM of words", {"--dem", "words.dmr"}, "words.dmr");
        row("missing simulation", {"--load", "none.sim"}, "none.sim");
        row("damaged simulation", {"--load", "damaged.sim"}, "damaged.sim");
        row("simulation of four species", {"--load", "four.sim"}, "four.sim");
        row("missing state", {"--resume", "none.state"}, "none.state");
        row("cut state", {"--resume", "cut.state"}, "cut.state: The state file is damaged. Line");
        row("state with a negative plant number", {"--resume", "bad.state"}, "plant number -1");
        row("simulation file for a state", {"--resume", "good.sim"}, "not a state file");
        row("state of another terrain", {"--resume", "good.sim.state", "--dem", "tall.dmr"},
            "another terrain: compiled-in landscape");
        row("state and load", {"--resume", "good.sim.state", "--load", "good.sim"}, "--load");
        row("state and seeds", {"--resume", "good.sim.state", "--seed", "2"}, "--seed");
        row("snapshot folder below a file", {"--out", "afile/snaps"}, "afile/snaps");
        row("CSV below a file", {"--csv", "afile/run.csv"}, "afile");
        row("CSV below a file after a load", {"--load", "good.sim", "--csv", "afile/run.csv"},
            "afile");
        row("CSV is a folder", {"--csv", "adir"}, "adir");
        row("final state below a file", {"--save", "afile/x.sim"}, "afile");
        row("final state's folder cannot be made after the others were",
            {"--csv", "new/run.csv", "--save", QString(300, 'x') + "/x.sim"}, "Cannot make");
        row("CSV is the final state", {"--csv", "final.sim"}, "final.sim");
        row("CSV is the final exact state", {"--csv", "final.sim.state"}, "final.sim.state");
        row("CSV is a snapshot", {"--csv", "snaps/2.sim"}, "snaps/2.sim");
    }
    void badInputChangesNothing() {
        QFETCH(QStringList, arguments);
        QFETCH(QString, says);
        QFETCH(bool, alone);
        QTemporaryDir dir;
        const QByteArray seeds = "1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t11\t12\t13\t\n25\t75\t25\t75\n";
        write(dir.filePath("run.csv"), "an older table\n");
        write(dir.filePath("afile"), "a file, not a folder\n");
        QDir(dir.path()).mkdir("adir");
        write(dir.filePath("short.dmr"), "528025 165750 706.6\n528050 165750 707.1\n");
        write(dir.filePath("words.dmr"), "X Y Z\n" + stretchedDem());
        write(dir.filePath("tall.dmr"), stretchedDem());
        write(dir.filePath("damaged.sim"), "0\n5\n0\n0\n0\n0\n0\n0\t0\t0\t0\t0\t" + seeds.left(9));
        write(dir.filePath("four.sim"), "0\n4\n0\n0\n0\n0\n0\t0\t0\t0\t" + seeds);
        write(dir.filePath("good.sim"), contents(made.filePath("good.sim")));
        const QByteArray state = contents(made.filePath("good.sim.state"));
        write(dir.filePath("good.sim.state"), state);
        write(dir.filePath("cut.state"), state.left(state.size() / 2));
        QList<QByteArray> lines = state.split('\n'); // the last line: plant number, deaths
        QByteArray& last = lines[lines.size() - 2];
        last = "-1" + last.mid(last.indexOf('\t'));
        write(dir.filePath("bad.state"), lines.join('\n'));
        const QMap<QString, QByteArray> before = listing(dir.path());

        const QStringList outputs{"--steps", "3",     "--csv", "run.csv", "--snapshot-every",
                                  "1",       "--out", "snaps", "--save",  "final.sim"};
        const Result r = runSim((alone ? QStringList() : outputs) + arguments, dir.path());
        QCOMPARE(r.code, 2);
        QCOMPARE(r.out, QString());
        QCOMPARE(r.err.count('\n'), 1);
        QVERIFY2(r.err.startsWith("virela-sim: ") && r.err.contains(says), qPrintable(r.err));
        QCOMPARE(listing(dir.path()), before);
    }

    // A plant area without dry land is no mistake: the run goes on and says so
    // once, also when the step taken before a load found none.
    void runWithoutDryLandGoesOn_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("plant area without dry land") << QStringList{"--area", "30,30,40,40"};
        QTest::newRow("flat DEM, then a load")
            << QStringList{"--dem", "flat.dmr", "--load", "good.sim"};
    }
    void runWithoutDryLandGoesOn() {
        QFETCH(QStringList, arguments);
        QTemporaryDir dir;
        write(dir.filePath("flat.dmr"), stretchedDem(0));
        write(dir.filePath("good.sim"), contents(made.filePath("good.sim")));
        const Result r = runSim(arguments + QStringList{"--steps", "4"}, dir.path());
        QCOMPARE(r.code, 0);
        const QStringList err = r.err.split('\n', Qt::SkipEmptyParts);
        QCOMPARE(err.size(), 2);
        QVERIFY2(err[0].startsWith("virela-sim: note: The plant area has no dry land"),
                 qPrintable(err[0]));
        QVERIFY(err[1].startsWith("Steps "));
        QCOMPARE(r.out.count("nrPlants="), 4);
    }

    // An interrupted run stops after its current step: the table holds every
    // step up to there, and the final state is that step's.
    void interruptedRunLeavesCompleteFiles() {
        QTemporaryDir dir;
        QProcess process;
        process.setWorkingDirectory(dir.path());
        process.start(VIRELA_SIM, {"--steps", "100000", "--csv", "run.csv", "--snapshot-every", "7",
                                   "--out", "s", "--save", "final.sim"});
        QByteArray out;
        while (!out.contains("@9:") && process.waitForReadyRead(60000))
            out += process.readAllStandardOutput();
        process.terminate();
        QVERIFY(process.waitForFinished(120000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 128 + 15);
        QVERIFY(QString::fromLocal8Bit(process.readAllStandardError()).startsWith("Interrupted."));

        const Csv csv = readCsv(dir.filePath("run.csv"));
        QVERIFY(csv.rows.size() >= 9);
        for (size_t k = 0; k < csv.rows.size(); ++k) {
            QCOMPARE(int(csv.rows[k].size()), 2 + 4 * nrSpecies);
            QCOMPARE(csv.rows[k][0], int(k) + 1);
        }
        const int last = int(csv.rows.size());
        QCOMPARE(contents(dir.filePath("final.sim")).split('\n').value(0).toInt(), last);
        QCOMPARE(contents(dir.filePath("final.sim.state")).split('\n').value(3).toInt(), last);
        QCOMPARE(int(QDir(dir.filePath("s")).entryList(QDir::Files).size()), 2 * (last / 7));
        QCOMPARE(listing(dir.path()).size(), 4 + 2 * (last / 7)); // no half-written leftovers
    }

    // tools/join-runs: every run's rows under one header, with the run and its seeds.
    void joinedTableHoldsEveryRun() {
        QTemporaryDir dir;
        for (const char* seed : {"1", "2"})
            QCOMPARE(
                runSim({"--seed", seed, "--steps", "4", "--csv", QString("runs/%1.csv").arg(seed)},
                       dir.path())
                    .code,
                0);
        write(dir.filePath("other.csv"), "# seeds: 1\nstep,living\n1,0\n");
        auto join = [&](const QStringList& tables) {
            QProcess process;
            process.setWorkingDirectory(dir.path());
            process.start("sh", QStringList{VIRELA_SOURCE_DIR "/tools/join-runs"} + tables);
            process.waitForFinished();
            return std::make_pair(process.exitCode(), QString(process.readAllStandardOutput()));
        };
        const auto [code, out] = join({"runs/1.csv", "runs/2.csv"});
        QCOMPARE(code, 0);
        const QStringList lines = out.split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 1 + 2 * 4);
        QCOMPARE(lines[0], "run,seeds," + readCsv(dir.filePath("runs/1.csv")).columns);
        QVERIFY(lines[1].startsWith("runs/1,1 2 3 4 5 6 7 8 9 10 11 12 13,1,"));
        QVERIFY(lines[8].startsWith("runs/2,14 15 16 17 18 19 20 21 22 23 24 25 26,4,"));
        QCOMPARE(join({"runs/1.csv", "other.csv"}).first, 1);
    }

    void helpListsEveryOptionWithAnExample() {
        const Result r = runSim({"--help"}, QDir::currentPath());
        QCOMPARE(r.code, 0);
        for (const char* option :
             {"--steps N", "--seeds S1,...,S13", "--seed N", "--dem FILE", "--load FILE",
              "--resume FILE", "--area X0,X1,Y0,Y1", "--csv FILE", "--out DIR",
              "--snapshot-every K", "--save FILE", "--help", "--version"})
            QVERIFY2(r.out.contains(QString("  ") + option), option);
        QVERIFY(r.out.contains("Examples:\n  virela-sim --steps "));
        QVERIFY(r.out.contains("\n  virela-sim --resume "));
        const Result version = runSim({"--version"}, QDir::currentPath());
        QCOMPARE(version.code, 0);
        QVERIFY(QRegularExpression("^virela-sim \\d+\\.\\d+ \\(source revision \\S+\\)\\n$")
                    .match(version.out)
                    .hasMatch());
        // Standard output that cannot be written fails, with a line saying so.
        for (const QStringList& arguments :
             {QStringList{"--version"}, QStringList{"--steps", "1"}}) {
            const Result full = runSim(arguments, QDir::currentPath(), "/dev/full");
            QCOMPARE(full.code, 1);
            QVERIFY2(full.err.startsWith("virela-sim: Could not write to standard output.\n"),
                     qPrintable(full.err));
        }
    }
};

QTEST_GUILESS_MAIN(TestSimRunner)
#include "tst_simrunner.moc"
