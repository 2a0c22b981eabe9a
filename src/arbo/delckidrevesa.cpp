#include "arbo/delckidrevesa.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <algorithm>
#include <cmath>
#include <vector>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace arbo {

DelckiDrevesa::DelckiDrevesa(Pogled& pogled, SerializatorDelckovDrevesa& serializatorDelckovDrevesa)
    : pogled(pogled), serializatorDelckovDrevesa(serializatorDelckovDrevesa) {}

void DelckiDrevesa::nastaviBarvo(float r, float g, float b, float a) {
    barva[0] = r;
    barva[1] = g;
    barva[2] = b;
    barva[3] = a;
    barvaOgliscVeljavna = false;
    if (sklad.naGl)
        glColor4f(r, g, b, a);
}

void DelckiDrevesa::narisiZbrano() {
    if (sklad.naGl)
        return;
    if (risi)
        mreza.narisi(pogled.textureNames[0], pogled.textureNames[1]);
    mreza.izprazni();
    glColor4fv(barva);
}

const std::uint8_t* DelckiDrevesa::barvaZaOglisca() {
    if (!barvaOgliscVeljavna) {
        for (int i = 0; i < 4; ++i)
            barvaOglisc[i] = std::uint8_t(std::clamp(barva[i], 0.0f, 1.0f) * 255.0f + 0.5f);
        barvaOgliscVeljavna = true;
    }
    return barvaOglisc;
}

#ifdef __SSE2__
// Four rows at once; each lane adds its products in the scalar order and SSE
// rounds each step as scalar single precision does: the same bits.
namespace {
inline __m128 stolpecKrat(const float* m, int c, float s) {
    return _mm_mul_ps(_mm_loadu_ps(m + 4 * c), _mm_set1_ps(s));
}
} // namespace
#endif

void DelckiDrevesa::normala(float* n, const float* m, float nx, float ny, float nz) {
#ifdef __SSE2__
    float v[4];
    _mm_storeu_ps(v, _mm_add_ps(_mm_add_ps(stolpecKrat(m, 0, nx), stolpecKrat(m, 1, ny)),
                                stolpecKrat(m, 2, nz)));
    n[0] = v[0];
    n[1] = v[1];
    n[2] = v[2];
#else
    n[0] = m[0] * nx + m[4] * ny + m[8] * nz;
    n[1] = m[1] * nx + m[5] * ny + m[9] * nz;
    n[2] = m[2] * nx + m[6] * ny + m[10] * nz;
#endif
}

void DelckiDrevesa::oglisce(MrezaDrevesa::Oglisce& o, const float* m, float x, float y, float z,
                            const float* n, const std::uint8_t* b, float s, float t) {
#ifdef __SSE2__
    // Writes x, y, z and a scratch value over nx, set just below.
    _mm_storeu_ps(&o.x,
                  _mm_add_ps(_mm_add_ps(_mm_add_ps(stolpecKrat(m, 0, x), stolpecKrat(m, 1, y)),
                                        stolpecKrat(m, 2, z)),
                             _mm_loadu_ps(m + 12)));
#else
    o.x = m[0] * x + m[4] * y + m[8] * z + m[12];
    o.y = m[1] * x + m[5] * y + m[9] * z + m[13];
    o.z = m[2] * x + m[6] * y + m[10] * z + m[14];
#endif
    o.nx = n[0];
    o.ny = n[1];
    o.nz = n[2];
    o.s = s;
    o.t = t;
    for (int i = 0; i < 4; ++i)
        o.barva[i] = b[i];
}

void DelckiDrevesa::crta(const float* m, float x0, float y0, float z0, float s0, float x1, float y1,
                         float z1, float s1) {
    MrezaDrevesa::Paket& p = mreza.crte;
    float n[3];
    normala(n, m, 0, 1, 0);
    const std::uint8_t* b = barvaZaOglisca();
    const std::uint32_t a = std::uint32_t(p.oglisca.size());
    MrezaDrevesa::Oglisce* o = p.oglisca.dodaj(2);
    oglisce(o[0], m, x0, y0, z0, n, b, s0, 0);
    oglisce(o[1], m, x1, y1, z1, n, b, s1, 0);
    std::uint32_t* k = p.indeksi.dodaj(2);
    k[0] = a;
    k[1] = a + 1;
}

void DelckiDrevesa::narisiSteblo(double visina, double sirinaSpodaj, double sirinaZgoraj,
                                 Presek* presekSpodaj, int idVeje) {
    if (segmentiPolni())
        return;
    if (serializatorDelckovDrevesa.exportingToPoints)
        serializatorDelckovDrevesa.serializirajVejo(visina, sirinaSpodaj, sirinaZgoraj,
                                                    presekSpodaj, idVeje);
    ++stSegmentov;
    if (pogled.wireframe) {
        zicnatoSteblo(sirinaSpodaj, sirinaZgoraj, visina);
    } else if (pogled.lowQuality < 6) {
        valj(sirinaSpodaj, sirinaZgoraj, visina);
    } else if (sklad.naGl) {
        glBindTexture(GL_TEXTURE_2D, pogled.textureNames[0]);
        glBegin(GL_LINES);
        glTexCoord1f(0);
        glVertex3f(0, 0, 0);
        glTexCoord1f(1);
        glVertex3d(0, visina, 0);
        glEnd();
    } else {
        crta(sklad.m(), 0, 0, 0, 0, 0, float(visina), 0, 1);
    }
}

// The outline of the four side faces of a square frustum, in black.
void DelckiDrevesa::zicnatoSteblo(double b, double t, double h) {
    nastaviBarvo(0, 0, 0);
    const double kx[5] = {-1, 1, 1, -1, -1}, kz[5] = {-1, -1, 1, 1, -1};
    if (sklad.naGl) {
        glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
        glBegin(GL_QUAD_STRIP);
        for (int k = 0; k < 5; ++k) {
            glVertex3d(kx[k] * b, 0, kz[k] * b);
            glVertex3d(kx[k] * t, h, kz[k] * t);
        }
        glEnd();
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
        return;
    }
    const float* m = sklad.m();
    const float fb = float(b), ft = float(t), fh = float(h);
    for (int k = 0; k < 4; ++k) {
        const float x0 = float(kx[k]), z0 = float(kz[k]), x1 = float(kx[k + 1]),
                    z1 = float(kz[k + 1]);
        crta(m, x0 * fb, 0, z0 * fb, 0, x0 * ft, fh, z0 * ft, 0);
        crta(m, x0 * fb, 0, z0 * fb, 0, x1 * fb, 0, z1 * fb, 0);
        crta(m, x0 * ft, fh, z0 * ft, 0, x1 * ft, fh, z1 * ft, 0);
    }
}

// A textured truncated cone from radius b at the base to t at height h, as the
// GLU quadric draws it after a -90 degree turn about x (its z axis becomes +y).
void DelckiDrevesa::valj(double b, double t, double h) {
    const bool fino = pogled.highQualityRendering && pogled.lowQuality == 0;
    const int slices = fino ? 10 : 5, stacks = fino ? 5 : 1;
    if (sklad.naGl) {
        sklad.rotate(-90, 1, 0, 0);
        glBindTexture(GL_TEXTURE_2D, pogled.textureNames[0]);
        gluCylinder(pogled.kvadraticnePloskve, b, t, h, slices, stacks);
        return;
    }
    static const struct Koti {
        float sin5[6], cos5[6], sin10[11], cos10[11];
        Koti() {
            for (int i = 0; i <= 5; ++i) {
                sin5[i] = float(std::sin(2 * M_PI * (i % 5) / 5));
                cos5[i] = float(std::cos(2 * M_PI * (i % 5) / 5));
            }
            for (int i = 0; i <= 10; ++i) {
                sin10[i] = float(std::sin(2 * M_PI * (i % 10) / 10));
                cos10[i] = float(std::cos(2 * M_PI * (i % 10) / 10));
            }
        }
    } koti;
    const float* sn = fino ? koti.sin10 : koti.sin5;
    const float* cs = fino ? koti.cos10 : koti.cos5;
    const double dolzina = std::sqrt((b - t) * (b - t) + h * h);
    const float zNormala = dolzina > 0 ? float((b - t) / dolzina) : 0.0f;
    const float xyNormala = dolzina > 0 ? float(h / dolzina) : 1.0f;
    const float* m = sklad.m();
    // Every ring has the same normals.
    float normale[11][3];
    for (int i = 0; i <= slices; ++i)
        normala(normale[i], m, xyNormala * sn[i], zNormala, -xyNormala * cs[i]);
    const std::uint8_t* barvaB = barvaZaOglisca();
    MrezaDrevesa::Paket& p = mreza.lubje;
    const std::uint32_t prvi = std::uint32_t(p.oglisca.size());
    MrezaDrevesa::Oglisce* o = p.oglisca.dodaj(std::size_t((stacks + 1) * (slices + 1)));
    for (int j = 0; j <= stacks; ++j) {
        const float r = float(b - (b - t) * (double(j) / stacks));
        const float y = float(j * h / stacks);
        for (int i = 0; i <= slices; ++i)
            oglisce(*o++, m, r * sn[i], y, -r * cs[i], normale[i], barvaB, 1.0f - float(i) / slices,
                    float(j) / stacks);
    }
    std::uint32_t* k = p.indeksi.dodaj(std::size_t(6 * stacks * slices));
    for (int j = 0; j < stacks; ++j)
        for (int i = 0; i < slices; ++i) {
            const std::uint32_t a = prvi + std::uint32_t(j * (slices + 1) + i);
            const std::uint32_t c = a + std::uint32_t(slices + 1);
            for (std::uint32_t v : {a, c, a + 1, c, c + 1, a + 1})
                *k++ = v;
        }
}

void DelckiDrevesa::risiList(float velikost) {
    ++stListov;
    nastaviBarvo(0.5f, 0.5f, 0.5f, 0.8f);
    const bool samoTocka = pogled.lowQuality > 11;
    if (sklad.naGl) {
        if (!samoTocka) {
            sklad.rotate(-90, 1, 0, 0);
            gluDisk(pogled.kvadraticnePloskve, 0, velikost, 4, 1);
            sklad.rotate(90, 1, 0, 0);
        }
        glPointSize(1.4f);
        glBegin(GL_POINTS);
        glVertex3f(0, 0, 0);
        glEnd();
    } else {
        const float* m = sklad.m();
        float n[3];
        normala(n, m, 0, 1, 0);
        const std::uint8_t* b = barvaZaOglisca();
        if (!samoTocka) {
            // The disk's four corners at 0, 90, 180, 270 degrees, texture mapped
            // as the quadric maps it.
            MrezaDrevesa::Paket& p = mreza.listi;
            const std::uint32_t a = std::uint32_t(p.oglisca.size());
            const float v = velikost;
            MrezaDrevesa::Oglisce* o = p.oglisca.dodaj(4);
            oglisce(o[0], m, 0, 0, -v, n, b, 0.5f, 1.0f);
            oglisce(o[1], m, v, 0, 0, n, b, 1.0f, 0.5f);
            oglisce(o[2], m, 0, 0, v, n, b, 0.5f, 0.0f);
            oglisce(o[3], m, -v, 0, 0, n, b, 0.0f, 0.5f);
            std::uint32_t* k = p.indeksi.dodaj(6);
            k[0] = a;
            k[1] = a + 1;
            k[2] = a + 2;
            k[3] = a;
            k[4] = a + 2;
            k[5] = a + 3;
        }
        oglisce(*mreza.tocke.oglisca.dodaj(1), m, 0, 0, 0, n, b, 0.5f, 1.0f);
    }
    nastaviBarvo(0.5f, 0.5f, 0.5f, 1.0f);
}

void DelckiDrevesa::list(float velikost, int idVeje) {
    if (listiPolni())
        return;
    if (serializatorDelckovDrevesa.exportingToPoints)
        serializatorDelckovDrevesa.serializirajList(velikost, idVeje);
    risiList(velikost);
}

// The flutter turn: the axis takes the wind vector's y, x, z in this order.
void DelckiDrevesa::zalistaj(double kotZasukaVeter, const Tocka& v) {
    sklad.rotate(float(kotZasukaVeter), v.y, v.x, v.z);
}

void DelckiDrevesa::narisiListe(int tipListov, double velikost, double globinaVejice, int stListov,
                                Tocka& vektorZasukaVeter, int idVeje) {
    const int n = stListov;
    if (n <= 0 || listiPolni())
        return;
    const Tocka& v = vektorZasukaVeter;
    double a = maxKotZasukaVetra;
    // Without flutter (a = 0) the limit cannot change a: no arc sine needed.
    if (a != 0) {
        const double fi =
            std::fabs(std::asin(std::sqrt(double(v.y) * v.y + double(v.z) * v.z)) * 180.0 / M_PI);
        if (std::fabs(a) > fi)
            a = a > 0 ? fi : -fi;
    }
    const double kot = std::sin(1.97 * pogled.cas) * a;
    double delcek = globinaVejice / n;
    if (pogled.wireframe) {
        zicnatiListi(velikost, delcek, std::min(n, najvecListov - this->stListov));
        return;
    }
    if (sklad.naGl)
        glBindTexture(GL_TEXTURE_2D, pogled.textureNames[1]);
    const float fv = float(velikost);
    // A full frame stops adding leaves; those added keep their places.
    auto spirala = [&](int m, double korak) {
        for (int i = 0; i < m && !listiPolni(); ++i) {
            sklad.push();
            sklad.translate(0, 0, -fv);
            if (i > 0)
                sklad.rotate(float(korak * i), 0, 1, 0);
            zalistaj(kot, v);
            sklad.translate(0, 0, fv);
            sklad.rotate(float(double(i) / m * (double(m - i) / m) * 30.0), 1, 0, 0);
            list(fv, idVeje);
            sklad.pop();
            sklad.translate(0, float(-delcek), 0);
        }
    };
    switch (tipListov) {
    case 0: // Spiral
    case 1: // Stacked
        sklad.translate(0, 0, fv);
        spirala(n, tipListov == 0 ? 197.0 : 180.0);
        break;
    case 2: { // Staggered: an odd leaf sits on the tip
        int m = n;
        if (n % 2 == 1) {
            // The turn to the tip is undone by the opposite turn and shift, not
            // by a pop: the stepped leaves start from the frame that leaves.
            sklad.translate(0, fv, 0);
            sklad.rotate(180, 0, 0, 1);
            sklad.push();
            list(fv, idVeje);
            sklad.pop();
            sklad.rotate(-180, 0, 0, 1);
            sklad.translate(0, -fv, 0);
            m = n - 1;
        }
        if (m > 0)
            delcek = globinaVejice / m;
        sklad.translate(0, 0, fv);
        spirala(m, 197.0);
        break;
    }
    case 3: { // Bunched
        const int q = 90 / n;
        for (int i = 0; i < n && !listiPolni(); ++i) {
            sklad.push();
            sklad.rotate(float(i * q - 135), 1, 0, 0);
            sklad.translate(0, 0, fv);
            zalistaj(kot, v);
            list(fv, idVeje);
            sklad.pop();
        }
        break;
    }
    case 4: // Coniferous
        for (int i = 0; i < n && !listiPolni(); ++i) {
            sklad.push();
            if (i > 0)
                sklad.rotate(float(197.0 * i), 0, 1, 0);
            zalistaj(kot, v);
            sklad.rotate(-70, 1, 0, 0);
            sklad.translate(0, 0, fv);
            list(fv, idVeje);
            sklad.pop();
            sklad.translate(0, float(-delcek), 0);
        }
        break;
    default:
        break;
    }
}

// The twig's leaves as one closed outline, no texture and no flutter.
void DelckiDrevesa::zicnatiListi(double velikost, double delcek, int n) {
    stListov += n;
    std::vector<float> t;
    for (int i = 0; i < n; ++i) {
        const double y = -i * delcek;
        const double s = i % 2 == 0 ? velikost : -velikost;
        const double k[4][3] = {{0, y, 0}, {velikost, y, s}, {0, y, 2 * s}, {-velikost, y, s}};
        for (const auto& p : k)
            for (double c : p)
                t.push_back(float(c));
    }
    if (sklad.naGl) {
        glBegin(GL_LINE_LOOP);
        for (size_t i = 0; i < t.size(); i += 3)
            glVertex3f(t[i], t[i + 1], t[i + 2]);
        glEnd();
        return;
    }
    const float* m = sklad.m();
    const size_t st = t.size() / 3;
    for (size_t i = 0; i < st; ++i) {
        const size_t j = (i + 1) % st;
        crta(m, t[3 * i], t[3 * i + 1], t[3 * i + 2], 0, t[3 * j], t[3 * j + 1], t[3 * j + 2], 0);
    }
}

} // namespace arbo
