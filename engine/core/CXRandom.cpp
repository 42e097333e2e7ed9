#include "core/CXRandom.h"

#include "platform/World.h"

#include <algorithm>
#include <unordered_set>

int CXRandom::values_[kMostValues];

CXRandom::CXRandom() {
    platform::World & world = platform::world();
    world.random->seed(static_cast<std::uint32_t>(world.clock->time()));
}

int CXRandom::random(int n) {
    if (n == 0) return 0;
    platform::World & world = platform::world();
    std::uint32_t drawn = static_cast<std::uint32_t>(world.random->next()) + world.clock->tickCount();
    if (n > 0) return static_cast<int>(drawn % static_cast<std::uint32_t>(n));
    return -static_cast<int>(drawn % (0U - static_cast<std::uint32_t>(n)));
}

int CXRandom::random(int from, int n) {
    return static_cast<int>(static_cast<unsigned>(from) + static_cast<unsigned>(random(n)));
}

std::span<const int> CXRandom::random_vector(int from, int n, int count, bool unique) {
    if (count == 0) count = static_cast<int>(static_cast<unsigned>(n) - static_cast<unsigned>(from));
    if (count < 1 || count > kMostValues) return {};
    // Drawing again for ever would be the other answer.
    if (unique && static_cast<unsigned>(count) >
                      (n < 0 ? 0U - static_cast<unsigned>(n) : static_cast<unsigned>(std::max(n, 1))))
        return {};
    std::unordered_set<int> drawn;
    for (int i = 0; i < count; i++) {
        int value = random(from, n);
        while (unique && !drawn.insert(value).second) value = random(from, n);
        values_[i] = value;
    }
    return {values_, static_cast<std::size_t>(count)};
}
