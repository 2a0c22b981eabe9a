#pragma once

#include "arbo/tocka.h"
#include "arbo/tocka2i.h"
#include "ecosystem/simulation/entities/arenaallocator.h"
#include "ecosystem/simulation/entities/pogoj.h"
#include "ecosystem/simulation/entities/rastlina.h"

#include <list>
#include <vector>

namespace ecosystem::data {
class CTerrainData;
}
namespace ecosystem::statistics {
class CEntitiesStatistics;
}

namespace ecosystem::simulationEntities {

// One plant species: its life-cycle constants, its four tolerances, its rate
// of reproduction and the list that owns all its living plants.
class CVrstaRastlin {
public:
    // A linked list: element addresses stay valid while plants are added or
    // removed (the cell index points at them); only zgostiRastline moves them.
    using SeznamRastlin = std::list<CRastlina, CArenaAllocator<CRastlina>>;

    int tip;
    float stNovihRastlinNaSimulacijskiKorak;
    float razmerjeMedVelikostjoInRadijemKrosnje;
    float delezRastiBlizuSvojeVrste;
    float velikostObZrelosti;
    int casZrelosti;
    int casStarosti;
    int casSigurneSmrti;
    float verjetnostUmrtjaObDominiranosti;
    float skodljivostNaklona;
    float vplivMoci;
    CPogoj visina;
    CPogoj vlaga;
    CPogoj sonce;
    CPogoj veter;
    float komulacijaSemen;
    float komulacijaPrihajajocihRastlin;
    data::CTerrainData* terrainData;
    SeznamRastlin ziviPrimerkiTeVrste; // in order of creation
    statistics::CEntitiesStatistics* entitiesStatistics;

    // Half-width, in grid cells, of the square searched for dominating neighbours.
    static int maxStKvadratovNajdemRadijSoseda;

    CVrstaRastlin(data::CTerrainData* terrainData,
                  statistics::CEntitiesStatistics* entitiesStatistics, int tip,
                  float stNovihRastlinNaSimulacijskiKorak, float komulacijaPrihajajocihRastlin,
                  int casZrelosti, int casStarosti, int casSigurneSmrti, float velikostObZrelosti,
                  float verjetnostUmrtjaObDominiranosti, float potrebaPoVisini,
                  float tolerantnostSpremembVisine, float verjetnostSmrtiObNeugodniVisini,
                  float slabVplivVisineNaHitrostRasti, float potrebaPoVlagi,
                  float tolerantnostSpremembVlage, float verjetnostSmrtiObNeugodniVlagi,
                  float slabVplivVlageNaHitrostRasti, float potrebaPoSoncu,
                  float tolerantnostSpremembSonca, float verjetnostSmrtiObNeugodnemSoncu,
                  float slabVplivSoncaNaHitrostRasti, float potrebaPoVetru,
                  float tolerantnostSpremembVetra, float verjetnostSmrtiObNeugodnemVetru,
                  float slabVplivVetraNaHitrostRasti, float razmerjeMedVelikostjoInRadijemKrosnje,
                  float delezRastiBlizuSvojeVrste, float skodljivostNaklona, float vplivMoci);
    // A copy owns copies of the plants, which belong to the copy.
    CVrstaRastlin(const CVrstaRastlin& druga);
    CVrstaRastlin& operator=(const CVrstaRastlin& druga);

    void dodajNovPrimerek(std::vector<CRastlina*>* rastlinePoTerenu, const Tocka2i& pozicija2d,
                          const arbo::Tocka& pozicija3d);
    void dodajKomuliraneRastline(float dodanaKomulacija, std::vector<CRastlina*>* rastlinePoTerenu);

    // Moves the plants, in order, into fresh memory when more than a ninth of
    // the memory held by the list is dead; true when they moved (the caller
    // must then rebuild every pointer to them).
    bool zgostiRastline();

private:
    void prevzemiRastline();
};

} // namespace ecosystem::simulationEntities
