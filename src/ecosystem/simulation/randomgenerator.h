#pragma once

namespace ecosystem {

// The simulation's one source of chance: a multiplicative congruential
// generator modulo 2^33 (multiplier 69069) applied to a stream state that the
// caller owns, so that every kind of decision has its own repeatable sequence.
class CRandomGenerator {
public:
    CRandomGenerator() = default;
    ~CRandomGenerator() = default;

    // Advances RNi and returns a number in 0 .. razpon-1 (razpon >= 1).
    static unsigned int randomGenerator(int razpon, unsigned long long& RNi);
};

} // namespace ecosystem
