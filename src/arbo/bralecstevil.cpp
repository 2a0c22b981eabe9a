#include "arbo/bralecstevil.h"

#include <QIODevice>

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <type_traits>

namespace arbo {

namespace {
const qint64 velikostKosa = 64 * 1024;

bool jePresledek(int c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}
} // namespace

BralecStevil::BralecStevil(QIODevice& naprava) : naprava(naprava) {}

int BralecStevil::poglej() {
    if (pozicija >= kos.size()) {
        ohraniZeton();
        kos = naprava.read(velikostKosa);
        pozicija = 0;
        if (kos.isEmpty())
            return -1;
    }
    return static_cast<unsigned char>(kos.constData()[pozicija]);
}

void BralecStevil::vzemi() {
    if (kos.constData()[pozicija] == '\n')
        ++trenutnaVrstica;
    ++pozicija;
}

void BralecStevil::preskociPresledke() {
    for (int c = poglej(); c >= 0 && jePresledek(c); c = poglej())
        vzemi();
}

// Scans the loaded piece directly; only a token that runs past the end of the
// piece is gathered byte by byte into besediloZetona.
bool BralecStevil::naslednjiZeton() {
    preskociPresledke();
    vrsticaZetona = trenutnaVrstica;
    const char* podatki = kos.constData();
    const int velikost = int(kos.size());
    int konec = pozicija;
    while (konec < velikost && !jePresledek(static_cast<unsigned char>(podatki[konec])))
        ++konec;
    zetonVKosu = pozicija;
    dolzinaZetona = std::min(konec - pozicija, najdaljsiZeton);
    predolg = konec - pozicija > najdaljsiZeton;
    pozicija = konec;
    if (konec == velikost) {
        ohraniZeton();
        // A token of any length is read to its end (time linear in the file), but
        // only its first najdaljsiZeton characters are kept.
        for (int c = poglej(); c >= 0 && !jePresledek(c); c = poglej()) {
            if (int(besediloZetona.size()) < najdaljsiZeton)
                besediloZetona.push_back(char(c));
            else
                predolg = true;
            vzemi();
        }
        dolzinaZetona = int(besediloZetona.size());
    }
    return dolzinaZetona > 0 && !predolg;
}

void BralecStevil::ohraniZeton() const {
    if (zetonVKosu < 0)
        return;
    besediloZetona.assign(kos.constData() + zetonVKosu, size_t(dolzinaZetona));
    zetonVKosu = -1;
}

const std::string& BralecStevil::zeton() const {
    ohraniZeton();
    return besediloZetona;
}

// A leading '+' is taken as the stream readers take it; "+-1" is no number.
// A real number must be finite.
template <typename T> bool BralecStevil::stevilo(T& vrednost) {
    if (!naslednjiZeton())
        return false;
    const char* b = zetonVKosu >= 0 ? kos.constData() + zetonVKosu : besediloZetona.data();
    const char* e = b + dolzinaZetona;
    if (*b == '+' && e - b > 1 && b[1] != '-')
        ++b;
    T v{};
    const auto [konec, napaka] = std::from_chars(b, e, v);
    if (napaka != std::errc() || konec != e)
        return false;
    if constexpr (std::is_floating_point_v<T>)
        if (!std::isfinite(v))
            return false;
    vrednost = v;
    return true;
}

bool BralecStevil::beri(int& vrednost) {
    return stevilo(vrednost);
}

bool BralecStevil::beri(unsigned long long& vrednost) {
    return stevilo(vrednost);
}

// Read as a double and rounded to float: a value below the normal float range
// still reads (as the nearest float), one beyond the float range does not.
bool BralecStevil::beri(float& vrednost) {
    double d = 0;
    if (!stevilo(d) || std::fabs(d) > FLT_MAX)
        return false;
    vrednost = static_cast<float>(d);
    return true;
}

bool BralecStevil::beri(double& vrednost) {
    return stevilo(vrednost);
}

bool BralecStevil::beri(bool& vrednost) {
    int v = 0;
    if (!stevilo(v) || (v != 0 && v != 1))
        return false;
    vrednost = v == 1;
    return true;
}

bool BralecStevil::beriVrstico(std::string& vrstica, int najvecZnakov) {
    vrsticaZetona = trenutnaVrstica;
    vrstica.clear();
    int c = poglej();
    if (c < 0)
        return false;
    for (; c >= 0 && c != '\n'; c = poglej()) {
        if (int(vrstica.size()) == najvecZnakov)
            return false;
        vrstica.push_back(char(c));
        vzemi();
    }
    if (c == '\n')
        vzemi();
    return true;
}

bool BralecStevil::naKoncu() {
    preskociPresledke();
    return poglej() < 0;
}

} // namespace arbo
