#pragma once

#include "arbo/delckidrevesa.h"
#include "arbo/matrika.h"
#include "arbo/matrikasklad.h"
#include "arbo/parametridrevesa.h"
#include "arbo/pogled.h"
#include "arbo/presek.h"
#include "arbo/serializatordelckovdrevesa.h"
#include "arbo/tocka.h"

#include <string>

namespace arbo {

// One procedural tree. It keeps no geometry: every frame grows the whole tree
// again from the working copy of its parameters, segment by segment, and draws
// it (and writes it to a ".crs" file when an export is pending).
class Arbo {
public:
    ParametriDrevesa pdPrepared;
    ParametriDrevesa pd;
    DelckiDrevesa delckiDrevesa;
    std::string fileNameExportCRS;
    int idVejaNext = 1;
    float barvaStebla[3] = {1, 1, 1};
    Pogled pogled;
    SerializatorDelckovDrevesa serializatorDelckovDrevesa;
    // Raised by a caller that draws this tree many times in a row without
    // touching pdPrepared in between (the ecosystem plant walk) once it has
    // copied pdPrepared into pd itself: the frames then skip the copy.
    bool pdZeNastavljen = false;

    Arbo();
    ~Arbo();
    Arbo(const Arbo&) = delete;
    Arbo& operator=(const Arbo&) = delete;

    void createKvadraticnePloskve();
    void reloadIdTextures(bool bark, bool leaf);
    void markSerializingToFile(const std::string& fileNameExportCRS);
    void drawSingleTreeCentered(double dol_pomik, double levo_pomik, double z_pomik, double x_zasuk,
                                double y_zasuk);
    void drawSingleTreeAwayLOD(int lod);
    void upodobiPrikaz();
    void postaviPrivzeteLastnostiDrevesa();

    // The three parts of a frame, for callers that grow trees on other threads
    // and draw them in order (the ecosystem plant walk):
    // the frame's start: working parameters, growth, spin, wind phase, flutter;
    // gives the strand count and the trunk height of this frame. A frame that
    // is not grown (a far plant drawn as a picture) need not reseed the sway's
    // random sequence: every grown frame reseeds it first.
    void zacniOkvir(int& stZil, double& aktivnaVisina, bool zaRast = true);
    // The render state every frame sets before its geometry.
    void nastaviStanjeGl();
    // Grows the tree from the model-view matrix koren into the pieces' mesh
    // (no OpenGL calls on the CPU path; delckiDrevesa.narisiZbrano draws it).
    void zrasti(int stZil, double aktivnaVisina, const Matrika& koren);

private:
    MatrikaSklad& sklad() { return delckiDrevesa.sklad; }

    void drevca(int stZil, int G, int W, double karakteristicnaVisina, double aktivnaVisina,
                Matrika modelMatrixInverse, Matrika modelMatrixInversePostGrowthEffects,
                Presek* presekSpodaj, int idPraveVeje);
    bool constraint(int G, int W, int stZil);
    void deliVejo(int G, int W, int stZil, int& stZilGlavno, int& stZilStransko,
                  double& kotVejitveGlavno, double& kotVejitveStransko);
    void izracunajDimenzijeVeje(int G, int W, int stZil, int stZilGlavno, int stZilStransko,
                                double L0, double& sirinaSpodaj, double& sirinaZgoraj, double& L1,
                                double& l1, double& L2, double& l2);
    void aplicirajGravmorfizem(int G, int W, const Matrika& modelMatrixInverse,
                               double& gravimorfizemAngle, Tocka& gravimorfizemVektor);
    void aplicirajWindSway(int stZil, double visinaVeje,
                           const Matrika& modelMatrixInversePostGrowthEffects, double& windAngle,
                           Tocka& windVektor);
    Tocka izracunajWindVektorZasuka(const Matrika& modelMatrixInversePostGrowthEffects);
    void priraviInverznoMatriko(Matrika& matrika, double gravimorfizemAngle,
                                const Tocka& gravimorfizemVektor, double gravicentralizem,
                                double kotVejitve, double windAngle, const Tocka& windVektor);
    void dolociBarvo(int G, int W, bool colorMonopodial);
    void dodajVejo(double aktivnaVisina, double sirinaSpodaj, double sirinaZgoraj,
                   Presek* presekSpodaj, int idPraveVeje);
    void narisiListe(double dejanskaVisinaTrenutneVeje,
                     const Matrika& modelMatrixInversePostGrowthEffects, int idVeje);
    void popraviPhyllotaxis(Presek& presek);
    void zrastiZaDatoteko(int stZil, double aktivnaVisina);
};

} // namespace arbo
