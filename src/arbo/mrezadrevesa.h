#pragma once

#include <cstdint>
#include <vector>

namespace arbo {

// One frame of a tree's geometry, already in eye coordinates, gathered while the
// tree is grown and drawn at the end with a few vertex-array calls instead of
// one GLU call per segment and leaf.
class MrezaDrevesa {
public:
    struct Oglisce {
        float x, y, z;
        float nx, ny, nz;
        float s, t;
        std::uint8_t barva[4];
    };
    struct Paket {
        std::vector<Oglisce> oglisca;
        std::vector<std::uint32_t> indeksi; // triangles or line pairs; points use none
    };

    Paket lubje; // stem triangles, bark texture
    Paket crte;  // stem lines (far level of detail, wire frame), bark texture
    Paket listi; // leaf triangles, leaf texture
    Paket tocke; // leaf points, leaf texture

    void izprazni();
    // Draws the packets in eye coordinates (the caller's model-view matrix is
    // not used); textures as named, texturing as the caller has enabled it.
    void narisi(unsigned int teksturaLubja, unsigned int teksturaListov) const;
};

} // namespace arbo
