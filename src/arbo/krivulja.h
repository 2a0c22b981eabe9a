#pragma once

#include "arbo/tocka2d.h"

#include <vector>

namespace arbo {

// A polyline curve: vertices in ascending x. A distribution curve has x in 0..1
// and at least two vertices; a statistics graph numbers its points 0, 1, 2, ...
class Krivulja {
public:
    std::vector<Tocka2D> tocke;
};

} // namespace arbo
