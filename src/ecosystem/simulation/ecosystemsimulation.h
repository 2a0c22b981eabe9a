#pragma once

#include "ecosystem/simulation/dominancegrid.h"
#include "ecosystem/simulation/entities/rastlina.h"
#include "ecosystem/simulation/entities/vrstarastlin.h"
#include "ecosystem/simulation/lifefactors.h"
#include "ecosystem/simulation/simulationfile.h"
#include "ecosystem/simulation/statistics/entitiesstatistics.h"

#include <QElapsedTimer>

#include <string>
#include <vector>

namespace ecosystem::data {
class CTerrainData;
}

namespace ecosystem {

class CSimulationState;

// Owns the species (and through them every plant), the per-cell plant index,
// the life factors and the statistics, and advances the ecosystem one step at
// a time: add new plants, grow them and work out their strengths, kill.
class CEcosystemSimulation {
public:
    bool simulationRunning;
    int simulationStepNr; // last completed step; -1 until the vegetation exists
    std::vector<simulationEntities::CVrstaRastlin> rastlinskeVrste;
    LifeFactors lifeFactors;
    std::vector<simulationEntities::CRastlina*>* rastlinePoTerenu; // one vector per cell, owned
    data::CTerrainData* terrainData;                               // not owned
    int najvecjaMoznaStarostRastline;
    statistics::CEntitiesStatistics entitiesStatistics;
    QElapsedTimer timer;
    CDominanceGrid dominanceGrid; // reused by every kill phase
    // Plants that died in the current kill phase, with their cells: while the
    // grid answers the dominance question the cell index is read by no one, so
    // they leave it together at the end of the phase.
    std::vector<std::pair<int, simulationEntities::CRastlina*>> umrleVCelicah;

    static CEcosystemSimulation* myStaticPtr;
    static int casPobijanjaDominiranihRastlin;

    CEcosystemSimulation();
    ~CEcosystemSimulation();
    CEcosystemSimulation(const CEcosystemSimulation&) = delete;
    CEcosystemSimulation& operator=(const CEcosystemSimulation&) = delete;

    void setTerrainData(data::CTerrainData& terrainData);
    void simulateNextStep();
    // One step as the program runs it: the step, then its statistics line on
    // standard output.
    void simulateNextStepAndLog();
    // Autosave after a step: with period p >= 1, a step number that is a
    // multiple of p is saved as "<step>.sim" in folder (the working directory
    // when empty). Returns the file name when it saved, else an empty string.
    std::string autoSave(int period, const std::string& folder = std::string());
    statistics::CEntitiesStatistics* getEntitiesStatistics();

    void setRandomGeneratorSeeds(const std::vector<unsigned long long>& seeds);
    std::vector<unsigned long long> getRandomGeneratorSeeds();
    void createSeeds();

    void saveSimulation(const std::string& fileName);
    void loadSimulation(const std::string& filename);
    // The exact state (see CSimulationState), written whole or not at all; the
    // terrain is named terrainName in it. False, told through the message
    // hook, when it could not be written.
    bool saveState(const std::string& fileName, const std::string& terrainName);
    // Continues exactly from a state saved on this terrain; needs the species
    // (zagotoviInicializiranostSimulacije). A file that cannot be read, is
    // damaged or was saved on another terrain changes nothing: false, told
    // through the message hook.
    bool loadState(const std::string& fileName);

    void saveStatistics(int casOstalo, int casDodajal, int casZrastel, int casPobijal);

    void zagotoviInicializiranostSimulacije();
    void dodajRastlineVrstam();
    void zrastiVseRastlineInDolociMoci();
    void zrastiRastlino(simulationEntities::CRastlina& rastlina,
                        simulationEntities::CVrstaRastlin& rastlinskaVrsta);
    void povecajVelikostRastline(simulationEntities::CRastlina& rastlina);
    void dolociMocRastline(simulationEntities::CRastlina& rastlina);
    float izracunajUgodnostPogojev(simulationEntities::CRastlina&);
    void pobijRastline();
    static bool umreSedaj(simulationEntities::CRastlina& rastlina);

private:
    void zapisiSimulacijo(CSimulationFile::Pisanje& p);
    void prevzemiSimulacijo(const CSimulationFile& vsebina);
    simulationEntities::CRastlina& obnoviRastlino(simulationEntities::CVrstaRastlin& vrsta,
                                                  const CSimulationFile::Rastlina& r);
    void prevzemiStanje(const CSimulationState& stanje);
    void prevzemiTerenInStatistiko(const CSimulationState& stanje);
    void povejCeNiSuhihCelic();
    int steviloCelic() const;
    void izprazniIndeksCelic();
    void napolniIndeksCelic();
    void odstraniUmrleIzCelic();
    int elapsedAndRestart();
};

} // namespace ecosystem
