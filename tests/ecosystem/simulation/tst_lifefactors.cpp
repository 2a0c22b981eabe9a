#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"
#include "ecosystem/simulation/entities/vrstarastlin.h"
#include "ecosystem/simulation/lifefactors.h"
#include "ecosystem/simulation/statistics/entitiesstatistics.h"
#include "support/terrain.h"

#include <QtTest>

using ecosystem::CEcosystemSimulation;
using ecosystem::LifeFactors;
using ecosystem::Tocka2i;
using ecosystem::data::CTerrainData;
using ecosystem::simulationEntities::CPogoj;
using ecosystem::simulationEntities::CRastlina;
using ecosystem::simulationEntities::CVrstaRastlin;
using ecosystem::statistics::CEntitiesStatistics;
using testterrain::naslednje;

class TestLifeFactors : public QObject {
    Q_OBJECT

    CTerrainData teren;
    CEntitiesStatistics statistika;
    std::vector<CVrstaRastlin> vrste;
    std::vector<std::vector<CRastlina*>> celice;
    LifeFactors* faktorji = nullptr;

    CRastlina& posadi(int vrsta, int x, int y, float px, float pz, float moc, float radij) {
        vrste[vrsta].dodajNovPrimerek(celice.data(), Tocka2i(x, y), arbo::Tocka(px, 100, pz));
        CRastlina& r = vrste[vrsta].ziviPrimerkiTeVrste.back();
        r.trenutnaMoc = moc;
        r.trenutniRadij = radij;
        r.umreNaKoraku = 1000;
        return r;
    }

private slots:
    void init() {
        testterrain::pripravi(teren, 6, 5);
        vrste.clear();
        vrste.reserve(2);
        vrste.push_back(testterrain::vrsta(&teren, &statistika));
        testterrain::Lastnosti druga;
        druga.tip = 1;
        druga.vplivMoci = 0.5f;
        vrste.push_back(testterrain::vrsta(&teren, &statistika, druga));
        celice.assign(30, {});
        delete faktorji;
        faktorji = new LifeFactors(&vrste);
        faktorji->setRastlinePoTerenu(celice.data());
        CVrstaRastlin::maxStKvadratovNajdemRadijSoseda = 1;
        statistika.umrliOstalo = statistika.umrliZaradiDominiranosti = statistika.umrliSkupaj = 0;
    }
    void cleanupTestCase() { delete faktorji; }

    void oldAgeIsBookedAsOther() {
        CRastlina& r = posadi(0, 2, 2, 60, 60, 0.5f, 1.0f);
        r.trenutnaStarost = 12;
        r.umreNaKoraku = 12.0f;
        r.jeDominirana = true;
        const unsigned long long dominanca = faktorji->randomSmrtiZaradiDominiranosti;
        QVERIFY(faktorji->umreSedaj(r));
        QCOMPARE(statistika.umrliOstalo, 1);
        QCOMPARE(statistika.umrliSkupaj, 1);
        QCOMPARE(statistika.umrliZaradiDominiranosti, 0);
        QVERIFY(r.jeDominirana); // the dominance test did not run
        QCOMPARE(faktorji->randomSmrtiZaradiDominiranosti, dominanca);
        r.trenutnaStarost = 11;
        QVERIFY(!faktorji->umreZaradiStarosti(r));
    }

    void weaknessAtExactlyOneTenth() {
        CRastlina& r = posadi(0, 2, 2, 60, 60, 0.5f, 1.0f);
        r.prodornost = 0.1f;
        QVERIFY(faktorji->umreZaradiSibkosti(r));
        r.prodornost = std::nextafter(0.1f, 1.0f);
        QVERIFY(!faktorji->umreZaradiSibkosti(r));
    }

    void equalStrengthsDominateEachOther() {
        // 0.4 x 1.0 in one species, 0.8 x 0.5 in the other: equal weighted strength.
        CRastlina& a = posadi(0, 2, 2, 60, 60, 0.4f, 1.0f);
        CRastlina& b = posadi(1, 2, 2, 61, 60, 0.8f, 1.0f);
        vrste[0].verjetnostUmrtjaObDominiranosti = 0.0f;
        vrste[1].verjetnostUmrtjaObDominiranosti = 0.0f;
        QVERIFY(!faktorji->umreZaradiDominiranosti(a));
        QVERIFY(a.jeDominirana);
        QVERIFY(!faktorji->umreZaradiDominiranosti(b));
        QVERIFY(b.jeDominirana);
        // A weaker neighbour does not dominate, even overlapping.
        b.trenutnaMoc = 0.79f;
        QVERIFY(!faktorji->umreZaradiDominiranosti(a));
        QVERIFY(!a.jeDominirana);
    }

    void dominanceDeathDrawsOnlyWhenDominated() {
        CRastlina& a = posadi(0, 2, 2, 60, 60, 0.4f, 1.0f);
        CRastlina& b = posadi(0, 3, 2, 75.5f, 60, 0.9f, 15.0f);
        vrste[0].verjetnostUmrtjaObDominiranosti = 0.7f;
        faktorji->randomSmrtiZaradiDominiranosti = 1;
        QVERIFY(!faktorji->umreZaradiDominiranosti(b)); // strongest: no draw
        QCOMPARE(faktorji->randomSmrtiZaradiDominiranosti, 1ULL);
        QVERIFY(faktorji->umreZaradiDominiranosti(a)); // 0.7 > 0.69069
        QVERIFY(faktorji->umreSedaj(a));               // 0.7 > 0.59465 again
        QCOMPARE(statistika.umrliZaradiDominiranosti, 1);
        QCOMPARE(statistika.umrliSkupaj, 1);
    }

    void searchSquareIsClippedAtTheEdges() {
        vrste[0].verjetnostUmrtjaObDominiranosti = 0.0f;
        // A huge crown two columns away is outside the 3 x 3 square; one column away inside.
        CRastlina& r = posadi(0, 0, 2, 1, 60, 0.1f, 1.0f);
        CRastlina& dalec = posadi(0, 2, 2, 2, 60, 1.0f, 5.0f);
        faktorji->umreZaradiDominiranosti(r);
        QVERIFY(!r.jeDominirana);
        dalec.pozicijaMap2D = Tocka2i(1, 2);
        celice[2 * 6 + 2].clear();
        celice[2 * 6 + 1].push_back(&dalec);
        faktorji->umreZaradiDominiranosti(r);
        QVERIFY(r.jeDominirana);
        // Last column: W - 2 is searched, W - 3 is not.
        CRastlina& desno = posadi(0, 5, 4, 140, 110, 0.1f, 1.0f);
        CRastlina& sosed = posadi(0, 3, 4, 139, 110, 1.0f, 5.0f);
        faktorji->umreZaradiDominiranosti(desno);
        QVERIFY(!desno.jeDominirana);
        sosed.pozicijaMap2D = Tocka2i(4, 3);
        celice[4 * 6 + 3].pop_back();
        celice[3 * 6 + 4].push_back(&sosed);
        faktorji->umreZaradiDominiranosti(desno);
        QVERIFY(desno.jeDominirana);
        // With k = 0 only the own cell counts.
        CVrstaRastlin::maxStKvadratovNajdemRadijSoseda = 0;
        faktorji->umreZaradiDominiranosti(desno);
        QVERIFY(!desno.jeDominirana);
    }

    void failedHeightTestLeavesLaterStreamsAlone() {
        CRastlina& r = posadi(0, 2, 2, 60, 60, 0.5f, 1.0f);
        vrste[0].visina = CPogoj(0.9f, 0.1f, 1.0f, 1.0f); // always dies when beyond tolerance
        vrste[0].vlaga = CPogoj(0.0f, 0.0f, 1.0f, 1.0f);
        r.visinaTukajNormNadVodo = 0.2f;
        r.vlaznostTukaj = 0.5f;
        faktorji->randomSmrtiZaradiNeugodnostiVisine = 5;
        faktorji->randomSmrtiZaradiNeugodnostiVlage = 6;
        faktorji->randomSmrtiZaradiNeugodnostiNaklona = 7;
        // The chain does not decide the death: no neighbour, young, strong.
        QVERIFY(!faktorji->umreSedaj(r));
        unsigned long long visina = 5;
        naslednje(visina, 100000);
        QCOMPARE(faktorji->randomSmrtiZaradiNeugodnostiVisine, visina);
        QCOMPARE(faktorji->randomSmrtiZaradiNeugodnostiVlage, 6ULL);
        QCOMPARE(faktorji->randomSmrtiZaradiNeugodnostiNaklona, 7ULL);
        // Within the height tolerance the chain goes on to moisture (fails) and stops there.
        r.visinaTukajNormNadVodo = 0.85f;
        QVERIFY(!faktorji->umreSedaj(r));
        QCOMPARE(faktorji->randomSmrtiZaradiNeugodnostiVisine, visina);
        unsigned long long vlaga = 6;
        naslednje(vlaga, 100000);
        QCOMPARE(faktorji->randomSmrtiZaradiNeugodnostiVlage, vlaga);
        QCOMPARE(faktorji->randomSmrtiZaradiNeugodnostiNaklona, 7ULL);
        // All tolerated: the slope test always draws.
        r.vlaznostTukaj = 0.0f;
        QVERIFY(!faktorji->umreSedaj(r));
        unsigned long long naklon = 7;
        naslednje(naklon, 100000);
        QCOMPARE(faktorji->randomSmrtiZaradiNeugodnostiNaklona, naklon);
    }

    void slopeDeathComparesTheSquaredHarm() {
        CRastlina& r = posadi(0, 2, 2, 60, 60, 0.5f, 1.0f);
        vrste[0].skodljivostNaklona = 1.0f;
        r.strminaTukaj = 0.83f; // harm 0.6889 against p = 0.69069 then 0.59465
        faktorji->randomSmrtiZaradiNeugodnostiNaklona = 1;
        QVERIFY(!faktorji->umreZaradiStrmine_oz_Prsti_oz_kislostiTal_Ph(r));
        QVERIFY(faktorji->umreZaradiStrmine_oz_Prsti_oz_kislostiTal_Ph(r));
    }

    // In one kill phase a plant that died is gone for those after it.
    void killOrderDecidesMutualDominance() {
        CEcosystemSimulation simulacija;
        simulacija.setTerrainData(teren);
        simulacija.rastlinskeVrste.reserve(2);
        simulacija.rastlinskeVrste.push_back(testterrain::vrsta(&teren, &statistika));
        simulacija.rastlinskeVrste.push_back(testterrain::vrsta(&teren, &statistika));
        for (CVrstaRastlin& v : simulacija.rastlinskeVrste)
            v.verjetnostUmrtjaObDominiranosti = 1.0f;
        auto posadiV = [&](int v, int x, float px, float moc) -> CRastlina& {
            simulacija.rastlinskeVrste[v].dodajNovPrimerek(simulacija.rastlinePoTerenu,
                                                           Tocka2i(x, 2), arbo::Tocka(px, 100, 60));
            CRastlina& r = simulacija.rastlinskeVrste[v].ziviPrimerkiTeVrste.back();
            r.trenutnaMoc = moc;
            r.trenutniRadij = 1.0f;
            r.umreNaKoraku = 1000;
            return r;
        };
        // Species 1's plant is older in the list order of species 0's pair partner.
        posadiV(1, 2, 60.5f, 0.5f); // mutual with the first plant of species 0
        posadiV(0, 2, 60.0f, 0.5f); // killed first (species 0 goes first)
        posadiV(0, 3, 80.0f, 0.5f); // alone
        posadiV(0, 3, 80.5f, 0.5f); // ... with this one: the earlier of the two dies
        simulacija.pobijRastline();
        QCOMPARE(simulacija.rastlinskeVrste[0].ziviPrimerkiTeVrste.size(), size_t(1));
        QCOMPARE(simulacija.rastlinskeVrste[0].ziviPrimerkiTeVrste.front().pozicija3D.x, 80.5f);
        QCOMPARE(simulacija.rastlinskeVrste[1].ziviPrimerkiTeVrste.size(), size_t(1));
        QVERIFY(!simulacija.rastlinskeVrste[1].ziviPrimerkiTeVrste.front().jeDominirana);
        QCOMPARE(simulacija.rastlinePoTerenu[2 * 6 + 2].size(), size_t(1));
        QCOMPARE(simulacija.rastlinePoTerenu[2 * 6 + 3].size(), size_t(1));
        QCOMPARE(statistika.umrliZaradiDominiranosti, 2);
    }
};

QTEST_GUILESS_MAIN(TestLifeFactors)
#include "tst_lifefactors.moc"
