#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/entities/pogoj.h"
#include "ecosystem/simulation/entities/rastlina.h"
#include "ecosystem/simulation/entities/vrstarastlin.h"
#include "ecosystem/simulation/statistics/entitiesstatistics.h"
#include "support/terrain.h"

#include <QtTest>

#include <cmath>

using ecosystem::Tocka2i;
using ecosystem::data::CTerrainData;
using ecosystem::simulationEntities::CPogoj;
using ecosystem::simulationEntities::CRastlina;
using ecosystem::simulationEntities::CVrstaRastlin;
using ecosystem::statistics::CEntitiesStatistics;

class TestEntities : public QObject {
    Q_OBJECT
private slots:
    void growthFactor() {
        CPogoj pogoj(0.5f, 0.1f, 0.3f, 2.0f);
        QCOMPARE(pogoj.getFaktorRasti(0.45f), 1.0f);
        QCOMPARE(pogoj.getFaktorRasti(0.9f), 1.0f); // above the need
        QCOMPARE(pogoj.getFaktorRasti(0.2f), 0.0f); // v = 0.6 < 1
        CPogoj strog(0.5f, 0.1f, 0.3f, 5.0f);
        QCOMPARE(strog.getFaktorRasti(0.2f), 1.0f - float(0.3f * 5.0f)); // v = 1.5 -> -0.5
        QVERIFY(strog.getFaktorRasti(0.2f) < 0.0f);
    }

    void conditionDeathDrawsOnlyBeyondTolerance() {
        CPogoj pogoj(0.5f, 0.1f, 0.7f, 1.0f);
        unsigned long long tok = 1;
        QVERIFY(!pogoj.umreZaradiNeugodnegaPogoja(tok, 0.55f));
        QVERIFY(!pogoj.umreZaradiNeugodnegaPogoja(tok, 0.45f));
        QCOMPARE(tok, 1ULL); // no draw inside the tolerance
        // Beyond it: first draw from 1 is 69069 -> p = 0.69069 < 0.7: dies.
        QVERIFY(pogoj.umreZaradiNeugodnegaPogoja(tok, 0.9f));
        QCOMPARE(tok, 69069ULL);
        // Second draw 59465 -> 0.59465; a species with 0.5 survives it.
        CPogoj blag(0.5f, 0.1f, 0.5f, 1.0f);
        QVERIFY(!blag.umreZaradiNeugodnegaPogoja(tok, 0.0f));
        QCOMPARE(tok, 4770526761ULL);
    }

    void plantSamplesItsCellAtBirth() {
        CTerrainData teren;
        testterrain::pripravi(teren, 6, 5);
        const int celica = 3 + 2 * 6;
        teren.terrainInclination[celica] = 1.0f;
        teren.terrainMoisture[celica] = 0.25f;
        teren.terrainSunniness[celica] = 0.75f;
        teren.terrainWindiness[celica] = 0.125f;
        CEntitiesStatistics statistika;
        testterrain::Lastnosti l;
        l.skodljivostNaklona = 0.05f;
        CVrstaRastlin vrsta = testterrain::vrsta(&teren, &statistika, l);

        CRastlina::randomCasSmrti = 1;
        CRastlina rastlina(vrsta, Tocka2i(3, 2), arbo::Tocka(80.0f, 250.0f, 60.0f));
        QCOMPARE(rastlina.strminaTukaj, 1.0f);
        QCOMPARE(rastlina.vlaznostTukaj, 0.25f);
        QCOMPARE(rastlina.sonceTukaj, 0.75f);
        QCOMPARE(rastlina.veterTukaj, 0.125f);
        QCOMPARE(rastlina.visinaTukajNormNadVodo, 0.5f); // 250 of 500, water at 0
        QCOMPARE(rastlina.trenutnaStarost, 0);
        QCOMPARE(rastlina.trenutnaVelikost, 0.0f);
        QCOMPARE(rastlina.trenutnaMoc, 0.0f);
        QVERIFY(!rastlina.jeDominirana);
        // Age of death: casStarosti + draw(casSigurneSmrti - casStarosti) from the stream.
        unsigned long long tok = 1;
        QCOMPARE(rastlina.umreNaKoraku, float(10 + testterrain::naslednje(tok, 15)));
        QCOMPARE(CRastlina::randomCasSmrti, tok);
        // Every condition tolerated; slope 1 with harm 0.05 leaves 1 - 0.0025.
        QCOMPARE(rastlina.prodornost, 0.9975f);
        // The height is taken above the water, over the range above it.
        teren.waterHeight = 0.2f;
        CRastlina nadVodo(vrsta, Tocka2i(1, 1), arbo::Tocka(30.0f, 300.0f, 30.0f));
        QCOMPARE(nadVodo.visinaTukajNormNadVodo, float((0.6f - 0.2f) / (1.0 - 0.2f)));
    }

    void intolerableConditionGivesNoPenetration() {
        CTerrainData teren;
        testterrain::pripravi(teren, 4, 4, 0.0f, 0.1f); // dry cells
        CEntitiesStatistics statistika;
        CVrstaRastlin vrsta = testterrain::vrsta(&teren, &statistika);
        vrsta.vlaga = CPogoj(0.6f, 0.1f, 0.3f, 5.0f); // deviation 0.5 -> factor -1.5 -> 0
        CRastlina rastlina(vrsta, Tocka2i(0, 0), arbo::Tocka(0, 100, 0));
        QCOMPARE(rastlina.prodornost, 0.0f);
        vrsta.vlaga = CPogoj(0.6f, 0.1f, 0.3f, 1.0f); // deviation 0.5 * 1 < 1 -> 0
        CRastlina druga(vrsta, Tocka2i(0, 0), arbo::Tocka(0, 100, 0));
        QCOMPARE(druga.prodornost, 0.0f);
    }

    void crownsThatJustTouchDoNotOverlap() {
        CTerrainData teren;
        testterrain::pripravi(teren, 4, 4);
        CEntitiesStatistics statistika;
        CVrstaRastlin vrsta = testterrain::vrsta(&teren, &statistika);
        CRastlina a(vrsta, Tocka2i(0, 0), arbo::Tocka(0.0f, 0.0f, 0.0f));
        CRastlina b(vrsta, Tocka2i(0, 0), arbo::Tocka(3.0f, 4.0f, 0.0f)); // 5 m apart in 3-D
        a.trenutniRadij = 2.0f;
        b.trenutniRadij = 3.0f;
        QVERIFY(!a.presekaRadijRastline(b));
        b.trenutniRadij = 3.001f;
        QVERIFY(a.presekaRadijRastline(b));
        QVERIFY(b.presekaRadijRastline(a));
        // The height counts: on the ground they would overlap, 4 m apart vertically they do not.
        CRastlina c(vrsta, Tocka2i(0, 0), arbo::Tocka(3.0f, 0.0f, 0.0f));
        c.trenutniRadij = 1.5f;
        QVERIFY(a.presekaRadijRastline(c));
        c.pozicija3D.y = 4.0f;
        QVERIFY(!a.presekaRadijRastline(c));
    }

    void idsCountAcrossSpecies() {
        CTerrainData teren;
        testterrain::pripravi(teren, 4, 4);
        CEntitiesStatistics statistika;
        std::vector<CVrstaRastlin> vrste;
        vrste.reserve(2);
        vrste.push_back(testterrain::vrsta(&teren, &statistika));
        testterrain::Lastnosti druga;
        druga.tip = 1;
        vrste.push_back(testterrain::vrsta(&teren, &statistika, druga));
        std::vector<std::vector<CRastlina*>> celice(16);
        const int prvi = CRastlina::lastID + 1;
        vrste[0].dodajNovPrimerek(celice.data(), Tocka2i(1, 2), arbo::Tocka(30, 100, 55));
        vrste[1].dodajNovPrimerek(celice.data(), Tocka2i(1, 2), arbo::Tocka(35, 100, 60));
        vrste[0].dodajNovPrimerek(celice.data(), Tocka2i(3, 0), arbo::Tocka(80, 100, 5));
        QCOMPARE(vrste[0].ziviPrimerkiTeVrste.front().id, prvi);
        QCOMPARE(vrste[1].ziviPrimerkiTeVrste.front().id, prvi + 1);
        QCOMPARE(vrste[0].ziviPrimerkiTeVrste.back().id, prvi + 2);
        // The cell index points at the list elements, in order of creation.
        QCOMPARE(celice[1 + 2 * 4].size(), size_t(2));
        QCOMPARE(celice[1 + 2 * 4][0], &vrste[0].ziviPrimerkiTeVrste.front());
        QCOMPARE(celice[1 + 2 * 4][1], &vrste[1].ziviPrimerkiTeVrste.front());
        QCOMPARE(celice[3][0], &vrste[0].ziviPrimerkiTeVrste.back());
        QCOMPARE(vrste[1].ziviPrimerkiTeVrste.front().vrstaRastline, &vrste[1]);
    }

    void copiedSpeciesOwnsItsPlants() {
        CTerrainData teren;
        testterrain::pripravi(teren, 4, 4);
        CEntitiesStatistics statistika;
        CVrstaRastlin vrsta = testterrain::vrsta(&teren, &statistika);
        std::vector<std::vector<CRastlina*>> celice(16);
        vrsta.dodajNovPrimerek(celice.data(), Tocka2i(0, 0), arbo::Tocka(1, 100, 1));
        CVrstaRastlin kopija(vrsta);
        QCOMPARE(kopija.ziviPrimerkiTeVrste.size(), size_t(1));
        QCOMPARE(kopija.ziviPrimerkiTeVrste.front().vrstaRastline, &kopija);
        QCOMPARE(vrsta.ziviPrimerkiTeVrste.front().vrstaRastline, &vrsta);
        QVERIFY(&kopija.ziviPrimerkiTeVrste.front() != &vrsta.ziviPrimerkiTeVrste.front());
    }
};

QTEST_GUILESS_MAIN(TestEntities)
#include "tst_entities.moc"
