#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace ecosystem::simulationEntities {
class CRastlina;
class CVrstaRastlin;
} // namespace ecosystem::simulationEntities

namespace ecosystem {

// Answers the dominance question of the kill phase exactly as a scan of the
// cell index does (a living neighbour in the search square of cells, at least
// as strong, whose crown overlaps), without wandering through memory.
//
// It is built at the start of the kill phase: a fine bucket grid over the
// plants' ground positions, looking only at plants near enough for their
// crowns to touch. The kill phase visits the plants in a known order (species
// by species, each list front to back), and which plants die of old age or
// weakness is known before it starts. So while building, the grid walks the
// buckets in memory order and settles for each plant which neighbours could
// still be alive at its turn: a dominating neighbour later in the order
// certainly is (nothing is removed before its own turn), one that dies of old
// age or weakness earlier certainly is not. What remains is an earlier
// neighbour that may or may not have died of dominance; the grid keeps the
// first of those and, at the plant's turn, looks at its death mark only. Only
// when that neighbour died and there were more does it search the buckets again.
//
// The kill phase announces every plant in its order with naslednjaRastlina and
// marks the ones that die with odstrani.
class CDominanceGrid {
public:
    // Whether a plant dies in this kill phase whatever its neighbours are.
    using SmrtNeglede = std::function<bool(simulationEntities::CRastlina&)>;

    void zgradi(std::vector<simulationEntities::CVrstaRastlin>& rastlinskeVrste, int polSirina,
                int stTockX, const SmrtNeglede& umreNeglede);
    // The next plant of the kill order is the one asked about now.
    void naslednjaRastlina();
    // The current plant died.
    void odstrani();
    // For the current plant, which must be rastlina.
    bool imaDominantnegaSoseda(const simulationEntities::CRastlina& rastlina) const;

private:
    // What every look at a neighbour reads, kept small so that the grid stays
    // in the processor's cache...
    struct Zapis {
        float x, z;
        float radij;
        float moc; // strength weighted by the species' vplivMoci
    };
    // ... and what only a neighbour near enough to overlap needs.
    struct Podrobnosti {
        float y;                 // with x and z a copy of pozicija3D
        int celica;              // y * stTockX + x of pozicijaMap2D
        std::uint32_t zaporedna; // place in the kill order; top bit: dies whatever happens
    };
    struct Predal {
        int zacetek;  // first record; the next bucket's zacetek ends it
        float maxMoc; // no record of the bucket is stronger
    };
    // A plant as it looks for dominating neighbours.
    struct Iskalec {
        double x, y, z;
        float radij, moc;
        int celicaX, celicaY;
        std::uint32_t zaporedna;
    };

    int predalX(double x) const;
    int predalZ(double z) const;
    int predal(float x, float z) const;
    void dolociPredale(int stRastlin);
    void razvrstiPoMoci();
    void razvrstiPredal(int zacetek, int konec);
    void razresiVnaprej();
    std::int32_t razresi(int zapis) const;
    bool jeMrtva(std::uint32_t zaporedna) const;
    double doseg(float radij) const;
    // Calls naSosedu(zaporedna) for every neighbour that overlaps, is at least as
    // strong and lies in the search square, until it returns true.
    template <typename F> void preglej(const Iskalec& iskalec, F&& naSosedu) const;

    std::vector<Zapis> zapisi;            // grouped by bucket, strongest first
    std::vector<Podrobnosti> podrobnosti; // in step with zapisi
    std::vector<Predal> predali;          // one extra at the end
    std::vector<std::int32_t> stanja;     // per place in the kill order: what razresi found
    std::vector<std::uint64_t> mrtve;     // per place in the kill order: died in this kill phase
    int trenutna = -1;                    // place in the kill order of the current plant
    double minX = 0, minZ = 0, maxX = 0, maxZ = 0;
    double velikostPredala = 1;
    double obratnaVelikost = 1; // 1 / velikostPredala
    int stPredalovX = 0, stPredalovZ = 0;
    float najvecjiRadij = 0;
    int polSirina = 0; // half-width of the search square, in cells
    int stTockX = 1;
};

} // namespace ecosystem
