#pragma once

#include <vector>

namespace ecosystem::simulationEntities {
class CRastlina;
class CVrstaRastlin;
} // namespace ecosystem::simulationEntities

namespace ecosystem {

// A fine bucket grid over the plants' ground positions, built at the start of
// the kill phase. It answers the dominance question exactly as a scan of the
// cell index does (a neighbour in the search square of cells, at least as
// strong, whose crown overlaps), but looks only at plants near enough for their
// crowns to touch. Dead plants are taken out as the kill phase goes on.
//
// The kill phase visits the plants in the order in which the grid was built
// (species by species, each list front to back) and announces each one with
// naslednjaRastlina; knowing the order, the grid fetches the memory of the
// plants a few places ahead while it answers for the current one.
class CDominanceGrid {
public:
    void zgradi(std::vector<simulationEntities::CVrstaRastlin>& rastlinskeVrste, int polSirina,
                int stTockX);
    // The plant that the kill phase decides about next.
    void naslednjaRastlina(const simulationEntities::CRastlina& rastlina);
    // Takes out the plant most recently announced (it died).
    void odstrani(const simulationEntities::CRastlina& rastlina);
    bool imaDominantnegaSoseda(simulationEntities::CRastlina& rastlina) const;

private:
    // What every look at a neighbour reads, kept small so that the grid stays
    // in the processor's cache...
    struct Zapis {
        float x, z;
        float radij;
        float moc; // strength weighted by the species' vplivMoci; -inf once dead
    };
    // ... and what only a neighbour near enough to overlap needs.
    struct Podrobnosti {
        float y; // with x and z a copy of pozicija3D
        union {
            int celica;    // y * stTockX + x of pozicijaMap2D
            int zaporedna; // while building: place of the plant in the kill order
        };
        const simulationEntities::CRastlina* rastlina;
    };
    struct Predal {
        int zacetek;  // first record; the next bucket's zacetek ends it
        float maxMoc; // no record of the bucket is stronger
    };

    int predalX(double x) const;
    int predalZ(double z) const;
    int predal(const simulationEntities::CRastlina& rastlina) const;
    void dolociPredale(int stRastlin);
    void razvrstiPoMoci();
    int poisciZapis(const simulationEntities::CRastlina& rastlina) const;
    void pripraviVnaprej(int zaporedna) const;
    double doseg(float radij) const;
    bool vCelicahIskanja(int celica, int celicaX, int celicaY) const;
    static bool sePrekrivata(const simulationEntities::CRastlina& rastlina, const Zapis& sosed,
                             const Podrobnosti& podrobnosti);

    std::vector<Zapis> zapisi;            // grouped by bucket, strongest first
    std::vector<Podrobnosti> podrobnosti; // in step with zapisi
    std::vector<Predal> predali;          // one extra at the end
    std::vector<int> vrstniRed;           // record of the k-th plant of the kill order
    int trenutna = -1;                    // position in vrstniRed of the current plant
    int trenutniZapis = -1;               // its record
    double minX = 0, minZ = 0, maxX = 0, maxZ = 0;
    double velikostPredala = 1;
    int stPredalovX = 0, stPredalovZ = 0;
    float najvecjiRadij = 0;
    int polSirina = 0; // half-width of the search square, in cells
    int stTockX = 1;
};

} // namespace ecosystem
