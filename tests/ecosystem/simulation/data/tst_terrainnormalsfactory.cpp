#include "ecosystem/simulation/data/inclinationfactory.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/data/terrainnormalsfactory.h"

#include "support/terrain.h"

#include <QtTest>

#include <cmath>

using arbo::Tocka;
using ecosystem::data::CInclinationFactory;
using ecosystem::data::CTerrainData;
using ecosystem::data::CTerrainNormalsFactory;

namespace {

void buildNormalsAndInclination(CTerrainData& t) {
    CTerrainNormalsFactory(t).buildTriangleNormals();
    CInclinationFactory(t).buildInclination();
}

bool near(const Tocka& a, const Tocka& b, float eps = 1e-5f) {
    return std::fabs(a.x - b.x) <= eps && std::fabs(a.y - b.y) <= eps &&
           std::fabs(a.z - b.z) <= eps;
}

} // namespace

class TestTerrainNormalsFactory : public QObject {
    Q_OBJECT
private slots:
    void triangleNormalIsUnitAndFollowsTheWinding() {
        CTerrainData t;
        CTerrainNormalsFactory f(t);
        Tocka v1(0, 0, 0), v2(1, 0, 0), v3(0, 0, 1);
        QVERIFY(near(f.getNormal(v1, v2, v3), Tocka(0, 1, 0)));
        // (v1 - v2) x (v3 - v2) for a skewed triangle, worked by hand:
        // r1 = (-2, -1, 0), r2 = (-2, 3, 4); r1 x r2 = (-4, 8, -8), length 12.
        Tocka a(0, 0, 0), b(2, 1, 0), c(0, 4, 4);
        QVERIFY(near(f.getNormal(a, b, c), Tocka(-1.0f / 3, 2.0f / 3, -2.0f / 3)));
    }

    // A plane's normal everywhere, last row and column included; the
    // inclination is 1 - its height.
    void planes_data() {
        QTest::addColumn<float>("perColumn"); // rise in metres per 25 m
        QTest::addColumn<float>("perRow");
        QTest::newRow("flat") << 0.0f << 0.0f;
        QTest::newRow("rising along columns") << 25.0f << 0.0f;
        QTest::newRow("rising along rows") << 0.0f << 10.0f;
    }
    void planes() {
        QFETCH(float, perColumn);
        QFETCH(float, perRow);
        CTerrainData t;
        testterrain::reshape(t, 6, 4,
                             [=](int x, int y) { return 3.0f + perColumn * x + perRow * y; });
        buildNormalsAndInclination(t);
        // Normal (-dx, 25, -dz) / |.|.
        const double len = std::sqrt(25.0 * 25 + perColumn * perColumn + perRow * perRow);
        const Tocka n(float(-perColumn / len), float(25 / len), float(-perRow / len));
        for (int i = 0; i < 24; ++i) {
            QVERIFY(near(t.terrainNormals[i], n));
            QVERIFY(std::fabs(t.terrainInclination[i] - float(1 - 25 / len)) < 1e-6f);
        }
    }

    void lastColumnAndRowTakeTheNearestComputedNormal() {
        CTerrainData t;
        // Every cell a different tilt, so a wrong neighbour shows.
        testterrain::reshape(t, 5, 4,
                             [](int x, int y) { return float(x * x * 3 + y * y * 7 + x * y); });
        buildNormalsAndInclination(t);
        auto n = [&](int x, int y) { return t.terrainNormals[x + y * 5]; };
        for (int y = 0; y < 3; ++y)
            QVERIFY(near(n(4, y), n(3, y), 0));
        for (int x = 0; x < 4; ++x)
            QVERIFY(near(n(x, 3), n(x, 2), 0));
        QVERIFY(near(n(4, 3), n(3, 2), 0));
        QVERIFY(!near(n(0, 0), n(3, 2)));
        for (int i = 0; i < 20; ++i)
            QCOMPARE(t.terrainInclination[i], float(1.0 - t.terrainNormals[i].y));
    }

    void inclinationFromUpToWall() {
        CTerrainData t;
        testterrain::reshape(t, 3, 3, [](int, int) { return 0.0f; });
        t.terrainNormals[0] = Tocka(0, 1, 0);
        t.terrainNormals[1] = Tocka(1, 0, 0);
        t.terrainNormals[2] = Tocka(0.6f, 0.8f, 0);
        CInclinationFactory(t).buildInclination();
        QCOMPARE(t.terrainInclination[0], 0.0f);
        QCOMPARE(t.terrainInclination[1], 1.0f);
        QVERIFY(std::fabs(t.terrainInclination[2] - 0.2f) < 1e-6f);
    }
};

QTEST_GUILESS_MAIN(TestTerrainNormalsFactory)
#include "tst_terrainnormalsfactory.moc"
