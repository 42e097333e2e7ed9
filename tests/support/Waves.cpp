#include "support/Waves.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>

namespace test {

std::string number(long long value, int bytes) {
    std::string out;
    for (int i = 0; i < bytes; i++) out += static_cast<char>(value >> 8 * i);
    return out;
}

std::string words(const std::vector<int> & values) {
    std::string out;
    for (int each : values) out += number(each, 2);
    return out;
}

std::string wav(int channels, int rate, int bits, const std::string & samples, int tag) {
    int frame = channels * bits / 8;
    auto size = static_cast<long long>(samples.size());
    return "RIFF" + number(36 + size, 4) + "WAVEfmt " + number(16, 4) + number(tag, 2) + number(channels, 2) +
           number(rate, 4) + number(static_cast<long long>(rate) * frame, 4) + number(frame, 2) +
           number(bits, 2) + "data" + number(size, 4) + samples;
}

Frames framesOf(std::string_view recording) {
    constexpr std::size_t kHead = 44;
    std::string_view samples = recording.substr(std::min(kHead, recording.size()));
    EXPECT_EQ(recording.substr(0, kHead), wav(2, 22050, 16, std::string(samples)).substr(0, kHead));
    Frames frames;
    for (std::size_t i = 0; i + 4 <= samples.size(); i += 4) {
        auto word = [&](std::size_t at) {
            return static_cast<int>(static_cast<std::int16_t>(
                static_cast<unsigned char>(samples[at]) | static_cast<unsigned char>(samples[at + 1]) << 8));
        };
        frames.push_back({word(i), word(i + 2)});
    }
    return frames;
}

} // namespace test
