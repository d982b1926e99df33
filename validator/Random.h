#pragma once

#include <cstdint>
#include <random>

// Numbers that are the same on every machine: the engine's sequence is fixed, and what is made of it is plain
// arithmetic, unlike the distributions of the standard library.
class Random
{
public:
    // The `number`-th sequence of the seed. Each is independent of how much was drawn from the others, so that an event
    // is the same whatever the events before it found.
    Random(std::uint64_t seed, std::uint64_t number)
        : m_engine(mixed(seed ^ mixed(number)))
    {
    }

    std::uint64_t next() { return m_engine(); }

    // 0 .. end - 1; 0 when `end` is not positive.
    int below(int end) { return end <= 0 ? 0 : static_cast<int>(next() % static_cast<std::uint64_t>(end)); }

    // True once in `times` times.
    bool oneIn(int times) { return below(times) == 0; }

    template<typename List>
    auto& of(const List& list)
    {
        return list[below(static_cast<int>(std::size(list)))];
    }

private:
    static std::uint64_t mixed(std::uint64_t value)
    {
        value += 0x9e3779b97f4a7c15U;
        value = (value ^ (value >> 30U)) * 0xbf58476d1ce4e5b9U;
        value = (value ^ (value >> 27U)) * 0x94d049bb133111ebU;
        return value ^ (value >> 31U);
    }

    std::mt19937_64 m_engine;
};
