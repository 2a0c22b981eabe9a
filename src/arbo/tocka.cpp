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

Tocka Tocka::vektorskiProd(const Tocka& a, const Tocka& b) {
    return Tocka(float(double(a.y) * b.z - double(a.z) * b.y),
                 float(double(a.z) * b.x - double(a.x) * b.z),
                 float(double(a.x) * b.y - double(a.y) * b.x));
}

double Tocka::skalarniProdukt(const Tocka& b) const {
    return double(x) * b.x + double(y) * b.y + double(z) * b.z;
}

double Tocka::dolzina() const {
    return std::sqrt(double(x) * x + double(y) * y + double(z) * z);
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
