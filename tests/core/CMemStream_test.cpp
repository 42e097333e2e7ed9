#include "core/CMemStream.h"

#include "files/CFile.h"
#include "files/InGame.h"

namespace {

class CMemStreams : public test::InGame {
protected:
    CMemStream streamOf(std::string_view bytes) {
        put("bits", bytes);
        CFile file(&window_, path("bits"), 17);
        return CMemStream(&file);
    }
};

TEST_F(CMemStreams, BitsFromTheTop) {
    CMemStream stream = streamOf({"\xA5\x0F\xFF\x80\x00\x00\x01\x7F", 8});
    EXPECT_EQ(stream.getSize(), 8);
    EXPECT_EQ(stream.get_signed_bits(3), -3); // 1 0 1
    EXPECT_EQ(stream.get_bits(0), 0U);
    EXPECT_EQ(stream.get_bits(-1), 0U);
    EXPECT_EQ(stream.get_signed_bits(0), 0);
    EXPECT_EQ(stream.get_signed_bits(2), 0); // 0 0
    EXPECT_EQ(stream.get_bit(), 1);
    EXPECT_EQ(stream.get_bits(4), 4U); // 01 and 00 of the next byte
    EXPECT_EQ(stream.get_signed_bits(6), 15);
    EXPECT_EQ(stream.get_signed_bits(1), -1);
    EXPECT_EQ(stream.get_signed_bits(7), -1);
    EXPECT_EQ(stream.get_bits(32), 0x80000001U);
    EXPECT_EQ(stream.get_bits(8), 0x7FU);
    EXPECT_EQ(stream.get_bit(), 0); // behind the end
}

TEST_F(CMemStreams, WholeBitsOfAWord) {
    EXPECT_EQ(streamOf("\x80\x01\x02\x03").get_bits(32), 0x80010203U);
    EXPECT_EQ(streamOf("\xFF\xFF\xFF\xFE").get_signed_bits(32), -2);
    EXPECT_EQ(streamOf("\x7F\xFF\xFF\xFF").get_signed_bits(32), 0x7FFFFFFF);
}

TEST_F(CMemStreams, NumbersSkipAPartOfAByte) {
    CMemStream stream = streamOf("\x80\xFE\x34\x12\x78\x56\x34\x92\xC0zyxw");
    char * start = stream.getPtr();
    EXPECT_EQ(stream.get_bit(), 1);
    EXPECT_EQ(stream.get_char(), -2);
    EXPECT_EQ(stream.get_shortint(), 0x1234);
    EXPECT_EQ(stream.get_int(), static_cast<int>(0x92345678U));
    EXPECT_EQ(stream.get_bits(2), 3U);
    stream.move(1); // the rest of C0, then z
    char two[3] = {};
    stream.get_bytes(two, 2);
    EXPECT_STREQ(two, "yx");
    EXPECT_EQ(stream.getPtr(), start + 12);
    stream.move(-12);
    EXPECT_EQ(stream.getPtr(), start);
    stream.get_bits(3);
    stream.get_bytes(two, 1); // from the pointer, whatever the bit
    EXPECT_EQ(two[0], '\x80');
    EXPECT_EQ(stream.getPtr(), start + 1);
    EXPECT_EQ(stream.get_bits(5), 0x1EU); // still at the fourth bit: 1 1110 of FE
}

TEST_F(CMemStreams, BehindTheEndStandsZero) {
    CMemStream stream = streamOf("\x01\x02");
    EXPECT_EQ(stream.get_int(), 0x0201);
    EXPECT_EQ(stream.get_int(), 0);
    stream.move(1000);
    stream.move(-1000);
    EXPECT_EQ(stream.get_char(), 1);
    char four[] = "xxxx";
    stream.get_bytes(four, 4);
    EXPECT_EQ(std::string(four, 4), std::string("\2\0\0\0", 4));
    // To the end from the middle of a byte: there is no rest of a byte to skip.
    CMemStream one = streamOf("\xFF");
    EXPECT_EQ(one.get_bits(3), 7U);
    one.get_bytes(four, 1);
    EXPECT_EQ(one.get_char(), 0);
    one.get_bytes(four, 4);
    EXPECT_EQ(std::string(four, 4), std::string(4, '\0'));
    one.move(-1);
    EXPECT_EQ(one.get_char(), -1);
    CMemStream empty = streamOf("");
    EXPECT_EQ(empty.getSize(), 0);
    EXPECT_EQ(empty.get_bits(9), 0U);
    EXPECT_EQ(empty.get_shortint(), 0);
}

TEST_F(CMemStreams, AFileThatIsNotThereIsEmpty) {
    CFile file(&window_, "nothing", 17);
    CMemStream stream(&file);
    EXPECT_EQ(stream.getSize(), 0);
    EXPECT_EQ(stream.get_int(), 0);
}

} // namespace
