#include "arbo/krivulja.h"
#include "arbo/usermessage.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/dominancegrid.h"
#include "ecosystem/simulation/ecosystemsimulation.h"
#include "ecosystem/simulation/sejaleckjerkolirastlinnateren.h"
#include "ecosystem/simulation/sejalecrastlinnateren.h"
#include "support/messagecatcher.h"
#include "support/simulationstate.h"
#include "support/terrain.h"

#include <QFile>
#include <QtTest>

#include <algorithm>
#include <iostream>
#include <sstream>

using ecosystem::CEcosystemSimulation;
using ecosystem::Tocka2i;
using ecosystem::data::CTerrainData;
using ecosystem::simulationEntities::CRastlina;
using ecosystem::simulationEntities::CVrstaRastlin;

namespace {

// The cell index as the ids of each cell's plants, in stored order or sorted.
std::string celice(const CEcosystemSimulation& s, bool urejeno) {
    std::ostringstream o;
    for (int i = 0; i < s.terrainData->stTockX * s.terrainData->stTockY; ++i) {
        std::vector<int> id;
        for (const CRastlina* r : s.rastlinePoTerenu[i])
            id.push_back(r->id);
        if (urejeno)
            std::sort(id.begin(), id.end());
        if (id.empty())
            continue;
        o << i << ':';
        for (int x : id)
            o << ' ' << x;
        o << '\n';
    }
    return o.str();
}

int zivih(const CEcosystemSimulation& s) {
    int n = 0;
    for (const CVrstaRastlin& v : s.rastlinskeVrste)
        n += int(v.ziviPrimerkiTeVrste.size());
    return n;
}

// A step whose kill phase scans the cell index directly, without the grid.
void korakBrezMreze(CEcosystemSimulation& s) {
    s.zagotoviInicializiranostSimulacije();
    s.simulationStepNr += 1;
    s.dodajRastlineVrstam();
    s.zrastiVseRastlineInDolociMoci();
    for (CVrstaRastlin& v : s.rastlinskeVrste)
        v.ziviPrimerkiTeVrste.remove_if(&CEcosystemSimulation::umreSedaj);
}

// The dominance search as it reads: the square of cells row by row, each
// cell's plants in order, the first neighbour at least as strong whose crown
// overlaps.
bool referencaDominiranosti(const CEcosystemSimulation& s, CRastlina& r) {
    const int k = CVrstaRastlin::maxStKvadratovNajdemRadijSoseda;
    const int w = s.terrainData->stTockX, h = s.terrainData->stTockY;
    const int x = r.pozicijaMap2D.x, y = r.pozicijaMap2D.y;
    for (int vr = std::max(0, y - k); vr <= std::min(h - 1, y + k); ++vr)
        for (int st = std::max(0, x - k); st <= std::min(w - 1, x + k); ++st)
            for (CRastlina* n : s.rastlinePoTerenu[vr * w + st]) {
                if (n == &r)
                    continue;
                const double dx = double(r.pozicija3D.x) - n->pozicija3D.x;
                const double dy = double(r.pozicija3D.y) - n->pozicija3D.y;
                const double dz = double(r.pozicija3D.z) - n->pozicija3D.z;
                const float d = float(std::sqrt(dx * dx + dy * dy + dz * dz));
                if (n->trenutnaMoc * n->vrstaRastline->vplivMoci >=
                        r.trenutnaMoc * r.vrstaRastline->vplivMoci &&
                    r.trenutniRadij + n->trenutniRadij > d)
                    return true;
            }
    return false;
}

struct Izhod {
    std::ostringstream out, err;
    std::streambuf* staroOut;
    std::streambuf* staroErr;
    Izhod() : staroOut(std::cout.rdbuf(out.rdbuf())), staroErr(std::cerr.rdbuf(err.rdbuf())) {}
    ~Izhod() {
        std::cout.rdbuf(staroOut);
        std::cerr.rdbuf(staroErr);
    }
};

QByteArray preberi(const QString& ime) {
    QFile f(ime);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void zapisi(const QString& ime, const QByteArray& vsebina) {
    QFile f(ime);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(vsebina);
}

} // namespace

class TestEcosystemSimulation : public QObject {
    Q_OBJECT

    MessageCatcher catcher;

private slots:
    void init() { catcher.messages.clear(); }

    void seedsInTableOrder() {
        CEcosystemSimulation s;
        std::vector<unsigned long long> pricakovano(13);
        for (int i = 0; i < 13; ++i)
            pricakovano[i] = i + 1;
        QCOMPARE(s.getRandomGeneratorSeeds(), pricakovano);
        std::vector<unsigned long long> nova;
        for (int i = 0; i < 13; ++i)
            nova.push_back(1000 + 7 * i);
        s.setRandomGeneratorSeeds(nova);
        QCOMPARE(ecosystem::CSejalecRastlinNaTeren::randomRastiBlizu, 1000ULL);
        QCOMPARE(ecosystem::CSejalecRastlinNaTeren::randomIzbireBliznjeRastline, 1007ULL);
        QCOMPARE(ecosystem::CSejalecRastlinNaTeren::randomIzbireStraniRastiObBliznjiRastlini,
                 1014ULL);
        QCOMPARE(ecosystem::CSejalecKjerkoliRastlinNaTeren::randomPozicijeNovihRastlinKjerkoli,
                 1021ULL);
        QCOMPARE(CTerrainData::randomPozicije3DNovihRastlinI, 1028ULL);
        QCOMPARE(CTerrainData::randomPozicije3DNovihRastlinJ, 1035ULL);
        QCOMPARE(s.lifeFactors.randomSmrtiZaradiDominiranosti, 1042ULL);
        QCOMPARE(s.lifeFactors.randomSmrtiZaradiNeugodnostiVisine, 1049ULL);
        QCOMPARE(s.lifeFactors.randomSmrtiZaradiNeugodnostiVlage, 1056ULL);
        QCOMPARE(s.lifeFactors.randomSmrtiZaradiNeugodnostiSonca, 1063ULL);
        QCOMPARE(s.lifeFactors.randomSmrtiZaradiNeugodnostiVetra, 1070ULL);
        QCOMPARE(s.lifeFactors.randomSmrtiZaradiNeugodnostiNaklona, 1077ULL);
        QCOMPARE(CRastlina::randomCasSmrti, 1084ULL);
        QCOMPARE(s.getRandomGeneratorSeeds(), nova);
        // A new simulation starts every stream again, the shared ones too.
        CEcosystemSimulation druga;
        QCOMPARE(druga.getRandomGeneratorSeeds(), pricakovano);
    }

    void firstStepSowsOnlyAnywhere() {
        CTerrainData teren;
        CEcosystemSimulation s;
        s.setTerrainData(teren);
        QCOMPARE(s.simulationStepNr, -1);
        QVERIFY(!s.simulationRunning);
        const int prviId = CRastlina::lastID;
        s.simulateNextStep();
        QCOMPARE(s.simulationStepNr, 1);
        QVERIFY(s.simulationRunning);
        QVERIFY(teren.isDataReady());
        QCOMPARE(s.najvecjaMoznaStarostRastline, 250);
        // Five units per species, 25 near-or-anywhere draws from stream 0
        // (seed 1); a species without plants sows only the anywhere ones.
        unsigned long long blizu = 1;
        int kjerkoli = 0;
        for (int i = 0; i < 25; ++i)
            if (!(0.8f > testterrain::naslednje(blizu, 100000) / 100000.0))
                ++kjerkoli;
        QCOMPARE(ecosystem::CSejalecRastlinNaTeren::randomRastiBlizu, blizu);
        QCOMPARE(CRastlina::lastID - prviId, kjerkoli);
        QCOMPARE(ecosystem::CSejalecRastlinNaTeren::randomIzbireBliznjeRastline, 2ULL);
        const std::string log = s.getEntitiesStatistics()->getLogText();
        QVERIFY(QString::fromStdString(log).startsWith("@1: time(render_all)="));
        QVERIFY(QString::fromStdString(log).endsWith(QString("||  nrPlants=%1").arg(zivih(s))));
        QCOMPARE(s.getEntitiesStatistics()->getGrafiStevilaRastlin()->size(), size_t(5));
        QCOMPARE(s.getEntitiesStatistics()->korakiZivih, std::vector<int>{1});
    }

    void growthPhase() {
        CTerrainData teren;
        testterrain::pripravi(teren, 6, 6);
        CEcosystemSimulation s;
        s.setTerrainData(teren);
        testterrain::Lastnosti l; // maturity 3, old age 10, certain death 25
        s.rastlinskeVrste.reserve(2);
        s.rastlinskeVrste.push_back(testterrain::vrsta(&teren, &s.entitiesStatistics, l));
        l.casSigurneSmrti = 50;
        l.razmerje = 2.0f;
        s.rastlinskeVrste.push_back(testterrain::vrsta(&teren, &s.entitiesStatistics, l));
        s.najvecjaMoznaStarostRastline = 50;
        CVrstaRastlin& kratka = s.rastlinskeVrste[0];
        CVrstaRastlin& dolga = s.rastlinskeVrste[1];
        kratka.dodajNovPrimerek(s.rastlinePoTerenu, Tocka2i(1, 1), arbo::Tocka(30, 100, 30));
        dolga.dodajNovPrimerek(s.rastlinePoTerenu, Tocka2i(4, 4), arbo::Tocka(110, 100, 110));
        CRastlina& a = kratka.ziviPrimerkiTeVrste.front();
        CRastlina& b = dolga.ziviPrimerkiTeVrste.front();
        float velikost = 0.0f;
        for (int korak = 0; korak < 14; ++korak) {
            s.zrastiVseRastlineInDolociMoci();
            if (korak < 3)
                velikost += 1.0f * 0.8f / 3;
            else if (korak < 10)
                velikost = float(velikost + 1.0f * (1.0 - 0.8f) / 7);
            QCOMPARE(a.trenutnaVelikost, velikost);
            QCOMPARE(a.trenutnaStarost, korak + 1);
            QCOMPARE(a.trenutniRadij, velikost * 1.0f);
            QCOMPARE(b.trenutniRadij, b.trenutnaVelikost * 2.0f);
            // Strength scales with the share of the longest life.
            QCOMPARE(a.trenutnaMoc, 25.0f / 50.0f * (a.prodornost * a.trenutnaVelikost));
            QCOMPARE(b.trenutnaMoc, 1.0f * (b.prodornost * b.trenutnaVelikost));
            // Seeds: 1/5 plus the strength of the plants grown at maturity or later.
            const float semena = korak >= 3 ? 0.2f + a.trenutnaMoc : 0.2f;
            QCOMPARE(kratka.komulacijaSemen, semena);
        }
        QVERIFY(std::fabs(a.trenutnaVelikost - 1.0f) < 1e-5f);
        QCOMPARE(velikost, a.trenutnaVelikost); // unchanged after age 10

        // A dominated plant keeps size, radius and strength and loses 1 of penetration.
        b.jeDominirana = true;
        b.prodornost = 0.6f;
        const float r = b.trenutniRadij, m = b.trenutnaMoc, v = b.trenutnaVelikost;
        s.zrastiVseRastlineInDolociMoci();
        QCOMPARE(b.prodornost, 0.0f);
        QCOMPARE(b.trenutniRadij, r);
        QCOMPARE(b.trenutnaMoc, m);
        QCOMPARE(b.trenutnaVelikost, v);
        QCOMPARE(b.trenutnaStarost, 15);
        b.prodornost = 1.5f;
        s.zrastiVseRastlineInDolociMoci();
        QCOMPARE(b.prodornost, 0.5f);
    }

    void sameSeedsSameRun() {
        CTerrainData teren;
        std::string prvi, drugi;
        int zadnjiId = 0;
        for (std::string* cilj : {&prvi, &drugi}) {
            CEcosystemSimulation s;
            s.setTerrainData(teren);
            for (int i = 0; i < 45; ++i)
                s.simulateNextStep();
            QVERIFY(zivih(s) > 1000);
            *cilj = testsimulation::stanje(s, true);
            // Ids run on over the process.
            for (const CVrstaRastlin& v : s.rastlinskeVrste)
                for (const CRastlina& r : v.ziviPrimerkiTeVrste)
                    QVERIFY(r.id > zadnjiId);
            zadnjiId = CRastlina::lastID;
        }
        QCOMPARE(prvi, drugi);
        // Another seed, another ecosystem.
        CEcosystemSimulation s;
        s.setTerrainData(teren);
        std::vector<unsigned long long> seeds = s.getRandomGeneratorSeeds();
        seeds[0] = 99;
        s.setRandomGeneratorSeeds(seeds);
        for (int i = 0; i < 45; ++i)
            s.simulateNextStep();
        QVERIFY(testsimulation::stanje(s, true) != prvi);
    }

    // The kill phase gives the same ecosystem with the bucket grid as with a
    // plain scan of the cell index, step by step.
    void gridGivesThePlainSearchResult() {
        CTerrainData teren;
        std::vector<std::string> zMrezo, celiceZMrezo, urejeneCeliceZMrezo;
        const int lastIdPrej = CRastlina::lastID;
        {
            CEcosystemSimulation s;
            s.setTerrainData(teren);
            for (int i = 0; i < 58; ++i) {
                s.simulateNextStep();
                zMrezo.push_back(testsimulation::stanje(s, true));
                celiceZMrezo.push_back(celice(s, false));
                urejeneCeliceZMrezo.push_back(celice(s, true));
            }
            QVERIFY(zivih(s) > 20000);
        }
        // The plain run numbers its plants from the same id on.
        const int lastIdPotem = CRastlina::lastID;
        CRastlina::lastID = lastIdPrej;
        CEcosystemSimulation s;
        s.setTerrainData(teren);
        for (int i = 0; i < 58; ++i) {
            korakBrezMreze(s);
            const QString korak = QString("step %1").arg(i + 1);
            if (i >= 30)
                QVERIFY2(testsimulation::stanje(s, true) == zMrezo[i], qPrintable(korak));
            // Until the lists are packed (which rebuilds the cell index species
            // by species), the dead leave their cells exactly as one by one.
            if (i < 40)
                QVERIFY2(celice(s, false) == celiceZMrezo[i], qPrintable(korak));
            QVERIFY2(celice(s, true) == urejeneCeliceZMrezo[i], qPrintable(korak));
        }
        CRastlina::lastID = std::max(lastIdPotem, CRastlina::lastID);
    }

    // Plant by plant in the kill order, while plants die, and with other square
    // sizes. The grid settles most answers before the first plant is decided,
    // from the plants that die whatever happens (here every third by id) and
    // the kill order; the rest it checks at the plant's turn. Dominated plants
    // with an even id die too, so neighbours it counted on are gone by then.
    void gridAnswersLikeTheReference() {
        CTerrainData teren;
        CEcosystemSimulation s;
        s.setTerrainData(teren);
        for (int i = 0; i < 52; ++i)
            s.simulateNextStep();
        s.dodajRastlineVrstam();
        s.zrastiVseRastlineInDolociMoci();
        const int k = CVrstaRastlin::maxStKvadratovNajdemRadijSoseda;
        auto umreNeglede = [](CRastlina& r) { return r.id % 3 == 0; };
        for (int polSirina : {k, 0, 2}) {
            CVrstaRastlin::maxStKvadratovNajdemRadijSoseda = polSirina;
            ecosystem::CDominanceGrid mreza;
            mreza.zgradi(s.rastlinskeVrste, polSirina, teren.stTockX, umreNeglede);
            int dominiranih = 0, dominiranihNeglede = 0, zaporedna = 0;
            std::vector<std::pair<CRastlina*, int>> odstranjene;
            for (CVrstaRastlin& v : s.rastlinskeVrste) {
                for (CRastlina& r : v.ziviPrimerkiTeVrste) {
                    mreza.naslednjaRastlina();
                    const bool pricakovano = referencaDominiranosti(s, r);
                    QCOMPARE(mreza.imaDominantnegaSoseda(r), pricakovano);
                    dominiranih += pricakovano;
                    dominiranihNeglede += pricakovano && umreNeglede(r);
                    ++zaporedna;
                    if (!umreNeglede(r) && !(pricakovano && r.id % 2 == 0))
                        continue;
                    std::vector<CRastlina*>& celica =
                        s.rastlinePoTerenu[r.pozicijaMap2D.y * teren.stTockX + r.pozicijaMap2D.x];
                    const auto it = std::find(celica.begin(), celica.end(), &r);
                    odstranjene.emplace_back(&r, int(it - celica.begin()));
                    celica.erase(it);
                    mreza.odstrani();
                }
            }
            QVERIFY(dominiranih > 100);
            QVERIFY(dominiranihNeglede > 10);
            QVERIFY(dominiranih < zaporedna);
            // Put the cell index back as it was.
            for (auto it = odstranjene.rbegin(); it != odstranjene.rend(); ++it) {
                CRastlina& r = *it->first;
                std::vector<CRastlina*>& celica =
                    s.rastlinePoTerenu[r.pozicijaMap2D.y * teren.stTockX + r.pozicijaMap2D.x];
                celica.insert(celica.begin() + it->second, &r);
            }
        }
        CVrstaRastlin::maxStKvadratovNajdemRadijSoseda = k;
    }

    // The file's sections: step, species count, each species' plants (17
    // fields), the 5 + 13 stream states, the lupa. Load, save again: the same
    // text. Load into another simulation and go on: the same ecosystem as the
    // one that was saved and reloaded itself.
    void saveLoadAndContinue() {
        CTerrainData teren;
        CEcosystemSimulation a;
        a.setTerrainData(teren);
        for (int i = 0; i < 40; ++i)
            a.simulateNextStep();
        {
            Izhod izhod;
            a.saveSimulation("a.sim");
            QCOMPARE(QString::fromStdString(izhod.out.str()),
                     QString("Simulation @ step 40successfouly saved\n"));
        }
        const QByteArray shranjeno = preberi("a.sim");
        const QList<QByteArray> vrstice = shranjeno.split('\n');
        QCOMPARE(vrstice[0], QByteArray("40"));
        QCOMPARE(vrstice[1], QByteArray("5"));
        int v = 2;
        for (const CVrstaRastlin& vrsta : a.rastlinskeVrste) {
            QCOMPARE(vrstice[v++].toInt(), int(vrsta.ziviPrimerkiTeVrste.size()));
            for (const CRastlina& r : vrsta.ziviPrimerkiTeVrste) {
                const QList<QByteArray> polja = vrstice[v++].split('\t');
                QCOMPARE(polja.size(), 17);
                QCOMPARE(polja[0].toInt(), r.pozicijaMap2D.x);
                QCOMPARE(polja[5].toInt(), r.id);
                QCOMPARE(polja[16].toFloat(), r.umreNaKoraku);
            }
        }
        const QList<QByteArray> zadnja = vrstice[v++].split('\t');
        QCOMPARE(zadnja.size(), 5 + 13 + 1); // each value followed by a tab
        QCOMPARE(zadnja[5].toULongLong(), ecosystem::CSejalecRastlinNaTeren::randomRastiBlizu);
        QCOMPARE(zadnja[17].toULongLong(), CRastlina::randomCasSmrti);
        QCOMPARE(vrstice[v++], QByteArray("25\t75\t25\t75"));
        QCOMPARE(vrstice[v], QByteArray()); // the file ends with the line end
        QCOMPARE(vrstice.size(), v + 1);
        const int prej = int(a.entitiesStatistics.grafiStevilaRastlin[0]->tocke.size());
        {
            Izhod izhod;
            a.loadSimulation("a.sim");
            QCOMPARE(
                QString::fromStdString(izhod.out.str()),
                QString("Simulation @ step 40 with %1 plants successfouly loaded\n").arg(zivih(a)));
        }
        QCOMPARE(int(a.entitiesStatistics.grafiStevilaRastlin[0]->tocke.size()), prej + 1);
        QCOMPARE(a.entitiesStatistics.grafiStevilaRastlin[0]->tocke.back().x, double(prej));
        QCOMPARE(a.entitiesStatistics.korakiZivih.back(), 40); // the loaded step, not the count
        a.saveSimulation("a2.sim");
        QCOMPARE(preberi("a2.sim"), shranjeno);
        std::vector<float> semenaA;
        for (const CVrstaRastlin& v : a.rastlinskeVrste)
            semenaA.push_back(v.komulacijaSemen);
        for (int i = 0; i < 12; ++i)
            a.simulateNextStep();
        const std::string nadaljevanoA = testsimulation::stanje(a, true);

        CEcosystemSimulation b;
        b.setTerrainData(teren);
        for (int i = 0; i < 3; ++i)
            b.simulateNextStep();
        teren.lupaXmin = 30; // the file brings the lupa back
        b.loadSimulation("a.sim");
        QCOMPARE(teren.lupaXmin, 25);
        QCOMPARE(b.simulationStepNr, 40);
        for (size_t i = 0; i < semenaA.size(); ++i)
            b.rastlinskeVrste[i].komulacijaSemen = semenaA[i]; // not stored in the file
        for (int i = 0; i < 12; ++i)
            b.simulateNextStep();
        QCOMPARE(testsimulation::stanje(b, true), nadaljevanoA);

        Izhod izhod; // a file that cannot be written is reported, not announced
        b.saveSimulation("no-such-folder/x.sim");
        QCOMPARE(catcher.lines(),
                 std::vector<std::string>{"Error: Could not save simulation file."});
        QVERIFY(izhod.out.str().empty());
    }

    // A good saved file with one thing changed: "@plant:<field>=<value>" in the
    // first plant's line, "@line:<n>=<text>" for a whole line, "@sow=<value>"
    // for the first species' not yet sown plants, "@cut" for its first half.
    // %L in the message is the line changed.
    void badFilesChangeNothing_data() {
        QTest::addColumn<QByteArray>("vsebina");
        QTest::addColumn<QString>("sporocilo");
        QTest::addColumn<bool>("neujemanje");
        const QString pokvarjena = "Error: The simulation file is damaged.\nLine ";
        auto vrstica = [](int polje, const char* vrednost) {
            return QByteArray("@plant:") + QByteArray::number(polje) + "=" + vrednost;
        };
        QTest::newRow("missing") << QByteArray() << "Error: Could not open simulation file."
                                 << true;
        QTest::newRow("truncated") << QByteArray("@cut") << "@ends" << false;
        QTest::newRow("word for a number")
            << vrstica(1, "x8") << pokvarjena + "%L: \"x8\" is not a valid grid row." << false;
        QTest::newRow("cell off the grid")
            << vrstica(0, "100") << pokvarjena + "%L: the grid column 100 lies outside 0 to 99."
            << false;
        QTest::newRow("age at the int limit")
            << vrstica(6, "2147483647")
            << pokvarjena + "%L: the age 2147483647 lies outside 0 to 1000000." << false;
        QTest::newRow("huge size")
            << vrstica(7, "3e38") << pokvarjena + "%L: the size 3e38 lies outside 0 to 1.01."
            << false;
        QTest::newRow("negative penetration")
            << vrstica(9, "-0.5") << pokvarjena + "%L: the penetration -0.5 lies outside 0 to 1.01."
            << false;
        QTest::newRow("never dies")
            << vrstica(16, "1e30")
            << pokvarjena + "%L: the age of death 1e30 lies outside 0 to 1000000." << false;
        QTest::newRow("step at the int limit")
            << QByteArray("@line:0=2147483647")
            << pokvarjena + "1: the step number 2147483647 lies outside 0 to 1000000000." << false;
        QTest::newRow("two million plants")
            << QByteArray("@line:2=2000000")
            << pokvarjena + "3: the number of plants 2000000 lies outside 0 to 1000000." << false;
        QTest::newRow("a billion plants to sow")
            << QByteArray("@sow=1e9")
            << pokvarjena + "%L: the number of plants to sow 1e9 lies outside 0 to 10000." << false;
        QTest::newRow("lupa off the grid")
            << QByteArray("@lupa")
            << pokvarjena + "%L: the plant area, columns 25 to 100 and rows 25 to 75, does not "
                            "fit the grid of 100 x 100 points."
            << false;
        QTest::newRow("four species")
            << QByteArray("12\n4\n0\n0\n0\n0\n")
            << "Error: The simulation file has another number of species." << true;
        QTest::newRow("empty") << QByteArray("")
                               << pokvarjena + "1: the file ends before the step number." << false;
    }
    void badFilesChangeNothing() {
        QFETCH(QByteArray, vsebina);
        QFETCH(QString, sporocilo);
        QFETCH(bool, neujemanje);
        CTerrainData teren;
        CEcosystemSimulation s;
        s.setTerrainData(teren);
        for (int i = 0; i < 20; ++i)
            s.simulateNextStep();
        s.saveSimulation("dobra.sim");
        QList<QByteArray> vrstice = preberi("dobra.sim").split('\n');
        int v = 2;
        while (vrstice[v].toInt() == 0)
            ++v; // first species with plants; its first plant follows
        int spremenjena = v + 1;
        const int zadnjaRastlina = int(vrstice.size()) - 4;
        if (vsebina.startsWith("@plant:")) {
            const QList<QByteArray> dela = vsebina.mid(7).split('=');
            QList<QByteArray> polja = vrstice[v + 1].split('\t');
            polja[dela[0].toInt()] = dela[1];
            vrstice[v + 1] = polja.join('\t');
        } else if (vsebina.startsWith("@line:")) {
            const QList<QByteArray> dela = vsebina.mid(6).split('=');
            spremenjena = dela[0].toInt();
            vrstice[spremenjena] = dela[1];
        } else if (vsebina.startsWith("@sow=")) {
            spremenjena = zadnjaRastlina + 1;
            QList<QByteArray> polja = vrstice[spremenjena].split('\t');
            polja[0] = vsebina.mid(5);
            vrstice[spremenjena] = polja.join('\t');
        } else if (vsebina == "@lupa") {
            spremenjena = zadnjaRastlina + 2;
            vrstice[spremenjena] = "25\t100\t25\t75";
        }
        QByteArray slaba = vrstice.join('\n');
        if (vsebina == "@cut") {
            slaba = slaba.left(slaba.size() / 2);
            sporocilo = "Error: The simulation file is damaged.\nLine " +
                        QString::number(slaba.count('\n') + 1) + ": the file ends before the ";
        } else if (!vsebina.startsWith('@')) {
            slaba = vsebina;
        }
        sporocilo.replace("%L", QString::number(spremenjena + 1));
        const QString ime = QTest::currentDataTag() == QString("missing") ? "ni.sim" : "slaba.sim";
        if (ime == "slaba.sim")
            zapisi(ime, slaba);
        const std::string prej = testsimulation::stanje(s);
        Izhod izhod;
        s.loadSimulation(ime.toStdString());
        QCOMPARE(testsimulation::stanje(s), prej);
        QCOMPARE(teren.lupaXmax, 75);
        QCOMPARE(catcher.messages.size(), size_t(1));
        QVERIFY2(QString::fromStdString(catcher.lines()[0]).startsWith(sporocilo),
                 catcher.lines()[0].c_str());
        QCOMPARE(QString::fromStdString(izhod.err.str()),
                 neujemanje ? QString("Number of species size mismatch!\n") : QString());
        QVERIFY(izhod.out.str().empty());
    }
};

QTEST_GUILESS_MAIN(TestEcosystemSimulation)
#include "tst_ecosystemsimulation.moc"
