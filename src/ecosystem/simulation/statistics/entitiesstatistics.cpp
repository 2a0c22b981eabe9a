#include "ecosystem/simulation/statistics/entitiesstatistics.h"

#include "arbo/krivulja.h"

#include <sstream>

namespace ecosystem::statistics {

CEntitiesStatistics::CEntitiesStatistics()
    : stTrenutnoZivih(0), umrliZaradiDominiranosti(0), umrliOstalo(0), umrliSkupaj(0),
      sumRenderTime(0), sumSimmTime(0) {}

CEntitiesStatistics::~CEntitiesStatistics() {
    for (arbo::Krivulja* graf : grafiStevilaRastlin)
        delete graf;
    for (arbo::Krivulja* graf : grafiStevilaUpodobljenihRastlin)
        delete graf;
}

void CEntitiesStatistics::setStTrenutnoZivih(int stTrenutnoZivih) {
    this->stTrenutnoZivih = stTrenutnoZivih;
}

void CEntitiesStatistics::dodajSmrtZaradiDominiranosti() {
    umrliZaradiDominiranosti += 1;
    umrliSkupaj += 1;
}

void CEntitiesStatistics::dodajSmrtOstalo() {
    umrliOstalo += 1;
    umrliSkupaj += 1;
}

// Point x is the running number of the point in its curve, y the count.
void CEntitiesStatistics::dodajTocke(std::vector<arbo::Krivulja*>& grafi,
                                     const std::vector<int>& stevilaRastlin) {
    while (grafi.size() < stevilaRastlin.size())
        grafi.push_back(new arbo::Krivulja());
    for (size_t i = 0; i < stevilaRastlin.size(); ++i) {
        arbo::Krivulja& graf = *grafi[i];
        graf.tocke.push_back(
            arbo::Tocka2D(static_cast<double>(graf.tocke.size()), stevilaRastlin[i]));
    }
}

void CEntitiesStatistics::addLiveSpecies(const std::vector<int>& stevilaRastlin) {
    addLiveSpecies(stevilaRastlin, korakiZivih.empty() ? 1 : korakiZivih.back() + 1);
}

void CEntitiesStatistics::addLiveSpecies(const std::vector<int>& stevilaRastlin, int stepNr) {
    dodajTocke(grafiStevilaRastlin, stevilaRastlin);
    // Only a call that adds points books a step, so the steps keep in line with them.
    if (!stevilaRastlin.empty())
        korakiZivih.push_back(stepNr);
    int vseSkupaj = 0;
    for (int stevilo : stevilaRastlin)
        vseSkupaj += stevilo;
    setStTrenutnoZivih(vseSkupaj);
}

void CEntitiesStatistics::addRenderedSpecies(const std::vector<int>& stevilaRastlin) {
    dodajTocke(grafiStevilaUpodobljenihRastlin, stevilaRastlin);
    // A frame without species (drawn before the vegetation exists) adds no
    // point and so books nothing: frame f is point f of every drawn curve.
    if (!stevilaRastlin.empty())
        korakiUpodobitev.push_back(int(korakiZivih.size()));
}

void CEntitiesStatistics::saveSimulationRutinesTimings(int stepNr, int casOstalo, int casDodajal,
                                                       int casZrastel, int casPobijal,
                                                       int casPobijanjaDominiranihRastlin) {
    sumRenderTime += casOstalo;
    sumSimmTime += casDodajal + casZrastel + casPobijal;
    std::ostringstream log;
    log << "@" << stepNr << ":"
        << " time(render_all)=" << sumRenderTime << " time(simm_all)=" << sumSimmTime << " || "
        << " time(render)=" << casOstalo << " time(dodaj)=" << casDodajal
        << " time(zrasti)=" << casZrastel << " time(pobij)=" << casPobijal
        << " time(pobij_dominir)=" << casPobijanjaDominiranihRastlin << " || "
        << " nrPlants=" << stTrenutnoZivih;
    logText = log.str();
}

std::vector<arbo::Krivulja*>* CEntitiesStatistics::getGrafiStevilaRastlin() {
    return &grafiStevilaRastlin;
}

std::vector<arbo::Krivulja*>* CEntitiesStatistics::getGrafiStevilaUpodobljenihRastlin() {
    return &grafiStevilaUpodobljenihRastlin;
}

std::string CEntitiesStatistics::getLogText() {
    return logText;
}

} // namespace ecosystem::statistics
