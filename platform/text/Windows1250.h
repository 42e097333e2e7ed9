#pragma once

// Windows-1250 (code page of the games' texts and names) to and from UTF-8. The five bytes that the code
// page leaves unassigned map to the control characters of the same number, so that every byte survives.

#include <string>
#include <string_view>

namespace platform {

std::string toUtf8(std::string_view windows1250);
// Characters that the code page lacks and malformed UTF-8 become '?'.
std::string fromUtf8(std::string_view utf8);
// Whether every character of the UTF-8 text has a byte of its own in the code page.
bool fitsWindows1250(std::string_view utf8);

// The upper-case letters of a Windows-1250 text, other characters as they are: file names are compared so.
std::string upperWindows1250(std::string_view windows1250);

} // namespace platform
