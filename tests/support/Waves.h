#pragma once

// Sound files, made and read by tests.

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace test {

using Frame = std::array<int, 2>; // left, right
using Frames = std::vector<Frame>;

std::string number(long long value, int bytes);     // lowest byte first
std::string words(const std::vector<int> & values); // 16 bits each
// A file of plain samples.
std::string wav(int channels, int rate, int bits, const std::string & samples, int tag = 1);
// The frames of a recording; fails the test when its head isn't that of one.
Frames framesOf(std::string_view recording);

} // namespace test
