#pragma once

// One record for each name that a statement keeps the meaning of. Its version grows when an object of that
// name comes into or leaves any scope, or scopes are joined differently, so that a statement may keep what a
// name last meant until the version moves. Records last as long as the program: only names that stand in
// script text get one.

#include "core/CStringHashCode.h"

#include <cstdint>
#include <string_view>

namespace names {

extern std::uint64_t joins; // how often scopes were joined differently

struct Record {
    explicit Record(std::string_view name) : key(name) {}

    mutable CStringHashCode key; // the name, ready for a lookup
    std::uint32_t version = 0;
    const Record * base = nullptr; // of "X" for a name "X_0", which finds X as well
    // Grows with every change that could make the name mean another object.
    std::uint64_t now() const {
        std::uint64_t sum = joins + version;
        for (const Record * each = base; each; each = each->base) sum += each->version;
        return sum;
    }
};

const Record * record(std::string_view name); // never null, stays
void changed(std::string_view name);          // an object of that name came or went
void scopesChanged();                         // any name may mean something else

} // namespace names
