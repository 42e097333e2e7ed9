#include "input/KeyCodes.h"

#include <algorithm>
#include <iterator>

namespace keys {

namespace {

// A name's first code is that of the main block.
constexpr struct Row {
    int code;
    const char * name;
} kRows[] = {
    {1, "ESC"},
    {2, "1"},
    {3, "2"},
    {4, "3"},
    {5, "4"},
    {6, "5"},
    {7, "6"},
    {8, "7"},
    {9, "8"},
    {10, "9"},
    {11, "0"},
    {kTab, "TAB"},
    {16, "Q"},
    {17, "W"},
    {18, "E"},
    {19, "R"},
    {20, "T"},
    {21, "Y"},
    {22, "U"},
    {23, "I"},
    {24, "O"},
    {25, "P"},
    {28, "ENTER"},
    {kLeftCtrl, "LCTRL"},
    {30, "A"},
    {31, "S"},
    {32, "D"},
    {33, "F"},
    {34, "G"},
    {35, "H"},
    {36, "J"},
    {37, "K"},
    {38, "L"},
    {kLeftShift, "LSHIFT"},
    {44, "Z"},
    {45, "X"},
    {46, "C"},
    {47, "V"},
    {48, "B"},
    {49, "N"},
    {50, "M"},
    {kRightShift, "RSHIFT"},
    {kLeftAlt, "LALT"},
    {kSpace, "SPACE"},
    {kCapsLock, "CAPSLOCK"},
    {59, "F1"},
    {60, "F2"},
    {61, "F3"},
    {62, "F4"},
    {63, "F5"},
    {64, "F6"},
    {65, "F7"},
    {66, "F8"},
    {67, "F9"},
    {68, "F10"},
    {71, "7"},
    {72, "8"},
    {73, "9"},
    {75, "4"},
    {76, "5"},
    {77, "6"},
    {79, "1"},
    {80, "2"},
    {81, "3"},
    {82, "0"},
    {87, "F11"},
    {88, "F12"},
    {kRightCtrl, "RCTRL"},
    {kRightAlt, "RALT"},
    {199, "HOME"},
    {kUp, "UP"},
    {201, "PGUP"},
    {kLeft, "LEFT"},
    {kRight, "RIGHT"},
    {207, "END"},
    {kDown, "DOWN"},
    {209, "PGDN"},
    {210, "INSERT"},
    {211, "DELETE"},
};

} // namespace

const char * nameOf(int code) {
    const Row * row = std::ranges::lower_bound(kRows, code, {}, &Row::code);
    return row != std::end(kRows) && row->code == code ? row->name : "";
}

int codeOf(char letter) {
    if (letter == ' ') return kSpace;
    const Row * row = std::ranges::find_if(
        kRows, [letter](const Row & each) { return each.name[0] == letter && each.name[1] == 0; });
    return row != std::end(kRows) ? row->code : 0;
}

} // namespace keys
