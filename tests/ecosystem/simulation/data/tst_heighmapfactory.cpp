#include "ecosystem/simulation/data/heighmapfactory.h"
#include "ecosystem/simulation/data/terraindata.h"

#include "support/messagecatcher.h"
#include "support/terrain.h"

#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <cmath>

using arbo::Tocka;
using ecosystem::data::CHeighMapFactory;
using ecosystem::data::CTerrainData;
using ecosystem::data::mixPixels;

namespace {

QString writeFile(QTemporaryDir& dir, const char* name, const QByteArray& text) {
    const QString path = dir.filePath(name);
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly))
        return {};
    f.write(text);
    return path;
}

// Five one-pixel textures with easily told apart channels.
void bandTextures(QImage* images) {
    const QRgb colours[5] = {qRgb(13, 197, 3), qRgb(41, 163, 27), qRgb(83, 119, 61),
                             qRgb(157, 79, 143), qRgb(241, 37, 223)};
    for (int i = 0; i < 5; ++i) {
        images[i] = QImage(1, 1, QImage::Format_RGB32);
        images[i].setPixel(0, 0, colours[i]);
    }
}

// Mixing worked independently: own weight w, the neighbours share 1 - w.
QRgb expectedMix(QRgb own, QRgb lower, QRgb upper, double w) {
    auto ch = [&](int a, int b, int c) {
        return int(std::floor(a * w + (b + c) * (1 - w) / 2)) / 2;
    };
    return qRgb(ch(qRed(own), qRed(lower), qRed(upper)),
                ch(qGreen(own), qGreen(lower), qGreen(upper)),
                ch(qBlue(own), qBlue(lower), qBlue(upper)));
}

} // namespace

class TestHeighMapFactory : public QObject {
    Q_OBJECT
private slots:
    // As many points as the grid has, X along a row (rising or falling), Y
    // from row to row, heights from the lowest; rounding noise within a
    // quarter of the spacing breaks no grid; numbers in any layout, not in
    // the locale's; points past the grid are ignored.
    void goodFilesLoad_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("w");
        QTest::addColumn<QList<float>>("heights");
        QTest::addColumn<QList<float>>("box"); // min X, max X, min Y, max Y
        QTest::newRow("3 x 2 and one too many")
            << QByteArray("100 900 50.5\n125 900 52\n150 900 49\n"
                          "100 875 60\n125 875 70.25\n150 875 48.5\n999 999 999\n")
            << 3 << QList<float>{50.5f, 52, 49, 60, 70.25f, 48.5f}
            << QList<float>{100, 150, 875, 900};
        QTest::newRow("reversed with noise")
            << QByteArray("900 100 1\n874.9 100.2 2\n850 99.9 3\n"
                          "900 150 4\n875 150 5\n850.3 150 6\n")
            << 3 << QList<float>{1, 2, 3, 4, 5, 6} << QList<float>{850, 900, 99.9f, 150};
        QTest::newRow("spread over lines") << QByteArray("  1\t2 3.5e1\r\n4\n2\n+6  ") << 2
                                           << QList<float>{35, 6} << QList<float>{1, 4, 2, 2};
    }
    void goodFilesLoad() {
        QFETCH(QByteArray, text);
        QFETCH(int, w);
        QFETCH(QList<float>, heights);
        QFETCH(QList<float>, box);
        QTemporaryDir dir;
        const QString path = writeFile(dir, "good.dmr", text);
        MessageCatcher catcher;
        CTerrainData t;
        const int h = int(heights.size()) / w;
        testterrain::reshape(t, w, h, [](int, int) { return 0.0f; });
        QVERIFY(CHeighMapFactory(&t).loadDmrHeighMap(path.toLocal8Bit().constData()));
        QVERIFY(catcher.messages.empty());
        QCOMPARE(QList<float>({t.dmrMinX, t.dmrMaxX, t.dmrMinY, t.dmrMaxY}), box);
        const float lowest = *std::min_element(heights.begin(), heights.end());
        const float highest = *std::max_element(heights.begin(), heights.end());
        QCOMPARE(t.dmrMinZ, lowest);
        QCOMPARE(t.dmrMaxZ, highest);
        QCOMPARE(t.visinskaRazlikaNaTerenu, highest - lowest);
        for (int i = 0; i < int(heights.size()); ++i) {
            const Tocka p = t.pTerrainVertexData[i].pos;
            QCOMPARE(p.x, 25.0f * (i % w));
            QCOMPARE(p.z, 25.0f * (i / w));
            QCOMPARE(p.y, heights[i] - lowest);
            QCOMPARE(t.ogliscaTerena[i].y, p.y);
        }
    }

    // Whatever is wrong, the factory changes nothing of the terrain and says
    // what once.
    void badFilesChangeNothing_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("message");
        const QString reading = "Error reading DEM terrain file.";
        QTest::newRow("unopenable") << QByteArray("@none") << "Could not open DEM terrain file.";
        QTest::newRow("short") << QByteArray("0 0 300\n25 0 310\n50 0 305\n\n\n") << reading;
        QTest::newRow("transposed")
            << QByteArray("0 0 1\n0 25 2\n25 0 3\n25 25 4\n")
            << reading + "\nLine 2: the points do not form a grid of 2 rows of 2 points, with X "
                         "changing along each row and Y from row to row.";
        QTest::newRow("row shifted")
            << QByteArray("0 0 1\n25 0 2\n\n10 25 3\n25 25 4\n")
            << reading + "\nLine 4: the points do not form a grid of 2 rows of 2 points, with X "
                         "changing along each row and Y from row to row.";
        QTest::newRow("heights too far apart")
            << QByteArray("0 0 3e38\n25 0 -3e38\n0 25 1\n25 25 1\n")
            << reading + "\nLine 1: the height 3e+38 lies outside -100000 to 100000 m.";
        QTest::newRow("beyond float range")
            << QByteArray("0 0 1\n25 0 1e39\n0 25 1\n25 25 1\n")
            << reading + "\nLine 2: the height 1e+39 lies outside -100000 to 100000 m.";
        QTest::newRow("a word") << QByteArray("0 0 1\n25 0 1\n0 25 one\n25 25 1\n")
                                << reading + "\nLine 3: \"one\" is not a number.";
    }
    void badFilesChangeNothing() {
        QFETCH(QByteArray, text);
        QFETCH(QString, message);
        QTemporaryDir dir;
        const QString path =
            text == "@none" ? QString("/no/such/file.dmr") : writeFile(dir, "bad.dmr", text);
        CTerrainData t;
        testterrain::reshape(t, 2, 2, [](int x, int y) { return float(x + y); });
        t.visinskaRazlikaNaTerenu = 123.0f;
        const QByteArray before = testterrain::stanje(t);
        MessageCatcher catcher;
        QVERIFY(!CHeighMapFactory(&t).loadDmrHeighMap(path.toLocal8Bit().constData()));
        QCOMPARE(catcher.lines(), std::vector<std::string>{"Error: " + message.toStdString()});
        QVERIFY(testterrain::stanje(t) == before);
    }

    void boundingBoxTreatsMinusOneAsUnset() {
        CTerrainData t;
        t.dmrMaxX = t.dmrMaxY = t.dmrMaxZ = t.dmrMinX = t.dmrMinY = t.dmrMinZ = -1;
        CHeighMapFactory f(&t);
        f.zgradiBoundingBoxDmr(-1, 5, -3);
        QCOMPARE(t.dmrMaxX, -1.0f);
        QCOMPARE(t.dmrMinZ, -3.0f);
        QCOMPARE(t.dmrMaxZ, -3.0f);
        f.zgradiBoundingBoxDmr(2, 4, -7);
        QCOMPARE(t.dmrMaxX, 2.0f);
        QCOMPARE(t.dmrMinX, 2.0f); // the -1 read first was overwritten
        QCOMPARE(t.dmrMaxY, 5.0f);
        QCOMPARE(t.dmrMinY, 4.0f);
        QCOMPARE(t.dmrMaxZ, -3.0f);
        QCOMPARE(t.dmrMinZ, -7.0f);
    }

    void mixingWeighsTheOwnTextureAndHalves() {
        const QRgb a = qRgb(200, 100, 50), b = qRgb(10, 20, 30), c = qRgb(30, 40, 50);
        QCOMPARE(mixPixels(a, b, c, 0.5f), qRgb(55, 32, 22));
        QCOMPARE(mixPixels(a, b, c, 1.0f), qRgb(100, 50, 25));
        QCOMPARE(mixPixels(a, b, c, 0.0f), qRgb(10, 15, 20));
        QCOMPARE(qAlpha(mixPixels(qRgba(255, 255, 255, 0), b, c, 1.0f)), 255);
        QCOMPARE(mixPixels(qRgb(255, 255, 255), qRgb(255, 255, 255), qRgb(255, 255, 255), 0.3f),
                 qRgb(127, 127, 127));
    }

    void heightChoosesTheBands_data() {
        QTest::addColumn<float>("height");
        QTest::addColumn<int>("own");
        QTest::addColumn<int>("lower");
        QTest::addColumn<int>("upper");
        QTest::newRow("bottom") << 0.0f << 0 << 0 << 1;
        QTest::newRow("band 1 middle") << 0.1f << 0 << 0 << 1;
        QTest::newRow("band 2 middle") << 0.3f << 1 << 0 << 2;
        QTest::newRow("band 3") << 0.47f << 2 << 1 << 3;
        QTest::newRow("band 4") << 0.66f << 3 << 2 << 4;
        QTest::newRow("band 5") << 0.93f << 4 << 3 << 4;
        QTest::newRow("top") << 1.0f << 4 << 3 << 4;
    }
    void heightChoosesTheBands() {
        QFETCH(float, height);
        QFETCH(int, own);
        QFETCH(int, lower);
        QFETCH(int, upper);
        QImage images[5];
        bandTextures(images);
        CTerrainData t;
        const QRgb pixel = CHeighMapFactory(&t).getPixelAtNormalized(0.3f, 0.6f, height, images);
        const float h = 5.0f * height; // the band position is kept in single precision
        const double w = 2 * std::fabs(double(h) - std::floor(h) - 0.5);
        QCOMPARE(pixel, expectedMix(images[own].pixel(0, 0), images[lower].pixel(0, 0),
                                    images[upper].pixel(0, 0), w));
    }

    void texturesAreTiledFifteenTimes() {
        QImage images[5];
        for (QImage& im : images) {
            im = QImage(7, 3, QImage::Format_RGB32);
            for (int y = 0; y < 3; ++y)
                for (int x = 0; x < 7; ++x)
                    im.setPixel(x, y, qRgb(20 * x, 50 * y, 100));
        }
        CTerrainData t;
        CHeighMapFactory f(&t);
        // Height 0: the own texture alone at full weight.
        for (float s : {0.0f, 0.01f, 0.25f, 0.5f, 0.99f}) {
            for (float u : {0.0f, 0.03f, 0.4f, 0.77f}) {
                const int imX = int(std::floor(7 * 15 * double(s) + 1e-9)) % 7;
                const int imY = int(std::floor(3 * 15 * double(u) + 1e-9)) % 3;
                QCOMPARE(f.getPixelAtNormalized(s, u, 0.0f, images),
                         qRgb(20 * imX / 2, 50 * imY / 2, 50));
            }
        }
    }

    void orthoPhotoIsHalfBrightAndGridRowZeroIsAtTheBottom() {
        CTerrainData t;
        // Low ground (0) on grid rows 0 .. 49, the top (100) on rows 50 .. 99.
        testterrain::reshape(t, 100, 100, [](int, int y) { return y < 50 ? 0.0f : 100.0f; });
        std::unique_ptr<QImage> orto(t.heighMapFactory->produceOrtoFotoTexture());
        QCOMPARE(orto->size(), QSize(128, 128));
        QCOMPARE(orto->format(), QImage::Format_RGB32);
        for (int y = 0; y < 128; ++y) {
            for (int x = 0; x < 128; ++x) {
                const QRgb p = orto->pixel(x, y);
                QVERIFY(qRed(p) <= 127 && qGreen(p) <= 127 && qBlue(p) <= 127);
            }
        }
        // Image rows 64 .. 127 show grid rows 0 .. 49. Heights 0 and 1 take one
        // texture at full weight, band 1 and band 5: read them back through the
        // colour rule with the textures the program uses, when it has them.
        QImage bands[5];
        bool realTextures = true;
        for (int i = 0; i < 5; ++i) {
            bands[i] = QImage(QString(":/gui/textures/height%1.jpg").arg(i + 1));
            realTextures = realTextures && !bands[i].isNull();
        }
        if (realTextures) {
            for (int y = 0; y < 128; ++y)
                for (int x = 0; x < 128; ++x)
                    QCOMPARE(orto->pixel(x, 127 - y),
                             t.heighMapFactory->getPixelAtNormalized(x / 128.0f, y / 128.0f,
                                                                     y < 64 ? 0.0f : 1.0f, bands));
        } else {
            // Without them each band is one plain colour.
            const QRgb low = orto->pixel(0, 127), high = orto->pixel(0, 0);
            QVERIFY(low != high);
            for (int y = 0; y < 128; ++y)
                for (int x = 0; x < 128; ++x)
                    QCOMPARE(orto->pixel(x, y), y >= 64 ? low : high);
        }
    }
};

QTEST_GUILESS_MAIN(TestHeighMapFactory)
#include "tst_heighmapfactory.moc"
