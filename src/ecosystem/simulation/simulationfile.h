#pragma once

#include <string>
#include <vector>

namespace ecosystem {

// The contents of a simulation file (".sim"), read completely and checked
// before the running simulation is touched, so that a bad file changes nothing.
class CSimulationFile {
public:
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

    int simulationStepNr = 0;
    int steviloVrst = 0;
    std::vector<std::vector<Rastlina>> rastlineVrst; // per species, oldest first
    std::vector<float> komulacijePrihajajocihRastlin;
    std::vector<unsigned long long> seeds; // thirteen stream states
    int lupaXmin = 0, lupaXmax = 0, lupaYmin = 0, lupaYmax = 0;

    // Reads fileName; a file is accepted only when it has pricakovanoStVrst
    // species, every cell lies in the stTockX x stTockY grid and the lupa too.
    Izid preberi(const std::string& fileName, int pricakovanoStVrst, int stTockX, int stTockY);

private:
    class Bralec;
    bool preberiRastlino(Bralec& bralec, int stTockX, int stTockY, Rastlina& rastlina);
    bool preberiOstalo(Bralec& bralec, int stTockX, int stTockY);
};

} // namespace ecosystem
