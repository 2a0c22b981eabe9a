#pragma once

#include "arbo/presek.h"
#include "arbo/tocka.h"

#include <fstream>
#include <string>

namespace arbo {

class MatrikaSklad;

// Writes the geometry of one drawn frame to a ".crs" file: a "B id" record of
// 4 x ring-size vertices per stem segment and an "L id" record of 4 vertices
// per leaf, positions taken from the current model-view matrix.
class SerializatorDelckovDrevesa {
public:
    bool exportingToPoints = false;
    int stTock = 4;
    Presek presekSpodaj;
    Presek presekZgoraj;
    std::ofstream izhod;
    std::string cilj; // the file the records replace once all are written
    // The last file that could not be written, until the caller has told the
    // user: the file is finished inside a frame being drawn, where no box may
    // open (its event loop would draw frames inside this one).
    std::string neuspelo;
    // Where the current matrix is read; null reads OpenGL's model-view matrix.
    MatrikaSklad* sklad = nullptr;

    SerializatorDelckovDrevesa();

    void zacniSerializacijo(const std::string& strFileName, int stTock);
    // Puts the finished file in place; false (and neuspelo set) when it failed.
    bool koncajSerializacijo();
    void serializirajVejo(double visina, double sirinaSpodaj, double sirinaZgoraj,
                          Presek* presekSpodaj, int idVeje);
    void serializirajList(double stranica, int idVeje);
    Presek getPresekZgoraj();
    void getPoint(Tocka& tocka, double pomikY, double sirina, double sirinaZ, double kot);
    void addPointToLWO(Tocka& tocka);
};

} // namespace arbo
