#include "core/CXString.h"

#include "core/CXArray.h"
#include "core/CXPoint.h"
#include "core/CXRect.h"

#include <gtest/gtest.h>
#include <limits>
#include <utility>

namespace {

std::string filled(int n) { return std::string(static_cast<std::size_t>(n), 'x'); }

TEST(CXString, CapacityOfANewString) {
    for (auto [length, capacity] : {std::pair{0, 32}, {1, 32}, {31, 32}, {32, 64}, {33, 65}, {100, 132}}) {
        CXString text(filled(length).c_str());
        EXPECT_EQ(text.getCapacity(), capacity) << length;
        EXPECT_EQ(CXString(text).getCapacity(), capacity) << length;
    }
    EXPECT_EQ(CXString().getCapacity(), 32);
    EXPECT_EQ(CXString(static_cast<const char *>(nullptr)).getCapacity(), 32);
    CXString room(200);
    EXPECT_EQ(room.getCapacity(), 200);
    EXPECT_EQ(room.getLength(), 1);
}

TEST(CXString, CapacityGrowsByTheOperation) {
    struct Row {
        const char * what;
        int before;
        void (*change)(CXString &);
        int after;
    };
    const Row rows[] = {
        {"= text below it", 5, [](CXString & s) { s = filled(31).c_str(); }, 32},
        {"= text of it", 5, [](CXString & s) { s = filled(32).c_str(); }, 64},
        {"= text, smaller again", 100, [](CXString & s) { s = "a"; }, 132},
        {"= string of the same capacity", 5, [](CXString & s) { s = CXString("abc"); }, 32},
        {"= string of a greater one", 5,
         [](CXString & s) {
             CXString big(filled(40).c_str());
             s = big;
         },
         72},
        {"= short string of a great capacity", 5,
         [](CXString & s) {
             CXString big(filled(40).c_str());
             big = "ab";
             s = big;
         },
         34},
        {"+= text that fits", 5, [](CXString & s) { s += filled(26).c_str(); }, 32},
        {"+= text that doesn't", 5, [](CXString & s) { s += filled(27).c_str(); }, 64},
        {"+= string that doesn't", 10, [](CXString & s) { s += CXString(filled(40).c_str()); }, 82},
        {"+= byte that fits", 29, [](CXString & s) { s += 'c'; }, 32},
        {"+= byte that doesn't", 30, [](CXString & s) { s += 'c'; }, 64},
        {"+= number that fits", 11, [](CXString & s) { s += 7; }, 32},
        {"+= number that doesn't", 12, [](CXString & s) { s += 7; }, 64},
        {"= byte", 100, [](CXString & s) { s = 'c'; }, 132},
        {"= number", 5, [](CXString & s) { s = -2147483647; }, 32},
        {"+ within", 20, [](CXString & s) { EXPECT_EQ((s + "abc").getCapacity(), 32); }, 32},
        {"+ beyond", 20, [](CXString & s) { EXPECT_EQ((s + s).getCapacity(), 72); }, 32},
    };
    for (const Row & row : rows) {
        CXString text(filled(row.before).c_str());
        row.change(text);
        EXPECT_EQ(text.getCapacity(), row.after) << row.what;
        EXPECT_EQ(text.c_str()[text.getLength()], 0) << row.what;
    }
}

TEST(CXString, AssignsAndAppendsItsOwnBytes) {
    for (int length : {3, 35, 36, 200}) {
        std::string plain = filled(length - 1) + "z";
        CXString text(plain.c_str());
        const CXString & same = text;
        text = same;
        EXPECT_EQ(text.view(), plain);
        text += same;
        EXPECT_EQ(text.view(), plain + plain);
        text += text.c_str();
        EXPECT_EQ(text.view(), plain + plain + plain + plain);
        text = text.c_str() + length;
        EXPECT_EQ(text.view(), plain + plain + plain);
        text.right(length, &text);
        EXPECT_EQ(text.view(), plain + plain);
        text = static_cast<const char *>(nullptr);
        EXPECT_EQ(text.view(), plain + plain);
        CXString taken(std::move(text));
        EXPECT_EQ(taken.view(), plain + plain);
        text = "again"; // a string that was moved from can be used
        EXPECT_EQ(text.view(), "again");
        taken = std::move(text);
        EXPECT_EQ(taken.view(), "again");
    }
}

TEST(CXString, EndsAtTheFirstZero) {
    EXPECT_EQ(CXString(std::string_view("ab\0cd", 5)).view(), "ab");
    CXString text("ab");
    text += std::string_view("c\0d", 3);
    EXPECT_EQ(text.view(), "abc");
    text += '\0';
    EXPECT_EQ(text.getLength(), 3);
}

TEST(CXString, CutsAndTrims) {
    const CXString text("abcdefg");
    EXPECT_EQ(text.Mid(2, 5), "cde");  // an end, not a count
    EXPECT_EQ(text.Right(2), "cdefg"); // a start, not a count
    EXPECT_EQ(text.Left(2), "ab");
    EXPECT_EQ(text.Mid(5, 2), "");
    EXPECT_EQ(text.Mid(-3, 99), "abcdefg");
    EXPECT_EQ(text.Right(8), "");
    CXString changed = text, out;
    changed.mid(1, 6);
    changed.right(1);
    changed.left(3);
    EXPECT_EQ(changed, "cde");
    text.mid(2, 4, &out);
    EXPECT_EQ(out, "cd");
    text.left(1, &out);
    EXPECT_EQ(out, "a");
    EXPECT_EQ(CXString("--a-b--").AllTrim('-'), "a-b");
    EXPECT_EQ(CXString("--a-b--").LTrim('-'), "a-b--");
    EXPECT_EQ(CXString("--a-b--").RTrim('-'), "--a-b");
    EXPECT_EQ(CXString("----").AllTrim('-'), "");
    changed.FillWith('q', 50);
    EXPECT_EQ(changed.view(), std::string(50, 'q'));
    EXPECT_EQ(text.lastChar(), 'g');
    EXPECT_EQ(text.GetAt(0), 'a');
    EXPECT_EQ(CXString().lastChar(), 0);
}

TEST(CXString, Replaces) {
    EXPECT_EQ(CXString("aaaa").replace("aa", "a"), "aa"); // what was put in isn't searched again
    EXPECT_EQ(CXString("abab").replace("ab", "xaby"), "xabyxaby");
    EXPECT_EQ(CXString("aab").replace("ab", "X"), "aX");
    EXPECT_EQ(CXString("abc").replace("", "X"), "abc");
    EXPECT_EQ(CXString("abc").replace("c", ""), "ab");
    struct {
        const char *text, *what, *with;
        int start;
        const char * result;
    } rows[] = {{"one two one", "one", "1", 0, "1 two one"},
                {"one two one", "one", "1", 1, "ne two 1"}, // what stands before the start is dropped
                {"one two", "six", "6", 4, "two"},
                {"one", "one", "", 0, ""},
                {"one", "e", "x", 3, ""}};
    for (auto & row : rows) {
        CXString text(row.text);
        text.replaceOnce(row.what, row.with, row.start);
        EXPECT_EQ(text, row.result) << row.text << row.start;
    }
    for (auto [text, result] : {std::pair{"a<b>c<i>d", "ac<i>d"},
                                {"a<<b>>c", "a<>c"},
                                {"<bold>x</b>", "x</b>"},
                                {"x<b", "x"},
                                {"x<", "x<"}}) {
        CXString changed(text);
        changed.removeTag("b");
        EXPECT_EQ(changed, result) << text;
    }
    CXString text("a.b.c");
    text.Replace('.', ',');
    EXPECT_EQ(text, "a,b,c");
}

TEST(CXString, Searches) {
    const CXString text("abcabc");
    EXPECT_EQ(text.Find('c', 0), 2);
    EXPECT_EQ(text.Find('c', 3), 5);
    EXPECT_EQ(text.Find('a', 4), -1);
    EXPECT_EQ(text.FindLast('a', -1), 3);
    EXPECT_EQ(text.FindLast('a', 3), 0); // from the byte before it
    EXPECT_EQ(text.FindLast('a', 0), -1);
    EXPECT_EQ(text.FindSubString("bc", 2), 4);
    EXPECT_EQ(text.indexOf("abc", 1), 3);
    EXPECT_EQ(text.indexOf("abc", -5), 0);
    EXPECT_EQ(text.indexOf("abc", 4), -1);
    EXPECT_EQ(text.findOneOf("xcb", 0), 1);
    EXPECT_EQ(text.findOneOf("xy", 0), -1);
    EXPECT_EQ(text.getCount('b'), 2);
    EXPECT_EQ(CXString("\xFF\xFFz").getCount(0xFF), 2);
    EXPECT_TRUE(text.startsWith("") && text.startsWith("abcabc") && text.endsWith("bc"));
    EXPECT_FALSE(text.startsWith("abcabcd") || text.endsWith("xabcabc") || text.startsWith("ABC"));
    const CXString words("one two \n three");
    EXPECT_EQ(words.getWord(0), "one");
    EXPECT_EQ(words.getWord(1), "two");
    EXPECT_EQ(words.getWord(2), "three");
    EXPECT_EQ(words.getWord(3), "");
}

TEST(CXString, PatternsOfFileNames) {
    struct {
        const char *pattern, *name;
        bool fits;
    } rows[] = {
        {"zzz", "*", true},
        {"zzz", "*.*", true},
        {"a.txt", "a.txt", true},
        {"a.txt", "a.TXT", false},
        {"?.txt", "b.txt", true},
        {"a*", "abcdef", true},
        {"*.def", "a.def", true}, // as long: the star is one byte
        {"*.def", "ab.def", false},
        {"a*.def", "a.def", true}, // longer by one: the star jumps over the next byte
        {"a*.def", "axdef", true},
        {"*??", "ab", true},
        {"abcd", "abc", true}, // the end of the name settles it
        {"abc", "abcd", false},
        {"", "", true},
        {"", "a", false},
    };
    for (auto & row : rows)
        EXPECT_EQ(CXString(row.pattern).FilterFits(row.name), row.fits) << row.pattern << " " << row.name;
}

TEST(CXString, NinePolishLettersHaveTwoCases) {
    const std::string upper = "\x8C\x8F\xA3\xA5\xAF\xC6\xCA\xD1\xD3",
                      lower = "\x9C\x9F\xB3\xB9\xBF\xE6\xEA\xF1\xF3";
    for (int c = 1; c < 256; c++) {
        char byte = static_cast<char>(c);
        std::size_t asUpper = upper.find(byte), asLower = lower.find(byte);
        bool isUpper = asUpper != std::string::npos || (c >= 'A' && c <= 'Z');
        bool isLower = asLower != std::string::npos || (c >= 'a' && c <= 'z');
        CXString text;
        text = byte;
        char toLower = asUpper != std::string::npos ? lower[asUpper]
                       : isUpper                    ? static_cast<char>(c + 32)
                                                    : byte;
        char toUpper = asLower != std::string::npos ? upper[asLower]
                       : isLower                    ? static_cast<char>(c - 32)
                                                    : byte;
        EXPECT_EQ(text.IsUpper(), isUpper) << c;
        EXPECT_EQ(text.IsUpper(0), isUpper) << c;
        EXPECT_EQ(text.IsLower(), isLower) << c;
        EXPECT_EQ(CXString(text).Lower().GetAt(0), toLower) << c;
        EXPECT_EQ(CXString(text).Upper().GetAt(0), toUpper) << c;
        EXPECT_TRUE(text.equalsIgnoreCase(CXString(text).Lower())) << c;
    }
    EXPECT_TRUE(CXString().IsLower() && CXString().IsUpper());
    EXPECT_FALSE(CXString("ab1").IsLower());
    EXPECT_FALSE(CXString("\xA5").equals("\xB9"));
    EXPECT_FALSE(CXString("ab").equalsIgnoreCase("abc"));
}

} // namespace
