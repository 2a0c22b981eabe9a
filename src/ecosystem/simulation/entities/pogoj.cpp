#include "ecosystem/simulation/entities/pogoj.h"

#include "ecosystem/simulation/randomgenerator.h"

#include <cmath>

namespace ecosystem::simulationEntities {

CPogoj::CPogoj(float potreba, float toleriranaSprememba, float verjetnostSmrtiObNeugodnosti,
               float slabVplivNaHitrostRasti)
    : potreba(potreba), toleriranaSprememba(toleriranaSprememba),
      verjetnostSmrtiObNeugodnosti(verjetnostSmrtiObNeugodnosti),
      slabVplivNaHitrostRasti(slabVplivNaHitrostRasti) {}

float CPogoj::getFaktorRasti(float pogojTukaj) {
    const float odstopanje = potreba - pogojTukaj;
    if (odstopanje <= toleriranaSprememba)
        return 1.0f; // a value above the need never slows growth
    const float vpliv = std::fabs(odstopanje) * slabVplivNaHitrostRasti;
    if (vpliv < 1.0f)
        return 0.0f;
    return 1.0f - vpliv;
}

bool CPogoj::umreZaradiNeugodnegaPogoja(unsigned long long& randomSmrtiZaradiNeugodnegaPogoja,
                                        float pogojTukaj) {
    const float odstopanjeOdPotrebe = std::fabs(potreba - pogojTukaj);
    if (odstopanjeOdPotrebe <= toleriranaSprememba)
        return false;
    const unsigned int r =
        CRandomGenerator::randomGenerator(100000, randomSmrtiZaradiNeugodnegaPogoja);
    const double p = r / 100000.0;
    return verjetnostSmrtiObNeugodnosti > p;
}

} // namespace ecosystem::simulationEntities
