#include "ecosystem/render/camera.h"
#include "ecosystem/render/sky.h"
#include "ecosystem/render/terrain.h"
#include "ecosystem/simulation/data/terraindata.h"

#include "arbo/gltexture.h"
#include "support/glcontext.h"

#include <GL/glu.h>

#include <QtTest>

#include <set>

using ecosystem::render::Sky;

namespace {

void compareTocka(const arbo::Tocka& a, float x, float y, float z) {
    QCOMPARE(a.x, x);
    QCOMPARE(a.y, y);
    QCOMPARE(a.z, z);
}

QImage gradient(QColor top, QColor bottom) {
    QImage image(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x) {
            const float f = y / 63.0f;
            image.setPixelColor(x, y,
                                QColor(int(top.red() * (1 - f) + bottom.red() * f),
                                       int(top.green() * (1 - f) + bottom.green() * f),
                                       int(top.blue() * (1 - f) + bottom.blue() * f)));
        }
    return image;
}

} // namespace

class TestSky : public QObject {
    Q_OBJECT
    OffscreenGl gl;
    bool haveGl = false;

private slots:
    void initTestCase() { haveGl = gl.create(200, 150); }

    // A box of half-width five terrain widths (only the x extent counts)
    // around the terrain's middle on the ground; each face's four corners lie
    // in one of its planes, face 0 (north wall) starting at corner 5.
    void boxIsFiveTerrainWidthsAroundTheCentre_data() {
        QTest::addColumn<float>("width");
        QTest::addColumn<float>("depth");
        QTest::newRow("square terrain") << 2500.0f << 2500.0f;
        QTest::newRow("deep terrain") << 1000.0f << 4000.0f;
    }
    void boxIsFiveTerrainWidthsAroundTheCentre() {
        QFETCH(float, width);
        QFETCH(float, depth);
        Sky sky(arbo::Tocka(width, 1000, depth));
        const float r = 5 * width, cx = width / 2, cz = depth / 2;
        compareTocka(sky.ogljiscaObzorja[0], cx - r, r, cz + r);
        compareTocka(sky.ogljiscaObzorja[1], cx + r, r, cz + r);
        compareTocka(sky.ogljiscaObzorja[2], cx + r, r, cz - r);
        compareTocka(sky.ogljiscaObzorja[7], cx - r, 0, cz - r);
        compareTocka(sky.ogljiscaObzorja[sky.indeksiOgljiscObzorja[0][0]], cx + r, 0, cz + r);
        const char axis[6] = {'z', 'z', 'x', 'x', 'y', 'y'};
        const float value[6] = {cz + r, cz - r, cx - r, cx + r, r, 0};
        for (int f = 0; f < 6; ++f)
            for (int k = 0; k < 4; ++k) {
                const arbo::Tocka& c = sky.ogljiscaObzorja[sky.indeksiOgljiscObzorja[f][k]];
                QCOMPARE(axis[f] == 'x' ? c.x : axis[f] == 'y' ? c.y : c.z, value[f]);
            }
        for (GLuint id : sky.idTexturaSky)
            QCOMPARE(id, 0u);
        // Texture coordinates keep half a texel inside; the water repeats five times.
        const double p = 1.0 / 512.0;
        QCOMPARE(sky.teksturneKoordinate[0].x, p);
        QCOMPARE(sky.teksturneKoordinate[2].x, 1.0 - p);
        QCOMPARE(sky.teksturneKoordinate[3].y, 1.0 - p);
        QVERIFY(std::fabs(sky.teksturneKoordinateVode[2].x - 5.0 * (1.0 - p)) < 1e-6);
        QCOMPARE(sky.teksturneKoordinateVode[1].y, p);
    }

    // A frame as the ecosystem view draws it without plants: the default camera,
    // the sky, then the terrain.
    void ecosystemFrameShowsSkyAndTerrain() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        ecosystem::data::CTerrainData data;
        ecosystem::render::Camera camera(nullptr, &data);
        Sky sky(data.dimen);
        const QColor skyColours[6][2] = {{Qt::blue, Qt::white}, {Qt::cyan, Qt::white},
                                         {Qt::blue, Qt::cyan},  {Qt::cyan, Qt::blue},
                                         {Qt::blue, Qt::blue},  {Qt::darkBlue, Qt::blue}};
        GLuint names[6];
        for (int i = 0; i < 6; ++i)
            names[i] = arbo::GlTexture::bind(gradient(skyColours[i][0], skyColours[i][1]));
        sky.setTextureNames(names[0], names[1], names[2], names[3], names[4], names[5]);
        ecosystem::render::Terrain terrain(&gl.context, &data);
        terrain.setTextureNames(arbo::GlTexture::bind(*data.ortofotoTexture),
                                arbo::GlTexture::bind(gradient(Qt::gray, Qt::darkGray)));
        terrain.initGLContexMultitextureAndArrays();

        glViewport(0, 0, 200, 150);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        gluPerspective(90.0, 1.0, 1.0, 30000.0);
        glMatrixMode(GL_MODELVIEW);
        glEnable(GL_DEPTH_TEST);
        glClearColor(1, 1, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glLoadIdentity();
        camera.setupEcosystemCamera();
        sky.render();
        const QImage skyOnly = gl.fbo->toImage();
        terrain.render();
        glFinish();
        const QImage frame = gl.fbo->toImage();

        std::set<QRgb> colours;
        int white = 0, changedByTerrain = 0;
        for (int y = 0; y < frame.height(); ++y)
            for (int x = 0; x < frame.width(); ++x) {
                colours.insert(frame.pixel(x, y));
                white += frame.pixel(x, y) == qRgb(255, 255, 255);
                changedByTerrain += frame.pixel(x, y) != skyOnly.pixel(x, y);
            }
        QVERIFY(colours.size() > 50);
        QVERIFY(white < frame.width() * frame.height() / 10); // the sky hides the clear colour
        QVERIFY(changedByTerrain > frame.width() * frame.height() / 10);
        // the camera looks across the terrain: the terrain fills the lower half
        QVERIFY(frame.pixel(100, 140) != skyOnly.pixel(100, 140));
        QCOMPARE(frame.pixel(100, 5), skyOnly.pixel(100, 5));
        QCOMPARE(glGetError(), GLenum(GL_NO_ERROR));
    }
};

QTEST_MAIN(TestSky)
#include "tst_sky.moc"
