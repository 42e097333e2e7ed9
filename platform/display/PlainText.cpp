#include "platform/display/PlainText.h"

#include "platform/display/Display.h"

#include <algorithm>
#include <cstddef>

namespace platform {

namespace {

constexpr int kWidth = 6, kHeight = 8; // of a cell; the right column and the bottom row stay white

struct Shape {
    char letter;
    unsigned char rows[7]; // five bits each, the leftmost the highest
};

constexpr Shape kShapes[] = {{'0', {14, 17, 19, 21, 25, 17, 14}}, {'1', {4, 12, 4, 4, 4, 4, 14}},
                             {'2', {14, 17, 1, 2, 4, 8, 31}},     {'3', {31, 2, 4, 2, 1, 17, 14}},
                             {'4', {2, 6, 10, 18, 31, 2, 2}},     {'5', {31, 16, 30, 1, 1, 17, 14}},
                             {'6', {6, 8, 16, 30, 17, 17, 14}},   {'7', {31, 1, 2, 4, 8, 8, 8}},
                             {'8', {14, 17, 17, 14, 17, 17, 14}}, {'9', {14, 17, 17, 15, 1, 2, 12}},
                             {':', {0, 12, 12, 0, 12, 12, 0}},    {'F', {31, 16, 16, 30, 16, 16, 16}},
                             {'P', {30, 17, 17, 30, 16, 16, 16}}, {'S', {15, 16, 16, 14, 1, 1, 30}}};

bool isInk(char letter, int column, int row) {
    const auto * shape = std::ranges::find(kShapes, letter, &Shape::letter);
    return shape != std::end(kShapes) && column < 5 && row < 7 && (shape->rows[row] >> (4 - column) & 1);
}

} // namespace

void drawText(Display & display, int x, int y, std::string_view text) {
    std::uint16_t * pixels = display.pixels();
    if (!pixels) return;
    int right = std::min(display.width(), x + static_cast<int>(text.size()) * kWidth);
    int bottom = std::min(display.height(), y + kHeight), left = std::max(x, 0), top = std::max(y, 0);
    if (left >= right || top >= bottom) return;
    for (int py = top; py < bottom; py++)
        for (int px = left; px < right; px++) {
            char letter = text[static_cast<std::size_t>((px - x) / kWidth)];
            pixels[static_cast<std::ptrdiff_t>(py) * display.width() + px] =
                isInk(letter, (px - x) % kWidth, py - y) ? 0 : 0xFFFF; // white at either depth
        }
    display.show(left, top, right, bottom);
}

} // namespace platform
