#pragma once

// Codes of keys that the engine names itself.

namespace keys {

enum Code {
    kTab = 15,
    kLeftCtrl = 29,
    kLeftShift = 42,
    kRightShift = 54,
    kLeftAlt = 56,
    kSpace = 57,
    kCapsLock = 58,
    kRightCtrl = 157,
    kRightAlt = 184,
    kUp = 200,
    kLeft = 203,
    kRight = 205,
    kDown = 208,
};

// The name that signals have for a key, empty for a key without one. Keys of the number pad are named as
// those above the letters.
const char * nameOf(int code);

// The code of a letter in upper case, a digit of the upper row or a blank; 0 for anything else.
int codeOf(char letter);

} // namespace keys
