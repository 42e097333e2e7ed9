#include "platform/random/RandomSource.h"

#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace {

std::vector<int> draw(platform::RandomSource & source, int count) {
    std::vector<int> numbers;
    for (int i = 0; i < count; i++) numbers.push_back(source.next());
    return numbers;
}

TEST(RandomSource, TheSeriesOfASeed) {
    platform::RandomSource source;
    EXPECT_EQ(draw(source, 6), (std::vector{41, 18467, 6334, 26500, 19169, 15724}));
    source.seed(0);
    EXPECT_EQ(draw(source, 4), (std::vector{38, 7719, 21238, 2437}));
    source.seed(1);
    EXPECT_EQ(draw(source, 3), (std::vector{41, 18467, 6334}));
}

TEST(RandomSource, HostSeedsTellRunsApart) {
    std::set<std::vector<int>> series;
    for (std::uint32_t hostSeed : {0u, 1u, 2u, 3u, 0xFFFFFFFFu}) {
        platform::RandomSource source(hostSeed), again(hostSeed);
        for (std::uint32_t seed : {0u, 1u, 2u, 946684800u}) {
            source.seed(seed);
            again.seed(seed);
            const auto numbers = draw(source, 5);
            EXPECT_EQ(draw(again, 5), numbers);
            series.insert(numbers);
        }
    }
    EXPECT_EQ(series.size(), 20u);
}

} // namespace
