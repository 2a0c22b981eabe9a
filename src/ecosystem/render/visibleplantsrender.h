#pragma once

#include <memory>
#include <vector>

namespace arbo {
class Arbo;
}
namespace ecosystem::simulationEntities {
class CRastlina;
class CVrstaRastlin;
} // namespace ecosystem::simulationEntities

namespace ecosystem::render {

class Camera;
class CLevelOfDetail;

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
    bool lastWalkParallel = false; // the trees were grown on the second thread

    // Trees are grown on a second thread while this one draws the trees
    // before them, in the same order and with the same OpenGL calls. Off, or
    // when the trees sway in the wind (the sway draws from the one C random
    // sequence), when no tree is drawn or a model exports or draws with
    // OpenGL's own matrix stack, every tree is grown and drawn in turn here.
    bool vzporedno = true;
    // The walk after one that drew fewer stems and leaves than this stays on
    // this thread.
    long najmanjKosovZaVzporedno = 200000;

    VisiblePlantsRender();
    ~VisiblePlantsRender();

    // Returns the number of plants that passed the culling test and fills
    // stevilaUpodobljenihRastlin with one count per species, in species order.
    int render(std::vector<simulationEntities::CVrstaRastlin>& vrste,
               const std::vector<arbo::Arbo*>& izglediDrevesnihVrst, const arbo::Arbo& izbranoArbo,
               const Camera& camera, const Flags& flags,
               std::vector<int>& stevilaUpodobljenihRastlin);

private:
    class Rastoci;
    void pripraviRast(int izgled, arbo::Arbo& drevo, const simulationEntities::CRastlina& rastlina,
                      int tip, const arbo::Arbo& izbranoArbo, const CLevelOfDetail& levelOfDetail,
                      const Flags& flags);
    std::unique_ptr<Rastoci> rastoci; // the growing thread's trees and queue
    long kosovPrejsnjegaSprehoda = 0;
};

} // namespace ecosystem::render
