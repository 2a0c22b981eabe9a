#include "ecosystem/simulation/data/ecosystemsimulationfactory.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"

#include <QtTest>

using ecosystem::CEcosystemSimulation;
using ecosystem::data::CTerrainData;
using ecosystem::simulationEntities::CVrstaRastlin;
using ecosystem::simulationFactory::CEcosystemSimulationFactory;

class TestEcosystemSimulationFactory : public QObject {
    Q_OBJECT
private slots:
    void fiveEmptySpeciesInTipOrder() {
        CTerrainData teren;
        CEcosystemSimulation simulacija;
        simulacija.setTerrainData(teren);
        CEcosystemSimulationFactory::buildPanonicVegetation(simulacija, &teren,
                                                            &simulacija.entitiesStatistics);
        QCOMPARE(simulacija.rastlinskeVrste.size(), size_t(5));
        QVERIFY(simulacija.rastlinskeVrste.capacity() >= 10);
        int najdaljse = 0;
        for (int i = 0; i < 5; ++i) {
            const CVrstaRastlin& v = simulacija.rastlinskeVrste[i];
            QCOMPARE(v.tip, i);
            QVERIFY(v.ziviPrimerkiTeVrste.empty());
            QCOMPARE(v.komulacijaPrihajajocihRastlin, 0.0f);
            QCOMPARE(v.komulacijaSemen, 1.0f);
            QCOMPARE(v.stNovihRastlinNaSimulacijskiKorak, 5.0f);
            QCOMPARE(v.delezRastiBlizuSvojeVrste, 0.8f);
            QVERIFY(v.casSigurneSmrti > v.casStarosti);
            QCOMPARE(v.terrainData, &teren);
            QCOMPARE(v.entitiesStatistics, &simulacija.entitiesStatistics);
            najdaljse = std::max(najdaljse, v.casSigurneSmrti);
        }
        QCOMPARE(najdaljse, 250);
        // Spot checks across the table: the spruce's crown, the willow's height need.
        const CVrstaRastlin& smreka = simulacija.rastlinskeVrste[3];
        QCOMPARE(smreka.razmerjeMedVelikostjoInRadijemKrosnje, 2.3f);
        QCOMPARE(smreka.casZrelosti, 60);
        QCOMPARE(smreka.veter.verjetnostSmrtiObNeugodnosti, 0.15f);
        const CVrstaRastlin& zalujka = simulacija.rastlinskeVrste[1];
        QCOMPARE(zalujka.visina.potreba, 0.01f);
        QCOMPARE(zalujka.visina.slabVplivNaHitrostRasti, 0.9f);
        QCOMPARE(zalujka.verjetnostUmrtjaObDominiranosti, 0.075f);
        const CVrstaRastlin& javor = simulacija.rastlinskeVrste[2];
        QCOMPARE(javor.sonce.potreba, 0.65f);
        QCOMPARE(javor.sonce.toleriranaSprememba, 0.15f);
        QCOMPARE(javor.skodljivostNaklona, 0.05f);
        const CVrstaRastlin& bukev = simulacija.rastlinskeVrste[4];
        QCOMPARE(bukev.vlaga.potreba, 0.7f);
        QCOMPARE(bukev.vplivMoci, 0.7f);
        QCOMPARE(bukev.casStarosti, 150);
    }

    void neighbourhoodFromTheWidestCrown() {
        CTerrainData teren;
        CEcosystemSimulation simulacija;
        simulacija.setTerrainData(teren);
        CEcosystemSimulationFactory::buildPanonicVegetation(simulacija, &teren,
                                                            &simulacija.entitiesStatistics);
        QCOMPARE(CVrstaRastlin::maxStKvadratovNajdemRadijSoseda, 1); // ceil(2 * 2.3 / 25)
        teren.dimen.x = 250.0f; // cells of 2.5 m: ceil(2 * 2.3 / 2.5) = ceil(1.84)
        CEcosystemSimulationFactory::calculateNighborhoodExtent(simulacija, &teren);
        QCOMPARE(CVrstaRastlin::maxStKvadratovNajdemRadijSoseda, 2);
        teren.dimen.x = 100.0f; // 1 m cells: ceil(4.6) = 5
        CEcosystemSimulationFactory::calculateNighborhoodExtent(simulacija, &teren);
        QCOMPARE(CVrstaRastlin::maxStKvadratovNajdemRadijSoseda, 5);
    }
};

QTEST_GUILESS_MAIN(TestEcosystemSimulationFactory)
#include "tst_ecosystemsimulationfactory.moc"
