#pragma once

#include "arbo/tocka.h"

#include <QImage>

#include <cstdint>
#include <memory>
#include <vector>

class QOpenGLFramebufferObject;

namespace arbo {
class Arbo;
class MrezaDrevesa;
} // namespace arbo

namespace ecosystem::render {

// Pictures of the species' trees as seen from afar, for the far plants of the
// fast ecosystem view. Each picture (a cell) is drawn once, with the trees' own
// growing, drawing and lighting, into a texture page: one cell per model, level
// of detail, growth size, direction of view around the tree and elevation of
// view, at the scale the view shows that level of detail at, so that points and
// lines keep their size in pixels. A far plant is then one upright quad turned
// to the camera, with the cell nearest to its size and view, scaled to its own
// size. Cells are drawn when first asked for, a limited time per frame; a
// change of a model's parameters, textures or colouring, of the lighting, or of
// the view's scale drops the cells it spoils.
class ImpostorAtlas {
public:
    static constexpr int prvaRaven = 5; // the first level of detail drawn as impostors
    static constexpr int stRavni = 10 - prvaRaven;
    static constexpr int stVelikosti = 8;       // growth sizes 1/8, 2/8, ... 1
    static constexpr int stSmeri = 8;           // views around the tree, 45 degrees apart
    static constexpr int stVisin = 4;           // view elevations 0, 15, 30 and 45 degrees
    static constexpr int velikostStrani = 1024; // pixels on a side of a texture page

    struct Celica {
        bool narisana = false;                // drawn (a tree too small to draw has no page)
        bool zahtevana = false;               // asked for and not drawn yet
        int stran = -1;                       // the model's texture page
        float s0 = 0, t0 = 0, s1 = 0, t1 = 0; // texture coordinates
        float u0 = 0, u1 = 0, v0 = 0, v1 = 0; // metres on the quad: u to the right, v up
    };

    double casGradnjeMs = 0; // time spent drawing cells, all frames together
    int stNarisanihCelic = 0;
    int stImpostorjev = 0; // quads drawn by the last walk

    ImpostorAtlas();
    ~ImpostorAtlas();
    ImpostorAtlas(const ImpostorAtlas&) = delete;
    ImpostorAtlas& operator=(const ImpostorAtlas&) = delete;

    // Starts a walk in the current view (model-view matrix of the camera):
    // drops what changed since the cells were drawn.
    void zacniSprehod(const std::vector<arbo::Arbo*>& modeli, bool lightingEnabled,
                      const arbo::Tocka& kamera);
    // A far plant of model izgled at level lod, growth size velikost (0 ... 1),
    // standing at noga.
    void dodaj(int izgled, int lod, float velikost, const arbo::Tocka& noga);
    // Draws asked-for cells for up to casMs milliseconds, then the walk's impostors.
    void koncajSprehod(double casMs);
    // Cells asked for are still to be drawn.
    bool manjka() const { return !zahtevane.empty(); }

    // A cell (for tests) and its picture, premultiplied RGBA (null when empty).
    const Celica& celica(int izgled, int lod, int velikost, int smer, int visina) const;
    QImage slika(int izgled, const Celica& c) const;

private:
    struct Skupina; // the cells of one model and level of detail
    struct Model;
    struct Kljuc {
        int izgled, raven, velikost, smer, visina;
    };
    struct Vnos {
        const Celica* celica;
        int izgled;
        float skala;
        arbo::Tocka noga;
        float desnoX, desnoZ; // unit vector to the right as the camera sees the plant
    };
    std::vector<Model> modeli;
    std::vector<arbo::Arbo*> drevesa;
    std::unique_ptr<arbo::Arbo> rastlinar; // grows the trees the cells show
    Kljuc zrasleKljuc{-1, -1, -1, 0, 0};   // the tree rastlinar holds
    std::vector<Kljuc> zahtevane;
    std::vector<Vnos> vnosi;
    arbo::Tocka kamera{0, 0, 0};
    // The view the cells were drawn for: pixels per unit of x and y at unit
    // distance, lighting, and the lights' positions in world coordinates.
    float goriscnaX = 0, goriscnaY = 0;
    bool osvetljeno = true;
    float luci[3][4] = {};

    void preveriPogled(bool lightingEnabled);
    Skupina& skupina(int izgled, int lod);
    void izmeri(int izgled, int raven, Skupina& s);
    void zrasti(int izgled, int raven, int velikost);
    bool narisiZahtevane(double casMs);
    void narisiCelico(const Kljuc& k);
    void oznaciPokrito(const arbo::MrezaDrevesa& mreza);
    void umesti(Model& m, int w, int h, int& stran, int& x, int& y);
    void narisiImpostorje();
};

} // namespace ecosystem::render
