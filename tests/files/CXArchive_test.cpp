#include "files/CXArchive.h"

#include "core/CXRect.h"
#include "core/CXString.h"
#include "files/CFile.h"
#include "files/CFile_Stream.h"
#include "support/InWorld.h"

#include <limits>
#include <memory>

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

class Archive : public test::InWorld {
protected:
    template <class Writer>
    std::string stored(Writer write) {
        CFile file(nullptr, "a.bin", CFile::kWrite | CFile::kUpdate | CFile::kBinary);
        CXArchive archive(&file, true);
        write(archive);
        EXPECT_FALSE(archive.failed());
        archive.Close();
        return get("a.bin");
    }
};

// A loading archive over bytes in memory.
struct Loading {
    explicit Loading(std::string_view bytes)
        : file(bytes.data(), static_cast<int>(bytes.size())), archive(&file, false) {}
    template <class Value>
    Value read() {
        Value value{};
        archive >> value;
        return value;
    }
    std::string block() {
        std::unique_ptr<char[]> text(read<char *>());
        return text.get();
    }

    CFile_Stream file;
    CXArchive archive;
};

TEST_F(Archive, StoresTheseBytes) {
    EXPECT_EQ(stored([](CXArchive & to) {
                  to << -2 << std::int64_t{0x0102030405060708} << true << false << 2.5;
                  to << CXRect(1, 2, -1, 256) << CXString("abc") << CXString() << "xy"
                     << static_cast<const char *>(nullptr);
              }),
              "\xFE\xFF\xFF\xFF\x08\x07\x06\x05\x04\x03\x02\x01\x01\x00\xC4\x09\x00\x00"
              "\x01\x00\x00\x00\x02\x00\x00\x00\xFF\xFF\xFF\xFF\x00\x01\x00\x00"
              "\x03\x00\x00\x00"
              "abc\x00\x00\x00\x00\x02\x00\x00\x00xy\x00\x00\x00\x00"s);
}

TEST_F(Archive, ReadsWhatItStored) {
    std::string bytes = stored([](CXArchive & to) {
        to << -2 << std::int64_t{-3} << true << CXRect(1, 2, -1, 256) << "xy" << CXString("z\xB3oty");
    });
    Loading from(bytes);
    EXPECT_EQ(from.read<int>(), -2);
    EXPECT_EQ(from.read<std::int64_t>(), -3);
    EXPECT_TRUE(from.read<bool>());
    EXPECT_EQ(from.read<CXRect>(), CXRect(1, 2, -1, 256));
    EXPECT_EQ(from.block(), "xy");
    EXPECT_EQ(from.read<CXString>(), "z\xB3oty");
    EXPECT_FALSE(from.archive.failed());
    EXPECT_TRUE(from.file.eof());
}

TEST_F(Archive, DoublesAreThousandthsIn32Bits) {
    struct {
        double value, back;
    } cases[] = {
        {2.5, 2.5},
        {1.2345, 1.234},
        {0.0004, 0.0},
        {-1.9999, -1.999},
        {2147483.0, 2147483},
        {1e300, -2147483.648},
        {-1e300, -2147483.648},
        {std::numeric_limits<double>::quiet_NaN(), -2147483.648},
    };
    for (auto & each : cases) {
        std::string bytes = stored([&](CXArchive & to) { to << each.value; });
        EXPECT_EQ(bytes.size(), 4U);
        EXPECT_DOUBLE_EQ(Loading(bytes).read<double>(), each.back) << each.value;
    }
}

TEST_F(Archive, ShortStringsReadTheirLengthAsSigned) {
    struct {
        std::size_t length, back;
    } cases[] = {{0, 0}, {1, 1}, {127, 127}, {128, 0}, {255, 0}, {257, 1}};
    for (auto & each : cases) {
        std::string bytes =
            stored([&](CXArchive & to) { to.writeShortString(CXString(std::string(each.length, 'x'))); });
        EXPECT_EQ(bytes.size(), each.length + 1);
        CXString text = "old";
        Loading(bytes).archive.readShortString(&text);
        EXPECT_EQ(text.view(), std::string(each.back, 'x')) << each.length;
    }
}

TEST_F(Archive, WordsAndCharacters) {
    EXPECT_EQ(stored([](CXArchive & to) {
                  to.FWrite("one two");
                  to.FWrite("");
                  to.FWrite("\n");
              }),
              "one two\n");
    Loading from("  one\ttwo");
    CXString word;
    from.archive.FRead(word);
    EXPECT_EQ(word, "one");
    EXPECT_EQ(from.read<char>(), '\t');
    from.archive.FRead(word);
    EXPECT_EQ(word, "two");
    EXPECT_FALSE(from.archive.failed());
    from.archive.FRead(word);
    EXPECT_EQ(word, "");
    EXPECT_TRUE(from.archive.failed());
}

TEST_F(Archive, CopyFileAppendsWholeFiles) {
    put("b.bin", std::string(100000, 'b'));
    put("empty", "");
    EXPECT_EQ(stored([](CXArchive & to) {
                  to << true;
                  to.CopyFile("b.bin");
                  to.CopyFile("empty");
                  to.CopyFile("none");
                  to << false;
              }),
              "\x01" + std::string(100000, 'b') + "\0"s);
}

// Whatever is short or claims too much reads as empty, and so does all behind it.
TEST_F(Archive, DamageReadsAsEmpty) {
    for (std::string_view bytes : {""sv, "\x01\x00\x00"sv}) {
        Loading from(bytes);
        EXPECT_EQ(from.read<int>(), 0);
        EXPECT_TRUE(from.archive.failed());
        EXPECT_FALSE(from.read<bool>());
        EXPECT_EQ(from.read<CXString>(), "");
        EXPECT_EQ(from.block(), "");
    }
    for (std::string_view bytes : {"\xFF\xFF\xFF\x7Fxy\x01\x00\x00\x00"sv, "\x03\x00\x00\x00xy"sv}) {
        Loading text(bytes), blocks(bytes);
        EXPECT_EQ(text.read<CXString>(), "");
        EXPECT_TRUE(text.archive.failed());
        EXPECT_EQ(blocks.block(), "");
        EXPECT_EQ(blocks.read<int>(), 0);
    }
    Loading negative("\xFF\xFF\xFF\xFFxy");
    EXPECT_EQ(negative.read<CXString>(), "");
    EXPECT_FALSE(negative.archive.failed());
    EXPECT_EQ(negative.read<char>(), 'x');

    CFile closed;
    for (CFile * file : {&closed, static_cast<CFile *>(nullptr)}) {
        CXArchive archive(file, true);
        int value = 7;
        archive >> value;
        EXPECT_EQ(value, 0);
        archive << 1;
        EXPECT_TRUE(archive.failed());
        archive.Close();
    }
}

} // namespace
