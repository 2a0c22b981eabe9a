#pragma once

#include "arbo/krivulja.h"

#include <iosfwd>
#include <string>

namespace arbo {

class BralecStevil;

// The parameter set a tree is grown from: scalars, texture names, twelve
// distribution curves and the six 15 x 50 tables computed from them.
class ParametriDrevesa {
public:
    static constexpr int stG = 15; // branching orders in the tables
    static constexpr int stW = 50; // depths in the tables

    // What a parameter file may hold: the ranges of the advanced properties'
    // spin boxes, so that every tree made there can be saved and loaded again.
    // The species collection uses at most 700 strands, 14 leaves a twig and 4
    // vertices a curve; the defaults are 1000 strands and 5 leaves. However many
    // strands and leaves a file asks for, one frame grows at most the stem
    // segments and leaves that 10 000 strands with 30 leaves a twig can give
    // (DelckiDrevesa::najvecSegmentov, najvecListov).
    static constexpr int najvecZil = 100000;        // strands in the trunk base, from 0
    static constexpr int najvecListov = 1000;       // leaf density: leaves of a twig, from 0
    static constexpr int najvecTockKrivulje = 1000; // vertices of a curve, from 2
    // Every other number of the file (trunk height, thickness per strand,
    // angles, gravicentralism, leaf size, wind speed, curve vertices) lies
    // within plus or minus this; the leaf type is 0 to 4.
    static constexpr double najvecjaVrednost = 1e6;

    int stVsehZil;
    double dolzinaDebla;
    float sirinaSteblaNaZilo;
    double phyllotaxisAngle;
    double verjetnostVejitve[stG][stW];
    double kotVejitve[stG][stW];
    double charMax[stG][stW];
    double charMin[stG][stW];
    double lengthScaling[stG][stW];
    double graviCentralizem;
    double graviMorfizem[stG][stW];
    bool listi;
    float listSize;
    int gostotaListov;
    int tipListov;
    double windSpeed;
    double windSpeedNodirect;
    std::string barkTextureFileName;
    std::string leafTextureFileName;
    Krivulja verjetnostiVejitveG, verjetnostiVejitveW;
    Krivulja kotVejitveG, kotVejitveW;
    Krivulja minCharacteristicLengthG, minCharacteristicLengthW;
    Krivulja maxCharacteristicLengthG, maxCharacteristicLengthW;
    Krivulja lengthScalingG, lengthScalingW;
    Krivulja gravimorphismImpactG, gravimorphismImpactW;

    ParametriDrevesa();
    ParametriDrevesa(const ParametriDrevesa&) = default;
    ParametriDrevesa& operator=(const ParametriDrevesa&) = default;

    void defaultTreeParams();
    // The value of a curve at x (needs no parameter set: the curve designer's
    // readout uses it too).
    static double interpoliraj(double x, const Krivulja* parametri);
    void preracunajParametra(int idParametra);
    void recalculateRelativeParams();

    bool saveParameters(std::string fileName);
    // False, with the set unchanged, for a file that cannot be read, is
    // malformed or holds a value beyond the limits above; razlog then says why
    // (in the user's language), for the caller's message.
    bool loadParameters(std::string fileName, std::string* razlog = nullptr);
    void shraniParameter(std::ostream& f, const Krivulja& pk);
    // One curve block; false (razlog set) for a bad count or vertex.
    bool naloziParameter(BralecStevil& f, Krivulja& pk, int stKrivulje, std::string& razlog);

private:
    Krivulja* krivulja(int i); // the twelve curves in file order
    bool beriVse(BralecStevil& f, std::string& razlog);
    bool tabeleSoKoncne() const;
};

} // namespace arbo
