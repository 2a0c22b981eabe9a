#include "ecosystem/simulation/simulationfile.h"

#include <QByteArray>
#include <QFile>

#include <cfloat>
#include <charconv>
#include <cmath>

namespace ecosystem {

// Whitespace-separated tokens of the file, each converted only when it is a
// whole number of the asked type (no locale: the file always uses '.').
class CSimulationFile::Bralec {
public:
    explicit Bralec(const QByteArray& besedilo)
        : p(besedilo.constData()), konec(besedilo.constData() + besedilo.size()) {}

    bool beri(int& vrednost) { return pretvori(vrednost); }
    bool beri(unsigned long long& vrednost) { return pretvori(vrednost); }
    bool beri(float& vrednost) {
        double d = 0;
        const char* zacetek = nullptr;
        const char* kraj = nullptr;
        if (!naslednji(zacetek, kraj))
            return false;
        const auto [ptr, ec] = std::from_chars(zacetek, kraj, d);
        if (ec != std::errc() || ptr != kraj || !std::isfinite(d) || std::fabs(d) > FLT_MAX)
            return false;
        vrednost = static_cast<float>(d);
        return true;
    }

private:
    template <typename T> bool pretvori(T& vrednost) {
        const char* zacetek = nullptr;
        const char* kraj = nullptr;
        if (!naslednji(zacetek, kraj))
            return false;
        const auto [ptr, ec] = std::from_chars(zacetek, kraj, vrednost);
        return ec == std::errc() && ptr == kraj;
    }
    bool naslednji(const char*& zacetek, const char*& kraj) {
        while (p < konec && jePresledek(*p))
            ++p;
        if (p == konec)
            return false;
        zacetek = p;
        while (p < konec && !jePresledek(*p))
            ++p;
        kraj = p;
        return true;
    }
    static bool jePresledek(char c) {
        return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
    }

    const char* p;
    const char* konec;
};

CSimulationFile::Izid CSimulationFile::preberi(const std::string& fileName, int pricakovanoStVrst,
                                               int stTockX, int stTockY) {
    QFile datoteka(QString::fromStdString(fileName));
    if (!datoteka.open(QIODevice::ReadOnly))
        return Izid::NiOdprta;
    const QByteArray besedilo = datoteka.readAll();
    Bralec bralec(besedilo);
    if (!bralec.beri(simulationStepNr) || simulationStepNr < 0 || !bralec.beri(steviloVrst))
        return Izid::Pokvarjena;
    if (steviloVrst != pricakovanoStVrst)
        return Izid::NapacnoSteviloVrst;
    rastlineVrst.assign(steviloVrst, {});
    for (std::vector<Rastlina>& rastline : rastlineVrst) {
        int stRastlin = 0;
        if (!bralec.beri(stRastlin) || stRastlin < 0)
            return Izid::Pokvarjena;
        for (int i = 0; i < stRastlin; ++i) {
            Rastlina rastlina;
            if (!preberiRastlino(bralec, stTockX, stTockY, rastlina))
                return Izid::Pokvarjena;
            rastline.push_back(rastlina);
        }
    }
    return preberiOstalo(bralec, stTockX, stTockY) ? Izid::Prebrano : Izid::Pokvarjena;
}

bool CSimulationFile::preberiRastlino(Bralec& bralec, int stTockX, int stTockY, Rastlina& r) {
    const bool prebrano = bralec.beri(r.x) && bralec.beri(r.y) && bralec.beri(r.pozicijaX) &&
                          bralec.beri(r.pozicijaY) && bralec.beri(r.pozicijaZ) &&
                          bralec.beri(r.id) && bralec.beri(r.trenutnaStarost) &&
                          bralec.beri(r.trenutnaVelikost) && bralec.beri(r.trenutniRadij) &&
                          bralec.beri(r.prodornost) && bralec.beri(r.trenutnaMoc) &&
                          bralec.beri(r.strminaTukaj) && bralec.beri(r.vlaznostTukaj) &&
                          bralec.beri(r.sonceTukaj) && bralec.beri(r.veterTukaj) &&
                          bralec.beri(r.visinaTukajNormNadVodo) && bralec.beri(r.umreNaKoraku);
    // A plant stands on a cell of the grid; its layers are read there.
    return prebrano && r.x >= 0 && r.x < stTockX && r.y >= 0 && r.y < stTockY;
}

bool CSimulationFile::preberiOstalo(Bralec& bralec, int stTockX, int stTockY) {
    komulacijePrihajajocihRastlin.assign(steviloVrst, 0.0f);
    for (float& komulacija : komulacijePrihajajocihRastlin)
        if (!bralec.beri(komulacija))
            return false;
    seeds.assign(13, 0);
    for (unsigned long long& seed : seeds)
        if (!bralec.beri(seed))
            return false;
    if (!bralec.beri(lupaXmin) || !bralec.beri(lupaXmax) || !bralec.beri(lupaYmin) ||
        !bralec.beri(lupaYmax))
        return false;
    // The lupa bounds the cells that the sowers and the above-water test look at.
    return 0 <= lupaXmin && lupaXmin <= lupaXmax && lupaXmax < stTockX && 0 <= lupaYmin &&
           lupaYmin <= lupaYmax && lupaYmax < stTockY;
}

} // namespace ecosystem
