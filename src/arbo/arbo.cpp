#include "arbo/arbo.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <cmath>
#include <cstdlib>

namespace arbo {

namespace {
constexpr double pi = M_PI;

// Tilt from the vertical of a direction whose horizontal part is (a, b).
double nagib(float a, float b) {
    return std::fabs(std::asin(std::sqrt(double(a) * a + double(b) * b)) * 180.0 / pi);
}

// The angle limited in magnitude to fi, keeping its sign.
double omeji(double kot, double fi) {
    if (std::fabs(kot) > fi)
        return kot > 0 ? fi : -fi;
    return kot;
}
} // namespace

Arbo::Arbo() : delckiDrevesa(pogled, serializatorDelckovDrevesa) {
    serializatorDelckovDrevesa.sklad = &delckiDrevesa.sklad;
}

Arbo::~Arbo() {
    if (pogled.kvadraticnePloskve)
        gluDeleteQuadric(pogled.kvadraticnePloskve);
}

void Arbo::createKvadraticnePloskve() {
    pogled.createKvadraticnePloskve();
}

void Arbo::reloadIdTextures(bool bark, bool leaf) {
    for (int i = 0; i < 2; ++i) {
        if (!(i == 0 ? bark : leaf))
            continue;
        glBindTexture(GL_TEXTURE_2D, pogled.textureNames[i]);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    }
}

void Arbo::markSerializingToFile(const std::string& fileNameExportCRS) {
    this->fileNameExportCRS = fileNameExportCRS;
    serializatorDelckovDrevesa.exportingToPoints = true;
}

void Arbo::drawSingleTreeCentered(double dol_pomik, double levo_pomik, double z_pomik,
                                  double x_zasuk, double y_zasuk) {
    if (pogled.backgroundSky)
        glClearColor(0.26666668f, 0.4745098f, 0.5372549f, 1.0f);
    else
        glClearColor(1, 1, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    const GLfloat luc0[4] = {4609, 0, 0, 5}, luc1[4] = {4609, -3, 0, 5}, luc2[4] = {4609, -3, 3, 5};
    glLightfv(GL_LIGHT0, GL_POSITION, luc0);
    glLightfv(GL_LIGHT1, GL_POSITION, luc1);
    glLightfv(GL_LIGHT2, GL_POSITION, luc2);
    // An export on OpenGL's own stack reads positions from OpenGL's matrix: the
    // tree then stays in its own coordinates for that frame. The CPU path grows
    // an exported frame from the identity and draws it where the camera puts it.
    if (!(serializatorDelckovDrevesa.exportingToPoints && sklad().naGl)) {
        glTranslated(-levo_pomik, dol_pomik, z_pomik);
        glRotated(x_zasuk, 1, 0, 0);
        glRotated(y_zasuk, 0, 1, 0);
        glRotated(pogled.orbit, 0, 1, 0);
    }
    pogled.lowQuality = 0;
    upodobiPrikaz();
}

void Arbo::drawSingleTreeAwayLOD(int lod) {
    pogled.lowQuality = lod;
    upodobiPrikaz();
}

void Arbo::postaviPrivzeteLastnostiDrevesa() {
    pd = pdPrepared;
}

void Arbo::upodobiPrikaz() {
    int stZil;
    double aktivnaVisina;
    zacniOkvir(stZil, aktivnaVisina);

    SerializatorDelckovDrevesa& ser = serializatorDelckovDrevesa;
    const bool izvoz = ser.exportingToPoints;
    if (izvoz)
        ser.zacniSerializacijo(fileNameExportCRS, pogled.highQualityRendering ? 16 : 4);
    nastaviStanjeGl();
    // The CPU stack starts from OpenGL's current model-view matrix.
    Matrika koren = MatrikaSklad::identiteta();
    if (!sklad().naGl) {
        glGetFloatv(GL_MODELVIEW_MATRIX, koren.m);
        if (izvoz)
            zrastiZaDatoteko(stZil, aktivnaVisina);
    }
    zrasti(stZil, aktivnaVisina, koren);
    delckiDrevesa.narisiZbrano();

    if (izvoz) {
        ser.koncajSerializacijo();
        ser.exportingToPoints = false;
    }
}

// The file holds the tree in its own coordinates: it is grown once from the
// identity for the file alone, and the frame is then grown again from the
// camera, from the same random sequence and branch numbers, and drawn exactly
// as any other frame.
void Arbo::zrastiZaDatoteko(int stZil, double aktivnaVisina) {
    zrasti(stZil, aktivnaVisina, MatrikaSklad::identiteta());
    delckiDrevesa.mreza.izprazni();
    serializatorDelckovDrevesa.exportingToPoints = false;
    srand(1);
    idVejaNext = 1;
}

void Arbo::zacniOkvir(int& stZil, double& aktivnaVisina, bool zaRast) {
    if (!pdZeNastavljen)
        postaviPrivzeteLastnostiDrevesa();
    stZil = pd.stVsehZil;
    aktivnaVisina = pd.dolzinaDebla;
    if (pogled.animateGrow) {
        // The strand count takes the growth factor before the step, the height after it.
        double r = pogled.starostDrevesa;
        if (r > 1.0) {
            r = 0;
            pogled.starostDrevesa = 0;
        }
        pogled.starostDrevesa = r + pogled.korak;
        aktivnaVisina = (r + pogled.korak) * pd.dolzinaDebla;
        const double k = std::sqrt(double(pd.stVsehZil)) * r;
        // A negative strand count has no square root: nothing grows.
        stZil = pd.stVsehZil > 0 ? int(k * k) : 0;
    }
    if (pogled.animateOrbitAround)
        pogled.orbit += 5.37;
    if (zaRast)
        srand(1); // the random sway draws the same sequence every frame
    pogled.cas += 0.06283185307179587;
    idVejaNext = 1;
    const double s = std::sin(pogled.cas);
    delckiDrevesa.maxKotZasukaVetra = pogled.animateWindSway ? s * s * 50 + 20 : 0;
}

void Arbo::nastaviStanjeGl() {
    if (pogled.wireframe) {
        glDisable(GL_BLEND);
        glDisable(GL_TEXTURE_2D);
    } else {
        glEnable(GL_TEXTURE_2D);
        glEnable(GL_DEPTH_TEST);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
        glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    }
}

void Arbo::zrasti(int stZil, double aktivnaVisina, const Matrika& koren) {
    delckiDrevesa.stSegmentov = 0;
    delckiDrevesa.stListov = 0;
    if (!sklad().naGl)
        sklad().zacni(koren);
    const Matrika I = MatrikaSklad::identiteta();
    drevca(stZil, 0, 0, 1.0, aktivnaVisina, I, I, nullptr, 0);
}

void Arbo::drevca(int stZil, int G, int W, double karakteristicnaVisina, double aktivnaVisina,
                  Matrika modelMatrixInverse, Matrika modelMatrixInversePostGrowthEffects,
                  Presek* presekSpodaj, int idPraveVeje) {
    if (constraint(G, W, stZil))
        return;
    const int dopustniW = pogled.lowQuality == 0 ? 50 : 10 - pogled.lowQuality;
    // A full frame gets nothing from here on, so it is not grown: either every
    // leaf is there and no stem is drawn at this depth or above it, or every
    // stem is there and no leaf can be added.
    const bool brezListov = delckiDrevesa.listiPolni() || !pd.listi || pd.gostotaListov <= 0;
    if ((brezListov && delckiDrevesa.segmentiPolni()) ||
        (delckiDrevesa.listiPolni() && W >= dopustniW))
        return;
    // A trunk may run deeper than the tables: it reads their last column.
    const int Wt = W < ParametriDrevesa::stW ? W : ParametriDrevesa::stW - 1;

    double gravimorfizemAngle = 0;
    Tocka gravimorfizemVektor(0, 0, 0);
    aplicirajGravmorfizem(G, Wt, modelMatrixInverse, gravimorfizemAngle, gravimorfizemVektor);
    sklad().rotate(float(pd.phyllotaxisAngle), 0, 1, 0);

    int stZilGlavno, stZilStransko;
    double kotVejitveGlavno, kotVejitveStransko;
    deliVejo(G, Wt, stZil, stZilGlavno, stZilStransko, kotVejitveGlavno, kotVejitveStransko);
    double sirinaSpodaj, sirinaZgoraj, L1, l1, L2, l2;
    izracunajDimenzijeVeje(G, Wt, stZil, stZilGlavno, stZilStransko, karakteristicnaVisina,
                           sirinaSpodaj, sirinaZgoraj, L1, l1, L2, l2);

    double windAngle = 0;
    Tocka windVektor(0, 0, 0);
    aplicirajWindSway(stZil, aktivnaVisina, modelMatrixInversePostGrowthEffects, windAngle,
                      windVektor);
    dolociBarvo(G, W, pogled.colorMonopodial);
    if (W < dopustniW)
        dodajVejo(aktivnaVisina, sirinaSpodaj, sirinaZgoraj, presekSpodaj, idPraveVeje);

    // The continuation starts from this segment's top ring, a quarter turn on.
    Presek presekSpodajNovi;
    Presek* naslednji = nullptr;
    if (serializatorDelckovDrevesa.exportingToPoints) {
        presekSpodajNovi = serializatorDelckovDrevesa.getPresekZgoraj();
        popraviPhyllotaxis(presekSpodajNovi);
        naslednji = &presekSpodajNovi;
    }

    if (W > dopustniW * dopustniW || stZil == 1) {
        narisiListe(aktivnaVisina, modelMatrixInversePostGrowthEffects, idPraveVeje);
        return;
    }
    sklad().translate(0, float(aktivnaVisina), 0);

    double gravicentralizem = 0;
    if (G == 0) {
        gravicentralizem = pd.graviCentralizem * kotVejitveGlavno;
        sklad().rotate(float(gravicentralizem), 0, 0, 1);
    }

    if (stZilStransko > 0) {
        Matrika inverzna = modelMatrixInverse;
        Matrika inverznaPost = modelMatrixInversePostGrowthEffects;
        priraviInverznoMatriko(inverzna, gravimorfizemAngle, gravimorfizemVektor, gravicentralizem,
                               kotVejitveStransko, 0, windVektor);
        priraviInverznoMatriko(inverznaPost, gravimorfizemAngle, gravimorfizemVektor,
                               gravicentralizem, kotVejitveStransko, windAngle, windVektor);
        const double pomikVejeVRastOdZnotraj =
            -0.5 * (sirinaZgoraj - pd.sirinaSteblaNaZilo * std::sqrt(double(stZilStransko)));
        sklad().push();
        sklad().translate(float(pomikVejeVRastOdZnotraj), 0, 0);
        sklad().rotate(float(kotVejitveStransko), 0, 0, 1);
        const int idStranske = idVejaNext++;
        drevca(stZilStransko, G + 1, W + 1, L2, l2, inverzna, inverznaPost, nullptr, idStranske);
        sklad().pop();
        sklad().rotate(float(-kotVejitveGlavno), 0, 0, 1);
    } else {
        kotVejitveGlavno = 0;
    }

    if (stZilGlavno > 0) {
        priraviInverznoMatriko(modelMatrixInverse, gravimorfizemAngle, gravimorfizemVektor,
                               gravicentralizem, -kotVejitveGlavno, 0, windVektor);
        priraviInverznoMatriko(modelMatrixInversePostGrowthEffects, gravimorfizemAngle,
                               gravimorfizemVektor, gravicentralizem, -kotVejitveGlavno, windAngle,
                               windVektor);
        drevca(stZilGlavno, G, W + 1, L1, l1, modelMatrixInverse,
               modelMatrixInversePostGrowthEffects, naslednji, idPraveVeje);
    }
}

// The trunk is limited by its strands alone; branches by order and depth too.
bool Arbo::constraint(int G, int W, int stZil) {
    if (stZil < 1)
        return true;
    if (G == 0)
        return false;
    return G > 14 || W > 49;
}

void Arbo::deliVejo(int G, int W, int stZil, int& stZilGlavno, int& stZilStransko,
                    double& kotVejitveGlavno, double& kotVejitveStransko) {
    stZilGlavno = int(std::floor((stZil - 2) * pd.verjetnostVejitve[G][W] + 0.5)) + 1;
    stZilStransko = stZil - stZilGlavno;
    // The thicker sub-branch deviates less.
    kotVejitveGlavno = (double(stZilStransko) / stZil) * pd.kotVejitve[G][W];
    kotVejitveStransko = pd.kotVejitve[G][W] - kotVejitveGlavno;
}

void Arbo::izracunajDimenzijeVeje(int G, int W, int stZil, int stZilGlavno, int stZilStransko,
                                  double L0, double& sirinaSpodaj, double& sirinaZgoraj, double& L1,
                                  double& l1, double& L2, double& l2) {
    sirinaSpodaj = std::sqrt(double(stZil)) * pd.sirinaSteblaNaZilo;
    sirinaZgoraj = std::sqrt(double(stZilGlavno)) * pd.sirinaSteblaNaZilo;
    const double m = pd.charMin[G][W], M = pd.charMax[G][W];
    // A non-positive limit is no limit.
    auto omejiDolzino = [&](double R) {
        if (m > 0 && m > R)
            R = m;
        if (M > 0 && R > M)
            R = M;
        return R;
    };
    const double R1 = omejiDolzino(std::sqrt(double(stZilGlavno)) / std::sqrt(double(stZil)));
    L1 = R1 * L0;
    l1 = L0 * pd.lengthScaling[G][W];
    const double R2 = omejiDolzino(std::sqrt(double(stZilStransko)) / std::sqrt(double(stZil)));
    L2 = R2 * L0;
    l2 = L0 * pd.lengthScaling[G][W];
}

void Arbo::aplicirajGravmorfizem(int G, int W, const Matrika& modelMatrixInverse,
                                 double& gravimorfizemAngle, Tocka& gravimorfizemVektor) {
    const double a = pd.graviMorfizem[G][W];
    if (a == 0) {
        gravimorfizemAngle = 0;
        return;
    }
    // The world's down direction in the segment's own frame.
    const float dx = -modelMatrixInverse.m[4];
    const float dz = -modelMatrixInverse.m[6];
    gravimorfizemVektor = Tocka(dz, 0, -dx);
    gravimorfizemAngle = omeji(a, nagib(dx, dz));
    sklad().rotate(float(gravimorfizemAngle), gravimorfizemVektor.x, gravimorfizemVektor.y,
                   gravimorfizemVektor.z);
}

Tocka Arbo::izracunajWindVektorZasuka(const Matrika& m) {
    return Tocka(0, -m.m[1], -m.m[2]);
}

void Arbo::aplicirajWindSway(int stZil, double visinaVeje, const Matrika& m, double& windAngle,
                             Tocka& windVektor) {
    if (!pogled.animateWindSway)
        return;
    const Tocka v = izracunajWindVektorZasuka(m);
    // Only the trunk base (all strands) gets the full gust.
    const int q = stZil / pd.stVsehZil;
    const double kotZasukaVeter = (1.1 - q) * pd.windSpeed;
    const double kot = omeji(kotZasukaVeter, nagib(v.y, v.z));
    windAngle = kotZasukaVeter;
    windVektor = v;
    const int r1 = rand();
    const int r2 = rand();
    const double trdnostVeje = 1.02 - std::pow(double(stZil) / pd.stVsehZil, 0.25);
    // Multiplied left to right, the sine first.
    const double swayX = std::sin(2 * pi * r1 / 2147483647 + pogled.cas) * pi * trdnostVeje *
                         visinaVeje * pd.windSpeedNodirect;
    const double swayZ = std::sin(2 * pi * r2 / 2147483647 + pogled.cas) * pi * trdnostVeje *
                         visinaVeje * pd.windSpeedNodirect;
    sklad().rotate(float(swayX), 1, 0, 0);
    sklad().rotate(float(swayZ), 0, 0, 1);
    sklad().rotate(float(kot), windVektor.x, windVektor.y, windVektor.z);
}

void Arbo::narisiListe(double dejanskaVisinaTrenutneVeje, const Matrika& m, int idVeje) {
    Tocka vektorZasuka = izracunajWindVektorZasuka(m);
    sklad().translate(0, float(dejanskaVisinaTrenutneVeje), 0);
    if (pd.listi) {
        delckiDrevesa.nastaviBarvo(1, 1, 1);
        delckiDrevesa.narisiListe(pd.tipListov, pd.listSize, dejanskaVisinaTrenutneVeje,
                                  pd.gostotaListov, vektorZasuka, idVeje);
    }
}

void Arbo::dolociBarvo(int G, int W, bool colorMonopodial) {
    if (colorMonopodial) {
        barvaStebla[0] = 0.1f * G;
        barvaStebla[1] = 0.1f * W;
        barvaStebla[2] = G == 1 ? 1.0f : 0.2f;
        delckiDrevesa.nastaviBarvo(barvaStebla[0], barvaStebla[1], barvaStebla[2]);
        return;
    }
    const bool vG = pogled.barvajGMin <= G && G <= pogled.barvajGMax;
    const bool vW = pogled.barvajWMin <= W && W <= pogled.barvajWMax;
    if (!vG && !vW) {
        delckiDrevesa.nastaviBarvo(1, 1, 1);
        return;
    }
    // The order or depth range hovered in the curve editor.
    barvaStebla[0] = 0;
    barvaStebla[1] = 1;
    barvaStebla[2] = 1;
    delckiDrevesa.nastaviBarvo(0, 1, 1);
}

void Arbo::dodajVejo(double aktivnaVisina, double sirinaSpodaj, double sirinaZgoraj,
                     Presek* presekSpodaj, int idPraveVeje) {
    sklad().push();
    delckiDrevesa.narisiSteblo(aktivnaVisina, sirinaSpodaj, sirinaZgoraj, presekSpodaj,
                               idPraveVeje);
    sklad().pop();
}

void Arbo::popraviPhyllotaxis(Presek& presek) {
    const int n = presek.stTock;
    const Presek star = presek;
    for (int i = 0; i < n; ++i)
        presek.tocke[i] = star.tocke[(i + n / 4) % n];
}

// matrika <- R(-wind) R(-kot) R(-gc) R(-phyllotaxis) R(-grav) matrika: the inverse
// of this segment's rotations put in front of the parent's.
void Arbo::priraviInverznoMatriko(Matrika& matrika, double gravimorfizemAngle,
                                  const Tocka& gravimorfizemVektor, double gravicentralizem,
                                  double kotVejitve, double windAngle, const Tocka& windVektor) {
    MatrikaSklad& s = sklad();
    s.push();
    s.loadIdentity();
    if (windAngle != 0)
        s.rotate(float(-windAngle), windVektor.x, windVektor.y, windVektor.z);
    if (kotVejitve != 0)
        s.rotate(float(-kotVejitve), 0, 0, 1);
    if (gravicentralizem != 0)
        s.rotate(float(-gravicentralizem), 0, 0, 1);
    s.rotate(float(-pd.phyllotaxisAngle), 0, 1, 0);
    if (gravimorfizemAngle != 0)
        s.rotate(float(-gravimorfizemAngle), gravimorfizemVektor.x, gravimorfizemVektor.y,
                 gravimorfizemVektor.z);
    s.multiply(matrika);
    matrika = s.vrh();
    s.pop();
}

} // namespace arbo
