#include "ecosystem/render/impostoratlas.h"

#include "arbo/arbo.h"

#include <QElapsedTimer>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>

#include <GL/gl.h>
#include <GL/glu.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <thread>
#include <tuple>

namespace ecosystem::render {

namespace {

constexpr double pi = M_PI;
// The distances cells are drawn at. A tree's points and lines keep their size
// in pixels however far it is, while a picture scaled up doubles some of its
// texels and scaled down loses some: each level's band (5 L^2 to 5 (L + 1)^2
// metres) is cut into bands of distance at most a tenth apart (the open last
// one a fifth), each drawn at its middle.
struct Daljava {
    float razdalja; // the cells' distance
    float doKod;    // the band's far end
    int raven;      // its level of detail, from prvaRaven
};
constexpr int stPasov[ImpostorAtlas::stRavni] = {4, 3, 3, 3, 8};
constexpr int prvaDaljava[ImpostorAtlas::stRavni] = {0, 4, 7, 10, 13};
static_assert(prvaDaljava[ImpostorAtlas::stRavni - 1] + stPasov[ImpostorAtlas::stRavni - 1] ==
              ImpostorAtlas::stDaljav);

const std::array<Daljava, ImpostorAtlas::stDaljav>& daljave() {
    static const std::array<Daljava, ImpostorAtlas::stDaljav> d = [] {
        std::array<Daljava, ImpostorAtlas::stDaljav> t{};
        for (int r = 0; r < ImpostorAtlas::stRavni; ++r) {
            const int lod = r + ImpostorAtlas::prvaRaven;
            const double od = 5.0 * lod * lod, zadnja = r == ImpostorAtlas::stRavni - 1;
            const double q = zadnja ? std::pow(2.0, 0.25)
                                    : std::pow(5.0 * (lod + 1) * (lod + 1) / od, 1.0 / stPasov[r]);
            for (int k = 0; k < stPasov[r]; ++k)
                t[std::size_t(prvaDaljava[r] + k)] = {float(od * std::pow(q, k + 0.5)),
                                                      float(od * std::pow(q, k + 1)), r};
            if (zadnja)
                t[std::size_t(prvaDaljava[r] + stPasov[r] - 1)].doKod = 1e30f;
        }
        return t;
    }();
    return d;
}

const double korakSmeri = 360.0 / ImpostorAtlas::stSmeri;
const double korakVisine = 15.0; // degrees between view elevations
// A plant's own dice: from where it stands, the same at every frame.
std::uint32_t kocka(const arbo::Tocka& noga) {
    std::uint32_t x, z;
    std::memcpy(&x, &noga.x, 4);
    std::memcpy(&z, &noga.z, 4);
    std::uint32_t h = x * 0x9E3779B1u ^ (z + 0x7F4A7C15u) * 0x85EBCA6Bu;
    h ^= h >> 15;
    return h * 0xC2B2AE35u;
}

// Of the two views nearest to a continuous one (t in steps between views), the
// lower or the higher, as often as t is near it: neighbouring plants seen from
// between two views show both, and no seam runs where the nearest one changes.
int izmedDveh(float t, std::uint32_t kocka) {
    const float spodaj = std::floor(t);
    return int(spodaj) + (float(kocka & 0xFFFF) < (t - spodaj) * 65536.0f);
}
// Pixels kept free around a tree's outermost vertices: points are 1.4 pixels.
const float rob = 1.0f;
// A pixel the tree's drawing hides without colour (alpha 1/255, no colour).
const std::uint32_t oznakaPokritosti = 1u << 24;

// A view whose scale changes by more than this factor spoils the cells.
const float dovoljenaSpremembaMerila = 1.25f;

// 64-bit FNV-1a, a word at a time.
class Otisk {
public:
    std::uint64_t h = 1469598103934665603ULL;
    void dodaj(const void* podatki, std::size_t n) {
        const auto* p = static_cast<const unsigned char*>(podatki);
        for (; n >= 8; n -= 8, p += 8) {
            std::uint64_t w;
            std::memcpy(&w, p, 8);
            h = (h ^ w) * 1099511628211ULL;
        }
        for (; n > 0; --n, ++p)
            h = (h ^ *p) * 1099511628211ULL;
    }
    template <class T> void dodaj(const T& v) { dodaj(&v, sizeof v); }
};

// What of a model its far trees' pictures depend on: the parameters the
// generator reads, the textures and the colouring.
std::uint64_t otiskModela(const arbo::Arbo& a) {
    const arbo::ParametriDrevesa& p = a.pdPrepared;
    Otisk o;
    o.dodaj(p.stVsehZil);
    o.dodaj(p.dolzinaDebla);
    o.dodaj(p.sirinaSteblaNaZilo);
    o.dodaj(p.phyllotaxisAngle);
    o.dodaj(p.graviCentralizem);
    o.dodaj(p.listi);
    o.dodaj(p.listSize);
    o.dodaj(p.gostotaListov);
    o.dodaj(p.tipListov);
    for (const auto* t : {&p.verjetnostVejitve, &p.kotVejitve, &p.charMax, &p.charMin,
                          &p.lengthScaling, &p.graviMorfizem})
        o.dodaj(*t);
    o.dodaj(p.barkTextureFileName.data(), p.barkTextureFileName.size());
    o.dodaj(p.leafTextureFileName.data(), p.leafTextureFileName.size());
    const arbo::Pogled& v = a.pogled;
    o.dodaj(v.textureNames);
    o.dodaj(v.colorMonopodial);
    for (int m : {v.barvajGMin, v.barvajGMax, v.barvajWMin, v.barvajWMax})
        o.dodaj(m);
    return o.h;
}

bool skoraj(float a, float b) {
    return std::fabs(a - b) <= 1e-4f * (1.0f + std::fabs(a) + std::fabs(b));
}

QOpenGLFunctions* gl() {
    return QOpenGLContext::currentContext()->functions();
}

GLuint trenutniOkvir() {
    GLint okvir = 0;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &okvir);
    return GLuint(okvir);
}

} // namespace

struct ImpostorAtlas::Skupina {
    bool izmerjena = false;
    float visina[stVelikosti] = {}; // the top of each size's tree
    bool prazna[stVelikosti] = {};  // that tree draws nothing
    Celica celice[stVelikosti][stSmeri][stVisin];
};

struct ImpostorAtlas::Model {
    bool otiskZnan = false;
    std::uint64_t otisk = 0;
    Skupina skupine[stDaljav];
};

ImpostorAtlas::ImpostorAtlas() : rastlinar(std::make_unique<arbo::Arbo>()) {}

ImpostorAtlas::~ImpostorAtlas() = default;

void ImpostorAtlas::zacniSprehod(const std::vector<arbo::Arbo*>& modeli_, bool lightingEnabled,
                                 const arbo::Tocka& kamera_) {
    drevesa = modeli_;
    kamera = kamera_;
    vnosi.clear();
    if (modeli.size() != drevesa.size()) {
        modeli.clear();
        modeli.resize(drevesa.size());
        zahtevane.clear();
    }
    preveriPogled(lightingEnabled);
    std::vector<bool> spremenjen(modeli.size(), false);
    for (size_t i = 0; i < drevesa.size(); ++i) {
        if (!drevesa[i])
            continue;
        const std::uint64_t o = otiskModela(*drevesa[i]);
        if (modeli[i].otiskZnan && modeli[i].otisk != o) {

            modeli[i] = Model();
            spremenjen[i] = true;
        }
        modeli[i].otisk = o;
        modeli[i].otiskZnan = true;
    }
    zahtevane.erase(std::remove_if(zahtevane.begin(), zahtevane.end(),
                                   [&](const Kljuc& k) { return spremenjen[size_t(k.izgled)]; }),
                    zahtevane.end());
    if (zrasleKljuc.izgled >= 0 && spremenjen[size_t(zrasleKljuc.izgled)])
        zrasleKljuc.izgled = -1;
}

// The scale of the view, the lighting and the lights' positions in world
// coordinates (the current model-view matrix is the camera's, a rotation and
// a shift): when any changed, every cell is drawn again.
void ImpostorAtlas::preveriPogled(bool lightingEnabled) {
    GLint vp[4];
    GLfloat projekcija[16], mv[16];
    glGetIntegerv(GL_VIEWPORT, vp);
    glGetFloatv(GL_PROJECTION_MATRIX, projekcija);
    glGetFloatv(GL_MODELVIEW_MATRIX, mv);
    const float fx = 0.5f * float(vp[2]) * projekcija[0];
    const float fy = 0.5f * float(vp[3]) * projekcija[5];
    float svet[3][4];
    for (int i = 0; i < 3; ++i) {
        GLfloat e[4];
        glGetLightfv(GLenum(GL_LIGHT0 + i), GL_POSITION, e);
        // world = R^T (eye - t w), w unchanged
        const float d[3] = {e[0] - mv[12] * e[3], e[1] - mv[13] * e[3], e[2] - mv[14] * e[3]};
        for (int r = 0; r < 3; ++r)
            svet[i][r] = mv[r * 4 + 0] * d[0] + mv[r * 4 + 1] * d[1] + mv[r * 4 + 2] * d[2];
        svet[i][3] = e[3];
    }
    auto merilo = [](float a, float b) {
        return b > 0 && a / b < dovoljenaSpremembaMerila && b / a < dovoljenaSpremembaMerila;
    };
    bool enako = lightingEnabled == osvetljeno && merilo(fx, goriscnaX) && merilo(fy, goriscnaY);
    for (int i = 0; i < 3; ++i)
        for (int k = 0; k < 4; ++k)
            enako = enako && skoraj(svet[i][k], luci[i][k]);
    if (enako)
        return;
    for (Model& m : modeli)
        m = Model();
    zahtevane.clear();
    zrasleKljuc.izgled = -1;
    goriscnaX = fx;
    goriscnaY = fy;
    osvetljeno = lightingEnabled;
    std::memcpy(luci, svet, sizeof luci);
}

ImpostorAtlas::Skupina& ImpostorAtlas::skupina(int izgled, int daljava) {
    Skupina& s = modeli[size_t(izgled)].skupine[daljava];
    if (!s.izmerjena)
        izmeri(izgled, daljava, s);
    return s;
}

// The height of the tree at every size, to scale a plant's quad to its own
// size from the nearest one drawn.
void ImpostorAtlas::izmeri(int izgled, int daljava, Skupina& s) {
    for (int i = 0; i < stVelikosti; ++i) {
        zrasti(izgled, daljava, i);
        const arbo::MrezaDrevesa& m = rastlinar->delckiDrevesa.mreza;
        float vrh = 0;
        bool prazno = true;
        for (const auto* p : {&m.lubje, &m.crte, &m.listi, &m.tocke})
            for (std::size_t k = 0; k < p->oglisca.size(); ++k) {
                vrh = std::max(vrh, p->oglisca[k].y);
                prazno = false;
            }
        s.prazna[i] = prazno || vrh <= 0;
        s.visina[i] = s.prazna[i] ? 0 : vrh;
    }
    s.izmerjena = true;
}

// Grows the tree of a model for a cells' distance (its level of detail) and
// size into rastlinar's mesh, in the tree's own coordinates, as the plant walk
// would grow it.
void ImpostorAtlas::zrasti(int izgled, int daljava, int velikost) {
    if (zrasleKljuc.izgled == izgled && zrasleKljuc.daljava == daljava &&
        zrasleKljuc.velikost == velikost)
        return;
    arbo::Arbo& a = *rastlinar;
    const arbo::Arbo& model = *drevesa[size_t(izgled)];
    a.pd = model.pdPrepared;
    a.pdZeNastavljen = true;
    a.pogled = model.pogled;               // colouring and textures
    a.pogled.kvadraticnePloskve = nullptr; // the model's; not needed to grow on the CPU
    a.pogled.wireframe = false;
    a.pogled.animateWindSway = false;
    a.pogled.animateOrbitAround = false;
    a.pogled.animateGrow = true;
    a.pogled.starostDrevesa = double(velikost + 1) / stVelikosti;
    a.pogled.lowQuality = daljave()[std::size_t(daljava)].raven + prvaRaven;
    a.delckiDrevesa.mreza.izprazni();
    int stZil;
    double visina;
    a.zacniOkvir(stZil, visina);
    a.zrasti(stZil, visina, arbo::MatrikaSklad::identiteta());
    zrasleKljuc = {izgled, daljava, velikost, 0, 0};
}

// The height of the tree at growth size r: between the heights of the sizes
// drawn, and below the smallest in proportion to the trunk's length, which a
// tree that young mostly is.
float ImpostorAtlas::visinaPri(const Skupina& s, float r) {
    int spodaj = -1, zgoraj = -1;
    for (int i = 0; i < stVelikosti; ++i) {
        if (s.prazna[i])
            continue;
        const float ri = float(i + 1) / stVelikosti;
        if (ri <= r)
            spodaj = i;
        if (ri >= r && zgoraj < 0)
            zgoraj = i;
    }
    const float korak = 0.001f; // the growth step a frame adds to the trunk
    if (zgoraj < 0)
        return spodaj < 0 ? 0.0f : s.visina[spodaj];
    const float rz = float(zgoraj + 1) / stVelikosti;
    if (spodaj < 0)
        return s.visina[zgoraj] * (r + korak) / (rz + korak);
    const float rs = float(spodaj + 1) / stVelikosti;
    if (zgoraj == spodaj)
        return s.visina[zgoraj];
    return s.visina[spodaj] + (s.visina[zgoraj] - s.visina[spodaj]) * (r - rs) / (rz - rs);
}

void ImpostorAtlas::dodaj(int izgled, int lod, float velikost, const arbo::Tocka& noga) {
    float dx = noga.x - kamera.x, dz = noga.z - kamera.z;
    const float dvig = kamera.y - noga.y;
    const int raven = lod - prvaRaven;
    const float razdalja = std::sqrt(dx * dx + dz * dz + dvig * dvig);
    int daljava = prvaDaljava[raven];
    while (daljava < prvaDaljava[raven] + stPasov[raven] - 1 &&
           razdalja >= daljave()[std::size_t(daljava)].doKod)
        ++daljava;
    Skupina& s = skupina(izgled, daljava);
    // The smallest size not below the plant's that draws something (a quad
    // scaled up would give some texels two pixels: thick trunks), a smaller
    // one if need be.
    int i = std::clamp(int(std::ceil(velikost * stVelikosti - 1e-3f)) - 1, 0, stVelikosti - 1);
    while (i < stVelikosti - 1 && s.prazna[i])
        ++i;
    while (i > 0 && s.prazna[i])
        --i;
    if (s.prazna[i])
        return;
    const float skala = visinaPri(s, velikost) / s.visina[i];
    if (!(skala > 0))
        return;

    float dh = std::sqrt(dx * dx + dz * dz);
    if (dh < 1e-3f) {
        dx = 0;
        dz = -1;
        dh = 1;
    }
    // Direction 0 looks along -z, 2 along +x (the camera's side of the plant).
    const std::uint32_t k = kocka(noga);
    const float kot = float(std::atan2(dx, -dz) * 180.0 / pi); // -180 ... 180
    const int smer = (izmedDveh(kot / float(korakSmeri), k) + stSmeri) % stSmeri;
    const float dvigKot = float(std::atan2(dvig, dh) * 180.0 / pi);
    const int visina = std::clamp(
        izmedDveh(std::clamp(dvigKot / float(korakVisine), 0.0f, float(stVisin - 1)), k >> 16), 0,
        stVisin - 1);
    Celica& c = s.celice[i][smer][visina];
    if (!c.narisana && !c.zahtevana) {
        c.zahtevana = true;
        zahtevane.push_back({izgled, daljava, i, smer, visina});
    }
    vnosi.push_back({&c, skala, noga, -dz / dh, dx / dh});
}

void ImpostorAtlas::koncajSprehod(double casMs, int stNiti) {
    narisiZahtevane(casMs);
    sestaviImpostorje(stNiti);
    vnosi.clear();
}

// Draws asked-for cells until the time is up; false when some are left.
bool ImpostorAtlas::narisiZahtevane(double casMs) {
    if (zahtevane.empty())
        return true;
    QElapsedTimer cas;
    cas.start();
    // One tree grown serves all its views.
    std::sort(zahtevane.begin(), zahtevane.end(), [](const Kljuc& a, const Kljuc& b) {
        return std::tie(a.izgled, a.daljava, a.velikost, a.smer, a.visina) <
               std::tie(b.izgled, b.daljava, b.velikost, b.smer, b.visina);
    });
    const GLuint prejsnji = trenutniOkvir();
    glPushAttrib(GL_ALL_ATTRIB_BITS);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    if (osvetljeno)
        glEnable(GL_LIGHTING);
    else
        glDisable(GL_LIGHTING);
    glDepthMask(GL_TRUE);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    if (!okvir) {
        QOpenGLFramebufferObjectFormat oblika;
        oblika.setAttachment(QOpenGLFramebufferObject::Depth);
        oblika.setInternalTextureFormat(GL_RGBA8);
        okvir =
            std::make_unique<QOpenGLFramebufferObject>(velikostOkvirja, velikostOkvirja, oblika);
    }
    gl()->glBindFramebuffer(GL_FRAMEBUFFER, okvir->handle());
    pocistiOkvir();
    glEnable(GL_SCISSOR_TEST);
    std::size_t n = 0;
    while (n < zahtevane.size()) {
        narisiCelico(zahtevane[n++]);
        if (cas.nsecsElapsed() > casMs * 1e6)
            break;
    }
    zahtevane.erase(zahtevane.begin(), zahtevane.begin() + long(n));
    preberiOkvir();
    gl()->glBindFramebuffer(GL_FRAMEBUFFER, prejsnji);
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
    glPopAttrib();
    casGradnjeMs += cas.nsecsElapsed() / 1e6;
    return zahtevane.empty();
}

// One cell: the tree as the view would show it from the cell's direction and
// elevation at its level of detail's distance: the same kind of camera (a
// turn and a shift, and a perspective cut down to the tree), the same pixel
// scale, lights and drawing. The quad stands upright, so its height is the
// picture's divided by the cosine of the elevation: seen from that elevation
// it shrinks back to the picture.
void ImpostorAtlas::narisiCelico(const Kljuc& k) {
    Model& m = modeli[size_t(k.izgled)];
    Celica& c = m.skupine[k.daljava].celice[k.velikost][k.smer][k.visina];
    c.zahtevana = false;
    c.narisana = true;
    ++stNarisanihCelic;
    zrasti(k.izgled, k.daljava, k.velikost);
    const arbo::MrezaDrevesa& mreza = rastlinar->delckiDrevesa.mreza;
    float y0 = 1e30f, y1 = -1e30f;
    for (const auto* p : {&mreza.lubje, &mreza.crte, &mreza.listi, &mreza.tocke})
        for (std::size_t i = 0; i < p->oglisca.size(); ++i) {
            y0 = std::min(y0, p->oglisca[i].y);
            y1 = std::max(y1, p->oglisca[i].y);
        }
    if (y0 > y1)
        return; // nothing to draw
    const double a = k.smer * korakSmeri * pi / 180.0, e = k.visina * korakVisine * pi / 180.0;
    const float d = daljave()[std::size_t(k.daljava)].razdalja;
    const float cosE = float(std::cos(e)), sinE = float(std::sin(e));
    // Looking along D = (n cos e, -sin e) at the middle of the tree's height.
    const float nx = float(std::sin(a)), nz = float(-std::cos(a));
    const float sredina = 0.5f * (y0 + y1);
    const float Dx = nx * cosE, Dy = -sinE, Dz = nz * cosE;
    const float rx = -nz, rz = nx;                         // to the right
    const float gx = nx * sinE, gy = cosE, gz = nz * sinE; // up in the picture
    // The picture's extent as tangents of the view angle, and the depth range.
    float x0 = 1e30f, x1 = -1e30f, v0 = 1e30f, v1 = -1e30f, z0 = 1e30f, z1 = -1e30f;
    for (const auto* p : {&mreza.lubje, &mreza.crte, &mreza.listi, &mreza.tocke})
        for (std::size_t i = 0; i < p->oglisca.size(); ++i) {
            const auto& o = p->oglisca[i];
            const float px = o.x, py = o.y - sredina, pz = o.z;
            const float z = d + Dx * px + Dy * py + Dz * pz;
            const float x = (rx * px + rz * pz) / z, y = (gx * px + gy * py + gz * pz) / z;
            x0 = std::min(x0, x), x1 = std::max(x1, x);
            v0 = std::min(v0, y), v1 = std::max(v1, y);
            z0 = std::min(z0, z), z1 = std::max(z1, z);
        }
    float fx = goriscnaX, fy = goriscnaY;
    // The frame buffer holds the largest cell, at a coarser scale if need be.
    const float najvec = float(velikostOkvirja / gostota - 2) - 2 * rob - 1;
    const float zmanjsaj = std::min(1.0f, najvec / std::max((x1 - x0) * fx, (v1 - v0) * fy));
    fx *= zmanjsaj;
    fy *= zmanjsaj;
    const int w = int(std::ceil((x1 - x0) * fx + 2 * rob));
    const int h = int(std::ceil((v1 - v0) * fy + 2 * rob));
    x0 -= rob / fx;
    x1 = x0 + float(w) / fx;
    v0 -= rob / fy;
    v1 = v0 + float(h) / fy;
    // On the upright quad through the tree's axis.
    c.u0 = x0 * d;
    c.u1 = x1 * d;
    c.v0 = sredina + v0 * d / cosE;
    c.v1 = sredina + v1 * d / cosE;
    // Far trees are a few pixels, and whether a leaf of one covers a pixel's
    // centre depends on where exactly the tree stands: cells are drawn finer,
    // each texel then shown as often as the tree covers it.
    int x, y;
    if (!umesti(w * gostota, h * gostota, x, y)) {
        preberiOkvir(); // full: read what is there and start again
        umesti(w * gostota, h * gostota, x, y);
    }
    c.w = w;
    c.h = h;
    vOkvirju.push_back({&c, x, y});
    glViewport(x, y, w * gostota, h * gostota);
    glScissor(x, y, w * gostota, h * gostota);
    glLineWidth(float(gostota));
    const float blizu = std::max(0.5f, z0 - 1.0f), dalec = z1 + 1.0f;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glFrustum(x0 * blizu, x1 * blizu, v0 * blizu, v1 * blizu, blizu, dalec);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    gluLookAt(-Dx * d, sredina - Dy * d, -Dz * d, 0, sredina, 0, 0, 1, 0);
    // The lights where the view has them, in the trees' own (world) axes.
    for (int i = 0; i < 3; ++i)
        glLightfv(GLenum(GL_LIGHT0 + i), GL_POSITION, luci[i]);
    rastlinar->nastaviStanjeGl();
    // Colour blended over the cleared transparent black (premultiplied), alpha
    // summing to coverage: the quad then blends as the leaves would.
    gl()->glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    // The mesh is in the tree's own coordinates: drawn under this camera.
    // A point of 1.4 pixels covers one pixel (its size is rounded), a line is
    // one pixel wide: drawn finer, both cover as much of a texel.
    const float tocka = float(gostota);
    mreza.narisi(rastlinar->pogled.textureNames[0], rastlinar->pogled.textureNames[1], false,
                 tocka);
    oznaciPokrito(mreza, tocka);
}

// The tree's own drawing writes depth wherever it draws, also where a leaf's
// texture is transparent, and so hides what the walk draws behind it later.
// Every pixel the tree touched gets at least the least coverage (alpha 1/255,
// which blends as nothing): the quad, coverage tested, then hides the same.
// Once per pixel, by the front fragment's depth: alpha goes from A to
// A + (1 - A) / 255, a change only where it was near 0.
void ImpostorAtlas::oznaciPokrito(const arbo::MrezaDrevesa& mreza, float velikostTock) {
    glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_CURRENT_BIT | GL_POINT_BIT |
                 GL_DEPTH_BUFFER_BIT);
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_LIGHTING);
    glDepthFunc(GL_EQUAL);
    glDepthMask(GL_FALSE);
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_TRUE);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE_MINUS_DST_ALPHA, GL_ONE);
    glColor4f(0, 0, 0, 1.0f / 255.0f);
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
    glEnableClientState(GL_VERTEX_ARRAY);
    glPointSize(velikostTock);
    const std::pair<const arbo::MrezaDrevesa::Paket*, GLenum> paketi[] = {
        {&mreza.lubje, GL_TRIANGLES},
        {&mreza.crte, GL_LINES},
        {&mreza.listi, GL_TRIANGLES},
        {&mreza.tocke, GL_POINTS}};
    for (const auto& [p, nacin] : paketi) {
        if (p->oglisca.empty())
            continue;
        glVertexPointer(3, GL_FLOAT, sizeof(arbo::MrezaDrevesa::Oglisce), &p->oglisca[0].x);
        if (p->indeksi.empty())
            glDrawArrays(nacin, 0, GLsizei(p->oglisca.size()));
        else
            glDrawElements(nacin, GLsizei(p->indeksi.size()), GL_UNSIGNED_INT, p->indeksi.data());
    }
    glPopClientAttrib();
    glPopAttrib();
}

// A place for a w x h cell in the frame buffer, a free pixel around it (rows
// of cells, a new row when the cell does not fit on this one); false when full.
bool ImpostorAtlas::umesti(int w, int h, int& x, int& y) {
    if (okvirX + w + 1 > velikostOkvirja) {
        okvirY += visinaPolice;
        okvirX = 0;
        visinaPolice = 0;
    }
    if (okvirY + h + 1 > velikostOkvirja)
        return false;
    x = okvirX + 1;
    y = okvirY + 1;
    okvirX += w + 1;
    visinaPolice = std::max(visinaPolice, h + 1);
    return true;
}

void ImpostorAtlas::pocistiOkvir() {
    glDisable(GL_SCISSOR_TEST);
    glClearColor(0, 0, 0, 0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glEnable(GL_SCISSOR_TEST);
    okvirX = okvirY = visinaPolice = 0;
}

// A gostota x gostota block of what was read, for one texel, and how many of 255 plants
// standing anywhere within the texel would show it at its centre. Where the
// tree gives some samples colour, the texel is their average (premultiplied,
// so a plain average), shown as often as they cover the block: a pixel of the
// tree's own drawing has the colour its centre falls on, not a blend with the
// leaves' transparent corners around it. Otherwise samples the tree hides
// without colour make a texel that only hides what lies behind, as often.
std::uint32_t ImpostorAtlas::povprecje(int x0, int y0, std::uint8_t& verjetnost) const {
    const int k = gostota;
    std::uint32_t vsota[4] = {0, 0, 0, 0}, barvnih = 0, skritih = 0;
    for (int y = y0; y < y0 + k; ++y)
        for (int x = x0; x < x0 + k; ++x) {
            const std::uint32_t b = prebrano[std::size_t(y) * velikostOkvirja + std::size_t(x)];
            if (b == 0)
                continue;
            if (b == oznakaPokritosti) {
                ++skritih;
                continue;
            }
            ++barvnih;
            for (int i = 0; i < 4; ++i)
                vsota[i] += (b >> (8 * i)) & 255;
        }
    const std::uint32_t n = barvnih > 0 ? barvnih : skritih, vseh = std::uint32_t(k * k);
    verjetnost = std::uint8_t((n * 255 + vseh / 2) / vseh);
    if (barvnih == 0)
        return skritih > 0 ? oznakaPokritosti : 0;
    std::uint32_t rezultat = 0;
    for (int i = 0; i < 4; ++i)
        rezultat |= ((vsota[i] + barvnih / 2) / barvnih) << (8 * i);
    return (rezultat >> 24) == 0 ? oznakaPokritosti : rezultat;
}

// Reads the cells drawn since the last read into their own pictures.
void ImpostorAtlas::preberiOkvir() {
    if (vOkvirju.empty())
        return;
    const int vrstic = std::min(velikostOkvirja, okvirY + visinaPolice + 1);
    prebrano.resize(std::size_t(velikostOkvirja) * std::size_t(vrstic));
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, velikostOkvirja, vrstic, GL_RGBA, GL_UNSIGNED_BYTE, prebrano.data());
    for (const VOkvirju& v : vOkvirju) {
        Celica& c = *v.celica;
        c.slika.resize(std::size_t(c.w) * std::size_t(c.h));
        c.pokrito.clear();
        c.vrstice.clear();
        for (int y = 0; y < c.h; ++y) {
            c.vrstice.push_back(std::uint32_t(c.pokrito.size()));
            for (int x = 0; x < c.w; ++x) {
                std::uint8_t verjetnost;
                const std::uint32_t b = povprecje(v.x + x * gostota, v.y + y * gostota, verjetnost);
                c.slika[std::size_t(y) * std::size_t(c.w) + std::size_t(x)] = b;
                if (b >> 24 && verjetnost > 0)
                    c.pokrito.push_back({std::uint16_t(x), std::uint16_t(y), b, verjetnost});
            }
        }
        c.vrstice.push_back(std::uint32_t(c.pokrito.size()));
    }
    vOkvirju.clear();
    pocistiOkvir();
}

namespace {

// Whether this plant shows a texel some plants cover and some do not, its
// chance raised by ojacitev / 256.
inline bool pokazi(const ImpostorAtlas::Tekstel& t, std::uint32_t seme, std::uint32_t ojacitev) {
    if (t.verjetnost == 255)
        return true;
    std::uint32_t h = seme ^ (std::uint32_t(t.x) * 0x27D4EB2Fu + std::uint32_t(t.y) * 0x165667B1u);
    h ^= h >> 13;
    h *= 0x85EBCA6Bu;
    h ^= h >> 16;
    return (h & 255) * 256 < t.verjetnost * ojacitev;
}

// The least integer not below v (no library call: it runs per texel).
inline int navzgor(float v) {
    const int i = int(v);
    return i + (float(i) < v);
}

// src over dst, both premultiplied RGBA bytes.
inline std::uint32_t cez(std::uint32_t src, std::uint32_t dst) {
    const std::uint32_t ostane = 255 - (src >> 24);
    if (ostane == 0)
        return src;
    std::uint32_t rezultat = 0;
    for (int k = 0; k < 32; k += 8) {
        const std::uint32_t d = (dst >> k) & 255;
        rezultat |= (((src >> k) & 255) + (d * ostane + 127) / 255) << k;
    }
    return rezultat;
}

} // namespace

// A point of the world in the window: x, y in pixels from the viewport's
// corner, z the depth (0 near, 1 far); false behind the eye.
struct ImpostorAtlas::Okno {
    const float* m; // projection times model-view, column-major
    float sirina, visina;
    bool projiciraj(float x, float y, float z, float& wx, float& wy, float& wz) const {
        const float cx = m[0] * x + m[4] * y + m[8] * z + m[12];
        const float cy = m[1] * x + m[5] * y + m[9] * z + m[13];
        const float cz = m[2] * x + m[6] * y + m[10] * z + m[14];
        const float cw = m[3] * x + m[7] * y + m[11] * z + m[15];
        if (cw <= 1e-6f)
            return false;
        wx = (cx / cw + 1.0f) * 0.5f * sirina;
        wy = (cy / cw + 1.0f) * 0.5f * visina;
        wz = (cz / cw + 1.0f) * 0.5f;
        return true;
    }
};

// Every impostor of the walk, in walk order, as an upright quad turned to the
// camera: each pixel whose centre falls on the quad takes the nearest texel;
// texels without coverage are left out, the others are depth tested against
// the frame (and the impostors before them) and blended over what is there.
// The frame's depth is read once; the impostors' colour is composed apart and
// blended over the frame at the end, which gives the same as blending each in
// turn. Bands of rows are composed on several threads, each band in walk order.
void ImpostorAtlas::sestaviImpostorje(int stNiti) {
    stImpostorjev = 0;
    if (vnosi.empty())
        return;
    GLint vp[4];
    GLfloat mv[16], pr[16], mvp[16];
    glGetIntegerv(GL_VIEWPORT, vp);
    glGetFloatv(GL_MODELVIEW_MATRIX, mv);
    glGetFloatv(GL_PROJECTION_MATRIX, pr);
    for (int c = 0; c < 4; ++c)
        for (int r = 0; r < 4; ++r)
            mvp[c * 4 + r] = pr[r] * mv[c * 4] + pr[4 + r] * mv[c * 4 + 1] +
                             pr[8 + r] * mv[c * 4 + 2] + pr[12 + r] * mv[c * 4 + 3];
    sirina = vp[2];
    visina = vp[3];
    if (sirina <= 0 || visina <= 0)
        return;
    postaviLike(Okno{mvp, float(sirina), float(visina)});
    stImpostorjev = int(liki.size());
    if (liki.empty())
        return;
    QElapsedTimer cas;
    cas.start();
    globina.resize(std::size_t(sirina) * std::size_t(visina));
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    // Waits for the frame so far to be drawn.
    glReadPixels(vp[0], vp[1], sirina, visina, GL_DEPTH_COMPONENT, GL_FLOAT, globina.data());
    branjeMs = cas.nsecsElapsed() / 1e6;
    barve.assign(std::size_t(sirina) * std::size_t(visina), 0);
    // Bands of rows small enough for their depth and colour to stay in the
    // cache, each with its impostors in walk order; threads take every n-th.
    const int stPasov = (visina + visinaPasu - 1) / visinaPasu;
    pasovi.resize(std::size_t(stPasov));
    for (auto& p : pasovi)
        p.clear();
    for (const Lik& l : liki) {
        const int a = std::clamp(int(l.najnizje) - 1, 0, visina - 1) / visinaPasu;
        const int b = std::clamp(int(l.najvisje) + 1, 0, visina - 1) / visinaPasu;
        for (int k = a; k <= b; ++k)
            pasovi[std::size_t(k)].push_back(l);
    }
    const int n = std::clamp(stNiti, 1, stPasov);
    std::vector<int> prva(std::size_t(n), visina), zadnja(std::size_t(n), -1);
    auto sestavi = [&](int nit) {
        for (int k = nit; k < stPasov; k += n)
            sestaviPas(k, prva[std::size_t(nit)], zadnja[std::size_t(nit)]);
    };
    std::vector<std::thread> niti;
    for (int k = 1; k < n; ++k)
        niti.emplace_back(sestavi, k);
    sestavi(0);
    for (std::thread& t : niti)
        t.join();
    sestavljanjeMs = cas.nsecsElapsed() / 1e6 - branjeMs;
    const int y0 = *std::min_element(prva.begin(), prva.end());
    const int y1 = *std::max_element(zadnja.begin(), zadnja.end());
    if (y0 <= y1)
        narisiSestavljeno(y0, y1);
}

// Each impostor's quad in the window: a corner and the two edges from it, and
// its depth (that of its middle), in walk order.
void ImpostorAtlas::postaviLike(const Okno& okno) {
    liki.clear();
    for (const Vnos& v : vnosi) {
        const Celica& c = *v.celica;
        if (c.pokrito.empty())
            continue;
        const float k = v.skala;
        auto tocka = [&](float u, float w, float& x, float& y, float& z) {
            return okno.projiciraj(v.noga.x + v.desnoX * u * k, v.noga.y + w * k,
                                   v.noga.z + v.desnoZ * u * k, x, y, z);
        };
        float ax, ay, az, bx, by, bz, cx, cy, cz, sx, sy, sz;
        if (!tocka(c.u0, c.v0, ax, ay, az) || !tocka(c.u1, c.v0, bx, by, bz) ||
            !tocka(c.u0, c.v1, cx, cy, cz) ||
            !tocka(0.5f * (c.u0 + c.u1), 0.5f * (c.v0 + c.v1), sx, sy, sz))
            continue;
        const float e1x = bx - ax, e1y = by - ay, e2x = cx - ax, e2y = cy - ay;
        const float det = e1x * e2y - e1y * e2x;
        if (std::fabs(det) < 1e-6f)
            continue;
        const float najnizje = ay + std::min({0.0f, e1y, e2y, e1y + e2y});
        const float najvisje = ay + std::max({0.0f, e1y, e2y, e1y + e2y});
        if (najvisje < -1.0f || najnizje > float(visina) + 1.0f)
            continue;
        // A quad smaller than its cell shows fewer texels, while the tree's
        // points and lines keep their pixel: its partly covered texels (the
        // scattered leaves) show that much more often.
        const float pikslov = std::fabs(det) / (float(c.w) * float(c.h)); // per texel
        const std::uint32_t ojacitev = std::uint32_t(256.0f / std::clamp(pikslov, 0.25f, 1.0f));
        liki.push_back({c.pokrito.data(), c.vrstice.data(), std::uint32_t(c.pokrito.size()),
                        std::uint16_t(c.w), std::uint16_t(c.h), ax, ay, e1x, e1y, e2x, e2y, det, sz,
                        najnizje, najvisje, kocka(v.noga), ojacitev});
    }
}

// The impostors' pixels in one band of rows; prva and zadnja get the first
// and last row written.
void ImpostorAtlas::sestaviPas(int pas, int& prva, int& zadnja) {
    const int od = pas * visinaPasu, doVrste = std::min(visina, od + visinaPasu);
    int y0 = prva, y1 = zadnja;
    std::vector<int> stolpci, vrstice; // an upright quad's texel edges in pixels
    for (const Lik& l : pasovi[std::size_t(pas)]) {
        const Tekstel* const konec = l.tekseli + l.stTekselov;
        // Upright on the screen (no roll, nor a tilt that leans it): each
        // texel is a rectangle of whole pixels.
        const float nagnjenost = std::fabs(l.e1y) + std::fabs(l.e2x);
        if (nagnjenost < 0.25f && l.e1x > 0 && l.e2y > 0) {
            auto robovi = [](std::vector<int>& r, int n, float zacetek, float korak) {
                r.resize(std::size_t(n) + 1);
                for (int i = 0; i <= n; ++i)
                    r[std::size_t(i)] = navzgor(zacetek + float(i) * korak - 0.5f);
            };
            robovi(stolpci, l.w, l.ax, l.e1x / float(l.w));
            robovi(vrstice, l.h, l.ay, l.e2y / float(l.h));
            // Only the texel rows this band reaches.
            int prvaVrsta = 0, zadnjaVrsta = l.h;
            while (prvaVrsta < l.h && vrstice[std::size_t(prvaVrsta) + 1] <= od)
                ++prvaVrsta;
            while (zadnjaVrsta > prvaVrsta && vrstice[std::size_t(zadnjaVrsta) - 1] >= doVrste)
                --zadnjaVrsta;
            const Tekstel* const zadnji = l.tekseli + l.vrstice[zadnjaVrsta];
            for (const Tekstel* t = l.tekseli + l.vrstice[prvaVrsta]; t != zadnji; ++t) {
                if (!pokazi(*t, l.seme, l.ojacitev))
                    continue;
                const int ya = std::max(od, vrstice[t->y]);
                const int yb = std::min(doVrste, vrstice[std::size_t(t->y) + 1]);
                const int xa = std::max(0, stolpci[t->x]);
                const int xb = std::min(sirina, stolpci[std::size_t(t->x) + 1]);
                for (int y = ya; y < yb; ++y)
                    for (int x = xa; x < xb; ++x)
                        napisi(std::size_t(y) * std::size_t(sirina) + std::size_t(x), l.globina,
                               t->barva, y, y0, y1);
            }
            continue;
        }
        // Otherwise across the quad: a = (d x e2) / det, b = (e1 x d) / det
        // for d = p - corner, a and b from 0 to 1, are texel (a w, b h). Each
        // texel over the pixels whose centres fall on it.
        const float fw = float(l.w), fh = float(l.h);
        const float dax = l.e2y / l.det * fw, day = -l.e2x / l.det * fw;
        const float dbx = -l.e1y / l.det * fh, dby = l.e1x / l.det * fh;
        const float txx = l.e1x / fw, txy = l.e1y / fw, tyx = l.e2x / fh, tyy = l.e2y / fh;
        const float sirinaX = std::fabs(txx) + std::fabs(tyx);
        const float sirinaY = std::fabs(txy) + std::fabs(tyy);
        const float odmikX = std::min(0.0f, txx) + std::min(0.0f, tyx) - 0.5f;
        const float odmikY = std::min(0.0f, txy) + std::min(0.0f, tyy) - 0.5f;
        for (const Tekstel* t = l.tekseli; t != konec; ++t) {
            if (!pokazi(*t, l.seme, l.ojacitev))
                continue;
            const float a0 = float(t->x), b0 = float(t->y);
            // The texel's lowest corner, less half a pixel, and its extent.
            const float mx = l.ax + a0 * txx + b0 * tyx + odmikX;
            const float my = l.ay + a0 * txy + b0 * tyy + odmikY;
            const int ya = std::max(od, navzgor(my));
            const int yb = std::min(doVrste - 1, navzgor(my + sirinaY) - 1);
            if (ya > yb)
                continue;
            const int xa = std::max(0, navzgor(mx));
            const int xb = std::min(sirina - 1, navzgor(mx + sirinaX) - 1);
            for (int y = ya; y <= yb; ++y) {
                const float px = float(xa) + 0.5f - l.ax, py = float(y) + 0.5f - l.ay;
                float a = px * dax + py * day, b = px * dbx + py * dby;
                for (int x = xa; x <= xb; ++x, a += dax, b += dbx)
                    if (a >= a0 && a < a0 + 1 && b >= b0 && b < b0 + 1)
                        napisi(std::size_t(y) * std::size_t(sirina) + std::size_t(x), l.globina,
                               t->barva, y, y0, y1);
            }
        }
    }
    prva = y0;
    zadnja = y1;
}

// One texel into one pixel: depth tested; where the tree's drawing hides
// without colour only the depth is kept.
inline void ImpostorAtlas::napisi(std::size_t p, float z, std::uint32_t barva, int y, int& y0,
                                  int& y1) {
    if (!(z < globina[p]))
        return;
    globina[p] = z;
    if (barva == oznakaPokritosti)
        return;
    barve[p] = cez(barva, barve[p]);
    y0 = std::min(y0, y);
    y1 = std::max(y1, y);
}

// The composed rows y0 ... y1 blended over the frame (premultiplied).
void ImpostorAtlas::narisiSestavljeno(int y0, int y1) {
    GLint vp[4];
    glGetIntegerv(GL_VIEWPORT, vp);
    glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_CURRENT_BIT | GL_PIXEL_MODE_BIT |
                 GL_TRANSFORM_BIT);
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_ALPHA_TEST);
    glDisable(GL_FOG);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    // Row y0 of the viewport, a quarter pixel in so that rounding cannot move it.
    glRasterPos2f(-1.0f + 0.25f * 2.0f / float(vp[2]),
                  -1.0f + (float(y0) + 0.25f) * 2.0f / float(vp[3]));
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glDrawPixels(vp[2], y1 - y0 + 1, GL_RGBA, GL_UNSIGNED_BYTE,
                 barve.data() + std::size_t(y0) * std::size_t(vp[2]));
    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glPopClientAttrib();
    glPopAttrib();
}

const ImpostorAtlas::Celica& ImpostorAtlas::celica(int izgled, int lod, int velikost, int smer,
                                                   int visina) const {
    return modeli[size_t(izgled)].skupine[prvaDaljava[lod - prvaRaven]].celice[velikost][smer]
                                                                              [visina];
}

QImage ImpostorAtlas::slika(const Celica& c) {
    if (c.slika.empty())
        return QImage();
    QImage slika(c.w, c.h, QImage::Format_RGBA8888_Premultiplied);
    for (int r = 0; r < c.h; ++r) // bottom row first
        std::memcpy(slika.scanLine(c.h - 1 - r), c.slika.data() + std::size_t(r) * std::size_t(c.w),
                    std::size_t(c.w) * 4);
    return slika;
}

} // namespace ecosystem::render
