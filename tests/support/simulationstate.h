#pragma once

// The whole state of a simulation as text, for checks that something changed
// nothing: step, every plant with every field (exact, in hexadecimal floats),
// each species' fractions, the cell index, the random streams, the lupa, the
// last plant number and the statistics' length.

#include "arbo/krivulja.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"

#include <sstream>
#include <string>

namespace testsimulation {

inline std::string stanje(ecosystem::CEcosystemSimulation& s) {
    using ecosystem::simulationEntities::CRastlina;
    using ecosystem::simulationEntities::CVrstaRastlin;
    std::ostringstream o;
    o << std::hexfloat << s.simulationStepNr << ' ' << s.simulationRunning << ' '
      << CRastlina::lastID << '\n';
    for (const CVrstaRastlin& v : s.rastlinskeVrste) {
        o << v.komulacijaPrihajajocihRastlin << ' ' << v.komulacijaSemen << ':'
          << v.ziviPrimerkiTeVrste.size() << '\n';
        for (const CRastlina& r : v.ziviPrimerkiTeVrste)
            o << r.id << ' ' << r.pozicijaMap2D.x << ' ' << r.pozicijaMap2D.y << ' '
              << r.pozicija3D.x << ' ' << r.pozicija3D.y << ' ' << r.pozicija3D.z << ' '
              << r.trenutnaStarost << ' ' << r.trenutnaVelikost << ' ' << r.trenutniRadij << ' '
              << r.prodornost << ' ' << r.trenutnaMoc << ' ' << r.strminaTukaj << ' '
              << r.vlaznostTukaj << ' ' << r.sonceTukaj << ' ' << r.veterTukaj << ' '
              << r.visinaTukajNormNadVodo << ' ' << r.umreNaKoraku << ' ' << r.jeDominirana << '\n';
    }
    if (s.terrainData) {
        const ecosystem::data::CTerrainData& t = *s.terrainData;
        for (int i = 0; i < t.stTockX * t.stTockY; ++i) {
            if (s.rastlinePoTerenu[i].empty())
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
    o << '\n' << s.entitiesStatistics.getLogText() << '\n';
    for (const auto* graf : s.entitiesStatistics.grafiStevilaRastlin)
        o << graf->tocke.size() << ' ';
    return o.str();
}

} // namespace testsimulation
