#pragma once

// Small fixed letters on a display, for what a developer wants to read there. Any thread that may draw.

#include <string_view>

namespace platform {

class Display;

// Black on white, 6 x 8 pixels a character, from that place on; cut at the display's edges. Digits, blanks,
// colons and the capitals of "FPS" have a shape; all else shows as a blank.
void drawText(Display & display, int x, int y, std::string_view text);

} // namespace platform
