#include "arbo/tocka.h"

#include <cmath>

namespace arbo {

Tocka Tocka::operator+(const Tocka& b) const {
    return Tocka(float(double(x) + b.x), float(double(y) + b.y), float(double(z) + b.z));
}

Tocka Tocka::operator-(const Tocka& b) const {
    return Tocka(float(double(x) - b.x), float(double(y) - b.y), float(double(z) - b.z));
}

Tocka Tocka::operator*(const float& skalar) const {
    return Tocka(float(double(x) * skalar), float(double(y) * skalar), float(double(z) * skalar));
}

// Sums of products are carried in extended precision (long double) and only
// the result is rounded: a sum of three products keeps bits that a double
// running sum would drop.
Tocka Tocka::vektorskiProd(const Tocka& a, const Tocka& b) {
    using E = long double;
    return Tocka(float(E(a.y) * b.z - E(a.z) * b.y), float(E(a.z) * b.x - E(a.x) * b.z),
                 float(E(a.x) * b.y - E(a.y) * b.x));
}

double Tocka::skalarniProdukt(const Tocka& b) const {
    using E = long double;
    return double(E(x) * b.x + E(y) * b.y + E(z) * b.z);
}

double Tocka::dolzina() const {
    using E = long double;
    return double(std::sqrt(E(x) * x + E(y) * y + E(z) * z));
}

void Tocka::normalize() {
    const float len = float(dolzina());
    // A zero vector stays zero rather than turning into NaNs.
    if (len == 0.0f)
        return;
    x = x / len;
    y = y / len;
    z = z / len;
}

} // namespace arbo
