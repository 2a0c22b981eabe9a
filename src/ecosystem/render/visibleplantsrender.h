#pragma once

#include <vector>

namespace arbo {
class Arbo;
}
namespace ecosystem::simulationEntities {
class CVrstaRastlin;
}

namespace ecosystem::render {

class Camera;

// The plant walk of the ecosystem frame: every living plant is culled as a
// sphere against the view frustum and, when visible, drawn as the tree model of
// its species at its own size and a level of detail chosen by distance,
// optionally with its neighbourhood disk. The scene's renderVisiblePlants runs
// it and hands the counts to the statistics.
class VisiblePlantsRender {
public:
    struct Flags {
        bool showNeighborHood;
        bool doNotDrawTrees;
        bool lightingEnabled;
        bool wireframe;
    };

    // Measurements of the last walk, for the benchmark: milliseconds spent in
    // the walk as a whole and inside the trees' drawing calls, and trees drawn
    // per level of detail.
    double walkMs = 0.0;
    double treesMs = 0.0;
    int treesPerLod[10] = {};

    // Returns the number of plants that passed the culling test and fills
    // stevilaUpodobljenihRastlin with one count per species, in species order.
    int render(std::vector<simulationEntities::CVrstaRastlin>& vrste,
               const std::vector<arbo::Arbo*>& izglediDrevesnihVrst, const arbo::Arbo& izbranoArbo,
               const Camera& camera, const Flags& flags,
               std::vector<int>& stevilaUpodobljenihRastlin);
};

} // namespace ecosystem::render
