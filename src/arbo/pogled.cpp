#include "arbo/pogled.h"

namespace arbo {

void Pogled::createKvadraticnePloskve() {
    kvadraticnePloskve = gluNewQuadric();
    gluQuadricDrawStyle(kvadraticnePloskve, GLU_FILL);
    gluQuadricTexture(kvadraticnePloskve, GL_TRUE);
}

} // namespace arbo
