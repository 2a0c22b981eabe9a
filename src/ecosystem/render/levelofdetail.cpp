#include "ecosystem/render/levelofdetail.h"

#include <cmath>

namespace ecosystem::render {

void CLevelOfDetail::setCameraPosition(arbo::Tocka& cameraPosition) {
    this->cameraPosition = cameraPosition;
}

int CLevelOfDetail::getLODcase(const arbo::Tocka& objectPosition) const {
    const float d = float((cameraPosition - objectPosition).dolzina());
    const int lod = int(std::sqrt(d / 5.0));
    return lod > 9 ? 9 : lod;
}

} // namespace ecosystem::render
