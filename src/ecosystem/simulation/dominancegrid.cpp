#include "ecosystem/simulation/dominancegrid.h"

#include "ecosystem/simulation/entities/vrstarastlin.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ecosystem {

using simulationEntities::CRastlina;
using simulationEntities::CVrstaRastlin;

void CDominanceGrid::zgradi(std::vector<CVrstaRastlin>& rastlinskeVrste, int polSirina) {
    this->polSirina = polSirina;
    int stRastlin = 0;
    najvecjiRadij = 0;
    minX = minZ = INFINITY;
    maxX = maxZ = -INFINITY;
    for (CVrstaRastlin& vrsta : rastlinskeVrste) {
        for (const CRastlina& r : vrsta.ziviPrimerkiTeVrste) {
            minX = std::min(minX, double(r.pozicija3D.x));
            maxX = std::max(maxX, double(r.pozicija3D.x));
            minZ = std::min(minZ, double(r.pozicija3D.z));
            maxZ = std::max(maxZ, double(r.pozicija3D.z));
            najvecjiRadij = std::max(najvecjiRadij, r.trenutniRadij);
            ++stRastlin;
        }
    }
    if (stRastlin == 0)
        minX = maxX = minZ = maxZ = 0;
    dolociPredale(stRastlin);

    zacetki.assign(size_t(stPredalovX) * stPredalovZ + 1, 0);
    for (CVrstaRastlin& vrsta : rastlinskeVrste)
        for (const CRastlina& r : vrsta.ziviPrimerkiTeVrste)
            ++zacetki[predal(r) + 1];
    for (size_t i = 1; i < zacetki.size(); ++i)
        zacetki[i] += zacetki[i - 1];

    zapisi.resize(stRastlin);
    std::vector<int> naslednji(zacetki.begin(), zacetki.end() - 1);
    for (CVrstaRastlin& vrsta : rastlinskeVrste) {
        for (CRastlina& r : vrsta.ziviPrimerkiTeVrste) {
            zapisi[naslednji[predal(r)]++] = {r.pozicija3D.x,
                                              r.pozicija3D.z,
                                              r.trenutniRadij,
                                              r.trenutnaMoc * vrsta.vplivMoci,
                                              r.pozicijaMap2D.x,
                                              r.pozicijaMap2D.y,
                                              &r};
        }
    }
}

// Buckets about one largest crown radius wide, so a query looks at a few
// buckets per axis; their number stays in proportion to the plants.
void CDominanceGrid::dolociPredale(int stRastlin) {
    const double sirina = maxX - minX;
    const double globina = maxZ - minZ;
    const double najvecPredalov = std::max(4.0 * stRastlin, 4096.0);
    velikostPredala = std::max(double(najvecjiRadij), 0.5);
    while ((sirina / velikostPredala + 1) * (globina / velikostPredala + 1) > najvecPredalov)
        velikostPredala *= 1.5;
    stPredalovX = int(sirina / velikostPredala) + 1;
    stPredalovZ = int(globina / velikostPredala) + 1;
}

int CDominanceGrid::predalX(double x) const {
    const double i = std::floor((x - minX) / velikostPredala);
    return int(std::clamp(i, 0.0, double(stPredalovX - 1)));
}

int CDominanceGrid::predalZ(double z) const {
    const double i = std::floor((z - minZ) / velikostPredala);
    return int(std::clamp(i, 0.0, double(stPredalovZ - 1)));
}

int CDominanceGrid::predal(const CRastlina& rastlina) const {
    return predalZ(rastlina.pozicija3D.z) * stPredalovX + predalX(rastlina.pozicija3D.x);
}

void CDominanceGrid::odstrani(const CRastlina& rastlina) {
    const int p = predal(rastlina);
    for (int i = zacetki[p]; i < zacetki[p + 1]; ++i) {
        if (zapisi[i].rastlina == &rastlina) {
            zapisi[i].rastlina = nullptr;
            return;
        }
    }
}

bool CDominanceGrid::imaDominantnegaSoseda(CRastlina& rastlina) const {
    if (zapisi.empty())
        return false;
    const float moc = rastlina.trenutnaMoc * rastlina.vrstaRastline->vplivMoci;
    // Crowns farther apart on the ground than the two radii (with a margin far
    // above float rounding) cannot overlap, whatever the heights.
    const double doseg = (double(rastlina.trenutniRadij) + najvecjiRadij) * (1.0 + 1e-5) + 1e-3;
    const double x = rastlina.pozicija3D.x;
    const double z = rastlina.pozicija3D.z;
    const int x0 = predalX(x - doseg), x1 = predalX(x + doseg);
    const int z0 = predalZ(z - doseg), z1 = predalZ(z + doseg);
    const int celicaX = rastlina.pozicijaMap2D.x;
    const int celicaY = rastlina.pozicijaMap2D.y;
    for (int pz = z0; pz <= z1; ++pz) {
        for (int px = x0; px <= x1; ++px) {
            const int p = pz * stPredalovX + px;
            for (int i = zacetki[p]; i < zacetki[p + 1]; ++i) {
                const Zapis& s = zapisi[i];
                if (s.rastlina == nullptr || s.rastlina == &rastlina || !(s.moc >= moc))
                    continue;
                if (std::abs(s.celicaX - celicaX) > polSirina ||
                    std::abs(s.celicaY - celicaY) > polSirina)
                    continue;
                const double dx = double(s.x) - x;
                const double dz = double(s.z) - z;
                const double vsota =
                    (double(rastlina.trenutniRadij) + s.radij) * (1.0 + 1e-5) + 1e-3;
                if (dx * dx + dz * dz > vsota * vsota)
                    continue;
                if (rastlina.presekaRadijRastline(*s.rastlina))
                    return true;
            }
        }
    }
    return false;
}

} // namespace ecosystem
