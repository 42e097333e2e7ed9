#include "core/CStringHashCode.h"

#include "core/CInteger.h"
#include "core/CStringTokenizer.h"
#include "core/CXArray.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

TEST(CStringHashCode, HashValues) {
    struct {
        std::string text;
        int hash;
    } rows[] = {
        {"", 0},
        {"A", 1 + 65},
        {"AB", 3 + 65 + 2 * 66},
        {"BA", 3 + 66 + 2 * 65}, // places count
        {"abc", 7 + 97 + 2 * 98 + 3 * 99},
        {"\xFF", 1 - 1}, // bytes are signed
        {"\x80\x80", 3 - 128 - 256},
        // 16 ones of the first round and the first of the second; 1 + 2 + ... + 17 = 153.
        {std::string(17, 'a'), 65535 + 1 + 153 * 97},
        {std::string(16, 'a'), 65535 + 136 * 97},
        // Wraps: 7000 rounds and a half of ones, and 70000 x 70001 / 2 times 127, in 32 bits.
        {std::string(70000, '\x7F'),
         static_cast<int>(static_cast<unsigned>(4375ULL * 65535 + 70000ULL * 70001 / 2 * 127))},
    };
    for (auto & row : rows)
        EXPECT_EQ(CStringHashCode(row.text).getHashcode(), row.hash) << row.text.substr(0, 20);
}

TEST(CStringHashCode, TakesOtherTexts) {
    CStringHashCode key("first"), same("first");
    EXPECT_TRUE(key.equals(&same));
    for (int length : {0, 1, 63, 64, 65, 1000, 5}) {
        std::string text(static_cast<std::size_t>(length), 'q');
        key.set(text.c_str());
        EXPECT_EQ(key.getString().view(), text);
        EXPECT_FALSE(key.equals(&same)) << length;
        CStringHashCode twin(text);
        EXPECT_TRUE(key.equals(&twin) && key.getHashcode() == twin.getHashcode()) << length;
        EXPECT_EQ(key.mark().hash, twin.mark().hash);
    }
    key.set("First");
    EXPECT_FALSE(key.equals(&same)); // by case
}

TEST(CInteger, CountsAndKeys) {
    CInteger number(CXString("41x"));
    number.increment();
    EXPECT_EQ(number.toInt(), 42);
    EXPECT_EQ(number.getHashcode(), 42);
    CInteger twin(42), other(-42);
    EXPECT_TRUE(number.equals(&twin));
    EXPECT_FALSE(number.equals(&other));
    number.parse("none");
    number.decrement();
    EXPECT_EQ(number.toInt(), -1);
    CInteger most(std::numeric_limits<int>::max());
    most.increment();
    EXPECT_EQ(most.toInt(), std::numeric_limits<int>::min()); // around
    most.decrement();
    EXPECT_EQ(most.toInt(), std::numeric_limits<int>::max());
    EXPECT_EQ(CInteger::toString(-5), "-5");
}

TEST(CStringTokenizer, CutsAtRunsOfSeparators) {
    struct {
        const char *text, *separators;
        std::vector<std::string> tokens;
    } rows[] = {
        {",a,,b,", ",", {"a", "b"}},      {"", ",", {}},        {",,,", ",", {}},      {"a", ",", {"a"}},
        {"a b,c", ", ", {"a", "b", "c"}}, {"a b", "", {"a b"}}, {" a ", ",", {" a "}},
    };
    for (auto & row : rows) {
        CStringTokenizer tokens{CXString(row.text), CXString(row.separators)};
        std::vector<std::string> all;
        while (tokens.hasMoreTokens()) all.emplace_back(tokens.nextToken().view());
        EXPECT_EQ(all, row.tokens) << row.text;
        EXPECT_EQ(tokens.nextToken(), ""); // past the end
        EXPECT_FALSE(tokens.hasMoreTokens());
    }
}

TEST(CStringTokenizer, VectorsOfWords) {
    CXArray * list = CXString(" a,\tb\r\nc, ").toVector();
    ASSERT_EQ(list->size, 3);
    EXPECT_EQ(*list->stringAt(0), "a");
    EXPECT_EQ(*list->stringAt(1), "\tb"); // a tab doesn't part
    EXPECT_EQ(*list->stringAt(2), "c");
    EXPECT_EQ(list->getCapacity(), 101);
    CXString::releaseToVector(list);
    list = CXString("a|b c").toVector("|");
    ASSERT_EQ(list->size, 2);
    EXPECT_EQ(*list->stringAt(1), "b c");
    CXString::releaseToVector(list);
    CXString::releaseToVector(nullptr);
}

} // namespace
