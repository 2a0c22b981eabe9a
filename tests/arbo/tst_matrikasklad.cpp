// The CPU matrix stack must hold exactly the bits of OpenGL's single-precision
// rules, written out term by term here: rotation matrices from sinf/cosf of the
// angle in radians (axis-aligned ones without normalising the axis), products
// summed left to right, affine products without the last row.

#include "arbo/matrikasklad.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <cstring>
#include <vector>

using arbo::Matrika;
using arbo::MatrikaSklad;

namespace {

float& el(Matrika& m, int r, int c) {
    return m.m[c * 4 + r];
}
float el(const Matrika& m, int r, int c) {
    return m.m[c * 4 + r];
}

Matrika enota() {
    Matrika m;
    for (int k = 0; k < 16; ++k)
        m.m[k] = k % 5 == 0 ? 1.0f : 0.0f;
    return m;
}

// False when the axis is too short to turn about.
bool rotacija(Matrika& r, float kot, float x, float y, float z) {
    const float s = sinf(float(kot * M_PI / 180.0)), c = cosf(float(kot * M_PI / 180.0));
    r = enota();
    if (x == 0 && y == 0 && z != 0) {
        el(r, 0, 0) = el(r, 1, 1) = c;
        el(r, 0, 1) = z < 0 ? s : -s;
        el(r, 1, 0) = z < 0 ? -s : s;
    } else if (x == 0 && y != 0 && z == 0) {
        el(r, 0, 0) = el(r, 2, 2) = c;
        el(r, 0, 2) = y < 0 ? -s : s;
        el(r, 2, 0) = y < 0 ? s : -s;
    } else if (x != 0 && y == 0 && z == 0) {
        el(r, 1, 1) = el(r, 2, 2) = c;
        el(r, 1, 2) = x < 0 ? s : -s;
        el(r, 2, 1) = x < 0 ? -s : s;
    } else {
        const float mag = sqrtf(x * x + y * y + z * z);
        if (mag <= 1.0e-4f)
            return false;
        x /= mag;
        y /= mag;
        z /= mag;
        const float k = 1.0f - c;
        el(r, 0, 0) = k * (x * x) + c;
        el(r, 0, 1) = k * (x * y) - z * s;
        el(r, 0, 2) = k * (z * x) + y * s;
        el(r, 1, 0) = k * (x * y) + z * s;
        el(r, 1, 1) = k * (y * y) + c;
        el(r, 1, 2) = k * (y * z) - x * s;
        el(r, 2, 0) = k * (z * x) - y * s;
        el(r, 2, 1) = k * (y * z) + x * s;
        el(r, 2, 2) = k * (z * z) + c;
    }
    return true;
}

Matrika krat(const Matrika& a, const Matrika& b, bool afino) {
    Matrika p;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) {
            if (afino && i == 3) {
                el(p, i, j) = j == 3 ? 1.0f : 0.0f;
                continue;
            }
            float v =
                el(a, i, 0) * el(b, 0, j) + el(a, i, 1) * el(b, 1, j) + el(a, i, 2) * el(b, 2, j);
            if (!afino)
                v = v + el(a, i, 3) * el(b, 3, j);
            else if (j == 3)
                v = v + el(a, i, 3);
            el(p, i, j) = v;
        }
    return p;
}

// The reference stack: a matrix and whether a general product was taken.
struct Nivo {
    Matrika m;
    bool splosna;
};

bool enaki(const Matrika& a, const float* b) {
    return std::memcmp(a.m, b, sizeof a.m) == 0;
}

} // namespace

class TestMatrikaSklad : public QObject {
    Q_OBJECT

private slots:
    void randomOperationsGiveTheSameBits() {
        QRandomGenerator g(11);
        const float koti[] = {197.0f, 394.0f, -90.0f, 90.0f, 180.0f, -180.0f, 33.75f, -11.25f};
        for (int poskus = 0; poskus < 50; ++poskus) {
            // A root with zeros of both signs, as camera matrices have.
            Matrika koren = enota();
            for (int k : {0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14})
                koren.m[k] = g.bounded(3) == 0 ? (g.bounded(2) ? 0.0f : -0.0f)
                                               : float(g.generateDouble() * 4 - 2);
            MatrikaSklad s;
            s.zacni(koren);
            std::vector<Nivo> ref{{koren, false}};
            for (int korak = 0; korak < 400; ++korak) {
                const int op = int(g.bounded(7));
                if (op == 0 && ref.size() < 20) {
                    s.push();
                    ref.push_back(ref.back());
                } else if (op == 1 && ref.size() > 1) {
                    s.pop();
                    ref.pop_back();
                } else if (op == 2) {
                    const float x = float(g.generateDouble() * 6 - 3), y = float(g.bounded(3)),
                                z = g.bounded(2) ? 0.0f : -0.5f;
                    s.translate(x, y, z);
                    Matrika& m = ref.back().m;
                    for (int r = 0; r < 4; ++r)
                        el(m, r, 3) =
                            el(m, r, 0) * x + el(m, r, 1) * y + el(m, r, 2) * z + el(m, r, 3);
                } else if (op == 3) {
                    Matrika b;
                    for (float& v : b.m)
                        v = float(g.generateDouble() * 2 - 1);
                    s.multiply(b);
                    ref.back() = {krat(ref.back().m, b, false), true};
                } else {
                    // Axis-aligned turns of either sign, general axes, a
                    // vanishing axis, recurring angles and a zero angle.
                    const float kot = g.bounded(8) == 0
                                          ? (g.bounded(2) ? 0.0f : -0.0f)
                                          : (g.bounded(2) ? koti[g.bounded(8)]
                                                          : float(g.generateDouble() * 720 - 360));
                    float os[3] = {0, 0, 0};
                    const int vrsta = int(g.bounded(5));
                    if (vrsta < 3)
                        os[vrsta] = g.bounded(2) ? 1.0f : -1.0f;
                    else if (vrsta == 3)
                        for (float& v : os)
                            v = float(g.generateDouble() * 2 - 1);
                    else
                        os[0] = os[1] = 1.0e-5f; // too short: no turn
                    s.rotate(kot, os[0], os[1], os[2]);
                    Matrika r;
                    if (kot != 0.0f && rotacija(r, kot, os[0], os[1], os[2]))
                        ref.back().m = krat(ref.back().m, r, !ref.back().splosna);
                }
                QVERIFY2(
                    enaki(ref.back().m, s.m()),
                    qPrintable(QString("try %1 step %2 op %3").arg(poskus).arg(korak).arg(op)));
            }
        }
    }

    void identityAndLoadIdentity() {
        const Matrika i = MatrikaSklad::identiteta();
        QVERIFY(enaki(enota(), i.m));
        MatrikaSklad s;
        Matrika m;
        for (int k = 0; k < 16; ++k)
            m.m[k] = float(k + 1);
        s.zacni(m);
        s.multiply(m); // general from here on
        s.loadIdentity();
        QVERIFY(enaki(enota(), s.m()));
        // After loading the identity the product is affine again: the last
        // row stays (0, 0, 0, 1) exactly.
        s.rotate(30, 1, 1, 0);
        QCOMPARE(s.m()[3], 0.0f);
        QCOMPARE(s.m()[15], 1.0f);
    }
};

QTEST_GUILESS_MAIN(TestMatrikaSklad)
#include "tst_matrikasklad.moc"
