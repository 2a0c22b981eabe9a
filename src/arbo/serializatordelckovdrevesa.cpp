#include "arbo/serializatordelckovdrevesa.h"

#include "arbo/matrikasklad.h"

#include <locale>

namespace arbo {

SerializatorDelckovDrevesa::SerializatorDelckovDrevesa() {
    presekSpodaj.stTock = 4;
    presekZgoraj.stTock = 4;
}

// A file that cannot be created is not reported: the records are then lost.
void SerializatorDelckovDrevesa::zacniSerializacijo(const std::string& strFileName, int stTock) {
    if (izhod.is_open())
        izhod.close();
    izhod.clear();
    izhod.open(strFileName, std::ios::out | std::ios::trunc);
    izhod.imbue(std::locale::classic());
    this->stTock = stTock;
    presekSpodaj.stTock = stTock;
    presekZgoraj.stTock = stTock;
}

void SerializatorDelckovDrevesa::koncajSerializacijo() {
    if (izhod.is_open())
        izhod.close();
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
