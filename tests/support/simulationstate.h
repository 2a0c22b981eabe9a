#pragma once

// The whole state of a simulation as text, for checks that something changed
// nothing: step, every plant with every field (exact, in hexadecimal floats),
// each species' fractions, the cell index, the random streams, the lupa, the
// last plant number and the statistics' length. With samoEkosistem only what
// the seeds decide, to compare separate runs: no plant numbers (they run on
// over the process), no cell index (it lists them), no statistics.

#include "arbo/krivulja.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"

#include <sstream>
#include <string>

namespace testsimulation {

inline std::string stanje(ecosystem::CEcosystemSimulation& s, bool samoEkosistem = false) {
    using ecosystem::simulationEntities::CRastlina;
    using ecosystem::simulationEntities::CVrstaRastlin;
    std::ostringstream o;
    o << std::hexfloat << s.simulationStepNr << '\n';
    if (!samoEkosistem)
        o << s.simulationRunning << ' ' << CRastlina::lastID << '\n';
    for (const CVrstaRastlin& v : s.rastlinskeVrste) {
        o << v.komulacijaPrihajajocihRastlin << ' ' << v.komulacijaSemen << ':'
          << v.ziviPrimerkiTeVrste.size() << '\n';
        for (const CRastlina& r : v.ziviPrimerkiTeVrste)
            o << (samoEkosistem ? 0 : r.id) << ' ' << r.pozicijaMap2D.x << ' ' << r.pozicijaMap2D.y
              << ' ' << r.pozicija3D.x << ' ' << r.pozicija3D.y << ' ' << r.pozicija3D.z << ' '
              << r.trenutnaStarost << ' ' << r.trenutnaVelikost << ' ' << r.trenutniRadij << ' '
              << r.prodornost << ' ' << r.trenutnaMoc << ' ' << r.strminaTukaj << ' '
              << r.vlaznostTukaj << ' ' << r.sonceTukaj << ' ' << r.veterTukaj << ' '
              << r.visinaTukajNormNadVodo << ' ' << r.umreNaKoraku << ' ' << r.jeDominirana << '\n';
    }
    if (s.terrainData) {
        const ecosystem::data::CTerrainData& t = *s.terrainData;
        for (int i = 0; i < t.stTockX * t.stTockY; ++i) {
            if (samoEkosistem || s.rastlinePoTerenu[i].empty())
                continue;
            o << i << ':';
            for (const CRastlina* r : s.rastlinePoTerenu[i])
                o << ' ' << r->id;
            o << '\n';
        }
        o << t.lupaXmin << ' ' << t.lupaXmax << ' ' << t.lupaYmin << ' ' << t.lupaYmax << '\n';
    }
    for (unsigned long long seme : s.getRandomGeneratorSeeds())
        o << seme << ' ';
    if (samoEkosistem)
        return o.str();
    o << '\n' << s.entitiesStatistics.getLogText() << '\n';
    for (const auto* graf : s.entitiesStatistics.grafiStevilaRastlin)
        o << graf->tocke.size() << ' ';
    return o.str();
}

} // namespace testsimulation
