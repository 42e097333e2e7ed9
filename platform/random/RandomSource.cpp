#include "platform/random/RandomSource.h"

namespace platform {

RandomSource::RandomSource(std::uint32_t hostSeed) : hostSeed_(hostSeed) { seed(1); }

void RandomSource::seed(std::uint32_t value) {
    if (hostSeed_ != 1) {
        // Spreads both over all bits, so that neighbouring seeds give series that have nothing in common.
        value += 0x7F4A7C15u + hostSeed_ * 0x9E3779B9u;
        value ^= value >> 16;
        value *= 0x85EBCA6Bu;
        value ^= value >> 13;
        value *= 0xC2B2AE35u;
        value ^= value >> 16;
    }
    state_ = value;
}

int RandomSource::next() {
    state_ = state_ * 214013u + 2531011u;
    return static_cast<int>(state_ >> 16 & kMax);
}

} // namespace platform
