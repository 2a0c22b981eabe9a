#pragma once

// The six sky-box faces.
//
// The box stands on the ground: its walls reach from height 0 to r and from -r to r across, r
// being five terrain widths, and its centre is over the middle of the terrain. With y up, the
// faces and their texture coordinates (s to the right, t upwards; an image's top row is t = 1)
// are:
//   north  wall z = +r   s from x = +r to -r, t from y = 0 to r
//   south  wall z = -r   s from x = -r to +r
//   east   wall x = -r   s from z = +r to -r
//   west   wall x = +r   s from z = -r to +r
//   up     top  y = r    s from x = +r to -r, t from z = +r to -r (the bottom row meets north)
//   down   ground y = 0, repeated five times each way
// Seen from inside, every wall reads left to right with the sky at the top; going right from
// north come east, south and west. Each pixel is coloured from the 3-D direction in which an
// eye a little above the box's floor sees it, so neighbouring faces agree along their edges.
// The box's texture coordinates stop 1/512 short of every edge, i.e. one pixel of a 512 image:
// the face's edge falls between a face's first and second pixel, and the pixel centres are
// placed accordingly.

#include "noise.h"

namespace images {

struct Vec3 {
    float x, y, z;
};

inline Vec3 normalised(Vec3 v) {
    const float l = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    return {v.x / l, v.y / l, v.z / l};
}

inline float dot(Vec3 a, Vec3 b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

enum class SkyFace { North, South, East, West, Up };

constexpr int kSkySize = 512;
constexpr float kEyeHeight = 0.02f; // of the half-width r: 250 m for the default terrain

// Point on the face (box half-width 1) for face parameters a (along s) and b (along t).
inline Vec3 facePoint(SkyFace f, float a, float b) {
    switch (f) {
    case SkyFace::North:
        return {1 - 2 * a, b, 1};
    case SkyFace::South:
        return {-1 + 2 * a, b, -1};
    case SkyFace::East:
        return {-1, b, 1 - 2 * a};
    case SkyFace::West:
        return {1, b, -1 + 2 * a};
    case SkyFace::Up:
    default:
        return {1 - 2 * a, 1, 1 - 2 * b};
    }
}

// Pixel column i / row j (from the top) to face parameters, with the one-pixel inset.
inline float faceParamS(int i) {
    return (float(i) - 0.5f) / float(kSkySize - 2);
}
inline float faceParamT(int j) {
    return (float(kSkySize) - 1.5f - float(j)) / float(kSkySize - 2);
}

// Silhouette height (elevation in radians) of a range of distant hills in direction d; the
// noise is read on a circle, so it closes up all the way round.
inline float ridgeElevation(Vec3 d, float lowDeg, float highDeg, float radius, uint32_t seed) {
    const float az = std::atan2(d.x, d.z);
    const float n =
        fbm(std::cos(az) * radius + 50, std::sin(az) * radius + 50, 4096, 5, 0.5f, seed);
    const float ridge =
        1.0f - std::fabs(fbm(std::cos(az) * radius * 0.5f + 80, std::sin(az) * radius * 0.5f + 80,
                             4096, 3, 0.5f, seed + 5));
    const float h = clamp01(0.5f + 0.6f * n) * 0.6f + 0.4f * ridge * ridge;
    return (lowDeg + (highDeg - lowDeg) * h) * kPi / 180.0f;
}

inline Rgb skyColour(Vec3 d) {
    d = normalised(d);
    const float el = std::asin(std::max(-1.0f, std::min(1.0f, d.y)));
    const Rgb zenith{46, 98, 176}, middle{104, 152, 212}, haze{198, 212, 224};
    const float up = clamp01(el / (kPi / 2));
    Rgb c = mixRgb(haze, middle, smoothstep(0.0f, 0.35f, std::pow(up, 0.7f)));
    c = mixRgb(c, zenith, smoothstep(0.25f, 1.0f, up));
    // A soft glow around the sun, which stands high in the direction of the main light.
    const Vec3 sun = normalised({3359.0f, 3700.0f, 4500.0f});
    const float s = std::max(0.0f, dot(d, sun));
    c = mixRgb(c, Rgb{255, 250, 236}, 0.35f * std::pow(s, 12.0f) + 0.25f * std::pow(s, 90.0f));
    c = mixRgb(c, Rgb{232, 232, 226}, 0.15f * std::pow(s, 3.0f) * (1 - up));
    // Clouds on a layer high above; they thin out and melt into the haze towards the horizon.
    if (d.y > 0.0f) {
        const float k = 1.0f / d.y;
        const float qx = d.x * k * 1.6f + 7.0f, qz = d.z * k * 1.6f + 3.0f;
        const float far = smoothstep(0.04f, 0.35f, d.y);
        const float n = fbm(qx, qz, 4096, 6, 0.52f, 901);
        const float cover =
            smoothstep(-0.02f, 0.5f, n + 0.1f * fbm(qx * 3, qz * 3, 4096, 3, 0.5f, 902));
        // Self-shadow: clouds are darker where the layer is thicker towards the sun's opposite.
        const float thick = fbm(qx - 0.08f, qz - 0.1f, 4096, 6, 0.52f, 901);
        const float shadow = clamp01((thick - n) * 3.0f + 0.45f) * cover;
        Rgb cloud = mixRgb(Rgb{252, 252, 250}, Rgb{178, 186, 200}, 0.75f * shadow);
        cloud = mixRgb(cloud, haze, 1.0f - far);
        c = mixRgb(c, cloud, cover * (0.25f + 0.7f * far) * smoothstep(0.0f, 0.08f, d.y));
    }
    // Distant hills along the horizon, farther ones paler.
    const float farRidge = ridgeElevation(d, 0.3f, 2.6f, 3.0f, 911);
    const float nearRidge = ridgeElevation(d, -0.2f, 1.1f, 5.0f, 921);
    const float aa = 0.0025f; // about a texel at the horizon
    const float farMask = smoothstep(farRidge + aa, farRidge - aa, el);
    const float nearMask = smoothstep(nearRidge + aa, nearRidge - aa, el);
    const float shade =
        0.5f + 0.5f * fbm(std::atan2(d.x, d.z) * 40.0f, el * 300.0f, 4096, 3, 0.5f, 931);
    const Rgb farHills = mixRgb(Rgb{150, 166, 182}, Rgb{166, 180, 194}, shade);
    const Rgb nearHills = mixRgb(Rgb{96, 116, 116}, Rgb{112, 130, 128}, shade);
    c = mixRgb(c, farHills, farMask);
    c = mixRgb(c, nearHills, nearMask);
    // Below the hills the land fades from haze into the colour of the ground plane.
    const float below = smoothstep(0.0f, 0.02f, -el);
    c = mixRgb(c, Rgb{70, 92, 66}, below);
    return c;
}

inline QImage makeSkyFace(SkyFace face) {
    QImage img(kSkySize, kSkySize, QImage::Format_RGB32);
    const Vec3 eye{0, kEyeHeight, 0};
    for (int j = 0; j < kSkySize; ++j) {
        QRgb* line = reinterpret_cast<QRgb*>(img.scanLine(j));
        for (int i = 0; i < kSkySize; ++i) {
            const Vec3 p = facePoint(face, faceParamS(i), faceParamT(j));
            line[i] = toQRgb(skyColour({p.x - eye.x, p.y - eye.y, p.z - eye.z}));
        }
    }
    return img;
}

// The ground around the terrain, seen from far above: woods and meadows, tiling seamlessly.
inline QImage makeSkyGround() {
    const int N = kSkySize;
    Field relief(N, N);
    std::vector<Rgb> colour(size_t(N) * N);
    for (int y = 0; y < N; ++y)
        for (int x = 0; x < N; ++x) {
            const float u = (x + 0.5f) / N, v = (y + 0.5f) / N;
            const float woods = fbm(u * 4, v * 4, 4, 6, 0.55f, 941);
            const float forest = smoothstep(-0.05f, 0.05f, woods);
            const Cell crown = cellular(u * 96, v * 96, 96, 96, 942, 1.0f);
            const float dome = std::sqrt(clamp01(1.0f - crown.f1 * 1.6f));
            const float meadowTone = fbm(u * 8, v * 8, 8, 4, 0.5f, 943);
            const Rgb meadow = mixRgb(Rgb{78, 104, 44}, Rgb{112, 126, 58}, 0.5f + meadowTone);
            const Rgb trees =
                scaled(mixRgb(Rgb{30, 52, 26}, Rgb{50, 70, 34}, crown.id), 0.6f + 0.5f * dome);
            colour[size_t(y) * N + x] = mixRgb(meadow, trees, forest);
            relief.at(x, y) = forest * 0.5f * dome + 0.05f * fbm(u * 64, v * 64, 64, 2, 0.5f, 944);
        }
    QImage img(N, N, QImage::Format_RGB32);
    for (int y = 0; y < N; ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(img.scanLine(y));
        for (int x = 0; x < N; ++x) {
            const float light = 0.7f + 0.3f * relief.shade(x, y, 4.0f);
            line[x] = toQRgb(scaled(colour[size_t(y) * N + x], light));
        }
    }
    return img;
}

} // namespace images
