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
    const double horizontal = Tocka(diff.x, 0.0f, diff.z).dolzina();
    if (horizontal == 0.0)
        return -1.0f;
    const float tanAlpha = float(diff.y / horizontal);
    return float(std::atan(double(tanAlpha)));
}

} // namespace ecosystem::data
