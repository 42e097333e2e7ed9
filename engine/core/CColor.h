#pragma once

// A colour in one of the four pixel forms of the engine.

#include "core/CXObject.h"

#include <cstdint>

// 32 bits, seen as one 16-bit word or as four bytes.
union _pixel {
    std::uint16_t word;
    struct {
        std::uint8_t alpha, red, green, blue;
    } byte;
    std::uint32_t all;
};

enum _colormodel {
    kRgb24 = 4,  // three bytes
    kRgba32 = 5, // four bytes
    kRgb555 = 6, // a word
    kRgb565 = 7, // a word
};

class CColor : public CXObject {
public:
    CColor() { Set(0, 0, 0); }
    CColor(short word, _colormodel model) { Set(word, model); }
    CColor(int r, int g, int b) { Set(r, g, b); }
    CColor(int r, int g, int b, int a) { Set(r, g, b, a); }
    // 0x00RRGGBB
    explicit CColor(int rgb) { Set(rgb); }
    CColor(const CColor &) = default;
    CColor & operator=(const CColor &) = default;

    void Set(short word, _colormodel model);
    void Set(int r, int g, int b);
    void Set(int r, int g, int b, int a);
    void Set(int rgb) { Set(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF); }
    void Set(const CColor & other) { *this = other; }
    template <class... Args>
    void set(Args... args) {
        Set(args...);
    }

    _pixel getPixel() const { return pixel; }
    // The pixel in another model: three and four bytes to the two word forms; anything else as it stands.
    int Convert(_colormodel model) const;
    // The pixel for a depth of 15, 16, 24 or 32 bits; another depth comes back as it is.
    int GetInBPP(int bits) const;

    _pixel pixel{};
    _colormodel model = kRgb24;

private:
    int stored() const;
};
