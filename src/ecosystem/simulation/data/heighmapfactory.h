#pragma once

#include "arbo/tocka.h"

#include <QImage>
#include <QRgb>

#include <vector>

namespace ecosystem::data {

class CTerrainData;

// Fills the terrain grid from a DEM text file (".dmr": three numbers X Y Z per
// point, row by row) and synthesises the 128 x 128 ortho-photo coloured by
// height from five height-band textures.
class CHeighMapFactory {
public:
    // What a DEM file may hold: heights within plus or minus 100 km (every
    // elevation on Earth, also in decimetres) and map coordinates within plus or
    // minus 10^8 m (any national or UTM grid), so that the height range and every
    // layer computed from it stay finite.
    static constexpr float najvecjaVisina = 1e5f;
    static constexpr float najvecjaKoordinata = 1e8f;

    // The points of one DEM file, read and checked before the terrain changes.
    struct Mreza {
        int stTockX = 0, stTockY = 0;
        std::vector<arbo::Tocka> tocke; // (25 x, raw elevation, 25 y), row by row
        float maxX = -1, maxY = -1, maxZ = -1;
        float minX = -1, minY = -1, minZ = -1;
    };

    CTerrainData* terrainData;

    explicit CHeighMapFactory(CTerrainData* terrainData);

    // Reads exactly stTockX*stTockY points of the terrain's grid; the name may
    // be a resource path. A file that cannot be opened, ends early, holds
    // anything but numbers where the points are, a value beyond the limits
    // above, or points that do not form the grid (X changing along a row, Y
    // from row to row) is reported and changes nothing; false then.
    bool loadDmrHeighMap(const char* fileName);
    // The reading and checking alone: mreza is filled only on success.
    static bool preberiDmr(const char* fileName, int stTockX, int stTockY, Mreza& mreza);
    // Puts a grid of the terrain's size into it: heights from the lowest point,
    // bounding box, vertex data and height range.
    void prevzemi(const Mreza& mreza);
    void zgradiBoundingBoxDmr(float beriX, float beriY, float beriZ);
    // A new 128 x 128 image that the caller owns.
    QImage* produceOrtoFotoTexture();
    // Colour at normalised map position (x, y) in [0, 1) and normalised height
    // in [0, 1], from the five height textures images[0] .. images[4].
    QRgb getPixelAtNormalized(float x, float y, float height, QImage* images);
};

QRgb mixPixels(QRgb pix1, QRgb pix2, QRgb pix3, float h);

} // namespace ecosystem::data
