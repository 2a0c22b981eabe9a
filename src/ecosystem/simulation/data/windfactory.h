#pragma once

#include "arbo/tocka2d.h"

namespace ecosystem::data {

class CTerrainData;

// Windiness per vertex: 1 fully exposed, 0 sheltered by terrain that rises
// upwind more steeply than the wind-fall angle, in proportion below it.
class CWindFactory {
public:
    arbo::Tocka2D windVector; // direction the wind blows, in grid units
    int windFallRadius;       // upwind steps examined
    float windFallAngle;      // radians
    CTerrainData& terrainData;

    explicit CWindFactory(CTerrainData& terrainData);

    arbo::Tocka2D getWindVector() const;
    int getWindFallRadius() const;
    void setWindFallRadius(int windFallRadius);
    float getWindFallAngle() const;
    void setWindFallAngle(float windFallAngle);

    // One step upwind; false once the position has left the grid.
    bool getNextVertex(arbo::Tocka2D& currentLocation) const;
    float getAngle(const arbo::Tocka2D& startingLocation,
                   const arbo::Tocka2D& currentLocation) const;
    float calculateWindness(arbo::Tocka2D& startingLocation);
    void buildWindiness();
};

} // namespace ecosystem::data
