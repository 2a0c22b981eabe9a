#pragma once

#include "arbo/tocka.h"
#include "arbo/tocka2i.h"

namespace ecosystem::simulationEntities {

class CVrstaRastlin;

// One plant on one terrain cell. Its environment and penetration are sampled
// at birth; growth and strength are updated by the simulation every step.
class CRastlina {
public:
    CVrstaRastlin* vrstaRastline;
    int id;
    int trenutnaStarost;    // age in steps
    float trenutnaVelikost; // 0 at birth, velikostObZrelosti at maturity, 1 when old
    float trenutniRadij;    // crown radius
    Tocka2i pozicijaMap2D;  // terrain grid cell
    arbo::Tocka pozicija3D; // point on the terrain surface (y up)
    float prodornost;       // fitness for the place; only falls while dominated
    float trenutnaMoc;      // strength of the latest growth step
    float strminaTukaj;     // inclination of the cell
    float vlaznostTukaj;    // moisture of the cell
    float sonceTukaj;       // sunniness of the cell
    float veterTukaj;       // windiness of the cell
    float visinaTukajNormNadVodo;
    float umreNaKoraku; // age of death by old age
    bool jeDominirana;

    static int lastID;
    static unsigned long long randomCasSmrti; // stream of the age of death

    CRastlina(CVrstaRastlin& vrstaRastlin, const Tocka2i& pozicija2d,
              const arbo::Tocka& pozicija3d);

    float dolociVlaznostNoveRastline(Tocka2i& pozicijaMap2D);
    float getStrminaTerena(Tocka2i& pozicijaMap2D);
    float dolociVisinoTukajNadVodoNormalizirano();
    void dolociSmrt();
    void dolociProdornostRastline();
    bool presekaRadijRastline(CRastlina& rastlinaSovraznik);

private:
    int indeksCelice(const Tocka2i& celica) const;
};

} // namespace ecosystem::simulationEntities
