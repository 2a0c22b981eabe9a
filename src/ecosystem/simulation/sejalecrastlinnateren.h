#pragma once

#include "arbo/tocka.h"
#include "arbo/tocka2i.h"
#include "ecosystem/simulation/sejaleckjerkolirastlinnateren.h"

#include <vector>

namespace ecosystem::simulationEntities {
class CVrstaRastlin;
}

namespace ecosystem {

// Sows the whole new-plant count of one species for one step: most units grow
// beside a random parent of the species, the rest anywhere on dry land.
class CSejalecRastlinNaTeren {
public:
    data::CTerrainData& terrainData;
    std::vector<Tocka2i>& pozicije2d;
    std::vector<arbo::Tocka>& pozicije3d;
    simulationEntities::CVrstaRastlin& vrstaRastlin;
    CSejalecKjerkoliRastlinNaTeren sejalecKjerkoliRastlinNaTeren;

    static unsigned long long randomRastiBlizu;
    static unsigned long long randomIzbireBliznjeRastline;
    static unsigned long long randomIzbireStraniRastiObBliznjiRastlini;

    CSejalecRastlinNaTeren(data::CTerrainData& terrainData, std::vector<Tocka2i>& pozicije2d,
                           std::vector<arbo::Tocka>& pozicije3d,
                           simulationEntities::CVrstaRastlin& vrstaRastlin);

    void dolociPozicijeRastlin();
    void kreirajIndekseRastlinBlizu(std::vector<int>& indeksiBlizu, int& stRastlinRastocihKjerkoli);
    bool rasteBlizu();
    // indeksiBlizu sorted ascending: one pass over the linked plant list.
    void dodajRastlineBlizu(std::vector<int>& indeksiBlizu);
    void dolociPozicijoNoveRastline2Dblizu(Tocka2i& pozicija2dObstojeceRastline,
                                           Tocka2i& pozicija2dNova);
    void dodajRastlinoVSeznama(const Tocka2i& pozicija2d, const arbo::Tocka& pozicija3d);
};

} // namespace ecosystem
