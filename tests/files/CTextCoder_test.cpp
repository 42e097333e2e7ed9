#include "files/CTextCoder.h"

#include "files/InGame.h"

#include <string>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

// A coder over text in memory, and all that comes out of it.
struct Over {
    explicit Over(std::string_view bytes)
        : reader(nullptr, bytes.data(), static_cast<int>(bytes.size())), coder(nullptr, &reader, false) {}

    Lines lines() {
        Lines all;
        while (!coder._eof() && all.size() < 1000) all.emplace_back(coder.getLine().view());
        return all;
    }

    CTextFileReader reader;
    CTextCoder coder;
};

Lines physicalLines(std::string_view bytes) {
    CTextFileReader reader(nullptr, bytes.data(), static_cast<int>(bytes.size()));
    Lines all;
    while (!reader.eof()) all.emplace_back(reader.getLine().view());
    return all;
}

TEST(CTextFileReader, LastByteEndsALineWhateverItIs) {
    using namespace std::string_view_literals;
    struct {
        std::string_view bytes;
        Lines lines;
    } cases[] = {
        {"", {}},
        {"\n", {""}},
        {"x", {""}},
        {"ab\ncd\n", {"ab", "cd"}},
        {"ab\ncd", {"ab", "c"}},
        {"ab\n\n\nc\n", {"ab", "", "", "c"}},
        {"a\r\nb\n", {"a\r", "b"}},
        {"a\0b\nc\n"sv, {"a", "c"}},
    };
    for (auto & each : cases) EXPECT_EQ(physicalLines(each.bytes), each.lines) << each.bytes;
}

TEST(CTextFileReader, ResetStartsAgainAndTheEndStays) {
    CTextFileReader reader(nullptr, "a\nb\n", 4);
    reader.getLine();
    reader.reset();
    EXPECT_EQ(reader.getLine(), "a");
    EXPECT_EQ(reader.getLine(), "b");
    EXPECT_TRUE(reader.eof());
    EXPECT_EQ(reader.getLine(), "");
    EXPECT_TRUE(reader.eof());
}

TEST(CTextCoder, OffsetsAlternate) {
    Over over("x\n");
    const int expected[] = {1, -1, 2, -2, 3, -3};
    for (int i = 0; i < 6; i++) EXPECT_EQ(over.coder.getOffset(i), expected[i]);
    EXPECT_EQ(over.coder.getOffset(0x7FFFFFFF), -0x40000000);
}

TEST(CTextCoder, GivesLinesOfClearAndCodedTexts) {
    using namespace std::string_view_literals;
    struct {
        const char * what;
        std::string_view bytes;
        Lines lines;
    } cases[] = {
        {"nothing", "", {}},
        {"clear: the first line is text, blanks stay", " a\nb \n", {" a\n", "b \n"}},
        {"clear: a head further down is text", "a\n{<C:3>}\n", {"a\n", "{<C:3>}\n"}},
        {"clear: zero byte", "a\0b\nc\n"sv, {"a\n", "c\n"}},
        {"coded: the position runs on, wraps, and empty lines take no place",
         "{<C:3>}\nIh<E><E>cbb<E>\n",
         {"Hi\n", "\n", "aac\n", "\n"}},
        {"coded: the next physical line after a cycle of lines",
         "{<C:2>}\nb<E>b<E>\nb<E>\n",
         {"a\n", "c\n", "a\n", "\n"}},
        {"coded: lines beyond the cycle are lost", "{<C:1>}\nb<E>b<E>\nc<E>\n", {"a\n", "b\n", "\n"}},
        {"coded: a line without a mark ends it", "{<C:2>}\nb<E>\nb<E>\n", {"a\n", "\n"}},
        {"coded: cut within the mark", "{<C:2>}\nb<E", {"\n"}},
        {"coded: no lines", "{<C:2>}\n", {"\n"}},
        {"coded: a zero byte may be a character",
         "{<C:1>}\nb\0b<E>\n"sv,
         {"a\xFF"
          "a\n",
          "\n"}},
        {"coded: a decoded zero byte ends the line", "{<C:1>}\nb\1b<E>\nb<E>\n", {"a\n", "a\n", "\n"}},
        {"decode head over a reader", "{<D:1>}\nb<E>\n", {"a\n", "\n"}},
        {"cycle 0 counts as 1", "{<C:0>}\nb<E>\nc<E>\n", {"a\n", "b\n", "\n"}},
        {"negative cycle too", "{<C:-5>}\nb<E>\nc<E>\n", {"a\n", "b\n", "\n"}},
        {"and no number", "{<C:>}\nb<E>\nc<E>\n", {"a\n", "b\n", "\n"}},
        {"no end of the head", "{<C:2\nb<E>b<E>\n", {"a\n", "c\n", "\n"}},
        {"largest cycle", "{<C:2147483647>}\nbbdbe<E>b<E>\n", {"acbdb\n", "e\n", "\n"}},
        {"more digits than a number holds", "{<C:99999999999999999999>}\nb<E>\n", {"a\n", "\n"}},
    };
    for (auto & each : cases) EXPECT_EQ(Over(each.bytes).lines(), each.lines) << each.what;
}

TEST(CTextCoder, NextLineIsGetLineWithoutItsFeed) {
    for (const char * bytes : {"ab\n\ncd\n", "{<C:2>}\nb<E><E>\nb<E>\n"}) {
        Over one(bytes), other(bytes);
        for (const std::string & line : one.lines())
            EXPECT_EQ(std::string(other.coder.nextLine()) + '\n', line);
        EXPECT_TRUE(other.coder._eof());
    }
}

TEST(CTextCoder, CodesALineOfClearTextOnly) {
    EXPECT_EQ(Over("  a\tb \nx\n").coder.codeLine(), "bc<E>\n");
    EXPECT_EQ(Over("\n").coder.codeLine(), "<E>\n");
    EXPECT_EQ(Over("{<C:1>}\nb<E>\n").coder.codeLine(), "");
}

using Coding = test::InGame;

TEST_F(Coding, CodedAndClearCopiesOfFiles) {
    put("clear.txt", "OBJECT=A\r\n  A:TYPE=X \r\n\r\n\tA:KEY=\xB9\xFF\xE6\r\n");
    for (int cycle : {1, 2, 3, 4, 6, 100, 0, -7, 2147483647}) {
        CTextCoder::code(&window_, "clear.txt", "coded.txt", cycle);
        CTextCoder coded(&window_, "coded.txt", false);
        EXPECT_TRUE(coded.isCoded()) << cycle;
        CTextCoder::decode(&window_, "coded.txt", "back.txt");
        // The empty line behind the text is part of the format.
        EXPECT_EQ(get("back.txt"), "OBJECT=A\nA:TYPE=X\n\nA:KEY=\xB9\xFF\xE6\n\n") << cycle;
    }
    CTextCoder::code(&window_, "clear.txt", "coded.txt", 2);
    EXPECT_EQ(get("coded.txt").substr(0, 32), "{<C:2>}\nPAKDDS>@<E>B9UXQD>W<E>\n<");
}

TEST_F(Coding, WhatCannotBeCopiedMakesNoFile) {
    put("clear.txt", "a\n");
    put("coded.txt", "{<C:1>}\nb<E>\n");
    CTextCoder::code(&window_, "coded.txt", "x.txt", 6);
    CTextCoder::decode(&window_, "clear.txt", "x.txt");
    CTextCoder::code(&window_, "missing.txt", "x.txt", 6);
    CTextCoder::decode(&window_, "missing.txt", "x.txt");
    CTextCoder::code(&window_, "clear.txt", "no\\such\\folder\\x.txt", 6);
    EXPECT_FALSE(exists("x.txt"));
}

TEST_F(Coding, TheDecodeHeadMakesAClearCopy) {
    put("a.txt", "{<D:1>}\nb<E>\n");
    CTextCoder quiet(&window_, "a.txt", true);
    EXPECT_FALSE(exists("a.txt.decoded"));
    CTextCoder coder(&window_, "a.txt", false);
    EXPECT_EQ(get("a.txt.decoded"), "a\n\n");
    EXPECT_EQ(coder.getLine(), "a\n");
}

TEST_F(Coding, AMissingFileHasNoLines) {
    for (const char * name : {"missing.txt", "", ".", "Q:\\x"}) {
        CTextCoder coder(&window_, name, false);
        EXPECT_EQ(coder.LastError(), 2000) << name;
        EXPECT_TRUE(coder._eof());
        EXPECT_EQ(coder.getLine(), "\n");
        EXPECT_EQ(coder.codeLine(), "\n");
    }
}

TEST_F(Coding, ReadsFilesAsText) {
    put("a.txt", "one\r\ntwo\n");
    CTextFileReader reader(&window_, "a.txt");
    EXPECT_EQ(reader.getLine(), "one");
    EXPECT_EQ(reader.getLine(), "two");
    EXPECT_TRUE(reader.eof());
    put("empty.txt", "");
    EXPECT_TRUE(CTextFileReader(&window_, "empty.txt").eof());
}

} // namespace
