// The services of a few lines: chance, texts, language, message boxes, notes.

#include "platform/debug/RecordingDebugChannel.h"
#include "platform/dialogs/StdoutDialogs.h"
#include "platform/dialogs/TerminalDialogs.h"
#include "platform/locale/SystemLocale.h"
#include "platform/random/RandomSource.h"
#include "platform/text/Windows1250.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace {

using namespace std::string_literals;

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

TEST(SystemLocale, TakesTheFirstThatIsSet) {
    const char * const variables[] = {"LC_ALL", "LC_MESSAGES", "LANG"};
    struct {
        const char *values[3], *code;
    } const cases[] = {
        {{"pl_PL.UTF-8", "cs_CZ", "hu_HU"}, "0415"}, {{"", "cs_CZ", "hu_HU"}, "0405"},
        {{nullptr, nullptr, "bg"}, "0402"},          {{nullptr, "ro_RO@euro", nullptr}, "0418"},
        {{"ru.KOI8-R", nullptr, nullptr}, "0419"},   {{"hu_HU", nullptr, nullptr}, "040E"},
        {{"sk_SK", nullptr, nullptr}, "041B"},       {{"C", nullptr, "pl_PL"}, "0409"},
        {{"plx_PL", nullptr, nullptr}, "0409"},      {{nullptr, nullptr, nullptr}, "0409"},
    };
    std::string before[3];
    for (int i = 0; i < 3; i++)
        if (const char * value = std::getenv(variables[i])) before[i] = value;
    platform::SystemLocale locale;
    for (const auto & c : cases) {
        for (int i = 0; i < 3; i++)
            c.values[i] ? setenv(variables[i], c.values[i], 1) : unsetenv(variables[i]);
        EXPECT_EQ(locale.languageCode(), c.code);
    }
    for (int i = 0; i < 3; i++)
        before[i].empty() ? unsetenv(variables[i]) : setenv(variables[i], before[i].c_str(), 1);
}

TEST(StdoutDialogs, ALineABox) {
    char * text = nullptr;
    std::size_t size = 0;
    std::FILE * out = open_memstream(&text, &size);
    platform::StdoutDialogs dialogs(out);
    dialogs.messageBox("Title", "za\xBF\xF3\xB3\xE6");
    EXPECT_EQ(std::string(text, size), "msgbox: zażółć\n") << "must be out at once";
    dialogs.messageBox("", "a\r\nb\\c\td%s");
    dialogs.messageBox("Title", "");
    std::fclose(out);
    EXPECT_EQ(std::string(text, size), "msgbox: zażółć\nmsgbox: a\\r\\nb\\\\c\td%s\nmsgbox: \n");
    std::free(text);
}

TEST(RecordingDebugChannel, KeepsTheBytes) {
    platform::RecordingDebugChannel channel;
    channel.write("a\n");
    channel.write("\xBF%s");
    EXPECT_EQ(channel.written, "a\n\xBF%s");
}

} // namespace
