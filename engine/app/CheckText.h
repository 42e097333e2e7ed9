#pragma once

// The code of a behaviour as the checker sees it: calls and brackets, with their places.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace checktext {

struct Call {
    std::size_t at;
    std::string object; // "@" for a statement, empty for an indirect call
    std::string method;
};

struct Fault {
    std::size_t at;
    std::string what;
};

struct Code {
    std::vector<Call> calls;
    std::vector<Fault> faults;
    std::vector<std::string> texts; // in quotes
};

Code scan(std::string_view text);

// The listed word next to that one, within two changes; empty for none.
std::string closest(std::string_view word, const std::vector<std::string> & list);

} // namespace checktext
