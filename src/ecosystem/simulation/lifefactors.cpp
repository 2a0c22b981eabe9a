#include "ecosystem/simulation/lifefactors.h"

#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/dominancegrid.h"
#include "ecosystem/simulation/entities/vrstarastlin.h"
#include "ecosystem/simulation/randomgenerator.h"
#include "ecosystem/simulation/statistics/entitiesstatistics.h"

#include <algorithm>

namespace ecosystem {

using simulationEntities::CRastlina;
using simulationEntities::CVrstaRastlin;

LifeFactors::LifeFactors(std::vector<CVrstaRastlin>* rastlinskeVrste)
    : randomSmrtiZaradiDominiranosti(1), randomSmrtiZaradiNeugodnostiVisine(1),
      randomSmrtiZaradiNeugodnostiVlage(1), randomSmrtiZaradiNeugodnostiSonca(1),
      randomSmrtiZaradiNeugodnostiVetra(1), randomSmrtiZaradiNeugodnostiNaklona(1),
      rastlinePoTerenu(nullptr), rastlinskeVrste(rastlinskeVrste), dominanceGrid(nullptr) {}

void LifeFactors::setRastlinePoTerenu(std::vector<CRastlina*>* rastlinePoTerenu) {
    this->rastlinePoTerenu = rastlinePoTerenu;
}

bool LifeFactors::umreSedaj(CRastlina& rastlina) {
    const bool odStarostiAliSibkosti = umreZaradiStarosti(rastlina) || umreZaradiSibkosti(rastlina);
    // The environmental chain only advances the streams of the tests it runs;
    // its verdict does not decide the death.
    (void)(umreZaradiVisine(rastlina) || umreZaradiNeugodneVlage(rastlina) ||
           umreZaradiNeugodnegaSonca(rastlina) || umreZaradiNeugodnegaVetra(rastlina) ||
           umreZaradiStrmine_oz_Prsti_oz_kislostiTal_Ph(rastlina));
    if (odStarostiAliSibkosti) {
        rastlina.vrstaRastline->entitiesStatistics->dodajSmrtOstalo();
        return true;
    }
    if (umreZaradiDominiranosti(rastlina)) {
        rastlina.vrstaRastline->entitiesStatistics->dodajSmrtZaradiDominiranosti();
        return true;
    }
    return false;
}

bool LifeFactors::umreZaradiStarosti(CRastlina& rastlina) {
    return static_cast<float>(rastlina.trenutnaStarost) >= rastlina.umreNaKoraku;
}

bool LifeFactors::umreZaradiSibkosti(CRastlina& rastlina) {
    return rastlina.prodornost <= 0.1f;
}

bool LifeFactors::umreZaradiVisine(CRastlina& rastlina) {
    return rastlina.vrstaRastline->visina.umreZaradiNeugodnegaPogoja(
        randomSmrtiZaradiNeugodnostiVisine, rastlina.visinaTukajNormNadVodo);
}

bool LifeFactors::umreZaradiNeugodneVlage(CRastlina& rastlina) {
    return rastlina.vrstaRastline->vlaga.umreZaradiNeugodnegaPogoja(
        randomSmrtiZaradiNeugodnostiVlage, rastlina.vlaznostTukaj);
}

bool LifeFactors::umreZaradiNeugodnegaSonca(CRastlina& rastlina) {
    return rastlina.vrstaRastline->sonce.umreZaradiNeugodnegaPogoja(
        randomSmrtiZaradiNeugodnostiSonca, rastlina.sonceTukaj);
}

bool LifeFactors::umreZaradiNeugodnegaVetra(CRastlina& rastlina) {
    return rastlina.vrstaRastline->veter.umreZaradiNeugodnegaPogoja(
        randomSmrtiZaradiNeugodnostiVetra, rastlina.veterTukaj);
}

bool LifeFactors::umreZaradiStrmine_oz_Prsti_oz_kislostiTal_Ph(CRastlina& rastlina) {
    const unsigned int r =
        CRandomGenerator::randomGenerator(100000, randomSmrtiZaradiNeugodnostiNaklona);
    const double p = r / 100000.0;
    const float skoda = rastlina.vrstaRastline->skodljivostNaklona * rastlina.strminaTukaj;
    return skoda * skoda > p;
}

bool LifeFactors::umreZaradiDominiranosti(CRastlina& rastlina) {
    rastlina.jeDominirana = imaDominantnegaSoseda(rastlina);
    if (!rastlina.jeDominirana)
        return false;
    const unsigned int r =
        CRandomGenerator::randomGenerator(100000, randomSmrtiZaradiDominiranosti);
    const double p = r / 100000.0;
    return rastlina.vrstaRastline->verjetnostUmrtjaObDominiranosti > p;
}

bool LifeFactors::imaDominantnegaSoseda(CRastlina& rastlina) {
    if (dominanceGrid)
        return dominanceGrid->imaDominantnegaSoseda(rastlina);
    const int k = CVrstaRastlin::maxStKvadratovNajdemRadijSoseda;
    const data::CTerrainData& teren = *rastlina.vrstaRastline->terrainData;
    const int x = rastlina.pozicijaMap2D.x;
    const int y = rastlina.pozicijaMap2D.y;
    const float mocRastline = rastlina.trenutnaMoc * rastlina.vrstaRastline->vplivMoci;
    for (int vrsta = std::max(0, y - k); vrsta <= std::min(teren.stTockY - 1, y + k); ++vrsta) {
        for (int stolpec = std::max(0, x - k); stolpec <= std::min(teren.stTockX - 1, x + k);
             ++stolpec) {
            for (CRastlina* sosed : rastlinePoTerenu[vrsta * teren.stTockX + stolpec]) {
                if (sosed == &rastlina)
                    continue;
                if (sosed->trenutnaMoc * sosed->vrstaRastline->vplivMoci >= mocRastline &&
                    rastlina.presekaRadijRastline(*sosed))
                    return true;
            }
        }
    }
    return false;
}

} // namespace ecosystem
