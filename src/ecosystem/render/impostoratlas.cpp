#include "ecosystem/render/impostoratlas.h"

#include "arbo/arbo.h"

#include <QElapsedTimer>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>

#include <GL/gl.h>
#include <GL/glu.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <tuple>

namespace ecosystem::render {

namespace {

constexpr double pi = M_PI;
// The distance a level of detail is drawn at in its cells: near the middle of
// its band (5 L^2 to 5 (L + 1)^2 metres); the last band is open, and the
// default camera sees most of its plants between 405 and 600 m.
const float razdaljaRavni[ImpostorAtlas::stRavni] = {152, 212, 282, 362, 480};
const double korakSmeri = 360.0 / ImpostorAtlas::stSmeri;
const double korakVisine = 15.0; // degrees between view elevations
// Between two view elevations: the tangents of 7.5, 22.5 and 37.5 degrees.
const float mejeVisin[ImpostorAtlas::stVisin - 1] = {0.13165250f, 0.41421356f, 0.76732699f};

// The nearest of the eight directions 45 degrees apart (0 along y, 2 along x)
// of the vector (x, y), without an arc tangent: it runs for every far plant.
int najblizjaSmer(float x, float y) {
    static_assert(ImpostorAtlas::stSmeri == 8);
    const float tan225 = 0.41421356f, ax = std::fabs(x), ay = std::fabs(y);
    if (ax <= tan225 * ay)
        return y > 0 ? 0 : 4;
    if (ay <= tan225 * ax)
        return x > 0 ? 2 : 6;
    if (x > 0)
        return y > 0 ? 1 : 3;
    return y > 0 ? 7 : 5;
}
// Pixels kept free around a tree's outermost vertices: points are 1.4 pixels.
const float rob = 1.0f;
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
    Skupina skupine[stRavni];
    std::vector<std::unique_ptr<QOpenGLFramebufferObject>> strani;
    int x = 0, y = 0, visinaPolice = 0;     // where the next cell goes on the last page
    std::vector<std::vector<float>> kvadri; // the walk's quads per page: x, y, z, s, t
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

ImpostorAtlas::Skupina& ImpostorAtlas::skupina(int izgled, int lod) {
    Skupina& s = modeli[size_t(izgled)].skupine[lod - prvaRaven];
    if (!s.izmerjena)
        izmeri(izgled, lod - prvaRaven, s);
    return s;
}

// The height of the tree at every size, to scale a plant's quad to its own
// size from the nearest one drawn.
void ImpostorAtlas::izmeri(int izgled, int raven, Skupina& s) {
    for (int i = 0; i < stVelikosti; ++i) {
        zrasti(izgled, raven, i);
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

// Grows the tree of a model at a level of detail and size into rastlinar's
// mesh, in the tree's own coordinates, as the plant walk would grow it.
void ImpostorAtlas::zrasti(int izgled, int raven, int velikost) {
    if (zrasleKljuc.izgled == izgled && zrasleKljuc.raven == raven &&
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
    a.pogled.lowQuality = raven + prvaRaven;
    a.delckiDrevesa.mreza.izprazni();
    int stZil;
    double visina;
    a.zacniOkvir(stZil, visina);
    a.zrasti(stZil, visina, arbo::MatrikaSklad::identiteta());
    zrasleKljuc = {izgled, raven, velikost, 0, 0};
}

void ImpostorAtlas::dodaj(int izgled, int lod, float velikost, const arbo::Tocka& noga) {
    Skupina& s = skupina(izgled, lod);
    // The nearest size that draws something, the next larger if need be.
    int i = std::clamp(int(std::lround(velikost * stVelikosti)) - 1, 0, stVelikosti - 1);
    while (i < stVelikosti - 1 && s.prazna[i])
        ++i;
    if (s.prazna[i])
        return;
    // The plant's height between the sizes' heights (from 0 at size 0).
    const float f = std::clamp(velikost * stVelikosti - 1.0f, -1.0f, float(stVelikosti - 1));
    const int j = int(std::floor(f));
    const float h0 = j < 0 ? 0.0f : s.visina[j];
    const float h1 = s.visina[std::min(j + 1, stVelikosti - 1)];
    const float skala = (h0 + (h1 - h0) * (f - float(j))) / s.visina[i];
    if (!(skala > 0))
        return;

    float dx = noga.x - kamera.x, dz = noga.z - kamera.z;
    float dh = std::sqrt(dx * dx + dz * dz);
    if (dh < 1e-3f) {
        dx = 0;
        dz = -1;
        dh = 1;
    }
    const int smer = najblizjaSmer(dx, -dz);
    const float dvig = kamera.y - noga.y;
    int visina = 0;
    while (visina < stVisin - 1 && dvig > mejeVisin[visina] * dh)
        ++visina;
    Celica& c = s.celice[i][smer][visina];
    if (!c.narisana && !c.zahtevana) {
        c.zahtevana = true;
        zahtevane.push_back({izgled, lod - prvaRaven, i, smer, visina});
    }
    vnosi.push_back({&c, izgled, skala, noga, -dz / dh, dx / dh});
}

void ImpostorAtlas::koncajSprehod(double casMs) {
    narisiZahtevane(casMs);
    narisiImpostorje();
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
        return std::tie(a.izgled, a.raven, a.velikost, a.smer, a.visina) <
               std::tie(b.izgled, b.raven, b.velikost, b.smer, b.visina);
    });
    const GLuint okvir = trenutniOkvir();
    glPushAttrib(GL_ALL_ATTRIB_BITS);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    if (osvetljeno)
        glEnable(GL_LIGHTING);
    else
        glDisable(GL_LIGHTING);
    glEnable(GL_SCISSOR_TEST);
    glDepthMask(GL_TRUE);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    std::size_t n = 0;
    while (n < zahtevane.size()) {
        narisiCelico(zahtevane[n++]);
        if (cas.nsecsElapsed() > casMs * 1e6)
            break;
    }
    zahtevane.erase(zahtevane.begin(), zahtevane.begin() + long(n));
    gl()->glBindFramebuffer(GL_FRAMEBUFFER, okvir);
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
    Celica& c = m.skupine[k.raven].celice[k.velikost][k.smer][k.visina];
    c.zahtevana = false;
    c.narisana = true;
    ++stNarisanihCelic;
    zrasti(k.izgled, k.raven, k.velikost);
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
    const float d = razdaljaRavni[k.raven];
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
    // A page holds the largest cell, at a coarser scale if need be.
    const float najvec = float(velikostStrani - 2) - 2 * rob - 1;
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
    int x, y;
    umesti(m, w + 2, h + 2, c.stran, x, y); // a free pixel on every side
    ++x, ++y;
    const float S = velikostStrani;
    c.s0 = float(x) / S, c.s1 = float(x + w) / S, c.t0 = float(y) / S, c.t1 = float(y + h) / S;

    QOpenGLFramebufferObject& stran = *m.strani[size_t(c.stran)];
    gl()->glBindFramebuffer(GL_FRAMEBUFFER, stran.handle());
    glViewport(x, y, w, h);
    glScissor(x, y, w, h);
    glClear(GL_DEPTH_BUFFER_BIT);
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
    // Colour blended over the page's transparent black (premultiplied), alpha
    // summing to coverage: the quad then blends as the leaves would.
    gl()->glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    // The mesh is in the tree's own coordinates: drawn under this camera.
    mreza.narisi(rastlinar->pogled.textureNames[0], rastlinar->pogled.textureNames[1], false);
    oznaciPokrito(mreza);
}

// The tree's own drawing writes depth wherever it draws, also where a leaf's
// texture is transparent, and so hides what the walk draws behind it later.
// Every pixel the tree touched gets at least the least coverage (alpha 1/255,
// which blends as nothing): the quad, coverage tested, then hides the same.
// Once per pixel, by the front fragment's depth: alpha goes from A to
// A + (1 - A) / 255, a change only where it was near 0.
void ImpostorAtlas::oznaciPokrito(const arbo::MrezaDrevesa& mreza) {
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
    glPointSize(1.4f);
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

// A place for a w x h cell on the model's last page (rows of cells, a new row
// when the cell does not fit on this one), or on a new page.
void ImpostorAtlas::umesti(Model& m, int w, int h, int& stran, int& x, int& y) {
    if (!m.strani.empty() && m.x + w > velikostStrani) {
        m.y += m.visinaPolice;
        m.x = 0;
        m.visinaPolice = 0;
    }
    if (m.strani.empty() || m.y + h > velikostStrani) {
        QOpenGLFramebufferObjectFormat oblika;
        oblika.setAttachment(QOpenGLFramebufferObject::Depth);
        oblika.setInternalTextureFormat(GL_RGBA8);
        m.strani.push_back(
            std::make_unique<QOpenGLFramebufferObject>(velikostStrani, velikostStrani, oblika));
        QOpenGLFramebufferObject& nova = *m.strani.back();
        glBindTexture(GL_TEXTURE_2D, nova.texture());
        // Nearest texels: a tree far away is mostly single-pixel points and
        // lines, which filtering would smear below the coverage threshold.
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
        gl()->glBindFramebuffer(GL_FRAMEBUFFER, nova.handle());
        glDisable(GL_SCISSOR_TEST);
        glClearColor(0, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glEnable(GL_SCISSOR_TEST);
        m.x = m.y = m.visinaPolice = 0;
    }
    stran = int(m.strani.size()) - 1;
    x = m.x;
    y = m.y;
    m.x += w;
    m.visinaPolice = std::max(m.visinaPolice, h);
}

// Every impostor of the walk as an upright quad turned to the camera, one
// draw per page; coverage tested, colour blended as premultiplied.
void ImpostorAtlas::narisiImpostorje() {
    stImpostorjev = 0;
    for (Model& m : modeli) {
        m.kvadri.resize(m.strani.size());
        for (auto& q : m.kvadri)
            q.clear();
    }
    for (const Vnos& v : vnosi) {
        const Celica& c = *v.celica;
        if (!c.narisana || c.stran < 0)
            continue;
        std::vector<float>& q = modeli[size_t(v.izgled)].kvadri[size_t(c.stran)];
        const std::size_t n = q.size();
        q.resize(n + 20);
        float* o = q.data() + n;
        const float u[4] = {c.u0, c.u1, c.u1, c.u0}, w[4] = {c.v0, c.v0, c.v1, c.v1};
        const float s[4] = {c.s0, c.s1, c.s1, c.s0}, t[4] = {c.t0, c.t0, c.t1, c.t1};
        for (int i = 0; i < 4; ++i, o += 5) {
            const float du = u[i] * v.skala;
            o[0] = v.noga.x + v.desnoX * du;
            o[1] = v.noga.y + w[i] * v.skala;
            o[2] = v.noga.z + v.desnoZ * du;
            o[3] = s[i];
            o[4] = t[i];
        }
        ++stImpostorjev;
    }
    if (stImpostorjev == 0)
        return;
    glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_TEXTURE_BIT | GL_CURRENT_BIT |
                 GL_DEPTH_BUFFER_BIT);
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glDisable(GL_LIGHTING);
    glDisable(GL_CULL_FACE);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glEnable(GL_ALPHA_TEST);
    glAlphaFunc(GL_GREATER, 0.0f);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_REPLACE);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
    for (Model& m : modeli)
        for (std::size_t i = 0; i < m.kvadri.size(); ++i) {
            const std::vector<float>& q = m.kvadri[i];
            if (q.empty())
                continue;
            glBindTexture(GL_TEXTURE_2D, m.strani[i]->texture());
            glVertexPointer(3, GL_FLOAT, 5 * sizeof(float), q.data());
            glTexCoordPointer(2, GL_FLOAT, 5 * sizeof(float), q.data() + 3);
            glDrawArrays(GL_QUADS, 0, GLsizei(q.size() / 5));
        }
    glPopClientAttrib();
    glPopAttrib();
}

const ImpostorAtlas::Celica& ImpostorAtlas::celica(int izgled, int lod, int velikost, int smer,
                                                   int visina) const {
    return modeli[size_t(izgled)].skupine[lod - prvaRaven].celice[velikost][smer][visina];
}

QImage ImpostorAtlas::slika(int izgled, const Celica& c) const {
    if (!c.narisana || c.stran < 0)
        return QImage();
    const QOpenGLFramebufferObject& stran = *modeli[size_t(izgled)].strani[size_t(c.stran)];
    const int x = int(std::lround(c.s0 * velikostStrani)),
              y = int(std::lround(c.t0 * velikostStrani));
    const int w = int(std::lround(c.s1 * velikostStrani)) - x;
    const int h = int(std::lround(c.t1 * velikostStrani)) - y;
    QImage slika(w, h, QImage::Format_RGBA8888_Premultiplied);
    const GLuint okvir = trenutniOkvir();
    gl()->glBindFramebuffer(GL_FRAMEBUFFER, stran.handle());
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(x, y, w, h, GL_RGBA, GL_UNSIGNED_BYTE, slika.bits());
    gl()->glBindFramebuffer(GL_FRAMEBUFFER, okvir);
    return slika.mirrored();
}

} // namespace ecosystem::render
