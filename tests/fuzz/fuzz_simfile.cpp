// Fuzz driver of the simulation file loader: a fresh simulation on a small
// hilly terrain runs a few steps, then loads the file. A rejected file must
// leave the simulation and the terrain exactly as they were and tell the user
// once; after an accepted one the simulation must go on stepping.

#include "fuzz/fuzzfile.h"

#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"
#include "support/simulationstate.h"
#include "support/terrain.h"

#include <cmath>

using ecosystem::CEcosystemSimulation;
using ecosystem::data::CTerrainData;

namespace {
// 16 x 12 points with a valley along the middle row, so that some cells lie at
// the water level.
void pripraviTeren(CTerrainData& t) {
    testterrain::reshape(t, 16, 12,
                         [](int x, int y) { return float(std::abs(y - 6) * 12 + (x % 5) * 3); });
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    static fuzz::Okolje okolje;
    static CTerrainData teren;
    okolje.pocisti();
    pripraviTeren(teren);
    ecosystem::simulationEntities::CRastlina::lastID = 0;
    CEcosystemSimulation s;
    s.setTerrainData(teren);
    for (int i = 0; i < 6; ++i)
        s.simulateNextStep();
    const std::string pot = okolje.zapisi(data, size, "in.sim");
    const std::string prej = testsimulation::stanje(s);
    const QByteArray terenPrej = testterrain::stanje(teren);
    okolje.pocisti();
    s.loadSimulation(pot);
    if (fuzz::stSporocil() > 0) {
        fuzz::zahtevaj(fuzz::stSporocil() == 1, "a rejected file is reported once");
        fuzz::zahtevaj(testsimulation::stanje(s) == prej, "a rejected file changes nothing");
        fuzz::zahtevaj(testterrain::stanje(teren) == terenPrej,
                       "a rejected file leaves the terrain");
        return 0;
    }
    for (int i = 0; i < 3; ++i)
        s.simulateNextStep();
    return 0;
}
