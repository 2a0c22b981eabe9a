#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
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
    // A growing array that keeps its memory from frame to frame and appends
    // without the per-element checks of std::vector.
    template <class T> class Niz {
    public:
        // Room for k more elements at the end, to be written by the caller.
        T* dodaj(std::size_t k) {
            if (n + k > kapaciteta)
                povecaj(n + k);
            T* p = pomnilnik.get() + n;
            n += k;
            return p;
        }
        void push_back(const T& t) { *dodaj(1) = t; }
        void clear() { n = 0; }
        std::size_t size() const { return n; }
        std::size_t bajtov() const { return kapaciteta * sizeof(T); } // memory held
        bool empty() const { return n == 0; }
        const T* data() const { return pomnilnik.get(); }
        const T& operator[](std::size_t i) const { return pomnilnik[i]; }

    private:
        std::unique_ptr<T[]> pomnilnik; // elements past n are not initialised
        std::size_t n = 0, kapaciteta = 0;

        void povecaj(std::size_t najmanj) {
            const std::size_t nova = std::max(2 * kapaciteta, najmanj);
            std::unique_ptr<T[]> p(new T[nova]);
            std::copy(pomnilnik.get(), pomnilnik.get() + n, p.get());
            pomnilnik = std::move(p);
            kapaciteta = nova;
        }
    };
    struct Paket {
        Niz<Oglisce> oglisca;
        Niz<std::uint32_t> indeksi; // triangles or line pairs; points use none
    };

    Paket lubje; // stem triangles, bark texture
    Paket crte;  // stem lines (far level of detail, wire frame), bark texture
    Paket listi; // leaf triangles, leaf texture
    Paket tocke; // leaf points, leaf texture

    void izprazni();
    // The memory the packets hold, empty or not.
    std::size_t bajtov() const;
    // Draws the packets in eye coordinates (the caller's model-view matrix is
    // not used), or, for a mesh grown in the tree's own coordinates, under the
    // caller's model-view matrix; textures as named, texturing as the caller
    // has enabled it. Leaf points are 1.4 pixels, unless another size is given
    // (for a picture drawn finer than the view shows it).
    void narisi(unsigned int teksturaLubja, unsigned int teksturaListov,
                bool vOcesnihKoordinatah = true, float velikostTock = 1.4f) const;
};

} // namespace arbo
