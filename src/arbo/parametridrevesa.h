#pragma once

#include "arbo/krivulja.h"

#include <iosfwd>
#include <string>

namespace arbo {

// The parameter set a tree is grown from: scalars, texture names, twelve
// distribution curves and the six 15 x 50 tables computed from them.
class ParametriDrevesa {
public:
    static constexpr int stG = 15; // branching orders in the tables
    static constexpr int stW = 50; // depths in the tables

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
    bool loadParameters(std::string fileName);
    void shraniParameter(std::ostream& f, const Krivulja& pk);
    void naloziParameter(std::istream& f, Krivulja& pk);

private:
    Krivulja* krivulja(int i); // the twelve curves in file order
    bool beriVse(std::istream& f);
};

} // namespace arbo
