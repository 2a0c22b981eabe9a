#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/data/windfactory.h"

#include "support/terrain.h"

#include <QtTest>

#include <cmath>

using arbo::Tocka;
using arbo::Tocka2D;
using ecosystem::data::CTerrainData;
using ecosystem::data::CWindFactory;

namespace {

// The windiness rule written out plainly for the default wind: up to ten
// steps towards row 0 in the vertex's column, the steepest elevation angle.
float plainWindiness(const CTerrainData& t, int x, int y) {
    const float sx = t.dimen.x / t.stTockX;
    const float sz = t.dimen.z / t.stTockY;
    const float h0 = t.pTerrainVertexData[x + y * t.stTockX].pos.y;
    const float x0 = float(x * double(sx)), z0 = float(y * double(sz));
    float maxAngle = 0.0f;
    for (int row = y - 1; row >= 0 && row >= y - 10; --row) {
        const float h = t.pTerrainVertexData[x + row * t.stTockX].pos.y;
        if (h0 > h)
            continue; // angle -1
        const float dx = float(double(float(x * double(sx))) - x0);
        const float dz = float(double(float(row * double(sz))) - z0);
        const float dy = float(double(h) - h0);
        const float tanAlpha = float(dy / std::sqrt(double(dx) * dx + double(dz) * dz));
        const float angle = float(std::atan(double(tanAlpha)));
        if (angle > maxAngle)
            maxAngle = angle;
    }
    const float fall = 0.6981317f;
    return maxAngle > fall ? 0.0f : 1.0f - maxAngle / fall;
}

} // namespace

class TestWindFactory : public QObject {
    Q_OBJECT
private slots:
    void upwindRiseShelters() {
        CTerrainData t;
        // Column 1: 25 m rise one row upwind of row 5 (45 degrees).
        // Column 2: 10 m rise one row upwind of row 5, nothing higher beyond.
        // Column 3: a 1000 m tower ten rows upwind of row 12.
        // Column 4: the same tower eleven rows upwind of row 13.
        testterrain::reshape(t, 6, 16, [](int x, int y) {
            if (x == 1 && y == 4)
                return 25.0f;
            if (x == 2 && y == 4)
                return 10.0f;
            if ((x == 3 || x == 4) && y == 2)
                return 1000.0f;
            return 0.0f;
        });
        CWindFactory(t).buildWindiness();
        auto wind = [&](int x, int y) { return t.terrainWindiness[x + y * 6]; };
        QCOMPARE(wind(1, 5), 0.0f);
        QVERIFY(std::fabs(wind(2, 5) - (1.0 - std::atan(0.4) / 0.6981317)) < 1e-5);
        QCOMPARE(wind(3, 12), 0.0f);
        QCOMPARE(wind(4, 13), 1.0f);
        // Terrain lower than the vertex never shelters it: the top of the rise.
        QCOMPARE(wind(2, 4), 1.0f);
        for (int x = 0; x < 6; ++x)
            QCOMPARE(wind(x, 0), 1.0f);
    }

    void raysScaleWithTheTerrainBox() {
        CTerrainData t;
        testterrain::reshape(t, 3, 6, [](int x, int y) { return x == 1 && y == 2 ? 10.0f : 0.0f; });
        t.dimen.z = 50.0f * 6; // 50 m per row: the rise is atan(10 / 50)
        CWindFactory w(t);
        Tocka2D start(1, 3);
        QVERIFY(std::fabs(w.calculateWindness(start) - (1.0 - std::atan(0.2) / 0.6981317)) < 1e-5);
        // A box of no extent: the rise is vertical (a right angle) and shelters
        // fully; level ground upwind gives no angle and leaves a vertex exposed.
        t.dimen = Tocka(0, 1000, 0);
        QCOMPARE(w.calculateWindness(start), 0.0f);
        Tocka2D level(0, 3);
        QCOMPARE(w.calculateWindness(level), 1.0f);
    }

    void layerIsThePlainRuleBitForBit_data() {
        QTest::addColumn<int>("terrain");
        QTest::newRow("default DEM") << 0;
        QTest::newRow("rough 30 x 50 in a stretched box") << 1;
    }
    void layerIsThePlainRuleBitForBit() {
        QFETCH(int, terrain);
        CTerrainData t;
        if (terrain == 1) {
            testterrain::reshape(t, 30, 50, [](int x, int y) {
                return float(std::fmod(x * 5.71 + y * 9.13, 17.0) * 3 + (y % 13 == 0 ? 40 : 0));
            });
            t.dimen = Tocka(900, 1000, 3100);
        }
        CWindFactory(t).buildWindiness();
        int sheltered = 0;
        for (int y = 0; y < t.stTockY; ++y) {
            for (int x = 0; x < t.stTockX; ++x) {
                const float expected = plainWindiness(t, x, y);
                const float got = t.terrainWindiness[x + y * t.stTockX];
                QVERIFY2(got == expected, qPrintable(QString("vertex (%1, %2): %3 instead of %4")
                                                         .arg(x)
                                                         .arg(y)
                                                         .arg(double(got), 0, 'g', 9)
                                                         .arg(double(expected), 0, 'g', 9)));
                sheltered += expected < 1.0f ? 1 : 0;
            }
        }
        QVERIFY(sheltered > 20);
    }

    // Flat ground, or no wind at all: exposed everywhere.
    void flatOrStillIsExposedEverywhere() {
        CTerrainData t;
        testterrain::reshape(t, 8, 12, [](int, int) { return 5.0f; });
        CWindFactory(t).buildWindiness();
        QCOMPARE(t.terrainWindiness, std::vector<float>(96, 1.0f));
        testterrain::reshape(t, 4, 4, [](int x, int y) { return float(x * y * 30); });
        CWindFactory w(t);
        w.windVector = Tocka2D(0, 0);
        w.buildWindiness();
        QCOMPARE(t.terrainWindiness, std::vector<float>(16, 1.0f));
    }
};

QTEST_GUILESS_MAIN(TestWindFactory)
#include "tst_windfactory.moc"
