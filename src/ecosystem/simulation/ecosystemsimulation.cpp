#include "ecosystem/simulation/ecosystemsimulation.h"

#include "arbo/usermessage.h"
#include "ecosystem/simulation/data/ecosystemsimulationfactory.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/randomgenerator.h"
#include "ecosystem/simulation/sejaleckjerkolirastlinnateren.h"
#include "ecosystem/simulation/sejalecrastlinnateren.h"
#include "ecosystem/simulation/simulationfile.h"
#include "ecosystem/simulation/simulationstate.h"

#include <QCoreApplication>
#include <QSaveFile>

#include <algorithm>
#include <cassert>
#include <iostream>

namespace ecosystem {

using simulationEntities::CRastlina;
using simulationEntities::CVrstaRastlin;

CEcosystemSimulation* CEcosystemSimulation::myStaticPtr = nullptr;
int CEcosystemSimulation::casPobijanjaDominiranihRastlin = 0;

namespace {
QString prevedi(const char* besedilo) {
    return QCoreApplication::translate("ecosystem::CEcosystemSimulation", besedilo);
}

// besedilo is marked with QT_TRANSLATE_NOOP; a detail, when given, follows on
// a line of its own.
void sporociNapako(const char* besedilo, const std::string& podrobnost = std::string()) {
    QString sporocilo = prevedi(besedilo);
    if (!podrobnost.empty())
        sporocilo += '\n' + QString::fromStdString(podrobnost);
    arbo::showUserMessage(
        prevedi(QT_TRANSLATE_NOOP("ecosystem::CEcosystemSimulation", "Error")).toStdString(),
        sporocilo.toStdString());
}
} // namespace

CEcosystemSimulation::CEcosystemSimulation()
    : simulationRunning(false), simulationStepNr(-1), lifeFactors(&rastlinskeVrste),
      rastlinePoTerenu(nullptr), terrainData(nullptr), najvecjaMoznaStarostRastline(0) {
    myStaticPtr = this;
    timer.start();
    createSeeds();
}

CEcosystemSimulation::~CEcosystemSimulation() {
    delete[] rastlinePoTerenu;
    if (myStaticPtr == this)
        myStaticPtr = nullptr;
}

int CEcosystemSimulation::steviloCelic() const {
    return terrainData ? terrainData->stTockX * terrainData->stTockY : 0;
}

// May be called again: the old index is released and the plants re-indexed.
void CEcosystemSimulation::setTerrainData(data::CTerrainData& terrainData) {
    this->terrainData = &terrainData;
    delete[] rastlinePoTerenu;
    rastlinePoTerenu = new std::vector<CRastlina*>[steviloCelic()];
    lifeFactors.setRastlinePoTerenu(rastlinePoTerenu);
    napolniIndeksCelic();
}

void CEcosystemSimulation::izprazniIndeksCelic() {
    for (int i = 0; i < steviloCelic(); ++i)
        rastlinePoTerenu[i].clear();
}

void CEcosystemSimulation::napolniIndeksCelic() {
    for (CVrstaRastlin& vrsta : rastlinskeVrste)
        for (CRastlina& rastlina : vrsta.ziviPrimerkiTeVrste)
            rastlinePoTerenu[rastlina.pozicijaMap2D.y * terrainData->stTockX +
                             rastlina.pozicijaMap2D.x]
                .push_back(&rastlina);
}

statistics::CEntitiesStatistics* CEcosystemSimulation::getEntitiesStatistics() {
    return &entitiesStatistics;
}

// ---- random streams, in seed-vector order ----

void CEcosystemSimulation::setRandomGeneratorSeeds(const std::vector<unsigned long long>& seeds) {
    CSejalecRastlinNaTeren::randomRastiBlizu = seeds[0];
    CSejalecRastlinNaTeren::randomIzbireBliznjeRastline = seeds[1];
    CSejalecRastlinNaTeren::randomIzbireStraniRastiObBliznjiRastlini = seeds[2];
    CSejalecKjerkoliRastlinNaTeren::randomPozicijeNovihRastlinKjerkoli = seeds[3];
    data::CTerrainData::randomPozicije3DNovihRastlinI = seeds[4];
    data::CTerrainData::randomPozicije3DNovihRastlinJ = seeds[5];
    lifeFactors.randomSmrtiZaradiDominiranosti = seeds[6];
    lifeFactors.randomSmrtiZaradiNeugodnostiVisine = seeds[7];
    lifeFactors.randomSmrtiZaradiNeugodnostiVlage = seeds[8];
    lifeFactors.randomSmrtiZaradiNeugodnostiSonca = seeds[9];
    lifeFactors.randomSmrtiZaradiNeugodnostiVetra = seeds[10];
    lifeFactors.randomSmrtiZaradiNeugodnostiNaklona = seeds[11];
    CRastlina::randomCasSmrti = seeds[12];
}

std::vector<unsigned long long> CEcosystemSimulation::getRandomGeneratorSeeds() {
    return {CSejalecRastlinNaTeren::randomRastiBlizu,
            CSejalecRastlinNaTeren::randomIzbireBliznjeRastline,
            CSejalecRastlinNaTeren::randomIzbireStraniRastiObBliznjiRastlini,
            CSejalecKjerkoliRastlinNaTeren::randomPozicijeNovihRastlinKjerkoli,
            data::CTerrainData::randomPozicije3DNovihRastlinI,
            data::CTerrainData::randomPozicije3DNovihRastlinJ,
            lifeFactors.randomSmrtiZaradiDominiranosti,
            lifeFactors.randomSmrtiZaradiNeugodnostiVisine,
            lifeFactors.randomSmrtiZaradiNeugodnostiVlage,
            lifeFactors.randomSmrtiZaradiNeugodnostiSonca,
            lifeFactors.randomSmrtiZaradiNeugodnostiVetra,
            lifeFactors.randomSmrtiZaradiNeugodnostiNaklona,
            CRastlina::randomCasSmrti};
}

void CEcosystemSimulation::createSeeds() {
    std::vector<unsigned long long> seeds(13);
    for (int i = 0; i < 13; ++i)
        seeds[i] = i + 1;
    setRandomGeneratorSeeds(seeds);
}

// ---- one step ----

int CEcosystemSimulation::elapsedAndRestart() {
    return static_cast<int>(timer.restart());
}

void CEcosystemSimulation::zagotoviInicializiranostSimulacije() {
    if (simulationStepNr >= 0)
        return;
    simulationRunning = true;
    simulationStepNr = 0;
    simulationFactory::CEcosystemSimulationFactory::buildPanonicVegetation(*this, terrainData,
                                                                           &entitiesStatistics);
    terrainData->buildTerrainData();
    najvecjaMoznaStarostRastline = 0;
    for (const CVrstaRastlin& vrsta : rastlinskeVrste)
        najvecjaMoznaStarostRastline =
            std::max(najvecjaMoznaStarostRastline, vrsta.casSigurneSmrti);
}

void CEcosystemSimulation::simulateNextStep() {
    zagotoviInicializiranostSimulacije();
    simulationStepNr += 1;
    casPobijanjaDominiranihRastlin = 0;
    const int casOstalo = elapsedAndRestart();
    dodajRastlineVrstam();
    const int casDodajal = elapsedAndRestart();
    zrastiVseRastlineInDolociMoci();
    const int casZrastel = elapsedAndRestart();
    pobijRastline();
    const int casPobijal = elapsedAndRestart();
    saveStatistics(casOstalo, casDodajal, casZrastel, casPobijal);
    povejCeNiSuhihCelic();
}

// Plants to be sown anywhere are lost while the lupa has no dry cell (a flat or
// drowned terrain). Told once for each dry-land list the terrain builds, and
// only after the step, so the step itself never waits on the user.
void CEcosystemSimulation::povejCeNiSuhihCelic() {
    if (!terrainData->nonWaterIndexes.empty() || terrainData->noDryLandReported)
        return;
    terrainData->noDryLandReported = true;
    arbo::showUserMessage(
        prevedi(QT_TRANSLATE_NOOP("ecosystem::CEcosystemSimulation", "Simulation")).toStdString(),
        prevedi(
            QT_TRANSLATE_NOOP(
                "ecosystem::CEcosystemSimulation",
                "The plant area has no dry land: no plant can be sown anywhere on it. New plants "
                "grow only beside the existing ones."))
            .toStdString());
}

void CEcosystemSimulation::simulateNextStepAndLog() {
    simulateNextStep();
    std::cout << entitiesStatistics.getLogText() << std::endl;
}

std::string CEcosystemSimulation::autoSave(int period, const std::string& folder) {
    // The period is -1 (off) or positive; 0 would divide by zero.
    if (period < 1 || simulationStepNr % period != 0)
        return std::string();
    std::string fileName = std::to_string(simulationStepNr) + ".sim";
    if (!folder.empty())
        fileName = folder + "/" + fileName;
    saveSimulation(fileName);
    return fileName;
}

void CEcosystemSimulation::dodajRastlineVrstam() {
    std::vector<int>& rojeni = entitiesStatistics.rojeniVKoraku;
    rojeni.assign(rastlinskeVrste.size(), 0);
    for (size_t v = 0; v < rastlinskeVrste.size(); ++v) {
        CVrstaRastlin& vrsta = rastlinskeVrste[v];
        const size_t prej = vrsta.ziviPrimerkiTeVrste.size();
        vrsta.dodajKomuliraneRastline(
            vrsta.stNovihRastlinNaSimulacijskiKorak * vrsta.komulacijaSemen, rastlinePoTerenu);
        rojeni[v] = int(vrsta.ziviPrimerkiTeVrste.size() - prej);
    }
}

void CEcosystemSimulation::zrastiVseRastlineInDolociMoci() {
    for (CVrstaRastlin& vrsta : rastlinskeVrste) {
        vrsta.komulacijaSemen = static_cast<float>(1.0 / vrsta.stNovihRastlinNaSimulacijskiKorak);
        for (CRastlina& rastlina : vrsta.ziviPrimerkiTeVrste) {
            if (rastlina.jeDominirana) {
                // A dominated plant does not grow and loses its penetration.
                const float manjsa = static_cast<float>(rastlina.prodornost - 1.0);
                rastlina.prodornost = manjsa > 0 ? manjsa : 0.0f;
            } else {
                zrastiRastlino(rastlina, vrsta);
            }
            rastlina.trenutnaStarost += 1;
        }
    }
}

void CEcosystemSimulation::zrastiRastlino(CRastlina& rastlina, CVrstaRastlin& rastlinskaVrsta) {
    povecajVelikostRastline(rastlina);
    rastlina.trenutniRadij =
        rastlina.trenutnaVelikost * rastlinskaVrsta.razmerjeMedVelikostjoInRadijemKrosnje;
    dolociMocRastline(rastlina);
    if (rastlina.trenutnaStarost >= rastlinskaVrsta.casZrelosti)
        rastlinskaVrsta.komulacijaSemen += rastlina.trenutnaMoc;
}

void CEcosystemSimulation::povecajVelikostRastline(CRastlina& rastlina) {
    const CVrstaRastlin& vrsta = *rastlina.vrstaRastline;
    const float ugodnost = izracunajUgodnostPogojev(rastlina);
    if (rastlina.trenutnaStarost < vrsta.casZrelosti)
        rastlina.trenutnaVelikost += ugodnost * vrsta.velikostObZrelosti / vrsta.casZrelosti;
    else if (rastlina.trenutnaStarost < vrsta.casStarosti)
        rastlina.trenutnaVelikost +=
            ugodnost * (1.0 - vrsta.velikostObZrelosti) / (vrsta.casStarosti - vrsta.casZrelosti);
}

void CEcosystemSimulation::dolociMocRastline(CRastlina& rastlina) {
    // Holds while inclination stays in 0..1 and skodljivostNaklona <= 1.
    assert(rastlina.prodornost >= 0 && "rastlina.prodornost >= 0");
    const float maxDozivetaMoc = static_cast<float>(rastlina.vrstaRastline->casSigurneSmrti) /
                                 static_cast<float>(najvecjaMoznaStarostRastline);
    rastlina.trenutnaMoc = maxDozivetaMoc * (rastlina.prodornost * rastlina.trenutnaVelikost);
}

float CEcosystemSimulation::izracunajUgodnostPogojev(CRastlina&) {
    return 1.0f;
}

void CEcosystemSimulation::pobijRastline() {
    // Old age and weakness take no draws and do not depend on the neighbours,
    // so the grid can know them before the first plant is decided.
    dominanceGrid.zgradi(rastlinskeVrste, CVrstaRastlin::maxStKvadratovNajdemRadijSoseda,
                         terrainData->stTockX, [this](CRastlina& rastlina) {
                             return lifeFactors.umreZaradiStarosti(rastlina) ||
                                    lifeFactors.umreZaradiSibkosti(rastlina);
                         });
    lifeFactors.dominanceGrid = &dominanceGrid;
    umrleVCelicah.clear();
    // The predicate reaches the simulation that steps, even when another one
    // was made (and perhaps destroyed) after it.
    myStaticPtr = this;
    QElapsedTimer odlocanje;
    odlocanje.start();
    // The life factors book each death under its cause; the species are
    // decided one after another, so the counters' growth is the species' share.
    statistics::CEntitiesStatistics& s = entitiesStatistics;
    s.umrliZaradiDominiranostiVKoraku.assign(rastlinskeVrste.size(), 0);
    s.umrliOstaloVKoraku.assign(rastlinskeVrste.size(), 0);
    for (size_t v = 0; v < rastlinskeVrste.size(); ++v) {
        const int dominiranostPrej = s.umrliZaradiDominiranosti, ostaloPrej = s.umrliOstalo;
        rastlinskeVrste[v].ziviPrimerkiTeVrste.remove_if(&CEcosystemSimulation::umreSedaj);
        s.umrliZaradiDominiranostiVKoraku[v] = s.umrliZaradiDominiranosti - dominiranostPrej;
        s.umrliOstaloVKoraku[v] = s.umrliOstalo - ostaloPrej;
    }
    casPobijanjaDominiranihRastlin = static_cast<int>(odlocanje.elapsed());
    lifeFactors.dominanceGrid = nullptr;
    // Keep each species' plants packed in memory; the cell index follows them.
    bool premaknjene = false;
    for (CVrstaRastlin& vrsta : rastlinskeVrste)
        premaknjene = vrsta.zgostiRastline() || premaknjene;
    if (premaknjene) {
        izprazniIndeksCelic();
        napolniIndeksCelic();
    } else {
        odstraniUmrleIzCelic();
    }
    umrleVCelicah.clear();
}

// Each dead plant's pointer leaves its cell; the others keep their order, as
// if each had been erased at the plant's death. Only the addresses are
// compared: the plants themselves no longer exist.
void CEcosystemSimulation::odstraniUmrleIzCelic() {
    std::sort(umrleVCelicah.begin(), umrleVCelicah.end());
    for (size_t i = 0; i < umrleVCelicah.size();) {
        size_t konec = i;
        while (konec < umrleVCelicah.size() && umrleVCelicah[konec].first == umrleVCelicah[i].first)
            ++konec;
        const auto prva = umrleVCelicah.begin() + i, zadnja = umrleVCelicah.begin() + konec;
        std::vector<CRastlina*>& celica = rastlinePoTerenu[umrleVCelicah[i].first];
        celica.erase(std::remove_if(celica.begin(), celica.end(),
                                    [&](CRastlina* r) {
                                        return std::binary_search(
                                            prva, zadnja,
                                            std::make_pair(umrleVCelicah[i].first, r));
                                    }),
                     celica.end());
        i = konec;
    }
}

// The time of these decisions is taken around the whole pass (pobijRastline):
// a clock read per plant would cost more than many of the decisions.
bool CEcosystemSimulation::umreSedaj(CRastlina& rastlina) {
    CEcosystemSimulation& simulacija = *myStaticPtr;
    const bool zMrezo = simulacija.lifeFactors.dominanceGrid != nullptr;
    if (zMrezo)
        simulacija.dominanceGrid.naslednjaRastlina();
    const bool umre = simulacija.lifeFactors.umreSedaj(rastlina);
    if (umre) {
        const int celica =
            rastlina.pozicijaMap2D.y * simulacija.terrainData->stTockX + rastlina.pozicijaMap2D.x;
        if (zMrezo) {
            simulacija.dominanceGrid.odstrani();
            simulacija.umrleVCelicah.emplace_back(celica, &rastlina);
        } else {
            std::vector<CRastlina*>& vCelici = simulacija.rastlinePoTerenu[celica];
            const auto it = std::find(vCelici.begin(), vCelici.end(), &rastlina);
            if (it != vCelici.end())
                vCelici.erase(it);
        }
    }
    return umre;
}

// ---- statistics ----

void CEcosystemSimulation::saveStatistics(int casOstalo, int casDodajal, int casZrastel,
                                          int casPobijal) {
    std::vector<int> stevilaRastlin;
    stevilaRastlin.reserve(rastlinskeVrste.size());
    for (const CVrstaRastlin& vrsta : rastlinskeVrste)
        stevilaRastlin.push_back(static_cast<int>(vrsta.ziviPrimerkiTeVrste.size()));
    entitiesStatistics.addLiveSpecies(stevilaRastlin, simulationStepNr);
    entitiesStatistics.saveSimulationRutinesTimings(simulationStepNr, casOstalo, casDodajal,
                                                    casZrastel, casPobijal,
                                                    casPobijanjaDominiranihRastlin);
}

// ---- simulation file ----

namespace {
// Written, a piece at a time, to a temporary file that replaces the old one
// only when complete.
template <typename Vsebina> bool zapisiCelo(const std::string& fileName, const Vsebina& vsebina) {
    QSaveFile datoteka(QString::fromStdString(fileName));
    if (!datoteka.open(QIODevice::WriteOnly))
        return false;
    CSimulationFile::Pisanje pisanje(datoteka);
    vsebina(pisanje);
    return pisanje.odlozi(true) && datoteka.commit();
}
} // namespace

void CEcosystemSimulation::saveSimulation(const std::string& fileName) {
    if (!zapisiCelo(fileName, [this](CSimulationFile::Pisanje& p) { zapisiSimulacijo(p); })) {
        sporociNapako(QT_TRANSLATE_NOOP("ecosystem::CEcosystemSimulation",
                                        "Could not save simulation file."));
        return;
    }
    std::cout << "Simulation @ step " << simulationStepNr << "successfouly saved" << std::endl;
}

void CEcosystemSimulation::zapisiSimulacijo(CSimulationFile::Pisanje& p) {
    std::ostream& izhod = p.izhod();
    izhod << simulationStepNr << '\n' << rastlinskeVrste.size() << '\n';
    for (const CVrstaRastlin& vrsta : rastlinskeVrste) {
        izhod << vrsta.ziviPrimerkiTeVrste.size() << '\n';
        for (const CRastlina& rastlina : vrsta.ziviPrimerkiTeVrste) {
            CSimulationFile::zapisiRastlino(izhod, rastlina);
            izhod << '\n';
            p.odlozi();
        }
    }
    for (const CVrstaRastlin& vrsta : rastlinskeVrste)
        izhod << vrsta.komulacijaPrihajajocihRastlin << '\t';
    for (unsigned long long seed : getRandomGeneratorSeeds())
        izhod << seed << '\t';
    izhod << '\n'
          << terrainData->lupaXmin << '\t' << terrainData->lupaXmax << '\t' << terrainData->lupaYmin
          << '\t' << terrainData->lupaYmax << '\n';
}

void CEcosystemSimulation::loadSimulation(const std::string& filename) {
    const int stTockX = terrainData ? terrainData->stTockX : 0;
    const int stTockY = terrainData ? terrainData->stTockY : 0;
    CSimulationFile vsebina;
    switch (vsebina.preberi(filename, int(rastlinskeVrste.size()), stTockX, stTockY)) {
    case CSimulationFile::Izid::Prebrano:
        break;
    case CSimulationFile::Izid::NiOdprta:
        // What cannot be read has no species, which never matches a running simulation.
        if (!rastlinskeVrste.empty())
            std::cerr << "Number of species size mismatch!" << std::endl;
        sporociNapako(QT_TRANSLATE_NOOP("ecosystem::CEcosystemSimulation",
                                        "Could not open simulation file."));
        return;
    case CSimulationFile::Izid::NapacnoSteviloVrst:
        std::cerr << "Number of species size mismatch!" << std::endl;
        sporociNapako(QT_TRANSLATE_NOOP("ecosystem::CEcosystemSimulation",
                                        "The simulation file has another number of species."));
        return;
    case CSimulationFile::Izid::Pokvarjena:
        sporociNapako(
            QT_TRANSLATE_NOOP("ecosystem::CEcosystemSimulation", "The simulation file is damaged."),
            vsebina.razlog);
        return;
    }
    prevzemiSimulacijo(vsebina);
}

void CEcosystemSimulation::prevzemiSimulacijo(const CSimulationFile& vsebina) {
    simulationStepNr = vsebina.simulationStepNr;
    int stVsehRastlin = 0;
    izprazniIndeksCelic();
    for (size_t v = 0; v < rastlinskeVrste.size(); ++v) {
        CVrstaRastlin& vrsta = rastlinskeVrste[v];
        const std::vector<CSimulationFile::Rastlina>& rastline = vsebina.rastlineVrst[v];
        stVsehRastlin += int(rastline.size());
        vrsta.ziviPrimerkiTeVrste.clear();
        for (const CSimulationFile::Rastlina& r : rastline)
            obnoviRastlino(vrsta, r);
    }
    for (size_t v = 0; v < rastlinskeVrste.size(); ++v)
        rastlinskeVrste[v].komulacijaPrihajajocihRastlin = vsebina.komulacijePrihajajocihRastlin[v];
    setRandomGeneratorSeeds(vsebina.seeds);
    terrainData->lupaXmin = vsebina.lupaXmin;
    terrainData->lupaXmax = vsebina.lupaXmax;
    terrainData->lupaYmin = vsebina.lupaYmin;
    terrainData->lupaYmax = vsebina.lupaYmax;
    napolniIndeksCelic();
    std::cout << "Simulation @ step " << simulationStepNr << " with " << stVsehRastlin
              << " plants successfouly loaded" << std::endl;
    saveStatistics(0, 0, 0, 0);
}

// A plant at the end of its species' list: the constructor samples the cell,
// draws and takes an id; the stored state then wins.
CRastlina& CEcosystemSimulation::obnoviRastlino(CVrstaRastlin& vrsta,
                                                const CSimulationFile::Rastlina& r) {
    CRastlina& rastlina = vrsta.ziviPrimerkiTeVrste.emplace_back(
        vrsta, Tocka2i(r.x, r.y), arbo::Tocka(r.pozicijaX, r.pozicijaY, r.pozicijaZ));
    rastlina.id = r.id;
    rastlina.trenutnaStarost = r.trenutnaStarost;
    rastlina.trenutnaVelikost = r.trenutnaVelikost;
    rastlina.trenutniRadij = r.trenutniRadij;
    rastlina.prodornost = r.prodornost;
    rastlina.trenutnaMoc = r.trenutnaMoc;
    rastlina.strminaTukaj = r.strminaTukaj;
    rastlina.vlaznostTukaj = r.vlaznostTukaj;
    rastlina.sonceTukaj = r.sonceTukaj;
    rastlina.veterTukaj = r.veterTukaj;
    rastlina.visinaTukajNormNadVodo = r.visinaTukajNormNadVodo;
    rastlina.umreNaKoraku = r.umreNaKoraku;
    return rastlina;
}

// ---- exact state ----

bool CEcosystemSimulation::saveState(const std::string& fileName, const std::string& terrainName) {
    if (zapisiCelo(fileName, [&](CSimulationFile::Pisanje& p) {
            CSimulationState::zapisi(p, *this, terrainName);
        }))
        return true;
    sporociNapako(
        QT_TRANSLATE_NOOP("ecosystem::CEcosystemSimulation", "Could not save the state file."));
    return false;
}

bool CEcosystemSimulation::loadState(const std::string& fileName) {
    CSimulationState stanje;
    switch (stanje.preberi(fileName, int(rastlinskeVrste.size()), *terrainData)) {
    case CSimulationState::Izid::Prebrano:
        prevzemiStanje(stanje);
        return true;
    case CSimulationState::Izid::NiOdprta:
        sporociNapako(
            QT_TRANSLATE_NOOP("ecosystem::CEcosystemSimulation", "Could not open the state file."));
        return false;
    case CSimulationState::Izid::DrugTeren:
        sporociNapako(QT_TRANSLATE_NOOP("ecosystem::CEcosystemSimulation",
                                        "The state file was saved on another terrain:"),
                      stanje.imeTerena);
        return false;
    case CSimulationState::Izid::Pokvarjena:
        break;
    }
    sporociNapako(
        QT_TRANSLATE_NOOP("ecosystem::CEcosystemSimulation", "The state file is damaged."),
        stanje.razlog);
    return false;
}

void CEcosystemSimulation::prevzemiStanje(const CSimulationState& stanje) {
    simulationStepNr = stanje.simulationStepNr;
    izprazniIndeksCelic();
    for (size_t v = 0; v < rastlinskeVrste.size(); ++v) {
        CVrstaRastlin& vrsta = rastlinskeVrste[v];
        vrsta.ziviPrimerkiTeVrste.clear();
        for (const CSimulationState::Rastlina& r : stanje.rastlineVrst[v])
            obnoviRastlino(vrsta, r).jeDominirana = r.jeDominirana;
        vrsta.komulacijaPrihajajocihRastlin = stanje.komulacijePrihajajocihRastlin[v];
        vrsta.komulacijaSemen = stanje.komulacijeSemen[v];
    }
    // After the plants: their construction drew from the streams and took ids.
    setRandomGeneratorSeeds(stanje.seeds);
    CRastlina::lastID = stanje.lastID;
    prevzemiTerenInStatistiko(stanje);
    napolniIndeksCelic();
}

// The dry-land list as the saving run had it, which may be of another lupa
// than the plant area (a loaded simulation file brings its lupa only).
void CEcosystemSimulation::prevzemiTerenInStatistiko(const CSimulationState& stanje) {
    data::CTerrainData& t = *terrainData;
    t.lupaXmin = stanje.lupaSuhihCelic[0];
    t.lupaXmax = stanje.lupaSuhihCelic[1];
    t.lupaYmin = stanje.lupaSuhihCelic[2];
    t.lupaYmax = stanje.lupaSuhihCelic[3];
    t.buildNonwaterIndexes();
    t.noDryLandReported = stanje.brezSuhihSporoceno;
    t.lupaXmin = stanje.lupa[0];
    t.lupaXmax = stanje.lupa[1];
    t.lupaYmin = stanje.lupa[2];
    t.lupaYmax = stanje.lupa[3];
    statistics::CEntitiesStatistics& s = entitiesStatistics;
    s.umrliZaradiDominiranosti = stanje.umrliZaradiDominiranosti;
    s.umrliOstalo = stanje.umrliOstalo;
    s.umrliSkupaj = stanje.umrliSkupaj;
    int zivih = 0;
    for (const CVrstaRastlin& vrsta : rastlinskeVrste)
        zivih += int(vrsta.ziviPrimerkiTeVrste.size());
    s.setStTrenutnoZivih(zivih);
}

} // namespace ecosystem
