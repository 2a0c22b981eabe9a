#include "gui/help.h"

namespace gui {

namespace {

QString treeTerms() {
    return Help::tr(
        "<h3>The tree model</h3>"
        "<p>A tree is grown from its trunk base upwards, segment by segment. Two orders "
        "locate every segment: the <b>Gravelius order</b> g is the branching order (0 for "
        "the trunk, one more each time growth passes into a side branch); the <b>Weibull "
        "order</b> w is the depth, the number of segments from the root along the path. "
        "Every distribution is drawn as a pair of curves, one over g and one over w; the "
        "tree reads their product.</p>"
        "<p><b>Strand distribution.</b> The trunk is a bundle of strands (their number is the "
        "tree's age and sets its thickness). At every branching the strands are shared "
        "between the main branch and the side branch; the curve gives the share that stays "
        "in the main branch. A segment with few strands is thin; a branch with one strand "
        "ends and carries leaves.</p>"
        "<p><b>Branching angles.</b> The angle in degrees between the two branches of a "
        "split. Small angles give slim, upright crowns; large angles open the crown.</p>"
        "<p><b>Branch lengths.</b> The minimal and maximal relative branch length and the "
        "branch length scaling decide how long each segment grows.</p>"
        "<p><b>Gravimorphism.</b> How strongly, and in which direction (-180 to 180 "
        "degrees), branches of each order and depth turn towards or away from the ground: "
        "positive values lift them, negative values make them hang like a willow's. "
        "Gravicentralism keeps the central trunk upright.</p>");
}

QString designOrder() {
    return Help::tr("<h3>Designing a tree</h3>"
                    "<ol><li>Switch to tree edit mode (Space) and pick a starting tree "
                    "(Ctrl+Space steps through the species and the default tree).</li>"
                    "<li>Set the tree's age, trunk height and thickness in the advanced tree "
                    "properties.</li>"
                    "<li>Design the strand distribution first: it decides the skeleton.</li>"
                    "<li>Then the branching angles, the branch lengths and their scaling.</li>"
                    "<li>Then gravimorphism, to lift or bend the branches.</li>"
                    "<li>Finally the leaves (type, density, size: Q and A) and the bark and leaf "
                    "textures; grow (R), spin (O) or sway (Y) the tree to judge it, and save its "
                    "parameters.</li></ol>");
}

QString navigationKeys() {
    return Help::tr(
        "<h3>Navigation</h3>"
        "<p>In tree edit mode drag with the right mouse button to turn and tilt the tree, "
        "with the left button to move it nearer or farther.</p>"
        "<table cellspacing='4'>"
        "<tr><td><b>Up</b>, <b>Down</b></td><td>move forward, backward</td></tr>"
        "<tr><td><b>Left</b>, <b>Right</b></td><td>turn left, right</td></tr>"
        "<tr><td><b>Home</b>, <b>End</b></td><td>look up, down</td></tr>"
        "<tr><td><b>Ins</b>, <b>PgUp</b></td><td>roll in, out</td></tr>"
        "<tr><td><b>,</b> and <b>.</b></td><td>move up, down</td></tr>"
        "<tr><td><b>Del</b>, <b>PgDown</b></td><td>move left, right</td></tr>"
        "<tr><td><b>Ctrl</b> + key</td><td>move faster</td></tr>"
        "<tr><td><b>Alt</b> + key</td><td>move slower</td></tr>"
        "<tr><td><b>Ctrl+0</b></td><td>next predefined camera</td></tr>"
        "<tr><td><b>Esc</b></td><td>reset the camera</td></tr>"
        "<tr><td><b>Ctrl+8</b>, <b>Ctrl+9</b></td><td>keep the camera above the ground, "
        "or on it</td></tr>"
        "<tr><td><b>Space</b></td><td>switch between ecosystem and tree edit mode</td></tr>"
        "<tr><td><b>F5</b></td><td>run or stop the simulation</td></tr>"
        "<tr><td><b>Ctrl+Shift+F</b></td><td>fast distant trees: far plants as pictures "
        "of their trees</td></tr>"
        "</table>"
        "<p>Key presses in the ecosystem add up: the camera glides and slowly comes to a "
        "stop.</p>");
}

} // namespace

Help::Help(QWidget* parent)
    : TextDialog(parent, tr("Bosket Help"), treeTerms() + designOrder() + navigationKeys(),
                 QSize(600, 560)) {}

} // namespace gui
