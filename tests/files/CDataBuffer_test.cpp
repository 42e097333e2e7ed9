#include "files/CDataBuffer.h"

#include <gtest/gtest.h>
#include <memory>

namespace {

TEST(CDataBuffer, CursorMovesByItems) {
    CDataBuffer buffer("abcdefgh", 4, 2);
    EXPECT_EQ(buffer.getMemoryUsage(), 8);
    EXPECT_EQ(*buffer.getCursor(), 'a');
    EXPECT_EQ(*(++buffer).getCursor(), 'c');
    EXPECT_EQ(*(buffer += 2).getCursor(), 'g');
    EXPECT_EQ(*(buffer -= 1).getCursor(), 'e');
    EXPECT_EQ(*(--buffer).getCursor(), 'c');
    buffer.start();
    EXPECT_EQ(buffer.getCursor(), buffer.getData());
}

TEST(CDataBuffer, BackupComesBack) {
    CDataBuffer buffer("abcd", 4, 1);
    auto text = [&] { return std::string(buffer.getData(), 4); };
    buffer.restore(true); // there is none yet
    EXPECT_EQ(text(), "abcd");
    buffer.backup();
    buffer.zero();
    EXPECT_EQ(text(), std::string(4, '\0'));
    buffer.restore(false);
    EXPECT_EQ(text(), "abcd");
    buffer.zero();
    buffer.restore(true);
    EXPECT_EQ(text(), "abcd");
    buffer.zero();
    buffer.restore(true);
    EXPECT_EQ(text(), std::string(4, '\0'));
}

TEST(CDataBuffer, FlushedOneStaysUsable) {
    CDataBuffer buffer("abcd", 4, 1);
    buffer.backup();
    buffer.flush();
    buffer.flush();
    buffer.backup();
    buffer.restore(true);
    buffer.zero();
    EXPECT_EQ(buffer.getMemoryUsage(), 0);
    std::unique_ptr<CXObject> copy(buffer.clone());
    EXPECT_EQ(static_cast<CDataBuffer &>(*copy).getCount(), 0);
}

TEST(CDataBuffer, RowsOfAPicture) {
    CDataBuffer2Dim picture("aAbBcCdDeEfF", {3, 2}, 2);
    picture.at(1, 1);
    EXPECT_EQ(*picture.getCursor(), 'e');
    picture.prevLine();
    EXPECT_EQ(*picture.getCursor(), 'b');
    picture.nextLine();
    EXPECT_EQ(*picture.getCursor(), 'e');
    std::unique_ptr<CXObject> copy(picture.clone());
    auto & twin = static_cast<CDataBuffer2Dim &>(*copy);
    EXPECT_EQ(twin.getWidth() * 10 + twin.getHeight(), 32);
    EXPECT_EQ(std::string(twin.getData(), 12), "aAbBcCdDeEfF");
}

TEST(CDataBuffer, SizesThatMakeNoSense) {
    for (CXSize size :
         {CXSize(-1, 5), CXSize(5, -1), CXSize(0x7FFFFFFF, 0x7FFFFFFF), CXSize(1 << 14, 1 << 14)}) {
        CDataBuffer2Dim picture(size, 2);
        EXPECT_EQ(picture.getWidth() + picture.getHeight() + picture.getMemoryUsage(), 0) << size.cx;
    }
    EXPECT_EQ(CDataBuffer(-1, 1).getCount(), 0);
    EXPECT_EQ(CDataBuffer(CDataBuffer::kLargest, 2).getCount(), 0);
    EXPECT_EQ(CDataBuffer2Dim({5, 0}, 1).getWidth(), 5);
}

} // namespace
