#pragma once

#include "arbo/matrika.h"

#include <cstdint>
#include <vector>

namespace arbo {

// The model-view matrix stack the tree is grown on. By default it is kept on
// the CPU with the same single-precision steps as the OpenGL implementation
// (rotation matrix built from sinf/cosf of the angle in radians, axis-aligned
// rotations without normalising the axis, products term by term), so that the
// geometry read from it equals what OpenGL's own stack would hold. With `naGl`
// set every operation goes to OpenGL's stack instead and reads come back from
// it: the plain path, used to check the CPU one.
class MatrikaSklad {
public:
    bool naGl = false;

    // Starts a frame: the bottom of the stack is `koren` (CPU) and the stack is
    // otherwise empty.
    void zacni(const Matrika& koren);
    void push();
    void pop();
    void loadIdentity();
    void rotate(float kot, float x, float y, float z);
    void translate(float x, float y, float z);
    void multiply(const Matrika& m);
    // The current matrix (on the GL path read back from OpenGL).
    Matrika vrh() const;
    // Valid on the CPU path only: the current matrix without a copy.
    const float* m() const { return sklad.back().m.m; }

    static Matrika identiteta();

private:
    struct Nivo {
        Matrika m;
        bool splosna; // a general product was taken: no affine shortcut
    };
    // sinf and cosf of an angle, by the angle's bits: a tree turns by the same
    // few angles over and over (leaf spirals, phyllotaxis, branchings).
    struct SinCos {
        std::uint32_t kot = 0; // +0 is never looked up: a zero turn is skipped
        float s = 0, c = 0;
    };
    static constexpr int stSinCos = 4096;
    std::vector<Nivo> sklad;
    std::vector<SinCos> sinCos; // made on the first turn: many stacks never turn

    void sinusInKosinus(float kot, float& s, float& c);
};

} // namespace arbo
