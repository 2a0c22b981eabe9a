#include "ecosystem/simulation/data/heighmapfactory.h"

#include "arbo/bralecstevil.h"
#include "arbo/usermessage.h"
#include "ecosystem/simulation/data/terraindata.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QtDebug>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ecosystem::data {

using arbo::Tocka;

namespace {

const float velikostKrpe = 25.0f; // grid spacing in metres
const int ortoSize = 128;
const int nrHeightTextures = 5;

QString prevedi(const char* text) {
    return QCoreApplication::translate("CHeighMapFactory", text);
}

// text is marked with QT_TRANSLATE_NOOP in the "CHeighMapFactory" context; a
// detail, when given, follows on a line of its own.
bool reportDmrError(const char* text, const QString& detail = QString()) {
    QString message = prevedi(text);
    if (!detail.isEmpty())
        message += '\n' + detail;
    arbo::showUserMessage(prevedi(QT_TRANSLATE_NOOP("CHeighMapFactory", "Error")).toStdString(),
                          message.toStdString());
    return false;
}

const char* const readError =
    QT_TRANSLATE_NOOP("CHeighMapFactory", "Error reading DEM terrain file.");

// -1 marks an unset bound, so a coordinate of exactly -1 is overwritten by the next.
void widen(float& max, float& min, float v) {
    if (max == -1 || v > max)
        max = v;
    if (min == -1 || v < min)
        min = v;
}

// Strictly rising or strictly falling, as the coordinates of a grid's
// columns or rows are: the index of the first value that breaks it, or 0. The
// smallest step goes into smallest.
size_t breaksMonotony(const std::vector<float>& v, float& smallest) {
    for (size_t i = 1; i < v.size(); ++i) {
        const float step = v[i] - v[i - 1];
        if (step == 0 || (step > 0) != (v[1] > v[0]))
            return i;
        smallest = std::min(smallest, std::fabs(step));
    }
    return 0;
}

// The index of the first point off the grid that row 0's X and each row's
// first Y span (within a quarter of the smallest spacing), or -1.
long long offGrid(const CHeighMapFactory::Mreza& m, const std::vector<float>& xs,
                  const std::vector<float>& ys) {
    const size_t w = size_t(m.stTockX);
    std::vector<float> columnX(xs.begin(), xs.begin() + w);
    std::vector<float> rowY(size_t(m.stTockY));
    for (size_t y = 0; y < rowY.size(); ++y)
        rowY[y] = ys[y * w];
    float smallest = std::numeric_limits<float>::infinity();
    if (const size_t i = breaksMonotony(columnX, smallest))
        return (long long)i;
    if (const size_t i = breaksMonotony(rowY, smallest))
        return (long long)(i * w);
    const float tolerance = 0.25f * smallest;
    for (size_t i = 0; i < xs.size(); ++i)
        if (std::fabs(xs[i] - columnX[i % w]) > tolerance ||
            std::fabs(ys[i] - rowY[i / w]) > tolerance)
            return (long long)i;
    return -1;
}

// Textures of different sizes are read at the same position, wrapped into each.
QRgb pixelAt(const QImage& image, int x, int y) {
    return image.pixel(x % image.width(), y % image.height());
}

// Plain band colours standing in for a height texture that cannot be loaded (the
// textures are compiled into the user interface only), so the ortho-photo still
// shows the height bands: green lowland up to white tops.
QImage fallbackHeightTexture(int band) {
    static const QRgb colours[nrHeightTextures] = {qRgb(70, 110, 50), qRgb(100, 140, 60),
                                                   qRgb(140, 140, 80), qRgb(150, 130, 110),
                                                   qRgb(235, 235, 235)};
    QImage image(1, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, colours[band]);
    return image;
}

QImage loadHeightTexture(int band) {
    const QString name = QString(":/gui/textures/height%1.jpg").arg(band + 1);
    QImage image(name);
    if (image.isNull()) {
        static bool warned[nrHeightTextures] = {};
        if (!warned[band])
            qWarning().noquote() << "Height texture" << name << "not found; using a plain colour.";
        warned[band] = true;
        return fallbackHeightTexture(band);
    }
    return image;
}

// Heights from a short DEM file are raw elevations and may leave [0, 1]; a flat
// DEM has no range at all. Both are kept inside the five bands.
float normalisedHeight(float height, float range) {
    if (!(range > 0.0f))
        return 0.0f;
    const float h = height / range;
    if (!(h >= 0.0f))
        return 0.0f;
    return h > 1.0f ? 1.0f : h;
}

} // namespace

CHeighMapFactory::CHeighMapFactory(CTerrainData* terrainData) : terrainData(terrainData) {}

bool CHeighMapFactory::loadDmrHeighMap(const char* fileName) {
    Mreza mreza;
    if (!preberiDmr(fileName, terrainData->stTockX, terrainData->stTockY, mreza))
        return false;
    prevzemi(mreza);
    return true;
}

// Only a regular file is read (a device or a pipe might never end), a piece at
// a time: numbers after the last needed point are not read at all.
bool CHeighMapFactory::preberiDmr(const char* fileName, int stTockX, int stTockY, Mreza& mreza) {
    QFile file(QString::fromLocal8Bit(fileName));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return reportDmrError(
            QT_TRANSLATE_NOOP("CHeighMapFactory", "Could not open DEM terrain file."));
    if (stTockX < 1 || stTockY < 1)
        return reportDmrError(readError);
    arbo::BralecStevil reader(file);
    Mreza m;
    m.stTockX = stTockX;
    m.stTockY = stTockY;
    const size_t n = size_t(stTockX) * size_t(stTockY);
    m.tocke.resize(n);
    std::vector<float> xs(n), ys(n);
    std::vector<int> lines(n);
    for (size_t i = 0; i < n; ++i) {
        double v[3]; // as doubles: a value beyond the float range is out of the limits
        for (int k = 0; k < 3; ++k) {
            if (reader.beri(v[k]))
                continue;
            if (reader.zeton().empty())
                return reportDmrError(readError);
            return reportDmrError(
                readError,
                prevedi(QT_TRANSLATE_NOOP("CHeighMapFactory", "Line %1: \"%2\" is not a number."))
                    .arg(reader.vrstica())
                    .arg(QString::fromStdString(reader.zeton())));
        }
        lines[i] = reader.vrstica();
        for (int k = 0; k < 3; ++k) {
            const double limit = k < 2 ? najvecjaKoordinata : najvecjaVisina;
            if (std::fabs(v[k]) > limit)
                return reportDmrError(
                    readError, (k < 2 ? prevedi(QT_TRANSLATE_NOOP(
                                            "CHeighMapFactory",
                                            "Line %1: the coordinate %2 lies outside -%3 to %3 m."))
                                      : prevedi(QT_TRANSLATE_NOOP(
                                            "CHeighMapFactory",
                                            "Line %1: the height %2 lies outside -%3 to %3 m.")))
                                   .arg(lines[i])
                                   .arg(v[k], 0, 'g', 10)
                                   .arg(limit, 0, 'g', 10));
        }
        const float x = float(v[0]), y = float(v[1]), z = float(v[2]);
        xs[i] = x;
        ys[i] = y;
        m.tocke[i] = Tocka(velikostKrpe * int(i % stTockX), z, velikostKrpe * int(i / stTockX));
        widen(m.maxX, m.minX, x);
        widen(m.maxY, m.minY, y);
        widen(m.maxZ, m.minZ, z);
    }
    const long long off = offGrid(m, xs, ys);
    if (off >= 0)
        return reportDmrError(
            readError,
            prevedi(QT_TRANSLATE_NOOP("CHeighMapFactory",
                                      "Line %1: the points do not form a grid of %2 rows "
                                      "of %3 points, with X changing along each row and "
                                      "Y from row to row."))
                .arg(lines[size_t(off)])
                .arg(stTockY)
                .arg(stTockX));
    mreza = std::move(m);
    return true;
}

void CHeighMapFactory::prevzemi(const Mreza& mreza) {
    CTerrainData& t = *terrainData;
    t.dmrMaxX = mreza.maxX;
    t.dmrMaxY = mreza.maxY;
    t.dmrMaxZ = mreza.maxZ;
    t.dmrMinX = mreza.minX;
    t.dmrMinY = mreza.minY;
    t.dmrMinZ = mreza.minZ;
    const size_t n = mreza.tocke.size();
    for (size_t i = 0; i < n; ++i) {
        t.ogliscaTerena[i] = mreza.tocke[i];
        t.ogliscaTerena[i].y -= t.dmrMinZ;
        t.pTerrainVertexData[i].pos = t.ogliscaTerena[i];
    }
    t.visinskaRazlikaNaTerenu = t.dmrMaxZ - t.dmrMinZ;
}

void CHeighMapFactory::zgradiBoundingBoxDmr(float beriX, float beriY, float beriZ) {
    CTerrainData& t = *terrainData;
    widen(t.dmrMaxX, t.dmrMinX, beriX);
    widen(t.dmrMaxY, t.dmrMinY, beriY);
    widen(t.dmrMaxZ, t.dmrMinZ, beriZ);
}

QImage* CHeighMapFactory::produceOrtoFotoTexture() {
    QImage h[nrHeightTextures];
    for (int band = 0; band < nrHeightTextures; ++band)
        h[band] = loadHeightTexture(band);

    const CTerrainData& t = *terrainData;
    const float range = t.dmrMaxZ - t.dmrMinZ;
    auto* orto = new QImage(ortoSize, ortoSize, QImage::Format_RGB32);
    const float step = 1.0f / ortoSize;
    for (int y = 0; y < ortoSize; ++y) {
        const float tt = y * step;
        const int dmrY = int(t.stTockY * tt);
        for (int x = 0; x < ortoSize; ++x) {
            const float s = x * step;
            const int dmrX = int(t.stTockX * s);
            const float height =
                normalisedHeight(t.ogliscaTerena[dmrX + dmrY * t.stTockX].y, range);
            // Grid row 0 lands on the image's bottom row.
            orto->setPixel(x, ortoSize - 1 - y, getPixelAtNormalized(s, tt, height, h));
        }
    }
    return orto;
}

QRgb CHeighMapFactory::getPixelAtNormalized(float x, float y, float height, QImage* images) {
    const int maxTex = nrHeightTextures - 1;
    const float h = 5.0 * height;
    const int texNr = int(h);

    const QImage* tex;
    const QImage* tex0;
    const QImage* tex1;
    if (texNr > maxTex) { // only at the very top, height 1
        tex = &images[4];
        tex0 = &images[3];
        tex1 = &images[4];
    } else if (texNr <= 0) {
        tex = &images[0];
        tex0 = &images[0];
        tex1 = &images[1];
    } else if (texNr < maxTex) {
        tex = &images[texNr];
        tex0 = &images[texNr - 1];
        tex1 = &images[texNr + 1];
    } else {
        tex = &images[4];
        tex0 = &images[3];
        tex1 = &images[4];
    }

    // Each texture is tiled 15 times across the terrain.
    const int texW = tex->width();
    const int texH = tex->height();
    const int imX = int(texW * x * 15.0) % texW;
    const int imY = int(15.0 * (texH * y)) % texH;

    const float f = std::fabs(h - std::floor(h) - 0.5f);
    return mixPixels(pixelAt(*tex, imX, imY), pixelAt(*tex0, imX, imY), pixelAt(*tex1, imX, imY),
                     2 * f);
}

// Weight h for the band's own texture, the rest shared by its neighbours; the
// result is at half brightness.
QRgb mixPixels(QRgb pix1, QRgb pix2, QRgb pix3, float h) {
    const float h0 = 1 - h;
    auto channel = [&](int c1, int c2, int c3) { return int(c1 * h + (c2 + c3) * h0 * 0.5) / 2; };
    return qRgb(channel(qRed(pix1), qRed(pix2), qRed(pix3)),
                channel(qGreen(pix1), qGreen(pix2), qGreen(pix3)),
                channel(qBlue(pix1), qBlue(pix2), qBlue(pix3)));
}

} // namespace ecosystem::data
