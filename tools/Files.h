#pragma once

// The files named on a command line. Names are the machine's own, in UTF-8, and count from the directory of
// the process; they go through the engine's file system, so they must be names that it can hold.

#include <stdexcept>
#include <string>
#include <string_view>

namespace tool {

// Why the work can't be done, in one line.
struct Failure : std::runtime_error {
    using runtime_error::runtime_error;
};

// The bytes of a file, with CR LF as LF; at most 2 GB, as the engine's readers take it.
std::string readText(const std::string & name);
// The bytes as they are.
std::string readBytes(const std::string & name);
void write(const std::string & name, std::string_view bytes);

// Readers of lines lose the last byte of a text that doesn't end in a line feed.
std::string withLineEnd(std::string text);

// Engine text for a person: UTF-8, with control characters as their pictures.
std::string shown(std::string_view windows1250);

} // namespace tool
