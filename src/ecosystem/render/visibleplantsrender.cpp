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

} // namespace

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

            glPushMatrix();
            const double ratio = rastlina.trenutnaVelikost;
            glTranslatef(rastlina.pozicija3D.x, rastlina.pozicija3D.y, rastlina.pozicija3D.z);
            if (flags.showNeighborHood)
                drawNeighbourhood(rastlina, vrsta.tip, drevo->pogled.kvadraticnePloskve,
                                  flags.lightingEnabled);
            if (!flags.doNotDrawTrees) {
                arbo::Pogled& pogled = drevo->pogled;
                pogled.wireframe = flags.wireframe;
                pogled.animateWindSway = izbranoArbo.pogled.animateWindSway;
                pogled.animateOrbitAround = izbranoArbo.pogled.animateOrbitAround;
                pogled.animateGrow = true;
                pogled.orbit = rastlina.id * zasukNaId;
                const double maxRatio = 1.0;
                pogled.starostDrevesa = std::min(ratio, maxRatio);
                // One copy of the parameters per model and walk instead of one per
                // plant: nothing edits them while the walk runs.
                if (!drevo->pdZeNastavljen) {
                    drevo->postaviPrivzeteLastnostiDrevesa();
                    drevo->pdZeNastavljen = true;
                }
                const int lod = levelOfDetail.getLODcase(rastlina.pozicija3D);
                ++treesPerLod[lod];
                QElapsedTimer treeTimer;
                treeTimer.start();
                drevo->drawSingleTreeAwayLOD(lod);
                treesNs += treeTimer.nsecsElapsed();
            }
            glPopMatrix();
        }
        stevilaUpodobljenihRastlin.push_back(stRenderiranihDrevesVrste);
    }

    for (arbo::Arbo* a : izglediDrevesnihVrst)
        if (a)
            a->pdZeNastavljen = false;

    treesMs = treesNs / 1e6;
    walkMs = walkTimer.nsecsElapsed() / 1e6;
    return stRenderiranihDreves;
}

} // namespace ecosystem::render
