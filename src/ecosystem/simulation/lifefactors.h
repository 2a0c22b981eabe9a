#pragma once

#include <vector>

namespace ecosystem::simulationEntities {
class CRastlina;
class CVrstaRastlin;
} // namespace ecosystem::simulationEntities

namespace ecosystem {

class CDominanceGrid;

// Decides whether a plant dies in the kill phase and books the cause
// (dominance or any other) in the statistics.
class LifeFactors {
public:
    unsigned long long randomSmrtiZaradiDominiranosti;
    unsigned long long randomSmrtiZaradiNeugodnostiVisine;
    unsigned long long randomSmrtiZaradiNeugodnostiVlage;
    unsigned long long randomSmrtiZaradiNeugodnostiSonca;
    unsigned long long randomSmrtiZaradiNeugodnostiVetra;
    unsigned long long randomSmrtiZaradiNeugodnostiNaklona;
    std::vector<simulationEntities::CRastlina*>* rastlinePoTerenu;   // not owned
    std::vector<simulationEntities::CVrstaRastlin>* rastlinskeVrste; // not owned
    // While the simulation kills plants it lends this faster index of the same
    // neighbours; without it the cell index is scanned directly.
    const CDominanceGrid* dominanceGrid;

    explicit LifeFactors(std::vector<simulationEntities::CVrstaRastlin>* rastlinskeVrste);

    void setRastlinePoTerenu(std::vector<simulationEntities::CRastlina*>* rastlinePoTerenu);

    bool umreSedaj(simulationEntities::CRastlina& rastlina);

    bool umreZaradiStarosti(simulationEntities::CRastlina& rastlina);
    bool umreZaradiSibkosti(simulationEntities::CRastlina& rastlina);
    bool umreZaradiDominiranosti(simulationEntities::CRastlina& rastlina);
    bool umreZaradiVisine(simulationEntities::CRastlina& rastlina);
    bool umreZaradiNeugodneVlage(simulationEntities::CRastlina& rastlina);
    bool umreZaradiNeugodnegaSonca(simulationEntities::CRastlina& rastlina);
    bool umreZaradiNeugodnegaVetra(simulationEntities::CRastlina& rastlina);
    bool umreZaradiStrmine_oz_Prsti_oz_kislostiTal_Ph(simulationEntities::CRastlina& rastlina);

private:
    // Whether a neighbour in the search square is at least as strong and overlaps.
    bool imaDominantnegaSoseda(simulationEntities::CRastlina& rastlina);
};

} // namespace ecosystem
