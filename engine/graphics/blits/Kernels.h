#pragma once

// The loops of the blit family over pointers and strides; who calls them has clipped. The plain form is the
// definition, the vector forms give the same on every value.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace blits {

struct Job {
    const std::uint16_t * source = nullptr;
    const std::uint8_t * alpha = nullptr; // of the source, with its stride; only where the loop needs it
    std::ptrdiff_t sourceStride = 0;      // pixels
    char * target = nullptr;              // words or, for a 32-bit one, double words
    std::uint8_t * targetAlpha = nullptr; // copyToCanvas alone
    std::ptrdiff_t targetStride = 0;      // pixels
    int width = 0, height = 0;
    int opacity = 255;
};

using Loop = void (*)(const Job &);

struct Kernels {
    const char * name;
    Loop copy16, copy32;
    Loop alpha15, alpha16, alpha32;
    Loop blend15, blend16, blend32;
    Loop alphaBlend15, alphaBlend16, alphaBlend32;
    Loop mask16, mask32;
    Loop canvas15, canvas16; // blending into a target with alpha
};

extern const Kernels kPlain;
std::vector<const Kernels *> all(); // what this processor runs, the fastest last
const Kernels & inUse();            // the fastest, or what was set
void use(const Kernels * kernels);  // for tests and benchmarks; null for the fastest

} // namespace blits
