#include "platform/random/RandomSource.h"

namespace platform {

RandomSource::RandomSource(std::uint32_t hostSeed) : hostSeed_(hostSeed) { seed(1); }

void RandomSource::seed(std::uint32_t value) { state_ = value + (hostSeed_ - 1) * 0x9E3779B1U; }

int RandomSource::next() {
    state_ = state_ * 214013U + 2531011U;
    return static_cast<int>(state_ >> 16 & kMax);
}

} // namespace platform
