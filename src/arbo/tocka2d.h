#pragma once

namespace arbo {

// One vertex of a distribution curve: x is the normalised position, y the value.
class Tocka2D {
public:
    double x, y;

    Tocka2D() = default;
    Tocka2D(double x, double y) : x(x), y(y) {}
};

} // namespace arbo
