#include "ecosystem/simulation/dominancegrid.h"

#include "ecosystem/simulation/entities/vrstarastlin.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>

namespace ecosystem {

using simulationEntities::CRastlina;
using simulationEntities::CVrstaRastlin;

namespace {
// Crowns farther apart on the ground than this reach cannot overlap, whatever
// the heights; the margin lies far above float rounding.
constexpr double rob = 1.0 + 1e-5;
constexpr double robDodatek = 1e-3;

constexpr std::uint32_t bitNeglede = 1u << 31; // top bit of Podrobnosti::zaporedna

// What razresi settles for a plant; otherwise the place of an earlier
// neighbour that may have died, with brezRezerve clear when there are more.
constexpr std::int32_t niDominantnega = -1; // no neighbour can be alive at its turn
constexpr std::int32_t zagotovo = -2;       // a dominating neighbour comes later
constexpr std::int32_t neznano = -3;        // not settled: search at its turn
constexpr std::int32_t seDrugi = 1 << 30;   // more earlier neighbours than the one kept
} // namespace

void CDominanceGrid::zgradi(std::vector<CVrstaRastlin>& rastlinskeVrste, int polSirina, int stTockX,
                            const SmrtNeglede& umreNeglede) {
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

    // Counting sort by bucket; stanja first holds each plant's bucket, and
    // each bucket's zacetek serves as its fill cursor, ending at the next
    // bucket's start, so the starts are shifted back afterwards.
    stanja.resize(stRastlin);
    predali.assign(size_t(stPredalovX) * stPredalovZ + 1, {0, -INFINITY});
    int k = 0;
    for (CVrstaRastlin& vrsta : rastlinskeVrste)
        for (const CRastlina& r : vrsta.ziviPrimerkiTeVrste)
            ++predali[(stanja[k++] = predal(r.pozicija3D.x, r.pozicija3D.z)) + 1].zacetek;
    for (size_t i = 1; i < predali.size(); ++i)
        predali[i].zacetek += predali[i - 1].zacetek;

    zapisi.resize(stRastlin);
    podrobnosti.resize(stRastlin);
    k = 0;
    for (CVrstaRastlin& vrsta : rastlinskeVrste) {
        for (CRastlina& r : vrsta.ziviPrimerkiTeVrste) {
            const int p = stanja[k];
            const float moc = r.trenutnaMoc * vrsta.vplivMoci;
            const int i = predali[p].zacetek++;
            zapisi[i] = {r.pozicija3D.x, r.pozicija3D.z, r.trenutniRadij, moc};
            podrobnosti[i] = {r.pozicija3D.y, r.pozicijaMap2D.y * stTockX + r.pozicijaMap2D.x,
                              std::uint32_t(k) | (umreNeglede(r) ? bitNeglede : 0u)};
            predali[p].maxMoc = std::max(predali[p].maxMoc, moc);
            ++k;
        }
    }
    for (size_t p = predali.size() - 1; p > 0; --p)
        predali[p].zacetek = predali[p - 1].zacetek;
    predali[0].zacetek = 0;
    razvrstiPoMoci();
    mrtve.assign((size_t(stRastlin) + 63) / 64, 0);
    razresiVnaprej();
    trenutna = -1;
}

// Within a bucket the strongest come first, so a scan stops at the first
// weaker one.
void CDominanceGrid::razvrstiPoMoci() {
    for (size_t p = 0; p + 1 < predali.size(); ++p)
        if (predali[p + 1].zacetek - predali[p].zacetek > 1)
            razvrstiPredal(predali[p].zacetek, predali[p + 1].zacetek);
}

void CDominanceGrid::razvrstiPredal(int zacetek, int konec) {
    auto mocnejsi = [this](int a, int b) { return zapisi[a].moc > zapisi[b].moc; };
    if (konec - zacetek <= 24) { // the usual few: insertion in place
        for (int i = zacetek + 1; i < konec; ++i) {
            const Zapis z = zapisi[i];
            const Podrobnosti d = podrobnosti[i];
            int j = i;
            for (; j > zacetek && zapisi[j - 1].moc < z.moc; --j) {
                zapisi[j] = zapisi[j - 1];
                podrobnosti[j] = podrobnosti[j - 1];
            }
            zapisi[j] = z;
            podrobnosti[j] = d;
        }
        return;
    }
    std::vector<int> red(konec - zacetek);
    std::iota(red.begin(), red.end(), zacetek);
    std::sort(red.begin(), red.end(), mocnejsi);
    std::vector<Zapis> z(red.size());
    std::vector<Podrobnosti> d(red.size());
    for (size_t i = 0; i < red.size(); ++i) {
        z[i] = zapisi[red[i]];
        d[i] = podrobnosti[red[i]];
    }
    std::copy(z.begin(), z.end(), zapisi.begin() + zacetek);
    std::copy(d.begin(), d.end(), podrobnosti.begin() + zacetek);
}

// Buckets about one largest crown radius wide, so a query looks at a few
// buckets per axis; on a large terrain with wide empty parts there are at most
// half as many as plants (a few more plants per bucket cost less than the
// memory and cache misses of more bucket headers).
void CDominanceGrid::dolociPredale(int stRastlin) {
    const double sirina = maxX - minX;
    const double globina = maxZ - minZ;
    const double najvecPredalov = std::max(0.5 * stRastlin, 4096.0);
    velikostPredala = std::max(double(najvecjiRadij), 0.5);
    while ((sirina / velikostPredala + 1) * (globina / velikostPredala + 1) > najvecPredalov)
        velikostPredala *= 1.5;
    stPredalovX = int(sirina / velikostPredala) + 1;
    stPredalovZ = int(globina / velikostPredala) + 1;
    obratnaVelikost = 1.0 / velikostPredala;
}

// Any monotonic mapping serves, as long as records and searches share it.
static int naPredal(double odmik, double obratnaVelikost, int stPredalov) {
    const double i = odmik * obratnaVelikost;
    if (!(i > 0))
        return 0;
    return i >= stPredalov - 1 ? stPredalov - 1 : int(i);
}

int CDominanceGrid::predalX(double x) const {
    return naPredal(x - minX, obratnaVelikost, stPredalovX);
}

int CDominanceGrid::predalZ(double z) const {
    return naPredal(z - minZ, obratnaVelikost, stPredalovZ);
}

int CDominanceGrid::predal(float x, float z) const {
    return predalZ(z) * stPredalovX + predalX(x);
}

double CDominanceGrid::doseg(float radij) const {
    return (double(radij) + najvecjiRadij) * rob + robDodatek;
}

bool CDominanceGrid::jeMrtva(std::uint32_t zaporedna) const {
    return (mrtve[zaporedna >> 6] >> (zaporedna & 63)) & 1u;
}

template <typename F> void CDominanceGrid::preglej(const Iskalec& jaz, F&& naSosedu) const {
    const double d = doseg(jaz.radij);
    const int x0 = predalX(jaz.x - d), x1 = predalX(jaz.x + d);
    const int z0 = predalZ(jaz.z - d), z1 = predalZ(jaz.z + d);
    // Distance on the ground from the plant to a bucket's square, per axis.
    auto doPredala = [this](double v, double min, int i) {
        const double spodaj = min + i * velikostPredala;
        return std::max({0.0, spodaj - v, v - (spodaj + velikostPredala)});
    };
    for (int pz = z0; pz <= z1; ++pz) {
        const double oddaljenostZ = doPredala(jaz.z, minZ, pz);
        for (int px = x0; px <= x1; ++px) {
            const int p = pz * stPredalovX + px;
            if (!(predali[p].maxMoc >= jaz.moc))
                continue;
            const double oddaljenostX = doPredala(jaz.x, minX, px);
            if (oddaljenostX * oddaljenostX + oddaljenostZ * oddaljenostZ > d * d)
                continue;
            for (int i = predali[p].zacetek; i < predali[p + 1].zacetek; ++i) {
                const Zapis& s = zapisi[i];
                if (!(s.moc >= jaz.moc))
                    break; // the rest of the bucket is weaker
                const double dx = double(s.x) - jaz.x;
                const double dz = double(s.z) - jaz.z;
                const double vsota = (double(jaz.radij) + s.radij) * rob + robDodatek;
                if (dx * dx + dz * dz > vsota * vsota)
                    continue;
                const Podrobnosti& o = podrobnosti[i];
                const std::uint32_t zaporedna = o.zaporedna & ~bitNeglede;
                if (zaporedna == jaz.zaporedna)
                    continue; // the plant itself
                // Exactly CRastlina::presekaRadijRastline, on the copied position and radius.
                const double dy = jaz.y - double(o.y);
                const float razdalja = static_cast<float>(std::sqrt(dx * dx + dy * dy + dz * dz));
                if (!(jaz.radij + s.radij > razdalja))
                    continue;
                if (std::abs(o.celica % stTockX - jaz.celicaX) > polSirina ||
                    std::abs(o.celica / stTockX - jaz.celicaY) > polSirina)
                    continue;
                if (naSosedu(o.zaporedna))
                    return;
            }
        }
    }
}

// Bucket by bucket, so the neighbours looked at stay in the cache.
void CDominanceGrid::razresiVnaprej() {
    for (int i = 0; i < int(zapisi.size()); ++i) {
        const std::uint32_t z = podrobnosti[i].zaporedna;
        stanja[z & ~bitNeglede] = (z & bitNeglede) ? neznano : razresi(i);
    }
}

std::int32_t CDominanceGrid::razresi(int zapis) const {
    const Zapis& s = zapisi[zapis];
    const Podrobnosti& o = podrobnosti[zapis];
    const Iskalec jaz{s.x,
                      o.y,
                      s.z,
                      s.radij,
                      s.moc,
                      o.celica % stTockX,
                      o.celica / stTockX,
                      o.zaporedna & ~bitNeglede};
    std::int32_t stanje = niDominantnega;
    preglej(jaz, [&](std::uint32_t sosed) {
        const std::uint32_t zaporedna = sosed & ~bitNeglede;
        if (zaporedna > jaz.zaporedna) {
            stanje = zagotovo; // still alive at this plant's turn
            return true;
        }
        if (sosed & bitNeglede)
            return false; // gone before this plant's turn
        if (stanje != niDominantnega) {
            stanje |= seDrugi;
            return true;
        }
        stanje = std::int32_t(zaporedna);
        return false;
    });
    return stanje;
}

void CDominanceGrid::naslednjaRastlina() {
    ++trenutna;
}

void CDominanceGrid::odstrani() {
    if (trenutna >= 0 && trenutna < int(stanja.size()))
        mrtve[size_t(trenutna) >> 6] |= std::uint64_t(1) << (trenutna & 63);
}

bool CDominanceGrid::imaDominantnegaSoseda(const CRastlina& rastlina) const {
    if (trenutna < 0 || trenutna >= int(stanja.size()))
        return false;
    const std::int32_t stanje = stanja[trenutna];
    if (stanje == niDominantnega)
        return false;
    if (stanje == zagotovo)
        return true;
    if (stanje != neznano) {
        if (!jeMrtva(std::uint32_t(stanje & ~seDrugi)))
            return true;
        if (!(stanje & seDrugi))
            return false;
    }
    const Iskalec jaz{rastlina.pozicija3D.x,
                      rastlina.pozicija3D.y,
                      rastlina.pozicija3D.z,
                      rastlina.trenutniRadij,
                      rastlina.trenutnaMoc * rastlina.vrstaRastline->vplivMoci,
                      rastlina.pozicijaMap2D.x,
                      rastlina.pozicijaMap2D.y,
                      std::uint32_t(trenutna)};
    bool najden = false;
    preglej(jaz, [&](std::uint32_t sosed) { return najden = !jeMrtva(sosed & ~bitNeglede); });
    return najden;
}

} // namespace ecosystem
