#include "ecosystem/simulation/data/heighmapfactory.h"

#include "arbo/usermessage.h"
#include "ecosystem/simulation/data/terraindata.h"

#include <QCoreApplication>
#include <QFile>
#include <QtDebug>

#include <charconv>
#include <cmath>

namespace ecosystem::data {

using arbo::Tocka;

namespace {

const float velikostKrpe = 25.0f; // grid spacing in metres
const int ortoSize = 128;
const int nrHeightTextures = 5;

// text is marked with QT_TRANSLATE_NOOP in the "CHeighMapFactory" context.
void reportDmrError(const char* text) {
    arbo::showUserMessage(QCoreApplication::translate("CHeighMapFactory", "Error").toStdString(),
                          QCoreApplication::translate("CHeighMapFactory", text).toStdString());
}

// Textures of different sizes are read at the same position, wrapped into each.
QRgb pixelAt(const QImage& image, int x, int y) {
    return image.pixel(x % image.width(), y % image.height());
}

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

// Whitespace-separated decimal numbers, read without regard to the C locale (a
// Slovene locale would otherwise expect decimal commas).
class NumberReader {
public:
    explicit NumberReader(const QByteArray& text)
        : pos(text.constData()), end(text.constData() + text.size()) {}

    bool atEnd() {
        while (pos < end && isSpace(*pos))
            ++pos;
        return pos == end;
    }

    // False at the end of the text, and for a token that is not a finite number.
    bool read(float& value) {
        if (atEnd())
            return false;
        const char* tokenEnd = pos;
        while (tokenEnd < end && !isSpace(*tokenEnd))
            ++tokenEnd;
        const char* first = (*pos == '+') ? pos + 1 : pos;
        const auto result = std::from_chars(first, tokenEnd, value);
        const bool ok = result.ec == std::errc() && result.ptr == tokenEnd && std::isfinite(value);
        pos = tokenEnd;
        return ok;
    }

private:
    const char* pos;
    const char* end;
};

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

void CHeighMapFactory::loadDmrHeighMap(const char* fileName) {
    QFile file(QString::fromLocal8Bit(fileName));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        reportDmrError(QT_TRANSLATE_NOOP("CHeighMapFactory", "Could not open DEM terrain file."));
        return;
    }
    const QByteArray text = file.readAll();
    NumberReader reader(text); // reads from text, which must outlive it
    CTerrainData& t = *terrainData;

    t.dmrMaxX = t.dmrMaxY = t.dmrMaxZ = -1;
    t.dmrMinX = t.dmrMinY = t.dmrMinZ = -1;

    for (int y = 0; y < t.stTockY; ++y) {
        for (int x = 0; x < t.stTockX; ++x) {
            if (reader.atEnd()) {
                reportDmrError(
                    QT_TRANSLATE_NOOP("CHeighMapFactory", "Error reading DEM terrain file."));
                return;
            }
            Tocka& point = t.ogliscaTerena[x + y * t.stTockX];
            point.x = velikostKrpe * x;
            point.z = velikostKrpe * y;
            float beriX, beriY, beriZ;
            // A token that is not a number counts as the end of the data.
            if (!reader.read(beriX) || !reader.read(beriY) || !reader.read(beriZ)) {
                reportDmrError(
                    QT_TRANSLATE_NOOP("CHeighMapFactory", "Error reading DEM terrain file."));
                return;
            }
            point.y = beriZ;
            zgradiBoundingBoxDmr(beriX, beriY, beriZ);
        }
    }

    const int n = t.stTockX * t.stTockY;
    for (int i = 0; i < n; ++i)
        t.ogliscaTerena[i].y -= t.dmrMinZ;
    for (int i = 0; i < n; ++i)
        t.pTerrainVertexData[i].pos = t.ogliscaTerena[i];
    t.visinskaRazlikaNaTerenu = t.dmrMaxZ - t.dmrMinZ;
}

// -1 marks an unset bound, so a coordinate of exactly -1 is overwritten by the next.
void CHeighMapFactory::zgradiBoundingBoxDmr(float beriX, float beriY, float beriZ) {
    CTerrainData& t = *terrainData;
    auto widenMax = [](float& bound, float v) {
        if (bound == -1 || v > bound)
            bound = v;
    };
    auto widenMin = [](float& bound, float v) {
        if (bound == -1 || v < bound)
            bound = v;
    };
    widenMax(t.dmrMaxX, beriX);
    widenMax(t.dmrMaxY, beriY);
    widenMax(t.dmrMaxZ, beriZ);
    widenMin(t.dmrMinX, beriX);
    widenMin(t.dmrMinY, beriY);
    widenMin(t.dmrMinZ, beriZ);
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
