#include "ecosystem/simulation/sejaleckjerkolirastlinnateren.h"

#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/randomgenerator.h"

namespace ecosystem {

unsigned long long CSejalecKjerkoliRastlinNaTeren::randomPozicijeNovihRastlinKjerkoli = 1;

CSejalecKjerkoliRastlinNaTeren::CSejalecKjerkoliRastlinNaTeren(data::CTerrainData& terrainData,
                                                               std::vector<Tocka2i>& pozicije2d,
                                                               std::vector<arbo::Tocka>& pozicije3d)
    : terrainData(terrainData), pozicije2d(pozicije2d), pozicije3d(pozicije3d) {}

// Without a dry cell in the lupa (a flat or drowned terrain) there is nowhere
// to sow: nothing is drawn and the plants are lost; the simulation says so.
void CSejalecKjerkoliRastlinNaTeren::dodajRastlineKjerkoli(int stRastlinRastocihKjerkoli) {
    if (terrainData.nonWaterIndexes.empty())
        return;
    for (int i = 0; i < stRastlinRastocihKjerkoli; ++i) {
        Tocka2i pozicija2d;
        dolociPozicijoNoveRastline2Dkjerkoli(pozicija2d);
        arbo::Tocka pozicija3d;
        terrainData.dolociPozicijoNoveRastline3D(pozicija2d, pozicija3d);
        dodajRastlinoVSeznama(pozicija2d, pozicija3d);
    }
}

void CSejalecKjerkoliRastlinNaTeren::dolociPozicijoNoveRastline2Dkjerkoli(Tocka2i& pozicija2d) {
    const std::vector<int>& suhe = terrainData.nonWaterIndexes;
    const int razpon = static_cast<int>(suhe.size());
    const int indeks =
        suhe[CRandomGenerator::randomGenerator(razpon, randomPozicijeNovihRastlinKjerkoli)];
    pozicija2d.y = indeks / terrainData.stTockX;
    pozicija2d.x = indeks % terrainData.stTockX;
}

void CSejalecKjerkoliRastlinNaTeren::dodajRastlinoVSeznama(const Tocka2i& pozicija2d,
                                                           const arbo::Tocka& pozicija3d) {
    if (!terrainData.jeNadVodo(pozicija3d))
        return;
    pozicije2d.push_back(pozicija2d);
    pozicije3d.push_back(pozicija3d);
}

} // namespace ecosystem
