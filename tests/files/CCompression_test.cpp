// The coders: streams told byte by byte, round trips, and damaged input.

#include "files/CLZWCompression.h"
#include "files/CLZWCompression2.h"
#include "files/CRLECompression.h"
#include "files/CRLECompression2.h"
#include "files/LittleEndian.h"
#include "files/PlainDecoders.h"

#include <climits>
#include <gtest/gtest.h>
#include <lzo/lzo1x.h>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace std::string_literals;

std::string taken(char * block, std::size_t size) {
    std::unique_ptr<char[]> owner(block);
    return block ? std::string(block, size) : "null";
}

std::string numbers(std::initializer_list<int> values) {
    std::string out(values.size() * 4, '\0');
    char * at = out.data();
    for (int value : values) {
        little::putDword(at, static_cast<std::uint32_t>(value));
        at += 4;
    }
    return out;
}

// Bytes with runs of `hold` in the mean, of so many symbols; from `turn` on the runs end.
std::string bytes(std::mt19937 & random, std::size_t size, unsigned symbols, unsigned hold,
                  std::size_t turn) {
    std::string out(size, '\0');
    char present = 0;
    for (std::size_t i = 0; i < size; i++) {
        if (random() % (i < turn ? hold : 1) == 0) present = static_cast<char>(random() % symbols);
        out[i] = present;
    }
    return out;
}

// --- run lengths ---

struct Form {
    const char * name;
    std::size_t unit;
    char * (*compress)(const char *, int, int &);
    char * (*decompress)(const char *, int, int);
};
const Form kForms[] = {
    {"words", 2, CRLECompression::__compress, CRLECompression::__decompress},
    {"bytes", 1, CRLECompression::__compresschar, CRLECompression::__decompresschar},
};

// "aaab*3" in units: a letter a unit, a number behind a star repeats the letter before.
std::string units(const std::string & text, std::size_t unit) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); i++) {
        std::size_t count = 1;
        std::string one{text[i], static_cast<char>(~text[i])};
        if (text[i + 1] == '*') {
            std::size_t used;
            count = std::stoul(text.substr(i + 2), &used);
            i += 1 + used;
        }
        for (; count; count--) out += one.substr(0, unit);
    }
    return out;
}

TEST(CRLECompression, GroupsOfTheEncoder) {
    struct Case {
        const char * source;
        std::vector<std::pair<int, const char *>> groups; // control byte, units
    } cases[] = {
        {"", {}},
        {"a", {{1, "a"}}},
        {"aa", {{2, "aa"}}},
        {"aaa", {{3, "aaa"}}},
        {"aaaa", {{0x84, "a"}}},
        {"abc", {{3, "abc"}}},
        {"abbbcdddd", {{1, "a"}, {3, "bbb"}, {1, "c"}, {0x84, "d"}}},
        {"aabb", {{2, "aa"}, {2, "bb"}}},
        {"a*127", {{0xFF, "a"}}},
        {"a*128b", {{0xFF, "a"}, {2, "ab"}}},
        {"a*131", {{0xFF, "a"}, {0x84, "a"}}},
    };
    for (const Form & form : kForms)
        for (const Case & test : cases) {
            std::string source = units(test.source, form.unit), coded;
            for (const auto & [control, of] : test.groups) coded += char(control) + units(of, form.unit);
            int size = -1;
            char * block = form.compress(source.data(), static_cast<int>(source.size()), size);
            ASSERT_EQ(size, static_cast<int>(coded.size())) << form.name << ' ' << test.source;
            EXPECT_EQ(taken(block, coded.size()), coded) << form.name << ' ' << test.source;
        }
}

TEST(CRLECompression, LiteralGroupsHold127) {
    std::string source;
    for (int i = 0; i < 130; i++) source += static_cast<char>(i);
    int size;
    std::string coded = taken(CRLECompression::__compresschar(source.data(), 130, size), 133);
    // A full group is written at once, and the unit behind it becomes a group of its own.
    EXPECT_EQ(size, 133);
    EXPECT_EQ(coded, '\x7F' + source.substr(0, 127) + '\1' + source[127] + '\2' + source.substr(128));
}

TEST(CRLECompression, RoundTrips) {
    std::mt19937 random(1);
    for (int i = 0; i < 400; i++) {
        std::string source = bytes(random, random() % 3000 * 2, 1 + random() % 256, 1 + random() % 300, 3000);
        int size, bytes = static_cast<int>(source.size());
        for (const Form & form : kForms) {
            std::unique_ptr<char[]> coded(form.compress(source.data(), bytes, size));
            ASSERT_EQ(taken(form.decompress(coded.get(), size, bytes), source.size()), source) << form.name;
        }
    }
}

TEST(CRLECompression, FastFormGivesWhatThePlainOneGives) {
    std::mt19937 random(2);
    for (int i = 0; i < 3000; i++) {
        std::string stream = bytes(random, random() % 2000, 256, 1 + i % 4, 2000);
        std::size_t size = random() % 20000;
        for (const Form & form : kForms) {
            std::string expected(size, '\0');
            (form.unit == 2
                 ? plain::runLengths<std::uint16_t>
                 : plain::runLengths<unsigned char>)(reinterpret_cast<const unsigned char *>(stream.data()),
                                                     stream.size(),
                                                     reinterpret_cast<unsigned char *>(expected.data()),
                                                     size);
            // The sanitizers see a step past either block.
            std::vector<char> exact(stream.begin(), stream.end());
            char * result =
                form.decompress(exact.data(), static_cast<int>(exact.size()), static_cast<int>(size));
            ASSERT_EQ(taken(result, size), expected) << form.name << " of " << stream.size();
        }
    }
}

TEST(CRLECompression, GroupsThatDoNotFit) {
    struct Case {
        std::string stream;
        int bytes;
        std::string words, chars;
    } cases[] = {
        {"\x85zy"s, 4, "zyzy", "zzzz"},
        {"\2abcd\1ef"s, 4, "abcd", "abd\1"},
        {"\4abc"s, 6, "ab\0\0\0\0"s, "abc\0\0\0"s},
        {"\x83"s, 4, "\0\0\0\0"s, "\0\0\0\0"s},
        {"\x83z"s, 4, "\0\0\0\0"s, "zzz\0"s},
        {"\x80xy\x83zy"s, 6, "zyzyzy", "\x83zy\0\0\0"s},
        {"\x83zy\1"s, 5, "zyzy\0"s, "zzz\1\0"s},
        {"", 3, "\0\0\0"s, "\0\0\0"s},
        {"\1ab"s, 0, "", ""},
    };
    for (const Case & test : cases) {
        int size = static_cast<int>(test.stream.size());
        auto bytes = static_cast<std::size_t>(test.bytes);
        std::string stream = test.stream;
        EXPECT_EQ(taken(CRLECompression::__decompress(stream.data(), size, test.bytes), bytes), test.words);
        EXPECT_EQ(taken(CRLECompression::__decompresschar(stream.data(), size, test.bytes), bytes),
                  test.chars);
    }
    EXPECT_EQ(CRLECompression::__decompress("\1ab", 3, -1), nullptr);
    EXPECT_EQ(CRLECompression::__decompresschar("\1ab", 3, CCompression::kLargest + 1), nullptr);
    EXPECT_EQ(taken(CRLECompression::__decompress(nullptr, 9, 2), 2), "\0\0"s);
}

// --- the dictionary coder ---

// A block of codes that all are 9 bits wide.
std::string block(int size, const std::vector<unsigned> & codes) {
    std::string bits((codes.size() * 9 + 7) / 8, '\0');
    for (std::size_t i = 0; i < codes.size() * 9; i++)
        bits[i / 8] = static_cast<char>(bits[i / 8] | (codes[i / 9] >> i % 9 & 1) << i % 8);
    return numbers({size, static_cast<int>(bits.size()), static_cast<int>(codes.size())}) + bits;
}

std::string packed(std::string source) {
    CLZWCompression coder(source.data(), static_cast<int>(source.size()));
    int size = 0;
    char * result = coder.compress(size);
    return taken(result, static_cast<std::size_t>(size));
}

std::string unpacked(const std::string & block) {
    std::vector<char> exact(block.begin(), block.end());
    CLZWCompression coder(exact.data(), static_cast<int>(exact.size()));
    char * result = coder.decompress();
    return taken(result, static_cast<std::size_t>(coder.getSize()));
}

TEST(CLZWCompression, CodesOfTheEncoder) {
    struct Case {
        std::string source;
        std::vector<unsigned> codes;
    } cases[] = {
        {"", {}},
        {"x", {256, 'x'}},
        {"aaaa", {256, 'a', 257, 'a'}}, // 257 is met while it is being defined
        {"abababa", {256, 'a', 'b', 257, 259}},
        {"\xFF\0\xFF\0"s, {256, 255, 0, 257}},
    };
    for (const Case & test : cases) {
        std::string expected = block(static_cast<int>(test.source.size()), test.codes);
        EXPECT_EQ(packed(test.source), expected) << test.source;
        EXPECT_EQ(unpacked(expected), test.source);
    }
}

// How many codes stand between one clear code and the next, as the widths of a decoder part them.
std::vector<int> stretches(const std::string & block) {
    std::vector<int> found;
    std::size_t at = 0;
    unsigned width = 9;
    for (int left = little::integer(&block[8]), since = 0; left; left--) {
        unsigned code = 0;
        for (unsigned i = 0; i < width; i++, at++)
            code |= static_cast<unsigned>(block[12 + at / 8] >> at % 8 & 1) << i;
        if (code == 256) {
            if (since) found.push_back(since);
            since = 0;
            width = 9;
        } else if (++since >= 2 && width < 16 && 256 + since == 1 << width) {
            width++;
        }
    }
    return found;
}

TEST(CLZWCompression, RoundTripsAndResets) {
    std::mt19937 random(3);
    std::size_t resets = 0;
    for (unsigned i = 0; i < 120; i++) {
        std::size_t size = random() % (i < 100 ? 5000 : 900'000);
        std::string source =
            bytes(random, size, i % 3 ? 256 : 1 + i % 7, 1 + i % 40, i % 2 ? size : size / 2);
        std::string coded = packed(source);
        ASSERT_TRUE(unpacked(coded) == source) << i;
        if (i % 20) continue;
        for (int stretch : stretches(coded)) {
            // Only the end of a period at 12 bits or more is a place for it.
            bool atAnEnd = stretch + 1 == 3840 || stretch + 1 == 7936 || stretch + 1 == 16128 ||
                           stretch + 1 == 32512 ||
                           (stretch + 1 >= 65280 && (stretch + 1 - 65280) % 2048 == 0);
            EXPECT_TRUE(atAnEnd) << stretch;
            resets++;
        }
    }
    EXPECT_GT(resets, 3u);
}

TEST(CLZWCompression, FastFormGivesWhatThePlainOneGives) {
    std::mt19937 random(4);
    for (unsigned i = 0; i < 1500; i++) {
        // Streams that an encoder made, some of them damaged, and some that are noise.
        std::string coded = packed(bytes(random, random() % 20000, 1 + random() % 256, 1 + i % 50, 20000));
        if (i % 3 == 0) coded = coded.substr(0, 12) + bytes(random, random() % 300, 256, 1, 0);
        for (unsigned k = i % 5; k && coded.size() > 16; k--)
            coded[12 + random() % (coded.size() - 12)] ^= static_cast<char>(1 << random() % 8);
        auto length = coded.size() - 12 - random() % 3 % (coded.size() - 11);
        little::putDword(&coded[4], static_cast<std::uint32_t>(length));
        if (i % 7 == 0) little::putDword(&coded[0], little::dword(&coded[0]) / 2);
        auto size = static_cast<std::size_t>(little::integer(&coded[0]));
        std::string expected(size, '\0');
        plain::dictionary(reinterpret_cast<const unsigned char *>(&coded[12]), length,
                          little::integer(&coded[8]), reinterpret_cast<unsigned char *>(expected.data()),
                          size);
        std::string result = unpacked(coded);
        ASSERT_TRUE(result == expected || result == "null") << i;
    }
}

TEST(CLZWCompression, CodesThatNoEncoderWrites) {
    struct Case {
        std::vector<unsigned> codes;
        std::string result;
    } cases[] = {
        {{256, 'a', 258, 'b'}, "a\0\0\0\0"s},       // beyond the string being defined
        {{256, 300, 'b', 'c'}, "\0\0\0\0\0"s},      // no byte behind the clear code
        {{256, 'a', 'b', 256}, "ab\0\0\0"s},        // nothing behind it
        {{'a', 'b', 'c', 257}, "abc\0a"s},          // without a clear code the byte 0 was before
        {{257, 257, 'a'}, "\0\0\0\0a"s},            // and the first string is two of it
        {{256, 'a', 'b', 256, 'c', 257}, "abccc"s}, // the strings before a clear code are gone
        {{256, 'a', 257, 258, 259}, "aaaaa"s},      // more than the size tells
    };
    for (const Case & test : cases) {
        std::string result = unpacked(block(5, test.codes));
        EXPECT_EQ(result, test.result) << test.codes[1];
    }
}

TEST(CLZWCompression, HeadsThatMakeNoSense) {
    std::string good = block(4, {256, 'a', 257, 'a'}), bits = good.substr(12);
    EXPECT_EQ(unpacked(numbers({4, 900, 4}) + bits), "aaaa"); // more bits than there are
    EXPECT_EQ(unpacked(numbers({4, 5, 900}) + bits).substr(0, 3), "aaa");
    EXPECT_EQ(unpacked(numbers({4, 4, 4}) + bits), "aaa\0"s);
    EXPECT_EQ(unpacked(numbers({4, 5, 3}) + bits), "aaa\0"s);
    EXPECT_EQ(unpacked(numbers({0, 5, INT_MIN}) + bits), ""); // a count below zero
    for (const std::string & bad :
         {numbers({-4, 5, 4}) + bits, numbers({1 << 28, 5, 4}) + bits, numbers({4, -1, 4}) + bits,
          numbers({4, 5, -4}) + bits, good.substr(0, 11)})
        EXPECT_EQ(unpacked(bad), "null");
    CLZWCompression none(nullptr, 100);
    EXPECT_EQ(none.decompress(), nullptr);
}

// --- LZO ---

std::string lzo(const std::string & block, int available = -1) {
    std::vector<char> exact(block.begin(), block.end());
    CLZWCompression2 coder(exact.data(), available < 0 ? static_cast<int>(exact.size()) : available);
    char * result = coder.decompress();
    return taken(result, static_cast<std::size_t>(coder.getOriginalSize()));
}

TEST(CLZWCompression2, BlocksOfTheLibraryBothWays) {
    std::mt19937 random(5);
    for (std::size_t size : {0, 1, 2, 3, 17, 400, 70000}) {
        std::string source = bytes(random, size, 256, 1 + static_cast<unsigned>(size % 7), size);
        std::string stream(size * 2 + 100, '\0'), work(LZO1X_1_MEM_COMPRESS, '\0');
        lzo_uint length = stream.size();
        auto * from = reinterpret_cast<unsigned char *>(source.data());
        auto * to = reinterpret_cast<unsigned char *>(stream.data());
        ASSERT_EQ(lzo1x_1_compress(from, size, to, &length, work.data()), LZO_E_OK);
        stream = numbers({static_cast<int>(size), static_cast<int>(length)}) + stream.substr(0, length);
        EXPECT_EQ(lzo(stream), source);

        CLZWCompression2 coder(source.data(), static_cast<int>(size));
        int outSize = -1;
        char * result = coder.compress(outSize);
        EXPECT_EQ(outSize, static_cast<int>(length));
        EXPECT_EQ(taken(result, length + 8), stream);
    }
}

TEST(CLZWCompression2, DamagedBlocks) {
    std::string source(300, 'a');
    CLZWCompression2 coder(source.data(), 300);
    int size;
    std::unique_ptr<char[]> made(coder.compress(size));
    std::string block(made.get(), static_cast<std::size_t>(size) + 8), stream = block.substr(8);
    EXPECT_EQ(lzo(numbers({300, 5000}) + stream), source); // more than there is
    EXPECT_EQ(lzo(numbers({400, size}) + stream), source + std::string(100, '\0'));
    EXPECT_EQ(lzo(numbers({300, 0})), "null");
    EXPECT_EQ(lzo(numbers({-1, size}) + stream), "null");
    EXPECT_EQ(lzo(numbers({1 << 28, size}) + stream), "null");
    EXPECT_EQ(lzo(block, 7), "null");
    EXPECT_EQ(lzo(numbers({10, size}) + stream).size(), 10u);
    std::mt19937 random(6);
    for (int i = 0; i < 2000; i++) { // no step past either block
        std::string noise = numbers({static_cast<int>(random() % 2000), 100}) + bytes(random, 100, 256, 1, 0);
        lzo(noise);
    }
}

// --- rows of a PSD file ---

std::string rows(CXSize size, std::vector<short> lengths, const std::string & data) {
    auto * table = new short[lengths.size()];
    std::copy(lengths.begin(), lengths.end(), table);
    std::vector<char> exact(data.begin(), data.end());
    CRLECompression2 coder(size, table, exact.data(), static_cast<int>(exact.size()));
    char * result = coder.Decompress();
    return taken(result, static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy));
}

TEST(CRLECompression2, RowsRunOnWithoutPadding) {
    EXPECT_EQ(rows({5, 2}, {6, 2}, "\2abc\xFFz\xFCy"), "abczzyyyyy");
    EXPECT_EQ(rows({129, 1}, {2}, "\x80q"), std::string(129, 'q'));
    EXPECT_EQ(rows({3, 1}, {2}, "\xFBq"), "qqq"); // cut at the end
}

TEST(CRLECompression2, DamagedRows) {
    EXPECT_EQ(rows({4, 2}, {9, 9}, "\1ab"), "ab\0\0\0\0\0\0"s);
    EXPECT_EQ(rows({4, 2}, {-3, 3}, "\1ab"), "\0\0\0\0\0\0\0\0"s);
    EXPECT_EQ(rows({3, 1}, {1}, "\xFB"), "\0\0\0"s);
    EXPECT_EQ(rows({4, 1}, {5}, "\3abc"), "abc\0"s);
    EXPECT_EQ(rows({0, 0}, {}, ""), "");
    CRLECompression2 huge({1 << 20, 1 << 20}, new short[1](), nullptr, 0);
    EXPECT_EQ(huge.Decompress(), nullptr);
}

} // namespace
