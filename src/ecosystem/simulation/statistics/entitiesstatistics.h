#pragma once

#include <string>
#include <vector>

namespace arbo {
class Krivulja;
}

namespace ecosystem::statistics {

// What the simulation did: living plants, deaths by cause, one curve per
// species of living plants per step and of drawn plants per frame, and the
// timing report of the latest step.
class CEntitiesStatistics {
public:
    int stTrenutnoZivih;
    int umrliZaradiDominiranosti;
    int umrliOstalo;
    int umrliSkupaj;
    std::vector<arbo::Krivulja*> grafiStevilaRastlin;             // owned, one per species
    std::vector<arbo::Krivulja*> grafiStevilaUpodobljenihRastlin; // owned, one per species
    // The simulation step of each point of the living-plant curves (the curves
    // number their points 0, 1, 2, ...; the steps start at 1 and a loaded
    // simulation goes on from its own step).
    std::vector<int> korakiZivih;
    // For each point of the drawn-plant curves, how many living-plant points
    // there were when it was drawn: ties every frame to the step it showed.
    std::vector<int> korakiUpodobitev;
    int sumRenderTime;
    int sumSimmTime;
    std::string logText;
    // The latest step, one entry per species (index = position in the species
    // vector): plants its add phase sowed, and deaths of its kill phase by cause.
    std::vector<int> rojeniVKoraku;
    std::vector<int> umrliZaradiDominiranostiVKoraku;
    std::vector<int> umrliOstaloVKoraku;

    CEntitiesStatistics();
    ~CEntitiesStatistics();
    CEntitiesStatistics(const CEntitiesStatistics&) = delete;
    CEntitiesStatistics& operator=(const CEntitiesStatistics&) = delete;

    void setStTrenutnoZivih(int stTrenutnoZivih);
    void dodajSmrtZaradiDominiranosti();
    void dodajSmrtOstalo();
    // Books the counts as the step after the latest one booked (step 1 first).
    void addLiveSpecies(const std::vector<int>& stevilaRastlin);
    void addLiveSpecies(const std::vector<int>& stevilaRastlin, int stepNr);
    void addRenderedSpecies(const std::vector<int>& stevilaRastlin);
    void saveSimulationRutinesTimings(int stepNr, int casOstalo, int casDodajal, int casZrastel,
                                      int casPobijal, int casPobijanjaDominiranihRastlin);
    std::vector<arbo::Krivulja*>* getGrafiStevilaRastlin();
    std::vector<arbo::Krivulja*>* getGrafiStevilaUpodobljenihRastlin();
    std::string getLogText();

private:
    static void dodajTocke(std::vector<arbo::Krivulja*>& grafi,
                           const std::vector<int>& stevilaRastlin);
};

} // namespace ecosystem::statistics
