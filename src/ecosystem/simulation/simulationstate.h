#pragma once

#include "ecosystem/simulation/simulationfile.h"

#include <string>
#include <vector>

namespace ecosystem {

class CEcosystemSimulation;
namespace data {
class CTerrainData;
}

// The contents of an exact state file (".state"): everything a continuation
// needs to repeat, bit for bit, the run that wrote it. A simulation file cannot
// carry that: it keeps six digits and not the dominated flags, the seed counts
// of the last growth phase, the last plant number, the lupa the dry-land list
// was built for nor the death tallies. Floats are written with nine
// significant digits, which read back to the very float written. The terrain
// is named and identified by a checksum of its heights: a state continues only
// on its own terrain.
class CSimulationState {
public:
    // The first line of every state file (the format's version is its number).
    static constexpr const char* glava = "virela simulation state 1";
    // A species' seed count: 1 / stNovihRastlinNaSimulacijskiKorak plus the
    // strengths (each at most 1.01) of its mature plants, of which there are
    // at most CSimulationFile::najvecRastlin; the next add phase then sows at
    // most a few million plants.
    static constexpr float najvecjaKomulacijaSemen = 1.1e6f;

    struct Rastlina : CSimulationFile::Rastlina {
        bool jeDominirana;
    };

    enum class Izid { Prebrano, NiOdprta, DrugTeren, Pokvarjena };

    std::string imeTerena;
    int stTockX = 0, stTockY = 0;
    unsigned long long vsotaTerena = 0;
    int simulationStepNr = 0;
    std::vector<std::vector<Rastlina>> rastlineVrst; // per species, oldest first
    std::vector<float> komulacijePrihajajocihRastlin, komulacijeSemen;
    std::vector<unsigned long long> seeds; // thirteen stream states
    int lupa[4] = {0, 0, 0, 0};            // first and last column, first and last row
    int lupaSuhihCelic[4] = {0, 0, 0, 0};  // the lupa of the dry-land list
    bool brezSuhihSporoceno = false;       // "no dry land" has been told
    int lastID = 0;
    int umrliZaradiDominiranosti = 0, umrliOstalo = 0, umrliSkupaj = 0;
    // Why a file is Pokvarjena: its line and what is wrong there, in the
    // user's language.
    std::string razlog;

    // Checksum of the grid size and every height point of a terrain.
    static unsigned long long vsota(const data::CTerrainData& teren);
    // The state file of a simulation on its terrain, named imeTerena.
    static void zapisi(CSimulationFile::Pisanje& p, CEcosystemSimulation& simulacija,
                       const std::string& imeTerena);

    // Reads fileName; accepted only when written on this terrain, with
    // stVrst species and every value within the limits of a simulation
    // file and the ones above.
    Izid preberi(const std::string& fileName, int stVrst, const data::CTerrainData& teren);

private:
    using Branje = CSimulationFile::Branje;
    bool preberiTeren(Branje& b);
    bool preberiRastline(Branje& b, int stVrst);
    bool preberiOstalo(Branje& b, int stVrst);
};

} // namespace ecosystem
