#include "gui/about.h"

namespace gui {

About::About(QWidget* parent)
    : TextDialog(
          parent, tr("About Virela"),
          tr("<h2>Virela</h2>"
             "<p>Bosket is an OpenGL application for modeling, rendering, animation and "
             "simulation of natural tree ecosystem.</p>"
             "<p><b>Trees.</b> Every tree is grown procedurally from a small set of "
             "parameters and twelve distribution curves: strands split at every branching, "
             "branches bend towards or away from the ground, and leaves gather at the branch "
             "ends. A tree can be grown from nothing, spun and swayed in the wind, saved and "
             "loaded as a parameter file, and exported as vertex geometry or images.</p>"
             "<p><b>Ecosystems.</b> Five plant species (a shrub, a weeping willow, a maple, "
             "a spruce and a beech) settle on a real landscape read from a digital elevation "
             "model. For every point of the terrain the program derives slope, sunniness over "
             "one day with terrain shadows, exposure to wind and moisture from rain running "
             "downhill. Plants are sown, grow, compete for space and die step by step; "
             "thirteen seeded random streams make every run repeatable. Walk or fly over the "
             "landscape while the simulation runs, and follow its statistics.</p>"),
          QSize(520, 420)) {}

} // namespace gui
