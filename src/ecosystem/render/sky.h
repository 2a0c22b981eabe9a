#pragma once

#include "arbo/tocka.h"
#include "arbo/tocka2d.h"

#include <GL/gl.h>

namespace ecosystem::render {

// The horizon of the ecosystem view: a textured box five terrain widths across
// in every direction, standing on the ground plane and centred over the
// terrain.
class Sky {
public:
    arbo::Tocka dimenzije;  // terrain extent: X size, height, Z size
    GLuint idTexturaSky[6]; // north, south, east, west, up, down
    arbo::Tocka ogljiscaObzorja[8];
    arbo::Tocka2D teksturneKoordinate[4];     // a wall or the top: the whole image
    arbo::Tocka2D teksturneKoordinateVode[4]; // the bottom: the image repeated
    int indeksiOgljiscObzorja[6][4];

    explicit Sky(arbo::Tocka dimenzije);

    void setTextureNames(GLuint idTexturaSkyN, GLuint idTexturaSkyS, GLuint idTexturaSkyE,
                         GLuint idTexturaSkyW, GLuint idTexturaSkyU, GLuint idTexturaSkyD);
    GLuint* getTextureNames();
    void render();

private:
    void tvoriOgljiscaObzorja();
    void tvoriTeksturneKoordinate();
    void tvoriPloskveKvadraObzorja();
};

} // namespace ecosystem::render
