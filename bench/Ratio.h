#pragma once

// Items measured side by side: each is sampled in turn, round after round, so that a drift of the machine
// hits all alike; a ratio is the median of the rounds' ratios.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace bench {

class Table {
public:
    explicit Table(std::string title) : title_(std::move(title)) {}

    // work: units of one call of run. The result is the item's place.
    std::size_t add(std::string name, double units, std::function<void()> run) {
        items_.push_back({std::move(name), units, std::move(run), 1, {}});
        return items_.size() - 1;
    }
    void sample(int rounds = 41, double milliseconds = 3.0) {
        for (Item & item : items_) {
            item.run();
            double once = std::max(time(item, 1), 20.0);
            item.calls = std::max(1L, static_cast<long>(milliseconds * 1e6 / once));
        }
        for (int round = 0; round < rounds; round++)
            for (Item & item : items_)
                item.ns.push_back(time(item, item.calls) / static_cast<double>(item.calls) / item.units);
        std::printf("\n%s\n", title_.c_str());
        for (const Item & item : items_)
            std::printf("  %-46s %10.1f ns\n", item.name.c_str(), median(item.ns));
    }
    // How many times as fast an item is as its peer.
    void ratio(std::size_t item, std::size_t peer, double goal) const {
        std::vector<double> ratios;
        for (std::size_t i = 0; i < items_[item].ns.size(); i++)
            ratios.push_back(items_[peer].ns[i] / items_[item].ns[i]);
        double found = median(ratios);
        std::printf("  %-46s %9.2f x %s (goal %.2f)\n", items_[item].name.c_str(), found,
                    items_[peer].name.c_str(), goal);
        if (found < goal) std::printf("  below its goal: %s\n", items_[item].name.c_str());
    }

private:
    struct Item {
        std::string name;
        double units;
        std::function<void()> run;
        long calls;
        std::vector<double> ns; // a unit, one a round
    };

    static double time(const Item & item, long calls) {
        auto start = std::chrono::steady_clock::now();
        for (long i = 0; i < calls; i++) item.run();
        return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count();
    }
    static double median(std::vector<double> values) {
        std::sort(values.begin(), values.end());
        return values[values.size() / 2];
    }

    std::string title_;
    std::vector<Item> items_;
};

template <class Value>
void keep(Value const & value) {
    asm volatile("" : : "r,m"(value) : "memory");
}

} // namespace bench
