#pragma once

// Seeded, periodic noise for the image generator. Everything here is a pure function of its
// arguments, so the images come out identical on every run.

#include <QColor>
#include <QImage>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace images {

constexpr float kPi = 3.14159265358979f;

inline uint32_t mix(uint32_t h) {
    h ^= h >> 16;
    h *= 0x7feb352dU;
    h ^= h >> 15;
    h *= 0x846ca68bU;
    h ^= h >> 16;
    return h;
}

inline uint32_t hash3(int x, int y, uint32_t seed) {
    return mix(uint32_t(x) * 0x8da6b343U ^ mix(uint32_t(y) * 0xd8163841U ^ mix(seed)));
}

// A hash mapped to [0, 1).
inline float unit(int x, int y, uint32_t seed) {
    return float(hash3(x, y, seed) >> 8) * (1.0f / 16777216.0f);
}

inline int wrap(int i, int period) {
    const int m = i % period;
    return m < 0 ? m + period : m;
}

inline float smooth(float t) {
    return t * t * t * (t * (t * 6.0f - 15.0f) + 10.0f);
}

inline float lerp(float a, float b, float t) {
    return a + (b - a) * t;
}

inline float clamp01(float v) {
    return std::min(1.0f, std::max(0.0f, v));
}

inline float smoothstep(float e0, float e1, float x) {
    const float t = clamp01((x - e0) / (e1 - e0));
    return t * t * (3.0f - 2.0f * t);
}

// Gradient noise in about [-1, 1] that repeats every `px` lattice cells in x and `py` in y.
inline float gradient(float x, float y, int px, int py, uint32_t seed) {
    const int ix = int(std::floor(x));
    const int iy = int(std::floor(y));
    const float fx = x - float(ix);
    const float fy = y - float(iy);
    auto corner = [&](int cx, int cy, float dx, float dy) {
        const float a = unit(wrap(ix + cx, px), wrap(iy + cy, py), seed) * 2.0f * kPi;
        return std::cos(a) * dx + std::sin(a) * dy;
    };
    const float u = smooth(fx);
    const float v = smooth(fy);
    const float n0 = lerp(corner(0, 0, fx, fy), corner(1, 0, fx - 1.0f, fy), u);
    const float n1 = lerp(corner(0, 1, fx, fy - 1.0f), corner(1, 1, fx - 1.0f, fy - 1.0f), u);
    return lerp(n0, n1, v) * 1.41421356f;
}

// Fractal sum over octaves; each octave doubles the frequency and the period, so the sum
// repeats every `px` by `py` cells of the first octave. Result in about [-1, 1].
inline float fbm(float x, float y, int px, int py, int octaves, float gain, uint32_t seed) {
    float sum = 0.0f;
    float amp = 1.0f;
    float norm = 0.0f;
    for (int o = 0; o < octaves; ++o) {
        sum += amp * gradient(x, y, px, py, seed + uint32_t(o) * 1013U);
        norm += amp;
        amp *= gain;
        x *= 2.0f;
        y *= 2.0f;
        px *= 2;
        py *= 2;
    }
    return sum / norm;
}

inline float fbm(float x, float y, int period, int octaves, float gain, uint32_t seed) {
    return fbm(x, y, period, period, octaves, gain, seed);
}

// Cellular noise repeating every `px` by `py` cells: distance to the nearest and second nearest
// feature point, and a random value of the nearest cell.
struct Cell {
    float f1;
    float f2;
    float id;
};

inline Cell cellular(float x, float y, int px, int py, uint32_t seed, float jitter = 0.9f) {
    const int ix = int(std::floor(x));
    const int iy = int(std::floor(y));
    Cell c{1e9f, 1e9f, 0.0f};
    for (int dy = -2; dy <= 2; ++dy)
        for (int dx = -2; dx <= 2; ++dx) {
            const int cx = wrap(ix + dx, px);
            const int cy = wrap(iy + dy, py);
            const float px = float(ix + dx) + 0.5f + jitter * (unit(cx, cy, seed) - 0.5f);
            const float py = float(iy + dy) + 0.5f + jitter * (unit(cx, cy, seed + 7U) - 0.5f);
            const float d = std::hypot(px - x, py - y);
            if (d < c.f1) {
                c.f2 = c.f1;
                c.f1 = d;
                c.id = unit(cx, cy, seed + 13U);
            } else if (d < c.f2) {
                c.f2 = d;
            }
        }
    return c;
}

// A small linear congruential generator for placing strokes and stones.
class Lcg {
public:
    explicit Lcg(uint64_t seed) : state(seed * 6364136223846793005ULL + 1442695040888963407ULL) {}
    float next() {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return float(state >> 40) * (1.0f / 16777216.0f);
    }
    float range(float a, float b) { return a + (b - a) * next(); }

private:
    uint64_t state;
};

struct Rgb {
    float r, g, b;
};

inline Rgb mixRgb(const Rgb& a, const Rgb& b, float t) {
    return {lerp(a.r, b.r, t), lerp(a.g, b.g, t), lerp(a.b, b.b, t)};
}

inline Rgb scaled(const Rgb& a, float k) {
    return {a.r * k, a.g * k, a.b * k};
}

inline QRgb toQRgb(const Rgb& c) {
    auto ch = [](float v) { return int(std::lround(std::min(255.0f, std::max(0.0f, v)))); };
    return qRgb(ch(c.r), ch(c.g), ch(c.b));
}

inline Rgb fromQRgb(QRgb c) {
    return {float(qRed(c)), float(qGreen(c)), float(qBlue(c))};
}

// A float field over a w x h image, read with wrap-around so that derivatives tile.
struct Field {
    int w, h;
    std::vector<float> v;
    Field(int w_, int h_) : w(w_), h(h_), v(size_t(w_) * size_t(h_), 0.0f) {}
    float& at(int x, int y) { return v[size_t(wrap(y, h)) * size_t(w) + size_t(wrap(x, w))]; }
    float get(int x, int y) const { return v[size_t(wrap(y, h)) * size_t(w) + size_t(wrap(x, w))]; }
    // Lambert-like shading of the field seen as a height map, light from the upper left.
    float shade(int x, int y, float relief) const {
        const float dx = (get(x + 1, y) - get(x - 1, y)) * relief;
        const float dy = (get(x, y + 1) - get(x, y - 1)) * relief;
        const float len = std::sqrt(dx * dx + dy * dy + 1.0f);
        const float lx = -0.55f, ly = -0.55f, lz = 0.63f;
        return (-dx * lx - dy * ly + lz) / len / lz;
    }
};

} // namespace images
