#include "ecosystem/simulation/randomgenerator.h"

#include <QtTest>

using ecosystem::CRandomGenerator;

class TestRandomGenerator : public QObject {
    Q_OBJECT
private slots:
    void firstDrawsFromOne() {
        unsigned long long s = 1;
        QCOMPARE(CRandomGenerator::randomGenerator(100000, s), 69069u % 100000u);
        QCOMPARE(s, 69069ULL);
        QCOMPARE(CRandomGenerator::randomGenerator(100000, s), 59465u);
        QCOMPARE(s, 4770526761ULL);
    }
    void stateKeepsOnly33Bits() {
        unsigned long long s = 1;
        for (int i = 0; i < 1000; ++i) {
            CRandomGenerator::randomGenerator(7, s);
            QVERIFY(s < (1ULL << 33));
        }
    }
    void twoToThe32StaysPut() {
        unsigned long long s = 1ULL << 32;
        for (int i = 0; i < 5; ++i)
            QCOMPARE(CRandomGenerator::randomGenerator(100000, s), 0u);
        QCOMPARE(s, 1ULL << 32);
    }
    void zeroStaysZero() {
        unsigned long long s = 0;
        QCOMPARE(CRandomGenerator::randomGenerator(10, s), 0u);
        QCOMPARE(s, 0ULL);
    }
    void reductionUsesLow32Bits() {
        // A state above 2^32 is reduced modulo 2^32 before the range is applied.
        unsigned long long s = 4770526761ULL; // after the second draw from 1
        const unsigned long long next = (s * 69069ULL) % (1ULL << 33);
        QCOMPARE(CRandomGenerator::randomGenerator(4096, s),
                 static_cast<unsigned>((next % (1ULL << 32)) % 4096));
    }
    void rangeOneAlwaysZero() {
        unsigned long long s = 12345;
        for (int i = 0; i < 10; ++i)
            QCOMPARE(CRandomGenerator::randomGenerator(1, s), 0u);
    }
};

QTEST_GUILESS_MAIN(TestRandomGenerator)
#include "tst_randomgenerator.moc"
