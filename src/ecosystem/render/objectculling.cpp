#include "ecosystem/render/objectculling.h"

#include <cmath>

namespace ecosystem::render {

namespace {

// Row k of a column-major matrix combined with row 3: sign +1 adds, -1 subtracts.
CObjectCulling::Plane rowWithW(const float* m, int k, float sign) {
    return CObjectCulling::Plane{m[3] + sign * m[k], m[7] + sign * m[4 + k],
                                 m[11] + sign * m[8 + k], m[15] + sign * m[12 + k]};
}

} // namespace

void CObjectCulling::setMatrix(arbo::Matrika& m) {
    comboMatrix = m;
    extractPlanesGL();
}

void CObjectCulling::extractPlanesGL() {
    const float* m = comboMatrix.m;
    p_planes[0] = rowWithW(m, 0, 1.0f);  // left
    p_planes[1] = rowWithW(m, 0, -1.0f); // right
    p_planes[2] = rowWithW(m, 1, -1.0f); // top
    p_planes[3] = rowWithW(m, 1, 1.0f);  // bottom
    p_planes[4] = rowWithW(m, 2, 1.0f);  // near
    p_planes[5] = rowWithW(m, 2, -1.0f); // far
    for (Plane& plane : p_planes)
        normalizePlane(plane);
}

void CObjectCulling::normalizePlane(Plane& plane) {
    const float mag = float(std::sqrt(plane.a * plane.a + plane.b * plane.b + plane.c * plane.c));
    plane.a /= mag;
    plane.b /= mag;
    plane.c /= mag;
    plane.d /= mag;
}

int CObjectCulling::containsSphere(const arbo::Tocka& centerObjekta, float radijObjekta) const {
    for (const Plane& plane : p_planes) {
        const arbo::Tocka n(float(plane.a), float(plane.b), float(plane.c));
        const float razdalja = float(n.skalarniProdukt(centerObjekta) + plane.d);
        if (razdalja < -radijObjekta)
            return 0;
        if (std::fabs(razdalja) < radijObjekta)
            return 1;
    }
    return 1;
}

} // namespace ecosystem::render
