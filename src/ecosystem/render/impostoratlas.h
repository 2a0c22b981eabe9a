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
// growing, drawing and lighting: one cell per model, distance (a few for each
// level of detail), growth size, direction of view around the tree and
// elevation of view, at the scale the view shows that distance at, so that
// points and lines keep their size in pixels. A far plant is then one upright
// quad turned to the camera, with the cell nearest to its size and view, scaled
// to its own size, its texels taken as they are (nearest), those without
// coverage left out, depth tested against the frame. Far trees are a few
// pixels: cells are drawn finer, and each plant shows a texel as often as the
// tree covers it. Cells are drawn when first asked for, a
// limited time per frame; a change of a model's parameters, textures or
// colouring, of the lighting, or of the view's scale drops the cells it spoils.
//
// The quads are composed on the CPU into one picture that is then blended over
// the frame: tens of thousands of quads of a few pixels each cost a software
// OpenGL far more per quad than the few pixels themselves.
class ImpostorAtlas {
public:
    static constexpr int prvaRaven = 5; // the first level of detail drawn as impostors
    static constexpr int stRavni = 10 - prvaRaven;
    // Distances cells are drawn at, three or four for each level, eight for
    // the open last one.
    static constexpr int stDaljav = 21;
    static constexpr int stVelikosti = 8; // growth sizes 1/8, 2/8, ... 1
    static constexpr int stSmeri = 8;     // views around the tree, 45 degrees apart
    static constexpr int stVisin = 4;     // view elevations 0, 15, 30 and 45 degrees
    // Cells are drawn into a frame buffer of this many pixels a side, and
    // read from it a batch at a time.
    static constexpr int velikostOkvirja = 512;
    // Cells are drawn this many times finer each way.
    static constexpr int gostota = 4;

    struct Tekstel { // a texel with coverage
        std::uint16_t x, y;
        std::uint32_t barva;
        // Of 255 plants, how many show it: each plant shows it or not by a
        // dice of its own.
        std::uint8_t verjetnost;
    };
    struct Celica {
        bool narisana = false;  // drawn (a tree too small to draw has no pixels)
        bool zahtevana = false; // asked for and not drawn yet
        int w = 0, h = 0;
        // Premultiplied RGBA, bottom row first; alpha is coverage, and at least
        // 1/255 wherever the tree's drawing would hide what lies behind.
        std::vector<std::uint32_t> slika;
        std::vector<Tekstel> pokrito;         // the texels with coverage, in rows
        std::vector<std::uint32_t> vrstice;   // where each row begins in pokrito, and its end
        float u0 = 0, u1 = 0, v0 = 0, v1 = 0; // metres on the quad: u to the right, v up
    };

    double casGradnjeMs = 0; // time spent drawing cells, all frames together
    int stNarisanihCelic = 0;
    int stImpostorjev = 0; // quads composed by the last walk
    // Milliseconds of the last walk reading the frame's depth (which waits for
    // the frame so far) and composing the quads.
    double branjeMs = 0, sestavljanjeMs = 0;

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
    // Draws asked-for cells for up to casMs milliseconds, then the walk's
    // impostors over the frame (the model-view matrix is the camera's again),
    // composed on up to stNiti threads.
    void koncajSprehod(double casMs, int stNiti);
    // Cells asked for are still to be drawn.
    bool manjka() const { return !zahtevane.empty(); }

    // A cell of the nearest distance of level lod (for tests) and its picture
    // (null when empty).
    const Celica& celica(int izgled, int lod, int velikost, int smer, int visina) const;
    static QImage slika(const Celica& c);

private:
    struct Skupina; // the cells of one model and level of detail
    struct Model;
    struct Kljuc {
        int izgled, daljava, velikost, smer, visina;
    };
    struct Vnos {
        const Celica* celica;
        float skala;
        arbo::Tocka noga;
        float desnoX, desnoZ; // unit vector to the right as the camera sees the plant
    };
    struct Okno;
    struct Lik { // an impostor's quad in the window, with what it shows
        const Tekstel* tekseli;
        const std::uint32_t* vrstice;
        std::uint32_t stTekselov;
        std::uint16_t w, h;
        float ax, ay, e1x, e1y, e2x, e2y, det, globina;
        float najnizje, najvisje; // rows it reaches
        std::uint32_t seme;       // the plant's own dice
        std::uint32_t ojacitev;   // 256 times how much more often partly covered texels show
    };
    static constexpr int visinaPasu = 32; // rows composed together
    struct VOkvirju {                     // a cell drawn into the frame buffer, not yet read
        Celica* celica;
        int x, y;
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
    // Drawing cells: the frame buffer, the next free place in it, and the
    // cells waiting to be read.
    std::unique_ptr<QOpenGLFramebufferObject> okvir;
    int okvirX = 0, okvirY = 0, visinaPolice = 0;
    std::vector<VOkvirju> vOkvirju;
    std::vector<std::uint32_t> prebrano;
    // Composing: the quads, the frame's depth, and the impostors' colour.
    std::vector<Lik> liki;
    std::vector<std::vector<Lik>> pasovi; // each band's quads, in walk order
    int sirina = 0, visina = 0;
    std::vector<float> globina;
    std::vector<std::uint32_t> barve;

    void preveriPogled(bool lightingEnabled);
    Skupina& skupina(int izgled, int daljava);
    static float visinaPri(const Skupina& s, float r);
    void izmeri(int izgled, int daljava, Skupina& s);
    void zrasti(int izgled, int daljava, int velikost);
    bool narisiZahtevane(double casMs);
    void narisiCelico(const Kljuc& k);
    void oznaciPokrito(const arbo::MrezaDrevesa& mreza, float velikostTock);
    bool umesti(int w, int h, int& x, int& y);
    void pocistiOkvir();
    void preberiOkvir();
    std::uint32_t povprecje(int x0, int y0, std::uint8_t& verjetnost) const;
    void sestaviImpostorje(int stNiti);
    void postaviLike(const Okno& okno);
    void sestaviPas(int pas, int& prva, int& zadnja);
    void napisi(std::size_t p, float z, std::uint32_t barva, int y, int& y0, int& y1);
    void narisiSestavljeno(int y0, int y1);
};

} // namespace ecosystem::render
