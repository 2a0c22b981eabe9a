#pragma once

namespace arbo {

// A 3-D point or vector. Arithmetic runs in extended precision and is stored
// back as float.
class Tocka {
public:
    float x, y, z;

    Tocka() = default;
    Tocka(float x, float y, float z) : x(x), y(y), z(z) {}

    Tocka operator+(const Tocka& b) const;
    Tocka operator-(const Tocka& b) const;
    Tocka operator*(const float& skalar) const;
    static Tocka vektorskiProd(const Tocka& a, const Tocka& b);
    double skalarniProdukt(const Tocka& b) const;
    double dolzina() const;
    void normalize();
};

} // namespace arbo
