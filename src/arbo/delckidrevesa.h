#pragma once

#include "arbo/matrikasklad.h"
#include "arbo/mrezadrevesa.h"
#include "arbo/pogled.h"
#include "arbo/presek.h"
#include "arbo/serializatordelckovdrevesa.h"
#include "arbo/tocka.h"

#include <cstdint>

namespace arbo {

// Draws one stem segment or the leaves of one twig in the current frame of the
// tree's matrix stack, and hands the same geometry to the geometry writer while
// an export runs. On the CPU path (the default) the pieces are gathered in
// `mreza` and drawn at the end of the frame; with `sklad.naGl` set they are
// drawn at once with GLU.
class DelckiDrevesa {
public:
    double maxKotZasukaVetra = 0.0;
    Pogled& pogled;
    SerializatorDelckovDrevesa& serializatorDelckovDrevesa;
    MatrikaSklad sklad;
    MrezaDrevesa mreza;
    // When false the CPU path gathers the frame and discards it (for timing the
    // generator alone).
    bool risi = true;
    // Stem segments and leaves drawn since the generator's frame began.
    int stSegmentov = 0;
    int stListov = 0;
    // The most one frame draws: what a tree of 10 000 strands with 30 leaves a
    // twig grows at most (a segment for every split and every strand's end,
    // 30 leaves for every strand). Beyond them a frame adds nothing more, so
    // larger trees cost no more memory and time than that one.
    static constexpr int najvecSegmentov = 2 * 10000 - 1;
    static constexpr int najvecListov = 10000 * 30;
    bool segmentiPolni() const { return stSegmentov >= najvecSegmentov; }
    bool listiPolni() const { return stListov >= najvecListov; }

    DelckiDrevesa(Pogled& pogled, SerializatorDelckovDrevesa& serializatorDelckovDrevesa);

    void narisiSteblo(double visina, double sirinaSpodaj, double sirinaZgoraj, Presek* presekSpodaj,
                      int idVeje);
    void narisiListe(int tipListov, double velikost, double globinaVejice, int stListov,
                     Tocka& vektorZasukaVeter, int idVeje);
    void risiList(float velikost);

    // The current drawing colour (glColor on the GL path).
    void nastaviBarvo(float r, float g, float b, float a = 1.0f);
    // Draws what the CPU path gathered this frame and empties it.
    void narisiZbrano();
    // The current drawing colour (r, g, b, a).
    const float* trenutnaBarva() const { return barva; }

private:
    float barva[4] = {1, 1, 1, 1};
    // `barva` as the vertices store it, worked out when first needed after a change.
    std::uint8_t barvaOglisc[4] = {255, 255, 255, 255};
    bool barvaOgliscVeljavna = true;

    void list(float velikost, int idVeje);
    void zalistaj(double kotZasukaVeter, const Tocka& v);
    void zicnatiListi(double velikost, double delcek, int n);
    void valj(double b, double t, double h);
    void zicnatoSteblo(double b, double t, double h);
    void crta(const float* m, float x0, float y0, float z0, float s0, float x1, float y1, float z1,
              float s1);
    const std::uint8_t* barvaZaOglisca();
    // A vertex at (x, y, z) of the frame m with the normal n already in eye coordinates.
    static void oglisce(MrezaDrevesa::Oglisce& o, const float* m, float x, float y, float z,
                        const float* n, const std::uint8_t* b, float s, float t);
    // The normal (nx, ny, nz) of the frame m in eye coordinates.
    static void normala(float* n, const float* m, float nx, float ny, float nz);
};

} // namespace arbo
