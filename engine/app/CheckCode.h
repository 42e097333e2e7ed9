#pragma once

// The code of a behaviour as the checker sees it: calls, names and brackets, with their places.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace checkcode {

struct MethodCall {
    std::size_t at;
    std::string object; // "@" for a statement; empty when it is computed
    bool indirect;      // behind a star: the object holds a name
    std::string method;
    std::vector<std::string> parameters;
};

struct Place {
    std::size_t at;
    std::string text;
};

struct Code {
    std::vector<MethodCall> calls;
    std::vector<Place> operands; // names in square brackets
    std::vector<Place> fault;    // what is wrong with the form: the first such thing, or nothing
};

Code scan(std::string_view text);

bool isName(std::string_view text); // letters, digits, underscores

// The name in it, with or without quotes; empty when it is more than a name.
std::string nameIn(std::string_view parameter);

// The listed word next to that one, within two changes; empty for none.
std::string closest(std::string_view word, const std::vector<std::string> & list);

} // namespace checkcode
