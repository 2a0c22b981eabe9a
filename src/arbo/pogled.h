#pragma once

#include <GL/gl.h>
#include <GL/glu.h>

namespace arbo {

// View and animation settings of one tree, its two texture objects and the
// quadric its stems and leaves are drawn with.
class Pogled {
public:
    double starostDrevesa = 0.0;
    double korak = 0.001;
    double cas = 0.0;
    bool colorMonopodial = false;
    bool wireframe = false;
    bool highQualityRendering = false;
    bool backgroundSky = true;
    bool animateWindSway = false;
    bool animateGrow = false;
    bool animateOrbitAround = false;
    double orbit = 0.0;
    int barvajGMin = -1, barvajGMax = -1;
    int barvajWMin = -1, barvajWMax = -1;
    int lowQuality = 0;
    GLuint textureNames[2] = {0, 0}; // bark, leaf
    GLUquadric* kvadraticnePloskve = nullptr;

    void createKvadraticnePloskve();
};

} // namespace arbo
