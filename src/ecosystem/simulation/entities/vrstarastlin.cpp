#include "ecosystem/simulation/entities/vrstarastlin.h"

#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/sejalecrastlinnateren.h"

#include <algorithm>
#include <cmath>

namespace ecosystem::simulationEntities {

int CVrstaRastlin::maxStKvadratovNajdemRadijSoseda = 1;

CVrstaRastlin::CVrstaRastlin(
    data::CTerrainData* terrainData, statistics::CEntitiesStatistics* entitiesStatistics, int tip,
    float stNovihRastlinNaSimulacijskiKorak, float komulacijaPrihajajocihRastlin, int casZrelosti,
    int casStarosti, int casSigurneSmrti, float velikostObZrelosti,
    float verjetnostUmrtjaObDominiranosti, float potrebaPoVisini, float tolerantnostSpremembVisine,
    float verjetnostSmrtiObNeugodniVisini, float slabVplivVisineNaHitrostRasti,
    float potrebaPoVlagi, float tolerantnostSpremembVlage, float verjetnostSmrtiObNeugodniVlagi,
    float slabVplivVlageNaHitrostRasti, float potrebaPoSoncu, float tolerantnostSpremembSonca,
    float verjetnostSmrtiObNeugodnemSoncu, float slabVplivSoncaNaHitrostRasti, float potrebaPoVetru,
    float tolerantnostSpremembVetra, float verjetnostSmrtiObNeugodnemVetru,
    float slabVplivVetraNaHitrostRasti, float razmerjeMedVelikostjoInRadijemKrosnje,
    float delezRastiBlizuSvojeVrste, float skodljivostNaklona, float vplivMoci)
    : tip(tip), stNovihRastlinNaSimulacijskiKorak(stNovihRastlinNaSimulacijskiKorak),
      razmerjeMedVelikostjoInRadijemKrosnje(razmerjeMedVelikostjoInRadijemKrosnje),
      delezRastiBlizuSvojeVrste(delezRastiBlizuSvojeVrste), velikostObZrelosti(velikostObZrelosti),
      casZrelosti(casZrelosti), casStarosti(casStarosti), casSigurneSmrti(casSigurneSmrti),
      verjetnostUmrtjaObDominiranosti(verjetnostUmrtjaObDominiranosti),
      skodljivostNaklona(skodljivostNaklona), vplivMoci(vplivMoci),
      visina(potrebaPoVisini, tolerantnostSpremembVisine, verjetnostSmrtiObNeugodniVisini,
             slabVplivVisineNaHitrostRasti),
      vlaga(potrebaPoVlagi, tolerantnostSpremembVlage, verjetnostSmrtiObNeugodniVlagi,
            slabVplivVlageNaHitrostRasti),
      sonce(potrebaPoSoncu, tolerantnostSpremembSonca, verjetnostSmrtiObNeugodnemSoncu,
            slabVplivSoncaNaHitrostRasti),
      veter(potrebaPoVetru, tolerantnostSpremembVetra, verjetnostSmrtiObNeugodnemVetru,
            slabVplivVetraNaHitrostRasti),
      komulacijaSemen(1.0f), komulacijaPrihajajocihRastlin(komulacijaPrihajajocihRastlin),
      terrainData(terrainData), entitiesStatistics(entitiesStatistics) {}

CVrstaRastlin::CVrstaRastlin(const CVrstaRastlin& druga)
    : tip(druga.tip), stNovihRastlinNaSimulacijskiKorak(druga.stNovihRastlinNaSimulacijskiKorak),
      razmerjeMedVelikostjoInRadijemKrosnje(druga.razmerjeMedVelikostjoInRadijemKrosnje),
      delezRastiBlizuSvojeVrste(druga.delezRastiBlizuSvojeVrste),
      velikostObZrelosti(druga.velikostObZrelosti), casZrelosti(druga.casZrelosti),
      casStarosti(druga.casStarosti), casSigurneSmrti(druga.casSigurneSmrti),
      verjetnostUmrtjaObDominiranosti(druga.verjetnostUmrtjaObDominiranosti),
      skodljivostNaklona(druga.skodljivostNaklona), vplivMoci(druga.vplivMoci),
      visina(druga.visina), vlaga(druga.vlaga), sonce(druga.sonce), veter(druga.veter),
      komulacijaSemen(druga.komulacijaSemen),
      komulacijaPrihajajocihRastlin(druga.komulacijaPrihajajocihRastlin),
      terrainData(druga.terrainData), ziviPrimerkiTeVrste(druga.ziviPrimerkiTeVrste),
      entitiesStatistics(druga.entitiesStatistics) {
    prevzemiRastline();
}

CVrstaRastlin& CVrstaRastlin::operator=(const CVrstaRastlin& druga) {
    if (this == &druga)
        return *this;
    tip = druga.tip;
    stNovihRastlinNaSimulacijskiKorak = druga.stNovihRastlinNaSimulacijskiKorak;
    razmerjeMedVelikostjoInRadijemKrosnje = druga.razmerjeMedVelikostjoInRadijemKrosnje;
    delezRastiBlizuSvojeVrste = druga.delezRastiBlizuSvojeVrste;
    velikostObZrelosti = druga.velikostObZrelosti;
    casZrelosti = druga.casZrelosti;
    casStarosti = druga.casStarosti;
    casSigurneSmrti = druga.casSigurneSmrti;
    verjetnostUmrtjaObDominiranosti = druga.verjetnostUmrtjaObDominiranosti;
    skodljivostNaklona = druga.skodljivostNaklona;
    vplivMoci = druga.vplivMoci;
    visina = druga.visina;
    vlaga = druga.vlaga;
    sonce = druga.sonce;
    veter = druga.veter;
    komulacijaSemen = druga.komulacijaSemen;
    komulacijaPrihajajocihRastlin = druga.komulacijaPrihajajocihRastlin;
    terrainData = druga.terrainData;
    ziviPrimerkiTeVrste = druga.ziviPrimerkiTeVrste;
    entitiesStatistics = druga.entitiesStatistics;
    prevzemiRastline();
    return *this;
}

// Copied plants belong to the copy. (The simulation's cell index keeps pointing
// at the original plants; the vector of species is sized before plants exist.)
void CVrstaRastlin::prevzemiRastline() {
    for (CRastlina& rastlina : ziviPrimerkiTeVrste)
        rastlina.vrstaRastline = this;
}

bool CVrstaRastlin::zgostiRastline() {
    const PlantArena& arena = *ziviPrimerkiTeVrste.get_allocator().arena;
    const std::size_t najmanj = 1 << 20; // small lists are left alone
    if (arena.zasedenih() < najmanj || 8 * arena.zasedenih() <= 9 * arena.zivih())
        return false;
    // Each plant is copied and its old node freed at once, so emptied blocks go
    // back while the copy grows and the memory in use never doubles.
    SeznamRastlin zgoscen;
    while (!ziviPrimerkiTeVrste.empty()) {
        zgoscen.push_back(ziviPrimerkiTeVrste.front());
        ziviPrimerkiTeVrste.pop_front();
    }
    ziviPrimerkiTeVrste.swap(zgoscen);
    return true;
}

void CVrstaRastlin::dodajNovPrimerek(std::vector<CRastlina*>* rastlinePoTerenu,
                                     const Tocka2i& pozicija2d, const arbo::Tocka& pozicija3d) {
    ziviPrimerkiTeVrste.emplace_back(*this, pozicija2d, pozicija3d);
    const int celica = pozicija2d.y * terrainData->stTockX + pozicija2d.x;
    rastlinePoTerenu[celica].push_back(&ziviPrimerkiTeVrste.back());
}

void CVrstaRastlin::dodajKomuliraneRastline(float dodanaKomulacija,
                                            std::vector<CRastlina*>* rastlinePoTerenu) {
    komulacijaPrihajajocihRastlin += dodanaKomulacija;
    std::vector<Tocka2i> pozicije2d;
    std::vector<arbo::Tocka> pozicije3d;
    const auto prostor =
        static_cast<size_t>(std::max(0.0f, std::ceil(komulacijaPrihajajocihRastlin)));
    pozicije2d.reserve(prostor);
    pozicije3d.reserve(prostor);
    CSejalecRastlinNaTeren sejalec(*terrainData, pozicije2d, pozicije3d, *this);
    sejalec.dolociPozicijeRastlin();
    for (size_t i = 0; i < pozicije2d.size(); ++i)
        dodajNovPrimerek(rastlinePoTerenu, pozicije2d[i], pozicije3d[i]);
}

} // namespace ecosystem::simulationEntities
