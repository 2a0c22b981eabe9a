#pragma once

#include "arbo/tocka.h"
#include "arbo/tocka2d.h"

namespace ecosystem::data {

class CTerrainData;

// World point of a (possibly fractional) grid position: x and z scaled by the
// terrain extent per grid point, the height of the vertex at the truncated
// column and row.
arbo::Tocka worldPointOfGridPosition(const CTerrainData& terrainData, const arbo::Tocka2D& g);

// Elevation angle (radians) from one grid position to another, as the sun and
// wind rays see it: -1 when the start is the higher of the two.
float elevationAngle(const CTerrainData& terrainData, const arbo::Tocka2D& startingLocation,
                     const arbo::Tocka2D& currentLocation);

} // namespace ecosystem::data
