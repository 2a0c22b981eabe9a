#include "arbo/mrezadrevesa.h"

#include <GL/gl.h>

#include <cstddef>

namespace arbo {

void MrezaDrevesa::izprazni() {
    for (Paket* p : {&lubje, &crte, &listi, &tocke}) {
        p->oglisca.clear();
        p->indeksi.clear();
    }
}

std::size_t MrezaDrevesa::bajtov() const {
    std::size_t b = 0;
    for (const Paket* p : {&lubje, &crte, &listi, &tocke})
        b += p->oglisca.bajtov() + p->indeksi.bajtov();
    return b;
}

namespace {
void nastaviKazalce(const MrezaDrevesa::Paket& p) {
    using O = MrezaDrevesa::Oglisce;
    const char* b = reinterpret_cast<const char*>(p.oglisca.data());
    glVertexPointer(3, GL_FLOAT, sizeof(O), b + offsetof(O, x));
    glNormalPointer(GL_FLOAT, sizeof(O), b + offsetof(O, nx));
    glTexCoordPointer(2, GL_FLOAT, sizeof(O), b + offsetof(O, s));
    glColorPointer(4, GL_UNSIGNED_BYTE, sizeof(O), b + offsetof(O, barva));
}

void narisiPaket(const MrezaDrevesa::Paket& p, GLenum nacin, GLuint tekstura) {
    if (p.oglisca.empty())
        return;
    glBindTexture(GL_TEXTURE_2D, tekstura);
    nastaviKazalce(p);
    if (p.indeksi.empty())
        glDrawArrays(nacin, 0, GLsizei(p.oglisca.size()));
    else
        // The index range given saves the driver a pass over the indices.
        glDrawRangeElements(nacin, 0, GLuint(p.oglisca.size() - 1), GLsizei(p.indeksi.size()),
                            GL_UNSIGNED_INT, p.indeksi.data());
}
} // namespace

void MrezaDrevesa::narisi(unsigned int teksturaLubja, unsigned int teksturaListov,
                          bool vOcesnihKoordinatah, float velikostTock) const {
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    if (vOcesnihKoordinatah)
        glLoadIdentity();
    narisiPaket(lubje, GL_TRIANGLES, teksturaLubja);
    narisiPaket(crte, GL_LINES, teksturaLubja);
    narisiPaket(listi, GL_TRIANGLES, teksturaListov);
    if (!tocke.oglisca.empty()) {
        glPointSize(velikostTock);
        narisiPaket(tocke, GL_POINTS, teksturaListov);
    }
    glPopMatrix();
    glPopClientAttrib();
}

} // namespace arbo
