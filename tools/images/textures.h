#pragma once

// Bark, leaf, terrain detail and the five height-band ground textures.

#include "noise.h"

#include <QPainter>
#include <QPainterPath>

namespace images {

// ---------------------------------------------------------------------------------------------
// Bark: vertical plates split by furrows. The image wraps around a stem segment (x) and runs
// from the bottom of the segment to its top (y), so it tiles in both directions. The conifers'
// bark is the same relief in darker, greyer tones.

struct BarkTones {
    Rgb furrow, side, top, moss;
};
constexpr BarkTones broadleafBark{{38, 28, 21}, {96, 74, 56}, {128, 118, 104}, {112, 124, 84}};
constexpr BarkTones coniferBark{{20, 15, 12}, {52, 38, 31}, {78, 66, 58}, {62, 68, 48}};

inline QImage makeBark(const BarkTones& tones = broadleafBark) {
    const int W = 512, H = 512;
    // Furrows follow the zero lines of a vertically stretched noise: long, wavy and now and then
    // joining. Dividing the noise by its gradient gives the distance to the line in pixels, so
    // every furrow has about the same width.
    Field wave(W, H), plateTone(W, H);
    for (int y = 0; y < H; ++y)
        for (int x = 0; x < W; ++x) {
            const float u = (x + 0.5f) / W, v = (y + 0.5f) / H;
            const float warp = 0.35f * fbm(u * 3, v * 3, 3, 3, 0.5f, 11) +
                               0.04f * fbm(u * 24, v * 12, 24, 12, 2, 0.5f, 14);
            wave.at(x, y) = fbm(u * 10 + warp * 1.5f, v * 1, 10, 1, 2, 0.3f, 12);
            plateTone.at(x, y) = 0.5f + 0.5f * fbm(u * 10 + warp * 1.5f, v * 3, 10, 3, 2, 0.5f, 22);
        }
    Field height(W, H), lichen(W, H), tone(W, H);
    for (int y = 0; y < H; ++y)
        for (int x = 0; x < W; ++x) {
            const float u = (x + 0.5f) / W, v = (y + 0.5f) / H;
            const float gx = 0.5f * (wave.get(x + 1, y) - wave.get(x - 1, y));
            const float gy = 0.5f * (wave.get(x, y + 1) - wave.get(x, y - 1));
            const float wobble = 1.0f * fbm(u * 32, v * 8, 32, 8, 3, 0.5f, 13);
            const float dist = std::fabs(wave.get(x, y)) / (std::hypot(gx, gy) + 1e-4f) + wobble;
            const float width = 0.6f + 0.8f * (0.5f + 0.5f * fbm(u * 6, v * 2, 6, 2, 2, 0.5f, 15));
            const float ridge = smoothstep(1.0f, 9.0f * width, dist);
            const float fibre = fbm(u * 64, v * 6, 64, 6, 3, 0.6f, 31);
            const float rough = fbm(u * 40, v * 20, 40, 20, 4, 0.6f, 41);
            const float fine = fbm(u * 128, v * 64, 128, 64, 2, 0.5f, 42);
            height.at(x, y) = 0.8f * std::sqrt(ridge) * (0.85f + 0.3f * plateTone.get(x, y)) +
                              0.07f * fibre + 0.18f * rough + 0.07f * fine;
            lichen.at(x, y) = fbm(u * 5, v * 5, 5, 4, 0.55f, 51);
            tone.at(x, y) = fbm(u * 12, v * 4, 12, 4, 4, 0.6f, 52) + 0.5f * fibre;
        }
    QImage img(W, H, QImage::Format_RGB32);
    const Rgb furrow = tones.furrow, side = tones.side, top = tones.top, moss = tones.moss;
    for (int y = 0; y < H; ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(img.scanLine(y));
        for (int x = 0; x < W; ++x) {
            const float h = height.get(x, y) + 0.25f * tone.get(x, y);
            Rgb c = h < 0.5f ? mixRgb(furrow, side, smoothstep(0.0f, 0.5f, h))
                             : mixRgb(side, top, smoothstep(0.45f, 0.95f, h));
            c = mixRgb(c, moss,
                       0.45f * smoothstep(0.2f, 0.5f, lichen.get(x, y)) *
                           smoothstep(0.6f, 0.9f, h));
            const float light = 0.68f + 0.32f * height.shade(x, y, 7.0f);
            const float grain = 1.0f + 0.12f * (unit(x, y, 61) - 0.5f);
            line[x] = toQRgb(scaled(c, light * grain));
        }
    }
    return img;
}

// ---------------------------------------------------------------------------------------------
// Leaf: one broad leaf on white. The leaf is drawn as a square GLU disk of four slices, which
// shows only the diamond inscribed in the image, and its twig end is at texture t = 1, the top
// row of the image; so the stalk points up, the tip down, and all of the leaf lies inside the
// diamond |x - 1/2| + |y - 1/2| < 1/2. Background pixels are pure white; leaf pixels never
// have all three channels above 200 (the program keys such pixels out).

struct LeafShape {
    static constexpr float bladeTop = 0.15f, tip = 0.965f, stalkTop = 0.025f;
    static float midrib(float y) {
        return 0.018f * std::sin(kPi * (y - bladeTop) / (tip - bladeTop));
    }
    static float halfWidth(float y) {
        const float s = (y - bladeTop) / (tip - bladeTop);
        if (s <= 0.0f || s >= 1.0f)
            return 0.0f;
        float w = 0.27f * 2.49f * std::sqrt(s) * std::pow(1.0f - s, 0.9f);
        const float teeth = 1.0f - 0.045f * (s * 26.0f - std::floor(s * 26.0f)) * (s > 0.12f);
        w *= teeth;
        const float diamond = 0.5f - std::fabs(y - 0.5f) - 0.02f - std::fabs(midrib(y));
        return std::min(w, std::max(0.0f, diamond));
    }
    static float stalkHalfWidth(float y) {
        if (y < stalkTop || y > bladeTop + 0.04f)
            return 0.0f;
        return 0.007f + 0.004f * (y - stalkTop) / (bladeTop - stalkTop);
    }
    // x and y in [0, 1], image left to right and top to bottom.
    static bool inside(float x, float y) {
        const float dx = std::fabs(x - 0.5f - midrib(y));
        return dx < halfWidth(y) || dx < stalkHalfWidth(y);
    }
};

inline Rgb leafColour(float x, float y, int px, int py) {
    const float dx = x - 0.5f - LeafShape::midrib(y);
    const float w = LeafShape::halfWidth(y);
    if (w <= 0.0f || std::fabs(dx) > w)
        return {92, 100, 40}; // stalk
    const float s = (y - LeafShape::bladeTop) / (LeafShape::tip - LeafShape::bladeTop);
    const float across = std::fabs(dx) / w; // 0 on the midrib, 1 at the margin
    Rgb c{58, 116, 36};
    c = mixRgb(c, Rgb{84, 140, 44}, 0.5f + 0.5f * fbm(x * 5, y * 5, 64, 3, 0.5f, 71));
    // The leaf is slightly folded along the midrib: one half catches more light.
    c = scaled(c, dx < 0 ? 1.07f : 0.93f + 0.05f * across);
    // Lateral veins run from the midrib towards the margin and the tip.
    const float phase = (y - 0.55f * std::pow(std::fabs(dx), 0.85f)) * 17.0f;
    const float vein = std::pow(std::fabs(std::cos(kPi * phase)), 40.0f) * (1.0f - across) *
                       smoothstep(0.02f, 0.12f, s) * (1.0f - smoothstep(0.85f, 1.0f, s));
    c = mixRgb(c, Rgb{118, 168, 70}, 0.6f * vein);
    const float ribWidth = 0.0085f * (1.0f - 0.8f * s);
    const float rib = 1.0f - smoothstep(ribWidth * 0.5f, ribWidth, std::fabs(dx));
    c = mixRgb(c, Rgb{150, 182, 86}, 0.85f * rib);
    c = mixRgb(c, Rgb{70, 96, 32}, 0.45f * smoothstep(0.8f, 1.0f, across)); // darker rim
    return scaled(c, 1.0f + 0.06f * (unit(px, py, 73) - 0.5f));
}

inline QImage makeLeaf() {
    const int N = 256, S = 4;
    QImage img(N, N, QImage::Format_RGB32);
    for (int py = 0; py < N; ++py) {
        QRgb* line = reinterpret_cast<QRgb*>(img.scanLine(py));
        for (int px = 0; px < N; ++px) {
            int covered = 0;
            for (int sy = 0; sy < S; ++sy)
                for (int sx = 0; sx < S; ++sx)
                    covered +=
                        LeafShape::inside((px + (sx + 0.5f) / S) / N, (py + (sy + 0.5f) / S) / N);
            if (covered * 2 < S * S) {
                line[px] = qRgb(255, 255, 255);
                continue;
            }
            const float x = (px + 0.5f) / N, y = (py + 0.5f) / N;
            Rgb c = leafColour(x, y, px, py);
            // Darken the outermost pixel ring a little, as a real cut-out leaf edge looks.
            if (covered < S * S)
                c = scaled(c, 0.85f);
            QRgb q = toQRgb(c);
            if (qRed(q) > 200 && qGreen(q) > 200 && qBlue(q) > 200)
                q = qRgb(qRed(q), qGreen(q), 180);
            line[px] = q;
        }
    }
    return img;
}

// ---------------------------------------------------------------------------------------------
// Needles: a spruce shoot on white for the coniferous leaf type, under the leaf's rules: only
// the diamond inscribed in the image shows, the twig end is the top row, and no needle pixel
// has all three channels above 200. A dark blue-green mass with the needles drawn into it in
// lighter and darker strokes, slanting towards the tip and standing out beyond the mass as a
// ragged edge. The mass is solid on purpose: the texture is drawn small and unfiltered by
// mipmaps, and every gap between needles would let the keyed-out white shimmer through.
// Drawn without antialiasing, so every pixel is needle, shoot or pure white.

inline QImage makeNeedles() {
    const int N = 256;
    QImage img(N, N, QImage::Format_RGB32);
    img.fill(qRgb(255, 255, 255));
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing, false);
    const float margin = 0.035f;
    auto inside = [&](float x, float y) {
        return std::fabs(x - 0.5f) + std::fabs(y - 0.5f) < 0.5f - margin;
    };
    const Rgb base{12, 30, 21}, far{8, 22, 16}, near{20, 46, 30}, light{36, 70, 42};
    QPainterPath mass;
    for (int k = 0; k <= 40; ++k) {
        const float y = 0.06f + 0.88f * k / 40;
        const float x = 0.5f + 0.72f * (0.5f - std::fabs(y - 0.5f) - margin);
        k == 0 ? mass.moveTo(x * N, y * N) : mass.lineTo(x * N, y * N);
    }
    for (int k = 40; k >= 0; --k) {
        const float y = 0.06f + 0.88f * k / 40;
        mass.lineTo((1.0f - (0.5f + 0.72f * (0.5f - std::fabs(y - 0.5f) - margin))) * N, y * N);
    }
    p.fillPath(mass, QColor(toQRgb(base)));
    int i = 0;
    for (int layer = 0; layer < 2; ++layer) {
        for (float y = 0.05f; y < 0.94f; y += layer == 0 ? 0.010f : 0.013f) {
            for (int side = -1; side <= 1; side += 2, ++i) {
                const float r = unit(i, layer, 91), q = unit(i, layer, 92);
                // Slant towards the tip (down the image), longer in the middle of the shoot.
                const float angle = (layer == 0 ? 0.8f : 0.95f) + 0.35f * r;
                const float taper = 0.55f + 0.45f * std::sin(kPi * y);
                float length = (0.2f + 0.08f * q) * taper;
                const float x0 = 0.5f + side * 0.012f, y0 = y;
                const float dx = side * std::sin(angle), dy = std::cos(angle);
                while (length > 0.01f && !inside(x0 + dx * length, y0 + dy * length))
                    length -= 0.005f;
                Rgb c = layer == 0 ? far : mixRgb(near, light, 0.8f * unit(i, 7, 93));
                c = scaled(c, 0.9f + 0.2f * unit(i, layer, 94));
                p.setPen(
                    QPen(QColor(toQRgb(c)), layer == 0 ? 3.0 : 2.0, Qt::SolidLine, Qt::FlatCap));
                p.drawLine(QPointF(x0 * N, y0 * N),
                           QPointF((x0 + dx * length) * N, (y0 + dy * length) * N));
            }
        }
        if (layer == 0) {
            // The shoot between the two layers: brownish, tapering towards the tip.
            for (int k = 0; k < 3; ++k) {
                p.setPen(QPen(QColor(62 - 8 * k, 50 - 6 * k, 30 - 4 * k), 4.5 - 1.2 * k));
                p.drawLine(QPointF(0.5 * N, (margin + 0.01) * N),
                           QPointF(0.5 * N, (0.96 - 0.1 * k) * N));
            }
        }
    }
    return img;
}

// ---------------------------------------------------------------------------------------------
// Detail: fine grey grain added (signed) to the ortho-photo, 100 repeats across the terrain,
// so one tile covers a grid cell of 25 m. Mean exactly mid-grey so it does not shift colours.

inline QImage makeDetail() {
    const int N = 256;
    Field f(N, N);
    double sum = 0.0;
    for (int y = 0; y < N; ++y)
        for (int x = 0; x < N; ++x) {
            const float u = (x + 0.5f) / N, v = (y + 0.5f) / N;
            const float broad = fbm(u * 4, v * 4, 4, 3, 0.5f, 81);
            const float mid = fbm(u * 16, v * 16, 16, 3, 0.6f, 82);
            const Cell c = cellular(u * 40, v * 40, 40, 40, 83);
            const float pebble = (1.0f - smoothstep(0.15f, 0.35f, c.f1)) * (c.id - 0.5f);
            const float speck = unit(x, y, 84) - 0.5f;
            const float val = 0.12f * broad + 0.4f * mid + 0.5f * pebble + 0.28f * speck;
            f.at(x, y) = val;
            sum += val;
        }
    const float mean = float(sum / (N * N));
    double var = 0.0;
    for (float& v : f.v) {
        v -= mean;
        var += double(v) * v;
    }
    const float k = 17.0f / float(std::sqrt(var / (N * N)));
    QImage img(N, N, QImage::Format_Grayscale8);
    for (int y = 0; y < N; ++y) {
        uchar* line = img.scanLine(y);
        for (int x = 0; x < N; ++x)
            line[x] =
                uchar(std::lround(std::min(255.0f, std::max(0.0f, 128.0f + k * f.get(x, y)))));
    }
    return img;
}

// ---------------------------------------------------------------------------------------------
// Ground of the five height bands. The ortho-photo reads these textures 15 times across the
// terrain at a stride of about 30 pixels and halves the colour, so what shows there is each
// band's mean tone and its pixel-to-pixel spread; they are still painted to look like ground.

struct GroundStyle {
    Rgb dark, mid, light; // soil and grass tones from noise
    Rgb bladeA, bladeB;   // grass stroke colours
    int blades;           // number of grass strokes
    float bladeLen;       // stroke length in pixels
    Rgb shrub;            // round clumps of brush
    int shrubs;           // number of clumps
    float rock;           // share of bare rock outcrop, 0 … 1
    float scree;          // share of loose stones, 0 … 1
    Rgb rockTone;
    uint32_t seed;
};

inline Rgb rampColour(const GroundStyle& s, float t) {
    return t < 0.5f ? mixRgb(s.dark, s.mid, clamp01(t * 2))
                    : mixRgb(s.mid, s.light, clamp01(t * 2 - 1));
}

// Rock: a ridged, fractured surface with a few cracks, lit from the upper left; and loose
// stones of two sizes. `cover` says where the stone shows (1) and where the soil does (0).
inline void paintStone(const GroundStyle& s, int N, Field& relief, std::vector<Rgb>& colour,
                       std::vector<float>& cover) {
    for (int y = 0; y < N; ++y)
        for (int x = 0; x < N; ++x) {
            const float u = (x + 0.5f) / N, v = (y + 0.5f) / N;
            const size_t i = size_t(y) * N + x;
            // Outcrop: a ridged surface split into angular blocks by narrow fractures.
            const float ridged = 1.0f - std::fabs(fbm(u * 4, v * 4, 4, 5, 0.55f, s.seed + 21));
            const float warp = 0.2f * fbm(u * 6, v * 6, 6, 2, 0.5f, s.seed + 23);
            const Cell block = cellular(u * 5 + warp, v * 5 - warp, 5, 5, s.seed + 26, 1.0f);
            const float fade = smoothstep(-0.1f, 0.3f, fbm(u * 5, v * 5, 5, 2, 0.5f, s.seed + 27));
            const float fracture = std::max(fade, smoothstep(0.0f, 0.04f, block.f2 - block.f1));
            const float outcrop = 0.55f * ridged + 0.25f * fracture + 0.2f * block.id;
            const float patch = fbm(u * 3, v * 3, 3, 4, 0.5f, s.seed + 22);
            const float rockShow = s.rock * smoothstep(-0.25f, 0.15f, patch);
            // Scree: stones of two sizes, each a rounded pillow, with dust between them.
            const Cell big = cellular(u * 10 + warp, v * 10 - warp, 10, 10, s.seed + 24, 1.0f);
            const Cell small = cellular(u * 24, v * 24, 24, 24, s.seed + 25, 1.0f);
            const float pillowBig = (big.f2 - big.f1) / (big.f2 + big.f1);
            const float pillowSmall = (small.f2 - small.f1) / (small.f2 + small.f1);
            const bool bigOnTop = big.id > 0.45f && pillowBig > 0.08f;
            const float pillow = bigOnTop ? pillowBig : pillowSmall;
            const float stoneId = bigOnTop ? big.id : small.id;
            const float rr = rockShow / std::max(1e-4f, rockShow + s.scree);
            relief.at(x, y) += rr * outcrop + (1 - rr) * 0.5f * std::sqrt(pillow);
            const Rgb lichen{150, 150, 118};
            Rgb rockColour = scaled(s.rockTone, 0.85f + 0.25f * block.id);
            rockColour = mixRgb(rockColour, lichen, 0.4f * smoothstep(0.3f, 0.6f, patch));
            rockColour = mixRgb(scaled(s.rockTone, 0.4f), rockColour, fracture);
            const Rgb dust = mixRgb(scaled(s.rockTone, 0.7f), Rgb{140, 126, 104}, 0.4f);
            const Rgb screeColour = mixRgb(dust, scaled(s.rockTone, 0.8f + 0.35f * stoneId),
                                           smoothstep(0.02f, 0.1f, pillow));
            colour[i] = mixRgb(screeColour, rockColour, rr);
            cover[i] = clamp01(rockShow + s.scree);
        }
}

// Round clumps of brush, drawn as soft dark discs with a lit upper-left side.
inline void paintShrubs(QImage& img, const GroundStyle& s) {
    const int N = img.width();
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    Lcg rng(s.seed * 17 + 3);
    float cx = 0, cy = 0;
    for (int k = 0; k < s.shrubs; ++k) {
        // Clumps grow in groups: most stand near the one before.
        if (k % 5 == 0) {
            cx = rng.range(0, N);
            cy = rng.range(0, N);
        }
        const float x = cx + rng.range(-14.0f, 14.0f), y = cy + rng.range(-14.0f, 14.0f);
        const float r = rng.range(2.5f, 8.0f);
        const Rgb base = scaled(s.shrub, rng.range(0.8f, 1.2f));
        for (int oy = -1; oy <= 1; ++oy)
            for (int ox = -1; ox <= 1; ++ox) {
                const QPointF c(x + ox * N, y + oy * N);
                if (c.x() < -2 * r || c.x() > N + 2 * r || c.y() < -2 * r || c.y() > N + 2 * r)
                    continue;
                QRadialGradient shadow(c + QPointF(r * 0.35, r * 0.35), r * 1.3);
                shadow.setColorAt(0.0, QColor(20, 24, 10, 110));
                shadow.setColorAt(1.0, QColor(20, 24, 10, 0));
                p.setPen(Qt::NoPen);
                p.setBrush(shadow);
                p.drawEllipse(c + QPointF(r * 0.35, r * 0.35), r * 1.3, r * 1.3);
                QRadialGradient body(c - QPointF(r * 0.35, r * 0.35), r * 1.2);
                body.setColorAt(0.0, QColor::fromRgb(toQRgb(scaled(base, 1.35f))));
                body.setColorAt(1.0, QColor::fromRgb(toQRgb(scaled(base, 0.7f))));
                p.setBrush(body);
                // A lumpy outline: a polygon with a radius that wobbles.
                QPolygonF poly;
                for (int a = 0; a < 14; ++a) {
                    const float ang = a * 2 * kPi / 14;
                    const float rad = r * (0.8f + 0.25f * unit(k, a, s.seed + 31));
                    poly << c + QPointF(std::cos(ang) * rad, std::sin(ang) * rad);
                }
                p.drawPolygon(poly);
            }
    }
}

inline void paintBase(QImage& img, const GroundStyle& s) {
    const int N = img.width();
    Field relief(N, N);
    std::vector<Rgb> stone(size_t(N) * N, Rgb{0, 0, 0});
    std::vector<float> cover(size_t(N) * N, 0.0f), tone(size_t(N) * N);
    for (int y = 0; y < N; ++y)
        for (int x = 0; x < N; ++x) {
            const float u = (x + 0.5f) / N, v = (y + 0.5f) / N;
            tone[size_t(y) * N + x] = fbm(u * 4, v * 4, 4, 5, 0.55f, s.seed);
            relief.at(x, y) = 0.12f * fbm(u * 32, v * 32, 32, 2, 0.5f, s.seed + 4);
        }
    if (s.rock > 0.0f || s.scree > 0.0f)
        paintStone(s, N, relief, stone, cover);
    for (int y = 0; y < N; ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(img.scanLine(y));
        for (int x = 0; x < N; ++x) {
            const size_t i = size_t(y) * N + x;
            Rgb c = rampColour(s, 0.5f + 0.8f * tone[i]);
            c = mixRgb(c, stone[i], cover[i]);
            const float light = 0.65f + 0.35f * relief.shade(x, y, 5.0f);
            line[x] = toQRgb(scaled(c, light * (1.0f + 0.1f * (unit(x, y, s.seed + 9) - 0.5f))));
        }
    }
}

// Short grass strokes, each also drawn shifted by the image size so that the image tiles.
// On stony ground only where the soil shows.
inline void paintBlades(QImage& img, const GroundStyle& s) {
    if (s.blades == 0)
        return;
    const int N = img.width();
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    Lcg rng(s.seed * 31 + 7);
    for (int b = 0; b < s.blades; ++b) {
        const float x = rng.range(0, N), y = rng.range(0, N);
        const float a = rng.range(0, 2 * kPi);
        const float len = s.bladeLen * rng.range(0.5f, 1.3f);
        const Rgb c = scaled(mixRgb(s.bladeA, s.bladeB, rng.next()), rng.range(0.8f, 1.15f));
        const float alpha = rng.range(0.5f, 0.9f);
        const float width = rng.range(0.8f, 1.5f);
        if (s.rock > 0.0f) {
            const float u = x / N, v = y / N;
            const float rockShow =
                smoothstep(-0.25f, 0.15f, fbm(u * 3, v * 3, 3, 4, 0.5f, s.seed + 22));
            if (rockShow > 0.35f)
                continue;
        }
        QColor col = QColor::fromRgb(toQRgb(c));
        col.setAlphaF(alpha);
        p.setPen(QPen(col, width, Qt::SolidLine, Qt::RoundCap));
        const QPointF d(std::cos(a) * len, std::sin(a) * len);
        const QPointF bend(-d.y() * 0.15f, d.x() * 0.15f);
        for (int oy = -1; oy <= 1; ++oy)
            for (int ox = -1; ox <= 1; ++ox) {
                const QPointF o(x + ox * N, y + oy * N);
                if (o.x() < -len || o.x() > N + len || o.y() < -len || o.y() > N + len)
                    continue;
                QPainterPath path(o);
                path.quadTo(o + d * 0.5 + bend, o + d);
                p.drawPath(path);
            }
    }
}

inline GroundStyle groundStyle(int band) {
    switch (band) {
    case 1: // lush meadow of the valley floor
        return {{50, 88, 32},
                {82, 126, 48},
                {122, 156, 70},
                {70, 118, 42},
                {136, 168, 80},
                2600,
                7.0f,
                {0, 0, 0},
                0,
                0.0f,
                0.0f,
                {120, 115, 100},
                101};
    case 2: // grassland
        return {{66, 98, 36},
                {98, 130, 52},
                {146, 156, 78},
                {88, 126, 46},
                {160, 164, 90},
                2300,
                6.0f,
                {52, 80, 32},
                12,
                0.0f,
                0.0f,
                {130, 122, 105},
                202};
    case 3: // dry grass and brush
        return {{120, 108, 66},
                {156, 140, 90},
                {186, 170, 118},
                {204, 188, 132},
                {112, 100, 60},
                3200,
                7.0f,
                {58, 80, 36},
                70,
                0.0f,
                0.0f,
                {140, 130, 112},
                303};
    case 4: // rock with sparse grass
        return {{84, 96, 50},
                {110, 116, 68},
                {140, 138, 96},
                {100, 118, 56},
                {142, 144, 88},
                1400,
                5.0f,
                {58, 78, 36},
                10,
                0.85f,
                0.1f,
                {146, 140, 130},
                404};
    default: // bare rock and scree of the ridge tops
        return {{128, 124, 116},
                {150, 146, 138},
                {172, 168, 160},
                {0, 0, 0},
                {0, 0, 0},
                0,
                0.0f,
                {0, 0, 0},
                0,
                0.35f,
                0.9f,
                {168, 164, 156},
                505};
    }
}

inline QImage makeGround(int band) {
    const GroundStyle s = groundStyle(band);
    QImage img(256, 256, QImage::Format_RGB32);
    paintBase(img, s);
    paintBlades(img, s);
    paintShrubs(img, s);
    // The ortho-photo halves every colour; bright, sunlit ground keeps the terrain from
    // looking murky.
    const float gain[] = {1.25f, 1.2f, 1.15f, 1.15f, 1.1f};
    for (int y = 0; y < img.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(img.scanLine(y));
        for (int x = 0; x < img.width(); ++x)
            line[x] = toQRgb(scaled(fromQRgb(line[x]), gain[band - 1]));
    }
    return img;
}

} // namespace images
