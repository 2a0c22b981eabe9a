#pragma once

#include <QString>

#include <sstream>
#include <string>
#include <vector>

class QIODevice;

namespace arbo {
class BralecStevil;
}

namespace ecosystem {

namespace simulationEntities {
class CRastlina;
}

// The contents of a simulation file (".sim"), read completely and checked
// before the running simulation is touched, so that a bad file changes nothing.
class CSimulationFile {
public:
    // What a simulation file may hold. A saved run has its not yet sown
    // fractions below 1, sizes, penetrations and strengths in 0 to 1 and ages
    // below the species' age of certain death (at most 250 steps); the limits
    // leave room for hand-edited files while every later step stays finite,
    // ends and fits in memory.
    static constexpr int najvecjiKorak = 1000000000;   // step number: 1.1e9 more steps fit an int
    static constexpr int najvecRastlin = 1000000;      // plants, all species together
    static constexpr int najvecjaStarost = 1000000;    // age and age of death, in steps
    static constexpr float najvecjiDelez = 1.01f;      // size, penetration, strength (from 0)
    static constexpr float najvecjiRadij = 1000.0f;    // crown radius in metres (from 0)
    static constexpr float najvecPrihajajocih = 10000; // not yet sown plants of a species
    static constexpr float najvecjaVisina = 1e6f;      // |height| of a plant's position
    // A plant's x and z lie within one cell (25 m) of the grid; the other four
    // values it keeps (inclination, moisture, sunniness, windiness, height
    // above water) need only be finite.

    // One plant line: cell, 3-D position and the state that is restored.
    struct Rastlina {
        int x, y;
        float pozicijaX, pozicijaY, pozicijaZ;
        int id, trenutnaStarost;
        float trenutnaVelikost, trenutniRadij, prodornost, trenutnaMoc;
        float strminaTukaj, vlaznostTukaj, sonceTukaj, veterTukaj, visinaTukajNormNadVodo;
        float umreNaKoraku;
    };

    enum class Izid { Prebrano, NiOdprta, NapacnoSteviloVrst, Pokvarjena };

    // Text for a device, handed over a piece at a time so that the memory held
    // does not grow with the file. Numbers in the classic notation.
    class Pisanje {
    public:
        explicit Pisanje(QIODevice& naprava);
        std::ostream& izhod() { return kos; }
        // Hands over what has gathered once it is large, or all of it; false
        // once a write failed.
        bool odlozi(bool vse = false);

    private:
        QIODevice& naprava;
        std::ostringstream kos;
        bool zapisano = true;
    };

    // Reads one value after another and keeps, for the first that is missing,
    // malformed or out of range, its line and what is wrong with it (in the
    // user's language). Also reads the exact state files.
    class Branje {
    public:
        Branje(arbo::BralecStevil& f, std::string& razlog) : f(f), razlog(razlog) {}

        // int, unsigned long long, bool (0 or 1) or float (any finite one).
        template <typename T> bool beri(T& v, const char* ime);
        bool beri(int& v, const char* ime, int najmanj, int najvec);
        bool beri(float& v, const char* ime, float najmanj, float najvec);
        // Always false, with besedilo as the reason.
        bool napaka(const QString& besedilo);
        int vrstica() const;
        arbo::BralecStevil& bralec() { return f; }

    private:
        arbo::BralecStevil& f;
        std::string& razlog;
        template <typename T, typename M> bool vMejah(T v, const char* ime, M najmanj, M najvec);
    };

    int simulationStepNr = 0;
    int steviloVrst = 0;
    std::vector<std::vector<Rastlina>> rastlineVrst; // per species, oldest first
    std::vector<float> komulacijePrihajajocihRastlin;
    std::vector<unsigned long long> seeds; // thirteen stream states
    int lupaXmin = 0, lupaXmax = 0, lupaYmin = 0, lupaYmax = 0;
    // Why a file is Pokvarjena: its line and what is wrong there, in the
    // user's language.
    std::string razlog;

    // Reads fileName; a file is accepted only when it has pricakovanoStVrst
    // species, every value within the limits above, every cell in the
    // stTockX x stTockY grid and the lupa too.
    Izid preberi(const std::string& fileName, int pricakovanoStVrst, int stTockX, int stTockY);

    // One plant line as a simulation file holds it (17 values, tab-separated),
    // in the stream's own number format, without the line end.
    static void zapisiRastlino(std::ostream& izhod, const simulationEntities::CRastlina& r);
    // The 17 values of a plant line, each within the limits above.
    static bool preberiRastlino(Branje& b, int stTockX, int stTockY, Rastlina& rastlina);
    // Four bounds of a plant area (first and last column, first and last
    // row) that must lie on the stTockX x stTockY grid.
    static bool preberiLupo(Branje& b, int stTockX, int stTockY, int (&lupa)[4]);

private:
    // najvecVDatoteki: the most plants the file's size leaves room for.
    bool preberiRastline(Branje& b, int stTockX, int stTockY, qint64 najvecVDatoteki);
    bool preberiOstalo(Branje& b, int stTockX, int stTockY);
};

} // namespace ecosystem
