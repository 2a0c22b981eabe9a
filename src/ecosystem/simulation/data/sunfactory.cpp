#include "ecosystem/simulation/data/sunfactory.h"

#include "ecosystem/simulation/data/elevationangle.h"
#include "ecosystem/simulation/data/rowworkers.h"
#include "ecosystem/simulation/data/terraindata.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace ecosystem::data {

using arbo::Tocka;
using arbo::Tocka2D;

namespace {

const float halfPi = 1.5707964f;

Tocka normalised(Tocka t) {
    t.normalize();
    return t;
}

// Floats in ascending order as integers, so that a search can halve them.
long long orderedKey(float f) {
    std::uint32_t bits;
    std::memcpy(&bits, &f, sizeof bits);
    return (bits & 0x80000000u) ? -(long long)(bits & 0x7fffffffu) : (long long)bits;
}

float fromOrderedKey(long long key) {
    const std::uint32_t bits = key >= 0 ? std::uint32_t(key) : (std::uint32_t(-key) | 0x80000000u);
    float f;
    std::memcpy(&f, &bits, sizeof f);
    return f;
}

// The largest tangent whose elevation angle, rounded as the ray rounds it,
// does not exceed sunAngle: terrain hides the sun exactly when its tangent is
// greater. Found by halving the floats, as the rounded arctangent never falls.
float hidingTangent(float sunAngle) {
    auto notAbove = [sunAngle](float t) { return float(std::atan(double(t))) <= sunAngle; };
    const float maxFloat = std::numeric_limits<float>::max();
    if (!notAbove(-maxFloat))
        return -std::numeric_limits<float>::infinity();
    if (notAbove(maxFloat))
        return std::numeric_limits<float>::infinity();
    long long lo = orderedKey(-maxFloat), hi = orderedKey(maxFloat);
    while (hi - lo > 1) {
        const long long mid = lo + (hi - lo) / 2;
        (notAbove(fromOrderedKey(mid)) ? lo : hi) = mid;
    }
    return fromOrderedKey(lo);
}

// Highest vertex of each column (row) together with all columns (rows) beyond
// it in one direction: no later point of a ray can stand higher.
struct HeightBounds {
    std::vector<float> fromColumnUp, fromColumnDown, fromRowUp, fromRowDown;
    float highest = 0.0f;

    explicit HeightBounds(const CTerrainData& t)
        : fromColumnUp(t.stTockX), fromColumnDown(t.stTockX), fromRowUp(t.stTockY),
          fromRowDown(t.stTockY) {
        const float lowest = -std::numeric_limits<float>::infinity();
        std::vector<float> column(t.stTockX, lowest), row(t.stTockY, lowest);
        for (int y = 0; y < t.stTockY; ++y) {
            for (int x = 0; x < t.stTockX; ++x) {
                const float h = t.pTerrainVertexData[x + y * t.stTockX].pos.y;
                column[x] = std::max(column[x], h);
                row[y] = std::max(row[y], h);
            }
        }
        sweep(column, fromColumnUp, fromColumnDown);
        sweep(row, fromRowUp, fromRowDown);
        highest = fromColumnUp.empty() ? 0.0f : fromColumnUp[0];
    }

    static void sweep(const std::vector<float>& line, std::vector<float>& up,
                      std::vector<float>& down) {
        const int n = int(line.size());
        for (int i = n - 1; i >= 0; --i)
            up[i] = i == n - 1 ? line[i] : std::max(line[i], up[i + 1]);
        for (int i = 0; i < n; ++i)
            down[i] = i == 0 ? line[i] : std::max(line[i], down[i - 1]);
    }
};

// One sun sample prepared for every vertex of the terrain.
struct SunSample {
    Tocka direction;
    double weight;
    bool horizontal;     // has a horizontal component: its ray can be hidden
    bool lowerHides;     // the sun is so low that even lower terrain hides it
    float hidingTangent; // terrain whose tangent exceeds this hides the sun
    double stepLength;   // horizontal metres per step
};

// The sunniness of getPointCumulativeSunniness, result for result, without its
// repeated work: the sun path, the weights and the hiding angle are prepared
// once per sample; a sample whose light falls on the back of the surface adds
// nothing whether hidden or not and casts no ray; elevation angles are compared
// as tangents; and a ray stops as soon as the terrain still ahead is too low to
// hide the sun (with a safety margin far above rounding).
class SunnyRays {
public:
    explicit SunnyRays(const CSunFactory& sun)
        : sun(sun), t(sun.terrainData), bounds(sun.terrainData), scaleX(t.dimen.x / t.stTockX),
          scaleZ(t.dimen.z / t.stTockY) {
        const int n = sun.nrSunSamples;
        const int m = n - 1;
        for (int i = 0; i < n; ++i) {
            SunSample s;
            s.direction = sun.getSunPositionAtSample(i);
            s.weight = m == 0 ? 1.0 : (i > m / 2 ? 3.0 - 2.0 * i / m : 2.0 * i / m + 1.0);
            s.horizontal = !(s.direction.x == 0.0f && s.direction.z == 0.0f);
            const float sunAngle = float(std::asin(s.direction.y / s.direction.dolzina()));
            s.lowerHides = -1.0f > sunAngle;
            s.hidingTangent = hidingTangent(sunAngle);
            s.stepLength =
                std::hypot(double(s.direction.x) * scaleX, double(s.direction.z) * scaleZ);
            samples.push_back(s);
        }
        // Rounding the world points to float moves a ray's horizontal distance
        // by at most a few units in the last place of the largest coordinate;
        // four times that is subtracted before a ray is cut short.
        const double extentX = std::fabs(double(scaleX)) * t.stTockX;
        const double extentZ = std::fabs(double(scaleZ)) * t.stTockY;
        distanceSlack = std::ldexp(extentX + extentZ, -21);
    }

    double sunniness(int x, int y, const Tocka& normal) const {
        const int n = int(samples.size());
        if (n == 0)
            return 0.0;
        double sum = 0.0;
        for (const SunSample& s : samples) {
            const double power =
                sun.getSunPower(float(sun.getCosineBetweenNormalisedVectors(normal, s.direction)));
            if (power == 0.0)
                continue;
            sum += power * s.weight * shelter(s, x, y);
        }
        return sum / n;
    }

private:
    Tocka worldPoint(double gx, double gy) const {
        const int index = int(gx) + int(gy) * t.stTockX;
        return Tocka(float(gx * scaleX), t.pTerrainVertexData[index].pos.y, float(gy * scaleZ));
    }

    float heightBound(double gx, double gy, const Tocka& d) const {
        float b = bounds.highest;
        if (d.x > 0)
            b = std::min(b, bounds.fromColumnUp[int(gx)]);
        else if (d.x < 0)
            b = std::min(b, bounds.fromColumnDown[int(gx)]);
        if (d.z > 0)
            b = std::min(b, bounds.fromRowUp[int(gy)]);
        else if (d.z < 0)
            b = std::min(b, bounds.fromRowDown[int(gy)]);
        return b;
    }

    bool nothingAheadCanHide(const SunSample& s, float startHeight, double gx, double gy,
                             int steps) const {
        if (s.lowerHides || !(s.hidingTangent > 0.0f) || std::isinf(s.hidingTangent))
            return false;
        const double rise = double(heightBound(gx, gy, s.direction)) - startHeight;
        const double distance = steps * s.stepLength - distanceSlack;
        if (!(distance > 0.0))
            return false;
        return rise * 1.001 + 0.01 < double(s.hidingTangent) * distance * 0.999;
    }

    float shelter(const SunSample& s, int x, int y) const {
        if (!s.horizontal)
            return 1.0f;
        const Tocka start = worldPoint(x, y);
        double gx = x, gy = y;
        for (int steps = 1;; ++steps) {
            gx += s.direction.x;
            gy += s.direction.z;
            if (!(gx >= 0 && gx < t.stTockX && gy >= 0 && gy < t.stTockY))
                return 1.0f;
            if (nothingAheadCanHide(s, start.y, gx, gy, steps))
                return 1.0f;
            if (hides(s, start, worldPoint(gx, gy)))
                return sun.difuseSunlightPower;
        }
    }

    // The rule of elevationAngle, with the angle compared as its tangent.
    static bool hides(const SunSample& s, const Tocka& start, const Tocka& current) {
        if (start.y > current.y)
            return s.lowerHides;
        const Tocka diff = current - start;
        const double horizontal = Tocka(diff.x, 0.0f, diff.z).dolzina();
        // An infinite tangent hides as a right angle does; NaN hides nothing.
        return float(diff.y / horizontal) > s.hidingTangent;
    }

    const CSunFactory& sun;
    const CTerrainData& t;
    HeightBounds bounds;
    float scaleX, scaleZ;
    double distanceSlack = 0.0; // metres a ray's horizontal distance may be off by
    std::vector<SunSample> samples;
};

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

// Gives every vertex exactly what getPointCumulativeSunniness gives it, faster:
// see SunnyRays. Every vertex is computed on its own from shared read-only data
// and written to its own entry, so the rows are shared out over the processor
// cores without changing a bit of the layer.
void CSunFactory::buildSunniness() {
    CTerrainData& t = terrainData;
    const SunnyRays rays(*this);
    forEachRow(t.stTockY, t.stTockX,
               QCoreApplication::translate("CSunFactory", "Computing sunniness").toStdString(),
               [&](int y) {
                   for (int x = 0; x < t.stTockX; ++x) {
                       const int index = x + y * t.stTockX;
                       t.terrainSunniness[index] =
                           float(rays.sunniness(x, y, t.terrainNormals[index]));
                   }
               });
}

} // namespace ecosystem::data
