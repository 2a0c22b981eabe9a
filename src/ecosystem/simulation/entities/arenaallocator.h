#pragma once

#include <cstddef>
#include <memory>
#include <new>

namespace ecosystem::simulationEntities {

// Blocks from which one list's nodes are cut, front to back. Each node is
// preceded by the address of its block, so freeing a node finds the block's
// count of living nodes; a block whose nodes have all died goes back at once.
// All blocks have one size, so the heap reuses them without fragmenting.
class PlantArena {
public:
    static constexpr std::size_t velikostBloka = 256 * 1024;

    PlantArena() = default;
    PlantArena(const PlantArena&) = delete;
    PlantArena& operator=(const PlantArena&) = delete;
    ~PlantArena() {
        if (trenutni)
            ::operator delete(trenutni);
    }

    // velikost is a multiple of the pointer size and at most a sixteenth of a block.
    void* dodeli(std::size_t velikost) {
        const std::size_t mesto = sizeof(Glava*) + velikost;
        if (!trenutni || zasedeno + mesto > velikostBloka)
            novBlok();
        std::byte* p = reinterpret_cast<std::byte*>(trenutni) + zasedeno;
        *reinterpret_cast<Glava**>(p) = trenutni;
        zasedeno += mesto;
        trenutni->zivih += 1;
        zivihBajtov += velikost;
        return p + sizeof(Glava*);
    }

    void sprosti(void* p, std::size_t velikost) {
        Glava* blok = *reinterpret_cast<Glava**>(static_cast<std::byte*>(p) - sizeof(Glava*));
        zivihBajtov -= velikost;
        if (--blok->zivih == 0 && blok != trenutni) {
            ::operator delete(blok);
            --stBlokov;
        }
    }

    // Bytes of living nodes, and bytes held in blocks.
    std::size_t zivih() const { return zivihBajtov; }
    std::size_t zasedenih() const { return stBlokov * velikostBloka; }

private:
    struct alignas(std::max_align_t) Glava {
        std::size_t zivih;
    };

    void novBlok() {
        if (!trenutni || trenutni->zivih != 0) {
            trenutni = new (::operator new(velikostBloka)) Glava{0};
            ++stBlokov;
        } // else an emptied current block is cut again from its start
        zasedeno = sizeof(Glava);
    }

    Glava* trenutni = nullptr;
    std::size_t zasedeno = 0;
    std::size_t stBlokov = 0;
    std::size_t zivihBajtov = 0;
};

// Allocator of a species' plant list. Nodes are cut one after another from
// large blocks and never reused, so the list lies in memory in the order of
// creation and a walk through it reads memory front to back; plants die mostly
// in the order they were born, so old blocks empty and are given back.
template <typename T> class CArenaAllocator {
public:
    using value_type = T;
    using propagate_on_container_copy_assignment = std::false_type;
    using propagate_on_container_move_assignment = std::true_type;
    using propagate_on_container_swap = std::true_type;
    using is_always_equal = std::false_type;

    CArenaAllocator() : arena(std::make_shared<PlantArena>()) {}
    template <typename U>
    CArenaAllocator(const CArenaAllocator<U>& drugi) noexcept : arena(drugi.arena) {}

    // A copied list gets its own arena.
    CArenaAllocator select_on_container_copy_construction() const { return CArenaAllocator(); }

    T* allocate(std::size_t n) {
        if (!izArene(n))
            return static_cast<T*>(::operator new(n * sizeof(T)));
        return static_cast<T*>(arena->dodeli(sizeof(T)));
    }
    void deallocate(T* p, std::size_t n) noexcept {
        if (!izArene(n))
            ::operator delete(p);
        else
            arena->sprosti(p, sizeof(T));
    }

    template <typename U> bool operator==(const CArenaAllocator<U>& b) const {
        return arena == b.arena;
    }
    template <typename U> bool operator!=(const CArenaAllocator<U>& b) const {
        return arena != b.arena;
    }

    std::shared_ptr<PlantArena> arena;

private:
    static bool izArene(std::size_t n) {
        return n == 1 && sizeof(T) <= PlantArena::velikostBloka / 16 &&
               sizeof(T) % sizeof(void*) == 0 && alignof(T) <= alignof(void*);
    }
};

} // namespace ecosystem::simulationEntities
