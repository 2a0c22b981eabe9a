#pragma once

#include "arbo/tocka.h"
#include "arbo/tocka2i.h"

#include <vector>

namespace ecosystem::data {
class CTerrainData;
}

namespace ecosystem {

// Places new plants on random dry cells anywhere in the terrain's plant area.
class CSejalecKjerkoliRastlinNaTeren {
public:
    data::CTerrainData& terrainData;
    std::vector<Tocka2i>& pozicije2d;
    std::vector<arbo::Tocka>& pozicije3d;

    static unsigned long long randomPozicijeNovihRastlinKjerkoli;

    CSejalecKjerkoliRastlinNaTeren(data::CTerrainData& terrainData,
                                   std::vector<Tocka2i>& pozicije2d,
                                   std::vector<arbo::Tocka>& pozicije3d);

    // The terrain's dry-cell list must not be empty.
    void dodajRastlineKjerkoli(int stRastlinRastocihKjerkoli);
    void dolociPozicijoNoveRastline2Dkjerkoli(Tocka2i& pozicija2d);
    void dodajRastlinoVSeznama(const Tocka2i& pozicija2d, const arbo::Tocka& pozicija3d);
};

} // namespace ecosystem
