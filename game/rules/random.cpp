#include "game/rules/random.h"

#include <random>

namespace korvane {
namespace {

// A modulus of 0 stands for the whole range of the type, here 2^32.
std::linear_congruential_engine<std::uint32_t, 214013, 2531011, 0> generator;

}  // namespace

void SeedRandom(std::uint32_t seed) {
    generator.seed(seed);
}

int Random() {
    // The low bits of such a generator repeat after a few values; bits 16 to 30 serve well.
    return static_cast<int>(generator() >> 16 & 0x7FFF);
}

}  // namespace korvane
