#include "arbo/presek.h"
#include "arbo/tocka.h"

#include <QtTest>

#include <cmath>

using arbo::Tocka;

class TestTocka : public QObject {
    Q_OBJECT
private slots:
    void lengthAndNormalize() {
        Tocka t(3, 0, 4);
        QCOMPARE(t.dolzina(), 5.0);
        t.normalize();
        QCOMPARE(t.x, 0.6f);
        QCOMPARE(t.y, 0.0f);
        QCOMPARE(t.z, 0.8f);
    }
    void normalizeOfZeroStaysFinite() {
        Tocka t(0, 0, 0);
        t.normalize();
        QVERIFY(t.x == 0 && t.y == 0 && t.z == 0);
    }
    void crossProductIsRightHanded() {
        const Tocka c = Tocka::vektorskiProd(Tocka(1, 0, 0), Tocka(0, 1, 0));
        QCOMPARE(c.x, 0.0f);
        QCOMPARE(c.y, 0.0f);
        QCOMPARE(c.z, 1.0f);
        const Tocka d = Tocka::vektorskiProd(Tocka(0, 1, 0), Tocka(1, 0, 0));
        QCOMPARE(d.z, -1.0f);
    }
    void arithmetic() {
        const Tocka a(1.5f, -2, 3), b(0.5f, 4, -1);
        const Tocka s = a + b, d = a - b, m = a * 2.0f;
        QCOMPARE(s.x, 2.0f);
        QCOMPARE(s.y, 2.0f);
        QCOMPARE(s.z, 2.0f);
        QCOMPARE(d.x, 1.0f);
        QCOMPARE(d.y, -6.0f);
        QCOMPARE(d.z, 4.0f);
        QCOMPARE(m.y, -4.0f);
        QCOMPARE(a.skalarniProdukt(b), 0.75 - 8 - 3);
    }
    void crossProductCancelsInDoubleBeforeRounding() {
        // The products are exact in double: the difference of two nearly equal
        // float products comes out exactly, not as float rounding noise.
        const Tocka a(16777217.0f, 1, 0), b(1, 16777215.0f, 0);
        const Tocka c = Tocka::vektorskiProd(a, b);
        const double exact = double(a.x) * b.y - double(a.y) * b.x;
        QCOMPARE(c.z, float(exact));
    }
    void dotProductRoundsOnceAtTheEnd() {
        // 1 + 3*2^-55 + 3*2^-55 = 1 + 0.75 * 2^-52: one rounding gives 1 + 2^-52,
        // a double running sum drops each small term and gives 1.
        const float e = std::ldexp(3.0f, -55);
        const Tocka a(1, 1, 1), b(1, e, e);
        QCOMPARE(a.skalarniProdukt(b), 1.0 + std::ldexp(1.0, -52));
    }
    void presekCopiesValidVertices() {
        arbo::Presek p;
        p.stTock = 4;
        for (int i = 0; i < 4; ++i)
            p.tocke[i] = Tocka(float(i), 0, 0);
        const arbo::Presek q = p;
        QCOMPARE(q.stTock, 4);
        QCOMPARE(q.tocke[3].x, 3.0f);
    }
};

QTEST_GUILESS_MAIN(TestTocka)
#include "tst_tocka.moc"
