#include "ecosystem/simulation/data/terraindata.h"

#include "ecosystem/simulation/data/progress.h"
#include "ecosystem/simulation/ecosystemsimulation.h"

#include "support/messagecatcher.h"
#include "support/simulationstate.h"
#include "support/terrain.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <cstring>
#include <fstream>
#include <map>
#include <numeric>
#include <thread>

using arbo::Tocka;
using ecosystem::Tocka2i;
using ecosystem::data::CTerrainData;

namespace {

struct DemPoint {
    double x, y, z;
};

std::vector<DemPoint> readDefaultDemIndependently() {
    std::ifstream in(VIRELA_SOURCE_DIR "/resources/textures/100x100.dmr");
    std::vector<DemPoint> points;
    DemPoint p;
    while (in >> p.x >> p.y >> p.z)
        points.push_back(p);
    return points;
}

bool allFinite(const std::vector<float>& layer) {
    return std::all_of(layer.begin(), layer.end(), [](float v) { return std::isfinite(v); });
}

// Rows of `row` points, X rising by 25 along a row and Y falling by 25 from row to row.
void writeDem(const QString& path, int nrPoints, float z, const QByteArray& tail = {},
              int row = 100) {
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    for (int i = 0; i < nrPoints; ++i)
        f.write(QByteArray::number(1000 + 25 * (i % row)) + " " +
                QByteArray::number(5000 - 25 * (i / row)) + " " + QByteArray::number(z) + "\n");
    f.write(tail);
}

} // namespace

class TestTerrainData : public QObject {
    Q_OBJECT
private slots:
    // The documented start: 100 x 100 points 25 m apart, water at 0, the
    // middle half as the lupa, the DEM loaded row by row from its lowest point.
    void defaultTerrainAndDem() {
        const std::vector<DemPoint> file = readDefaultDemIndependently();
        QCOMPARE(int(file.size()), 10000);
        double minZ = 1e9, maxZ = -1e9, minX = 1e9, maxY = -1e9;
        for (const DemPoint& p : file) {
            minZ = std::min(minZ, p.z);
            maxZ = std::max(maxZ, p.z);
            minX = std::min(minX, p.x);
            maxY = std::max(maxY, p.y);
        }
        CTerrainData t;
        QCOMPARE(t.stTockX, 100);
        QCOMPARE(t.stTockY, 100);
        QCOMPARE(t.dimen.x, 2500.0f);
        QCOMPARE(t.dimen.y, 1000.0f);
        QCOMPARE(t.dimen.z, 2500.0f);
        QCOMPARE(t.waterHeight, 0.0f);
        QCOMPARE(QList<int>({t.lupaXmin, t.lupaXmax, t.lupaYmin, t.lupaYmax}),
                 QList<int>({25, 75, 25, 75}));
        QVERIFY(!t.isDataReady() && t.getSunFactory() == nullptr);
        QCOMPARE(t.ortofotoTexture->size(), QSize(128, 128));
        QCOMPARE(t.dmrMinZ, 596.2f);
        QCOMPARE(t.dmrMaxZ, 960.4f);
        QVERIFY(std::fabs(t.visinskaRazlikaNaTerenu - 364.2f) < 1e-3f);
        QCOMPARE(t.dmrMinX, float(minX));
        QCOMPARE(t.dmrMaxY, float(maxY));
        float lowest = 1e9f, highest = -1e9f;
        for (int i = 0; i < 10000; ++i) {
            const Tocka& p = t.pTerrainVertexData[i].pos;
            QCOMPARE(p.x, 25.0f * (i % 100));
            QCOMPARE(p.z, 25.0f * (i / 100));
            QVERIFY(std::fabs(p.y - (file[i].z - minZ)) < 1e-3);
            QCOMPARE(t.ogliscaTerena[i].y, p.y);
            lowest = std::min(lowest, p.y);
            highest = std::max(highest, p.y);
        }
        QCOMPARE(lowest, 0.0f);
        QVERIFY(std::fabs(highest - 364.2f) < 1e-3f);
    }

    void aboveWaterByPointAndByCell() {
        CTerrainData t;
        // Cells outside the lupa (bounds inclusive) are never above water.
        QVERIFY(!t.jeNadVodo(Tocka2i(24, 50)));
        QVERIFY(!t.jeNadVodo(Tocka2i(50, 76)));
        QCOMPARE(t.jeNadVodo(Tocka2i(25, 25)), t.pTerrainVertexData[25 + 25 * 100].pos.y > 0.0f);
        QCOMPARE(t.jeNadVodo(Tocka2i(75, 75)), t.pTerrainVertexData[75 + 75 * 100].pos.y > 0.0f);
        // With water at 0 only the lowest point (height exactly 0) is wet.
        QVERIFY(!t.jeNadVodo(Tocka(1, 0.0f, 1)));
        QVERIFY(t.jeNadVodo(Tocka(1, 0.001f, 1)));
        int wet = 0;
        for (const auto& v : t.pTerrainVertexData)
            wet += t.jeNadVodo(v.pos) ? 0 : 1;
        QVERIFY(wet >= 1);
        // Relative water level: half of the 364.2 m range.
        t.waterHeight = 0.5f;
        QVERIFY(!t.jeNadVodo(Tocka(0, 182.0f, 0)));
        QVERIFY(t.jeNadVodo(Tocka(0, 182.2f, 0)));
    }

    void nonWaterIndexesListDryLupaVerticesWithDryNeighbours_data() {
        QTest::addColumn<float>("waterHeight");
        QTest::newRow("dry land") << 0.0f;
        QTest::newRow("lake at 30%") << 0.3f;
        QTest::newRow("flood at 70%") << 0.7f;
    }
    void nonWaterIndexesListDryLupaVerticesWithDryNeighbours() {
        QFETCH(float, waterHeight);
        CTerrainData t;
        t.waterHeight = waterHeight;
        t.buildNonwaterIndexes();
        const double level = double(waterHeight) * t.visinskaRazlikaNaTerenu;
        auto h = [&](int x, int y) { return double(t.pTerrainVertexData[x + y * 100].pos.y); };
        std::vector<int> expected;
        for (int y = 25; y < 75; ++y)
            for (int x = 25; x < 75; ++x)
                if (h(x, y) > level && h(x + 1, y) > level && h(x, y + 1) > level)
                    expected.push_back(x + y * 100);
        QCOMPARE(t.nonWaterIndexes, expected);
        for (int index : t.nonWaterIndexes) {
            QVERIFY(index % 100 >= 25 && index % 100 < 75);
            QVERIFY(index / 100 >= 25 && index / 100 < 75);
        }
    }

    // A lupa past the grid is cut to it; at the last column and row the
    // missing neighbours are skipped, not read.
    void nonWaterIndexesAtTheGridEdges_data() {
        QTest::addColumn<int>("w");
        QTest::addColumn<int>("h");
        QTest::addColumn<int>("wetColumn");
        QTest::addColumn<QList<int>>("lupa"); // x min, x max, y min, y max
        QTest::addColumn<QList<int>>("dryColumns");
        // 3 has a wet +X neighbour, 4 is wet.
        QTest::newRow("wet column")
            << 6 << 5 << 4 << QList<int>{0, 6, 0, 5} << QList<int>{0, 1, 2, 5};
        QTest::newRow("lupa past the grid")
            << 4 << 3 << -1 << QList<int>{-2, 9, -1, 7} << QList<int>{0, 1, 2, 3};
    }
    void nonWaterIndexesAtTheGridEdges() {
        QFETCH(int, w);
        QFETCH(int, h);
        QFETCH(int, wetColumn);
        QFETCH(QList<int>, lupa);
        QFETCH(QList<int>, dryColumns);
        CTerrainData t;
        testterrain::reshape(t, w, h, [=](int x, int) { return x == wetColumn ? 0.0f : 1.0f; });
        t.lupaXmin = lupa[0];
        t.lupaXmax = lupa[1];
        t.lupaYmin = lupa[2];
        t.lupaYmax = lupa[3];
        t.buildNonwaterIndexes();
        std::vector<int> expected;
        for (int y = 0; y < h; ++y)
            for (int x : dryColumns)
                expected.push_back(x + y * w);
        QCOMPARE(t.nonWaterIndexes, expected);
        QVERIFY(!t.jeNadVodo(Tocka2i(w, 1)));
        QVERIFY(!t.jeNadVodo(Tocka2i(-1, 1)));
        QVERIFY(t.jeNadVodo(Tocka2i(w - 1, h - 1)));
    }

    // A new plant's point in its cell: on the plane through the vertex and its
    // +X and next-row neighbours, stream I drawn twice (the second unused), J once.
    void newPlantPointDrawsITwiceAndJOnce() {
        CTerrainData t;
        CTerrainData::randomPozicije3DNovihRastlinI = 7;
        CTerrainData::randomPozicije3DNovihRastlinJ = 11;
        unsigned long long i = 7, j = 11;
        const Tocka a = t.pTerrainVertexData[40 + 60 * 100].pos;
        const Tocka b = t.pTerrainVertexData[41 + 60 * 100].pos;
        const Tocka c = t.pTerrainVertexData[40 + 61 * 100].pos;
        for (int call = 0; call < 5; ++call) {
            const float ri = float(testterrain::naslednje(i, 4096)) / 4096.0f;
            const float rj = float(testterrain::naslednje(j, 4096)) / 4096.0f;
            testterrain::naslednje(i, 4096);
            Tocka p;
            t.dolociPozicijoNoveRastline3D(Tocka2i(40, 60), p);
            QCOMPARE(p.x, a.x + ri * 25.0f);
            QCOMPARE(p.y, a.y + ri * (b.y - a.y) + rj * (c.y - a.y));
            QCOMPARE(p.z, a.z + rj * 25.0f);
            QCOMPARE(CTerrainData::randomPozicije3DNovihRastlinI, i);
            QCOMPARE(CTerrainData::randomPozicije3DNovihRastlinJ, j);
        }
    }

    void newPlantOnLastColumnOrRowStaysOnTheEdge() {
        CTerrainData t;
        const Tocka corner = t.pTerrainVertexData[99 + 99 * 100].pos;
        const Tocka lastColumn = t.pTerrainVertexData[99 + 10 * 100].pos;
        const Tocka lastRow = t.pTerrainVertexData[10 + 99 * 100].pos;
        for (int k = 0; k < 20; ++k) {
            Tocka p;
            t.dolociPozicijoNoveRastline3D(Tocka2i(99, 99), p);
            QCOMPARE(p.x, corner.x);
            QCOMPARE(p.y, corner.y);
            QCOMPARE(p.z, corner.z);
            t.dolociPozicijoNoveRastline3D(Tocka2i(99, 10), p);
            QCOMPARE(p.x, lastColumn.x);
            QVERIFY(p.z >= lastColumn.z && p.z < lastColumn.z + 25.0f);
            t.dolociPozicijoNoveRastline3D(Tocka2i(10, 99), p);
            QCOMPARE(p.z, lastRow.z);
            QVERIFY(p.x >= lastRow.x && p.x < lastRow.x + 25.0f);
        }
    }

    void buildTerrainDataMakesEveryLayerFinite() {
        CTerrainData t;
        t.buildTerrainData();
        QVERIFY(t.isDataReady());
        QVERIFY(t.getSunFactory() != nullptr);
        QVERIFY(t.terrainNormalsFactory && t.inclinationFactory && t.rainFactory && t.windFactory);
        QVERIFY(allFinite(t.terrainInclination));
        QVERIFY(allFinite(t.terrainMoisture));
        QVERIFY(allFinite(t.terrainSunniness));
        QVERIFY(allFinite(t.terrainWindiness));
        QVERIFY(!t.nonWaterIndexes.empty());
        for (const Tocka& n : t.terrainNormals)
            QVERIFY(std::fabs(n.dolzina() - 1.0) < 1e-5 && n.y > 0);
        // A second build replaces the factories and gives the same layers.
        const std::vector<float> sunniness = t.terrainSunniness;
        const std::vector<float> moisture = t.terrainMoisture;
        t.buildTerrainData();
        QCOMPARE(t.terrainSunniness, sunniness);
        QCOMPARE(t.terrainMoisture, moisture);
    }

    // The layers of a grid shared out over threads are those of one thread, bit
    // for bit; the progress of each layer climbs to its end on the calling thread.
    void layersAreTheSameOnAnyNumberOfThreads() {
        struct Progress {
            int last = -1, total = 0;
            bool rising = true, onCaller = true;
        };
        auto build = [](const char* threads, std::map<std::string, Progress>& progress) {
            qputenv("VIRELA_THREADS", threads);
            const std::thread::id caller = std::this_thread::get_id();
            ecosystem::data::setProgressHandler([&](const std::string& task, int done, int total) {
                Progress& p = progress[task];
                p.rising = p.rising && done >= p.last && done <= total;
                p.onCaller = p.onCaller && std::this_thread::get_id() == caller;
                p.last = done;
                p.total = total;
            });
            auto t = std::make_unique<CTerrainData>();
            testterrain::reshape(*t, 131, 97, [](int x, int y) {
                return float(200 + 90 * std::sin(x * 0.11) * std::cos(y * 0.07) +
                             35 * std::sin(x * 0.9 + y * 1.3));
            });
            t->buildTerrainData();
            ecosystem::data::setProgressHandler(nullptr);
            qunsetenv("VIRELA_THREADS");
            return t;
        };
        auto sameBits = [](const auto& a, const auto& b) {
            return a.size() == b.size() &&
                   std::memcmp(a.data(), b.data(), a.size() * sizeof(a[0])) == 0;
        };
        std::map<std::string, Progress> progressOne, progressThree;
        const auto one = build("1", progressOne);
        const auto three = build("3", progressThree);
        QVERIFY(sameBits(one->terrainNormals, three->terrainNormals));
        QVERIFY(sameBits(one->terrainInclination, three->terrainInclination));
        QVERIFY(sameBits(one->terrainMoisture, three->terrainMoisture));
        QVERIFY(sameBits(one->terrainSunniness, three->terrainSunniness));
        QVERIFY(sameBits(one->terrainWindiness, three->terrainWindiness));
        QCOMPARE(progressThree.size(), size_t(4)); // normals, moisture, sunniness, windiness
        for (const auto& [task, p] : progressThree) {
            QVERIFY2(p.rising && p.onCaller && p.last == p.total && p.total > 0, task.c_str());
            QCOMPARE(progressOne[task].last, p.last);
        }
    }

    void reloadDmrGoesBackTo100x100AndKeepsLupaAndWater() {
        MessageCatcher catcher;
        CTerrainData t;
        testterrain::reshape(t, 30, 20, [](int x, int y) { return float(x + y); });
        t.lupaXmin = 3;
        t.lupaXmax = 12;
        t.waterHeight = 0.25f;
        QVERIFY(t.reloadDMR(":/gui/textures/100x100.dmr"));
        QVERIFY(catcher.messages.empty());
        QCOMPARE(t.stTockX, 100);
        QCOMPARE(t.stTockY, 100);
        QCOMPARE(int(t.ogliscaTerena.size()), 10000);
        QCOMPARE(int(t.terrainWindiness.size()), 10000);
        QCOMPARE(t.lupaXmin, 3);
        QCOMPARE(t.lupaXmax, 12);
        QCOMPARE(t.waterHeight, 0.25f);
        QCOMPARE(t.dmrMinZ, 596.2f);
        QVERIFY(t.isDataReady());
        QVERIFY(t.getSunFactory() != nullptr);
        QCOMPARE(t.ortofotoTexture->size(), QSize(128, 128));
        // A complete file with blank lines after it loads silently too.
        QTemporaryDir dir;
        const QString path = dir.filePath("full.dmr");
        writeDem(path, 10000, 650.5f, "\n\n   \n");
        QVERIFY(t.reloadDMR(path.toLocal8Bit().constData()));
        QVERIFY(catcher.messages.empty());
        QCOMPARE(t.dmrMinZ, 650.5f);
        QCOMPARE(t.dmrMaxX, 1000.0f + 25 * 99);
        QCOMPARE(t.dmrMinY, 5000.0f - 25 * 99);
    }

    // A rejected file is reported once and changes nothing at all: grid, range,
    // layers, ortho-photo, factories, and the simulation running on it.
    void rejectedDemChangesNothing_data() {
        QTest::addColumn<int>("points");
        QTest::addColumn<QByteArray>("tail");
        QTest::addColumn<QString>("message");
        const QString reading = "Error reading DEM terrain file.";
        QTest::newRow("missing") << -1 << QByteArray() << "Could not open DEM terrain file.";
        QTest::newRow("a folder") << -2 << QByteArray() << "Could not open DEM terrain file.";
        QTest::newRow("one point fewer") << 9999 << QByteArray("\n\n") << reading;
        QTest::newRow("last point cut short") << 9999 << QByteArray("1 2\n") << reading;
        QTest::newRow("not a number")
            << 5000 << QByteArray("1 abc 3\n") << reading + "\nLine 5001: \"abc\" is not a number.";
        QTest::newRow("infinity") << 5000 << QByteArray("1 2 inf\n")
                                  << reading + "\nLine 5001: \"inf\" is not a number.";
        QTest::newRow("height beyond float range")
            << 5000 << QByteArray("1000 3750 -3e38\n")
            << reading + "\nLine 5001: the height -3e+38 lies outside -100000 to 100000 m.";
        QTest::newRow("coordinate too far")
            << 5000 << QByteArray("2e8 3750 700\n")
            << reading +
                   "\nLine 5001: the coordinate 200000000 lies outside -100000000 to 100000000 m.";
        // 50 points a row: the second half of grid row 0 starts the file's row 1.
        QTest::newRow("rows of 50")
            << -50 << QByteArray()
            << reading + "\nLine 51: the points do not form a grid of 100 rows of 100 points, "
                         "with X changing along each row and Y from row to row.";
    }
    void rejectedDemChangesNothing() {
        QFETCH(int, points);
        QFETCH(QByteArray, tail);
        QFETCH(QString, message);
        QTemporaryDir dir;
        QString path = dir.filePath("bad.dmr");
        if (points == -1)
            path = "/nonexistent/terrain.dmr";
        else if (points == -2)
            path = dir.path();
        else if (points == -50)
            writeDem(path, 10000, 700.0f, {}, 50);
        else
            writeDem(path, points, 700.0f, tail);
        CTerrainData t;
        ecosystem::CEcosystemSimulation s;
        s.setTerrainData(t);
        for (int i = 0; i < 5; ++i)
            s.simulateNextStep();
        const QByteArray terrain = testterrain::stanje(t);
        const std::string simulation = testsimulation::stanje(s);
        MessageCatcher catcher;
        QVERIFY(!t.reloadDMR(path.toLocal8Bit().constData()));
        QCOMPARE(catcher.lines(), std::vector<std::string>{"Error: " + message.toStdString()});
        QVERIFY(testterrain::stanje(t) == terrain);
        QCOMPARE(testsimulation::stanje(s), simulation);
    }

    // A flat DEM is a valid terrain without dry land: the simulation steps on
    // it, sows nothing anywhere and says so once.
    void flatDemDividesByNothing() {
        QTemporaryDir dir;
        const QString path = dir.filePath("flat.dmr");
        writeDem(path, 10000, 500.0f);
        MessageCatcher catcher;
        CTerrainData t;
        QVERIFY(t.reloadDMR(path.toLocal8Bit().constData()));
        QVERIFY(catcher.messages.empty());
        QCOMPARE(t.visinskaRazlikaNaTerenu, 0.0f);
        QVERIFY(t.nonWaterIndexes.empty()); // nothing lies above the water at 0
        QVERIFY(!t.jeNadVodo(Tocka2i(50, 50)));
        QVERIFY(!t.jeNadVodo(t.pTerrainVertexData[0].pos));
        QVERIFY(allFinite(t.terrainInclination) && allFinite(t.terrainMoisture));
        QVERIFY(allFinite(t.terrainSunniness) && allFinite(t.terrainWindiness));
        // The ortho-photo is the lowest band everywhere: one colour or one texture.
        const QImage& orto = *t.ortofotoTexture;
        for (int y = 0; y < 128; ++y)
            for (int x = 0; x < 128; ++x)
                QVERIFY(qRed(orto.pixel(x, y)) <= 127 && qGreen(orto.pixel(x, y)) <= 127);
        ecosystem::CEcosystemSimulation s;
        s.setTerrainData(t);
        for (int i = 0; i < 10; ++i)
            s.simulateNextStep();
        QCOMPARE(s.simulationStepNr, 10);
        for (const auto& vrsta : s.rastlinskeVrste)
            QVERIFY(vrsta.ziviPrimerkiTeVrste.empty());
        QCOMPARE(catcher.lines(),
                 std::vector<std::string>{"Simulation: The plant area has no dry land: no plant "
                                          "can be sown anywhere on it. New plants grow only "
                                          "beside the existing ones."});
        // A lupa set again builds the list again, and is told again if still dry-less.
        t.lupaXmin = 10;
        t.buildNonwaterIndexes();
        s.simulateNextStep();
        QCOMPARE(catcher.messages.size(), size_t(2));
    }
};

QTEST_GUILESS_MAIN(TestTerrainData)
#include "tst_terraindata.moc"
