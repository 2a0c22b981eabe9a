#include "ecosystem/simulation/simulationfile.h"

#include "arbo/bralecstevil.h"
#include "ecosystem/simulation/entities/rastlina.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <locale>
#include <ostream>

namespace ecosystem {

namespace {
QString prevedi(const char* besedilo) {
    return QCoreApplication::translate("ecosystem::CSimulationFile", besedilo);
}

QString kotBesedilo(int v) {
    return QString::number(v);
}

QString kotBesedilo(float v) {
    return QString::number(double(v), 'g', 7);
}
} // namespace

template <typename T> bool CSimulationFile::Branje::beri(T& v, const char* ime) {
    if (f.beri(v))
        return true;
    if (f.zeton().empty())
        return napaka(prevedi(QT_TRANSLATE_NOOP("ecosystem::CSimulationFile",
                                                "Line %1: the file ends before the %2."))
                          .arg(f.vrstica())
                          .arg(prevedi(ime)));
    return napaka(prevedi(QT_TRANSLATE_NOOP("ecosystem::CSimulationFile",
                                            "Line %1: \"%2\" is not a valid %3."))
                      .arg(f.vrstica())
                      .arg(QString::fromStdString(f.zeton()), prevedi(ime)));
}

template bool CSimulationFile::Branje::beri(int&, const char*);
template bool CSimulationFile::Branje::beri(unsigned long long&, const char*);
template bool CSimulationFile::Branje::beri(bool&, const char*);
template bool CSimulationFile::Branje::beri(float&, const char*);

bool CSimulationFile::Branje::beri(int& v, const char* ime, int najmanj, int najvec) {
    return beri(v, ime) && vMejah(v, ime, najmanj, najvec);
}

// Read as a double, so that a value beyond the float range is told as out of
// the limits rather than as no number. Nine significant digits, as the exact
// state files hold them, read back to the very float that was written.
bool CSimulationFile::Branje::beri(float& v, const char* ime, float najmanj, float najvec) {
    double d = 0;
    if (!beri(d, ime))
        return false;
    const float z = std::fabs(d) <= FLT_MAX ? float(d) : float(d > 0 ? HUGE_VALF : -HUGE_VALF);
    if (!vMejah(z, ime, najmanj, najvec))
        return false;
    v = z;
    return true;
}

template <typename T, typename M>
bool CSimulationFile::Branje::vMejah(T v, const char* ime, M najmanj, M najvec) {
    if (v >= najmanj && v <= najvec)
        return true;
    return napaka(prevedi(QT_TRANSLATE_NOOP("ecosystem::CSimulationFile",
                                            "Line %1: the %2 %3 lies outside %4 to %5."))
                      .arg(f.vrstica())
                      .arg(prevedi(ime), QString::fromStdString(f.zeton()), kotBesedilo(najmanj),
                           kotBesedilo(najvec)));
}

bool CSimulationFile::Branje::napaka(const QString& besedilo) {
    razlog = besedilo.toStdString();
    return false;
}

int CSimulationFile::Branje::vrstica() const {
    return f.vrstica();
}

CSimulationFile::Pisanje::Pisanje(QIODevice& naprava) : naprava(naprava) {
    kos.imbue(std::locale::classic());
}

bool CSimulationFile::Pisanje::odlozi(bool vse) {
    if (!vse && kos.tellp() < (1 << 20))
        return zapisano;
    const std::string besedilo = kos.str();
    kos.str(std::string());
    zapisano = zapisano &&
               naprava.write(besedilo.data(), qint64(besedilo.size())) == qint64(besedilo.size());
    return zapisano;
}

void CSimulationFile::zapisiRastlino(std::ostream& izhod, const simulationEntities::CRastlina& r) {
    izhod << r.pozicijaMap2D.x << '\t' << r.pozicijaMap2D.y << '\t' << r.pozicija3D.x << '\t'
          << r.pozicija3D.y << '\t' << r.pozicija3D.z << '\t' << r.id << '\t' << r.trenutnaStarost
          << '\t' << r.trenutnaVelikost << '\t' << r.trenutniRadij << '\t' << r.prodornost << '\t'
          << r.trenutnaMoc << '\t' << r.strminaTukaj << '\t' << r.vlaznostTukaj << '\t'
          << r.sonceTukaj << '\t' << r.veterTukaj << '\t' << r.visinaTukajNormNadVodo << '\t'
          << r.umreNaKoraku;
}

// Only a regular file is read (a device or a pipe might never end), a piece at
// a time: the memory held grows with the plants, never with the file.
CSimulationFile::Izid CSimulationFile::preberi(const std::string& fileName, int pricakovanoStVrst,
                                               int stTockX, int stTockY) {
    QFile datoteka(QString::fromStdString(fileName));
    if (!QFileInfo(datoteka).isFile() || !datoteka.open(QIODevice::ReadOnly))
        return Izid::NiOdprta;
    arbo::BralecStevil bralec(datoteka);
    Branje b(bralec, razlog);
    if (!b.beri(simulationStepNr, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "step number"), 0,
                najvecjiKorak) ||
        !b.beri(steviloVrst, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "number of species")))
        return Izid::Pokvarjena;
    if (steviloVrst != pricakovanoStVrst)
        return Izid::NapacnoSteviloVrst;
    // A plant's line holds 17 numbers, each of at least one character and a separator.
    const qint64 najvecVDatoteki = datoteka.size() / 34 + 1;
    if (!preberiRastline(b, stTockX, stTockY, najvecVDatoteki) ||
        !preberiOstalo(b, stTockX, stTockY))
        return Izid::Pokvarjena;
    return Izid::Prebrano;
}

bool CSimulationFile::preberiRastline(Branje& b, int stTockX, int stTockY, qint64 najvecVDatoteki) {
    rastlineVrst.assign(steviloVrst, {});
    int vseh = 0;
    for (std::vector<Rastlina>& rastline : rastlineVrst) {
        int stRastlin = 0;
        if (!b.beri(stRastlin, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "number of plants"),
                    0, najvecRastlin - vseh))
            return false;
        vseh += stRastlin;
        // Room for the plants the file claims only as far as its size can hold them.
        rastline.reserve(size_t(std::min<qint64>(stRastlin, najvecVDatoteki)));
        for (int i = 0; i < stRastlin; ++i) {
            Rastlina rastlina;
            if (!preberiRastlino(b, stTockX, stTockY, rastlina))
                return false;
            rastline.push_back(rastlina);
        }
    }
    return true;
}

bool CSimulationFile::preberiRastlino(Branje& b, int stTockX, int stTockY, Rastlina& r) {
    const float robX = 25.0f * float(stTockX), robZ = 25.0f * float(stTockY);
    const float delez = najvecjiDelez;
    const bool prebrano =
        b.beri(r.x, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "grid column"), 0,
               stTockX - 1) &&
        b.beri(r.y, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "grid row"), 0, stTockY - 1) &&
        b.beri(r.pozicijaX, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "position x"), -25.0f,
               robX) &&
        b.beri(r.pozicijaY, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "position y"),
               -najvecjaVisina, najvecjaVisina) &&
        b.beri(r.pozicijaZ, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "position z"), -25.0f,
               robZ) &&
        b.beri(r.id, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "plant number")) &&
        b.beri(r.trenutnaStarost, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "age"), 0,
               najvecjaStarost) &&
        b.beri(r.trenutnaVelikost, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "size"), 0.0f,
               delez) &&
        b.beri(r.trenutniRadij, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "crown radius"),
               0.0f, najvecjiRadij) &&
        b.beri(r.prodornost, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "penetration"), 0.0f,
               delez) &&
        b.beri(r.trenutnaMoc, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "strength"), 0.0f,
               delez) &&
        b.beri(r.strminaTukaj, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "inclination")) &&
        b.beri(r.vlaznostTukaj, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "moisture")) &&
        b.beri(r.sonceTukaj, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "sunniness")) &&
        b.beri(r.veterTukaj, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "windiness")) &&
        b.beri(r.visinaTukajNormNadVodo,
               QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "height above water")) &&
        b.beri(r.umreNaKoraku, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "age of death"),
               0.0f, float(najvecjaStarost));
    return prebrano;
}

bool CSimulationFile::preberiOstalo(Branje& b, int stTockX, int stTockY) {
    komulacijePrihajajocihRastlin.assign(steviloVrst, 0.0f);
    for (float& komulacija : komulacijePrihajajocihRastlin)
        if (!b.beri(komulacija,
                    QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "number of plants to sow"),
                    0.0f, najvecPrihajajocih))
            return false;
    seeds.assign(13, 0);
    for (unsigned long long& seed : seeds)
        if (!b.beri(seed, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "random stream state")))
            return false;
    int lupa[4] = {0, 0, 0, 0};
    if (!preberiLupo(b, stTockX, stTockY, lupa))
        return false;
    lupaXmin = lupa[0];
    lupaXmax = lupa[1];
    lupaYmin = lupa[2];
    lupaYmax = lupa[3];
    return true;
}

bool CSimulationFile::preberiLupo(Branje& b, int stTockX, int stTockY, int (&lupa)[4]) {
    const char* meja = QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "plant area bound");
    for (int& m : lupa)
        if (!b.beri(m, meja))
            return false;
    // The lupa bounds the cells that the sowers and the above-water test look at.
    if (0 <= lupa[0] && lupa[0] <= lupa[1] && lupa[1] < stTockX && 0 <= lupa[2] &&
        lupa[2] <= lupa[3] && lupa[3] < stTockY)
        return true;
    return b.napaka(
        prevedi(QT_TRANSLATE_NOOP(
                    "ecosystem::CSimulationFile",
                    "Line %1: the plant area, columns %2 to %3 and rows %4 to %5, does not fit "
                    "the grid of %6 x %7 points."))
            .arg(b.vrstica())
            .arg(lupa[0])
            .arg(lupa[1])
            .arg(lupa[2])
            .arg(lupa[3])
            .arg(stTockX)
            .arg(stTockY));
}

} // namespace ecosystem
