#include "script/Names.h"

#include <functional>
#include <string>
#include <unordered_map>

namespace names {

std::uint64_t joins = 0;

namespace {

struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

std::unordered_map<std::string, Record, Hash, std::equal_to<>> records;

} // namespace

const Record * record(std::string_view name) {
    auto [place, fresh] = records.try_emplace(std::string(name), name);
    Record & made = place->second;
    if (fresh && name.size() > 2 && name.ends_with("_0")) made.base = record(name.substr(0, name.size() - 2));
    return &made;
}

void changed(std::string_view name) {
    auto place = records.find(name);
    if (place != records.end()) place->second.version++;
}

void scopesChanged() { joins++; }

} // namespace names
