#pragma once

// The decoders in their plainest form, a unit or a string at a time: what the fast forms must give, byte for
// byte. Each writes to a block of a known size and tells how many bytes of it it has made; the rest is left.

#include <cstddef>

namespace plain {

// A run-length stream of words (std::uint16_t) or bytes (unsigned char).
template <class Unit>
std::size_t runLengths(const unsigned char * from, std::size_t fromSize, unsigned char * to,
                       std::size_t toSize);

// The bit stream of CLZWCompression. Decoding ends with the codes, the bits or the room, and at a code that
// no encoder writes there: one beyond the string being defined, or no byte behind a clear code.
std::size_t dictionary(const unsigned char * bits, std::size_t bitsSize, int codes, unsigned char * to,
                       std::size_t toSize);

} // namespace plain
