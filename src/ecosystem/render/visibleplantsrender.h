#pragma once

#include "arbo/tocka.h"

#include <cstddef>
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
class ImpostorAtlas;

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
        // Plants at the far levels of detail drawn as impostors from the atlas
        // instead of grown trees (never in wire frame).
        bool fastDistantTrees = false;
        // The atlas draws every picture the walk asks for before the impostors
        // (a frame of an exported image), not a limited time per frame.
        bool wholeAtlas = false;
    };

    // Measurements of the last walk, for the benchmark: milliseconds spent in
    // the walk as a whole and inside the trees' drawing calls, and trees drawn
    // per level of detail (impostors included).
    double walkMs = 0.0;
    double treesMs = 0.0;
    double impostorsMs = 0.0; // atlas building and drawing the impostors
    // With several threads, the drawing thread's time drawing grown trees,
    // growing trees itself, and waiting for the other threads.
    double submitMs = 0.0, drawingThreadGrowMs = 0.0, waitMs = 0.0;
    int treesPerLod[10] = {};
    bool lastWalkParallel = false; // the trees were grown by several threads
    // The feet of the plants the last walk drew at the far levels of detail, in
    // walk order: as trees, or as impostors when the fast switch was on.
    std::vector<arbo::Tocka> farPlants;
    // Cells the atlas has yet to draw: the next frame draws more of them.
    bool atlasPending = false;

    // Threads that grow the trees, this (drawing) one included: the drawing
    // thread hands the trees over in plant order, the others grow them in
    // batches, and it draws them in the same order with the same OpenGL calls
    // (and grows a batch itself rather than wait). With 1 every tree is grown
    // and drawn in turn here. The machine's thread count, unless the
    // environment variable VIRELA_THREADS gives another.
    int stNiti;
    // The walk after one that drew fewer stems and leaves than this stays on
    // this thread: handing trees over would cost more than it saves.
    long najmanjKosovZaVzporedno = 200000;
    // The most memory the meshes of the trees handed over may take, as their
    // strands tell: a tree of the collection asks for a few megabytes, one at a
    // tree file's limits for some 100 MB. Beyond it the growers wait for the
    // drawing, so trees of any size keep the walk's memory bounded.
    std::size_t najvecBajtovVLetu = std::size_t(512) << 20;

    VisiblePlantsRender();
    ~VisiblePlantsRender();

    // Returns the number of plants that passed the culling test and fills
    // stevilaUpodobljenihRastlin with one count per species, in species order.
    int render(std::vector<simulationEntities::CVrstaRastlin>& vrste,
               const std::vector<arbo::Arbo*>& izglediDrevesnihVrst, const arbo::Arbo& izbranoArbo,
               const Camera& camera, const Flags& flags,
               std::vector<int>& stevilaUpodobljenihRastlin);

    // The impostor pictures (made when the fast switch is first used).
    ImpostorAtlas& atlas();

    // VIRELA_THREADS when it holds a positive count, else the machine's threads.
    static int privzetoStNiti();

private:
    class Rastoci;
    void pripraviRast(int izgled, arbo::Arbo& drevo, const simulationEntities::CRastlina& rastlina,
                      int tip, const arbo::Arbo& izbranoArbo, const CLevelOfDetail& levelOfDetail,
                      const Flags& flags);
    bool izberiVzporedno(const std::vector<arbo::Arbo*>& izgledi, const arbo::Arbo& izbranoArbo,
                         const Flags& flags) const;
    std::unique_ptr<Rastoci> rastoci; // the growing threads, their trees and jobs
    std::unique_ptr<ImpostorAtlas> atlasImpostorjev;
    long kosovPrejsnjegaSprehoda = 0;
};

} // namespace ecosystem::render
