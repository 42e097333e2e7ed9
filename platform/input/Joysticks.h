#pragma once

// The joysticks, by their ports from 0. The thread that polls.

#include <array>
#include <cstdint>

namespace platform {

class Joysticks {
public:
    static constexpr int kFarEnd = 1000; // an axis runs from -kFarEnd, left or up, to kFarEnd

    struct State {
        std::array<int, 6> axes = {}; // x, y, z and the turns round them
        std::uint32_t buttons = 0;    // a bit each
        bool operator==(const State &) const = default;
    };

    virtual ~Joysticks() = default;
    virtual const char * name() const = 0;
    virtual bool read(int port, State & state) = 0; // false when there is none
};

} // namespace platform
