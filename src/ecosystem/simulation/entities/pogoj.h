#pragma once

namespace ecosystem::simulationEntities {

// How one species tolerates one environmental quantity (height above water,
// moisture, sunniness or windiness).
class CPogoj {
public:
    float potreba;                      // the value the species needs
    float toleriranaSprememba;          // deviation from the need tolerated without harm
    float verjetnostSmrtiObNeugodnosti; // chance (0..1) of dying in a step beyond tolerance
    float slabVplivNaHitrostRasti;      // how strongly straying lowers the growth factor

    CPogoj() = default;
    CPogoj(float potreba, float toleriranaSprememba, float verjetnostSmrtiObNeugodnosti,
           float slabVplivNaHitrostRasti);

    // 1 within tolerance or above the need; otherwise 0 while the weighted
    // deviation is below 1, else 1 - weighted deviation (callers clamp).
    float getFaktorRasti(float pogojTukaj);
    // Draws from the stream only when the deviation is beyond tolerance.
    bool umreZaradiNeugodnegaPogoja(unsigned long long& randomSmrtiZaradiNeugodnegaPogoja,
                                    float pogojTukaj);
};

} // namespace ecosystem::simulationEntities
