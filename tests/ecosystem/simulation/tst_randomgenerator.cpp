#include "ecosystem/simulation/randomgenerator.h"

#include <QtTest>

using ecosystem::CRandomGenerator;

// state * 69069 modulo 2^33, the draw the low 32 bits of the new state modulo
// the range: draws and states worked out by hand, at the edges of the state.
class TestRandomGenerator : public QObject {
    Q_OBJECT
private slots:
    void drawsByHand_data() {
        QTest::addColumn<qulonglong>("state");
        QTest::addColumn<unsigned>("range");
        QTest::addColumn<unsigned>("draw");
        QTest::addColumn<qulonglong>("next");
        QTest::newRow("first from 1") << 1ULL << 100000u << 69069u << 69069ULL;
        QTest::newRow("second from 1") << 69069ULL << 100000u << 59465u << 4770526761ULL;
        // 4770526761 * 69069 mod 2^33 = 2801775573, above 2^32: its low bits count.
        QTest::newRow("state past 2^32") << 4770526761ULL << 4096u << 981u << 2801775573ULL;
        QTest::newRow("2^32 stays put") << (1ULL << 32) << 100000u << 0u << (1ULL << 32);
        QTest::newRow("zero stays zero") << 0ULL << 10u << 0u << 0ULL;
        QTest::newRow("range one") << 12345ULL << 1u << 0u << 852656805ULL;
    }
    void drawsByHand() {
        QFETCH(qulonglong, state);
        QFETCH(unsigned, range);
        QFETCH(unsigned, draw);
        QFETCH(qulonglong, next);
        unsigned long long s = state;
        QCOMPARE(CRandomGenerator::randomGenerator(range, s), draw);
        QCOMPARE(qulonglong(s), next);
    }

    void stateKeepsOnly33Bits() {
        unsigned long long s = 1;
        for (int i = 0; i < 1000; ++i) {
            CRandomGenerator::randomGenerator(7, s);
            QVERIFY(s < (1ULL << 33));
        }
    }
};

QTEST_GUILESS_MAIN(TestRandomGenerator)
#include "tst_randomgenerator.moc"
