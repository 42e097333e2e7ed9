#pragma once

// The layout of a settings file, as functions over its bytes: "[section]" lines, each with "key=value" lines
// below it, comments that begin with a semicolon, and whatever else a person wrote. Names count without
// regard to case and without blanks (and tabs) round them. A section may come more than once; the first line
// with the key counts. Blanks round a value don't belong to it, nor do single or double quotes that enclose
// it.

#include <string>
#include <string_view>

namespace settings {

// The value of a key, as a piece of the text; empty when there is none. It is found wherever a put would put
// it.
std::string_view value(std::string_view text, std::string_view section, std::string_view key);

// The text with the value at its place: in the line that has the key, else in a new line behind the section's
// last one, else in a new section at the end. Every other byte stays. Line ends are those of the text's first
// line, CR LF when it has none. The value is written as it is, up to its first line end. A name that the
// layout can't hold (an empty key, one that holds "=" or looks like a comment or a section, a section with a
// "]", a line end in either) leaves the text as it is.
std::string put(std::string_view text, std::string_view section, std::string_view key,
                std::string_view value);

} // namespace settings
