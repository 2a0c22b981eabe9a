#pragma once

// A second, independent grower for the tests: the growing, drawing and export
// rules applied straight to OpenGL's own matrix stack (double-argument GL
// calls, as the rules name them), writing the text of the geometry file of one
// frame. Only what reaches the file is done: no drawing.

#include "arbo/parametridrevesa.h"

#include <GL/gl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

class NeodvisnaRast {
public:
    using V3 = std::array<float, 3>;
    using M16 = std::array<float, 16>;

    const arbo::ParametriDrevesa& P;
    double cas = 0;     // wind phase of the frame (already advanced)
    bool veter = false; // wind sway on
    int stTock = 4;     // ring size
    std::ostringstream izhod;

    explicit NeodvisnaRast(const arbo::ParametriDrevesa& p) : P(p) {}

    // One frame from the tree's root in OpenGL's current frame.
    std::string rasti(int stZil, double aktivnaVisina) {
        srand(1);
        idNext = 1;
        maxKot = veter ? std::sin(cas) * std::sin(cas) * 50 + 20 : 0;
        M16 I{};
        for (int k = 0; k < 16; k += 5)
            I[k] = 1;
        drevca(stZil, 0, 0, 1.0, aktivnaVisina, I, I, nullptr, 0);
        return izhod.str();
    }

private:
    int idNext = 1;
    double maxKot = 0;
    std::vector<V3> vrh; // the top ring of the last segment written

    static constexpr double PI = 3.14159265358979323846;

    static double nagib(double a, double b) {
        return std::fabs(std::asin(std::sqrt(a * a + b * b)) * 180.0 / PI);
    }
    static double omeji(double kot, double fi) {
        return std::fabs(kot) > fi ? (kot <= 0 ? -fi : fi) : kot;
    }

    static V3 tocka(double pomikY, double sirina, double sirinaZ, double kot) {
        glPushMatrix();
        if (pomikY != 0)
            glTranslated(0, pomikY, 0);
        glRotated(kot, 0, 1, 0);
        glTranslated(sirina, 0, sirinaZ);
        GLfloat m[16];
        glGetFloatv(GL_MODELVIEW_MATRIX, m);
        glPopMatrix();
        return {m[12], m[13], m[14]};
    }
    void pisi(const V3& t) { izhod << t[0] << ' ' << t[1] << ' ' << t[2] << '\n'; }

    void segment(double h, double b, double t, const std::vector<V3>* spodaj, int id) {
        izhod << "B " << id << '\n';
        std::vector<V3> dno;
        if (spodaj)
            dno = *spodaj;
        else
            for (int k = 0; k < stTock; ++k)
                dno.push_back(tocka(0, b, b, 360.0 / stTock * k));
        vrh.clear();
        for (int k = 0; k < stTock; ++k)
            vrh.push_back(tocka(h, t, t, 360.0 / stTock * k));
        const int n = int(dno.size());
        for (int i = 0; i < n; ++i) {
            const int j = (i + 1) % n;
            pisi(dno[j]);
            pisi(vrh[j]);
            pisi(vrh[i]);
            pisi(dno[i]);
        }
    }

    void list(double s, int id) {
        izhod << "L " << id << '\n';
        for (int k = 0; k < 4; ++k)
            pisi(tocka(0, s, 0, 90.0 * k));
    }

    void listi(double globina, V3 v, int id) {
        const int n = P.gostotaListov;
        if (n <= 0)
            return;
        const double velikost = P.listSize;
        const double a = omeji(maxKot, nagib(v[1], v[2]));
        const double kot = std::sin(1.97 * cas) * a;
        auto trepet = [&] { glRotated(kot, v[1], v[0], v[2]); };
        double delcek = globina / n;
        auto spirala = [&](int m, double korak) {
            for (int i = 0; i < m; ++i) {
                glPushMatrix();
                glTranslated(0, 0, -velikost);
                if (i > 0)
                    glRotated(korak * i, 0, 1, 0);
                trepet();
                glTranslated(0, 0, velikost);
                glRotated(double(i) / m * (double(m - i) / m) * 30, 1, 0, 0);
                list(velikost, id);
                glPopMatrix();
                glTranslated(0, -delcek, 0);
            }
        };
        switch (P.tipListov) {
        case 0:
        case 1:
            glTranslated(0, 0, velikost);
            spirala(n, P.tipListov == 0 ? 197 : 180);
            break;
        case 2: {
            int m = n;
            if (n % 2 == 1) {
                glTranslated(0, velikost, 0);
                glRotated(180, 0, 0, 1);
                glPushMatrix();
                list(velikost, id);
                glPopMatrix();
                glRotated(-180, 0, 0, 1);
                glTranslated(0, -velikost, 0);
                m = n - 1;
            }
            if (m > 0)
                delcek = globina / m;
            glTranslated(0, 0, velikost);
            spirala(m, 197);
            break;
        }
        case 3:
            for (int i = 0; i < n; ++i) {
                glPushMatrix();
                glRotated(i * (90 / n) - 135, 1, 0, 0);
                glTranslated(0, 0, velikost);
                trepet();
                list(velikost, id);
                glPopMatrix();
            }
            break;
        case 4:
            for (int i = 0; i < n; ++i) {
                glPushMatrix();
                if (i > 0)
                    glRotated(197 * i, 0, 1, 0);
                trepet();
                glRotated(-70, 1, 0, 0);
                glTranslated(0, 0, velikost);
                list(velikost, id);
                glPopMatrix();
                glTranslated(0, -delcek, 0);
            }
            break;
        }
    }

    M16 inverz(const M16& m, double ga, V3 gv, double gc, double kot, double wa, V3 wv) {
        glPushMatrix();
        glLoadIdentity();
        if (wa != 0)
            glRotated(-wa, wv[0], wv[1], wv[2]);
        if (kot != 0)
            glRotated(-kot, 0, 0, 1);
        if (gc != 0)
            glRotated(-gc, 0, 0, 1);
        glRotated(-P.phyllotaxisAngle, 0, 1, 0);
        if (ga != 0)
            glRotated(-ga, gv[0], gv[1], gv[2]);
        glMultMatrixf(m.data());
        M16 r;
        glGetFloatv(GL_MODELVIEW_MATRIX, r.data());
        glPopMatrix();
        return r;
    }

    void drevca(int stZil, int G, int W, double L0, double akt, M16 Mi, M16 Mp,
                const std::vector<V3>* spodaj, int id) {
        if (stZil < 1 || (G != 0 && (G > 14 || W > 49)))
            return;
        const int w = std::min(W, 49);
        // gravimorphism
        double ga = 0;
        V3 gv{0, 0, 0};
        const double a = P.graviMorfizem[G][w];
        if (a != 0) {
            const float dx = -Mi[4], dz = -Mi[6];
            gv = {dz, 0, -dx};
            ga = omeji(a, nagib(dx, dz));
            glRotated(ga, gv[0], gv[1], gv[2]);
        }
        glRotated(P.phyllotaxisAngle, 0, 1, 0);
        // split
        const int gl = int(std::floor((stZil - 2) * P.verjetnostVejitve[G][w] + 0.5)) + 1;
        const int st = stZil - gl;
        double kotG = double(st) / stZil * P.kotVejitve[G][w];
        const double kotS = P.kotVejitve[G][w] - kotG;
        // dimensions
        const double sp = std::sqrt(double(stZil)) * P.sirinaSteblaNaZilo;
        const double zg = std::sqrt(double(gl)) * P.sirinaSteblaNaZilo;
        auto R = [&](int n) {
            double r = std::sqrt(double(n)) / std::sqrt(double(stZil));
            if (P.charMin[G][w] > 0 && P.charMin[G][w] > r)
                r = P.charMin[G][w];
            if (P.charMax[G][w] > 0 && r > P.charMax[G][w])
                r = P.charMax[G][w];
            return r;
        };
        const double L1 = R(gl) * L0, l1 = L0 * P.lengthScaling[G][w];
        const double L2 = R(st) * L0, l2 = L0 * P.lengthScaling[G][w];
        // wind
        double wa = 0;
        V3 wv{0, 0, 0};
        if (veter) {
            const V3 v{0, -Mp[1], -Mp[2]};
            const double k = (1.1 - stZil / P.stVsehZil) * P.windSpeed;
            const double lim = omeji(k, nagib(v[1], v[2]));
            wa = k;
            wv = v;
            const int r1 = rand(), r2 = rand();
            const double trd = 1.02 - std::pow(double(stZil) / P.stVsehZil, 0.25);
            const double sx =
                std::sin(2 * PI * r1 / 2147483647 + cas) * PI * trd * akt * P.windSpeedNodirect;
            const double sz =
                std::sin(2 * PI * r2 / 2147483647 + cas) * PI * trd * akt * P.windSpeedNodirect;
            glRotated(sx, 1, 0, 0);
            glRotated(sz, 0, 0, 1);
            glRotated(lim, wv[0], wv[1], wv[2]);
        }
        if (W < 50) {
            glPushMatrix();
            segment(akt, sp, zg, spodaj, id);
            glPopMatrix();
        }
        std::vector<V3> novi(vrh.size());
        for (size_t i = 0; i < vrh.size(); ++i)
            novi[i] = vrh[(i + vrh.size() / 4) % vrh.size()];
        if (W > 2500 || stZil == 1) {
            const V3 v{0, -Mp[1], -Mp[2]};
            glTranslated(0, akt, 0);
            if (P.listi)
                listi(akt, v, id);
            return;
        }
        glTranslated(0, akt, 0);
        double gc = 0;
        if (G == 0) {
            gc = P.graviCentralizem * kotG;
            glRotated(gc, 0, 0, 1);
        }
        if (st > 0) {
            const M16 Mi2 = inverz(Mi, ga, gv, gc, kotS, 0, wv);
            const M16 Mp2 = inverz(Mp, ga, gv, gc, kotS, wa, wv);
            glPushMatrix();
            glTranslated(-0.5 * (zg - P.sirinaSteblaNaZilo * std::sqrt(double(st))), 0, 0);
            glRotated(kotS, 0, 0, 1);
            const int idS = idNext++;
            drevca(st, G + 1, W + 1, L2, l2, Mi2, Mp2, nullptr, idS);
            glPopMatrix();
            glRotated(-kotG, 0, 0, 1);
        } else {
            kotG = 0;
        }
        if (gl > 0) {
            Mi = inverz(Mi, ga, gv, gc, -kotG, 0, wv);
            Mp = inverz(Mp, ga, gv, gc, -kotG, wa, wv);
            drevca(gl, G, W + 1, L1, l1, Mi, Mp, &novi, id);
        }
    }
};
