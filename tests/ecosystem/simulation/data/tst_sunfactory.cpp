#include "ecosystem/simulation/data/sunfactory.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/data/terrainnormalsfactory.h"

#include "support/terrain.h"

#include <QtTest>

#include <cmath>
#include <vector>

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

// The sunniness rule written out step by step, sharing no code with the
// factory: the sun path of the default settings, one ray per sample walked to
// the grid's edge, elevation angles by the arctangent, weights and the sum.
namespace plain {

struct V {
    float x, y, z;
};

bool same(const V& a, const Tocka& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

V plus(const V& a, const V& b) {
    return {float(double(a.x) + b.x), float(double(a.y) + b.y), float(double(a.z) + b.z)};
}

V minus(const V& a, const V& b) {
    return {float(double(a.x) - b.x), float(double(a.y) - b.y), float(double(a.z) - b.z)};
}

double length(const V& a) {
    return std::sqrt(double(a.x) * a.x + double(a.y) * a.y + double(a.z) * a.z);
}

V unit(const V& a) {
    const float len = float(length(a));
    return {a.x / len, a.y / len, a.z / len};
}

// N = 21 samples: 0 rising, 10 midday, 20 setting; k and fi in float.
V sunAt(int i) {
    const V rise = unit({1.0f, 0.0f, 0.37f});
    const V set = unit({-1.0f, 0.0f, 0.37f});
    const V noon = unit({0.0f, float(std::sin(0.7679449)), float(-std::cos(0.7679449))});
    if (i == 0)
        return rise;
    if (i == 20)
        return set;
    if (i == 10)
        return noon;
    if (i < 10) {
        const V d = minus(noon, rise);
        const float k = float(i) / 10;
        const float fi = k * 1.5707964f;
        return unit(plus(rise, {float((1 - std::cos(double(fi))) * d.x), k * d.y,
                                float(std::sin(double(fi)) * d.z)}));
    }
    const V d = minus(set, noon);
    const float k = float(i - 10) / 10;
    const float fi = k * 1.5707964f;
    return unit(plus(noon, {float(std::sin(double(fi)) * d.x), k * d.y,
                            float((1 - std::cos(double(fi))) * d.z)}));
}

struct Ray {
    const CTerrainData& t;

    V world(double gx, double gy) const {
        const float sx = t.dimen.x / t.stTockX;
        const float sz = t.dimen.z / t.stTockY;
        return {float(gx * sx), t.pTerrainVertexData[int(gx) + int(gy) * t.stTockX].pos.y,
                float(gy * sz)};
    }

    float angle(const V& from, const V& to) const {
        if (from.y > to.y)
            return -1.0f;
        const V diff = minus(to, from);
        const float tanAlpha = float(diff.y / length({diff.x, 0.0f, diff.z}));
        return float(std::atan(double(tanAlpha)));
    }

    // 1 when the sun is seen from vertex (x, y), else 0.2.
    float shelter(int x, int y, const V& sun) const {
        const float sunAngle = float(std::asin(sun.y / length(sun)));
        const V from = world(x, y);
        double gx = x, gy = y;
        while (true) {
            gx += sun.x;
            gy += sun.z;
            if (gx < 0 || gx >= t.stTockX || gy < 0 || gy >= t.stTockY)
                return 1.0f;
            if (angle(from, world(gx, gy)) > sunAngle)
                return 0.2f;
        }
    }
};

// The layer entry of vertex (x, y) for the given sun path; counts the lit
// samples that the terrain hides.
float sunniness(const CTerrainData& t, int x, int y, const std::vector<V>& path, int& hidden) {
    const Tocka& n = t.terrainNormals[x + y * t.stTockX];
    const int last = int(path.size()) - 1;
    double sum = 0;
    for (int i = 0; i <= last; ++i) {
        const V& d = path[i];
        const float cosine = float(double(n.x) * d.x + double(n.y) * d.y + double(n.z) * d.z);
        const double power = cosine >= 0 ? cosine : 0.0;
        const double weight = i > last / 2 ? 3 - 2.0 * i / last : 2.0 * i / last + 1;
        const float shelter = Ray{t}.shelter(x, y, d);
        hidden += power > 0 && shelter < 1 ? 1 : 0;
        sum += power * weight * shelter;
    }
    return float(sum / (last + 1));
}

} // namespace plain

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
            QVERIFY2(plain::same(plain::sunAt(i), d), qPrintable(QString("sample %1").arg(i)));
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

    void lowSunIsHiddenByAnyHigherPoint() {
        CTerrainData t;
        // A 1 m bump four columns east of (2, 2), and a ridge two rows north.
        testterrain::reshape(t, 10, 8, [](int x, int y) {
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
        // A sun straight overhead never moves the ray and is never hidden.
        QCOMPARE(sun.calculateShelternessBehindTerrain(Tocka2D(6, 3), Tocka(0, 1, 0)), 1.0f);
    }

    void surfaceFacingAwayGetsNothing() {
        CTerrainData t;
        testterrain::reshape(t, 4, 4, [](int, int) { return 0.0f; });
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

    // The layer against the rule written out plainly, bit for bit, on terrains
    // with shadows of every sample; the default grid is large enough to be
    // shared out over several threads.
    void layerIsThePlainRuleBitForBit_data() {
        QTest::addColumn<int>("terrain");
        QTest::newRow("default DEM") << 0;
        QTest::newRow("ridge at the far east edge") << 1;
        QTest::newRow("ridge at the far north edge") << 2;
        QTest::newRow("pits and towers 41 x 37 in a stretched box") << 3;
        QTest::newRow("steep sun over a rough 100 x 6 strip") << 4;
        QTest::newRow("rough 100 x 6 strip in a box of no extent") << 5;
    }
    void layerIsThePlainRuleBitForBit() {
        QFETCH(int, terrain);
        CTerrainData t;
        if (terrain == 1 || terrain == 2) {
            // Seen from the flat ground, the ridge stands at every elevation
            // from 67 degrees down to 1.7: each sample changes from hidden to
            // lit somewhere along the rows.
            testterrain::reshape(t, 80, 80, [terrain](int x, int y) {
                return (terrain == 1 ? x == 79 : y == 0) ? 60.0f : 0.0f;
            });
        } else if (terrain == 3) {
            testterrain::reshape(t, 41, 37, [](int x, int y) {
                const int r = (x * 31 + y * 17) % 23;
                return r == 0 ? 90.0f : r == 1 ? -40.0f : float((x * y) % 7);
            });
            t.dimen = Tocka(700, 1000, 1900);
        } else if (terrain >= 4) {
            testterrain::reshape(t, 100, 6, [](int x, int y) {
                return float(std::fmod(x * 7.31 + y * 3.17, 13.0) * 4);
            });
            if (terrain == 5)
                t.dimen = Tocka(0, 1000, 0);
        }
        buildNormals(t);
        CSunFactory sun(t);
        if (terrain == 4) {
            // Nearly overhead: rays crawl a fraction of a metre per step.
            sun.setSunStart(Tocka(0.004f, 1.0f, 0.0f));
            sun.setSunEnd(Tocka(-0.004f, 1.0f, 0.001f));
            sun.sunMiddle = Tocka(0.0005f, 1.0f, -0.002f);
        }
        std::vector<plain::V> path;
        for (int i = 0; i < 21; ++i) {
            const Tocka d = sun.getSunPositionAtSample(i);
            path.push_back(terrain == 4 ? plain::V{d.x, d.y, d.z} : plain::sunAt(i));
        }
        sun.buildSunniness();
        int hidden = 0;
        for (int y = 0; y < t.stTockY; ++y) {
            for (int x = 0; x < t.stTockX; ++x) {
                const float expected = plain::sunniness(t, x, y, path, hidden);
                const float got = t.terrainSunniness[x + y * t.stTockX];
                QVERIFY2(got == expected, qPrintable(QString("vertex (%1, %2): %3 instead of %4")
                                                         .arg(x)
                                                         .arg(y)
                                                         .arg(double(got), 0, 'g', 9)
                                                         .arg(double(expected), 0, 'g', 9)));
            }
        }
        QVERIFY(hidden > 50); // the terrains do cast shadows
    }
};

QTEST_GUILESS_MAIN(TestSunFactory)
#include "tst_sunfactory.moc"
