#include "core/CColor.h"

void CColor::Set(short word, _colormodel newModel) {
    pixel.all = 0;
    pixel.word = static_cast<std::uint16_t>(word);
    model = newModel;
}

void CColor::Set(int r, int g, int b) {
    Set(r, g, b, 0);
    model = kRgb24;
}

void CColor::Set(int r, int g, int b, int a) {
    pixel.byte = {static_cast<std::uint8_t>(a), static_cast<std::uint8_t>(r), static_cast<std::uint8_t>(g),
                  static_cast<std::uint8_t>(b)};
    model = kRgba32;
}

int CColor::stored() const {
    return model == kRgb555 || model == kRgb565 ? pixel.word : static_cast<int>(pixel.all);
}

int CColor::Convert(_colormodel wanted) const {
    if (model != kRgb24 && model != kRgba32) return stored();
    int r = pixel.byte.red, g = pixel.byte.green, b = pixel.byte.blue;
    switch (wanted) {
    case kRgb555: return (r >> 3) << 10 | (g >> 3) << 5 | b >> 3;
    case kRgb565: return (r >> 3) << 11 | (g >> 2) << 5 | b >> 3;
    default: return stored();
    }
}

int CColor::GetInBPP(int bits) const {
    switch (bits) {
    case 15: return Convert(kRgb555);
    case 16: return Convert(kRgb565);
    case 24: return Convert(kRgb24);
    case 32: return Convert(kRgba32);
    default: return bits;
    }
}
