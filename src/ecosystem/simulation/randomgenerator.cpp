#include "ecosystem/simulation/randomgenerator.h"

namespace ecosystem {

unsigned int CRandomGenerator::randomGenerator(int razpon, unsigned long long& RNi) {
    RNi = (RNi * 69069ULL) & ((1ULL << 33) - 1);
    return static_cast<unsigned int>(RNi & 0xFFFFFFFFULL) % static_cast<unsigned int>(razpon);
}

} // namespace ecosystem
