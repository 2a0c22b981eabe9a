#include "ecosystem/simulation/dominancegrid.h"

#include "ecosystem/simulation/entities/vrstarastlin.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <tuple>
#include <utility>

namespace ecosystem {

using simulationEntities::CRastlina;
using simulationEntities::CVrstaRastlin;

void CDominanceGrid::zgradi(std::vector<CVrstaRastlin>& rastlinskeVrste, int polSirina,
                            int stTockX) {
    this->polSirina = polSirina;
    this->stTockX = stTockX;
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

    predali.assign(size_t(stPredalovX) * stPredalovZ + 1, {0, -INFINITY});
    for (CVrstaRastlin& vrsta : rastlinskeVrste)
        for (const CRastlina& r : vrsta.ziviPrimerkiTeVrste)
            ++predali[predal(r) + 1].zacetek;
    for (size_t i = 1; i < predali.size(); ++i)
        predali[i].zacetek += predali[i - 1].zacetek;

    zapisi.resize(stRastlin);
    podrobnosti.resize(stRastlin);
    naslednji.resize(predali.size() - 1);
    for (size_t i = 0; i + 1 < predali.size(); ++i)
        naslednji[i] = predali[i].zacetek;
    for (CVrstaRastlin& vrsta : rastlinskeVrste) {
        for (CRastlina& r : vrsta.ziviPrimerkiTeVrste) {
            const int p = predal(r);
            const float moc = r.trenutnaMoc * vrsta.vplivMoci;
            const int i = naslednji[p]++;
            zapisi[i] = {r.pozicija3D.x, r.pozicija3D.z, r.trenutniRadij, moc, &r};
            podrobnosti[i] = {r.pozicija3D.y, r.pozicijaMap2D.y * stTockX + r.pozicijaMap2D.x};
            predali[p].maxMoc = std::max(predali[p].maxMoc, moc);
        }
    }
    razvrstiPoMoci();
}

// Within a bucket the strongest come first, so a scan stops at the first weaker one.
void CDominanceGrid::razvrstiPoMoci() {
    std::vector<std::pair<Zapis, Podrobnosti>> predal;
    for (size_t p = 0; p + 1 < predali.size(); ++p) {
        const int zacetek = predali[p].zacetek;
        const int konec = predali[p + 1].zacetek;
        if (konec - zacetek < 2)
            continue;
        predal.clear();
        for (int i = zacetek; i < konec; ++i)
            predal.emplace_back(zapisi[i], podrobnosti[i]);
        std::sort(predal.begin(), predal.end(),
                  [](const auto& a, const auto& b) { return a.first.moc > b.first.moc; });
        for (int i = zacetek; i < konec; ++i)
            std::tie(zapisi[i], podrobnosti[i]) = predal[i - zacetek];
    }
}

// Buckets about one largest crown radius wide, so a query looks at a few
// buckets per axis; their number stays in proportion to the plants.
void CDominanceGrid::dolociPredale(int stRastlin) {
    const double sirina = maxX - minX;
    const double globina = maxZ - minZ;
    const double najvecPredalov = std::max(1.0 * stRastlin, 4096.0);
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
    for (int i = predali[p].zacetek; i < predali[p + 1].zacetek; ++i) {
        if (zapisi[i].rastlina == &rastlina) {
            zapisi[i].moc = -INFINITY; // weaker than any plant: never dominates again
            return;
        }
    }
}

bool CDominanceGrid::vCelicahIskanja(int celica, int celicaX, int celicaY) const {
    return std::abs(celica % stTockX - celicaX) <= polSirina &&
           std::abs(celica / stTockX - celicaY) <= polSirina;
}

// Exactly CRastlina::presekaRadijRastline, on the copied position and radius.
bool CDominanceGrid::sePrekrivata(const CRastlina& rastlina, const Zapis& sosed,
                                  const Podrobnosti& podrobnosti) {
    const double dx = double(rastlina.pozicija3D.x) - double(sosed.x);
    const double dy = double(rastlina.pozicija3D.y) - double(podrobnosti.y);
    const double dz = double(rastlina.pozicija3D.z) - double(sosed.z);
    const float razdalja = static_cast<float>(std::sqrt(dx * dx + dy * dy + dz * dz));
    return rastlina.trenutniRadij + sosed.radij > razdalja;
}

bool CDominanceGrid::imaDominantnegaSoseda(CRastlina& rastlina) const {
    if (zapisi.empty())
        return false;
    const float moc = rastlina.trenutnaMoc * rastlina.vrstaRastline->vplivMoci;
    // Crowns farther apart on the ground than the two radii (with a margin far
    // above float rounding) cannot overlap, whatever the heights.
    const double rob = 1.0 + 1e-5;
    const double doseg = (double(rastlina.trenutniRadij) + najvecjiRadij) * rob + 1e-3;
    const double x = rastlina.pozicija3D.x;
    const double z = rastlina.pozicija3D.z;
    const int x0 = predalX(x - doseg), x1 = predalX(x + doseg);
    const int z0 = predalZ(z - doseg), z1 = predalZ(z + doseg);
    for (int pz = z0; pz <= z1; ++pz) {
        for (int p = pz * stPredalovX + x0; p <= pz * stPredalovX + x1; ++p) {
            if (!(predali[p].maxMoc >= moc))
                continue;
            for (int i = predali[p].zacetek; i < predali[p + 1].zacetek; ++i) {
                const Zapis& s = zapisi[i];
                if (s.moc == -INFINITY || s.rastlina == &rastlina)
                    continue; // died in this kill phase, or the plant itself
                if (!(s.moc >= moc))
                    break; // the rest of the bucket is weaker
                const double dx = double(s.x) - x;
                const double dz = double(s.z) - z;
                const double vsota = (double(rastlina.trenutniRadij) + s.radij) * rob + 1e-3;
                if (dx * dx + dz * dz > vsota * vsota)
                    continue;
                const Podrobnosti& d = podrobnosti[i];
                if (sePrekrivata(rastlina, s, d) &&
                    vCelicahIskanja(d.celica, rastlina.pozicijaMap2D.x, rastlina.pozicijaMap2D.y))
                    return true;
            }
        }
    }
    return false;
}

} // namespace ecosystem
