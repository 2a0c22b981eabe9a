#pragma once

// Small hand-made terrains and an independent re-derivation of the stream
// generator, shared by the terrain, simulation and render tests.

#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/entities/vrstarastlin.h"

#include <QByteArray>
#include <QImage>

#include <algorithm>
#include <functional>

#include <vector>

namespace testterrain {

// The generator as its definition reads: state * 69069 modulo 2^33, result
// the low 32 bits modulo the range.
inline unsigned naslednje(unsigned long long& stanje, unsigned razpon) {
    stanje = (stanje * 69069ULL) % (1ULL << 33);
    return static_cast<unsigned>(stanje % (1ULL << 32)) % razpon;
}

using ecosystem::data::CTerrainData;

// Turns t into a w x h grid 25 m apart with the given heights (from 0 up); the
// terrain box matches the grid so rays step 25 m per grid unit.
inline void reshape(CTerrainData& t, int w, int h, const std::function<float(int, int)>& height) {
    t.stTockX = w;
    t.stTockY = h;
    const int n = w * h;
    t.ogliscaTerena.assign(n, arbo::Tocka(0, 0, 0));
    t.pTerrainVertexData.resize(n);
    t.terrainNormals.assign(n, arbo::Tocka(0, 0, 0));
    t.terrainInclination.assign(n, 0.0f);
    t.terrainMoisture.assign(n, 0.0f);
    t.terrainWindiness.assign(n, 0.0f);
    t.terrainSunniness.assign(n, 0.0f);
    float highest = 0.0f;
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const float hy = height(x, y);
            highest = std::max(highest, hy);
            t.ogliscaTerena[x + y * w] = arbo::Tocka(25.0f * x, hy, 25.0f * y);
            t.pTerrainVertexData[x + y * w].pos = t.ogliscaTerena[x + y * w];
        }
    }
    t.dmrMinZ = 0;
    t.dmrMaxZ = highest;
    t.visinskaRazlikaNaTerenu = highest;
    t.dimen = arbo::Tocka(25.0f * w, 1000.0f, 25.0f * h);
    t.spawnLupa();
}

// Everything a DEM load may change, byte for byte: grid, bounding box, height
// range, every layer, the dry-land list, the ortho-photo and which factories
// exist (by address, so a rebuild shows).
inline QByteArray stanje(const CTerrainData& t) {
    QByteArray b;
    auto dodaj = [&b](const void* p, size_t n) {
        b.append(static_cast<const char*>(p), qsizetype(n));
    };
    auto niz = [&dodaj](const auto& v) { dodaj(v.data(), v.size() * sizeof(v[0])); };
    const float meje[7] = {t.dmrMaxX,
                           t.dmrMaxY,
                           t.dmrMaxZ,
                           t.dmrMinX,
                           t.dmrMinY,
                           t.dmrMinZ,
                           t.visinskaRazlikaNaTerenu};
    const int cela[7] = {t.stTockX,  t.stTockY,  t.lupaXmin,           t.lupaXmax,
                         t.lupaYmin, t.lupaYmax, t.dataIsReady ? 1 : 0};
    const void* tovarne[6] = {t.heighMapFactory.get(),    t.terrainNormalsFactory.get(),
                              t.inclinationFactory.get(), t.rainFactory.get(),
                              t.windFactory.get(),        t.sunFactory.get()};
    dodaj(meje, sizeof meje);
    dodaj(cela, sizeof cela);
    dodaj(tovarne, sizeof tovarne);
    dodaj(t.pTerrainVertexData.data(), t.pTerrainVertexData.size() * sizeof(arbo::Tocka));
    niz(t.ogliscaTerena);
    niz(t.terrainNormals);
    niz(t.terrainInclination);
    niz(t.terrainMoisture);
    niz(t.terrainWindiness);
    niz(t.terrainSunniness);
    niz(t.nonWaterIndexes);
    if (t.ortofotoTexture)
        dodaj(t.ortofotoTexture->constBits(), size_t(t.ortofotoTexture->sizeInBytes()));
    return b;
}

// A w x h grid, 25 m apart, every vertex at height 100 (of a 500 m range) and
// every layer at the given values; the lupa covers the whole grid.
inline void pripravi(CTerrainData& t, int w, int h, float strmina = 0.0f, float vlaga = 0.5f,
                     float sonce = 0.5f, float veter = 0.0f) {
    reshape(t, w, h, [](int, int) { return 100.0f; });
    t.visinskaRazlikaNaTerenu = 500.0f;
    t.waterHeight = 0.0f;
    t.terrainInclination.assign(w * h, strmina);
    t.terrainMoisture.assign(w * h, vlaga);
    t.terrainSunniness.assign(w * h, sonce);
    t.terrainWindiness.assign(w * h, veter);
    t.lupaXmin = 0;
    t.lupaXmax = w - 1;
    t.lupaYmin = 0;
    t.lupaYmax = h - 1;
    t.buildNonwaterIndexes();
}

inline void potopi(ecosystem::data::CTerrainData& t, int x, int y) {
    t.pTerrainVertexData[x + y * t.stTockX].pos.y = 0.0f;
}

// A species that tolerates everything: no condition ever slows or kills it.
struct Lastnosti {
    int tip = 0;
    int casZrelosti = 3, casStarosti = 10, casSigurneSmrti = 25;
    float velikostObZrelosti = 0.8f;
    float verjetnostUmrtjaObDominiranosti = 0.5f;
    float razmerje = 1.0f;
    float delezBlizu = 0.8f;
    float skodljivostNaklona = 0.0f;
    float vplivMoci = 1.0f;
};

inline ecosystem::simulationEntities::CVrstaRastlin
vrsta(ecosystem::data::CTerrainData* t, ecosystem::statistics::CEntitiesStatistics* s,
      const Lastnosti& l = {}) {
    return ecosystem::simulationEntities::CVrstaRastlin(
        t, s, l.tip, 5.0f, 0.0f, l.casZrelosti, l.casStarosti, l.casSigurneSmrti,
        l.velikostObZrelosti, l.verjetnostUmrtjaObDominiranosti, 0.5f, 10.0f, 0.3f, 0.5f, 0.5f,
        10.0f, 0.3f, 0.5f, 0.5f, 10.0f, 0.4f, 0.1f, 0.0f, 10.0f, 0.1f, 0.1f, l.razmerje,
        l.delezBlizu, l.skodljivostNaklona, l.vplivMoci);
}

} // namespace testterrain
