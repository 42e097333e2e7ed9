#pragma once

// Numbers of the engine's formats: lowest byte first, whatever the machine.

#include <cstdint>

namespace little {

inline std::uint16_t word(const void * at) {
    const auto * b = static_cast<const unsigned char *>(at);
    return static_cast<std::uint16_t>(b[0] | b[1] << 8);
}

inline std::uint32_t dword(const void * at) {
    const auto * b = static_cast<const unsigned char *>(at);
    return b[0] | std::uint32_t{b[1]} << 8 | std::uint32_t{b[2]} << 16 | std::uint32_t{b[3]} << 24;
}

inline int integer(const void * at) { return static_cast<int>(dword(at)); }

inline void putDword(void * at, std::uint32_t value) {
    auto * b = static_cast<unsigned char *>(at);
    for (int i = 0; i < 4; i++) b[i] = static_cast<unsigned char>(value >> 8 * i);
}

} // namespace little
