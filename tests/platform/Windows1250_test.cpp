#include "platform/text/Windows1250.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using namespace std::string_literals;

TEST(Windows1250, EveryByteSurvives) {
    std::string all;
    for (int c = 0; c < 256; c++) all += static_cast<char>(c);
    const std::string utf8 = platform::toUtf8(all);
    EXPECT_TRUE(platform::fitsWindows1250(utf8));
    EXPECT_EQ(platform::fromUtf8(utf8), all);
    EXPECT_EQ(platform::toUtf8("\xA5\x8C\xB9\x9F\xF3\x80\x81\xFF"), "ĄŚąźó€\xC2\x81˙");
}

TEST(Windows1250, WhatDoesntFit) {
    struct {
        std::string utf8, text;
    } const cases[] = {
        {"Żaba", "\xAF"s + "aba"},
        {"日本", "??"},
        {"😀", "?"},
        {"\xC2\x80", "?"},       // a control character that no byte stands for
        {"a\xFFz", "a?z"},       // never a byte of UTF-8
        {"a\x80z", "a?z"},       // no beginning
        {"a\xC5", "a?"},         // cut short
        {"a\xC5z", "a?z"},       // the next character is its own
        {"\xE2\x82", "?"},       //
        {"\xC1\x81", "??"},      // overlong
        {"\xE0\x81\x81", "???"}, //
        {"\xED\xA0\x80", "???"}, // half of a surrogate pair
        {"\xF4\x90\x80\x80", "????"},
    };
    for (const auto & c : cases) {
        EXPECT_EQ(platform::fromUtf8(c.utf8), c.text) << c.utf8;
        EXPECT_EQ(platform::fitsWindows1250(c.utf8), c.text.find('?') == std::string::npos) << c.utf8;
    }
}

} // namespace
