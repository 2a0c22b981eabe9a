#pragma once

namespace arbo {

// A 4x4 matrix in OpenGL's column-major layout: element (r, c) at c*4 + r.
// All arithmetic on it is done by OpenGL.
class Matrika {
public:
    float m[16];
};

} // namespace arbo
