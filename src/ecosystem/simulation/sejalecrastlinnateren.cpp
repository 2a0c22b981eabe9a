#include "ecosystem/simulation/sejalecrastlinnateren.h"

#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/entities/vrstarastlin.h"
#include "ecosystem/simulation/randomgenerator.h"

#include <algorithm>

namespace ecosystem {

using simulationEntities::CRastlina;

unsigned long long CSejalecRastlinNaTeren::randomRastiBlizu = 1;
unsigned long long CSejalecRastlinNaTeren::randomIzbireBliznjeRastline = 1;
unsigned long long CSejalecRastlinNaTeren::randomIzbireStraniRastiObBliznjiRastlini = 1;

CSejalecRastlinNaTeren::CSejalecRastlinNaTeren(data::CTerrainData& terrainData,
                                               std::vector<Tocka2i>& pozicije2d,
                                               std::vector<arbo::Tocka>& pozicije3d,
                                               simulationEntities::CVrstaRastlin& vrstaRastlin)
    : terrainData(terrainData), pozicije2d(pozicije2d), pozicije3d(pozicije3d),
      vrstaRastlin(vrstaRastlin),
      sejalecKjerkoliRastlinNaTeren(terrainData, pozicije2d, pozicije3d) {}

void CSejalecRastlinNaTeren::dolociPozicijeRastlin() {
    int stRastlinRastocihKjerkoli = 0;
    std::vector<int> indeksiBlizu;
    kreirajIndekseRastlinBlizu(indeksiBlizu, stRastlinRastocihKjerkoli);
    std::sort(indeksiBlizu.begin(), indeksiBlizu.end());
    dodajRastlineBlizu(indeksiBlizu);
    sejalecKjerkoliRastlinNaTeren.dodajRastlineKjerkoli(stRastlinRastocihKjerkoli);
}

void CSejalecRastlinNaTeren::kreirajIndekseRastlinBlizu(std::vector<int>& indeksiBlizu,
                                                        int& stRastlinRastocihKjerkoli) {
    const int stRastlin = static_cast<int>(vrstaRastlin.ziviPrimerkiTeVrste.size());
    // The fraction below one unit waits for a later step.
    while (vrstaRastlin.komulacijaPrihajajocihRastlin >= 1.0f) {
        vrstaRastlin.komulacijaPrihajajocihRastlin -= 1.0f;
        if (!rasteBlizu())
            stRastlinRastocihKjerkoli += 1;
        else if (stRastlin > 0)
            indeksiBlizu.push_back(static_cast<int>(
                CRandomGenerator::randomGenerator(stRastlin, randomIzbireBliznjeRastline)));
        // else: near was chosen but the species has no plant, so the unit is lost
    }
}

bool CSejalecRastlinNaTeren::rasteBlizu() {
    const unsigned int r = CRandomGenerator::randomGenerator(100000, randomRastiBlizu);
    const double p = r / 100000.0;
    return vrstaRastlin.delezRastiBlizuSvojeVrste > p;
}

void CSejalecRastlinNaTeren::dodajRastlineBlizu(std::vector<int>& indeksiBlizu) {
    size_t j = 0;
    int i = 0;
    for (auto it = vrstaRastlin.ziviPrimerkiTeVrste.begin();
         it != vrstaRastlin.ziviPrimerkiTeVrste.end() && j < indeksiBlizu.size(); ++it, ++i) {
        CRastlina& stars = *it;
        while (j < indeksiBlizu.size() && indeksiBlizu[j] == i) {
            Tocka2i pozicija2dNova;
            dolociPozicijoNoveRastline2Dblizu(stars.pozicijaMap2D, pozicija2dNova);
            if (terrainData.jeNadVodo(pozicija2dNova)) {
                arbo::Tocka pozicija3d;
                terrainData.dolociPozicijoNoveRastline3D(pozicija2dNova, pozicija3d);
                dodajRastlinoVSeznama(pozicija2dNova, pozicija3d);
            }
            j += 1;
        }
    }
}

void CSejalecRastlinNaTeren::dolociPozicijoNoveRastline2Dblizu(Tocka2i& pozicija2dObstojeceRastline,
                                                               Tocka2i& pozicija2dNova) {
    pozicija2dNova = pozicija2dObstojeceRastline;
    const unsigned int r =
        CRandomGenerator::randomGenerator(100000, randomIzbireStraniRastiObBliznjiRastlini);
    const int stran = static_cast<int>(r / 100000.0 * 4.0);
    switch (stran) {
    case 0:
        pozicija2dNova.y -= 1;
        break;
    case 1:
        pozicija2dNova.y += 1;
        break;
    case 2:
        pozicija2dNova.x -= 1;
        break;
    default:
        pozicija2dNova.x += 1;
        break;
    }
}

void CSejalecRastlinNaTeren::dodajRastlinoVSeznama(const Tocka2i& pozicija2d,
                                                   const arbo::Tocka& pozicija3d) {
    if (!terrainData.jeNadVodo(pozicija3d))
        return;
    pozicije2d.push_back(pozicija2d);
    pozicije3d.push_back(pozicija3d);
}

} // namespace ecosystem
