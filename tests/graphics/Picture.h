#pragma once

// Pixel objects for tests: made from numbers, read back as numbers; a canvas that writes down what it is
// told.

#include "graphics/CCanvasIfc.h"
#include "graphics/CGraphicsObject.h"

#include <cstring>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

inline void PrintTo(const CXRect & r, std::ostream * out) {
    *out << "(" << r.left << ", " << r.top << ", " << r.right << ", " << r.bottom << ")";
}

namespace test {

using Words = std::vector<std::uint16_t>;
using Bytes = std::vector<std::uint8_t>;

// Alpha is left away when empty. The pixels are copied.
inline void fill(CGraphicsObject & object, const Words & colours, const Bytes & alpha = {}) {
    std::memcpy(object.GetDataPtr(), colours.data(), colours.size() * 2);
    if (alpha.empty()) return;
    delete[] object.GetChannelAlpha();
    char * plane = new char[alpha.size()];
    std::memcpy(plane, alpha.data(), alpha.size());
    object.AlphaChannel(plane);
    object.SetChannelSize(3, static_cast<int>(alpha.size()));
}

inline std::unique_ptr<CGraphicsObject> picture(CXSize size, const Words & colours, const Bytes & alpha = {},
                                                int depth = 16) {
    auto object = std::make_unique<CGraphicsObject>(nullptr, size, depth);
    fill(*object, colours, alpha);
    return object;
}

inline Words words(CGraphicsObject & object) {
    const auto * p = reinterpret_cast<const std::uint16_t *>(object.GetDataPtr());
    return p ? Words(p, p + object.Size().mul()) : Words();
}

inline Bytes alpha(CGraphicsObject & object) {
    const auto * p = reinterpret_cast<const std::uint8_t *>(object.GetChannelAlpha());
    return p ? Bytes(p, p + object.Size().mul()) : Bytes();
}

inline Words counting(int n, int first = 1) {
    Words w;
    for (int i = 0; i < n; i++) w.push_back(static_cast<std::uint16_t>(first + i));
    return w;
}

class Canvas : public CCanvasIfc {
public:
    void Invalidate(CXRect * rect) override { told.push_back(*rect); }
    void operator>>(CGraphicsObject * object) override { left.push_back(object); }
    CRefreshScreen * getScreen() override { return nullptr; }

    std::vector<CXRect> told;
    std::vector<CGraphicsObject *> left;
};

} // namespace test
