#pragma once

// Rules of Windows names: case, wildcards, which bytes a name may hold. Names are Windows-1250.

#include <string>
#include <string_view>

namespace platform {

// Upper case, the Polish and the other letters of the code page included.
std::string upperName(std::string_view name);

// Whether a name fits a mask with * and ?, as searches understand them: case doesn't count, "*.*" fits every
// name, "*." names without a full stop, and a ? at the end or before a full stop may stand for nothing.
bool fitsMask(std::string_view mask, std::string_view name);

// Whether a file or a folder may be called so.
bool isLegalName(std::string_view name);

} // namespace platform
