#include "ecosystem/render/visibleplantsrender.h"

#include "arbo/arbo.h"
#include "ecosystem/render/camera.h"
#include "ecosystem/render/levelofdetail.h"
#include "ecosystem/render/objectculling.h"
#include "ecosystem/simulation/entities/rastlina.h"
#include "ecosystem/simulation/entities/vrstarastlin.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <QElapsedTimer>

#include <algorithm>
#include <atomic>
#include <condition_variable>
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

} // namespace

// The trees of a walk grown on a second thread. Every model gets a twin that
// grows its frames there, so the twin carries the model's colour state from
// frame to frame as the model would; a ring of jobs holds the frames' inputs
// (taken on this thread, in plant order, with every side effect of the frame
// on the model) and their meshes, which this thread draws in the same order.
class VisiblePlantsRender::Rastoci {
public:
    struct Posel {
        arbo::Arbo* model = nullptr;
        arbo::Arbo* dvojnik = nullptr;
        const simulationEntities::CRastlina* rastlina = nullptr;
        int tip = 0;
        arbo::Pogled pogled;
        double maxKotZasukaVetra = 0;
        int stZil = 0;
        double aktivnaVisina = 0;
        int idVejaNext = 1;
        arbo::Matrika koren;
        // What the frame leaves behind.
        arbo::MrezaDrevesa mreza;
        int stSegmentov = 0, stListov = 0, idVejaNextPo = 1;
        float barvaStebla[3] = {1, 1, 1};
        float barva[4] = {1, 1, 1, 1};
    };
    static constexpr long stPoslov = 32;
    long stKosov = 0; // stems and leaves drawn in this walk

    // Starts a walk over the models' trees.
    void zacni(const std::vector<arbo::Arbo*>& modeli) {
        this->modeli = modeli;
        while (dvojniki.size() < modeli.size())
            dvojniki.push_back(std::make_unique<arbo::Arbo>());
        zacet.assign(modeli.size(), false);
        // A model listed twice has one twin: its state runs on from tree to tree.
        dvojnikModela.resize(modeli.size());
        for (size_t i = 0; i < modeli.size(); ++i)
            dvojnikModela[i] =
                int(std::find(modeli.begin(), modeli.end(), modeli[i]) - modeli.begin());
        stKosov = 0;
        if (!nit.joinable()) // the thread lives from the first walk on
            nit = std::thread([this] { delaj(); });
    }

    ~Rastoci() {
        if (!nit.joinable())
            return;
        konec = true;
        zbudi(delavecCaka);
        nit.join();
    }

    // A free job for the next tree of model i (drawing older trees to free one).
    Posel& prost(int izgled, const Flags& flags) {
        while (oddanih - narisanih >= stPoslov)
            narisi(flags);
        const int i = dvojnikModela[izgled];
        Posel& p = posli[oddanih % stPoslov];
        p.model = modeli[i];
        p.dvojnik = dvojniki[i].get();
        if (!zacet[i]) {
            // The twin starts from the model's state; nothing is growing on it.
            zacet[i] = true;
            arbo::Arbo& d = *p.dvojnik;
            d.pd = p.model->pd;
            d.pdZeNastavljen = true;
            std::copy(p.model->barvaStebla, p.model->barvaStebla + 3, d.barvaStebla);
            const float* b = p.model->delckiDrevesa.trenutnaBarva();
            d.delckiDrevesa.nastaviBarvo(b[0], b[1], b[2], b[3]);
        }
        return p;
    }

    void oddaj(const Flags& flags) {
        ++oddanih;
        // Waking the growing thread for every job would cost more than most
        // jobs: it is woken once a few have gathered, or when needed below.
        if (oddanih - koncanih >= stPoslov / 4)
            zbudi(delavecCaka);
        // Draw what is ready without waiting.
        while (narisanih < koncanih)
            narisi(flags);
    }

    // Draws every job left.
    void koncaj(const Flags& flags) {
        while (narisanih < oddanih)
            narisi(flags);
    }

private:
    Posel posli[stPoslov];
    std::vector<arbo::Arbo*> modeli;
    std::vector<std::unique_ptr<arbo::Arbo>> dvojniki;
    std::vector<int> dvojnikModela; // the twin of each model index
    std::vector<bool> zacet;        // twin started from its model in this walk
    // Jobs handed over and grown so far, counted over all walks; a thread sleeps on cv only after
    // raising its flag, and the other wakes it only when the flag is up.
    std::atomic<long> oddanih{0}, koncanih{0};
    std::atomic<bool> konec{false};
    std::atomic<bool> delavecCaka{false}, risarCaka{false};
    std::mutex mutex;
    std::condition_variable cv;
    long narisanih = 0; // the drawing thread's only
    std::thread nit;

    template <class Pogoj> void pocakaj(std::atomic<bool>& caka, Pogoj pogoj) {
        if (pogoj())
            return;
        for (int i = 0; i < 64; ++i) { // a short wait is cheaper than sleeping
            if (pogoj())
                return;
#ifdef __SSE2__
            _mm_pause();
#endif
        }
        std::unique_lock<std::mutex> l(mutex);
        caka = true;
        cv.wait(l, pogoj);
        caka = false;
    }
    void zbudi(std::atomic<bool>& caka) {
        if (caka) {
            std::lock_guard<std::mutex> l(mutex);
            cv.notify_all();
        }
    }

    // Draws the oldest job once grown, as the tree's own frame would have.
    void narisi(const Flags& flags) {
        if (narisanih >= koncanih)
            zbudi(delavecCaka);
        pocakaj(risarCaka, [&] { return narisanih < koncanih; });
        Posel& p = posli[narisanih % stPoslov];
        arbo::Arbo& a = *p.model;
        glPushMatrix();
        glTranslatef(p.rastlina->pozicija3D.x, p.rastlina->pozicija3D.y, p.rastlina->pozicija3D.z);
        if (flags.showNeighborHood)
            drawNeighbourhood(*p.rastlina, p.tip, a.pogled.kvadraticnePloskve,
                              flags.lightingEnabled);
        a.nastaviStanjeGl();
        std::swap(a.delckiDrevesa.mreza, p.mreza);
        a.delckiDrevesa.nastaviBarvo(p.barva[0], p.barva[1], p.barva[2], p.barva[3]);
        a.delckiDrevesa.narisiZbrano();
        std::swap(a.delckiDrevesa.mreza, p.mreza);
        stKosov += p.stSegmentov + p.stListov;
        a.delckiDrevesa.stSegmentov = p.stSegmentov;
        a.delckiDrevesa.stListov = p.stListov;
        a.idVejaNext = p.idVejaNextPo;
        std::copy(p.barvaStebla, p.barvaStebla + 3, a.barvaStebla);
        glPopMatrix();
        ++narisanih;
    }

    // The growing thread: the jobs in order, each on its model's twin.
    void delaj() {
        for (long k = 0;; ++k) { // k counts over all walks
            pocakaj(delavecCaka, [&] { return k < oddanih || konec; });
            if (k >= oddanih)
                return;
            Posel& p = posli[k % stPoslov];
            arbo::Arbo& d = *p.dvojnik;
            d.pogled = p.pogled;
            // The quadric stays the model's alone (the twin would delete it);
            // growing on the CPU does not draw with it.
            d.pogled.kvadraticnePloskve = nullptr;
            d.delckiDrevesa.maxKotZasukaVetra = p.maxKotZasukaVetra;
            d.idVejaNext = p.idVejaNext;
            d.zrasti(p.stZil, p.aktivnaVisina, p.koren);
            std::swap(d.delckiDrevesa.mreza, p.mreza); // the twin keeps the empty one
            p.stSegmentov = d.delckiDrevesa.stSegmentov;
            p.stListov = d.delckiDrevesa.stListov;
            p.idVejaNextPo = d.idVejaNext;
            std::copy(d.barvaStebla, d.barvaStebla + 3, p.barvaStebla);
            const float* b = d.delckiDrevesa.trenutnaBarva();
            std::copy(b, b + 4, p.barva);
            koncanih = k + 1;
            zbudi(risarCaka);
        }
    }
};

VisiblePlantsRender::VisiblePlantsRender() : rastoci(std::make_unique<Rastoci>()) {}

VisiblePlantsRender::~VisiblePlantsRender() = default;

// What the plain walk does for a drawn tree up to its growing: the model's view
// settings, then the start of the frame with all its side effects, and the
// model-view matrix the tree would start from; the growing thread does the rest.
void VisiblePlantsRender::pripraviRast(int izgled, arbo::Arbo& drevo,
                                       const simulationEntities::CRastlina& rastlina, int tip,
                                       const arbo::Arbo& izbranoArbo,
                                       const CLevelOfDetail& levelOfDetail, const Flags& flags) {
    const int lod = setUpModelForPlant(drevo, rastlina, izbranoArbo, levelOfDetail, flags);
    ++treesPerLod[lod];
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

int VisiblePlantsRender::render(std::vector<simulationEntities::CVrstaRastlin>& vrste,
                                const std::vector<arbo::Arbo*>& izglediDrevesnihVrst,
                                const arbo::Arbo& izbranoArbo, const Camera& camera,
                                const Flags& flags, std::vector<int>& stevilaUpodobljenihRastlin) {
    QElapsedTimer walkTimer;
    walkTimer.start();
    qint64 treesNs = 0;
    std::fill(std::begin(treesPerLod), std::end(treesPerLod), 0);

    const CObjectCulling culling = frustumOfCurrentView();
    CLevelOfDetail levelOfDetail;
    arbo::Tocka pozicijaKamere(camera.x, camera.y, camera.z);
    levelOfDetail.setCameraPosition(pozicijaKamere);

    int stRenderiranihDreves = 0;
    stevilaUpodobljenihRastlin.clear();
    const int stIzgledov = int(izglediDrevesnihVrst.size());
    // Handing trees over costs more than it saves when there is little to grow:
    // the last walk's count of stems and leaves decides.
    bool vzporedniRast = vzporedno && !flags.doNotDrawTrees &&
                         !izbranoArbo.pogled.animateWindSway &&
                         kosovPrejsnjegaSprehoda >= najmanjKosovZaVzporedno;
    kosovPrejsnjegaSprehoda = 0;
    for (const arbo::Arbo* a : izglediDrevesnihVrst)
        if (a && (a->serializatorDelckovDrevesa.exportingToPoints || a->delckiDrevesa.sklad.naGl))
            vzporedniRast = false;
    lastWalkParallel = vzporedniRast;
    if (vzporedniRast)
        rastoci->zacni(izglediDrevesnihVrst);
    for (simulationEntities::CVrstaRastlin& vrsta : vrste) {
        int stRenderiranihDrevesVrste = 0;
        // A type without a model of its own takes the last one.
        const int izgled = (vrsta.tip >= 0 && vrsta.tip < stIzgledov) ? vrsta.tip : stIzgledov - 1;
        arbo::Arbo* drevo = izgled >= 0 ? izglediDrevesnihVrst[izgled] : nullptr;
        for (const simulationEntities::CRastlina& rastlina : vrsta.ziviPrimerkiTeVrste) {
            const arbo::Tocka center = rastlina.pozicija3D + arbo::Tocka(0, visinaSredisca, 0);
            if (culling.containsSphere(center, radijObjekta) == 0)
                continue;
            ++stRenderiranihDreves;
            ++stRenderiranihDrevesVrste;
            if (drevo == nullptr)
                continue; // no model to draw with; the plant still counts
            if (vzporedniRast) {
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
                QElapsedTimer treeTimer;
                treeTimer.start();
                drevo->drawSingleTreeAwayLOD(lod);
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

    for (arbo::Arbo* a : izglediDrevesnihVrst)
        if (a)
            a->pdZeNastavljen = false;

    treesMs = treesNs / 1e6;
    walkMs = walkTimer.nsecsElapsed() / 1e6;
    return stRenderiranihDreves;
}

} // namespace ecosystem::render
