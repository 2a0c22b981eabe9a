#include "ecosystem/simulation/data/elevationangle.h"

#include "ecosystem/simulation/data/terraindata.h"

#include <cmath>

namespace ecosystem::data {

using arbo::Tocka;
using arbo::Tocka2D;

Tocka worldPointOfGridPosition(const CTerrainData& t, const Tocka2D& g) {
    const float scaleX = t.dimen.x / t.stTockX;
    const float scaleZ = t.dimen.z / t.stTockY;
    const int index = int(g.x) + int(g.y) * t.stTockX;
    return Tocka(float(g.x * scaleX), t.pTerrainVertexData[index].pos.y, float(g.y * scaleZ));
}

float elevationAngle(const CTerrainData& t, const Tocka2D& startingLocation,
                     const Tocka2D& currentLocation) {
    const Tocka start = worldPointOfGridPosition(t, startingLocation);
    const Tocka current = worldPointOfGridPosition(t, currentLocation);
    if (start.y > current.y)
        return -1.0f;
    const Tocka diff = current - start;
    // Two vertices at one horizontal position (a terrain box of no extent) are
    // a vertical rise: the tangent is infinite and the angle a right angle; one
    // position against itself gives no angle (NaN), which is never the larger.
    const double horizontal = Tocka(diff.x, 0.0f, diff.z).dolzina();
    const float tanAlpha = float(diff.y / horizontal);
    return float(std::atan(double(tanAlpha)));
}

} // namespace ecosystem::data
