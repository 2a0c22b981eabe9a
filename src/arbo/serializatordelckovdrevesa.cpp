#include "arbo/serializatordelckovdrevesa.h"

#include "arbo/matrikasklad.h"

#include <filesystem>

#include <locale>

namespace arbo {

SerializatorDelckovDrevesa::SerializatorDelckovDrevesa() {
    presekSpodaj.stTock = 4;
    presekZgoraj.stTock = 4;
}

// The records go to a file of their own beside the target, which replaces the
// target only once every record is written: a failed export leaves an older
// file of that name intact.
void SerializatorDelckovDrevesa::zacniSerializacijo(const std::string& strFileName, int stTock) {
    if (izhod.is_open())
        izhod.close();
    izhod.clear();
    cilj = strFileName;
    izhod.open(cilj + ".part", std::ios::out | std::ios::trunc);
    izhod.imbue(std::locale::classic());
    this->stTock = stTock;
    presekSpodaj.stTock = stTock;
    presekZgoraj.stTock = stTock;
}

bool SerializatorDelckovDrevesa::koncajSerializacijo() {
    const std::string zacasna = cilj + ".part";
    const bool ustvarjena = izhod.is_open(); // only a file made here is removed
    bool zapisano = ustvarjena;
    if (zapisano) {
        izhod.flush();
        zapisano = bool(izhod);
        izhod.close();
        zapisano = zapisano && !izhod.fail();
    }
    std::error_code napaka;
    if (zapisano)
        std::filesystem::rename(zacasna, cilj, napaka);
    if (!zapisano || napaka) {
        if (ustvarjena)
            std::filesystem::remove(zacasna, napaka);
        neuspelo = cilj;
        return false;
    }
    return true;
}

void SerializatorDelckovDrevesa::serializirajVejo(double visina, double sirinaSpodaj,
                                                  double sirinaZgoraj, Presek* presekSpodaj,
                                                  int idVeje) {
    izhod << "B " << idVeje << '\n';
    if (presekSpodaj) {
        this->presekSpodaj = *presekSpodaj;
    } else {
        this->presekSpodaj.stTock = stTock;
        for (int k = 0; k < stTock; ++k)
            getPoint(this->presekSpodaj.tocke[k], 0, sirinaSpodaj, sirinaSpodaj,
                     360.0 / stTock * k);
    }
    presekZgoraj.stTock = stTock;
    for (int k = 0; k < stTock; ++k)
        getPoint(presekZgoraj.tocke[k], visina, sirinaZgoraj, sirinaZgoraj, 360.0 / stTock * k);
    const int n = this->presekSpodaj.stTock;
    for (int i = 0; i < n; ++i) {
        const int j = (i + 1) % n;
        addPointToLWO(this->presekSpodaj.tocke[j]);
        addPointToLWO(presekZgoraj.tocke[j]);
        addPointToLWO(presekZgoraj.tocke[i]);
        addPointToLWO(this->presekSpodaj.tocke[i]);
    }
}

void SerializatorDelckovDrevesa::serializirajList(double stranica, int idVeje) {
    izhod << "L " << idVeje << '\n';
    for (int k = 0; k < 4; ++k) {
        Tocka t;
        getPoint(t, 0, stranica, 0, 90.0 * k);
        addPointToLWO(t);
    }
}

Presek SerializatorDelckovDrevesa::getPresekZgoraj() {
    return presekZgoraj;
}

void SerializatorDelckovDrevesa::getPoint(Tocka& tocka, double pomikY, double sirina,
                                          double sirinaZ, double kot) {
    MatrikaSklad gl;
    gl.naGl = true;
    MatrikaSklad& s = sklad ? *sklad : gl;
    s.push();
    if (pomikY != 0)
        s.translate(0, float(pomikY), 0);
    s.rotate(float(kot), 0, 1, 0);
    s.translate(float(sirina), 0, float(sirinaZ));
    const Matrika m = s.vrh();
    tocka = Tocka(m.m[12], m.m[13], m.m[14]);
    s.pop();
}

void SerializatorDelckovDrevesa::addPointToLWO(Tocka& tocka) {
    izhod << tocka.x << ' ' << tocka.y << ' ' << tocka.z << '\n';
}

} // namespace arbo
