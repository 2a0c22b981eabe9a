#include "ecosystem/render/visibleplantsrender.h"

#include "arbo/arbo.h"
#include "ecosystem/render/camera.h"
#include "ecosystem/render/impostoratlas.h"
#include "ecosystem/render/levelofdetail.h"
#include "ecosystem/render/objectculling.h"
#include "ecosystem/simulation/entities/rastlina.h"
#include "ecosystem/simulation/entities/vrstarastlin.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <QElapsedTimer>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstdlib>
#include <limits>
#include <mutex>
#include <thread>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace ecosystem::render {

namespace {

const float radijObjekta = 5.0f;   // bounding sphere of every plant, metres
const float visinaSredisca = 2.5f; // its centre above the plant's foot
const double zasukNaId = 17.19;    // each plant turned by its own angle
// Time the atlas may take per frame to draw cells: the rest comes in later
// frames, and the window stays responsive meanwhile.
const double casAtlasaNaOkvirMs = 40.0;

// The frustum of the current projection and model-view matrices, combined by GL.
CObjectCulling frustumOfCurrentView() {
    arbo::Matrika modelViewMatrix, projectionMatrix, combo;
    glPushMatrix();
    glGetFloatv(GL_MODELVIEW_MATRIX, modelViewMatrix.m);
    glGetFloatv(GL_PROJECTION_MATRIX, projectionMatrix.m);
    glLoadMatrixf(projectionMatrix.m);
    glMultMatrixf(modelViewMatrix.m);
    glGetFloatv(GL_MODELVIEW_MATRIX, combo.m);
    glPopMatrix();
    CObjectCulling culling;
    culling.setMatrix(combo);
    return culling;
}

void setNeighbourhoodColour(int tip) {
    switch (tip) {
    case 0:
        glColor3ub(255, 0, 0);
        break;
    case 1:
        glColor3ub(0, 255, 0);
        break;
    case 2:
        glColor3ub(0, 0, 255);
        break;
    case 3:
        glColor3ub(255, 0, 255);
        break;
    case 4:
        glColor3ub(255, 255, 0);
        break;
    default:
        glColor3ub(255, 255, 255);
        break;
    }
}

void drawNeighbourhood(const simulationEntities::CRastlina& rastlina, int tip, GLUquadric* quadric,
                       bool lightingEnabled) {
    glDisable(GL_DEPTH_TEST);
    glPushMatrix();
    glRotatef(90.0f, 1.0f, 0.0f, 0.0f);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_LIGHTING);
    setNeighbourhoodColour(tip);
    gluDisk(quadric, 0.0, rastlina.trenutniRadij, 16, 1);
    if (lightingEnabled)
        glEnable(GL_LIGHTING);
    else
        glDisable(GL_LIGHTING);
    glEnable(GL_TEXTURE_2D);
    glPopMatrix();
    glEnable(GL_DEPTH_TEST);
}

// The neighbourhood disk at the plant's foot, as the walk draws it before the tree.
void drawNeighbourhoodAtPlant(const simulationEntities::CRastlina& rastlina, int tip,
                              GLUquadric* quadric, bool lightingEnabled) {
    glPushMatrix();
    glTranslatef(rastlina.pozicija3D.x, rastlina.pozicija3D.y, rastlina.pozicija3D.z);
    drawNeighbourhood(rastlina, tip, quadric, lightingEnabled);
    glPopMatrix();
}

// Sets the model's view settings for this plant and returns its level of
// detail. The parameters are copied once per model and walk instead of once per
// plant: nothing edits them while the walk runs.
int setUpModelForPlant(arbo::Arbo& drevo, const simulationEntities::CRastlina& rastlina,
                       const arbo::Arbo& izbranoArbo, const CLevelOfDetail& levelOfDetail,
                       const VisiblePlantsRender::Flags& flags) {
    arbo::Pogled& pogled = drevo.pogled;
    pogled.wireframe = flags.wireframe;
    pogled.animateWindSway = izbranoArbo.pogled.animateWindSway;
    pogled.animateOrbitAround = izbranoArbo.pogled.animateOrbitAround;
    pogled.animateGrow = true;
    pogled.orbit = rastlina.id * zasukNaId;
    const double ratio = rastlina.trenutnaVelikost, maxRatio = 1.0;
    pogled.starostDrevesa = std::min(ratio, maxRatio);
    if (!drevo.pdZeNastavljen) {
        drevo.postaviPrivzeteLastnostiDrevesa();
        drevo.pdZeNastavljen = true;
    }
    return levelOfDetail.getLODcase(rastlina.pozicija3D);
}

const float neNastavljeno = std::numeric_limits<float>::quiet_NaN();

// A drawn mesh larger than this gives its memory back: a collection's tree
// takes a few megabytes, one at a tree file's limits some 100 MB, and each
// model and job slot would otherwise keep the largest tree it ever held.
constexpr std::size_t najvecObdrzano = std::size_t(16) << 20;
void sprostiVeliko(arbo::MrezaDrevesa& m) {
    if (m.bajtov() > najvecObdrzano)
        m = arbo::MrezaDrevesa();
}

} // namespace

// The trees of a walk grown by a pool of threads. The drawing thread hands over
// one job per tree in plant order, with the start of the tree's frame already
// taken on the model (growth, spin, wind phase: every side effect the model
// carries from tree to tree). Jobs are closed in batches of a few trees; a
// grower takes the oldest open batch and grows its trees, each into the job's
// own mesh, on its own twins of the models. The drawing thread draws the jobs
// in order with the calls the tree's own frame would make, and when the next
// job is not ready it grows the oldest open batch itself rather than wait.
class VisiblePlantsRender::Rastoci {
public:
    struct Posel {
        arbo::Arbo* model = nullptr;
        int izgled = 0;
        bool drevo = true; // false: only the neighbourhood disk (an impostor's plant)
        long hod = 0;      // the walk the job belongs to
        const simulationEntities::CRastlina* rastlina = nullptr;
        int tip = 0;
        arbo::Pogled pogled;
        double maxKotZasukaVetra = 0;
        int stZil = 0;
        double aktivnaVisina = 0;
        int idVejaNext = 1;
        arbo::Matrika koren;
        // What the frame leaves behind. A colour the tree never set stays NaN:
        // the model keeps the one an earlier tree left.
        arbo::MrezaDrevesa mreza;
        int stSegmentov = 0, stListov = 0, idVejaNextPo = 1;
        float barvaStebla[3] = {1, 1, 1};
        float barva[4] = {1, 1, 1, 1};
        std::size_t bajtov = 0; // the most its mesh can take, counted while on the way
    };
    static constexpr long velikostSklopa = 8; // trees per batch
    // Batches on the way at most: sixteen (fewer made two cores wait for
    // growing), or two for every thread on larger machines; each job keeps its
    // mesh's memory up to najvecObdrzano.
    const long stSklopov;
    const long stPoslov;
    std::size_t najvecBajtovVLetu = 0; // the walk's VisiblePlantsRender::najvecBajtovVLetu
    const int stPomocnikov;
    long stKosov = 0;            // stems and leaves drawn in this walk
    std::size_t bajtovVLetu = 0; // the jobs' najvecBajtov, from handed over to drawn
    // The drawing thread's nanoseconds in this walk: drawing, growing, waiting.
    std::int64_t nsRisanje = 0, nsRast = 0, nsCakanje = 0;

    explicit Rastoci(int stPomocnikov)
        : stSklopov(std::max(16L, 2L * (stPomocnikov + 1))), stPoslov(velikostSklopa * stSklopov),
          stPomocnikov(stPomocnikov), posli(std::size_t(stPoslov)),
          stVSklopu(std::size_t(stSklopov)), koncanSklop(std::size_t(stSklopov)),
          dvojniki(std::size_t(stPomocnikov) + 1) {}

    ~Rastoci() {
        konec = true;
        zbudiRastoce();
        for (std::thread& t : niti)
            t.join();
    }

    // Starts a walk over the models' trees.
    void zacni(const std::vector<arbo::Arbo*>& modeli, std::size_t najvecBajtovVLetu) {
        this->modeli = modeli;
        this->najvecBajtovVLetu = najvecBajtovVLetu;
        ++hod;
        for (auto& d : dvojniki)
            while (d.size() < modeli.size())
                d.push_back(Dvojnik{std::make_unique<arbo::Arbo>(), -1});
        stKosov = 0;
        nsRisanje = nsRast = nsCakanje = 0;
        // The threads live from the first walk on.
        while (int(niti.size()) < stPomocnikov) {
            const int rastoci = int(niti.size()) + 1;
            niti.emplace_back([this, rastoci] { delaj(rastoci); });
        }
    }

    // A free job for the next tree of model izgled (drawing older trees to free one).
    Posel& prost(int izgled, const Flags& flags) {
        while (oddanih - narisanih >= stPoslov)
            narisi(flags);
        Posel& p = posli[std::size_t(oddanih % stPoslov)];
        p.model = modeli[size_t(izgled)];
        p.izgled = izgled;
        p.drevo = true;
        p.hod = hod;
        return p;
    }

    void oddaj(const Flags& flags) {
        Posel& p = posli[std::size_t(oddanih % stPoslov)];
        p.bajtov = p.drevo ? najvecBajtov(p) : 0;
        bajtovVLetu += p.bajtov;
        ++oddanih;
        if (oddanih % velikostSklopa == 0)
            zapri(velikostSklopa);
        // Too much memory on the way: the open batch is closed early, and the
        // oldest jobs are drawn (grown here if need be) until it fits again.
        if (bajtovVLetu > najvecBajtovVLetu) {
            zapriOdprtiSklop();
            while (bajtovVLetu > najvecBajtovVLetu && narisanih < oddanih)
                narisi(flags);
        }
        // Draw what is ready without waiting.
        while (narisanih < oddanih && gotov(narisanih / velikostSklopa))
            narisi(flags);
    }

    // Draws every job left.
    void koncaj(const Flags& flags) {
        zapriOdprtiSklop();
        while (narisanih < oddanih)
            narisi(flags);
    }

private:
    using Ura = std::chrono::steady_clock;
    static std::int64_t ns(Ura::duration d) {
        return std::chrono::duration_cast<std::chrono::nanoseconds>(d).count();
    }
    struct Dvojnik {
        std::unique_ptr<arbo::Arbo> arbo;
        long hod; // the walk whose parameters it holds
    };
    std::vector<Posel> posli;
    std::vector<int> stVSklopu;                 // jobs in the batch, set when closed
    std::vector<std::atomic<long>> koncanSklop; // 1 + number of the batch grown there
    std::vector<arbo::Arbo*> modeli;
    // One twin of every model for each grower (0: the drawing thread).
    std::vector<std::vector<Dvojnik>> dvojniki;
    long hod = 0;
    long oddanih = 0, narisanih = 0; // jobs, counted over all walks: the drawing thread's only
    // Batches closed and taken by a grower, counted over all walks. A thread
    // sleeps only after counting itself among the sleepers, and a waker looks
    // at that count after its change is visible: no wake-up is lost.
    std::atomic<long> zaprtih{0}, prevzetih{0};
    std::atomic<bool> konec{false};
    std::atomic<int> rastociSpijo{0};
    std::atomic<bool> risarSpi{false};
    std::mutex mutex;
    std::condition_variable cvRastoci, cvRisar;
    std::vector<std::thread> niti;

    bool gotov(long sklop) const {
        return koncanSklop[std::size_t(sklop % stSklopov)] == sklop + 1;
    }

    // A batch of fewer jobs; the next job starts a batch of its own.
    void zapriOdprtiSklop() {
        const long delni = oddanih % velikostSklopa;
        if (delni != 0) {
            zapri(delni);
            oddanih += velikostSklopa - delni;
        }
    }

    // The most memory the job's mesh can take: a stem at most 66 vertices and
    // 300 indices (fine) or 24 and 30, a leaf 8 and 8 (in wire frame), for as
    // many as its strands and leaf density give, a frame holds, and its level
    // of detail lets grow: each segment splits in two, stems are drawn above
    // depth d and twigs end by depth d * d + 1.
    static std::size_t najvecBajtov(const Posel& p) {
        using D = arbo::DelckiDrevesa;
        const arbo::ParametriDrevesa& pd = p.model->pd;
        const int lod = p.pogled.lowQuality, d = lod == 0 ? 50 : 10 - lod;
        auto doGlobine = [](int w) { // segments at depths 0 to w at most
            return w < 0 ? 0 : w > 40 ? std::size_t(-1) : (std::size_t(2) << w) - 1;
        };
        const std::size_t zil = std::size_t(std::max(p.stZil, 0));
        const std::size_t segmentov =
            std::min({2 * zil, std::size_t(D::najvecSegmentov), doGlobine(d - 1)});
        const std::size_t vejic = std::min(zil, doGlobine(d * d + 1));
        const std::size_t listov =
            pd.listi ? std::min(vejic * std::size_t(std::max(pd.gostotaListov, 0)),
                                std::size_t(D::najvecListov))
                     : 0;
        const bool fino = p.pogled.highQualityRendering && lod == 0;
        const std::size_t o = sizeof(arbo::MrezaDrevesa::Oglisce), i = sizeof(std::uint32_t);
        return segmentov * (fino ? 66 * o + 300 * i : 24 * o + 30 * i) + listov * (8 * o + 8 * i);
    }

    void zapri(long stPoslovSklopa) {
        const long sklop = (oddanih - 1) / velikostSklopa;
        stVSklopu[std::size_t(sklop % stSklopov)] = int(stPoslovSklopa);
        zaprtih = sklop + 1;
        if (rastociSpijo > 0)
            zbudiRastoce();
    }

    void zbudiRastoce() {
        std::lock_guard<std::mutex> l(mutex);
        cvRastoci.notify_all();
    }

    // Takes the oldest closed batch no one has taken; -1 when there is none.
    long prevzemi() {
        long sklop = prevzetih;
        while (sklop < zaprtih)
            if (prevzetih.compare_exchange_weak(sklop, sklop + 1))
                return sklop;
        return -1;
    }

    void zrastiSklop(long sklop, int rastoci) {
        const long prvi = (sklop % stSklopov) * velikostSklopa;
        for (long i = prvi; i < prvi + stVSklopu[std::size_t(sklop % stSklopov)]; ++i)
            zrasti(posli[std::size_t(i)], dvojniki[size_t(rastoci)]);
        koncanSklop[std::size_t(sklop % stSklopov)] = sklop + 1;
        if (risarSpi) {
            std::lock_guard<std::mutex> l(mutex);
            cvRisar.notify_one();
        }
    }

    // One tree on this grower's twin of its model.
    static void zrasti(Posel& p, std::vector<Dvojnik>& dvojnikiRastocega) {
        if (!p.drevo)
            return;
        Dvojnik& dv = dvojnikiRastocega[size_t(p.izgled)];
        arbo::Arbo& d = *dv.arbo;
        if (dv.hod != p.hod) {
            // The model's working parameters stay as they are for the whole walk.
            d.pd = p.model->pd;
            d.pdZeNastavljen = true;
            dv.hod = p.hod;
        }
        d.pogled = p.pogled;
        // The quadric stays the model's alone (the twin would delete it);
        // growing on the CPU does not draw with it.
        d.pogled.kvadraticnePloskve = nullptr;
        d.delckiDrevesa.maxKotZasukaVetra = p.maxKotZasukaVetra;
        d.idVejaNext = p.idVejaNext;
        std::fill(d.barvaStebla, d.barvaStebla + 3, neNastavljeno);
        d.delckiDrevesa.nastaviBarvo(neNastavljeno, neNastavljeno, neNastavljeno, neNastavljeno);
        d.zrasti(p.stZil, p.aktivnaVisina, p.koren);
        std::swap(d.delckiDrevesa.mreza, p.mreza); // the twin keeps the empty one
        p.stSegmentov = d.delckiDrevesa.stSegmentov;
        p.stListov = d.delckiDrevesa.stListov;
        p.idVejaNextPo = d.idVejaNext;
        std::copy(d.barvaStebla, d.barvaStebla + 3, p.barvaStebla);
        const float* b = d.delckiDrevesa.trenutnaBarva();
        std::copy(b, b + 4, p.barva);
    }

    // Waits until the oldest job's batch is grown, growing open batches meanwhile.
    void pocakajNaSklop(long sklop) {
        if (gotov(sklop))
            return;
        const auto zacetek = Ura::now();
        for (int i = 0; !gotov(sklop); ++i) {
            const long drug = prevzemi();
            if (drug >= 0) {
                const auto t = Ura::now();
                zrastiSklop(drug, 0);
                nsRast += ns(Ura::now() - t);
                continue;
            }
            if (i < 64) { // a short wait is cheaper than sleeping
#ifdef __SSE2__
                _mm_pause();
#endif
                continue;
            }
            std::unique_lock<std::mutex> l(mutex);
            risarSpi = true;
            cvRisar.wait(l, [&] { return gotov(sklop); });
            risarSpi = false;
        }
        nsCakanje += ns(Ura::now() - zacetek);
    }

    // Draws the oldest job once grown, as the tree's own frame would have.
    void narisi(const Flags& flags) {
        const long k = narisanih++;
        const long sklop = k / velikostSklopa;
        pocakajNaSklop(sklop);
        if (k % velikostSklopa >= stVSklopu[std::size_t(sklop % stSklopov)])
            return; // past the end of a walk's last batch
        Posel& p = posli[std::size_t(k % stPoslov)];
        bajtovVLetu -= p.bajtov;
        arbo::Arbo& a = *p.model;
        glPushMatrix();
        glTranslatef(p.rastlina->pozicija3D.x, p.rastlina->pozicija3D.y, p.rastlina->pozicija3D.z);
        if (flags.showNeighborHood)
            drawNeighbourhood(*p.rastlina, p.tip, a.pogled.kvadraticnePloskve,
                              flags.lightingEnabled);
        if (p.drevo)
            narisiDrevo(a, p);
        glPopMatrix();
    }

    void narisiDrevo(arbo::Arbo& a, Posel& p) {
        const auto zacetek = Ura::now();
        a.nastaviStanjeGl();
        std::swap(a.delckiDrevesa.mreza, p.mreza);
        if (!std::isnan(p.barva[0]))
            a.delckiDrevesa.nastaviBarvo(p.barva[0], p.barva[1], p.barva[2], p.barva[3]);
        a.delckiDrevesa.narisiZbrano();
        std::swap(a.delckiDrevesa.mreza, p.mreza);
        sprostiVeliko(p.mreza);
        stKosov += p.stSegmentov + p.stListov;
        a.delckiDrevesa.stSegmentov = p.stSegmentov;
        a.delckiDrevesa.stListov = p.stListov;
        a.idVejaNext = p.idVejaNextPo;
        if (!std::isnan(p.barvaStebla[0]))
            std::copy(p.barvaStebla, p.barvaStebla + 3, a.barvaStebla);
        nsRisanje += ns(Ura::now() - zacetek);
    }

    // A growing thread: the oldest open batch, again and again.
    void delaj(int rastoci) {
        for (;;) {
            const long sklop = prevzemi();
            if (sklop >= 0) {
                zrastiSklop(sklop, rastoci);
                continue;
            }
            std::unique_lock<std::mutex> l(mutex);
            ++rastociSpijo;
            cvRastoci.wait(l, [&] { return konec || prevzetih < zaprtih; });
            --rastociSpijo;
            if (konec)
                return;
        }
    }
};

int VisiblePlantsRender::privzetoStNiti() {
    if (const char* s = std::getenv("VIRELA_THREADS")) {
        const int n = std::atoi(s);
        if (n > 0)
            return std::min(n, 256);
    }
    return std::max(1, int(std::thread::hardware_concurrency()));
}

VisiblePlantsRender::VisiblePlantsRender() : stNiti(privzetoStNiti()) {}

VisiblePlantsRender::~VisiblePlantsRender() = default;

ImpostorAtlas& VisiblePlantsRender::atlas() {
    if (!atlasImpostorjev)
        atlasImpostorjev = std::make_unique<ImpostorAtlas>();
    return *atlasImpostorjev;
}

// What the plain walk does for a drawn tree up to its growing: the model's view
// settings, then the start of the frame with all its side effects, and the
// model-view matrix the tree would start from; the growing threads do the rest.
void VisiblePlantsRender::pripraviRast(int izgled, arbo::Arbo& drevo,
                                       const simulationEntities::CRastlina& rastlina, int tip,
                                       const arbo::Arbo& izbranoArbo,
                                       const CLevelOfDetail& levelOfDetail, const Flags& flags) {
    const int lod = setUpModelForPlant(drevo, rastlina, izbranoArbo, levelOfDetail, flags);
    ++treesPerLod[lod];
    if (lod >= ImpostorAtlas::prvaRaven)
        farPlants.push_back(rastlina.pozicija3D);
    Rastoci::Posel& p = rastoci->prost(izgled, flags);
    p.rastlina = &rastlina;
    p.tip = tip;
    drevo.pogled.lowQuality = lod;
    drevo.zacniOkvir(p.stZil, p.aktivnaVisina);
    p.pogled = drevo.pogled;
    p.maxKotZasukaVetra = drevo.delckiDrevesa.maxKotZasukaVetra;
    p.idVejaNext = drevo.idVejaNext;
    glPushMatrix();
    glTranslatef(rastlina.pozicija3D.x, rastlina.pozicija3D.y, rastlina.pozicija3D.z);
    glGetFloatv(GL_MODELVIEW_MATRIX, p.koren.m);
    glPopMatrix();
    rastoci->oddaj(flags);
}

// Handing trees over costs more than it saves when there is little to grow:
// the last walk's count of stems and leaves decides. Swaying trees draw from
// the one C random sequence, and an export or OpenGL's own matrix stack needs
// the plain path.
bool VisiblePlantsRender::izberiVzporedno(const std::vector<arbo::Arbo*>& izgledi,
                                          const arbo::Arbo& izbranoArbo, const Flags& flags) const {
    if (stNiti < 2 || flags.doNotDrawTrees || izbranoArbo.pogled.animateWindSway ||
        kosovPrejsnjegaSprehoda < najmanjKosovZaVzporedno)
        return false;
    for (const arbo::Arbo* a : izgledi)
        if (a && (a->serializatorDelckovDrevesa.exportingToPoints || a->delckiDrevesa.sklad.naGl))
            return false;
    return true;
}

int VisiblePlantsRender::render(std::vector<simulationEntities::CVrstaRastlin>& vrste,
                                const std::vector<arbo::Arbo*>& izglediDrevesnihVrst,
                                const arbo::Arbo& izbranoArbo, const Camera& camera,
                                const Flags& flags, std::vector<int>& stevilaUpodobljenihRastlin) {
    QElapsedTimer walkTimer;
    walkTimer.start();
    qint64 treesNs = 0;
    std::fill(std::begin(treesPerLod), std::end(treesPerLod), 0);
    farPlants.clear();

    const CObjectCulling culling = frustumOfCurrentView();
    CLevelOfDetail levelOfDetail;
    arbo::Tocka pozicijaKamere(camera.x, camera.y, camera.z);
    levelOfDetail.setCameraPosition(pozicijaKamere);

    int stRenderiranihDreves = 0;
    stevilaUpodobljenihRastlin.clear();
    const int stIzgledov = int(izglediDrevesnihVrst.size());
    const bool vzporedniRast = izberiVzporedno(izglediDrevesnihVrst, izbranoArbo, flags);
    kosovPrejsnjegaSprehoda = 0;
    lastWalkParallel = vzporedniRast;
    if (vzporedniRast) {
        if (!rastoci || rastoci->stPomocnikov != stNiti - 1)
            rastoci = std::make_unique<Rastoci>(stNiti - 1);
        rastoci->zacni(izglediDrevesnihVrst, najvecBajtovVLetu);
    }
    // Impostors stand in for far trees, except in wire frame.
    const bool impostorji = flags.fastDistantTrees && !flags.wireframe && !flags.doNotDrawTrees;
    if (impostorji) {
        atlas().zacniSprehod(izglediDrevesnihVrst, flags.lightingEnabled, pozicijaKamere);
        // The frame so far is drawn while the walk runs: the impostors wait
        // for it at the end.
        glFlush();
    }
    for (simulationEntities::CVrstaRastlin& vrsta : vrste) {
        int stRenderiranihDrevesVrste = 0;
        // A type without a model of its own takes the last one.
        const int izgled = (vrsta.tip >= 0 && vrsta.tip < stIzgledov) ? vrsta.tip : stIzgledov - 1;
        arbo::Arbo* drevo = izgled >= 0 ? izglediDrevesnihVrst[size_t(izgled)] : nullptr;
        for (const simulationEntities::CRastlina& rastlina : vrsta.ziviPrimerkiTeVrste) {
            const arbo::Tocka center = rastlina.pozicija3D + arbo::Tocka(0, visinaSredisca, 0);
            if (culling.containsSphere(center, radijObjekta) == 0)
                continue;
            ++stRenderiranihDreves;
            ++stRenderiranihDrevesVrste;
            if (drevo == nullptr)
                continue; // no model to draw with; the plant still counts
            if (impostorji &&
                levelOfDetail.getLODcase(rastlina.pozicija3D) >= ImpostorAtlas::prvaRaven) {
                QElapsedTimer treeTimer;
                treeTimer.start();
                if (flags.showNeighborHood && vzporedniRast) {
                    // The disk waits its turn among the trees handed over.
                    Rastoci::Posel& p = rastoci->prost(izgled, flags);
                    p.drevo = false;
                    p.rastlina = &rastlina;
                    p.tip = vrsta.tip;
                    rastoci->oddaj(flags);
                } else if (flags.showNeighborHood) {
                    drawNeighbourhoodAtPlant(rastlina, vrsta.tip, drevo->pogled.kvadraticnePloskve,
                                             flags.lightingEnabled);
                }
                // The model goes through the tree's frame start as if drawn, so
                // the trees after it are drawn as in the exact walk.
                const int lod =
                    setUpModelForPlant(*drevo, rastlina, izbranoArbo, levelOfDetail, flags);
                ++treesPerLod[lod];
                drevo->pogled.lowQuality = lod;
                int stZil;
                double aktivnaVisina;
                drevo->zacniOkvir(stZil, aktivnaVisina, false);
                if (stZil >= 1) {
                    atlasImpostorjev->dodaj(izgled, lod, std::min(rastlina.trenutnaVelikost, 1.0f),
                                            rastlina.pozicija3D);
                    farPlants.push_back(rastlina.pozicija3D);
                }
                treesNs += treeTimer.nsecsElapsed();
                continue;
            }
            if (vzporedniRast && !flags.doNotDrawTrees) {
                QElapsedTimer treeTimer;
                treeTimer.start();
                pripraviRast(izgled, *drevo, rastlina, vrsta.tip, izbranoArbo, levelOfDetail,
                             flags);
                treesNs += treeTimer.nsecsElapsed();
                continue;
            }

            glPushMatrix();
            glTranslatef(rastlina.pozicija3D.x, rastlina.pozicija3D.y, rastlina.pozicija3D.z);
            if (flags.showNeighborHood)
                drawNeighbourhood(rastlina, vrsta.tip, drevo->pogled.kvadraticnePloskve,
                                  flags.lightingEnabled);
            if (!flags.doNotDrawTrees) {
                const int lod =
                    setUpModelForPlant(*drevo, rastlina, izbranoArbo, levelOfDetail, flags);
                ++treesPerLod[lod];
                if (lod >= ImpostorAtlas::prvaRaven)
                    farPlants.push_back(rastlina.pozicija3D);
                QElapsedTimer treeTimer;
                treeTimer.start();
                drevo->drawSingleTreeAwayLOD(lod);
                sprostiVeliko(drevo->delckiDrevesa.mreza);
                treesNs += treeTimer.nsecsElapsed();
                kosovPrejsnjegaSprehoda +=
                    drevo->delckiDrevesa.stSegmentov + drevo->delckiDrevesa.stListov;
            }
            glPopMatrix();
        }
        stevilaUpodobljenihRastlin.push_back(stRenderiranihDrevesVrste);
    }
    if (vzporedniRast) {
        QElapsedTimer treeTimer;
        treeTimer.start();
        rastoci->koncaj(flags);
        treesNs += treeTimer.nsecsElapsed();
        kosovPrejsnjegaSprehoda += rastoci->stKosov;
    }
    submitMs = vzporedniRast ? rastoci->nsRisanje / 1e6 : 0.0;
    drawingThreadGrowMs = vzporedniRast ? rastoci->nsRast / 1e6 : 0.0;
    waitMs = vzporedniRast ? rastoci->nsCakanje / 1e6 : 0.0;
    impostorsMs = 0;
    atlasPending = false;
    if (impostorji) {
        QElapsedTimer impostorTimer;
        impostorTimer.start();
        atlasImpostorjev->koncajSprehod(flags.wholeAtlas ? std::numeric_limits<double>::infinity()
                                                         : casAtlasaNaOkvirMs,
                                        stNiti);
        atlasPending = atlasImpostorjev->manjka();
        impostorsMs = impostorTimer.nsecsElapsed() / 1e6;
    }

    for (arbo::Arbo* a : izglediDrevesnihVrst)
        if (a)
            a->pdZeNastavljen = false;

    treesMs = treesNs / 1e6;
    walkMs = walkTimer.nsecsElapsed() / 1e6;
    return stRenderiranihDreves;
}

} // namespace ecosystem::render
