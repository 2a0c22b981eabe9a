#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/entities/vrstarastlin.h"
#include "ecosystem/simulation/sejaleckjerkolirastlinnateren.h"
#include "ecosystem/simulation/sejalecrastlinnateren.h"
#include "ecosystem/simulation/statistics/entitiesstatistics.h"
#include "support/terrain.h"

#include <QtTest>

#include <algorithm>

using ecosystem::CSejalecKjerkoliRastlinNaTeren;
using ecosystem::CSejalecRastlinNaTeren;
using ecosystem::Tocka2i;
using ecosystem::data::CTerrainData;
using ecosystem::simulationEntities::CRastlina;
using ecosystem::simulationEntities::CVrstaRastlin;
using ecosystem::statistics::CEntitiesStatistics;
using testterrain::naslednje;

namespace {

struct Tokovi {
    unsigned long long blizu, izbira, stran, kjerkoli, i, j;
};

void nastavi(const Tokovi& t) {
    CSejalecRastlinNaTeren::randomRastiBlizu = t.blizu;
    CSejalecRastlinNaTeren::randomIzbireBliznjeRastline = t.izbira;
    CSejalecRastlinNaTeren::randomIzbireStraniRastiObBliznjiRastlini = t.stran;
    CSejalecKjerkoliRastlinNaTeren::randomPozicijeNovihRastlinKjerkoli = t.kjerkoli;
    CTerrainData::randomPozicije3DNovihRastlinI = t.i;
    CTerrainData::randomPozicije3DNovihRastlinJ = t.j;
}

Tokovi trenutni() {
    return {CSejalecRastlinNaTeren::randomRastiBlizu,
            CSejalecRastlinNaTeren::randomIzbireBliznjeRastline,
            CSejalecRastlinNaTeren::randomIzbireStraniRastiObBliznjiRastlini,
            CSejalecKjerkoliRastlinNaTeren::randomPozicijeNovihRastlinKjerkoli,
            CTerrainData::randomPozicije3DNovihRastlinI,
            CTerrainData::randomPozicije3DNovihRastlinJ};
}

// The sowing of one species re-derived from its rules, with the 3-D point
// reduced to the stream draws it makes; returns the expected cells and leaves
// the fraction not sown in komulacija.
std::vector<Tocka2i> pricakovaneCelice(const CTerrainData& teren, const CVrstaRastlin& vrsta,
                                       float& komulacija, Tokovi& t) {
    std::vector<Tocka2i> starsi;
    for (const CRastlina& r : vrsta.ziviPrimerkiTeVrste)
        starsi.push_back(r.pozicijaMap2D);
    const unsigned n = unsigned(starsi.size());
    std::vector<int> blizu;
    int kjerkoli = 0;
    while (komulacija >= 1.0f) {
        komulacija -= 1.0f;
        const double p = naslednje(t.blizu, 100000) / 100000.0;
        if (!(vrsta.delezRastiBlizuSvojeVrste > p))
            ++kjerkoli;
        else if (n > 0)
            blizu.push_back(int(naslednje(t.izbira, n)));
    }
    std::sort(blizu.begin(), blizu.end());
    auto vLupi = [&](const Tocka2i& c) {
        return c.x >= teren.lupaXmin && c.x <= teren.lupaXmax && c.y >= teren.lupaYmin &&
               c.y <= teren.lupaYmax &&
               teren.pTerrainVertexData[c.x + c.y * teren.stTockX].pos.y > 0.0f;
    };
    // Height of the random point of the cell: I twice (second value unused), J once.
    auto visina = [&](const Tocka2i& c) {
        const double ri = naslednje(t.i, 4096) / 4096.0;
        const double rj = naslednje(t.j, 4096) / 4096.0;
        naslednje(t.i, 4096);
        auto h = [&](int x, int y) {
            return double(teren.pTerrainVertexData[x + y * teren.stTockX].pos.y);
        };
        const double a = h(c.x, c.y);
        const double b = c.x + 1 < teren.stTockX ? h(c.x + 1, c.y) : a;
        const double d = c.y + 1 < teren.stTockY ? h(c.x, c.y + 1) : a;
        return a + ri * (b - a) + rj * (d - a);
    };
    std::vector<Tocka2i> celice;
    for (int indeks : blizu) {
        Tocka2i c = starsi[indeks];
        const int stran = int(naslednje(t.stran, 100000) / 100000.0 * 4.0);
        if (stran == 0)
            c.y -= 1;
        else if (stran == 1)
            c.y += 1;
        else if (stran == 2)
            c.x -= 1;
        else
            c.x += 1;
        if (vLupi(c) && visina(c) > 0.0)
            celice.push_back(c);
    }
    for (int k = 0; k < kjerkoli; ++k) {
        const int e =
            teren.nonWaterIndexes[naslednje(t.kjerkoli, unsigned(teren.nonWaterIndexes.size()))];
        const Tocka2i c(e % teren.stTockX, e / teren.stTockX);
        if (visina(c) > 0.0)
            celice.push_back(c);
    }
    return celice;
}

} // namespace

class TestSowing : public QObject {
    Q_OBJECT

    CTerrainData teren;
    CEntitiesStatistics statistika;

private slots:
    void init() { testterrain::pripravi(teren, 8, 6); }

    void sowingMatchesItsRules_data() {
        QTest::addColumn<int>("stStarsev");
        QTest::addColumn<float>("komulacija");
        QTest::addColumn<bool>("zVodo");
        QTest::newRow("no parents") << 0 << 40.7f << false;
        QTest::newRow("parents") << 5 << 60.5f << false;
        QTest::newRow("parents by water and edge") << 7 << 200.0f << true;
    }
    void sowingMatchesItsRules() {
        QFETCH(int, stStarsev);
        QFETCH(float, komulacija);
        QFETCH(bool, zVodo);
        if (zVodo) {
            testterrain::potopi(teren, 2, 2);
            testterrain::potopi(teren, 3, 1);
            teren.lupaXmax = 6;
            teren.buildNonwaterIndexes();
        }
        CVrstaRastlin vrsta = testterrain::vrsta(&teren, &statistika);
        std::vector<std::vector<CRastlina*>> celice(48);
        const Tocka2i starsi[] = {{0, 0}, {2, 1}, {7, 5}, {3, 2}, {6, 0}, {2, 3}, {4, 1}};
        for (int i = 0; i < stStarsev; ++i)
            vrsta.dodajNovPrimerek(celice.data(), starsi[i],
                                   arbo::Tocka(25.0f * starsi[i].x, 100, 25.0f * starsi[i].y));
        nastavi({11, 12, 13, 14, 15, 16});
        Tokovi pricakovani = trenutni();
        vrsta.komulacijaPrihajajocihRastlin = komulacija;
        const std::vector<Tocka2i> pricakovano =
            pricakovaneCelice(teren, vrsta, komulacija, pricakovani);

        std::vector<Tocka2i> p2;
        std::vector<arbo::Tocka> p3;
        CSejalecRastlinNaTeren(teren, p2, p3, vrsta).dolociPozicijeRastlin();

        QCOMPARE(p2.size(), pricakovano.size());
        QCOMPARE(p3.size(), p2.size());
        for (size_t i = 0; i < p2.size(); ++i) {
            QCOMPARE(p2[i].x, pricakovano[i].x);
            QCOMPARE(p2[i].y, pricakovano[i].y);
            // The point lies in the 25 m cell whose corner is the vertex.
            QVERIFY(p3[i].x >= 25.0f * p2[i].x && p3[i].x <= 25.0f * p2[i].x + 25.0f);
            QVERIFY(p3[i].z >= 25.0f * p2[i].y && p3[i].z <= 25.0f * p2[i].y + 25.0f);
        }
        QCOMPARE(vrsta.komulacijaPrihajajocihRastlin, komulacija); // the fraction waits
        const Tokovi t = trenutni();
        QCOMPARE(t.blizu, pricakovani.blizu);
        QCOMPARE(t.izbira, pricakovani.izbira);
        QCOMPARE(t.stran, pricakovani.stran);
        QCOMPARE(t.kjerkoli, pricakovani.kjerkoli);
        QCOMPARE(t.i, pricakovani.i);
        QCOMPARE(t.j, pricakovani.j);
    }

    void pointsUnderWaterAreDropped() {
        std::vector<Tocka2i> p2;
        std::vector<arbo::Tocka> p3;
        CSejalecKjerkoliRastlinNaTeren sejalec(teren, p2, p3);
        sejalec.dodajRastlinoVSeznama(Tocka2i(1, 1), arbo::Tocka(25, 0.0f, 25));
        sejalec.dodajRastlinoVSeznama(Tocka2i(2, 1), arbo::Tocka(50, 0.5f, 25));
        QCOMPARE(p2.size(), size_t(1));
        QCOMPARE(p3.size(), size_t(1));
        QCOMPARE(p2[0].x, 2);
        QCOMPARE(p3[0].y, 0.5f);
    }

    // No dry cell (a flat or drowned lupa): nowhere to sow, nothing drawn.
    void anywhereWithoutDryLandSowsNothing() {
        teren.lupaXmin = teren.lupaXmax = 3;
        teren.buildNonwaterIndexes(); // a half-open lupa of no width
        QVERIFY(teren.nonWaterIndexes.empty());
        std::vector<Tocka2i> p2;
        std::vector<arbo::Tocka> p3;
        nastavi({1, 2, 3, 4, 5, 6});
        CSejalecKjerkoliRastlinNaTeren(teren, p2, p3).dodajRastlineKjerkoli(7);
        QVERIFY(p2.empty() && p3.empty());
        const Tokovi t = trenutni();
        QCOMPARE(t.kjerkoli, 4ULL);
        QCOMPARE(t.i, 5ULL);
        QCOMPARE(t.j, 6ULL);
    }
};

QTEST_GUILESS_MAIN(TestSowing)
#include "tst_sowing.moc"
