#include "ecosystem/render/camera.h"
#include "ecosystem/simulation/data/terraindata.h"

#include "support/glcontext.h"
#include "support/terrain.h"

#include <GL/gl.h>

#include <QtTest>

#include <cmath>

using ecosystem::data::CTerrainData;
using ecosystem::render::Camera;

namespace {

// Gives the terrain a grid of nx x nz vertices 25 m apart whose heights come
// from the table (row-major).
void setGrid(CTerrainData& terrain, int nx, int nz, const std::vector<float>& heights) {
    testterrain::reshape(terrain, nx, nz, [&](int i, int j) { return heights[i + j * nx]; });
}

// 4 x 3 grid; the cell (1, 1) has corners 0 (1,1), 10 (2,1), 20 (1,2), 100 (2,2),
// so its two triangles give clearly different heights.
std::vector<float> bumpyHeights() {
    return {5,  6,  7,   8,  //
            9,  0,  10,  11, //
            12, 20, 100, 13};
}

// (x, y, z) of the world point p in eye space under the camera's transformation,
// rebuilt here from its rotations and look-at.
arbo::Tocka eyeSpace(const Camera& c, arbo::Tocka p) {
    const double a = c.alfa * M_PI / 180.0;
    const double fx = std::sin(a), fz = -std::cos(a); // forward
    // side = forward x up = (-fz, 0, fx); up' = side x forward = (0, 1, 0).
    const double sx = -fz, sz = fx;
    const double dx = p.x - c.x, dy = p.y - c.y, dz = p.z - c.z;
    double ex = sx * dx + sz * dz;
    double ey = dy;
    double ez = -(fx * dx + fz * dz);
    // then roll about z, then pitch about x (the pitch is applied last to the point).
    const double g = c.gama * M_PI / 180.0, b = c.beta * M_PI / 180.0;
    const double rx = std::cos(g) * ex - std::sin(g) * ey;
    const double ry = std::sin(g) * ex + std::cos(g) * ey;
    ex = rx;
    ey = std::cos(b) * ry - std::sin(b) * ez;
    ez = std::sin(b) * ry + std::cos(b) * ez;
    return arbo::Tocka(float(ex), float(ey), float(ez));
}

arbo::Tocka applyModelview(arbo::Tocka p) {
    float m[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, m);
    return arbo::Tocka(m[0] * p.x + m[4] * p.y + m[8] * p.z + m[12],
                       m[1] * p.x + m[5] * p.y + m[9] * p.z + m[13],
                       m[2] * p.x + m[6] * p.y + m[10] * p.z + m[14]);
}

} // namespace

class TestCamera : public QObject {
    Q_OBJECT
    OffscreenGl gl;
    bool haveGl = false;

private slots:
    void initTestCase() { haveGl = gl.create(); }

    // A fresh camera stands at the second of the two viewpoints; switching
    // cycles through them and the saved ones, restoring their values; a reset
    // appends both viewpoints again and keeps the index.
    void savedCamerasCycle() {
        CTerrainData terrain;
        Camera camera(nullptr, &terrain);
        QCOMPARE(
            QList<float>({camera.x, camera.y, camera.z, camera.alfa, camera.beta, camera.gama}),
            QList<float>({1300, 250, 790, 270, 0, 0}));
        QCOMPARE(QList<float>({camera.z_pomik, camera.dol_pomik, camera.levo_pomik}),
                 QList<float>({-15, -13, 0}));
        QVERIFY(camera.aboveSurface && !camera.atSurface);
        QCOMPARE(camera.currCamera, 0);
        QCOMPARE(int(camera.shranjeneLokacije.size()), 2);
        camera.x = 1.0f; // moved away: switching must restore the saved values
        camera.switchEcosystemCamera();
        QCOMPARE(camera.currCamera, 1);
        QCOMPARE(camera.x, 1300.0f);
        QCOMPARE(camera.alfa, 270.0f);
        camera.switchEcosystemCamera();
        QCOMPARE(camera.currCamera, 0);
        QCOMPARE(
            QList<float>({camera.x, camera.y, camera.z, camera.alfa, camera.beta, camera.gama}),
            QList<float>({1243, 1000, 192, 180, 59, 0}));

        const QList<float> own = {10, 20, 30, 40, 50, 60};
        camera.x = own[0];
        camera.y = own[1];
        camera.z = own[2];
        camera.alfa = own[3];
        camera.beta = own[4];
        camera.gama = own[5];
        camera.saveCamera();
        camera.switchEcosystemCamera(); // 1
        camera.x = 0.0f;
        camera.switchEcosystemCamera(); // 2: the saved one
        QCOMPARE(camera.currCamera, 2);
        QCOMPARE(
            QList<float>({camera.x, camera.y, camera.z, camera.alfa, camera.beta, camera.gama}),
            own);
        camera.switchEcosystemCamera();
        QCOMPARE(camera.currCamera, 0);

        camera.switchEcosystemCamera();
        camera.x_zasuk = 3.0f;
        camera.atSurface = true;
        camera.aboveSurface = false;
        camera.reset();
        QCOMPARE(int(camera.shranjeneLokacije.size()), 5);
        QCOMPARE(int(camera.shranjeniZasuki.size()), 5);
        QCOMPARE(camera.currCamera, 1);
        QCOMPARE(camera.x_zasuk, 0.0f);
        QVERIFY(!camera.atSurface && camera.aboveSurface);
        QCOMPARE(camera.shranjeneLokacije[3].y, 1000.0f);
        QCOMPARE(camera.shranjeniZasuki[4].x, 270.0f);
    }

    void walkHeightOnCellTriangles_data() {
        QTest::addColumn<float>("x");
        QTest::addColumn<float>("z");
        QTest::addColumn<float>("height");
        // Cell (1, 1): h00 = 0, h10 = 10, h01 = 20, h11 = 100.
        QTest::newRow("first triangle") << 30.0f << 32.5f << 8.0f;   // fx .2 fz .3: 2 + 6
        QTest::newRow("second triangle") << 42.5f << 40.0f << 40.0f; // fx .7 fz .6: 100-24-36
        QTest::newRow("diagonal") << 37.5f << 37.5f << 15.0f;        // 100-40-45 = 0+5+10
        QTest::newRow("corner vertex") << 50.0f << 25.0f << 10.0f;   // (2, 1)
        // cell (0, 0): h00 5, h10 6, h01 9, h11 0; fx .4 fz .2: 5 + .4 + .8
        QTest::newRow("cell 0 0") << 10.0f << 5.0f << 6.2f;
        // last column: i is held at nx - 2 = 2, fx = 1 gives the right edge.
        QTest::newRow("far edge") << 75.0f << 37.5f << 12.0f; // (11 + 13) / 2
    }

    void walkHeightOnCellTriangles() {
        QFETCH(float, x);
        QFETCH(float, z);
        QFETCH(float, height);
        CTerrainData terrain;
        setGrid(terrain, 4, 3, bumpyHeights());
        Camera camera(nullptr, &terrain);
        camera.atSurface = true;
        camera.x = x;
        camera.z = z;
        camera.y = 500.0f;
        camera.hodiPoTerenu();
        QVERIFY(std::fabs(camera.y - (height + 1.7f)) < 1e-4f);
        QCOMPARE(camera.x, x);
        QCOMPARE(camera.z, z);
    }

    void keepAboveLiftsOnlyFromBelow() {
        CTerrainData terrain;
        setGrid(terrain, 4, 3, bumpyHeights());
        Camera camera(nullptr, &terrain);
        camera.x = 30.0f;
        camera.z = 32.5f; // surface 8
        camera.y = 2.0f;
        camera.hodiPoTerenu();
        QVERIFY(std::fabs(camera.y - 9.7f) < 1e-4f);
        camera.y = 300.0f;
        camera.hodiPoTerenu();
        QCOMPARE(camera.y, 300.0f);
        camera.aboveSurface = false;
        camera.y = 2.0f;
        camera.hodiPoTerenu();
        QCOMPARE(camera.y, 2.0f);
    }

    void outsideTheTerrain() {
        CTerrainData terrain;
        setGrid(terrain, 4, 3, bumpyHeights());
        Camera camera(nullptr, &terrain);
        // Keep-above only: outside the grid the height is left alone.
        camera.x = -10.0f;
        camera.z = 30.0f;
        camera.y = -50.0f;
        camera.hodiPoTerenu();
        QCOMPARE(camera.y, -50.0f);
        QCOMPARE(camera.x, -10.0f);

        // At-surface: clamped to the edge and set on the surface there.
        camera.atSurface = true;
        camera.hodiPoTerenu();
        QCOMPARE(camera.x, 0.0f);
        QCOMPARE(camera.z, 30.0f);
        // column 0 between rows 1 (9) and 2 (12), fz = .2: 9 + 3 * .2
        QVERIFY(std::fabs(camera.y - (9.6f + 1.7f)) < 1e-4f);

        camera.x = 1000.0f;
        camera.z = 1000.0f;
        camera.hodiPoTerenu();
        QCOMPARE(camera.x, 75.0f);
        QCOMPARE(camera.z, 50.0f);
        QVERIFY(std::fabs(camera.y - (13.0f + 1.7f)) < 1e-4f);
    }

    void flatOrTooSmallGrid() {
        CTerrainData terrain;
        setGrid(terrain, 5, 5, std::vector<float>(25, 0.0f));
        Camera camera(nullptr, &terrain);
        camera.atSurface = true;
        for (float p : {0.0f, 13.3f, 50.0f, 99.9f, 100.0f}) {
            camera.x = p;
            camera.z = 100.0f - p;
            camera.y = 77.0f;
            camera.hodiPoTerenu();
            QCOMPARE(camera.y, 1.7f);
        }
        // One column: no cell to stand on, the camera keeps flying.
        setGrid(terrain, 1, 4, std::vector<float>(4, 10.0f));
        camera.x = 0.0f;
        camera.z = 10.0f;
        camera.y = -3.0f;
        camera.hodiPoTerenu();
        QCOMPARE(camera.y, -3.0f);
    }

    void setupBuildsViewTransformation_data() {
        QTest::addColumn<float>("alfa");
        QTest::addColumn<float>("beta");
        QTest::addColumn<float>("gama");
        QTest::newRow("fresh") << 270.0f << 0.0f << 0.0f;
        QTest::newRow("north") << 0.0f << 0.0f << 0.0f;
        QTest::newRow("pitched and rolled") << 33.0f << 59.0f << 12.0f;
    }

    void setupBuildsViewTransformation() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        QFETCH(float, alfa);
        QFETCH(float, beta);
        QFETCH(float, gama);
        CTerrainData terrain;
        setGrid(terrain, 4, 3, bumpyHeights());
        Camera camera(nullptr, &terrain); // far outside this small grid
        camera.alfa = alfa;
        camera.beta = beta;
        camera.gama = gama;
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        camera.setupEcosystemCamera();
        QVERIFY(std::fabs(camera.lx - float(std::sin(alfa * M_PI / 180.0))) < 1e-6f);
        QCOMPARE(camera.ly, 0.0f);
        QVERIFY(std::fabs(camera.lz + float(std::cos(alfa * M_PI / 180.0))) < 1e-6f);
        for (const arbo::Tocka& p :
             {arbo::Tocka(0, 0, 0), arbo::Tocka(1400, 260, 700), arbo::Tocka(-20, 1000, 2500)}) {
            const arbo::Tocka expected = eyeSpace(camera, p);
            const arbo::Tocka actual = applyModelview(p);
            QVERIFY2((expected - actual).dolzina() < 1e-2 * (1.0 + expected.dolzina() / 100.0),
                     qPrintable(QString("%1 %2 %3 vs %4 %5 %6")
                                    .arg(expected.x)
                                    .arg(expected.y)
                                    .arg(expected.z)
                                    .arg(actual.x)
                                    .arg(actual.y)
                                    .arg(actual.z)));
        }
        if (alfa == 270.0f) {
            QCOMPARE(camera.lx, -1.0f);
            QVERIFY(std::fabs(camera.lz) < 1e-6f);
        }
    }

    void setupWalksOnlyWithASurfaceMode() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        CTerrainData terrain;
        setGrid(terrain, 4, 3, bumpyHeights());
        Camera camera(nullptr, &terrain);
        camera.x = 30.0f;
        camera.z = 32.5f;
        camera.y = 0.5f;
        camera.aboveSurface = false;
        glLoadIdentity();
        camera.setupEcosystemCamera();
        QCOMPARE(camera.y, 0.5f);
        camera.aboveSurface = true;
        glLoadIdentity();
        camera.setupEcosystemCamera();
        QVERIFY(std::fabs(camera.y - 9.7f) < 1e-4f);
    }
};

QTEST_MAIN(TestCamera)
#include "tst_camera.moc"
