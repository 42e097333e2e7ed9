#pragma once

// The rest of an open file in memory, for readers that work over a block of bytes.

#include "files/CFile.h"

#include <string>

namespace wholefile {

constexpr int kLargest = 1 << 28; // bytes

// From the file's position to its end. False, and nothing, for a closed or a larger file.
bool read(CFile & file, std::string & bytes);

} // namespace wholefile
