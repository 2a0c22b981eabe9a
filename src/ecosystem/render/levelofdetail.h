#pragma once

#include "arbo/tocka.h"

namespace ecosystem::render {

// Level of detail from the distance to the camera: 0 (nearest) to 9. The bands
// grow with the square of the level (5 m, 20 m, 45 m, ... 405 m), so detail
// falls off quickly near the camera and slowly far away.
class CLevelOfDetail {
public:
    arbo::Tocka cameraPosition;

    void setCameraPosition(arbo::Tocka& cameraPosition);
    int getLODcase(const arbo::Tocka& objectPosition) const;
};

} // namespace ecosystem::render
