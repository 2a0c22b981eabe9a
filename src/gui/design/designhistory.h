#pragma once

#include "arbo/krivulja.h"

#include <array>
#include <deque>
#include <map>
#include <string>

namespace arbo {
class Arbo;
class ParametriDrevesa;
} // namespace arbo

namespace gui {

// Undo and redo over the design of each tree: its twelve curves and the
// scalars the advanced properties and the leaf-size keys change. Texture names
// and the leaf display switch are left out: they follow the textures loaded and
// the View menu's tick. A step is recorded at the end of each edit (commit); a
// change made by anything else since the last record (a parameter file loaded,
// say) becomes a step of its own at the next record.
class DesignHistory {
public:
    // Steps kept back per tree; the oldest are dropped beyond this.
    static constexpr size_t maxSteps = 500;

    // Records the tree's design as a new step when it differs from the last record.
    void commit(arbo::Arbo* tree);
    // One step back (forward), tables recomputed; false when there is none.
    bool undo(arbo::Arbo* tree);
    bool redo(arbo::Arbo* tree);

private:
    struct Design {
        int stVsehZil;
        double dolzinaDebla;
        float sirinaSteblaNaZilo;
        double phyllotaxisAngle, graviCentralizem;
        float listSize;
        int gostotaListov, tipListov;
        double windSpeed, windSpeedNodirect;
        std::array<arbo::Krivulja, 12> curves;
        bool operator==(const Design& o) const;
    };
    struct Steps {
        bool recorded = false;
        Design last;
        std::deque<Design> back, forward;
    };
    static Design take(const arbo::ParametriDrevesa& p);
    static void put(const Design& d, arbo::ParametriDrevesa& p);
    bool step(arbo::Arbo* tree, std::deque<Design>& from, std::deque<Design>& to);

    std::map<const arbo::Arbo*, Steps> trees;
};

} // namespace gui
