#pragma once

#include "arbo/tocka.h"

namespace arbo {

// The ring of vertices at the top of one stem segment (4 or 16 of them).
class Presek {
public:
    int stTock;
    Tocka tocke[16];

    Presek() = default;
    Presek(const Presek& o) { *this = o; }
    Presek& operator=(const Presek& o) {
        stTock = o.stTock;
        for (int i = 0; i < stTock; ++i)
            tocke[i] = o.tocke[i];
        return *this;
    }
};

} // namespace arbo
