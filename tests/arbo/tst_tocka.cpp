#include "arbo/tocka.h"

#include <QtTest>

#include <cmath>

using arbo::Tocka;

class TestTocka : public QObject {
    Q_OBJECT
private slots:
    void arithmetic() {
        Tocka t(3, 0, 4);
        QCOMPARE(t.dolzina(), 5.0);
        t.normalize();
        QCOMPARE(QList<float>({t.x, t.y, t.z}), QList<float>({0.6f, 0.0f, 0.8f}));
        Tocka nic(0, 0, 0);
        nic.normalize(); // stays finite
        QCOMPARE(QList<float>({nic.x, nic.y, nic.z}), QList<float>({0, 0, 0}));
        // Right-handed cross product.
        const Tocka c = Tocka::vektorskiProd(Tocka(1, 0, 0), Tocka(0, 1, 0));
        QCOMPARE(QList<float>({c.x, c.y, c.z}), QList<float>({0, 0, 1}));
        QCOMPARE(Tocka::vektorskiProd(Tocka(0, 1, 0), Tocka(1, 0, 0)).z, -1.0f);
        const Tocka a(1.5f, -2, 3), b(0.5f, 4, -1);
        const Tocka s = a + b, d = a - b, m = a * 2.0f;
        QCOMPARE(QList<float>({s.x, s.y, s.z}), QList<float>({2, 2, 2}));
        QCOMPARE(QList<float>({d.x, d.y, d.z}), QList<float>({1, -6, 4}));
        QCOMPARE(QList<float>({m.x, m.y, m.z}), QList<float>({3, -4, 6}));
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
};

QTEST_GUILESS_MAIN(TestTocka)
#include "tst_tocka.moc"
