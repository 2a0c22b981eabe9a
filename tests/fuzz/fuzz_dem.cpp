// Fuzz driver of the DEM loader: the file replaces a small terrain of 8 x 6
// points through the same path as "Load DEM" (read and check, then swap and
// rebuild every layer). A rejected file must leave the terrain, every layer
// and the ortho-photo exactly as they were and tell the user once; on an
// accepted one every layer must be finite and a simulation must step on it.

#include "fuzz/fuzzfile.h"

#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"
#include "support/terrain.h"

#include <algorithm>
#include <cmath>

using ecosystem::CEcosystemSimulation;
using ecosystem::data::CTerrainData;

namespace {
const int sirina = 8, visina = 6;

bool koncne(const std::vector<float>& plast) {
    return std::all_of(plast.begin(), plast.end(), [](float v) { return std::isfinite(v); });
}

bool vseKoncno(const CTerrainData& t) {
    bool tocke = true;
    for (const auto& v : t.pTerrainVertexData)
        tocke = tocke && std::isfinite(v.pos.y);
    return tocke && std::isfinite(t.visinskaRazlikaNaTerenu) && koncne(t.terrainInclination) &&
           koncne(t.terrainMoisture) && koncne(t.terrainSunniness) && koncne(t.terrainWindiness);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    static fuzz::Okolje okolje;
    static CTerrainData teren;
    // The terrain every input starts from, made again only after a file changed it.
    static std::string osnova;
    static bool spremenjen = true;
    if (osnova.empty()) {
        QByteArray dem;
        for (int i = 0; i < sirina * visina; ++i)
            dem += QByteArray::number(500000 + 25 * (i % sirina)) + " " +
                   QByteArray::number(100000 - 25 * (i / sirina)) + " " +
                   QByteArray::number(300 + (i * 37) % 50) + "\n";
        osnova = okolje.zapisi(reinterpret_cast<const std::uint8_t*>(dem.constData()),
                               size_t(dem.size()), "osnova.dmr");
    }
    okolje.pocisti();
    if (spremenjen) {
        fuzz::zahtevaj(teren.zamenjajTeren(osnova.c_str(), sirina, visina), "the base loads");
        spremenjen = false;
    }
    const QByteArray prej = testterrain::stanje(teren);
    const std::string pot = okolje.zapisi(data, size, "in.dmr");
    okolje.pocisti();
    if (!teren.zamenjajTeren(pot.c_str(), sirina, visina)) {
        fuzz::zahtevaj(fuzz::stSporocil() == 1, "a rejected file is reported once");
        fuzz::zahtevaj(testterrain::stanje(teren) == prej, "a rejected file changes nothing");
        return 0;
    }
    spremenjen = true;
    fuzz::zahtevaj(fuzz::stSporocil() == 0, "an accepted file says nothing");
    fuzz::zahtevaj(vseKoncno(teren), "every layer of an accepted terrain is finite");
    ecosystem::simulationEntities::CRastlina::lastID = 0;
    CEcosystemSimulation s;
    s.setTerrainData(teren);
    for (int i = 0; i < 4; ++i)
        s.simulateNextStep();
    fuzz::zahtevaj(fuzz::stSporocil() <= 1, "no dry land is told at most once");
    return 0;
}
