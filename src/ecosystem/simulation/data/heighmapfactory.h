#pragma once

#include <QImage>
#include <QRgb>

namespace ecosystem::data {

class CTerrainData;

// Fills the terrain grid from a DEM text file (".dmr": three numbers X Y Z per
// point, row by row) and synthesises the 128 x 128 ortho-photo coloured by
// height from five height-band textures.
class CHeighMapFactory {
public:
    CTerrainData* terrainData;

    explicit CHeighMapFactory(CTerrainData* terrainData);

    // Reads exactly stTockX*stTockY points; the name may be a resource path.
    void loadDmrHeighMap(const char* fileName);
    void zgradiBoundingBoxDmr(float beriX, float beriY, float beriZ);
    // A new 128 x 128 image that the caller owns.
    QImage* produceOrtoFotoTexture();
    // Colour at normalised map position (x, y) in [0, 1) and normalised height
    // in [0, 1], from the five height textures images[0] .. images[4].
    QRgb getPixelAtNormalized(float x, float y, float height, QImage* images);
};

QRgb mixPixels(QRgb pix1, QRgb pix2, QRgb pix3, float h);

} // namespace ecosystem::data
