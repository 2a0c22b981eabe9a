#include "ecosystem/render/terrain.h"
#include "ecosystem/simulation/data/terraindata.h"

#include "arbo/gltexture.h"
#include "support/glcontext.h"

#include <GL/gl.h>

#include <QtTest>

using ecosystem::data::CTerrainData;
using ecosystem::render::GlExtensions;
using ecosystem::render::Terrain;

namespace {

const int imageSize = 64;

QImage filledImage(QColor left, QColor right) {
    QImage image(128, 128, QImage::Format_RGB32);
    for (int y = 0; y < 128; ++y)
        for (int x = 0; x < 128; ++x)
            image.setPixelColor(x, y, x < 64 ? left : right);
    return image;
}

// Looks straight down on the terrain so that the image's x follows world x and
// its y follows world z (row 0 of the image at z = 0).
// With cells > 0 only that many cells of the north-west corner are shown.
void lookDownOnTerrain(const CTerrainData& terrain, int cells = 0) {
    const float sizeX = (cells > 0 ? cells : terrain.stTockX - 1) * 25.0f;
    const float sizeZ = (cells > 0 ? cells : terrain.stTockY - 1) * 25.0f;
    glViewport(0, 0, imageSize, imageSize);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0, sizeX, -sizeZ, 0, -100000, 100000);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glRotatef(90.0f, 1.0f, 0.0f, 0.0f); // world z becomes screen -y, world y towards the eye
    glDisable(GL_LIGHTING);
    glDisable(GL_DEPTH_TEST);
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

bool near(QColor c, int r, int g, int b) {
    return std::abs(c.red() - r) < 12 && std::abs(c.green() - g) < 12 &&
           std::abs(c.blue() - b) < 12;
}

} // namespace

class TestTerrain : public QObject {
    Q_OBJECT
    OffscreenGl gl;
    bool haveGl = false;

    QImage drawTerrain(Terrain& terrain, int cells = 0) {
        lookDownOnTerrain(*terrain.terrainData, cells);
        terrain.render();
        glFinish();
        return gl.fbo->toImage();
    }

    // Sets the terrain up the way the scene does: two textures, then the arrays.
    void prepare(Terrain& terrain, CTerrainData& data, unsigned grey = 128) {
        terrain.setTextureNames(
            arbo::GlTexture::bind(*data.ortofotoTexture),
            arbo::GlTexture::bind(filledImage(QColor(grey, grey, grey), QColor(grey, grey, grey))));
        terrain.initGLContexMultitextureAndArrays();
    }

private slots:
    void initTestCase() { haveGl = gl.create(imageSize, imageSize); }

    void arraysZigZagAndCoverTheTerrain() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        CTerrainData data;
        Terrain terrain(&gl.context, &data);
        terrain.initGLContexMultitextureAndArrays();
        QCOMPARE(int(terrain.verticesIndexArray.size()), 19800);
        // Strip y starts at 200 y and alternates between rows y and y + 1.
        for (int y = 0; y < 99; ++y)
            for (int x = 0; x < 100; ++x) {
                QCOMPARE(int(terrain.verticesIndexArray[200 * y + 2 * x]), y * 100 + x);
                QCOMPARE(int(terrain.verticesIndexArray[200 * y + 2 * x + 1]), (y + 1) * 100 + x);
            }
        // The photo covers the terrain once, the detail repeats every cell.
        QCOMPARE(int(terrain.stTextureArray.size()), 2 * 100 * 100);
        QCOMPARE(int(terrain.uvTextureArray.size()), 2 * 100 * 100);
        const int v = 37 + 52 * 100; // column 37, row 52
        QCOMPARE(terrain.stTextureArray[2 * v], 0.37f);
        QCOMPARE(terrain.stTextureArray[2 * v + 1], 0.52f);
        // detail: one repeat per cell, so (u, v) is the vertex's column and row
        QVERIFY(std::fabs(terrain.uvTextureArray[2 * v] - 37.0f) < 1e-4f);
        QVERIFY(std::fabs(terrain.uvTextureArray[2 * v + 1] - 52.0f) < 1e-4f);
    }

    // Listed extensions resolve through the context; a resolver that finds
    // nothing turns both off.
    void extensionsFollowStringAndResolver() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        const QByteArray listed = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
        const QList<QByteArray> names = listed.split(' ');
        GlExtensions found;
        found.load(GlExtensions::currentContextResolver());
        QCOMPARE(found.multitexture, names.contains("GL_ARB_multitexture"));
        QCOMPARE(found.compiledVertexArray, names.contains("GL_EXT_compiled_vertex_array"));
        qInfo("multitexture %d, compiled vertex arrays %d", found.multitexture,
              found.compiledVertexArray);
        found.load([](const char*) -> QFunctionPointer { return nullptr; });
        QVERIFY(!found.multitexture);
        QVERIFY(!found.compiledVertexArray);
    }

    // The photo's left half lands on the terrain's west half with both the
    // multitexture path and the path without extensions.
    void orthoPhotoIsDrapedOverTerrain_data() {
        QTest::addColumn<bool>("extensions");
        QTest::newRow("multitexture") << true;
        QTest::newRow("no extensions") << false;
    }

    void orthoPhotoIsDrapedOverTerrain() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        QFETCH(bool, extensions);
        CTerrainData data;
        *data.ortofotoTexture = filledImage(QColor(255, 0, 0), QColor(0, 0, 255));
        Terrain terrain(&gl.context, &data);
        if (!extensions)
            terrain.setExtensionResolver([](const char*) -> QFunctionPointer { return nullptr; });
        prepare(terrain, data);
        QCOMPARE(terrain.extensions().multitexture, extensions);
        const QImage image = drawTerrain(terrain);
        QVERIFY(near(image.pixelColor(10, 32), 255, 0, 0));
        QVERIFY(near(image.pixelColor(54, 32), 0, 0, 255));
        QVERIFY(near(image.pixelColor(10, 5), 255, 0, 0));
    }

    void detailTextureIsAddedSigned() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        CTerrainData data;
        *data.ortofotoTexture = filledImage(QColor(100, 100, 100), QColor(100, 100, 100));
        Terrain terrain(&gl.context, &data);
        prepare(terrain, data, 178); // detail 178: + 178 - 128 = + 50
        if (!terrain.extensions().multitexture)
            QSKIP("no multitexture");
        const QImage image = drawTerrain(terrain);
        QVERIFY2(near(image.pixelColor(32, 32), 150, 150, 150),
                 qPrintable(image.pixelColor(32, 32).name()));
    }

    void wireframeLeavesGapsBetweenLines() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        CTerrainData data;
        *data.ortofotoTexture = filledImage(QColor(255, 255, 255), QColor(255, 255, 255));
        Terrain terrain(&gl.context, &data);
        prepare(terrain, data);
        int filled = 0;
        for (int pass = 0; pass < 2; ++pass) {
            const QImage image = drawTerrain(terrain, 8); // 8 pixels per cell
            int lit = 0;
            for (int y = 0; y < imageSize; ++y)
                for (int x = 0; x < imageSize; ++x)
                    lit += image.pixelColor(x, y).red() > 128;
            if (pass == 0) {
                filled = lit;
                terrain.toggleWireframe();
            } else {
                QCOMPARE(filled, imageSize * imageSize);
                QVERIFY(lit > 0);
                // one-pixel zig-zags 8 pixels apart: a small part of the area
                QVERIFY(lit < filled / 3);
            }
        }
    }

    // Trees draw from client arrays of their own after the terrain: nothing of
    // the terrain's may stay enabled.
    void drawingLeavesNoClientArrayEnabled() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        CTerrainData data;
        Terrain terrain(&gl.context, &data);
        prepare(terrain, data);
        drawTerrain(terrain);
        QVERIFY(!glIsEnabled(GL_VERTEX_ARRAY));
        QVERIFY(!glIsEnabled(GL_TEXTURE_COORD_ARRAY));
        if (terrain.extensions().multitexture) {
            terrain.extensions().clientActiveTexture(GL_TEXTURE1_ARB);
            QVERIFY(!glIsEnabled(GL_TEXTURE_COORD_ARRAY));
            terrain.extensions().clientActiveTexture(GL_TEXTURE0_ARB);
        }
        QCOMPARE(glGetError(), GLenum(GL_NO_ERROR));
    }

    void reloadedDemIsTakenUpAtNextFrame() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        CTerrainData data;
        *data.ortofotoTexture = filledImage(QColor(255, 0, 0), QColor(255, 0, 0));
        Terrain terrain(&gl.context, &data);
        prepare(terrain, data);
        QVERIFY(near(drawTerrain(terrain).pixelColor(32, 32), 255, 0, 0));

        // What a DEM reload does to the data: a new photo, heights rewritten.
        data.ortofotoTexture.reset(new QImage(filledImage(QColor(0, 255, 0), QColor(0, 255, 0))));
        for (arbo::Tocka& v : data.ogliscaTerena)
            v.y += 10.0f;
        QVERIFY(near(drawTerrain(terrain).pixelColor(32, 32), 0, 255, 0));
    }
};

QTEST_MAIN(TestTerrain)
#include "tst_terrain.moc"
