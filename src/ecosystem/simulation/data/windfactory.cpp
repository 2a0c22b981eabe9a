#include "ecosystem/simulation/data/windfactory.h"

#include "ecosystem/simulation/data/elevationangle.h"
#include "ecosystem/simulation/data/rowworkers.h"
#include "ecosystem/simulation/data/terraindata.h"

#include <QCoreApplication>

namespace ecosystem::data {

using arbo::Tocka2D;

CWindFactory::CWindFactory(CTerrainData& terrainData)
    : windVector(0.0, 1.0), windFallRadius(10), windFallAngle(0.6981317f),
      terrainData(terrainData) {}

Tocka2D CWindFactory::getWindVector() const {
    return windVector;
}
int CWindFactory::getWindFallRadius() const {
    return windFallRadius;
}
void CWindFactory::setWindFallRadius(int r) {
    windFallRadius = r;
}
float CWindFactory::getWindFallAngle() const {
    return windFallAngle;
}
void CWindFactory::setWindFallAngle(float a) {
    windFallAngle = a;
}

bool CWindFactory::getNextVertex(Tocka2D& currentLocation) const {
    currentLocation.x -= windVector.x;
    currentLocation.y -= windVector.y;
    return currentLocation.x >= 0 && currentLocation.x < terrainData.stTockX &&
           currentLocation.y >= 0 && currentLocation.y < terrainData.stTockY;
}

float CWindFactory::getAngle(const Tocka2D& startingLocation,
                             const Tocka2D& currentLocation) const {
    return elevationAngle(terrainData, startingLocation, currentLocation);
}

// The steepest rise within windFallRadius steps upwind; a still wind (no
// direction) finds no rise and leaves the vertex fully exposed.
float CWindFactory::calculateWindness(Tocka2D& startingLocation) {
    if (windVector.x == 0.0 && windVector.y == 0.0)
        return 1.0f;
    float maxAngle = 0.0f;
    Tocka2D currentLocation = startingLocation;
    for (int stepsTaken = 0; stepsTaken < windFallRadius; ++stepsTaken) {
        if (!getNextVertex(currentLocation))
            break;
        const float angle = getAngle(startingLocation, currentLocation);
        if (angle > maxAngle)
            maxAngle = angle;
    }
    if (maxAngle > windFallAngle)
        return 0.0f;
    if (!(windFallAngle > 0.0f))
        return 1.0f; // no angle shelters: only a rise above level ground would
    return 1.0f - maxAngle / windFallAngle;
}

// Each vertex only reads heights and writes its own entry: rows are shared out
// over the processor cores.
void CWindFactory::buildWindiness() {
    CTerrainData& t = terrainData;
    forEachRow(t.stTockY, t.stTockX,
               QCoreApplication::translate("CWindFactory", "Computing windiness").toStdString(),
               [&](int y) {
                   for (int x = 0; x < t.stTockX; ++x) {
                       Tocka2D location(x, y);
                       t.terrainWindiness[x + y * t.stTockX] = calculateWindness(location);
                   }
               });
}

} // namespace ecosystem::data
