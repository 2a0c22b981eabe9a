#pragma once

// Whether two tree parameter sets are the same in every field: scalars, names,
// curves and the six tables, bit for bit.

#include "arbo/parametridrevesa.h"

#include <cstring>

namespace testparametri {

inline bool enakeKrivulje(const arbo::Krivulja& a, const arbo::Krivulja& b) {
    if (a.tocke.size() != b.tocke.size())
        return false;
    for (size_t i = 0; i < a.tocke.size(); ++i)
        if (a.tocke[i].x != b.tocke[i].x || a.tocke[i].y != b.tocke[i].y)
            return false;
    return true;
}

// The six tables derived from the curves, bit for bit.
inline bool enakeTabele(const arbo::ParametriDrevesa& a, const arbo::ParametriDrevesa& b) {
    using P = arbo::ParametriDrevesa;
    const double(P::*tabele[6])[P::stG][P::stW] = {&P::verjetnostVejitve, &P::kotVejitve,
                                                   &P::charMax,           &P::charMin,
                                                   &P::lengthScaling,     &P::graviMorfizem};
    for (auto t : tabele)
        if (std::memcmp(a.*t, b.*t, sizeof(a.*t)) != 0)
            return false;
    return true;
}

inline bool enaki(const arbo::ParametriDrevesa& a, const arbo::ParametriDrevesa& b) {
    using P = arbo::ParametriDrevesa;
    const arbo::Krivulja P::*k[12] = {&P::verjetnostiVejitveG,
                                      &P::verjetnostiVejitveW,
                                      &P::kotVejitveG,
                                      &P::kotVejitveW,
                                      &P::minCharacteristicLengthG,
                                      &P::minCharacteristicLengthW,
                                      &P::maxCharacteristicLengthG,
                                      &P::maxCharacteristicLengthW,
                                      &P::lengthScalingG,
                                      &P::lengthScalingW,
                                      &P::gravimorphismImpactG,
                                      &P::gravimorphismImpactW};
    for (auto c : k)
        if (!enakeKrivulje(a.*c, b.*c))
            return false;
    return enakeTabele(a, b) && a.stVsehZil == b.stVsehZil && a.dolzinaDebla == b.dolzinaDebla &&
           a.sirinaSteblaNaZilo == b.sirinaSteblaNaZilo &&
           a.phyllotaxisAngle == b.phyllotaxisAngle && a.graviCentralizem == b.graviCentralizem &&
           a.listi == b.listi && a.listSize == b.listSize && a.gostotaListov == b.gostotaListov &&
           a.tipListov == b.tipListov && a.windSpeed == b.windSpeed &&
           a.windSpeedNodirect == b.windSpeedNodirect &&
           a.barkTextureFileName == b.barkTextureFileName &&
           a.leafTextureFileName == b.leafTextureFileName;
}

} // namespace testparametri
