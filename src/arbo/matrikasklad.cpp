#include "arbo/matrikasklad.h"

#include <GL/gl.h>

#include <cmath>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace arbo {

namespace {

// Element (row r, column c) of a column-major matrix.
inline float& el(float* m, int r, int c) {
    return m[c * 4 + r];
}
inline float el(const float* m, int r, int c) {
    return m[c * 4 + r];
}

#ifdef __SSE2__
// The products column by column, four rows at once: every lane adds its
// products in the same order as the scalar code below and SSE rounds each step
// exactly as scalar single precision does (no fused multiply-add), so the
// results are the same bits.
inline __m128 stolpec(const float* m, int c) {
    return _mm_loadu_ps(m + 4 * c);
}
inline __m128 krat(__m128 v, float s) {
    return _mm_mul_ps(v, _mm_set1_ps(s));
}

// p = a b; p may be a.
void mnozi4(float* p, const float* a, const float* b) {
    const __m128 a0 = stolpec(a, 0), a1 = stolpec(a, 1), a2 = stolpec(a, 2), a3 = stolpec(a, 3);
    __m128 r[4];
    for (int j = 0; j < 4; ++j) {
        const float* bj = b + 4 * j;
        r[j] = _mm_add_ps(_mm_add_ps(_mm_add_ps(krat(a0, bj[0]), krat(a1, bj[1])), krat(a2, bj[2])),
                          krat(a3, bj[3]));
    }
    for (int j = 0; j < 4; ++j)
        _mm_storeu_ps(p + 4 * j, r[j]);
}

// Both factors affine: the last row is (0, 0, 0, 1) and is not multiplied out.
void mnozi34(float* p, const float* a, const float* b) {
    const __m128 a0 = stolpec(a, 0), a1 = stolpec(a, 1), a2 = stolpec(a, 2), a3 = stolpec(a, 3);
    const __m128 brezZadnje = _mm_castsi128_ps(_mm_set_epi32(0, -1, -1, -1));
    __m128 r[4];
    for (int j = 0; j < 3; ++j) {
        const float* bj = b + 4 * j;
        r[j] = _mm_and_ps(_mm_add_ps(_mm_add_ps(krat(a0, bj[0]), krat(a1, bj[1])), krat(a2, bj[2])),
                          brezZadnje);
    }
    const float* b3 = b + 12;
    r[3] =
        _mm_add_ps(_mm_add_ps(_mm_add_ps(krat(a0, b3[0]), krat(a1, b3[1])), krat(a2, b3[2])), a3);
    r[3] = _mm_or_ps(_mm_and_ps(r[3], brezZadnje), _mm_set_ps(1.0f, 0.0f, 0.0f, 0.0f));
    for (int j = 0; j < 4; ++j)
        _mm_storeu_ps(p + 4 * j, r[j]);
}
#else
// p = a b. Row i of the product needs row i of a only, so p may be a: the
// product is then taken in place (no temporary to copy back).
void mnozi4(float* p, const float* a, const float* b) {
    for (int i = 0; i < 4; ++i) {
        const float ai0 = el(a, i, 0), ai1 = el(a, i, 1), ai2 = el(a, i, 2), ai3 = el(a, i, 3);
        for (int j = 0; j < 4; ++j)
            el(p, i, j) =
                ai0 * el(b, 0, j) + ai1 * el(b, 1, j) + ai2 * el(b, 2, j) + ai3 * el(b, 3, j);
    }
}

// Both factors affine: the last row is (0, 0, 0, 1) and is not multiplied out.
// In place as mnozi4.
void mnozi34(float* p, const float* a, const float* b) {
    for (int i = 0; i < 3; ++i) {
        const float ai0 = el(a, i, 0), ai1 = el(a, i, 1), ai2 = el(a, i, 2), ai3 = el(a, i, 3);
        for (int j = 0; j < 3; ++j)
            el(p, i, j) = ai0 * el(b, 0, j) + ai1 * el(b, 1, j) + ai2 * el(b, 2, j);
        el(p, i, 3) = ai0 * el(b, 0, 3) + ai1 * el(b, 1, 3) + ai2 * el(b, 2, 3) + ai3;
    }
    el(p, 3, 0) = 0.0f;
    el(p, 3, 1) = 0.0f;
    el(p, 3, 2) = 0.0f;
    el(p, 3, 3) = 1.0f;
}
#endif

const float enota[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

// The rotation by the angle with sine s and cosine c.
bool rotacija(float* m, float s, float c, float x, float y, float z) {
    std::memcpy(m, enota, sizeof enota);
    if (x == 0.0f && y == 0.0f && z != 0.0f) {
        el(m, 0, 0) = c;
        el(m, 1, 1) = c;
        el(m, 0, 1) = z < 0.0f ? s : -s;
        el(m, 1, 0) = z < 0.0f ? -s : s;
        return true;
    }
    if (x == 0.0f && y != 0.0f && z == 0.0f) {
        el(m, 0, 0) = c;
        el(m, 2, 2) = c;
        el(m, 0, 2) = y < 0.0f ? -s : s;
        el(m, 2, 0) = y < 0.0f ? s : -s;
        return true;
    }
    if (x != 0.0f && y == 0.0f && z == 0.0f) {
        el(m, 1, 1) = c;
        el(m, 2, 2) = c;
        el(m, 1, 2) = x < 0.0f ? s : -s;
        el(m, 2, 1) = x < 0.0f ? -s : s;
        return true;
    }
    const float mag = sqrtf(x * x + y * y + z * z);
    if (mag <= 1.0e-4f)
        return false; // no axis: no rotation
    x /= mag;
    y /= mag;
    z /= mag;
    const float xx = x * x, yy = y * y, zz = z * z;
    const float xy = x * y, yz = y * z, zx = z * x;
    const float xs = x * s, ys = y * s, zs = z * s;
    const float one_c = 1.0f - c;
    el(m, 0, 0) = (one_c * xx) + c;
    el(m, 0, 1) = (one_c * xy) - zs;
    el(m, 0, 2) = (one_c * zx) + ys;
    el(m, 1, 0) = (one_c * xy) + zs;
    el(m, 1, 1) = (one_c * yy) + c;
    el(m, 1, 2) = (one_c * yz) - xs;
    el(m, 2, 0) = (one_c * zx) - ys;
    el(m, 2, 1) = (one_c * yz) + xs;
    el(m, 2, 2) = (one_c * zz) + c;
    return true;
}

} // namespace

Matrika MatrikaSklad::identiteta() {
    Matrika i;
    std::memcpy(i.m, enota, sizeof enota);
    return i;
}

void MatrikaSklad::sinusInKosinus(float kot, float& s, float& c) {
    std::uint32_t b;
    std::memcpy(&b, &kot, sizeof b);
    if (sinCos.empty())
        sinCos.resize(stSinCos);
    SinCos& e = sinCos[(b * 2654435769u) >> (32 - 12)];
    if (e.kot != b) {
        e.kot = b;
        e.s = sinf(float(kot * M_PI / 180.0));
        e.c = cosf(float(kot * M_PI / 180.0));
    }
    s = e.s;
    c = e.c;
}

void MatrikaSklad::zacni(const Matrika& koren) {
    sklad.clear();
    sklad.push_back({koren, false});
}

void MatrikaSklad::push() {
    if (naGl) {
        glPushMatrix();
        return;
    }
    sklad.push_back(sklad.back());
}

void MatrikaSklad::pop() {
    if (naGl) {
        glPopMatrix();
        return;
    }
    if (sklad.size() > 1)
        sklad.pop_back();
}

void MatrikaSklad::loadIdentity() {
    if (naGl) {
        glLoadIdentity();
        return;
    }
    Nivo& n = sklad.back();
    std::memcpy(n.m.m, enota, sizeof enota);
    n.splosna = false;
}

void MatrikaSklad::rotate(float kot, float x, float y, float z) {
    if (naGl) {
        glRotatef(kot, x, y, z);
        return;
    }
    if (kot == 0.0f)
        return;
    float s, c;
    sinusInKosinus(kot, s, c);
    float r[16];
    if (!rotacija(r, s, c, x, y, z))
        return;
    Nivo& n = sklad.back();
    if (n.splosna)
        mnozi4(n.m.m, n.m.m, r);
    else
        mnozi34(n.m.m, n.m.m, r);
}

void MatrikaSklad::translate(float x, float y, float z) {
    if (naGl) {
        glTranslatef(x, y, z);
        return;
    }
    float* m = sklad.back().m.m;
#ifdef __SSE2__
    const __m128 t =
        _mm_add_ps(_mm_add_ps(_mm_add_ps(krat(stolpec(m, 0), x), krat(stolpec(m, 1), y)),
                              krat(stolpec(m, 2), z)),
                   stolpec(m, 3));
    _mm_storeu_ps(m + 12, t);
#else
    m[12] = m[0] * x + m[4] * y + m[8] * z + m[12];
    m[13] = m[1] * x + m[5] * y + m[9] * z + m[13];
    m[14] = m[2] * x + m[6] * y + m[10] * z + m[14];
    m[15] = m[3] * x + m[7] * y + m[11] * z + m[15];
#endif
}

void MatrikaSklad::multiply(const Matrika& b) {
    if (naGl) {
        glMultMatrixf(b.m);
        return;
    }
    Nivo& n = sklad.back();
    const Matrika desna = b; // b might be the current matrix itself
    mnozi4(n.m.m, n.m.m, desna.m);
    n.splosna = true;
}

Matrika MatrikaSklad::vrh() const {
    if (naGl) {
        Matrika m;
        glGetFloatv(GL_MODELVIEW_MATRIX, m.m);
        return m;
    }
    return sklad.back().m;
}

} // namespace arbo
