#include "ecosystem/simulation/dominancegrid.h"

#include "ecosystem/simulation/entities/vrstarastlin.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <tuple>
#include <utility>

#if defined(__GNUC__)
#define VIRELA_PREFETCH(p) __builtin_prefetch(p)
#else
#define VIRELA_PREFETCH(p) ((void)(p))
#endif

namespace ecosystem {

using simulationEntities::CRastlina;
using simulationEntities::CVrstaRastlin;

namespace {
// Crowns farther apart on the ground than this reach cannot overlap, whatever
// the heights; the margin lies far above float rounding.
constexpr double rob = 1.0 + 1e-5;
constexpr double robDodatek = 1e-3;
} // namespace

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

    // Counting sort by bucket; vrstniRed first holds each plant's bucket, and
    // each bucket's zacetek serves as its fill cursor, ending at the next
    // bucket's start, so the starts are shifted back afterwards.
    vrstniRed.resize(stRastlin);
    predali.assign(size_t(stPredalovX) * stPredalovZ + 1, {0, -INFINITY});
    int k = 0;
    for (CVrstaRastlin& vrsta : rastlinskeVrste)
        for (const CRastlina& r : vrsta.ziviPrimerkiTeVrste)
            ++predali[(vrstniRed[k++] = predal(r)) + 1].zacetek;
    for (size_t i = 1; i < predali.size(); ++i)
        predali[i].zacetek += predali[i - 1].zacetek;

    zapisi.resize(stRastlin);
    podrobnosti.resize(stRastlin);
    k = 0;
    for (CVrstaRastlin& vrsta : rastlinskeVrste) {
        for (CRastlina& r : vrsta.ziviPrimerkiTeVrste) {
            const int p = vrstniRed[k];
            const float moc = r.trenutnaMoc * vrsta.vplivMoci;
            const int i = predali[p].zacetek++;
            zapisi[i] = {r.pozicija3D.x, r.pozicija3D.z, r.trenutniRadij, moc};
            podrobnosti[i].zaporedna = k; // the rest once the records are in place
            predali[p].maxMoc = std::max(predali[p].maxMoc, moc);
            ++k;
        }
    }
    for (size_t p = predali.size() - 1; p > 0; --p)
        predali[p].zacetek = predali[p - 1].zacetek;
    predali[0].zacetek = 0;
    razvrstiPoMoci();
    for (int i = 0; i < stRastlin; ++i)
        vrstniRed[podrobnosti[i].zaporedna] = i;
    k = 0;
    for (CVrstaRastlin& vrsta : rastlinskeVrste) {
        for (CRastlina& r : vrsta.ziviPrimerkiTeVrste) {
            Podrobnosti& d = podrobnosti[vrstniRed[k++]];
            d.y = r.pozicija3D.y;
            d.celica = r.pozicijaMap2D.y * stTockX + r.pozicijaMap2D.x;
            d.rastlina = &r;
        }
    }
    trenutna = -1;
    trenutniZapis = -1;
}

// Within a bucket the strongest come first, so a scan stops at the first
// weaker one. Only the kill-order place travels along; the rest of the details
// are filled in afterwards.
void CDominanceGrid::razvrstiPoMoci() {
    std::vector<std::pair<Zapis, int>> predal;
    for (size_t p = 0; p + 1 < predali.size(); ++p) {
        const int zacetek = predali[p].zacetek;
        const int konec = predali[p + 1].zacetek;
        if (konec - zacetek < 2)
            continue;
        predal.clear();
        for (int i = zacetek; i < konec; ++i)
            predal.emplace_back(zapisi[i], podrobnosti[i].zaporedna);
        std::stable_sort(predal.begin(), predal.end(),
                         [](const auto& a, const auto& b) { return a.first.moc > b.first.moc; });
        for (int i = zacetek; i < konec; ++i)
            std::tie(zapisi[i], podrobnosti[i].zaporedna) = predal[i - zacetek];
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

int CDominanceGrid::poisciZapis(const CRastlina& rastlina) const {
    const int p = predal(rastlina);
    for (int i = predali[p].zacetek; i < predali[p + 1].zacetek; ++i)
        if (podrobnosti[i].rastlina == &rastlina)
            return i;
    return -1;
}

double CDominanceGrid::doseg(float radij) const {
    return (double(radij) + najvecjiRadij) * rob + robDodatek;
}

// Three places ahead the plant's own record is fetched, two places ahead the
// bucket headers of its search rows, one place ahead the records they start.
void CDominanceGrid::pripraviVnaprej(int zaporedna) const {
    const int n = int(vrstniRed.size());
    if (zaporedna + 24 < n) {
        VIRELA_PREFETCH(&zapisi[vrstniRed[zaporedna + 24]]);
        VIRELA_PREFETCH(&podrobnosti[vrstniRed[zaporedna + 24]]);
    }
    for (int korak : {16, 8}) {
        if (zaporedna + korak >= n)
            continue;
        const Zapis& z = zapisi[vrstniRed[zaporedna + korak]];
        const double d = doseg(z.radij);
        const int x0 = predalX(z.x - d);
        const int z0 = predalZ(z.z - d), z1 = predalZ(z.z + d);
        for (int pz = z0; pz <= z1; ++pz) {
            const Predal& glava = predali[pz * stPredalovX + x0];
            if (korak == 16)
                VIRELA_PREFETCH(&glava);
            else
                VIRELA_PREFETCH(&zapisi[std::min(glava.zacetek, n - 1)]);
        }
    }
}

void CDominanceGrid::naslednjaRastlina(const CRastlina& rastlina) {
    ++trenutna;
    trenutniZapis = -1;
    if (trenutna < int(vrstniRed.size()) &&
        podrobnosti[vrstniRed[trenutna]].rastlina == &rastlina) {
        trenutniZapis = vrstniRed[trenutna];
        pripraviVnaprej(trenutna);
    } else {
        trenutniZapis = poisciZapis(rastlina); // announced out of order
    }
}

void CDominanceGrid::odstrani(const CRastlina& rastlina) {
    const int i = trenutniZapis >= 0 && podrobnosti[trenutniZapis].rastlina == &rastlina
                      ? trenutniZapis
                      : poisciZapis(rastlina);
    if (i >= 0)
        zapisi[i].moc = -INFINITY; // weaker than any plant: never dominates again
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
    const int jaz = trenutniZapis >= 0 && podrobnosti[trenutniZapis].rastlina == &rastlina
                        ? trenutniZapis
                        : poisciZapis(rastlina);
    const float moc = rastlina.trenutnaMoc * rastlina.vrstaRastline->vplivMoci;
    const double d = doseg(rastlina.trenutniRadij);
    const double x = rastlina.pozicija3D.x;
    const double z = rastlina.pozicija3D.z;
    const int x0 = predalX(x - d), x1 = predalX(x + d);
    const int z0 = predalZ(z - d), z1 = predalZ(z + d);
    for (int pz = z0; pz <= z1; ++pz) {
        for (int p = pz * stPredalovX + x0; p <= pz * stPredalovX + x1; ++p) {
            if (!(predali[p].maxMoc >= moc))
                continue;
            for (int i = predali[p].zacetek; i < predali[p + 1].zacetek; ++i) {
                const Zapis& s = zapisi[i];
                if (s.moc == -INFINITY || i == jaz)
                    continue; // died in this kill phase, or the plant itself
                if (!(s.moc >= moc))
                    break; // the rest of the bucket is weaker
                const double dx = double(s.x) - x;
                const double dz = double(s.z) - z;
                const double vsota = (double(rastlina.trenutniRadij) + s.radij) * rob + robDodatek;
                if (dx * dx + dz * dz > vsota * vsota)
                    continue;
                const Podrobnosti& o = podrobnosti[i];
                if (sePrekrivata(rastlina, s, o) &&
                    vCelicahIskanja(o.celica, rastlina.pozicijaMap2D.x, rastlina.pozicijaMap2D.y))
                    return true;
            }
        }
    }
    return false;
}

} // namespace ecosystem
