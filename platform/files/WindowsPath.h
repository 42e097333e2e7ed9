#pragma once

// A Windows path name taken apart: pure text, nothing of the machine. Names are Windows-1250.

#include <optional>
#include <string>
#include <string_view>

namespace platform {

struct WindowsPath {
    char drive = 'C';      // upper-case
    std::string tail;      // "\Dane\a.ann" below the drive, empty for its root; single backslashes
    bool asFolder = false; // the text ended in a backslash

    std::string full() const { return std::string{drive, ':'} + (tail.empty() ? "\\" : tail); }
    // The last name, empty for a root.
    std::string_view lastName() const { return std::string_view(tail).substr(tail.rfind('\\') + 1); }
    // The folder that the last name stands in.
    std::string_view folder() const { return std::string_view(tail).substr(0, tail.rfind('\\')); }
};

// Makes a name absolute: from the current folder, or the root of another drive; "." and ".." go by the text
// alone and never above the root. Nothing for an empty or overlong name and for one with a character that
// Windows names can't hold; a mask may hold * and ? in its last name.
std::optional<WindowsPath> parseWindowsPath(std::string_view text, const WindowsPath & current,
                                            bool mask = false);

// Whether a file of the machine could be named so: no separators, wildcards or control characters.
bool isWindowsName(std::string_view name);

// Whether a name fits a mask as Windows matches them, in any case: "*.*" fits every name, "*." those
// without a dot, and ? also fits nothing before a dot and at the end.
bool fitsMask(std::string_view mask, std::string_view name);

} // namespace platform
