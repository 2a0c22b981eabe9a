#include "ecosystem/render/terrainmarkings.h"
#include "ecosystem/simulation/data/sunfactory.h"
#include "ecosystem/simulation/data/terraindata.h"

#include "support/glcontext.h"
#include "support/imagecompare.h"
#include "support/terrain.h"

#include <GL/gl.h>

#include <QGuiApplication>
#include <QtTest>

#include <algorithm>
#include <memory>

using ecosystem::data::CTerrainData;
using ecosystem::render::TerrainMarkings;

namespace {

const int imageSize = 128;

// Looks straight down with one pixel per metre: world x from -28 m to the
// right, world z from -28 m downwards. Every overlay draws into the image as it
// would over the terrain.
void lookDown(float metresPerPixel = 1.0f, float left = -28.0f, float top = -28.0f) {
    glViewport(0, 0, imageSize, imageSize);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    const float span = imageSize * metresPerPixel;
    glOrtho(left, left + span, -(top + span), -top, -100000, 100000);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glRotatef(90.0f, 1.0f, 0.0f, 0.0f); // world z downwards in the image
    glClearColor(0, 0, 0, 1);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    // Alpha stays 1: the image read back holds the colours as drawn.
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE);
}

QColor pixelAt(const QImage& image, float x, float z, float left = -28.0f, float top = -28.0f,
               float metresPerPixel = 1.0f) {
    return image.pixelColor(int((x - left) / metresPerPixel), int((z - top) / metresPerPixel));
}

bool near(QColor c, QColor e) {
    return std::abs(c.red() - e.red()) <= 2 && std::abs(c.green() - e.green()) <= 2 &&
           std::abs(c.blue() - e.blue()) <= 2;
}

// Blobs of pixels other than black (4-connected): their centres in pixels.
QList<QPointF> blobs(const QImage& image) {
    QList<QPointF> centres;
    QVector<bool> seen(image.width() * image.height());
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            if (seen[y * image.width() + x] || (image.pixel(x, y) & 0xFFFFFF) == 0)
                continue;
            QList<QPoint> stack{{x, y}};
            seen[y * image.width() + x] = true;
            QPointF sum;
            int n = 0;
            while (!stack.isEmpty()) {
                const QPoint p = stack.takeLast();
                sum += p;
                ++n;
                for (QPoint d : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
                    const QPoint q = p + d;
                    if (q.x() < 0 || q.y() < 0 || q.x() >= image.width() ||
                        q.y() >= image.height() || seen[q.y() * image.width() + q.x()] ||
                        (image.pixel(q) & 0xFFFFFF) == 0)
                        continue;
                    seen[q.y() * image.width() + q.x()] = true;
                    stack << q;
                }
            }
            centres << sum / n;
        }
    return centres;
}

} // namespace

class TestTerrainMarkings : public QObject {
    Q_OBJECT
    OffscreenGl gl;

    QImage finish() {
        glFinish();
        return gl.fbo->toImage();
    }

private slots:
    void initTestCase() { QVERIFY(gl.createWithViewState(imageSize, imageSize)); }

    // The diamonds are drawn over whatever is nearer the eye (only vertices
    // with a value above 0), and the state afterwards is the view's again:
    // shapes and colours are checked against the disks below.
    void diamondsOverEverythingAndStateRestored() {
        CTerrainData t;
        testterrain::pripravi(t, 4, 3);
        t.terrainMoisture = {1.0f,  0.5f, 0.0f, 1.0f, 0.75f, -1.0f,
                             0.25f, 1.0f, 1.0f, 1.0f, 1.0f,  1.0f};
        TerrainMarkings markings(&t);
        lookDown();
        glDisable(GL_LIGHTING);
        glColor3f(0.2f, 0.2f, 0.2f);
        glBegin(GL_QUADS);
        glVertex3f(-28, 500, -28);
        glVertex3f(100, 500, -28);
        glVertex3f(100, 500, 100);
        glVertex3f(-28, 500, 100);
        glEnd();
        glEnable(GL_LIGHTING);
        markings.renderMoisture();
        const QImage image = finish();
        const QColor grey = pixelAt(image, 90, 90); // far from every diamond
        QVERIFY(near(pixelAt(image, 0, 0), QColor(0, 255, 0)));
        QVERIFY(near(pixelAt(image, 0, 25), QColor(0, 191, 0)));
        QVERIFY(near(pixelAt(image, 50, 0), grey));  // 0: none
        QVERIFY(near(pixelAt(image, 25, 25), grey)); // -1: none
        QVERIFY(near(pixelAt(image, 75, 0), grey));  // the last column
        QVERIFY(near(pixelAt(image, 25, 50), grey)); // the last row

        GLfloat colour[4];
        glGetFloatv(GL_CURRENT_COLOR, colour);
        QCOMPARE(QColor::fromRgbF(colour[0], colour[1], colour[2], colour[3]), QColor(Qt::white));
        QVERIFY(glIsEnabled(GL_LIGHTING) && glIsEnabled(GL_BLEND) && glIsEnabled(GL_TEXTURE_2D));
        QVERIFY(glIsEnabled(GL_DEPTH_TEST));
        GLint vertexArray = 1;
        glGetIntegerv(GL_VERTEX_ARRAY, &vertexArray);
        QCOMPARE(vertexArray, 0); // the trees' own arrays come next
    }

    // Seen in perspective over a hilly grid, each layer's frame is pixel for
    // pixel that of one four-slice quadric disk per vertex in its own turned
    // frame, coloured as the layer says (to the last unit of a channel).
    void diamondsAreTheDisksOfTheLayer() {
        CTerrainData t;
        testterrain::reshape(t, 12, 12, [](int x, int y) { return float(7 * x + 3 * y % 5); });
        for (int i = 0; i < 144; ++i) {
            t.terrainInclination[i] = (i % 7) / 6.0f;
            t.terrainMoisture[i] = (i % 5) / 4.0f;
            t.terrainSunniness[i] = 1.5f * (i % 3) / 2.0f;
            t.terrainWindiness[i] = (i % 11) / 10.0f - 0.1f;
        }
        TerrainMarkings markings(&t);
        auto look = [] {
            glMatrixMode(GL_PROJECTION);
            glLoadIdentity();
            gluPerspective(60, 1, 1, 2000);
            glMatrixMode(GL_MODELVIEW);
            glLoadIdentity();
            gluLookAt(-60, 180, -60, 140, 0, 140, 0, 1, 0);
            glClearColor(0, 0, 0, 1);
            glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
            glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
            glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE); // colours only
        };
        glViewport(0, 0, imageSize, imageSize);
        const std::vector<float>* layers[] = {&t.terrainInclination, &t.terrainMoisture,
                                              &t.terrainSunniness, &t.terrainWindiness};
        for (int type = 1; type <= 4; ++type) {
            look();
            markings.renderDataOnVertices(const_cast<float*>(layers[type - 1]->data()), type);
            const QImage drawn = finish();

            look();
            glDisable(GL_LIGHTING);
            glDisable(GL_TEXTURE_2D);
            glDisable(GL_BLEND);
            for (int y = 0; y < 11; ++y)
                for (int x = 0; x < 11; ++x) {
                    const float v = (*layers[type - 1])[y * 12 + x];
                    const float rgb[4][3] = {{v, 0, v}, {0, v, 0}, {v, 0, 0}, {v, v, 0}};
                    glColor4f(rgb[type - 1][0], rgb[type - 1][1], rgb[type - 1][2], 0.5f);
                    glDisable(GL_DEPTH_TEST);
                    glPushMatrix();
                    const arbo::Tocka& p = t.pTerrainVertexData[y * 12 + x].pos;
                    glTranslatef(p.x, p.y, p.z);
                    glRotatef(90, 1, 0, 0);
                    glRotatef(45, 0, 0, 1);
                    gluDisk(markings.kvadraticnePloskve, 0, 17.75 * v, 4, 1);
                    glPopMatrix();
                    glEnable(GL_DEPTH_TEST);
                }
            const QImage reference = finish();
            QVERIFY(imagecompare::pixelsOtherThan(reference, qRgb(0, 0, 0)) > 1000);
            // Colours interpolated over a whole array may round the other way at .5.
            QCOMPARE(imagecompare::differingPixels(drawn, reference, 1), 0);
        }
        glEnable(GL_LIGHTING);
        glEnable(GL_TEXTURE_2D);
        glEnable(GL_BLEND);
    }

    // One red line of 50 m along the normal from every vertex but those of the
    // last row and column; read back in feedback mode, one unit per metre.
    void normalsAreRedLines() {
        CTerrainData t;
        testterrain::pripravi(t, 5, 4);
        t.terrainNormals.assign(20, arbo::Tocka(0.6f, 0.8f, 0.0f));
        TerrainMarkings markings(&t);
        glViewport(0, 0, 1000, 1000);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(0, 1000, 0, 1000, -1000, 1000);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        std::vector<GLfloat> buffer(10000);
        glFeedbackBuffer(GLsizei(buffer.size()), GL_3D_COLOR, buffer.data());
        glRenderMode(GL_FEEDBACK);
        glColor3f(1, 0, 0);
        markings.renderNormals();
        const int size = glRenderMode(GL_RENDER);
        QVERIFY(size > 0);

        QList<QPoint> starts;
        for (int i = 0; i < size;) {
            const int token = int(buffer[i++]);
            QVERIFY2(token == GL_LINE_TOKEN || token == GL_LINE_RESET_TOKEN,
                     qPrintable(QString::number(token)));
            const GLfloat* a = &buffer[i];
            const GLfloat* b = &buffer[i + 7];
            i += 14;
            QCOMPARE(b[0] - a[0], 30.0f);
            QCOMPARE(b[1] - a[1], 40.0f);
            for (const GLfloat* v : {a, b})
                QVERIFY(v[3] == 1 && v[4] == 0 && v[5] == 0);
            starts << QPoint(qRound(a[0] * 100), qRound(a[1] * 100)); // in centimetres
        }
        QList<QPoint> expected;
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 4; ++x)
                expected << QPoint(2500 * x, 10000);
        QCOMPARE(starts, expected);
    }

    // 21 balls on the half-ellipsoid over the terrain's middle: from above at
    // (x + 0.5, z + 0.5) times the terrain's size, the midday one 695 m high.
    void sunPathOfTwentyOneBalls() {
        CTerrainData t;
        testterrain::pripravi(t, 100, 100);
        t.sunFactory = std::make_unique<ecosystem::data::CSunFactory>(t);
        TerrainMarkings markings(&t);
        const float scale = 45.0f, left = -1600.0f;

        lookDown(scale, left, left);
        glDisable(GL_LIGHTING);
        markings.renderSun();
        QList<QPointF> seen = blobs(finish());
        QCOMPARE(seen.size(), 21);
        for (int i = 0; i < 21; ++i) {
            const arbo::Tocka p = t.sunFactory->getSunPositionAtSample(i);
            const QPointF expected(((p.x + 0.5f) * 2500 - left) / scale - 0.5,
                                   ((p.z + 0.5f) * 2500 - left) / scale - 0.5);
            const bool found = std::any_of(seen.begin(), seen.end(), [&](QPointF c) {
                return (c - expected).manhattanLength() < 1.5;
            });
            QVERIFY2(found, qPrintable(QString("sample %1").arg(i)));
        }
        GLfloat colour[4];
        glGetFloatv(GL_CURRENT_COLOR, colour);
        QCOMPARE(QColor::fromRgbF(colour[0], colour[1], colour[2]), QColor(Qt::white));

        // From the south (looking along -z): the midday ball stands alone over x = 1250.
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(left, left + imageSize * scale, -200, -200 + imageSize * scale, -100000, 100000);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        markings.renderSun();
        seen = blobs(finish());
        const QPointF midday((1250 - left) / scale - 0.5, imageSize - (694.66 + 200) / scale - 0.5);
        QVERIFY(std::any_of(seen.begin(), seen.end(),
                            [&](QPointF c) { return (c - midday).manhattanLength() < 1.5; }));
        glEnable(GL_LIGHTING);
    }
};

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    TestTerrainMarkings test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_terrainmarkings.moc"
