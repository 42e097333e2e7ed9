#pragma once

// The one source of chance: the C library's generator of the time (15 bits a draw), so that a seed and a
// series of calls give the same numbers on every machine. Main thread only.

#include <cstdint>

namespace platform {

class RandomSource {
public:
    static constexpr int kMax = 32767;

    // hostSeed shifts every later seed(), so that --seed tells runs apart although games seed from the
    // clock; 1 leaves the seeds as they are.
    explicit RandomSource(std::uint32_t hostSeed = 1);

    void seed(std::uint32_t value);
    // 0..kMax
    int next();

    std::uint32_t hostSeed() const { return hostSeed_; }

private:
    std::uint32_t hostSeed_;
    std::uint32_t state_ = 0;
};

} // namespace platform
