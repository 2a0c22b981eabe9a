#include "ecosystem/simulation/entities/rastlina.h"

#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/entities/vrstarastlin.h"
#include "ecosystem/simulation/randomgenerator.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ecosystem::simulationEntities {

int CRastlina::lastID = 0;
unsigned long long CRastlina::randomCasSmrti = 1;

CRastlina::CRastlina(CVrstaRastlin& vrstaRastlin, const Tocka2i& pozicija2d,
                     const arbo::Tocka& pozicija3d)
    : vrstaRastline(&vrstaRastlin), id(0), trenutnaStarost(0), trenutnaVelikost(0.0f),
      trenutniRadij(0.0f), pozicijaMap2D(pozicija2d), pozicija3D(pozicija3d) {
    vlaznostTukaj = dolociVlaznostNoveRastline(pozicijaMap2D);
    dolociSmrt();
    trenutnaMoc = 0.0f;
    visinaTukajNormNadVodo = dolociVisinoTukajNadVodoNormalizirano();
    strminaTukaj = getStrminaTerena(pozicijaMap2D);
    jeDominirana = false;
    const int celica = indeksCelice(pozicijaMap2D);
    sonceTukaj = vrstaRastline->terrainData->terrainSunniness[celica];
    veterTukaj = vrstaRastline->terrainData->terrainWindiness[celica];
    dolociProdornostRastline();
    // After 2^31 - 1 plants the numbers start again at 1 rather than overflow.
    lastID = lastID == std::numeric_limits<int>::max() ? 1 : lastID + 1;
    id = lastID;
}

int CRastlina::indeksCelice(const Tocka2i& celica) const {
    return celica.y * vrstaRastline->terrainData->stTockX + celica.x;
}

float CRastlina::dolociVlaznostNoveRastline(Tocka2i& pozicijaMap2D) {
    return vrstaRastline->terrainData->terrainMoisture[indeksCelice(pozicijaMap2D)];
}

float CRastlina::getStrminaTerena(Tocka2i& pozicijaMap2D) {
    return vrstaRastline->terrainData->terrainInclination[indeksCelice(pozicijaMap2D)];
}

// The height is put on the 0..1 scale of the terrain's own above-water test
// (y over the terrain's height range) before the water level is taken off. A
// flat terrain has no range: everything on it lies at 0.
float CRastlina::dolociVisinoTukajNadVodoNormalizirano() {
    const data::CTerrainData& teren = *vrstaRastline->terrainData;
    const float visina =
        teren.visinskaRazlikaNaTerenu > 0.0f ? pozicija3D.y / teren.visinskaRazlikaNaTerenu : 0.0f;
    const float voda = teren.waterHeight;
    return static_cast<float>((visina - voda) / (1.0 - voda));
}

void CRastlina::dolociSmrt() {
    const int razpon = vrstaRastline->casSigurneSmrti - vrstaRastline->casStarosti;
    umreNaKoraku = static_cast<float>(
        vrstaRastline->casStarosti +
        static_cast<int>(CRandomGenerator::randomGenerator(razpon, randomCasSmrti)));
}

void CRastlina::dolociProdornostRastline() {
    CVrstaRastlin& vrsta = *vrstaRastline;
    const float vlagaOK = std::clamp(vrsta.vlaga.getFaktorRasti(vlaznostTukaj), 0.0f, 1.0f);
    const float sonceOK = std::clamp(vrsta.sonce.getFaktorRasti(sonceTukaj), 0.0f, 1.0f);
    const float veterOK = std::clamp(vrsta.veter.getFaktorRasti(veterTukaj), 0.0f, 1.0f);
    const float visinaOK =
        std::clamp(vrsta.visina.getFaktorRasti(visinaTukajNormNadVodo), 0.0f, 1.0f);
    const float skoda = vrsta.skodljivostNaklona * strminaTukaj;
    const float strminaOK = 1.0f - skoda * skoda;
    prodornost = (vlagaOK * sonceOK) * veterOK * visinaOK * strminaOK;
}

bool CRastlina::presekaRadijRastline(CRastlina& rastlinaSovraznik) {
    const double dx = double(pozicija3D.x) - double(rastlinaSovraznik.pozicija3D.x);
    const double dy = double(pozicija3D.y) - double(rastlinaSovraznik.pozicija3D.y);
    const double dz = double(pozicija3D.z) - double(rastlinaSovraznik.pozicija3D.z);
    const float razdalja = static_cast<float>(std::sqrt(dx * dx + dy * dy + dz * dz));
    return trenutniRadij + rastlinaSovraznik.trenutniRadij > razdalja;
}

} // namespace ecosystem::simulationEntities
