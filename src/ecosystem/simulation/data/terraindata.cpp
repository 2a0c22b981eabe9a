#include "ecosystem/simulation/data/terraindata.h"

#include "ecosystem/simulation/data/heighmapfactory.h"
#include "ecosystem/simulation/data/inclinationfactory.h"
#include "ecosystem/simulation/data/rainfactory.h"
#include "ecosystem/simulation/data/sunfactory.h"
#include "ecosystem/simulation/data/terrainnormalsfactory.h"
#include "ecosystem/simulation/data/windfactory.h"
#include "ecosystem/simulation/randomgenerator.h"

#include <algorithm>

namespace ecosystem::data {

using arbo::Tocka;

unsigned long long CTerrainData::randomPozicije3DNovihRastlinI = 1;
unsigned long long CTerrainData::randomPozicije3DNovihRastlinJ = 2;

namespace {
const char* const defaultDmr = ":/gui/textures/100x100.dmr";
const float velikostKrpe = 25.0f; // grid spacing in metres
} // namespace

CTerrainData::CTerrainData()
    : dmrMaxX(-1), dmrMaxY(-1), dmrMaxZ(-1), dmrMinX(-1), dmrMinY(-1), dmrMinZ(-1),
      visinskaRazlikaNaTerenu(500.0f), origin(0, 0, 0), dimen(2500, 1000, 2500), stTockX(100),
      stTockY(100), waterHeight(0.0f), lupaXmin(0), lupaXmax(0), lupaYmin(0), lupaYmax(0),
      dataIsReady(false) {
    spawnLupa();
    allocateGrid();
    heighMapFactory = std::make_unique<CHeighMapFactory>(this);
    heighMapFactory->loadDmrHeighMap(defaultDmr);
    ortofotoTexture.reset(heighMapFactory->produceOrtoFotoTexture());
}

CTerrainData::~CTerrainData() = default;

// Fresh arrays hold a flat grid at height 0 (points a short DEM file leaves
// unread stay there), zero layers and upward normals.
void CTerrainData::allocateGrid() {
    const int n = stTockX * stTockY;
    ogliscaTerena.assign(n, Tocka(0, 0, 0));
    for (int y = 0; y < stTockY; ++y)
        for (int x = 0; x < stTockX; ++x)
            ogliscaTerena[x + y * stTockX] = Tocka(velikostKrpe * x, 0, velikostKrpe * y);
    pTerrainVertexData.resize(n);
    for (int i = 0; i < n; ++i)
        pTerrainVertexData[i].pos = ogliscaTerena[i];
    terrainNormals.assign(n, Tocka(0, 1, 0));
    terrainInclination.assign(n, 0.0f);
    terrainMoisture.assign(n, 0.0f);
    terrainWindiness.assign(n, 0.0f);
    terrainSunniness.assign(n, 0.0f);
}

void CTerrainData::buildTerrainData() {
    buildNonwaterIndexes();

    terrainNormalsFactory = std::make_unique<CTerrainNormalsFactory>(*this);
    inclinationFactory = std::make_unique<CInclinationFactory>(*this);
    rainFactory = std::make_unique<CRainFactory>(*this);
    sunFactory = std::make_unique<CSunFactory>(*this);
    windFactory = std::make_unique<CWindFactory>(*this);

    terrainNormalsFactory->buildTriangleNormals();
    inclinationFactory->buildInclination();
    rainFactory->buildRain();
    sunFactory->buildSunniness();
    windFactory->buildWindiness();

    dataIsReady = true;
}

bool CTerrainData::isDataReady() {
    return dataIsReady;
}

bool CTerrainData::reloadDMR(const char* fileName) {
    // Only the DEM loader knows the grid size of a DEM file: always 100 x 100.
    return zamenjajTeren(fileName, 100, 100);
}

// The file is read and checked into a grid of its own first: a rejected file
// leaves the terrain, every layer and the factories exactly as they were.
bool CTerrainData::zamenjajTeren(const char* fileName, int noviStTockX, int noviStTockY) {
    CHeighMapFactory::Mreza mreza;
    if (!CHeighMapFactory::preberiDmr(fileName, noviStTockX, noviStTockY, mreza))
        return false;

    heighMapFactory.reset();
    terrainNormalsFactory.reset();
    inclinationFactory.reset();
    rainFactory.reset();
    windFactory.reset();
    sunFactory.reset();
    dataIsReady = false;

    stTockX = noviStTockX;
    stTockY = noviStTockY;
    allocateGrid();

    heighMapFactory = std::make_unique<CHeighMapFactory>(this);
    heighMapFactory->prevzemi(mreza);
    ortofotoTexture.reset(heighMapFactory->produceOrtoFotoTexture());

    buildTerrainData();
    return true;
}

void CTerrainData::spawnLupa() {
    lupaXmin = stTockX / 4;
    lupaXmax = 3 * (stTockX / 4);
    lupaYmin = stTockY / 4;
    lupaYmax = 3 * (stTockY / 4);
}

// A flat terrain has no height range: there only heights above 0 count as dry,
// which is what the relative level 0 means, without dividing by zero.
bool CTerrainData::isAboveWater(float height) const {
    if (visinskaRazlikaNaTerenu > 0.0f)
        return height / visinskaRazlikaNaTerenu > waterHeight;
    return height > 0.0f;
}

bool CTerrainData::jeNadVodo(const Tocka& pozicija3D) {
    return isAboveWater(pozicija3D.y);
}

bool CTerrainData::jeNadVodo(const Tocka2i& pozicija2D) {
    if (pozicija2D.y < lupaYmin || pozicija2D.y > lupaYmax)
        return false;
    if (pozicija2D.x < lupaXmin || pozicija2D.x > lupaXmax)
        return false;
    // A lupa reaching past the grid does not make cells off the grid dry.
    if (pozicija2D.x < 0 || pozicija2D.x >= stTockX || pozicija2D.y < 0 || pozicija2D.y >= stTockY)
        return false;
    return isAboveWater(pTerrainVertexData[pozicija2D.x + pozicija2D.y * stTockX].pos.y);
}

// The lupa is half-open here: its last column and row are never listed, so a
// listed vertex always has its +X and next-row neighbours in the grid.
void CTerrainData::buildNonwaterIndexes() {
    nonWaterIndexes.clear();
    noDryLandReported = false;
    nonWaterLupa[0] = lupaXmin;
    nonWaterLupa[1] = lupaXmax;
    nonWaterLupa[2] = lupaYmin;
    nonWaterLupa[3] = lupaYmax;
    const float waterLevel = waterHeight * visinskaRazlikaNaTerenu;
    auto dry = [&](int index) { return pTerrainVertexData[index].pos.y > waterLevel; };
    // A lupa set past the grid is cut to it.
    const int xEnd = std::min(lupaXmax, stTockX), yEnd = std::min(lupaYmax, stTockY);
    for (int y = std::max(lupaYmin, 0); y < yEnd; ++y) {
        for (int x = std::max(lupaXmin, 0); x < xEnd; ++x) {
            const int index = x + y * stTockX;
            if (!dry(index))
                continue;
            if (x != stTockX - 1 && !dry(index + 1))
                continue;
            if (y != stTockY - 1 && !dry(index + stTockX))
                continue;
            nonWaterIndexes.push_back(index);
        }
    }
}

// Three draws per call: stream I twice (the second value unused), stream J once.
Tocka CTerrainData::vrniNakljucnoPozicijo(Tocka& A, Tocka& i, Tocka& j) {
    const float step = 0.000244140625f; // 1/4096
    const float randI =
        CRandomGenerator::randomGenerator(4096, randomPozicije3DNovihRastlinI) * step;
    const float randJ =
        CRandomGenerator::randomGenerator(4096, randomPozicije3DNovihRastlinJ) * step;
    CRandomGenerator::randomGenerator(4096, randomPozicije3DNovihRastlinI);
    return A + (i - A) * randI + (j - A) * randJ;
}

void CTerrainData::dolociPozicijoNoveRastline3D(const Tocka2i& pozicija2D, Tocka& pozicija3d) {
    const int index = pozicija2D.x + pozicija2D.y * stTockX;
    Tocka A = pTerrainVertexData[index].pos;
    Tocka B = pozicija2D.x + 1 >= stTockX ? A : pTerrainVertexData[index + 1].pos;
    Tocka C = pozicija2D.y + 1 >= stTockY ? A : pTerrainVertexData[index + stTockX].pos;
    pozicija3d = vrniNakljucnoPozicijo(A, B, C);
}

CSunFactory* CTerrainData::getSunFactory() const {
    return sunFactory.get();
}

} // namespace ecosystem::data
