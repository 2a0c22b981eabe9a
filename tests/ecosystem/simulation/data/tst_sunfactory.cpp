#include "ecosystem/simulation/data/sunfactory.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/data/terrainnormalsfactory.h"

#include "ecosystem/simulation/data/terrainfixture.h"

#include <QtTest>

#include <cmath>

using arbo::Tocka;
using arbo::Tocka2D;
using ecosystem::data::CSunFactory;
using ecosystem::data::CTerrainData;
using ecosystem::data::CTerrainNormalsFactory;

namespace {

// The sun path of the default settings: direction, elevation in degrees, weight.
struct PathSample {
    double x, y, z, elevation, weight;
};
const PathSample sunPath[11] = {
    {0.9379, 0.0000, 0.3470, 0.0, 1.0},   {0.9790, 0.0734, 0.1904, 4.2, 1.1},
    {0.9879, 0.1539, 0.0194, 8.9, 1.2},   {0.9582, 0.2390, -0.1572, 13.8, 1.3},
    {0.8873, 0.3250, -0.3272, 19.0, 1.4}, {0.7783, 0.4076, -0.4777, 24.1, 1.5},
    {0.6393, 0.4834, -0.5980, 28.9, 1.6}, {0.4816, 0.5501, -0.6822, 33.4, 1.7},
    {0.3166, 0.6071, -0.7288, 37.4, 1.8}, {0.1537, 0.6550, -0.7399, 40.9, 1.9},
    {0.0000, 0.6947, -0.7193, 44.0, 2.0}};

PathSample pathAt(int i) {
    if (i <= 10)
        return sunPath[i];
    PathSample s = sunPath[20 - i];
    s.x = -s.x;
    return s;
}

void buildNormals(CTerrainData& t) {
    CTerrainNormalsFactory(t).buildTriangleNormals();
}

} // namespace

class TestSunFactory : public QObject {
    Q_OBJECT
private slots:
    void sunPathFollowsTheTable() {
        CTerrainData t;
        CSunFactory sun(t);
        QCOMPARE(sun.getNrSunSamples(), 21);
        QCOMPARE(sun.difuseSunlightPower, 0.2f);
        for (int i = 0; i < 21; ++i) {
            const Tocka d = sun.getSunPositionAtSample(i);
            const PathSample e = pathAt(i);
            QVERIFY2(std::fabs(d.x - e.x) < 1.2e-4 && std::fabs(d.y - e.y) < 1.2e-4 &&
                         std::fabs(d.z - e.z) < 1.2e-4,
                     qPrintable(QString("sample %1: %2 %3 %4").arg(i).arg(d.x).arg(d.y).arg(d.z)));
            QVERIFY(std::fabs(d.dolzina() - 1.0) < 1e-6);
            QVERIFY(std::fabs(std::asin(d.y) * 180 / M_PI - e.elevation) < 0.051);
        }
    }

    void endsAndMiddleAreReturnedAsStored() {
        CTerrainData t;
        CSunFactory sun(t);
        sun.setSunStart(Tocka(0.6f, 0.0f, 0.8f));
        sun.sunMiddle = Tocka(0.1f, 0.7f, -0.7f); // deliberately not unit length
        sun.setSunEnd(Tocka(-0.6f, 0.0f, 0.8f));
        auto same = [](const Tocka& a, const Tocka& b) {
            return a.x == b.x && a.y == b.y && a.z == b.z;
        };
        QVERIFY(same(sun.getSunPositionAtSample(0), sun.getSunStart()));
        QVERIFY(same(sun.getSunPositionAtSample(10), sun.getSunMiddle()));
        QVERIFY(same(sun.getSunPositionAtSample(20), sun.getSunEnd()));
        QVERIFY(std::fabs(sun.getSunPositionAtSample(5).dolzina() - 1.0) < 1e-6);
    }

    void powerAndCosine() {
        CTerrainData t;
        CSunFactory sun(t);
        QCOMPARE(sun.getSunPower(-0.25f), 0.0);
        QCOMPARE(sun.getSunPower(0.5f), 0.5);
        QCOMPARE(sun.getCosineBetweenNormalisedVectors(Tocka(0, 1, 0), Tocka(0.6f, 0.8f, 0)),
                 double(0.8f));
    }

    void stepsFollowTheHorizontalDirection() {
        CTerrainData t;
        terraintest::reshape(t, 5, 5, [](int, int) { return 0.0f; });
        CSunFactory sun(t);
        Tocka2D p(3.5, 0.5);
        QVERIFY(sun.getNextVertex(p, Tocka(0.5f, 0.7f, -0.25f)));
        QCOMPARE(p.x, 4.0);
        QCOMPARE(p.y, 0.25);
        QVERIFY(sun.getNextVertex(p, Tocka(0.5f, 0.7f, -0.25f)));  // (4.5, 0): still inside
        QVERIFY(!sun.getNextVertex(p, Tocka(0.5f, 0.7f, -0.25f))); // (5, -0.25): out
    }

    void angleUsesWholeVertexHeightsAndFractionalDistance() {
        CTerrainData t;
        terraintest::reshape(t, 5, 3, [](int x, int) { return x == 3 ? 10.0f : 0.0f; });
        CSunFactory sun(t);
        QVERIFY(std::fabs(sun.getAngle(Tocka2D(1, 1), Tocka2D(3, 1)) - std::atan(10.0 / 50)) <
                1e-6);
        QVERIFY(std::fabs(sun.getAngle(Tocka2D(1, 1), Tocka2D(3.5, 1.5)) -
                          std::atan(10.0 / std::hypot(62.5, 12.5))) < 1e-6);
        QCOMPARE(sun.getAngle(Tocka2D(3, 1), Tocka2D(1, 1)), -1.0f);
    }

    void flatTerrainIsNeverHidden() {
        CTerrainData t;
        terraintest::reshape(t, 9, 7, [](int, int) { return 2.0f; });
        buildNormals(t);
        CSunFactory sun(t);
        sun.buildSunniness();
        double expected = 0;
        for (int i = 0; i < 21; ++i)
            expected += pathAt(i).y * pathAt(i).weight;
        expected /= 21;
        QVERIFY(std::fabs(expected - 0.608) < 1e-3);
        for (float v : t.terrainSunniness)
            QVERIFY2(std::fabs(v - expected) < 3e-4, qPrintable(QString::number(v)));
    }

    void lowSunIsHiddenByAnyHigherPoint() {
        CTerrainData t;
        // A 1 m bump four columns east of (2, 2), and a ridge two rows north.
        terraintest::reshape(t, 10, 8, [](int x, int y) {
            if (x == 6 && y == 2)
                return 1.0f;
            return y == 0 ? 100.0f : 0.0f;
        });
        CSunFactory sun(t);
        const Tocka east(1.0f, 0.0f, 0.0f);
        QCOMPARE(sun.calculateShelternessBehindTerrain(Tocka2D(2, 2), east), 0.2f);
        QCOMPARE(sun.calculateShelternessBehindTerrain(Tocka2D(2, 3), east), 1.0f);
        // Edge vertex facing the sun: its ray leaves the grid at once.
        QCOMPARE(sun.calculateShelternessBehindTerrain(Tocka2D(9, 2), east), 1.0f);
        // Midday sun (44 degrees, towards row 0): the 100 m ridge at row 0 is
        // 80 degrees high from row 1 and hides it; from row 7 the ray first
        // meets it after 9 steps of 0.7193 rows: atan(100 / 161.8), about 32
        // degrees, and it does not.
        const Tocka noon = sun.getSunMiddle();
        QCOMPARE(sun.calculateShelternessBehindTerrain(Tocka2D(4, 1), noon), 0.2f);
        QCOMPARE(sun.calculateShelternessBehindTerrain(Tocka2D(4, 7), noon), 1.0f);
    }

    void overheadSunIsNeverHidden() {
        CTerrainData t;
        terraintest::reshape(t, 4, 4, [](int x, int y) { return float(x * 50 + y * 30); });
        CSunFactory sun(t);
        QCOMPARE(sun.calculateShelternessBehindTerrain(Tocka2D(0, 0), Tocka(0, 1, 0)), 1.0f);
    }

    void surfaceFacingAwayGetsNothing() {
        CTerrainData t;
        terraintest::reshape(t, 4, 4, [](int, int) { return 0.0f; });
        CSunFactory sun(t);
        QCOMPARE(sun.getPointCumulativeSunniness(Tocka2D(1, 1), Tocka(0, -1, 0)), 0.0);
        // A wall facing due south (+Z) is lit by the sunrise and sunset samples
        // only while they lie south, z > 0: samples 0 to 2 and 18 to 20.
        double expected = 0;
        for (int i : {0, 1, 2, 18, 19, 20})
            expected += pathAt(i).z * pathAt(i).weight;
        expected /= 21;
        QVERIFY(std::fabs(sun.getPointCumulativeSunniness(Tocka2D(1, 1), Tocka(0, 0, 1)) -
                          expected) < 3e-4);
    }

    void layerMatchesThePointRuleExactly_data() {
        QTest::addColumn<int>("terrain");
        QTest::newRow("default DEM") << 0;
        QTest::newRow("rough 60 x 40 in the default box") << 1;
        QTest::newRow("spikes 30 x 30") << 2;
    }
    void layerMatchesThePointRuleExactly() {
        QFETCH(int, terrain);
        CTerrainData t;
        if (terrain == 1) {
            terraintest::reshape(t, 60, 40, [](int x, int y) {
                return float(150 + 80 * std::sin(x * 0.37) * std::cos(y * 0.23) +
                             30 * std::sin(x * 1.7 + y * 2.9));
            });
            t.dimen = Tocka(2500, 1000, 2500);
        } else if (terrain == 2) {
            terraintest::reshape(t, 30, 30, [](int x, int y) {
                return (x * 7 + y * 13) % 11 == 0 ? 60.0f : float((x + y) % 3);
            });
        }
        buildNormals(t);
        CSunFactory sun(t);
        sun.buildSunniness();
        int hiddenSomewhere = 0;
        for (int y = 0; y < t.stTockY; ++y) {
            for (int x = 0; x < t.stTockX; ++x) {
                const int i = x + y * t.stTockX;
                const float expected =
                    float(sun.getPointCumulativeSunniness(Tocka2D(x, y), t.terrainNormals[i]));
                QCOMPARE(t.terrainSunniness[i], expected);
                double unhidden = 0;
                for (int s = 0; s < 21; ++s) {
                    const Tocka d = sun.getSunPositionAtSample(s);
                    unhidden +=
                        std::max(0.0, t.terrainNormals[i].skalarniProdukt(d)) * pathAt(s).weight;
                }
                hiddenSomewhere += t.terrainSunniness[i] < unhidden / 21 - 1e-4 ? 1 : 0;
            }
        }
        QVERIFY(hiddenSomewhere > 0); // the terrains do cast shadows
    }
};

QTEST_GUILESS_MAIN(TestSunFactory)
#include "tst_sunfactory.moc"
