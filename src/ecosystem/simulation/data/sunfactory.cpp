#include "ecosystem/simulation/data/sunfactory.h"

#include "ecosystem/simulation/data/elevationangle.h"
#include "ecosystem/simulation/data/terraindata.h"

#include <cmath>

namespace ecosystem::data {

using arbo::Tocka;
using arbo::Tocka2D;

namespace {

const float halfPi = 1.5707964f;

Tocka normalised(Tocka t) {
    t.normalize();
    return t;
}

} // namespace

CSunFactory::CSunFactory(CTerrainData& terrainData)
    : terrainData(terrainData), nrSunSamples(21), difuseSunlightPower(0.2f),
      sunStart(normalised(Tocka(1.0f, 0.0f, 0.37f))),
      sunEnd(normalised(Tocka(-1.0f, 0.0f, 0.37f))) {
    const double midday = double(0.7679449f); // 44 degrees
    sunMiddle = normalised(Tocka(0.0f, float(std::sin(midday)), float(-std::cos(midday))));
}

void CSunFactory::setNrSunSamples(int n) {
    nrSunSamples = n;
}
int CSunFactory::getNrSunSamples() const {
    return nrSunSamples;
}
void CSunFactory::setSunStart(const Tocka& s) {
    sunStart = s;
}
Tocka CSunFactory::getSunStart() const {
    return sunStart;
}
void CSunFactory::setSunEnd(const Tocka& s) {
    sunEnd = s;
}
Tocka CSunFactory::getSunEnd() const {
    return sunEnd;
}
Tocka CSunFactory::getSunMiddle() const {
    return sunMiddle;
}

// The arc leaves the rising point along Z, turns through the midday point and
// reaches the setting point along Z; its height rises and falls linearly.
Tocka CSunFactory::getSunPositionAtSample(int i) const {
    const int n = nrSunSamples;
    const int h = n / 2;
    const int middle = (n - 1) / 2;
    if (i == 0)
        return sunStart;
    if (i == n - 1)
        return sunEnd;
    if (i == middle)
        return sunMiddle;
    if (i < middle) {
        const Tocka sunDiff = sunMiddle - sunStart;
        const float k = float(i) / h;
        const double fi = double(k * halfPi);
        return normalised(sunStart + Tocka(float((1.0 - std::cos(fi)) * sunDiff.x), k * sunDiff.y,
                                           float(std::sin(fi) * sunDiff.z)));
    }
    const Tocka sunDiff = sunEnd - sunMiddle;
    const float k = float(i - h) / h;
    const double fi = double(k * halfPi);
    return normalised(sunMiddle + Tocka(float(std::sin(fi) * sunDiff.x), k * sunDiff.y,
                                        float((1.0 - std::cos(fi)) * sunDiff.z)));
}

double CSunFactory::getSunPower(float cosine) const {
    return cosine >= 0 ? cosine : 0.0;
}

double CSunFactory::getCosineBetweenNormalisedVectors(const Tocka& normal,
                                                      const Tocka& sunPosition) const {
    return normal.skalarniProdukt(sunPosition);
}

// The grid row follows world Z; a step is the horizontal part of the unit
// direction, less than one cell.
bool CSunFactory::getNextVertex(Tocka2D& currentLocation, const Tocka& sunVector) const {
    currentLocation.x += sunVector.x;
    currentLocation.y += sunVector.z;
    return currentLocation.x >= 0 && currentLocation.x < terrainData.stTockX &&
           currentLocation.y >= 0 && currentLocation.y < terrainData.stTockY;
}

float CSunFactory::getAngle(const Tocka2D& startingLocation, const Tocka2D& currentLocation) const {
    return elevationAngle(terrainData, startingLocation, currentLocation);
}

// A sun straight overhead (no horizontal component) casts a ray that never
// leaves the grid: it counts as unobstructed.
float CSunFactory::calculateShelternessBehindTerrain(const Tocka2D& startingLocation,
                                                     const Tocka& sunVector) const {
    if (sunVector.x == 0.0f && sunVector.z == 0.0f)
        return 1.0f;
    const float sunAngle = float(std::asin(sunVector.y / sunVector.dolzina()));
    Tocka2D currentLocation = startingLocation;
    while (getNextVertex(currentLocation, sunVector)) {
        if (getAngle(startingLocation, currentLocation) > sunAngle)
            return difuseSunlightPower;
    }
    return 1.0f;
}

double CSunFactory::getPointCumulativeSunniness(const Tocka2D& startingLocation,
                                                const Tocka& normal) const {
    const int n = nrSunSamples;
    if (n <= 0)
        return 0.0;
    const int m = n - 1;
    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
        const Tocka sunPosition = getSunPositionAtSample(i);
        const double power =
            getSunPower(float(getCosineBetweenNormalisedVectors(normal, sunPosition)));
        // 1 at sunrise and sunset, 2 at midday, linear between.
        const double weight = m == 0 ? 1.0 : (i > m / 2 ? 3.0 - 2.0 * i / m : 2.0 * i / m + 1.0);
        sum += power * weight * calculateShelternessBehindTerrain(startingLocation, sunPosition);
    }
    return sum / n;
}

void CSunFactory::buildSunniness() {
    CTerrainData& t = terrainData;
    for (int y = 0; y < t.stTockY; ++y) {
        for (int x = 0; x < t.stTockX; ++x) {
            const int index = x + y * t.stTockX;
            t.terrainSunniness[index] =
                float(getPointCumulativeSunniness(Tocka2D(x, y), t.terrainNormals[index]));
        }
    }
}

} // namespace ecosystem::data
