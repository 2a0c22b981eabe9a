#include "ecosystem/simulation/simulationstate.h"

#include "arbo/bralecstevil.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/ecosystemsimulation.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>

namespace ecosystem {

using simulationEntities::CRastlina;
using simulationEntities::CVrstaRastlin;

namespace {
QString prevedi(const char* besedilo) {
    return QCoreApplication::translate("ecosystem::CSimulationState", besedilo);
}

const int najvecInt = std::numeric_limits<int>::max();
const int najdaljseIme = 4096; // characters of the terrain's name

// FNV-1a over the bytes of a value.
template <typename T> void dodaj(unsigned long long& vsota, const T& vrednost) {
    unsigned char bajti[sizeof(T)];
    std::memcpy(bajti, &vrednost, sizeof(T));
    for (unsigned char b : bajti)
        vsota = (vsota ^ b) * 0x100000001b3ULL;
}

template <typename T> void zapisiVrsto(std::ostream& o, const T& vrednosti) {
    for (size_t i = 0; i < std::size(vrednosti); ++i)
        o << (i ? "\t" : "") << vrednosti[i];
    o << '\n';
}
} // namespace

unsigned long long CSimulationState::vsota(const data::CTerrainData& teren) {
    unsigned long long v = 0xcbf29ce484222325ULL;
    dodaj(v, teren.stTockX);
    dodaj(v, teren.stTockY);
    dodaj(v, teren.waterHeight);
    for (const auto& tocka : teren.pTerrainVertexData) {
        dodaj(v, tocka.pos.x);
        dodaj(v, tocka.pos.y);
        dodaj(v, tocka.pos.z);
    }
    return v;
}

void CSimulationState::zapisi(CSimulationFile::Pisanje& p, CEcosystemSimulation& s,
                              const std::string& imeTerena) {
    const data::CTerrainData& t = *s.terrainData;
    std::ostream& o = p.izhod();
    o.precision(std::numeric_limits<float>::max_digits10);
    std::string ime = imeTerena.substr(0, najdaljseIme);
    std::replace(ime.begin(), ime.end(), '\n', ' ');
    o << glava << '\n' << ime << '\n' << t.stTockX << '\t' << t.stTockY << '\t' << vsota(t) << '\n';
    o << s.simulationStepNr << '\n' << s.rastlinskeVrste.size() << '\n';
    std::vector<float> prihajajoce, semena;
    for (const CVrstaRastlin& vrsta : s.rastlinskeVrste) {
        o << vrsta.ziviPrimerkiTeVrste.size() << '\n';
        for (const CRastlina& r : vrsta.ziviPrimerkiTeVrste) {
            CSimulationFile::zapisiRastlino(o, r);
            o << '\t' << (r.jeDominirana ? 1 : 0) << '\n';
            p.odlozi();
        }
        prihajajoce.push_back(vrsta.komulacijaPrihajajocihRastlin);
        semena.push_back(vrsta.komulacijaSemen);
    }
    zapisiVrsto(o, prihajajoce);
    zapisiVrsto(o, semena);
    zapisiVrsto(o, s.getRandomGeneratorSeeds());
    zapisiVrsto(o, std::vector<int>{t.lupaXmin, t.lupaXmax, t.lupaYmin, t.lupaYmax});
    o << t.nonWaterLupa[0] << '\t' << t.nonWaterLupa[1] << '\t' << t.nonWaterLupa[2] << '\t'
      << t.nonWaterLupa[3] << '\t' << (t.noDryLandReported ? 1 : 0) << '\n';
    const statistics::CEntitiesStatistics& st = s.entitiesStatistics;
    o << CRastlina::lastID << '\t' << st.umrliZaradiDominiranosti << '\t' << st.umrliOstalo << '\t'
      << st.umrliSkupaj << '\n';
}

// Only a regular file is read, a piece at a time (see CSimulationFile).
CSimulationState::Izid CSimulationState::preberi(const std::string& fileName, int stVrst,
                                                 const data::CTerrainData& teren) {
    QFile datoteka(QString::fromStdString(fileName));
    if (!QFileInfo(datoteka).isFile() || !datoteka.open(QIODevice::ReadOnly))
        return Izid::NiOdprta;
    arbo::BralecStevil bralec(datoteka);
    Branje b(bralec, razlog);
    if (!preberiTeren(b))
        return Izid::Pokvarjena;
    if (stTockX != teren.stTockX || stTockY != teren.stTockY || vsotaTerena != vsota(teren))
        return Izid::DrugTeren;
    if (!preberiRastline(b, stVrst) || !preberiOstalo(b, stVrst))
        return Izid::Pokvarjena;
    if (!bralec.naKoncu()) {
        std::string ostanek;
        bralec.beriVrstico(ostanek, 0); // for the line number only
        b.napaka(prevedi(QT_TRANSLATE_NOOP("ecosystem::CSimulationState",
                                           "Line %1: more follows the last value."))
                     .arg(b.vrstica()));
        return Izid::Pokvarjena;
    }
    return Izid::Prebrano;
}

bool CSimulationState::preberiTeren(Branje& b) {
    std::string prva;
    if (!b.bralec().beriVrstico(prva, 64) || prva != glava)
        return b.napaka(prevedi(QT_TRANSLATE_NOOP("ecosystem::CSimulationState",
                                                  "Line 1: this is not a state file of "
                                                  "virela-sim.")));
    if (!b.bralec().beriVrstico(imeTerena, najdaljseIme))
        return b.napaka(prevedi(
            QT_TRANSLATE_NOOP("ecosystem::CSimulationState", "Line 2: no name of the terrain.")));
    const char* velikost = QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "grid size");
    return b.beri(stTockX, velikost) && b.beri(stTockY, velikost) &&
           b.beri(vsotaTerena,
                  QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "checksum of the terrain"));
}

bool CSimulationState::preberiRastline(Branje& b, int stVrst) {
    int steviloVrst = 0;
    if (!b.beri(simulationStepNr, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "step number"), 0,
                CSimulationFile::najvecjiKorak) ||
        !b.beri(steviloVrst, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "number of species"),
                stVrst, stVrst))
        return false;
    rastlineVrst.assign(stVrst, {});
    int vseh = 0;
    for (std::vector<Rastlina>& rastline : rastlineVrst) {
        int stRastlin = 0;
        if (!b.beri(stRastlin, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "number of plants"),
                    0, CSimulationFile::najvecRastlin - vseh))
            return false;
        vseh += stRastlin;
        rastline.reserve(std::min(stRastlin, 4096));
        for (int i = 0; i < stRastlin; ++i) {
            Rastlina r;
            if (!CSimulationFile::preberiRastlino(b, stTockX, stTockY, r) ||
                !b.beri(r.jeDominirana,
                        QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "dominated flag")))
                return false;
            rastline.push_back(r);
        }
    }
    return true;
}

bool CSimulationState::preberiOstalo(Branje& b, int stVrst) {
    komulacijePrihajajocihRastlin.assign(stVrst, 0.0f);
    komulacijeSemen.assign(stVrst, 0.0f);
    seeds.assign(13, 0);
    for (float& k : komulacijePrihajajocihRastlin)
        if (!b.beri(k, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "number of plants to sow"),
                    0.0f, CSimulationFile::najvecPrihajajocih))
            return false;
    for (float& k : komulacijeSemen)
        if (!b.beri(k, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "seed count"), 0.0f,
                    najvecjaKomulacijaSemen))
            return false;
    for (unsigned long long& seme : seeds)
        if (!b.beri(seme, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "random stream state")))
            return false;
    const char* stevec = QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "count");
    return CSimulationFile::preberiLupo(b, stTockX, stTockY, lupa) &&
           CSimulationFile::preberiLupo(b, stTockX, stTockY, lupaSuhihCelic) &&
           b.beri(brezSuhihSporoceno,
                  QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "dry-land flag")) &&
           b.beri(lastID, QT_TRANSLATE_NOOP("ecosystem::CSimulationFile", "plant number"), 0,
                  najvecInt) &&
           b.beri(umrliZaradiDominiranosti, stevec, 0, najvecInt) &&
           b.beri(umrliOstalo, stevec, 0, najvecInt) && b.beri(umrliSkupaj, stevec, 0, najvecInt);
}

} // namespace ecosystem
