#pragma once

// A definition file as the checker sees it: each key with its place, which the engine's own elements don't
// keep.

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace checklines {

// A logical line, and where in it its physical lines begin.
struct Line {
    std::string text;
    std::vector<std::pair<std::size_t, int>> starts; // offset, number counted from 1

    int number(std::size_t at) const;
};

struct Property {
    std::string key, value;
    std::size_t at = 0; // of the value in the line
    Line line;
};

struct Element {
    std::string file, folder; // as people call the file; the engine's path of its folder, without a backslash
    std::string name, type;
    Line line; // where it began
    bool declared = true;
    std::vector<Property> properties;
};

struct Fault {
    Line line;
    std::string object, what;
};

struct File {
    bool opened = false;
    std::vector<Element> elements;
    std::vector<Fault> faults;
};

// name: as people call it; path: for the engine. Needs an installed world.
File read(const std::string & name, const std::string & path);

} // namespace checklines
