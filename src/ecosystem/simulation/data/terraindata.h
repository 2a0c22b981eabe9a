#pragma once

#include "arbo/tocka.h"
#include "arbo/tocka2i.h"

#include <QImage>

#include <memory>
#include <vector>

namespace ecosystem::data {

class CHeighMapFactory;
class CTerrainNormalsFactory;
class CInclinationFactory;
class CRainFactory;
class CWindFactory;
class CSunFactory;

// The one terrain of the ecosystem: a regular grid of height points read from a
// DEM file (25 m apart), the per-vertex environment layers the simulation reads,
// the ortho-photo the renderer drapes over the grid, and the lupa, the
// sub-rectangle of the grid in which plants live.
//
// Every per-vertex array is indexed x + y*stTockX (column x, row y). The vertex
// of column x and row y stands at (25*x, height, 25*y); heights are measured
// from the lowest point of the DEM.
class CTerrainData {
public:
    // One surface point of the working grid, in world coordinates.
    struct TerrainVertexData {
        arbo::Tocka pos;
    };

    // Bounding box of the DEM in the file's own coordinates; -1 marks "unset".
    float dmrMaxX, dmrMaxY, dmrMaxZ;
    float dmrMinX, dmrMinY, dmrMinZ;
    float visinskaRazlikaNaTerenu; // height range dmrMaxZ - dmrMinZ

    arbo::Tocka origin;
    arbo::Tocka dimen; // terrain box: X size, height, Z size

    int stTockX; // grid columns
    int stTockY; // grid rows

    float waterHeight; // water level as a fraction of visinskaRazlikaNaTerenu

    std::vector<TerrainVertexData> pTerrainVertexData; // the working grid
    std::vector<int> nonWaterIndexes;                  // dry lupa vertices, row-major
    std::vector<arbo::Tocka> ogliscaTerena; // grid as loaded; the renderer's vertex array
    std::vector<arbo::Tocka> terrainNormals;
    std::vector<float> terrainInclination;
    std::vector<float> terrainMoisture;
    std::vector<float> terrainWindiness;
    std::vector<float> terrainSunniness;

    std::unique_ptr<QImage> ortofotoTexture; // 128 x 128, 32-bit RGB

    int lupaXmin, lupaXmax, lupaYmin, lupaYmax;
    // The lupa that nonWaterIndexes was built for: a loaded simulation file
    // brings its own lupa without building the list again.
    int nonWaterLupa[4] = {0, 0, 0, 0};

    std::unique_ptr<CHeighMapFactory> heighMapFactory;
    std::unique_ptr<CTerrainNormalsFactory> terrainNormalsFactory;
    std::unique_ptr<CInclinationFactory> inclinationFactory;
    std::unique_ptr<CRainFactory> rainFactory;
    std::unique_ptr<CWindFactory> windFactory;
    std::unique_ptr<CSunFactory> sunFactory;

    bool dataIsReady;
    // The simulation has told the user that the lupa has no dry land to sow
    // anywhere on; cleared whenever the dry-land list is built again.
    bool noDryLandReported = false;

    // Random streams of the position of a new plant inside its cell; the
    // simulation reads and replaces them with its other seeds.
    static unsigned long long randomPozicije3DNovihRastlinI;
    static unsigned long long randomPozicije3DNovihRastlinJ;

    // Builds the default 100 x 100 terrain from the compiled-in DEM; the layers
    // are not computed yet.
    CTerrainData();
    ~CTerrainData();
    CTerrainData(const CTerrainData&) = delete;
    CTerrainData& operator=(const CTerrainData&) = delete;

    // Dry-land index, then normals, inclination, moisture, sunniness and windiness.
    void buildTerrainData();
    bool isDataReady();

    // Replaces the terrain by a 100 x 100 grid read from the named DEM file (a
    // resource path beginning with ':' or a file path) and rebuilds every layer.
    // A file the loader rejects (it says why) changes nothing: false then.
    bool reloadDMR(const char* fileName);
    // The same for a DEM file of another grid size (the program always asks for
    // 100 x 100; tests and the fuzz driver use small grids). A simulation on a
    // terrain whose size changed must be given it again (setTerrainData).
    bool zamenjajTeren(const char* fileName, int noviStTockX, int noviStTockY);

    void spawnLupa();

    bool jeNadVodo(const arbo::Tocka& pozicija3D);
    bool jeNadVodo(const Tocka2i& pozicija2D);

    void buildNonwaterIndexes();

    arbo::Tocka vrniNakljucnoPozicijo(arbo::Tocka& A, arbo::Tocka& i, arbo::Tocka& j);
    void dolociPozicijoNoveRastline3D(const Tocka2i& pozicija2D, arbo::Tocka& pozicija3d);

    // None before the first buildTerrainData.
    CSunFactory* getSunFactory() const;

private:
    void allocateGrid();
    bool isAboveWater(float height) const;
};

} // namespace ecosystem::data
