#pragma once

#include "arbo/matrika.h"
#include "arbo/tocka.h"

namespace ecosystem::render {

// The view frustum as six planes taken from the combined projection and
// model-view matrix, and the test of a bounding sphere against them.
class CObjectCulling {
public:
    // a x + b y + c z + d = 0, with (a, b, c) pointing into the frustum.
    struct Plane {
        double a, b, c, d;
    };

    arbo::Matrika comboMatrix;
    Plane p_planes[6]; // left, right, top, bottom, near, far

    void setMatrix(arbo::Matrika& m);
    void extractPlanesGL();
    void normalizePlane(Plane& plane);
    // 0 when the sphere lies wholly outside, 1 otherwise. The test stops at the
    // first plane the sphere cuts, so a sphere cutting one plane may still lie
    // beyond another and count as visible: cheap and never wrongly hidden.
    int containsSphere(const arbo::Tocka& centerObjekta, float radijObjekta) const;
};

} // namespace ecosystem::render
