#include "ecosystem/render/sky.h"

namespace ecosystem::render {

Sky::Sky(arbo::Tocka dimenzije) : dimenzije(dimenzije) {
    for (GLuint& id : idTexturaSky)
        id = 0;
    tvoriOgljiscaObzorja();
    tvoriTeksturneKoordinate();
    tvoriPloskveKvadraObzorja();
}

void Sky::setTextureNames(GLuint idTexturaSkyN, GLuint idTexturaSkyS, GLuint idTexturaSkyE,
                          GLuint idTexturaSkyW, GLuint idTexturaSkyU, GLuint idTexturaSkyD) {
    idTexturaSky[0] = idTexturaSkyN;
    idTexturaSky[1] = idTexturaSkyS;
    idTexturaSky[2] = idTexturaSkyE;
    idTexturaSky[3] = idTexturaSkyW;
    idTexturaSky[4] = idTexturaSkyU;
    idTexturaSky[5] = idTexturaSkyD;
}

GLuint* Sky::getTextureNames() {
    return idTexturaSky;
}

void Sky::tvoriOgljiscaObzorja() {
    // Only the X extent sizes the box, so it is square even on an oblong terrain.
    const float r = 5.0f * dimenzije.x;
    const arbo::Tocka centerTerena(0.5f * dimenzije.x, 0.0f, 0.5f * dimenzije.z);
    const arbo::Tocka oglisca[8] = {{-r, r, r}, {r, r, r}, {r, r, -r}, {-r, r, -r},
                                    {-r, 0, r}, {r, 0, r}, {r, 0, -r}, {-r, 0, -r}};
    for (int i = 0; i < 8; ++i)
        ogljiscaObzorja[i] = oglisca[i] + centerTerena;
}

void Sky::tvoriTeksturneKoordinate() {
    // Half a texel of a 256-texel image at every edge keeps the walls' seams clean.
    const double polPiksla = 0.001953125;
    const double magVoda = 4.9902344;
    teksturneKoordinate[0] = arbo::Tocka2D(polPiksla, polPiksla);
    teksturneKoordinate[1] = arbo::Tocka2D(1 - polPiksla, polPiksla);
    teksturneKoordinate[2] = arbo::Tocka2D(1 - polPiksla, 1 - polPiksla);
    teksturneKoordinate[3] = arbo::Tocka2D(polPiksla, 1 - polPiksla);
    teksturneKoordinateVode[0] = arbo::Tocka2D(polPiksla, polPiksla);
    teksturneKoordinateVode[1] = arbo::Tocka2D(magVoda, polPiksla);
    teksturneKoordinateVode[2] = arbo::Tocka2D(magVoda, magVoda);
    teksturneKoordinateVode[3] = arbo::Tocka2D(polPiksla, magVoda);
}

void Sky::tvoriPloskveKvadraObzorja() {
    const int ploskve[6][4] = {
        {5, 4, 0, 1}, // wall at +Z: north
        {7, 6, 2, 3}, // wall at -Z: south
        {4, 7, 3, 0}, // wall at -X: east
        {6, 5, 1, 2}, // wall at +X: west
        {1, 0, 3, 2}, // top
        {5, 6, 7, 4}, // bottom
    };
    for (int f = 0; f < 6; ++f)
        for (int k = 0; k < 4; ++k)
            indeksiOgljiscObzorja[f][k] = ploskve[f][k];
}

void Sky::render() {
    glEnable(GL_TEXTURE_2D);
    glDisable(GL_BLEND);
    glColor3f(1.0f, 1.0f, 1.0f);
    for (int f = 0; f < 6; ++f) {
        glBindTexture(GL_TEXTURE_2D, idTexturaSky[f]);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
        // The bottom is water: its image repeats five times each way.
        const arbo::Tocka2D* koordinate = f == 5 ? teksturneKoordinateVode : teksturneKoordinate;
        glBegin(GL_QUADS);
        for (int k = 0; k < 4; ++k) {
            const arbo::Tocka& oglisce = ogljiscaObzorja[indeksiOgljiscObzorja[f][k]];
            glTexCoord2d(koordinate[k].x, koordinate[k].y);
            glVertex3f(oglisce.x, oglisce.y, oglisce.z);
        }
        glEnd();
    }
}

} // namespace ecosystem::render
