#pragma once

#include "arbo/tocka.h"
#include "arbo/tocka2d.h"

namespace ecosystem::data {

class CTerrainData;

// Sunniness per vertex: the sunlight of one day summed over sun positions along
// an arc from sunrise through midday to sunset, each weighted towards midday and
// cut to a diffuse remainder where the terrain hides the sun.
class CSunFactory {
public:
    CTerrainData& terrainData;
    int nrSunSamples;
    float difuseSunlightPower;
    arbo::Tocka sunStart;
    arbo::Tocka sunEnd;
    arbo::Tocka sunMiddle;

    explicit CSunFactory(CTerrainData& terrainData);

    void setNrSunSamples(int nrSunSamples);
    int getNrSunSamples() const;
    void setSunStart(const arbo::Tocka& sunStart);
    arbo::Tocka getSunStart() const;
    void setSunEnd(const arbo::Tocka& sunEnd);
    arbo::Tocka getSunEnd() const;
    arbo::Tocka getSunMiddle() const;

    // Unit direction towards the sun at sample i, 0 <= i < nrSunSamples.
    arbo::Tocka getSunPositionAtSample(int i) const;
    double getSunPower(float cosine) const;
    double getCosineBetweenNormalisedVectors(const arbo::Tocka& normal,
                                             const arbo::Tocka& sunPosition) const;
    // One step towards the sun; false once the ray has left the grid.
    bool getNextVertex(arbo::Tocka2D& currentLocation, const arbo::Tocka& sunVector) const;
    float getAngle(const arbo::Tocka2D& startingLocation,
                   const arbo::Tocka2D& currentLocation) const;
    // 1 when the sun is visible from the position, else difuseSunlightPower.
    float calculateShelternessBehindTerrain(const arbo::Tocka2D& startingLocation,
                                            const arbo::Tocka& sunVector) const;
    double getPointCumulativeSunniness(const arbo::Tocka2D& startingLocation,
                                       const arbo::Tocka& normal) const;
    void buildSunniness();
};

} // namespace ecosystem::data
