#pragma once

namespace ecosystem {

// A terrain grid cell: column x, row y. A layer W cells wide is indexed y*W + x.
class Tocka2i {
public:
    int x, y;

    Tocka2i() = default;
    Tocka2i(int x, int y) : x(x), y(y) {}
};

} // namespace ecosystem
